// Controls that go while they are in the middle of a call to the platform: the parent draws its background
// behind them, or a host that subclassed them hears of a change of the capture or the style. Under the
// sanitizers, any touch of an object after its end shows here.

#include "../support/AllControls.h"
#include "../support/Interception.h"
#include "../support/WithBehavior.h"
#include "Survival.h"

#include <gtest/gtest.h>

namespace {

using namespace test;

// A point where a press takes the capture.
template <class CONTROL> constexpr LPARAM INSIDE = MAKELPARAM(5, 5);
template <> constexpr LPARAM INSIDE<GRibbon> = MAKELPARAM(5, 60);

void Destroy(GWnd* pControl, bool fObjectToo)
{
    DestroyWindow(pControl->GetHwnd());
    if (fObjectToo) {
        pControl->Delete(pControl);
    }
}

// --- The parent's background

template <class CONTROL> class ParentBackgroundTest : public testing::Test
{
protected:
    // Lets the parent destroy a control while it draws behind it, once with the object and once without.
    template <class ACT> void ExpectSurvival(ACT act)
    {
        Host host;
        for (const bool fObjectToo : {false, true}) {
            auto* pControl = new CONTROL;
            const HWND hwnd = MakeAnyControl(*pControl, host);
            const Interception background(host, WM_ERASEBKGND, [&] { Destroy(pControl, fObjectToo); });
            act(hwnd);
            EXPECT_TRUE(background.Happened());
            EXPECT_FALSE(IsWindow(hwnd));
            if (!fObjectToo) {
                pControl->Delete(pControl);
            }
        }
    }
};

// The others paint all of their background themselves.
using Transparent =
    AllControlsBut<GNavigationButton, GSeparator, GScrollbar, GTree, GNavigationBar, GRightClickMenu>;
TYPED_TEST_SUITE(ParentBackgroundTest, Transparent);

TYPED_TEST(ParentBackgroundTest, ParentMayDestroyTheControlWhileItPaintsOrPrints)
{
    this->ExpectSurvival([](HWND hwnd) {
        InvalidateRect(hwnd, nullptr, FALSE);
        UpdateWindow(hwnd);
    });
    const HDC hdc = CreateCompatibleDC(nullptr);
    this->ExpectSurvival(
        [&](HWND hwnd) { SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT); });
    DeleteDC(hdc);
}

// A copy has no window of its own; an object parts from its window when it is assigned another's.
TYPED_TEST(ParentBackgroundTest, ParentMayDeleteACopyOrAPartedObjectThatDraws)
{
    if constexpr (requires(TypeParam & control) { control.Draw(HDC()); }) {
        Host host;
        const HDC hdc = CreateCompatibleDC(nullptr);
        for (const bool fParted : {false, true}) {
            auto* pControl = new TypeParam;
            const HWND hwnd = MakeAnyControl(*pControl, host);
            auto* pOther = fParted ? new TypeParam : new TypeParam(*pControl);
            HWND hwndOther = nullptr;
            if (fParted) {
                hwndOther = MakeAnyControl(*pOther, host);
                *pOther = *pControl;
            }
            const Interception background(host, WM_ERASEBKGND, [&] { pOther->Delete(pOther); });
            pOther->Draw(hdc);
            EXPECT_TRUE(background.Happened());
            EXPECT_TRUE(IsWindow(hwnd));
            DestroyWindow(hwnd);
            DestroyWindow(hwndOther);
            pControl->Delete(pControl);
        }
        DeleteDC(hdc);
    }
}

TEST(RibbonPageBackgroundTest, ParentMayDeleteACopyOfAPageThatDraws)
{
    Host host;
    GRibbon ribbon;
    MakeAnyControl(ribbon, host);
    auto* pCopy = new GRibbonPage(*ribbon.GetPage(1));
    const Interception background(host, WM_ERASEBKGND, [&] { pCopy->Delete(pCopy); });
    const HDC hdc = CreateCompatibleDC(nullptr);
    pCopy->Draw(hdc);
    DeleteDC(hdc);
    EXPECT_TRUE(background.Happened());
    DestroyWindow(ribbon);
}

template <class CONTROL> class CornerTest : public testing::Test
{};

using WithBars = testing::Types<GEdit, GList, GNavigationBar>;
TYPED_TEST_SUITE(CornerTest, WithBars);

TYPED_TEST(CornerTest, ParentMayDestroyTheControlWhileItsFrameIsPainted)
{
    Host host;
    for (const bool fObjectToo : {false, true}) {
        auto* pControl = new TypeParam;
        const HWND hwnd = MakeControl(*pControl, host, 33, WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL);
        const SCROLLINFO si{sizeof(si), SIF_RANGE | SIF_PAGE, 0, 100, 10, 0, 0};
        pControl->SetScrollInfo(SB_HORZ, &si, FALSE);
        pControl->SetScrollInfo(SB_VERT, &si, FALSE);
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
        const Interception background(host, WM_ERASEBKGND, [&] { Destroy(pControl, fObjectToo); });
        UpdateWindow(hwnd);
        EXPECT_TRUE(background.Happened());
        EXPECT_FALSE(IsWindow(hwnd));
        if (!fObjectToo) {
            pControl->Delete(pControl);
        }
    }
}

template <class TREE> class ExpandingCopyTest : public testing::Test
{};

using Trees = testing::Types<GTree, GNavigationBar>;
TYPED_TEST_SUITE(ExpandingCopyTest, Trees);

TYPED_TEST(ExpandingCopyTest, ParentMayDeleteACopyThatExpands)
{
    Host host;
    TypeParam tree;
    MakeControl(tree, host);
    void* hItem = tree.InsertItem(tree.GetRootItem(), nullptr, L"Item", 0, 0, nullptr);
    tree.InsertItem(hItem, nullptr, L"Child", 0, 0, nullptr);
    auto* pCopy = new TypeParam(tree);
    host.onNotify = [&](const NMHDR&) {
        host.onNotify = nullptr;
        pCopy->Delete(pCopy);
    };
    pCopy->Expand(hItem);
    EXPECT_FALSE(host.onNotify);
    DestroyWindow(tree);
}

TEST(CornerBackgroundTest, ParentMayDestroyTheFieldWhileItsFrameIsPrinted)
{
    Host host;
    auto* pEdit = new GEdit;
    const HWND hwnd = pEdit->Create(10, 10, 100, 60, host, 33, L"Text",
                                    WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL, WS_EX_CLIENTEDGE);
    const SCROLLINFO si{sizeof(si), SIF_RANGE | SIF_PAGE, 0, 100, 10, 0, 0};
    pEdit->SetScrollInfo(SB_HORZ, &si, FALSE);
    pEdit->SetScrollInfo(SB_VERT, &si, FALSE);
    const Interception background(host, WM_ERASEBKGND, [&] { Destroy(pEdit, true); });
    const HDC hdc = CreateCompatibleDC(nullptr);
    SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_NONCLIENT | PRF_CLIENT);
    EXPECT_TRUE(background.Happened());
    EXPECT_FALSE(IsWindow(hwnd));
    DeleteDC(hdc);
}

// --- The capture and the style

template <class CONTROL> class MouseTest : public testing::Test
{
protected:
    Host host;
    CONTROL* pControl = new CONTROL;
    HWND hwnd = MakeAnyControl(*pControl, host);
};

using Pressable = AllControlsBut<GLabel, GProgressBar, GRightClickMenu>;
TYPED_TEST_SUITE(MouseTest, Pressable);

TYPED_TEST(MouseTest, SubclassMayDestroyTheControlAsItGivesUpTheCapture)
{
    SendMessageW(this->hwnd, WM_LBUTTONDOWN, 0, INSIDE<TypeParam>);
    this->host.TakeReports();
    const Interception release(this->hwnd, WM_CAPTURECHANGED, [&] { Destroy(this->pControl, true); });
    SendMessageW(this->hwnd, WM_LBUTTONUP, 0, INSIDE<TypeParam>);
    EXPECT_TRUE(release.Happened());
    for (const std::string& report : this->host.TakeReports()) {
        EXPECT_EQ(report, "killfocus 33") << "a control that is gone clicks nothing and ends no drag";
    }
}

TYPED_TEST(MouseTest, LoserOfTheCaptureMayDestroyTheControlThatTakesIt)
{
    SetCapture(this->host);
    const Interception loss(this->host, WM_CAPTURECHANGED, [&] { Destroy(this->pControl, true); });
    SendMessageW(this->hwnd, WM_LBUTTONDOWN, 0, INSIDE<TypeParam>);
    EXPECT_TRUE(loss.Happened());
    EXPECT_FALSE(IsWindow(this->hwnd));
    ReleaseCapture();
}

template <class CONTROL> class DefaultButtonTest : public MouseTest<CONTROL>
{};

using DefaultButtons = testing::Types<GButton, GCommandButton>;
TYPED_TEST_SUITE(DefaultButtonTest, DefaultButtons);

TYPED_TEST(DefaultButtonTest, SubclassMayDestroyTheControlAsItBecomesTheDefault)
{
    const Interception change(this->hwnd, WM_STYLECHANGED, [&] { Destroy(this->pControl, true); });
    SendMessageW(this->hwnd, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_TRUE(change.Happened());
    EXPECT_FALSE(IsWindow(this->hwnd));
}

} // namespace

// --- Notifications of Modern

namespace {

// A control as a notification finds it, and what brings that about.
struct Doomed
{
    const char* pszReport;
    std::function<GWnd*(HWND)> make;
    std::function<void(HWND, GWnd*)> act;
};

GList* ListOfTwo(HWND hwndHost)
{
    auto* pList = new GList;
    MakeControl(*pList, hwndHost, 12);
    pList->InsertColumn(0, 0, DT_SINGLELINE, 80, 20, L"Name", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                        nullptr);
    pList->SetListStyle(GLS_DETAILS | GLS_HEADER);
    pList->InsertItem(0, 0, nullptr, 0, L"One", 0);
    pList->InsertItem(1, 0, nullptr, 0, L"Two", 0);
    return pList;
}

GList* VirtualListOfTwo(HWND hwndHost)
{
    GList* pList = ListOfTwo(hwndHost);
    pList->SetVirtualItems(2);
    pList->SetSelected(0, 1);
    return pList;
}

GTree* TreeOfTwo(HWND hwndHost)
{
    auto* pTree = new GTree;
    MakeControl(*pTree, hwndHost, 12);
    void* hFirst = pTree->InsertItem(nullptr, nullptr, L"One", 0, 0, nullptr);
    pTree->InsertItem(nullptr, nullptr, L"Two", 0, 0, nullptr);
    pTree->SetSelectedItem(hFirst);
    return pTree;
}

// Of which nothing is known yet but how many children it has.
GTree* CountedTree(HWND hwndHost)
{
    auto* pTree = new GTree;
    MakeControl(*pTree, hwndHost, 12);
    pTree->SetChildCount(nullptr, 1'000'000);
    return pTree;
}

GTree* CountedTreeUnderPointer(HWND hwndHost)
{
    GTree* pTree = CountedTree(hwndHost);
    SendMessageW(*pTree, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    return pTree;
}

GRibbon* RibbonOfTwo(HWND hwndHost)
{
    auto* pRibbon = new GRibbon;
    pRibbon->Create(0, 0, 300, 118, hwndHost, nullptr);
    for (DWORD nId = 1; nId <= 2; nId++) {
        pRibbon->AddPage(nullptr, nId, L"Page");
    }
    return pRibbon;
}

// A field of more than it shows, which wraps nothing.
GEdit* FieldOfLines(HWND hwndHost)
{
    constexpr DWORD STYLE = ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_VSCROLL | WS_HSCROLL;
    auto* pEdit = new GEdit;
    pEdit->Create(0, 0, 60, 60, hwndHost, 12, L"a line that is wider than the field\n1\n2\n3\n4\n5\n6",
                  WS_CHILD | WS_VISIBLE | STYLE, 0);
    return pEdit;
}

GComboBox* ComboOfTwo(HWND hwndHost)
{
    auto* pCombo = new GComboBox;
    pCombo->Create(10, 10, 120, 24, hwndHost, 12, WS_CHILD | WS_VISIBLE | GCBS_DROPDOWN, 0);
    pCombo->SetAutoComplete(true);
    for (const LPCWSTR psz : {L"One", L"Two"}) {
        pCombo->InsertItem(UINT(-1), 0, psz, 0, nullptr);
    }
    return pCombo;
}

// Opens the list of a combo box and then does something with it.
auto WithOpenList(std::function<void(HWND)> act)
{
    return [act](HWND hwnd, GWnd*) {
        SetFocus(hwnd);
        SendMessageW(hwnd, CB_SHOWDROPDOWN, TRUE, 0);
        act(hwnd);
    };
}

auto WithOpenList(UINT uKey)
{
    return WithOpenList([uKey](HWND hwnd) {
        SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 1);
        SendMessageW(hwnd, WM_KEYDOWN, uKey, 1);
    });
}

void ClickFirstRow(HWND hwnd)
{
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    SendMessageW(hwnd, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    SendMessageW(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
    SendMessageW(info.hwndList, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
}

void RightClick(HWND hwnd, int x, int y, bool fDouble)
{
    const LPARAM lPoint = MAKELPARAM(x, y);
    SendMessageW(hwnd, fDouble ? WM_RBUTTONDBLCLK : WM_RBUTTONDOWN, MK_RBUTTON, lPoint);
    SendMessageW(hwnd, WM_RBUTTONUP, 0, lPoint);
}

void* FirstItem(GWnd* pTree)
{
    return static_cast<GTree*>(pTree)->GetItemNextChild(nullptr, nullptr);
}

// Ends a renaming by Enter in its field.
void Rename(HWND hwnd)
{
    const HWND hwndField = GetWindow(hwnd, GW_CHILD);
    SendMessageW(hwndField, WM_KEYDOWN, VK_RETURN, 0);
}

} // namespace

TEST(DestroyedMidwayTest, TheParentMayDeleteTheControlInEachNotificationOfModern)
{
    const auto list = [](GWnd* pControl) { return static_cast<GList*>(pControl); };
    const auto tree = [](GWnd* pControl) { return static_cast<GTree*>(pControl); };
    const auto ribbon = [](GWnd* pControl) { return static_cast<GRibbon*>(pControl); };
    const Doomed cases[] = {
        {"notify 12 code -5", ListOfTwo, [](HWND hwnd, GWnd*) { RightClick(hwnd, 20, 50, false); }},
        {"notify 12 code -6", ListOfTwo, [](HWND hwnd, GWnd*) { RightClick(hwnd, 20, 50, true); }},
        {"notify 12 code -4", ListOfTwo,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_KEYDOWN, VK_RETURN, 0); }},
        {"notify 12 code -101", ListOfTwo,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 0); }},
        {"notify 12 code -101", ListOfTwo, [=](HWND, GWnd* p) { list(p)->SetSelected(1, 1); }},
        {"notify 12 code -108", ListOfTwo,
         [](HWND hwnd, GWnd*) {
             SendMessageW(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 8));
             SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(20, 8));
         }},
        {"notify 12 code -108", VirtualListOfTwo,
         [](HWND hwnd, GWnd*) {
             SendMessageW(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 8));
             SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(20, 8));
         }},
        {"notify 12 code -101", VirtualListOfTwo, [=](HWND, GWnd* p) { list(p)->SetSelected(1, 1); }},
        {"notify 12 code -101", VirtualListOfTwo, [=](HWND, GWnd* p) { list(p)->ItemsRemoved(0, 1); }},
        {"notify 12 code -101", VirtualListOfTwo, [=](HWND, GWnd* p) { list(p)->SetVirtualItems(0); }},
        {"notify 12 code -101", VirtualListOfTwo, [=](HWND, GWnd* p) { list(p)->LeaveVirtual(); }},
        {"notify 12 code -175", VirtualListOfTwo, [=](HWND, GWnd* p) { list(p)->EditItem(0); }},
        {"notify 12 code -103", ListOfTwo, [=](HWND, GWnd* p) { list(p)->SetVirtualItems(5); }},
        {"notify 12 code -103", ListOfTwo, [=](HWND, GWnd* p) { list(p)->RemoveItem(0); }},
        {"notify 12 code -103", ListOfTwo, [=](HWND, GWnd* p) { list(p)->RemoveAllItems(); }},
        {"notify 12 code -175", ListOfTwo, [=](HWND, GWnd* p) { list(p)->EditItem(0); }},
        {"notify 12 code -176", ListOfTwo,
         [=](HWND hwnd, GWnd* p) {
             list(p)->EditItem(0);
             Rename(hwnd);
         }},
        {"notify 12 code -5", TreeOfTwo, [](HWND hwnd, GWnd*) { RightClick(hwnd, 30, 5, false); }},
        {"notify 12 code -6", TreeOfTwo, [](HWND hwnd, GWnd*) { RightClick(hwnd, 30, 5, true); }},
        {"notify 12 code -4", TreeOfTwo,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_KEYDOWN, VK_RETURN, 0); }},
        {"notify 12 code -451", TreeOfTwo,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 0); }},
        {"notify 12 code -451", TreeOfTwo, [=](HWND, GWnd* p) { tree(p)->SetSelectedItem(nullptr); }},
        {"notify 12 code -458", TreeOfTwo, [=](HWND, GWnd* p) { tree(p)->RemoveItem(FirstItem(p)); }},
        {"notify 12 code -459", TreeOfTwo, [=](HWND, GWnd* p) { tree(p)->EditLabel(FirstItem(p)); }},
        {"notify 12 code -460", TreeOfTwo,
         [=](HWND hwnd, GWnd* p) {
             tree(p)->EditLabel(FirstItem(p));
             Rename(hwnd);
         }},
        {"notify 12 code -452", CountedTree, [](HWND hwnd, GWnd*) { UpdateWindow(hwnd); }},
        {"notify 12 code -452", CountedTree,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_PRINTCLIENT, 0, PRF_CLIENT); }},
        {"notify 12 code -452", CountedTree, [=](HWND, GWnd* p) { tree(p)->GetChildAt(nullptr, 7); }},
        {"notify 12 code -452", CountedTree, [=](HWND, GWnd* p) { tree(p)->GetItemName(FirstItem(p)); }},
        {"notify 12 code -452", CountedTree, [=](HWND, GWnd* p) { tree(p)->GetItemImage(FirstItem(p)); }},
        {"notify 12 code -452", CountedTree,
         [=](HWND, GWnd* p) { tree(p)->GetItemChildCount(FirstItem(p)); }},
        {"notify 12 code -452", CountedTree,
         [=](HWND, GWnd* p) { tree(p)->GetItemNextChild(FirstItem(p), nullptr); }},
        {"notify 12 code -452", CountedTree,
         [=](HWND, GWnd* p) { tree(p)->SetItemName(FirstItem(p), L"x"); }},
        {"notify 12 code -452", CountedTree, [=](HWND, GWnd* p) { tree(p)->SetItemImage(FirstItem(p), 1); }},
        {"notify 12 code -452", CountedTree, [=](HWND, GWnd* p) { tree(p)->SetChildCount(FirstItem(p), 1); }},
        {"notify 12 code -452", CountedTree, [=](HWND, GWnd* p) { tree(p)->Expand(FirstItem(p)); }},
        {"notify 12 code -452", CountedTree, [=](HWND, GWnd* p) { tree(p)->EditLabel(FirstItem(p)); }},
        {"notify 12 code -452", CountedTree,
         [=](HWND, GWnd* p) {
             RECT rc{};
             tree(p)->GetItemRect(FirstItem(p), true, &rc);
         }},
        {"notify 12 code -452", CountedTree,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5)); }},
        {"notify 12 code -452", CountedTree,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5)); }},
        {"notify 12 code -452", CountedTree,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_LBUTTONDBLCLK, 0, MAKELPARAM(5, 5)); }},
        {"notify 12 code -452", CountedTreeUnderPointer,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0); }},
        {"notify 12 code -452", CountedTree,
         [=](HWND hwnd, GWnd* p) {
             tree(p)->SetSelectedItem(FirstItem(p));
             SendMessageW(hwnd, WM_KEYDOWN, VK_RIGHT, 0);
         }},
        {"notify 12 code -458", CountedTree,
         [=](HWND, GWnd* p) {
             FirstItem(p);
             tree(p)->SetChildCount(nullptr, 5);
         }},
        {"notify 0 code -700", RibbonOfTwo, [=](HWND, GWnd* p) { ribbon(p)->SetActive(1); }},
        {"notify 0 code -700", RibbonOfTwo, [=](HWND, GWnd* p) { ribbon(p)->SetStatus(0, 0); }},
        {"notify 0 code -700", RibbonOfTwo,
         [=](HWND, GWnd* p) {
             GRibbonPage* pPage = ribbon(p)->GetPage(1);
             ribbon(p)->RemovePage(pPage);
             delete pPage;
         }},
        {"notify 0 code -700", RibbonOfTwo,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_KEYDOWN, VK_RIGHT, 0); }},
        {"setfocus 0", RibbonOfTwo, [](HWND hwnd, GWnd*) { SetFocus(hwnd); }},
        {"killfocus 0", RibbonOfTwo,
         [](HWND hwnd, GWnd*) {
             SetFocus(hwnd);
             SetFocus(nullptr);
         }},
        {"click 12 code 256", FieldOfLines, [](HWND hwnd, GWnd*) { SetFocus(hwnd); }},
        {"setfocus 12", FieldOfLines, [](HWND hwnd, GWnd*) { SetFocus(hwnd); }},
        {"click 12 code 512", FieldOfLines,
         [](HWND hwnd, GWnd*) {
             SetFocus(hwnd);
             SetFocus(nullptr);
         }},
        {"click 12 code 1024", FieldOfLines, [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_CHAR, 'o', 1); }},
        {"click 12 code 768", FieldOfLines, [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_CHAR, 'o', 1); }},
        {"click 12 code 768", FieldOfLines,
         [](HWND, GWnd* p) { static_cast<GEdit*>(p)->ReplaceSel(L"x", true); }},
        {"click 12 code 1024", FieldOfLines,
         [](HWND hwnd, GWnd* p) {
             static_cast<GEdit*>(p)->ReplaceSel(L"", false); // nothing, and so untold
             SendMessageW(hwnd, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"x"));
         }},
        {"click 12 code 1281", FieldOfLines,
         [](HWND hwnd, GWnd*) {
             SendMessageW(hwnd, EM_LIMITTEXT, 1, 0);
             SendMessageW(hwnd, WM_CHAR, 'o', 1);
         }},
        {"click 12 code 1538", FieldOfLines,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0); }},
        {"click 12 code 1538", FieldOfLines,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_KEYDOWN, VK_NEXT, 1); }},
        {"click 12 code 1537", FieldOfLines,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_HSCROLL, SB_PAGEDOWN, 0); }},
        {"click 12 code 2304", FieldOfLines,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_CONTEXTMENU, 0, MAKELPARAM(5, 5)); }},
        {"click 12 code 3", ComboOfTwo, [](HWND hwnd, GWnd*) { SetFocus(hwnd); }},
        {"click 12 code 4", ComboOfTwo, WithOpenList([](HWND) { SetFocus(nullptr); })},
        {"click 12 code 8", ComboOfTwo, WithOpenList([](HWND) { SetFocus(nullptr); })},
        {"click 12 code 7", ComboOfTwo, WithOpenList(VK_RETURN)},
        {"click 12 code 1", ComboOfTwo, WithOpenList(VK_RETURN)},
        {"click 12 code 9", ComboOfTwo, WithOpenList(VK_RETURN)},
        {"click 12 code 8", ComboOfTwo, WithOpenList(VK_RETURN)},
        {"click 12 code 10", ComboOfTwo, WithOpenList(VK_ESCAPE)},
        {"click 12 code 1", ComboOfTwo, WithOpenList(ClickFirstRow)},
        {"click 12 code 8", ComboOfTwo, WithOpenList(ClickFirstRow)},
        {"click 12 code 9", ComboOfTwo, [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 1); }},
        {"click 12 code 1", ComboOfTwo,
         [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0); }},
        {"click 12 code 6", ComboOfTwo, [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_CHAR, 'o', 1); }},
        {"click 12 code 5", ComboOfTwo, [](HWND hwnd, GWnd*) { SendMessageW(hwnd, WM_CHAR, 'o', 1); }},
        {"click 12 code 6", ComboOfTwo,
         [](HWND hwnd, GWnd* p) {
             static_cast<GComboBox*>(p)->SetAutoComplete(false);
             SendMessageW(hwnd, WM_CHAR, 'o', 1);
         }},
    };
    const Modern modern;
    for (const Doomed& doomed : cases) {
        SCOPED_TRACE(std::to_string(&doomed - cases));
        Host host;
        GWnd* pControl = doomed.make(host);
        ExpectSurvival(host, doomed.pszReport, pControl, [&](HWND hwnd) { doomed.act(hwnd, pControl); });
    }
}
