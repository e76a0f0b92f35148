// Controls in windows that are laid out from right to left.

#include "../../support/AllControls.h"
#include "../../support/WithBehavior.h"
#include "../framework/ScrollProbe.h"
#include "DrawFixture.h"

#include <gesso/framework/Direction.h>

#include <regex>

namespace {

using namespace test;

const std::string MIRRORED = " mirrored";

bool TakeWord(std::string& line)
{
    if (!line.ends_with(MIRRORED)) {
        return false;
    }
    line.erase(line.size() - MIRRORED.size());
    return true;
}

// What a line draws as it is in a mirrored window, and where; both counted as the context did then.
struct Upright
{
    std::string what;
    int x, cx;
};

std::optional<Upright> UprightOf(const std::string& whole)
{
    static const std::regex GLYPHS(R"re((ScriptTextOut ".*" )\((-?\d+)(,-?\d+\) cx=(\d+).*))re");
    static const std::regex FIELD(R"re((DrawTextW ".*" )\((-?\d+),.*)re");
    static const std::regex BOX(
        R"re((DrawThemeBackground BUTTON 3 .*)\((-?\d+)(,-?\d+,)(-?\d+)(,-?\d+\).*))re");
    // Origin and clip region count as the place does.
    const std::string line = std::regex_replace(whole, std::regex(" (clip|origin)=\\S+"), "");
    std::smatch match;
    if (std::regex_match(line, match, BOX)) {
        const int nLeft = std::stoi(match[2]);
        return Upright{match[1].str() + match[3].str() + match[5].str(), nLeft, std::stoi(match[4]) - nLeft};
    }
    if (std::regex_match(line, match, GLYPHS)) {
        return Upright{match[1].str() + match[3].str(), std::stoi(match[2]), std::stoi(match[4])};
    }
    // The whole text of a field of Classic, in a font whose characters are 6 pixels wide.
    if (std::regex_match(line, match, FIELD)) {
        return Upright{match[1].str(), std::stoi(match[2]), static_cast<int>(std::size("Text") - 1) * 6};
    }
    return std::nullopt;
}

template <class CONTROL> class DirectionTest : public DrawFixture
{
protected:
    // All that a control draws at first, in a host of a layout.
    Lines Painted(DWORD dwLayout, gesso::Behavior behavior)
    {
        const WithBehavior made(behavior);
        SetWindowLongW(Parent(), GWL_EXSTYLE, static_cast<LONG>(dwLayout));
        CONTROL control;
        const HWND hwnd = MakeAnyControl(control, Parent());
        EXPECT_EQ(gesso::IsMirrored(hwnd), dwLayout != 0);
        desk::Pump();
        const Lines lines = desk::Drawing(hwnd);
        DestroyWindow(hwnd);
        desk::Pump();
        return lines;
    }
};

// A value menu is no child, and is shown by an operation of its own; a separator draws nothing.
using DrawnControls = AllControlsBut<GRightClickMenu, GSeparator>;
TYPED_TEST_SUITE(DirectionTest, DrawnControls);

TYPED_TEST(DirectionTest, EveryPartIsDrawnAtTheSamePlaceCountedFromTheRight)
{
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const Lines straight = this->Painted(0, behavior);
        Lines mirrored = this->Painted(WS_EX_LAYOUTRTL, behavior);
        ASSERT_EQ(straight.size(), mirrored.size());
        ASSERT_FALSE(straight.empty());
        int nUprightWidth = 0; // of the surface, which may be wider than the control
        for (size_t i = 0; i < straight.size(); ++i) {
            if (TakeWord(mirrored[i])) {
                EXPECT_EQ(mirrored[i], straight[i]);
                continue;
            }
            const auto text = UprightOf(mirrored[i]);
            const auto former = UprightOf(straight[i]);
            ASSERT_TRUE(text && former) << mirrored[i];
            EXPECT_EQ(text->what, former->what) << "nothing but texts and ticks is drawn as it is";
            const int nSum = text->x + text->cx + former->x;
            nUprightWidth = nUprightWidth ? nUprightWidth : nSum;
            EXPECT_EQ(nSum, nUprightWidth) << mirrored[i];
            EXPECT_GE(nSum, 90) << mirrored[i];
        }
    }
}

TYPED_TEST(DirectionTest, TheSurfaceThatIsKeptForgetsTheLayout)
{
    const Lines before = this->Painted(0, gesso::Behavior::Classic);
    this->Painted(WS_EX_LAYOUTRTL, gesso::Behavior::Classic);
    EXPECT_EQ(this->Painted(0, gesso::Behavior::Classic), before);
}

class DirectionPlacesTest : public DrawFixture
{
protected:
    void SetUp() override
    {
        for (const int nMetric :
             {SM_CXVSCROLL, SM_CYHSCROLL, SM_CYVSCROLL, SM_CXHSCROLL, SM_CYVTHUMB, SM_CXHTHUMB}) {
            desk::SetSystemMetric(nMetric, BAR);
        }
    }
    void Mirror() { SetWindowLongW(Parent(), GWL_EXSTYLE, WS_EX_LAYOUTRTL); }

    static RECT OnScreen(HWND hwnd)
    {
        RECT rc{};
        GetWindowRect(hwnd, &rc);
        return rc;
    }
    // Clicks so many pixels from the left edge that the user sees, and below the top.
    static void ClickAt(HWND hwnd, int x, int y)
    {
        desk::Click(OnScreen(hwnd).left + x, OnScreen(hwnd).top + y);
        desk::Pump();
    }

    static constexpr int BAR = 17;
};

// Where the first image of a paint is, as the screen counts: from the left edge of the control.
int ImageLeft(HWND hwnd)
{
    static const std::regex IMAGE(
        "(?:DrawIconEx|ImageList_Draw|DrawStateW).* \\((-?\\d+),-?\\d+,-?\\d+,-?\\d+\\).*");
    std::smatch match;
    for (const std::string& line : NextPaint(hwnd, "")) {
        if (std::regex_match(line, match, IMAGE)) {
            EXPECT_FALSE(line.ends_with(MIRRORED)) << line;
            return std::stoi(match[1]);
        }
    }
    return -1;
}

// In Classic a label's extents are not the image's own.
TEST_F(DirectionPlacesTest, ALabelsImageAtTheRightIsAtTheLeftThere)
{
    const HICON hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        for (const DWORD dwLayout : {0, WS_EX_LAYOUTRTL}) {
            SetWindowLongW(Parent(), GWL_EXSTYLE, static_cast<LONG>(dwLayout));
            GLabel label;
            const HWND hwnd =
                label.Create(0, 0, 200, 50, Parent(), 1, L"", 0, WS_CHILD | WS_VISIBLE | GS_ICON | GS_RIGHT);
            label.SetIcon(hIcon);
            EXPECT_EQ(ImageLeft(hwnd), dwLayout ? 0 : 200 - 32);
            DestroyWindow(hwnd);
        }
    }
}

TEST_F(DirectionPlacesTest, ATreesImageThatIsSmallerThanItsPlaceLiesAtTheSameCorner)
{
    const HIMAGELIST hImages = ImageList_Create(10, 10, ILC_COLOR32, 0, 1);
    int nPlaced = 0;
    reinterpret_cast<IImageList*>(hImages)->ReplaceIcon(-1, LoadIconW(nullptr, MAKEINTRESOURCEW(32512)),
                                                        &nPlaced);
    int nLeft[2]{};
    for (const DWORD dwLayout : {0, WS_EX_LAYOUTRTL}) {
        SetWindowLongW(Parent(), GWL_EXSTYLE, static_cast<LONG>(dwLayout));
        GTree tree;
        const HWND hwnd = tree.Create(0, 0, 200, 100, Parent(), 3, 0, WS_CHILD | WS_VISIBLE);
        tree.SetTreeStyle(GTS_IMAGES);
        tree.SetImageList(hImages);
        tree.InsertItem(nullptr, nullptr, L"Item", 0, 0, nullptr);
        nLeft[dwLayout ? 1 : 0] = ImageLeft(hwnd);
        DestroyWindow(hwnd);
    }
    EXPECT_EQ(nLeft[1], 200 - 10 - nLeft[0]);
    ImageList_Destroy(hImages);
}

TEST_F(DirectionPlacesTest, BarsAreAtTheLeftAndHitThere)
{
    Mirror();
    const Modern modern;
    for (const bool fMirroredParent : {true, false}) {
        ScrollProbe probe;
        if (!fMirroredParent) {
            SetWindowLongW(Parent(), GWL_EXSTYLE, 0);
        }
        probe.Create(Parent(), WS_VSCROLL | WS_HSCROLL);
        SetWindowLongW(probe, GWL_EXSTYLE, WS_EX_LAYOUTRTL);
        probe.ShowRange(SB_VERT);
        probe.ShowRange(SB_HORZ);
        SetWindowPos(probe, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
        desk::Pump();
        RECT rcClient{};
        GetClientRect(probe, &rcClient);
        MapWindowPoints(probe, nullptr, reinterpret_cast<POINT*>(&rcClient), 2);
        EXPECT_EQ(rcClient.left, OnScreen(probe).left + BAR);
        EXPECT_EQ(rcClient.right, OnScreen(probe).right);
        EXPECT_EQ(Numbers(probe.VRect()), "183,0,200,133") << "as the window counts";

        probe.TakeScrolls();
        ClickAt(probe, 8, 8);
        EXPECT_EQ(probe.TakeScrolls(), (Lines{"V 0", "V 8"})) << "the arrow up";
        ClickAt(probe, 192, 142);
        EXPECT_EQ(probe.TakeScrolls(), (Lines{"H 0", "H 8"})) << "the first arrow is the right one";
        ClickAt(probe, 25, 142);
        EXPECT_EQ(probe.TakeScrolls(), (Lines{"H 1", "H 8"}));
        EXPECT_EQ(SendMessageW(probe, WM_NCHITTEST, 0, MAKELPARAM(OnScreen(probe).left, OnScreen(probe).top)),
                  HTVSCROLL);
        EXPECT_EQ(
            SendMessageW(probe, WM_NCHITTEST, 0, MAKELPARAM(OnScreen(probe).left + BAR, OnScreen(probe).top)),
            HTCLIENT);
        DestroyWindow(probe);
    }
}

TEST_F(DirectionPlacesTest, AThumbFollowsThePointer)
{
    Mirror();
    const Modern modern;
    ScrollProbe probe;
    probe.Create(Parent(), WS_HSCROLL);
    probe.ShowRange(SB_HORZ);
    desk::Pump();
    const RECT rc = OnScreen(probe);
    probe.TakeScrolls();
    desk::MoveMouse(rc.right - BAR - 5, rc.bottom - 5);
    desk::PressButton();
    desk::Pump();
    desk::MoveMouse(rc.right - BAR - 45, rc.bottom - 5);
    desk::Pump();
    const Lines scrolls = probe.TakeScrolls();
    ASSERT_FALSE(scrolls.empty());
    EXPECT_TRUE(scrolls.back().starts_with("H 5:")) << scrolls.back();
    EXPECT_GT(std::stoi(scrolls.back().substr(4)), 10) << "to the left is on";
    desk::ReleaseButton();
    desk::Pump();
    DestroyWindow(probe);
}

TEST_F(DirectionPlacesTest, ATreeOpensWhereItsGlyphIsAndByTheOtherArrow)
{
    Mirror();
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        GTree tree;
        tree.Create(10, 10, 200, 100, Parent(), 7, 0, WS_CHILD | WS_VISIBLE);
        void* const hFolder = tree.InsertItem(nullptr, nullptr, L"Folder", 0, TIS_HASCHILDREN, nullptr);
        tree.InsertItem(hFolder, nullptr, L"File", 0, 0, nullptr);
        const auto isOpen = [&] { return (tree.GetItemState(hFolder) & TIS_EXPANDED) != 0; };
        desk::Pump();
        ASSERT_FALSE(isOpen());
        ClickAt(tree, 200 - 10, 10);
        EXPECT_TRUE(isOpen());
        SetFocus(tree);
        tree.SetSelectedItem(hFolder);
        SendMessageW(tree, WM_KEYDOWN, VK_RIGHT, 0);
        EXPECT_FALSE(isOpen()) << "the arrow that leads away from the leaves";
        SendMessageW(tree, WM_KEYDOWN, VK_LEFT, 0);
        EXPECT_TRUE(isOpen());
        DestroyWindow(tree);
    }
}

TEST_F(DirectionPlacesTest, ATextFieldEndsAtItsRightEdgeAndIsHitWhereItsCharactersAre)
{
    Mirror();
    constexpr int CHARACTER = 6; // pixels
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        GEdit edit;
        edit.Create(10, 10, 100, 24, Parent(), 7, L"abcd", WS_CHILD | WS_VISIBLE, 0);
        SetFocus(edit);
        desk::Pump();
        const auto caretAt = [&](int n) {
            edit.SetSel(n, n);
            return static_cast<int>(desk::Caret().position.x);
        };
        const int xEnd = caretAt(4);
        EXPECT_LT(xEnd, CHARACTER) << "from the right edge";
        EXPECT_EQ(caretAt(0), xEnd + 4 * CHARACTER);
        EXPECT_EQ(caretAt(3), xEnd + CHARACTER);
        ClickAt(edit, 100 - xEnd - 2 * CHARACTER, 10);
        desk::TypeText("X");
        desk::Pump();
        EXPECT_EQ(TextOf(edit), "abXcd");
        desk::TypeKey(VK_LEFT);
        desk::TypeKey(VK_LEFT);
        desk::TypeText("Y");
        desk::Pump();
        EXPECT_EQ(TextOf(edit), "aYbXcd") << "arrows go their way";
        DestroyWindow(edit);
        desk::Pump();
    }
}

TEST_F(DirectionPlacesTest, ACombosListOpensMirroredAndIsHitThere)
{
    Mirror();
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        GComboBox combo;
        combo.Create(10, 10, 100, 24, Parent(), 7, WS_CHILD | WS_VISIBLE | GCBS_DROPDOWNLIST, 0);
        for (const LPCWSTR item : {L"one", L"two", L"three"}) {
            combo.InsertItem(combo.GetItemCount(), 0, item, 0, nullptr);
        }
        combo.SetSelected(0);
        desk::Pump();
        bool fOpen = false;
        const auto choose = [&] {
            for (const HWND hwnd : desk::TopLevelWindows()) {
                if (hwnd != Parent() && IsWindowVisible(hwnd)) {
                    fOpen = true;
                    EXPECT_TRUE(gesso::IsMirrored(hwnd));
                    EXPECT_EQ(OnScreen(hwnd).right, OnScreen(combo).right);
                    desk::Click(OnScreen(hwnd).left + 5, OnScreen(hwnd).bottom - 5);
                }
            }
        };
        if (behavior == gesso::Behavior::Classic) { // whose list runs a loop of its own
            desk::WhenIdle(choose);
        }
        ClickAt(combo, 8, 12); // its arrow
        if (behavior == gesso::Behavior::Modern) {
            choose();
        }
        desk::Pump();
        EXPECT_TRUE(fOpen);
        EXPECT_EQ(combo.GetSelected(), 2u);
        DestroyWindow(combo);
        desk::Pump();
    }
}

} // namespace
