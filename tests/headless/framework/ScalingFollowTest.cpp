// What follows the dots an inch and the text size besides measures: fonts that go with the last window,
// fields and lists that are open meanwhile, images, dialogs; and who is told.

#include "ScalingFixture.h"

#include "../../support/WithBehavior.h"

#include <gesso/edit/GComboBoxList.h>
#include <gesso/framework/LibraryWindows.h>

#include <algorithm>
#include <memory>
#include <thread>

namespace {

using namespace test;
using gesso::Behavior;
using gesso::Scale;
using gesso::Scaling;

void SetTextSize(DWORD dwPercent)
{
    desk::SetRegistryNumber("Software\\Microsoft\\Accessibility", "TextScaleFactor", dwPercent);
}

RECT PlaceOf(HWND hwnd)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    return rc;
}

class ScalingFollowTest : public ScalingTest
{
protected:
    static void Add(GList& list, int type)
    {
        list.InsertColumn(END, 0, DT_SINGLELINE, 80, 0, L"Name", 0, type, nullptr, nullptr, nullptr, nullptr);
        list.InsertItem(END, 0, nullptr, 0, L"Item", 0);
    }
};

// --- The library's windows

TEST_F(ScalingFollowTest, WindowsThatWentWithTheirThreadAreForgotten)
{
    GLabel label;
    const HWND hwnd = label.Create(0, 0, 9, 9, m_host, 1, L"", 0, WS_CHILD);
    for (const bool fWalk : {true, false}) {
        GLabel lost; // which has no window any more
        std::thread([&lost] { lost.Create(0, 0, 9, 9, nullptr, 0, L"", 0, WS_POPUP); }).join();
        if (fWalk) {
            EXPECT_EQ(gesso::LibraryWindows().size(), 1U);
        }
    }
    EXPECT_EQ(gesso::NextLibraryWindow(hwnd), nullptr);
    EXPECT_EQ(gesso::NextLibraryWindow(nullptr), hwnd);
    label.Destroy();
    EXPECT_FALSE(gesso::HasLibraryWindows());
}

// --- Fonts

TEST_F(ScalingFollowTest, FontsGoWithTheLastWindowAndComeAgain)
{
    const int nFonts = desk::Live()[desk::Kind::Font];
    desk::SetDpi(192);
    gesso::SetScaling(Scaling::System);
    GLabel label, other;
    label.Create(0, 0, 9, 9, m_host, 1, L"A", 0, WS_CHILD | WS_VISIBLE);
    other.Create(0, 0, 9, 9, m_host, 2, L"B", 0, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(EmOf(label.GetFont()), 24);
    label.Destroy();
    EXPECT_EQ(EmOf(other.GetFont()), 24);
    other.Destroy();
    EXPECT_EQ(desk::Live()[desk::Kind::Font], nFonts);
    EXPECT_EQ(EmOf(label.GetFont()), 0);
    const HWND hwnd = label.Create(0, 0, 9, 9, m_host, 1, L"A", 0, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(EmOf(FontOf(hwnd)), 24) << "though the object has the former one still";
    label.Destroy();
}

TEST_F(ScalingFollowTest, AFontThatAPaintHoldsGoesWhenItLetsGo)
{
    const int nFonts = desk::Live()[desk::Kind::Font];
    desk::SetDpi(192);
    gesso::SetScaling(Scaling::System);
    GLabel label;
    label.Create(0, 0, 9, 9, m_host, 1, L"A", 0, WS_CHILD | WS_VISIBLE);
    const HDC hdc = CreateCompatibleDC(nullptr);
    const HGDIOBJ hFormer = SelectObject(hdc, label.GetFont());
    label.Destroy();
    SelectObject(hdc, hFormer);
    DeleteDC(hdc);
    EXPECT_EQ(desk::Live()[desk::Kind::Font], nFonts);
}

TEST_F(ScalingFollowTest, AHostsFontOfACommandLinkOutlivesAChange)
{
    gesso::SetScaling(Scaling::PerMonitor);
    GCommandButton link;
    GLabel label;
    const HWND hwnd = link.Create(0, 0, 80, 60, m_host, 1, L"Go", L"Note", 0, WS_CHILD | WS_VISIBLE);
    label.Create(0, 0, 9, 9, m_host, 2, L"A", 0, WS_CHILD | WS_VISIBLE);
    const HFONT hHosts = CreateFontW(-20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(hHosts), 0);
    desk::ChangeDpi(m_host, 192);
    EXPECT_EQ(FontOf(hwnd), hHosts);
    EXPECT_EQ(EmOf(hHosts), 20);
    EXPECT_EQ(EmOf(link.GetNoteFont()), 24);
    const HFONT hShared = label.GetFont();
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(hShared), 0);
    desk::ChangeDpi(m_host, 144);
    EXPECT_EQ(EmOf(hShared), 24);
    EXPECT_EQ(FontOf(hwnd), label.GetFont()) << "the default one follows";
    link.Destroy();
    EXPECT_EQ(EmOf(label.GetFont()), 18) << "of all windows with these dots";
    label.Destroy();
    DeleteObject(hHosts);
}

// --- Fields

TEST_F(ScalingFollowTest, AFieldOverALabelHasTheFontThatTheLabelHasNow)
{
    for (const Behavior behavior : {Behavior::Classic, Behavior::Modern}) {
        const WithBehavior with(behavior);
        gesso::SetScaling(Scaling::PerMonitor);
        desk::SetWindowDpi(m_host, 96);
        GTree tree;
        GList list;
        tree.Create(0, 0, 200, 100, m_host, 1, 0, WS_CHILD | WS_VISIBLE);
        list.Create(0, 0, 200, 100, m_host, 2, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
        void* hItem = tree.InsertItem(nullptr, nullptr, L"Item", 0, 0, nullptr);
        Add(list, LCT_TITLE);
        for (const int nDpi : {192, 144}) {
            ASSERT_TRUE(tree.EditLabel(hItem));
            desk::ChangeDpi(m_host, nDpi);
            const HWND hwndField = GetFocus();
            EXPECT_EQ(FontOf(hwndField), tree.GetFont());
            EXPECT_GT(EmOf(FontOf(hwndField)), 0);
            SendMessageW(hwndField, WM_KEYDOWN, VK_ESCAPE, 1);
            ASSERT_TRUE(list.EditItem(0));
            desk::ChangeDpi(m_host, 96);
            EXPECT_EQ(FontOf(GetFocus()), list.GetLabelTitleFont());
            EXPECT_EQ(EmOf(FontOf(GetFocus())), 13);
            SendMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
        }
        list.Destroy();
        tree.Destroy();
    }
}

// --- Combo boxes

class ScaledCombo : public ScalingFollowTest
{
protected:
    HWND Make(UINT nItems)
    {
        const HWND hwnd =
            m_combo.Create(0, 0, 100, 24, m_host, 5, WS_CHILD | WS_VISIBLE | GCBS_DROPDOWNLIST, 0);
        for (UINT i = 0; i < nItems; ++i) {
            m_combo.InsertItem(i, 0, i == 1 ? L"Second" : L"Item", 0, nullptr);
        }
        return hwnd;
    }
    static HWND List() { return TopLevelOf("GComboBoxList"); }
    // Opens the list; what is done is to close it again.
    template <class ACT> void WithList(const ACT& act)
    {
        const bool fModern = gesso::BehaviorOf(m_combo) == Behavior::Modern;
        if (!fModern) {
            desk::WhenIdle(act);
        }
        PointAt(m_combo, 5, 5);
        desk::PressButton();
        desk::ReleaseButton();
        desk::Pump();
        if (fModern) {
            act();
            desk::Pump();
        }
    }
    GComboBox m_combo;
};

TEST_F(ScaledCombo, AnOpenListFollowsWithItsRowsItsFontAndItsHeight)
{
    for (const Behavior behavior : {Behavior::Classic, Behavior::Modern}) {
        const WithBehavior with(behavior);
        gesso::SetScaling(Scaling::PerMonitor);
        desk::SetWindowDpi(m_host, 96);
        const HWND hwnd = Make(3);
        LONG nBefore = 0;
        bool fSeen = false;
        WithList([&] {
            nBefore = PlaceOf(List()).bottom - PlaceOf(List()).top;
            SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(192, 192), 0);
            fSeen = List() != nullptr;
            EXPECT_NEAR(PlaceOf(List()).bottom - PlaceOf(List()).top, 2 * nBefore, 4);
            EXPECT_EQ(PlaceOf(List()).top, PlaceOf(hwnd).bottom);
            const std::vector<ShownText> texts = TextsOf(List());
            EXPECT_EQ(texts.size(), 3U);
            EXPECT_TRUE(std::ranges::all_of(texts, [](const ShownText& text) { return text.em == 24; }));
            TapOn(List(), "Second");
        });
        EXPECT_TRUE(fSeen);
        EXPECT_EQ(m_combo.GetSelected(), 1U);
        m_combo.Destroy();
        m_combo.RemoveAllItems();
    }
}

TEST_F(ScaledCombo, TheListsHeightAndRowsAreThoseOfTheWindowAndComeBackWithNone)
{
    gesso::SetScaling(Scaling::PerMonitor);
    desk::SetWindowDpi(m_host, 192);
    Make(40);
    const std::pair<Scaling, int> steps[] = {{Scaling::PerMonitor, 2}, {Scaling::None, 1}};
    for (const auto& [scaling, nTimes] : steps) {
        gesso::SetScaling(scaling);
        EXPECT_EQ(m_combo.SetDropdownHeight(), static_cast<UINT>(150 * nTimes));
        WithList([nTimes = nTimes] {
            EXPECT_EQ(PlaceOf(List()).bottom - PlaceOf(List()).top, 150 * nTimes);
            const std::vector<ShownText> texts = TextsOf(List());
            ASSERT_GT(texts.size(), 1U);
            EXPECT_EQ(texts[1].box.top - texts[0].box.top, 22 * nTimes);
            desk::TypeKey(VK_ESCAPE);
        });
    }
    m_combo.SetDropdownHeight(99);
    gesso::SetScaling(Scaling::PerMonitor);
    EXPECT_EQ(m_combo.SetDropdownHeight(), 99U) << "the host's stays";
    m_combo.Destroy();
}

// --- Images, and who is told

TEST_F(ScalingFollowTest, AListDrawsImagesThatFitAsTheyAreAndOthersAsOftenAsTheyFit)
{
    gesso::SetScaling(Scaling::PerMonitor);
    const HIMAGELIST hSmall = ImageList_Create(16, 16, ILC_COLOR32, 0, 1);
    const HIMAGELIST hNew = ImageList_Create(32, 32, ILC_COLOR32, 0, 1);
    for (const HIMAGELIST hImages : {hSmall, hNew}) {
        int nPlaced = 0;
        reinterpret_cast<IImageList*>(hImages)->ReplaceIcon(-1, LoadIconW(nullptr, MAKEINTRESOURCEW(32512)),
                                                            &nPlaced);
    }
    GList list;
    const HWND hwnd = list.Create(0, 0, 200, 200, m_host, 2, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
    list.SetImageList(hSmall);
    list.InsertColumn(END, 0, DT_SINGLELINE, 80, 0, L"Name", 0, LCT_IMAGE, nullptr, nullptr, nullptr,
                      nullptr);
    list.InsertItem(END, 0, nullptr, 0, L"Item", 0);
    desk::ChangeDpi(m_host, 192);
    EXPECT_EQ(ImageIn(hwnd).right - ImageIn(hwnd).left, 32);
    list.SetImageList(hNew);
    EXPECT_EQ(ImageIn(hwnd).right - ImageIn(hwnd).left, 32);
    list.Destroy();
    ImageList_Destroy(hSmall);
    ImageList_Destroy(hNew);
}

TEST_F(ScalingFollowTest, TheParentHearsOfOtherDotsAndNotOfAnotherTextSize)
{
    gesso::SetScaling(Scaling::System);
    const HIMAGELIST hImages = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
    GTree tree;
    tree.Create(0, 0, 50, 20, m_host, 3, 0, WS_CHILD);
    tree.SetImageList(hImages);
    int nTold = 0;
    m_host.onNotify = [&](const NMHDR& header) { nTold += header.code == GN_DPICHANGED; };
    SetTextSize(150);
    SendMessageW(tree, WM_SETTINGCHANGE, 0, 0);
    EXPECT_EQ(tree.GetItemHeight(), 30U);
    gesso::SetScaling(Scaling::PerMonitor); // the same dots
    EXPECT_EQ(nTold, 0);
    desk::SetWindowDpi(m_host, 192);
    gesso::SetScaling(Scaling::None);
    gesso::SetScaling(Scaling::PerMonitor);
    EXPECT_EQ(nTold, 1);
    m_host.onNotify = nullptr;
    tree.Destroy();
    ImageList_Destroy(hImages);
}

TEST_F(ScalingFollowTest, TheTextSizeIsFollowedThoughAllTopLevelWindowsAreTheHosts)
{
    gesso::SetScaling(Scaling::System);
    GTree tree;
    tree.Create(0, 0, 50, 20, m_host, 3, 0, WS_CHILD);
    SetTextSize(200);
    for (const HWND hwnd : desk::TopLevelWindows()) {
        SendMessageW(hwnd, WM_SETTINGCHANGE, 0, 0);
    }
    EXPECT_EQ(tree.GetItemHeight(), 40U);
    gesso::SetScaling(Scaling::None);
    EXPECT_EQ(desk::TopLevelWindows().size(), 1U) << "nobody listens any more";
    tree.Destroy();
}

} // namespace
