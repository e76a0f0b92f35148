// Whatever a control could not make when it came to life, a change of the style brings, and its bars and
// frame follow the style too.

#include "../../support/AllControls.h"
#include "DrawFixture.h"

#include <gesso/framework/PictureCache.h>

namespace {

using namespace test;

constexpr DWORD STYLE = WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL;

template <class CONTROL> HWND Make(CONTROL& control, HWND hwndParent)
{
    if constexpr (requires { control.GetPage(1); }) {
        return control.Create(10, 10, 200, 118, hwndParent, nullptr);
    } else if constexpr (requires { control.InitScrollBar(1); }) {
        const HWND hwnd = MakeControl(control, hwndParent, 33, STYLE);
        control.InitScrollBar(1000);
        return hwnd;
    } else {
        return MakeControl(control, hwndParent, 33, STYLE);
    }
}

void Refill(GList& list)
{
    list.RemoveAllItems();
    list.RemoveAllColumns();
    list.RemoveAllGroups();
    list.InsertColumn(0, LCF_TILECAPTION, 0, 60, 20, L"Name", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                      nullptr);
    list.InsertGroup(0, L"Group", 0, 0);
    for (const LPCWSTR text : {L"One", L"Two", L"Three"}) {
        list.InsertItem(0, 0, nullptr, 0, text, 0);
    }
    list.SetListStyle(GLS_DETAILS | GLS_HEADER | GLS_GRIDLINES | GLS_CHECKBOXES);
}

void Refill(GRibbon& ribbon)
{
    if (GRibbonPage* pFormer = ribbon.GetPage(1)) {
        ribbon.RemovePage(pFormer);
        pFormer->Delete(pFormer);
    }
    ribbon.AddPage(nullptr, 1, L"Page");
    GRibbonPage& page = *ribbon.GetPage(1);
    page.InsertGroup(0, 1, L"Group", 0);
    GRibbonPage::ItemInfo info{};
    info.uType = RIT_CHECKBOX;
    info.pszCheckText = L"Check";
    page.InsertItem(1, 0, &info);
}

template <class TREE> void RefillTree(TREE& tree, UINT uState)
{
    tree.RemoveAllItems();
    for (const LPCWSTR text : {L"One", L"Two", L"Three"}) {
        tree.InsertItem(tree.GetRootItem(), nullptr, text, 0, uState, nullptr);
    }
}

template <class CONTROL> void Refill(CONTROL& control)
{
    if constexpr (std::is_same_v<CONTROL, GTree>) {
        RefillTree(control, TIS_HASCHILDREN);
    } else if constexpr (std::is_same_v<CONTROL, GNavigationBar>) {
        RefillTree(control, NBIK_HEADER);
    } else if constexpr (requires { control.SetProgress(1); }) {
        control.SetProgress(500);
    } else if constexpr (requires { control.SetText(L""); }) {
        control.SetText(L"Text");
    }
}

void ChangeTheme(HWND hwnd)
{
    SendMessageW(hwnd, WM_THEMECHANGED, 0, 0);
}

Lines Picture(HWND hwnd)
{
    desk::Pump();
    desk::ClearDrawing(hwnd);
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    desk::Pump();
    return desk::Drawing(hwnd);
}

template <class CONTROL> class WholeAgainTest : public DrawFixture
{};

TYPED_TEST_SUITE(WholeAgainTest, AllControlsBut<GRightClickMenu>);

TYPED_TEST(WholeAgainTest, ControlIsWholeAfterAChangeOfTheStyleWhateverFailedBefore)
{
    // The second life begins with what the first one left for the next paint.
    Lines whole;
    desk::Census live;
    for (int i = 0; i < 2; ++i) {
        TypeParam control;
        const HWND hwnd = Make(control, this->Parent());
        Refill(control);
        ChangeTheme(hwnd);
        Refill(control);
        whole = Picture(hwnd);
        gesso::DropPictures(nullptr);
        live = desk::Live();
        DestroyWindow(hwnd);
    }
    for (const char* pszOperation : {"OpenThemeData", "SetWindowTheme", "CreateFontW", "CreateFontIndirectW",
                                     "CreatePen", "CreateSolidBrush", "ImageList_Create", "GetThemeFont"})
    {
        for (int nSkip = 0; nSkip < 6; ++nSkip) {
            for (const int nTimes : {1, 100}) {
                TypeParam control;
                desk::Fail(pszOperation, nTimes, ERROR_NOT_ENOUGH_MEMORY, nSkip);
                const HWND hwnd = Make(control, this->Parent());
                Refill(control);
                Picture(hwnd);
                const bool fFailed = desk::PendingFaults().empty();
                desk::ClearFaults();
                ChangeTheme(hwnd);
                Refill(control);
                EXPECT_EQ(Picture(hwnd), whole) << pszOperation << " " << nSkip << " " << nTimes;
                gesso::DropPictures(nullptr); // which there are depends on what was drawn before
                EXPECT_EQ(desk::Live(), live) << pszOperation << " " << nSkip << " " << nTimes;
                DestroyWindow(hwnd);
                nSkip = fFailed ? nSkip : 6;
            }
        }
    }
}

// The message that comes within another one of its kind ends the control.
template <class CONTROL> class NestedStyleTest : public DrawFixture
{
protected:
    static LRESULT CALLBACK EndWithin(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        s_nDepth += uMsg == WM_THEMECHANGED;
        const LRESULT lAnswer = CallWindowProcW(CONTROL::WindowProc, hwnd, uMsg, wParam, lParam);
        if (uMsg == WM_THEMECHANGED && s_nDepth-- == 2) {
            DestroyWindow(hwnd);
            delete std::exchange(s_pControl, nullptr);
        }
        return lAnswer;
    }

    static inline int s_nDepth = 0;
    static inline CONTROL* s_pControl = nullptr;
};

using WithAStyleOfTheirOwn = testing::Types<GList, GTree, GNavigationBar>;
TYPED_TEST_SUITE(NestedStyleTest, WithAStyleOfTheirOwn);

TYPED_TEST(NestedStyleTest, AControlMayEndWhenItsStyleComesAtLast)
{
    this->s_pControl = new TypeParam;
    desk::Fail("SetWindowTheme");
    const HWND hwnd = MakeControl(*this->s_pControl, this->Parent(), 33, STYLE);
    SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(this->EndWithin));
    SendMessageW(hwnd, WM_THEMECHANGED, 0, 0);
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(this->s_pControl, nullptr);
}

template <class CONTROL> class FrameStyleTest : public DrawFixture
{};

using WithBorders = testing::Types<GList, GTree>;
TYPED_TEST_SUITE(FrameStyleTest, WithBorders);

TYPED_TEST(FrameStyleTest, FrameIsCalculatedAnewForTheNewStyle)
{
    const auto clientOf = [](HWND hwnd) {
        RECT rc{};
        GetClientRect(hwnd, &rc);
        return Numbers(rc);
    };
    TypeParam before, after;
    const HWND hwndBefore = MakeControl(before, this->Parent(), 33, STYLE | WS_BORDER);
    for (const char* pszClass : {"EDIT", "LISTVIEW", "TREEVIEW"}) {
        desk::SetThemeInt(pszClass, 0, 0, TMT_BORDERSIZE, 4);
    }
    const HWND hwndAfter = MakeControl(after, this->Parent(), 33, STYLE | WS_BORDER);
    ASSERT_NE(clientOf(hwndBefore), clientOf(hwndAfter));
    ChangeTheme(hwndBefore);
    EXPECT_EQ(clientOf(hwndBefore), clientOf(hwndAfter));
    SetWindowLongW(hwndBefore, GWL_STYLE, GetWindowLongW(hwndBefore, GWL_STYLE) & ~WS_BORDER);
    SetWindowLongW(hwndBefore, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
    ChangeTheme(hwndBefore);
    EXPECT_EQ(clientOf(hwndBefore), clientOf(hwndAfter)) << "the other style of a frame";
    DestroyWindow(hwndBefore);
    DestroyWindow(hwndAfter);
}

using CommandButtonFontTest = DrawFixture;

TEST_F(CommandButtonFontTest, FontThatNobodyTookGoesWhenTheHostSetsItsOwn)
{
    const HFONT hOwn = CreateFontW(-12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    GCommandButton button;
    Make(button, this->Parent());
    ASSERT_TRUE(button.GetFont());
    ASSERT_TRUE(button.GetNoteFont());
    ChangeTheme(button);
    const int nFonts = desk::Live()[desk::Kind::Font];
    button.SetFont(hOwn);
    button.SetNoteFont(hOwn);
    EXPECT_EQ(desk::Live()[desk::Kind::Font], nFonts - 2)
        << "the former two were taken, and went with the style";
    button.SetFont(nullptr);
    button.SetNoteFont(nullptr);
    DestroyWindow(button);
    DeleteObject(hOwn);
}

} // namespace
