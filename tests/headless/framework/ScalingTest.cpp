// Dots an inch and the text size: what is rounded how, what follows and what stays, and that with None
// nothing is otherwise than ever.

#include "ScalingFixture.h"

#include "../../support/AllControls.h"
#include "../../support/AllowMisuse.h"
#include "../../support/WithBehavior.h"

#include <gesso/edit/ComboListPlace.h>
#include <gesso/framework/ThemePart.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

using namespace test;
using gesso::Measure;
using gesso::MeasureKind;
using gesso::Pixels;
using gesso::Scale;
using gesso::Scaling;

constexpr auto TEXT_KEY = "Software\\Microsoft\\Accessibility";
constexpr auto TEXT_VALUE = "TextScaleFactor";
constexpr UINT MANY = 100;

class ProbeTree : public GTree
{
public:
    using GTree::m_aVisible;
    using GTree::m_hFont;
    using GTree::m_siV;
    UINT FirstRow() const { return static_cast<UINT>(m_siV.nPos) / GetItemHeight(); }
};

class ProbeList : public GList
{
public:
    using GList::fontLabelText;
    using GList::groupHeight;
    using GList::headerHeight;
    using GList::m_siV;
    using GList::OnSetFont;
};

void Fill(ProbeList& list, UINT nItems)
{
    list.InsertColumn(END, 0, DT_SINGLELINE | DT_VCENTER, 80, 0, L"Name", 0, LCT_TEXT, nullptr, nullptr,
                      nullptr, nullptr);
    for (UINT i = 0; i < nItems; ++i) {
        list.InsertItem(END, 0, nullptr, 0, L"Item", 0);
    }
}

void Fill(GTree& tree, UINT nItems)
{
    for (UINT i = 0; i < nItems; ++i) {
        tree.InsertItem(nullptr, nullptr, L"Item", 0, 0, nullptr);
    }
}

// --- Measures

TEST_F(ScalingTest, LengthsAreRoundedToTheNearestHalvesAwayFromZeroAndLinesNeverThickenTooSoon)
{
    desk::SetDpi(120);
    gesso::SetScaling(Scaling::System);
    EXPECT_EQ(gesso::DpiOf(nullptr), 120U);
    EXPECT_EQ(Scale(nullptr, 2), 3);
    EXPECT_EQ(Scale(nullptr, -2), -3);
    EXPECT_EQ(Scale(nullptr, 1), 1);
    EXPECT_EQ(Scale(nullptr, INT_MAX), INT_MAX);
    EXPECT_EQ(Scale(nullptr, INT_MIN), INT_MIN);
    EXPECT_EQ(Pixels(nullptr, Measure{2}), 3);
    const std::pair<int, int> lines[] = {{96, 1}, {120, 1}, {144, 1}, {192, 2}, {288, 3}};
    for (const auto& [nDpi, nLine] : lines) {
        gesso::SetScaling(Scaling::None);
        desk::SetDpi(nDpi);
        gesso::SetScaling(Scaling::System);
        EXPECT_EQ(Pixels(nullptr, Measure{1, MeasureKind::Line}), nLine) << nDpi;
        EXPECT_EQ(Pixels(nullptr, Measure{20}), 20 * nDpi / 96) << nDpi;
        EXPECT_EQ(gesso::FontHeight(nullptr, 9), -12 * nDpi / 96) << nDpi;
        EXPECT_EQ(gesso::SystemMetric(nullptr, SM_CXVSCROLL), MulDiv(17, nDpi, 96));
        EXPECT_EQ(gesso::SystemMetric(nullptr, SM_CXSCREEN), 1280);
    }
}

TEST_F(ScalingTest, NoneIsTheIdentityWhateverTheScreenAndTheUserHave)
{
    desk::SetRegistryNumber(TEXT_KEY, TEXT_VALUE, 200);
    ProbeTree tree;
    const HWND hwnd = tree.Create(0, 0, 100, 100, m_host, 1, 0, WS_CHILD | WS_VISIBLE);
    Fill(tree, 3);
    const Lines before = NextPaint(hwnd, "");
    desk::ChangeDpi(m_host, 192);
    SendMessageW(hwnd, WM_SETTINGCHANGE, 0, 0);
    EXPECT_EQ(NextPaint(hwnd, ""), before);
    EXPECT_EQ(gesso::DpiOf(hwnd), 96U);
    EXPECT_EQ(Scale(hwnd, 7), 7);
    EXPECT_EQ(Pixels(hwnd, Measure{7, MeasureKind::Text}), 7);
    EXPECT_EQ(gesso::SystemMetric(hwnd, SM_CXVSCROLL), 17);
    EXPECT_EQ(tree.GetItemHeight(), 20U);
    tree.Destroy();
}

TEST_F(ScalingTest, AnUnknownScalingIsIgnored)
{
    const AllowMisuse allow;
    gesso::SetScaling(static_cast<Scaling>(7));
    EXPECT_EQ(gesso::GetScaling(), Scaling::None);
}

// --- Which dots a window has

TEST_F(ScalingTest, AWindowHasTheDotsThatItHeardOfLastOrThoseAroundIt)
{
    gesso::SetScaling(Scaling::PerMonitor);
    GButton button;
    const HWND hwnd = button.Create(0, 0, 50, 20, m_host, 1, L"B", 0, WS_CHILD);
    EXPECT_EQ(gesso::DpiOf(hwnd), 96U);
    SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(144, 144), 0);
    EXPECT_EQ(gesso::DpiOf(hwnd), 144U); // the message goes before the platform
    GButton inner;
    const HWND hwndInner = inner.Create(0, 0, 10, 10, hwnd, 1, L"", 0, WS_CHILD);
    EXPECT_EQ(gesso::DpiOf(hwndInner), 144U);
    desk::SetWindowDpi(m_host, 192);
    EXPECT_EQ(gesso::DpiOf(hwnd), 144U); // nobody told it
    SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, 0, 0);
    EXPECT_EQ(gesso::DpiOf(hwnd), 192U);
    EXPECT_EQ(gesso::DpiOf(m_host), 192U);
    EXPECT_EQ(gesso::DpiOf(nullptr), 96U);
    RECT rc{};
    button.GetPos(&rc);
    EXPECT_EQ(rc.right - rc.left, 50); // where a control stands is its host's
    inner.Destroy();
    button.Destroy();
}

TEST_F(ScalingTest, SystemKeepsTheFirstScreensDots)
{
    desk::SetDpi(144);
    gesso::SetScaling(Scaling::System);
    ProbeTree tree;
    const HWND hwnd = tree.Create(0, 0, 100, 100, m_host, 1, 0, WS_CHILD);
    desk::ChangeDpi(m_host, 192);
    EXPECT_EQ(gesso::DpiOf(hwnd), 144U);
    EXPECT_EQ(tree.GetItemHeight(), 30U);
    tree.Destroy();
}

// --- What follows

TEST_F(ScalingTest, ControlsThatAreThereFollowSetScalingAndGoBack)
{
    desk::SetDpi(192);
    ProbeTree tree, given;
    ProbeList list;
    GLabel label;
    tree.Create(0, 0, 100, 100, m_host, 1, 0, WS_CHILD | WS_VISIBLE);
    given.Create(0, 0, 100, 100, m_host, 2, 0, WS_CHILD | WS_VISIBLE);
    given.SetItemHeight(33);
    list.Create(0, 0, 100, 100, m_host, 3, GLS_DETAILS | GLS_HEADER, 0, WS_CHILD | WS_VISIBLE);
    Fill(list, 3);
    list.SetGroupHeight(40);
    label.Create(0, 0, 100, 20, m_host, 4, L"Label", 0, WS_CHILD | WS_VISIBLE);
    const HFONT hFirst = label.GetFont();
    gesso::SetScaling(Scaling::System);
    EXPECT_EQ(tree.GetItemHeight(), 40U);
    EXPECT_EQ(given.GetItemHeight(), 33U);
    EXPECT_EQ(list.headerHeight, 50U);
    EXPECT_EQ(list.groupHeight, 40U);
    EXPECT_EQ(EmOf(list.fontLabelText), 24);
    EXPECT_EQ(EmOf(label.GetFont()), 24);
    gesso::SetScaling(Scaling::None);
    EXPECT_EQ(tree.GetItemHeight(), 20U);
    EXPECT_EQ(list.headerHeight, 25U);
    EXPECT_EQ(EmOf(list.fontLabelText), 12);
    EXPECT_EQ(label.GetFont(), hFirst);
    label.Destroy();
    list.Destroy();
    given.Destroy();
    tree.Destroy();
}

TEST_F(ScalingTest, AFontOfTheHostsStays)
{
    gesso::SetScaling(Scaling::PerMonitor);
    const HFONT hFont = CreateFontW(-20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    GEdit edit;
    ProbeList list;
    const HWND hwnd = edit.Create(0, 0, 100, 30, m_host, 1, L"Text", WS_CHILD | WS_VISIBLE, 0);
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(hFont), 0);
    list.Create(0, 0, 100, 100, m_host, 2, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
    list.OnSetFont(hFont, 0);
    desk::ChangeDpi(m_host, 192);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(hwnd, WM_GETFONT, 0, 0)), hFont);
    EXPECT_EQ(list.fontLabelText, hFont);
    list.Destroy();
    edit.Destroy();
    DeleteObject(hFont);
}

TEST_F(ScalingTest, TheTextSizeMakesFontsLargerAndWhatHoldsTexts)
{
    desk::SetRegistryNumber(TEXT_KEY, TEXT_VALUE, 150);
    gesso::SetScaling(Scaling::System);
    ProbeTree tree;
    const HWND hwnd = tree.Create(0, 0, 100, 100, m_host, 1, 0, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(tree.GetItemHeight(), 30U);
    EXPECT_EQ(EmOf(tree.m_hFont), 18);
    EXPECT_EQ(Pixels(hwnd, gesso::Metrics::TREE_LEVEL_STEP), 15);
    for (const auto& [dwPercent, nHeight] : {std::pair{225, 45U}, {226, 20U}, {99, 20U}, {150, 30U}}) {
        desk::SetRegistryNumber(TEXT_KEY, TEXT_VALUE, static_cast<DWORD>(dwPercent));
        SendMessageW(hwnd, WM_SETTINGCHANGE, 0, 0);
        EXPECT_EQ(tree.GetItemHeight(), nHeight) << dwPercent;
    }
    tree.Destroy();
}

TEST_F(ScalingTest, TheFirstRowInViewAndTheSelectionStay)
{
    gesso::SetScaling(Scaling::PerMonitor);
    ProbeTree tree;
    tree.Create(0, 0, 100, 100, m_host, 1, 0, WS_CHILD | WS_VISIBLE);
    Fill(tree, MANY);
    tree.SetSelectedItem(tree.m_aVisible[35]);
    tree.EnsureVisible(tree.m_aVisible[MANY - 1]);
    tree.EnsureVisible(tree.m_aVisible[30]);
    ProbeList list;
    const HWND hwndList =
        list.Create(0, 0, 100, 100, m_host, 2, GLS_DETAILS | GLS_HEADER, 0, WS_CHILD | WS_VISIBLE);
    Fill(list, MANY);
    list.SetSelected(35, 1);
    for (int i = 0; i < 20; ++i) {
        SendMessageW(hwndList, WM_VSCROLL, SB_LINEDOWN, 0);
    }
    const UINT nTreeRow = tree.FirstRow();
    const UINT nListRow = static_cast<UINT>(list.m_siV.nPos) / list.GetItemHeight();
    ASSERT_GT(nTreeRow, 10U);
    ASSERT_GT(nListRow, 10U);
    for (const int nDpi : {144, 192, 288, 120, 96}) {
        desk::ChangeDpi(m_host, nDpi);
        EXPECT_EQ(tree.FirstRow(), nTreeRow) << nDpi;
        EXPECT_EQ(tree.GetSelectedItem(), tree.m_aVisible[35]);
        EXPECT_EQ(static_cast<UINT>(list.m_siV.nPos) / list.GetItemHeight(), nListRow) << nDpi;
        EXPECT_EQ(list.GetItemHeight(), static_cast<UINT>(MulDiv(22, nDpi, 96)));
        EXPECT_EQ(list.GetSelected(35), 1);
    }
    list.Destroy();
    tree.Destroy();
}

TEST_F(ScalingTest, AVirtualListKeepsItsFirstRow)
{
    const WithBehavior modern(gesso::Behavior::Modern);
    gesso::SetScaling(Scaling::PerMonitor);
    ProbeList list;
    list.Create(0, 0, 100, 100, m_host, 2, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
    Fill(list, 0);
    list.SetVirtualItems(5000);
    list.EnsureVisible(2000);
    const int nRow = list.m_siV.nPos / 22;
    desk::ChangeDpi(m_host, 192);
    EXPECT_EQ(list.m_siV.nPos / 44, nRow);
    list.Destroy();
}

// --- Images

TEST_F(ScalingTest, TheParentHearsOnceOfEachControlThatShowsImages)
{
    gesso::SetScaling(Scaling::PerMonitor);
    const HICON hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    const HIMAGELIST hImages = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
    GButton with, without;
    with.Create(0, 0, 50, 20, m_host, 1, L"B", 0, WS_CHILD | GS_ICON);
    with.SetIcon(hIcon);
    without.Create(0, 0, 50, 20, m_host, 2, L"B", 0, WS_CHILD);
    ProbeTree tree;
    tree.Create(0, 0, 50, 20, m_host, 3, 0, WS_CHILD);
    tree.SetImageList(hImages);
    std::vector<std::pair<UINT_PTR, UINT>> told;
    m_host.onNotify = [&](const NMHDR& header) {
        if (header.code == GN_DPICHANGED) {
            told.emplace_back(header.idFrom, gesso::DpiOf(header.hwndFrom));
        }
    };
    desk::ChangeDpi(m_host, 192);
    EXPECT_EQ(told, (std::vector<std::pair<UINT_PTR, UINT>>{{1, 192}, {3, 192}}));
    desk::ChangeDpi(m_host, 192);
    EXPECT_EQ(told.size(), 2U); // nothing has changed
    m_host.onNotify = nullptr;
    tree.Destroy();
    without.Destroy();
    with.Destroy();
    ImageList_Destroy(hImages);
}

TEST_F(ScalingTest, AParentMayDestroyTheControlInTheNotification)
{
    gesso::SetScaling(Scaling::PerMonitor);
    auto tree = std::make_unique<GTree>();
    const HWND hwnd = tree->Create(0, 0, 50, 20, m_host, 3, 0, WS_CHILD);
    const HIMAGELIST hImages = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
    tree->SetImageList(hImages);
    m_host.onNotify = [&](const NMHDR& header) {
        if (header.code == GN_DPICHANGED) {
            DestroyWindow(header.hwndFrom);
            tree.reset();
        }
    };
    desk::ChangeDpi(m_host, 192);
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(tree, nullptr);
    m_host.onNotify = nullptr;
    ImageList_Destroy(hImages);
}

// In a place of 16 pixels at 96 dots.
TEST_F(ScalingTest, AnImageIsDrawnAtWholeMultiplesInTheMiddleOfItsPlace)
{
    gesso::SetScaling(Scaling::PerMonitor);
    const HIMAGELIST hSmall = ImageList_Create(16, 16, ILC_COLOR32, 0, 1);
    const HIMAGELIST hLarge = ImageList_Create(32, 32, ILC_COLOR32, 0, 1);
    const HICON hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    for (const HIMAGELIST hImages : {hSmall, hLarge}) {
        int nPlaced = 0;
        reinterpret_cast<IImageList*>(hImages)->ReplaceIcon(-1, hIcon, &nPlaced);
    }
    GTree tree;
    const HWND hwnd = tree.Create(0, 0, 300, 200, m_host, 3, 0, WS_CHILD | WS_VISIBLE);
    tree.SetTreeStyle(GTS_IMAGES);
    tree.SetImageList(hSmall);
    tree.InsertItem(nullptr, nullptr, L"Item", 0, 0, nullptr);
    const std::pair<int, int> sizes[] = {{96, 16}, {120, 16}, {144, 16}, {192, 32}, {288, 48}};
    for (const auto& [nDpi, nSide] : sizes) {
        SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(nDpi, nDpi), 0);
        const RECT rc = ImageIn(hwnd);
        EXPECT_EQ(rc.right - rc.left, nSide) << nDpi;
        EXPECT_EQ(rc.bottom - rc.top, nSide) << nDpi;
        const int nPlace = Pixels(hwnd, Measure{16});
        const int nLeft = rc.left - (nPlace - nSide) / 2;
        EXPECT_EQ(nLeft, Pixels(hwnd, gesso::Metrics::TREE_CELL)) << nDpi;
    }
    SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(192, 192), 0);
    tree.SetImageList(hLarge);
    const RECT rc = ImageIn(hwnd);
    EXPECT_EQ(rc.right - rc.left, 32); // as it is
    tree.Destroy();
    ImageList_Destroy(hSmall);
    ImageList_Destroy(hLarge);
}

TEST_F(ScalingTest, AnIconGrowsByWholeMultiplesUntilItsHostGivesAnother)
{
    gesso::SetScaling(Scaling::PerMonitor);
    const HICON hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    GButton button;
    const HWND hwnd = button.Create(0, 0, 300, 200, m_host, 3, L"B", 0, WS_CHILD | WS_VISIBLE | GS_ICON);
    button.SetIcon(hIcon);
    const LONG nSide = ImageIn(hwnd).right - ImageIn(hwnd).left;
    const std::pair<int, int> sizes[] = {{144, 1}, {192, 2}, {288, 3}, {96, 1}, {192, 2}};
    for (const auto& [nDpi, nTimes] : sizes) {
        SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(nDpi, nDpi), 0);
        const RECT rc = ImageIn(hwnd);
        EXPECT_EQ(rc.right - rc.left, nTimes * nSide) << nDpi;
    }
    button.SetIcon(hIcon);
    EXPECT_EQ(ImageIn(hwnd).right - ImageIn(hwnd).left, nSide);
    gesso::SetScaling(Scaling::None);
    button.SetIcon(hIcon);
    gesso::SetScaling(Scaling::PerMonitor);
    SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(192, 192), 0);
    EXPECT_EQ(ImageIn(hwnd).right - ImageIn(hwnd).left, 2 * nSide) << "given for 96 dots, with None";
    button.Destroy();
}

// --- The style

TEST_F(ScalingTest, ABoxIsAsLargeAsItsWindowWantsThoughAnotherOpenedTheClassLast)
{
    desk::ShareThemeHandles(true);
    gesso::SetScaling(Scaling::PerMonitor);
    GCheckBox less, more;
    const HWND hwndSmall = less.Create(0, 0, 80, 60, m_host, 1, L"Box", 0, WS_CHILD | WS_VISIBLE);
    const HWND hwndLarge = more.Create(100, 0, 80, 60, m_host, 2, L"Box", 0, WS_CHILD | WS_VISIBLE);
    SendMessageW(hwndLarge, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(192, 192), 0);
    const auto boxOf = [](HWND hwnd) {
        static const std::regex BOX("BUTTON 3 \\d+ \\((-?\\d+),(-?\\d+),(-?\\d+),(-?\\d+)\\)");
        std::smatch match;
        for (const std::string& line : NextPaint(hwnd, "DrawThemeBackground")) {
            if (std::regex_search(line, match, BOX)) {
                const RECT rc = RectIn(match, 1);
                return rc.right - rc.left;
            }
        }
        return LONG{0};
    };
    EXPECT_EQ(boxOf(hwndLarge), 26);
    EXPECT_EQ(boxOf(hwndSmall), 15); // as the system's check mark
    more.Destroy();
    less.Destroy();
}

TEST_F(ScalingTest, SoIsTheGlyphOfACommandLink)
{
    desk::ShareThemeHandles(true);
    gesso::SetScaling(Scaling::PerMonitor);
    GCommandButton less, more;
    const HWND hwndSmall = less.Create(0, 0, 80, 60, m_host, 1, L"Go", nullptr, 0, WS_CHILD | WS_VISIBLE);
    const HWND hwndLarge = more.Create(100, 0, 80, 60, m_host, 2, L"Go", nullptr, 0, WS_CHILD | WS_VISIBLE);
    SendMessageW(hwndLarge, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(192, 192), 0);
    const auto glyphOf = [](HWND hwnd) {
        static const std::regex GLYPH("BUTTON 7 \\d+ \\((-?\\d+),(-?\\d+),(-?\\d+),(-?\\d+)\\)");
        std::smatch match;
        for (const std::string& line : NextPaint(hwnd, "DrawThemeBackground")) {
            if (std::regex_search(line, match, GLYPH)) {
                const RECT rc = RectIn(match, 1);
                return rc.right - rc.left;
            }
        }
        return LONG{0};
    };
    for (const int nSide : {16, 30}) { // as large as the style has it, whichever style that is
        desk::SetThemePartSize("BUTTON", BP_COMMANDLINKGLYPH, 0, {nSide, nSide});
        EXPECT_EQ(glyphOf(hwndLarge), 2 * nSide);
        EXPECT_EQ(glyphOf(hwndSmall), nSide) << "where the handle says twice as much";
        EXPECT_EQ(glyphOf(hwndLarge), 2 * nSide);
    }
    more.Destroy();
    less.Destroy();
}

TEST_F(ScalingTest, SoIsTheRoomAroundTheTextOfAField)
{
    gesso::SetScaling(Scaling::PerMonitor);
    const WithBehavior made(gesso::Behavior::Modern);
    GEdit edit;
    const HWND hwnd =
        edit.Create(0, 0, 200, 80, m_host, 1, L"Text", WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE, 0);
    const auto roomAt = [&](UINT uDpi) {
        SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(uDpi, uDpi), 0);
        RECT rcClient{}, rcText{};
        GetClientRect(hwnd, &rcClient);
        SendMessageW(hwnd, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&rcText));
        return std::pair{(200 - rcClient.right) / 2, rcText.left};
    };
    EXPECT_EQ(roomAt(96), (std::pair<LONG, LONG>{2, 1})) << "a border of one, and one within it";
    EXPECT_EQ(roomAt(192), (std::pair<LONG, LONG>{4, 2}));
    EXPECT_EQ(roomAt(96), (std::pair<LONG, LONG>{2, 1}));
    edit.Destroy();
}

// A command link deletes the fonts that its host gave it, and takes another default font where it had one.
TEST_F(ScalingTest, TheDefaultFontOutlivesACommandLinkThatWasGivenIt)
{
    gesso::SetScaling(Scaling::PerMonitor);
    GLabel label;
    label.Create(0, 0, 80, 20, m_host, 1, L"Text", 0, WS_CHILD | WS_VISIBLE);
    GCommandButton link;
    const HWND hwnd = link.Create(0, 0, 80, 60, m_host, 2, L"Go", nullptr, 0, WS_CHILD | WS_VISIBLE);
    link.SetFont(g_hDefaultFont);
    desk::ChangeDpi(m_host, 192);
    link.SetFont(gesso::DefaultFontOf(hwnd));
    link.Destroy();
    EXPECT_EQ(EmOf(label.GetFont()), 24);
    EXPECT_EQ(EmOf(g_hDefaultFont), 12);
    label.Destroy();
}

// Where the style has them for 96 dots alone, texts would stand in the corner of their boxes.
TEST_F(ScalingTest, SoAreTheMarginsOfAStyle)
{
    desk::SetThemeMargins("COMBOBOX", CP_READONLY, 0, TMT_CONTENTMARGINS, {3, 3, 4, 3});
    desk::SetThemeMargins("TOOLTIP", TTP_STANDARD, 0, TMT_CONTENTMARGINS, {4, 4, 1, 1});
    const auto textAt = [&](UINT uDpi) {
        GComboBox combo;
        const HWND hwnd =
            combo.Create(0, 0, 200, 60, m_host, 1, WS_CHILD | WS_VISIBLE | GCBS_DROPDOWNLIST, 0);
        combo.InsertItem(0, 0, L"Item", 0, nullptr);
        combo.SetSelected(0);
        SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(uDpi, uDpi), 0);
        const Lines lines = NextPaint(hwnd, "DrawThemeText");
        combo.Destroy();
        return lines.empty() ? ""
                             : lines[0].substr(lines[0].find('('), lines[0].find(',') - lines[0].find('('));
    };
    for (const bool fShared : {false, true}) {
        desk::ShareThemeHandles(fShared);
        gesso::SetScaling(Scaling::PerMonitor);
        EXPECT_EQ(textAt(96), "(4") << fShared;
        EXPECT_EQ(textAt(192), "(7") << fShared << ": the border stays as thin as the style has it";
        gesso::SetScaling(Scaling::None);
    }
}

TEST_F(ScalingTest, TheFrameOfAComboBoxesListIsNotThatOfManyMoreDots)
{
    desk::SetThemePartSize("COMBOBOX", CP_BORDER, 0, {3, 3});
    desk::ShareThemeHandles(true);
    const auto frameAt = [](UINT uDpi, HWND hwnd) {
        const HTHEME hTheme = OpenThemeDataForDpi(hwnd, L"COMBOBOX", uDpi);
        const SIZE frame = gesso::ComboListFrame(hTheme, hwnd);
        CloseThemeData(hTheme);
        return frame.cx;
    };
    EXPECT_EQ(frameAt(288, m_host), 9); // as it stands without scaling
    gesso::SetScaling(Scaling::PerMonitor);
    EXPECT_EQ(frameAt(96, m_host), 3);
    EXPECT_EQ(frameAt(288, m_host), 1); // the system's
    EXPECT_EQ(gesso::ComboListFrame(nullptr, m_host).cx, 1);
}

// --- All controls

template <class CONTROL> class EveryControlScaled : public ScalingTest
{};

// Some content, so that there are texts to cut.
template <class CONTROL> void FillAny(CONTROL& control)
{
    if constexpr (std::is_same_v<CONTROL, GTree>) {
        void* hItem = control.InsertItem(nullptr, nullptr, L"First", 0, TIS_EXPANDED, nullptr);
        control.InsertItem(hItem, nullptr, L"Below", 0, 0, nullptr);
        control.InsertItem(nullptr, nullptr, L"Second", 0, 0, nullptr);
    } else if constexpr (std::is_same_v<CONTROL, GNavigationBar>) {
        control.InsertItem(control.GetRootItem(), nullptr, L"Head", 0, NBIK_HEADER, nullptr);
        control.InsertItem(control.GetRootItem(), nullptr, L"Mail", 0, NBIK_ITEM, nullptr);
        control.InsertItem(control.GetRootItem(), nullptr, L"Sub", 0, NBIK_SUBITEM, nullptr);
    } else if constexpr (std::is_same_v<CONTROL, GList>) {
        control.InsertColumn(END, 0, DT_SINGLELINE, 100, 0, L"Name", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                             nullptr);
        control.InsertItem(END, 0, nullptr, 0, L"First", 0);
        control.InsertItem(END, 0, nullptr, 0, L"Second", 0);
        control.SetListStyle(GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    } else if constexpr (std::is_same_v<CONTROL, GRibbon>) {
        GRibbonPage::ItemInfo info{};
        info.uType = RIT_CHECKBOX;
        for (UINT i = 1; i <= 3; ++i) {
            info.nId = i;
            info.pszCheckText = L"Check";
            control.GetPage(1)->InsertItem(1, 0, &info);
        }
    }
}

template <class CONTROL>
constexpr bool IsTextless =
    ClassList<GNavigationButton, GProgressBar, GSeparator, GScrollbar, GRightClickMenu>::Has<CONTROL>();

using FilledControls = AllControlsBut<>;
TYPED_TEST_SUITE(EveryControlScaled, FilledControls);

// What is a column's width or a window's size is the host's, who makes it fit.
TYPED_TEST(EveryControlScaled, NoTextIsCutAndNothingOverlapsThatIsWholeAndApartAtFirst)
{
    gesso::SetScaling(Scaling::PerMonitor);
    TypeParam control;
    const HWND hwnd = MakeAnyControl(control, this->m_host);
    FillAny(control);
    const RECT rcAtBase = std::is_same_v<TypeParam, GRibbon> ? RECT{0, 0, 300, 118} : RECT{10, 10, 190, 130};
    this->MoveTo(USER_DEFAULT_SCREEN_DPI, hwnd, rcAtBase);
    const std::vector<ShownText> base = TextsOf(hwnd);
    if (!IsTextless<TypeParam>) {
        EXPECT_TRUE(std::ranges::any_of(base, &ShownText::IsWhole));
    }
    for (const int nDpi : ALL_DPI) {
        if constexpr (std::is_same_v<TypeParam, GRightClickMenu>) {
            SendMessageW(hwnd, WM_DPICHANGED, MAKEWPARAM(nDpi, nDpi), 0); // stands by itself
        }
        this->MoveTo(nDpi, hwnd, rcAtBase);
        if constexpr (std::is_same_v<TypeParam, GList>) {
            control.SetColumnCx(0, static_cast<UINT>(MulDiv(100, nDpi, USER_DEFAULT_SCREEN_DPI)));
            control.SetListStyle(control.GetListStyle());
        }
        const std::vector<ShownText> texts = TextsOf(hwnd);
        ASSERT_EQ(texts.size(), base.size()) << nDpi;
        for (size_t i = 0; i < texts.size(); ++i) {
            EXPECT_EQ(texts[i].text, base[i].text);
            EXPECT_NEAR(texts[i].em, base[i].em * nDpi / 96.0, 1) << texts[i].text << " at " << nDpi;
            EXPECT_TRUE(texts[i].IsWhole() || !base[i].IsWhole()) << texts[i].text << " at " << nDpi;
            for (size_t j = 0; j < i; ++j) {
                EXPECT_TRUE(!Overlap(texts[i].box, texts[j].box) || Overlap(base[i].box, base[j].box))
                    << texts[i].text << " and " << texts[j].text << " at " << nDpi;
            }
        }
    }
    EXPECT_TRUE(control.GetHwnd());
    DestroyWindow(hwnd);
}

// Whatever fails meanwhile, the control goes on, and shows all of its texts at the next change.
TYPED_TEST(EveryControlScaled, SurvivesWhateverFailsWhileTheDotsChange)
{
    gesso::SetScaling(Scaling::PerMonitor);
    TypeParam control;
    const HWND hwnd = MakeAnyControl(control, this->m_host);
    FillAny(control);
    const RECT rcAtBase{10, 10, 190, 130};
    this->MoveTo(USER_DEFAULT_SCREEN_DPI, hwnd, rcAtBase);
    const size_t nTexts = TextsOf(hwnd).size();
    int nDpi = USER_DEFAULT_SCREEN_DPI;
    for (const desk::FallibleOperation& operation : desk::FallibleOperations()) {
        if (operation.releases) {
            continue; // what is not given back stays held
        }
        nDpi = nDpi == 192 ? 144 : 192;
        desk::Fail(operation.name);
        SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(nDpi, nDpi), 0);
        desk::ClearFaults();
    }
    SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(96, 96), 0);
    SendMessageW(hwnd, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(TextsOf(hwnd).size(), nTexts);
    DestroyWindow(hwnd);
}

} // namespace
