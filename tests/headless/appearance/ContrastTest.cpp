// Whether everything can be told from what it stands on, in each scheme that the library draws by itself:
// worked out from what every control draws in every state.

#include "../../support/WithBehavior.h"
#include "StandsOut.h"

namespace {

using namespace test;
using gesso::ColorRole;

// What a user makes of a control, one after the other.
struct Step
{
    const char* name;
    void (*pfn)(HWND hwnd);
};

constexpr Step STEPS[] = {
    {"at first", [](HWND) {}},
    {"with the focus", [](HWND hwnd) { SetFocus(hwnd), ShowCues(hwnd); }},
    {"selected", [](HWND hwnd) { SendMessageW(hwnd, EM_SETSEL, 0, 2); }},
    {"under the pointer", [](HWND hwnd) { PointAt(hwnd, 12, 40); }},
    {"pressed", [](HWND) { PressThere(); }},
    {"pressed, the pointer elsewhere", [](HWND hwnd) { PointAt(hwnd, 30, 70); }},
    {"released", [](HWND) { ReleaseThere(); }},
    {"at its top", [](HWND hwnd) { PointAt(hwnd, 30, 8); }},
    {"pressed at its top", [](HWND) { PressThere(); }},
    {"released at its top", [](HWND) { ReleaseThere(); }},
    {"without the focus", [](HWND hwnd) { SetFocus(GetParent(hwnd)); }},
    {"disabled", [](HWND hwnd) { EnableWindow(hwnd, FALSE); }},
};

using WithoutText = ClassList<GNavigationButton, GProgressBar, GSeparator, GScrollbar>;

template <class CONTROL> class ContrastTest : public testing::Test
{
protected:
    // A control with all it can show, and the window that it stands in, in each scheme.
    template <class LOOK> static void InEachScheme(const LOOK& look)
    {
        for (const Scheme& scheme : SCHEMES) {
            SCOPED_TRACE(scheme.name);
            desk::Reset();
            // As styles have it; the simulated one has its texts at the very edge.
            desk::SetThemeMargins("COMBOBOX", CP_READONLY, 0, TMT_CONTENTMARGINS, {4, 4, 4, 4});
            const WithScheme looks(scheme);
            const Ground ground;
            CONTROL control;
            const HWND hwnd = MakeExhibit(control, ground);
            ASSERT_TRUE(hwnd);
            look(control, hwnd, scheme);
            control.Destroy();
        }
    }

private:
    FreshDesktop m_desktop;
};
TYPED_TEST_SUITE(ContrastTest, AllControls::Types);

TYPED_TEST(ContrastTest, EveryTextStandsOutInEveryState)
{
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        this->InEachScheme([](TypeParam&, HWND hwnd, const Scheme&) {
            size_t nTexts = 0;
            for (const Step& step : STEPS) {
                step.pfn(hwnd);
                desk::Pump();
                if (IsWindow(hwnd)) { // a click ends a value menu
                    nTexts += ExpectTextsToStandOut(hwnd, step.name);
                }
            }
            EXPECT_EQ(nTexts != 0, !WithoutText::Has<TypeParam>());
        });
    }
}

// The system's colours as a user without visual styles may have them.
constexpr std::pair<int, COLORREF> DARK_SYSTEM[] = {
    {COLOR_WINDOW, RGB(0x20, 0x20, 0x20)},    {COLOR_WINDOWTEXT, RGB(0xF0, 0xF0, 0xF0)},
    {COLOR_BTNFACE, RGB(0x30, 0x30, 0x30)},   {COLOR_BTNTEXT, RGB(0xF0, 0xF0, 0xF0)},
    {COLOR_GRAYTEXT, RGB(0xA8, 0xA8, 0xA8)},  {COLOR_3DLIGHT, RGB(0xA0, 0xA0, 0xA0)},
    {COLOR_HIGHLIGHT, RGB(0x1A, 0x5F, 0xB4)}, {COLOR_HIGHLIGHTTEXT, WHITE}};

TYPED_TEST(ContrastTest, WithoutAStyleTextsStandOutInDarkSystemColoursToo)
{
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        desk::Reset();
        desk::SetThemed(false);
        for (const auto& [nIndex, cr] : DARK_SYSTEM) {
            desk::SetSystemColor(nIndex, cr);
        }
        const Ground ground;
        TypeParam control;
        const HWND hwnd = MakeExhibit(control, ground);
        for (const Step& step : STEPS) {
            step.pfn(hwnd);
            desk::Pump();
            if (IsWindow(hwnd)) {
                ExpectTextsToStandOut(hwnd, step.name);
            }
        }
        control.Destroy();
    }
}

void TakeBorder(HWND hwnd)
{
    SetWindowLongW(hwnd, GWL_STYLE, GetWindowLongW(hwnd, GWL_STYLE) | WS_BORDER);
    SetWindowPos(hwnd, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
}

// The platform inverts what is below a caret: whatever that is, an end of the selection as well.
void ExpectCaretToStandOut(HWND hwnd)
{
    SetFocus(hwnd);
    for (const LPARAM lEnd : {0, -1}) {
        SendMessageW(hwnd, EM_SETSEL, 0, lEnd);
        const Picture picture(hwnd);
        const desk::CaretState caret = desk::Caret();
        ASSERT_EQ(caret.hwnd, hwnd);
        RECT rcWindow{};
        GetWindowRect(hwnd, &rcWindow);
        POINT pt = caret.position;
        ClientToScreen(hwnd, &pt);
        const COLORREF crBelow = picture.At(pt.x - rcWindow.left, pt.y - rcWindow.top + 2);
        ASSERT_NE(crBelow, UNPAINTED);
        EXPECT_GE(Contrast(crBelow, crBelow ^ RGB(0xFF, 0xFF, 0xFF)), LEAST_CONTRAST)
            << std::hex << crBelow << " " << lEnd;
    }
}

// Those whose edge shows where to write.
template <class CONTROL> class FieldContrastTest : public ContrastTest<CONTROL>
{};
using Fields = testing::Types<GEdit, GComboBox>;
TYPED_TEST_SUITE(FieldContrastTest, Fields);

TYPED_TEST(FieldContrastTest, TheEdgeAndTheCaretStandOut)
{
    this->InEachScheme([](TypeParam&, HWND hwnd, const Scheme&) {
        if constexpr (std::is_same_v<TypeParam, GEdit>) { // the other draws its own
            TakeBorder(hwnd);
        }
        for (const bool fFocus : {false, true}) {
            SetFocus(fFocus ? hwnd : GetParent(hwnd));
            const Picture picture(hwnd);
            const int cx = picture.Width(), cy = picture.Height();
            const COLORREF crInside = ColorOf(ColorRole::Window), crAround = ColorOf(ColorRole::Panel);
            for (const POINT pt : {POINT{0, cy / 2}, {cx - 1, cy / 2}, {cx / 2, 0}, {cx / 2, cy - 1}}) {
                const COLORREF cr = picture.At(pt.x, pt.y);
                ASSERT_NE(cr, UNPAINTED);
                // A field that stands out by itself needs no edge.
                EXPECT_GE(std::max(Contrast(cr, crAround), Contrast(crInside, crAround)), LEAST_CONTRAST)
                    << fFocus;
                EXPECT_GE(Contrast(cr, crInside), LEAST_CONTRAST) << fFocus;
            }
        }
        ExpectCaretToStandOut(hwnd);
    });
}

// How many pixels of two pictures can be told from each other.
int CountOther(const Picture& one, const Picture& other)
{
    int nOther = 0;
    for (int y = 0; y < one.Height(); ++y) {
        for (int x = 0; x < one.Width(); ++x) {
            nOther += one.At(x, y) != other.At(x, y) && one.At(x, y) != UNPAINTED &&
                      other.At(x, y) != UNPAINTED && Contrast(one.At(x, y), other.At(x, y)) >= LEAST_CONTRAST;
        }
    }
    return nOther;
}

// Whatever takes the focus shows it, in each behaviour, with a selection and without, at any size.
template <class CONTROL> class FocusShownTest : public ContrastTest<CONTROL>
{};
using Focused = testing::Types<GButton, GCheckBox, GRadioButton, GCommandButton, GNavigationButton, GEdit,
                               GComboBox, GList, GTree, GNavigationBar>;
TYPED_TEST_SUITE(FocusShownTest, Focused);

TYPED_TEST(FocusShownTest, ByMoreThanAShadeInContrastAndByWhatStandsOutInDark)
{
    constexpr int SOME_PIXELS = 30;
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        for (const UINT uDpi : {96u, 192u}) {
            this->InEachScheme([=](TypeParam&, HWND hwnd, const Scheme& scheme) {
                if constexpr (std::is_same_v<TypeParam, GEdit>) {
                    TakeBorder(hwnd);
                }
                gesso::SetScaling(gesso::Scaling::PerMonitor);
                SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(uDpi, uDpi), 0);
                PointAt(hwnd, 300, 200);
                SetFocus(GetParent(hwnd));
                ShowCues(hwnd);
                const Picture without(hwnd);
                SetFocus(hwnd);
                const Picture with(hwnd);
                // An edge of Dark has another shade alone.
                const bool fEdge = std::is_same_v<TypeParam, GEdit> || std::is_same_v<TypeParam, GComboBox>;
                if (fEdge && scheme.scheme == gesso::ColorScheme::Dark) {
                    EXPECT_FALSE(without == with) << uDpi;
                } else {
                    EXPECT_GT(CountOther(without, with), SOME_PIXELS) << uDpi;
                }
                gesso::SetScaling(gesso::Scaling::None);
            });
        }
    }
}

// What is disabled is told by more than a shade, and its edge is painted as it becomes so.
template <class CONTROL> class DisabledShownTest : public ContrastTest<CONTROL>
{};
using Disabled = testing::Types<GButton, GCheckBox, GRadioButton, GCommandButton, GNavigationButton, GEdit,
                                GComboBox, GList, GTree, GNavigationBar, GProgressBar>;
TYPED_TEST_SUITE(DisabledShownTest, Disabled);

TYPED_TEST(DisabledShownTest, InContrastByABrokenEdge)
{
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        this->InEachScheme([](TypeParam&, HWND hwnd, const Scheme& scheme) {
            if constexpr (std::is_same_v<TypeParam, GEdit>) {
                TakeBorder(hwnd);
            }
            if (scheme.scheme != gesso::ColorScheme::Contrast) {
                return;
            }
            const auto shape = [hwnd] {
                const Picture picture(hwnd);
                std::string edges; // where an edge begins or ends
                for (int y = 0; y < picture.Height(); ++y) {
                    for (int x = 0; x < picture.Width(); ++x) {
                        edges += picture.At(x, y) == picture.At(x + 1, y) ? '.' : '#';
                    }
                }
                return edges;
            };
            const std::string enabled = shape();
            desk::ClearDrawing(hwnd);
            EnableWindow(hwnd, FALSE);
            desk::Pump();
            const Lines drawn = desk::Drawing(hwnd);
            const bool fFrame = std::any_of(drawn.begin(), drawn.end(), [](const std::string& line) {
                return line.ends_with("nonclient");
            });
            RECT rcClient{}, rcWindow{};
            GetClientRect(hwnd, &rcClient);
            GetWindowRect(hwnd, &rcWindow);
            EXPECT_EQ(fFrame, rcClient.right != rcWindow.right - rcWindow.left);
            EXPECT_NE(shape(), enabled);
        });
    }
}

template <class CONTROL> class FocusContrastTest : public ContrastTest<CONTROL>
{};
using Framed = testing::Types<GButton, GCheckBox, GRadioButton, GCommandButton, GComboBox, GList, GRibbon,
                              GNavigationBar>;
TYPED_TEST_SUITE(FocusContrastTest, Framed);

TYPED_TEST(FocusContrastTest, TheFocusFrameStandsOutAndIsTwoPixelsWideInContrast)
{
    const Modern modern;
    this->InEachScheme([](TypeParam& control, HWND hwnd, const Scheme& scheme) {
        if constexpr (std::is_same_v<TypeParam, GComboBox>) {
            control.SetStyle((control.GetStyle() & ~DWORD{3}) | GCBS_DROPDOWNLIST);
        }
        SetFocus(hwnd);
        const Picture without(hwnd);
        ShowCues(hwnd);
        const Picture with(hwnd);
        int nFrame = 0, nWide = 0;
        const auto isFrame = [&](int x, int y) { return without.At(x, y) != with.At(x, y); };
        for (int y = 0; y < with.Height(); ++y) {
            for (int x = 0; x < with.Width(); ++x) {
                if (isFrame(x, y)) {
                    ++nFrame;
                    nWide += isFrame(x + 1, y) && isFrame(x, y + 1) && isFrame(x + 1, y + 1);
                    EXPECT_GE(Contrast(without.At(x, y), with.At(x, y)), LEAST_CONTRAST)
                        << "at " << x << ", " << y;
                }
            }
        }
        EXPECT_GT(nFrame, 40);
        EXPECT_EQ(nWide > nFrame / 4, scheme.scheme == gesso::ColorScheme::Contrast)
            << nWide << " of " << nFrame;
    });
}

template <class CONTROL> class BoxContrastTest : public ContrastTest<CONTROL>
{};
using Boxes = testing::Types<GCheckBox, GRadioButton>;
TYPED_TEST_SUITE(BoxContrastTest, Boxes);

TYPED_TEST(BoxContrastTest, BoxAndMarkStandOutInEveryState)
{
    constexpr int SIDE = 13, SOME_PIXELS = 4;
    this->InEachScheme([](TypeParam& control, HWND hwnd, const Scheme&) {
        for (const bool fDisabled : {false, true}) {
            EnableWindow(hwnd, !fDisabled);
            control.SetCheck(0);
            const Picture empty(hwnd);
            control.SetCheck(1);
            const Picture marked(hwnd);
            double box = 0;
            for (const auto& [cr, nPixels] : empty.Shades({0, 0, SIDE, empty.Height()})) {
                const bool fSome = nPixels >= SOME_PIXELS && cr != UNPAINTED;
                box = std::max(box, fSome ? Contrast(cr, ColorOf(ColorRole::Panel)) : 0);
            }
            EXPECT_GE(box, LEAST_CONTRAST) << fDisabled;
            // The marks are what has changed; beside them is the box's face as it is now.
            double best = 0;
            const auto shades = marked.Shades({3, 0, SIDE - 3, marked.Height()});
            for (const auto& [cr, nPixels] : shades) {
                for (const auto& [crOther, nOthers] : shades) {
                    const bool fBox = nPixels >= SOME_PIXELS && nOthers >= SOME_PIXELS &&
                                      cr != ColorOf(ColorRole::Panel) && cr != UNPAINTED &&
                                      crOther != UNPAINTED;
                    best = std::max(best, fBox ? Contrast(cr, crOther) : 0);
                }
            }
            EXPECT_GE(best, LEAST_CONTRAST) << fDisabled;
            EXPECT_FALSE(empty == marked);
        }
    });
}

// What differs between two pictures of a window is a mark: it must stand out from what shows without it.
// Returns how much of it there is.
int ExpectMarkToStandOut(const Picture& without, const Picture& with)
{
    int nMark = 0;
    for (int y = 0; y < with.Height(); ++y) {
        for (int x = 0; x < with.Width(); ++x) {
            if (without.At(x, y) != with.At(x, y)) {
                ++nMark;
                EXPECT_GE(Contrast(without.At(x, y), with.At(x, y)), LEAST_CONTRAST)
                    << "at " << x << ", " << y;
            }
        }
    }
    return nMark;
}

class ComboMarkTest : public ContrastTest<GComboBox>
{};

// Of each kind that has a button, in each state.
TEST_F(ComboMarkTest, TheChevronStandsOutFromItsOwnGround)
{
    constexpr int EDGE = 4, SOME_PIXELS = 6;
    for (const DWORD dwKind : {GCBS_DROPDOWN, GCBS_DROPDOWNLIST}) {
        InEachScheme([=](GComboBox& control, HWND hwnd, const Scheme&) {
            control.SetStyle((control.GetStyle() & ~DWORD{GCBS_DROPDOWNLIST}) | dwKind);
            for (const Step& step : STEPS) {
                step.pfn(hwnd);
                desk::Pump();
                const Picture picture(hwnd);
                const int cx = picture.Width(), cy = picture.Height();
                const auto shades =
                    picture.Shades({cx - GetSystemMetrics(SM_CXVSCROLL) + EDGE, EDGE, cx - EDGE, cy - EDGE});
                const auto fewer = [](const auto& a, const auto& b) { return a.second < b.second; };
                const COLORREF crGround = std::max_element(shades.begin(), shades.end(), fewer)->first;
                double best = 0;
                for (const auto& [cr, nPixels] : shades) {
                    best = std::max(best, nPixels >= SOME_PIXELS ? Contrast(cr, crGround) : 0);
                }
                EXPECT_GE(best, LEAST_CONTRAST) << dwKind << " " << step.name;
            }
        });
    }
}

class ListMarkTest : public ContrastTest<GList>
{};

TEST_F(ListMarkTest, TheSortArrowStandsOut)
{
    InEachScheme([](GList& list, HWND hwnd, const Scheme&) {
        list.RemoveAllItems();
        for (const bool fAscending : {false, true}) {
            list.Sort(0, fAscending);
            const Picture without(hwnd); // in the second column
            list.Sort(1, fAscending);
            EXPECT_GT(ExpectMarkToStandOut(without, Picture(hwnd)), 6) << fAscending;
        }
    });
}

// The rectangle that the mouse draws.
TEST_F(ListMarkTest, TheBandStandsOut)
{
    const Modern modern;
    InEachScheme([](GList& list, HWND hwnd, const Scheme&) {
        list.RemoveAllItems();
        list.SetListStyle(GLS_DETAILS);
        SetFocus(hwnd);
        PointAt(hwnd, 60, 60);
        PressThere();
        const Picture without(hwnd);
        PointAt(hwnd, 120, 110);
        EXPECT_GT(ExpectMarkToStandOut(without, Picture(hwnd)), 40);
        ReleaseThere();
    });
}

class TreeMarkTest : public ContrastTest<GTree>
{};

// On rows in each state, under the pointer as well.
TEST_F(TreeMarkTest, TheExpanderStandsOut)
{
    InEachScheme([](GTree& tree, HWND hwnd, const Scheme&) {
        for (const bool fFocus : {false, true}) {
            SetFocus(fFocus ? hwnd : GetParent(hwnd));
            for (const POINT pt : {POINT{150, 130}, POINT{100, 10}, POINT{8, 10}}) {
                PointAt(hwnd, pt.x, pt.y);
                tree.RemoveAllItems();
                void* hItem = tree.InsertItem(nullptr, nullptr, L"", 0, 0, nullptr);
                tree.SetSelectedItem(hItem);
                PointAt(hwnd, pt.x + 1, pt.y);
                const Picture without(hwnd);
                tree.SetItemState(hItem, TIS_HASCHILDREN, TIS_HASCHILDREN);
                PointAt(hwnd, pt.x, pt.y);
                EXPECT_GT(ExpectMarkToStandOut(without, Picture(hwnd)), 6) << fFocus << " " << pt.x;
            }
        }
    });
}

class ProgressMarkTest : public ContrastTest<GProgressBar>
{};

TEST_F(ProgressMarkTest, HowFarItIsStandsOut)
{
    InEachScheme([](GProgressBar& bar, HWND hwnd, const Scheme&) {
        bar.SetProgress(0);
        const Picture without(hwnd);
        bar.SetProgress(50);
        EXPECT_GT(ExpectMarkToStandOut(without, Picture(hwnd)), 1000);
    });
}

class MenuMarkTest : public ContrastTest<GRightClickMenu>
{};

// By a mark in Contrast too; its border is the scheme's, and nothing flashes below the rows.
TEST_F(MenuMarkTest, TheRowUnderThePointerAndTheBorderAreTheSchemes)
{
    InEachScheme([](GRightClickMenu&, HWND hwnd, const Scheme& scheme) {
        PointAt(hwnd, 100, 5);
        const Picture picture(hwnd);
        const bool fContrast = scheme.scheme == gesso::ColorScheme::Contrast;
        const COLORREF crMark = ColorOf(fContrast ? ColorRole::SelectionText : ColorRole::Accent);
        EXPECT_EQ(picture.At(2, 8), crMark);
        if (fContrast) {
            EXPECT_EQ(picture.At(150, 8), ColorOf(ColorRole::Selection));
        }
        const Lines drawn = desk::Drawing(hwnd);
        const bool fBorder = std::any_of(drawn.begin(), drawn.end(), [](const std::string& line) {
            return line.starts_with("FillRect (0,") && line.ends_with("nonclient");
        });
        EXPECT_TRUE(fBorder);
        EXPECT_EQ(SendMessageW(hwnd, WM_ERASEBKGND, 0, 0), 1);
    });
}

class CueTest : public ContrastTest<GEdit>
{};

TEST_F(CueTest, WhatAnEmptyFieldShowsIsNotLikeAValue)
{
    const Modern modern;
    InEachScheme([](GEdit& edit, HWND hwnd, const Scheme&) {
        const auto color = [hwnd] { return Picture(hwnd).Texts().at(0).cr; };
        edit.SetText(L"Value");
        const COLORREF crValue = color();
        edit.SetText(L"");
        SendMessageW(hwnd, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Cue"));
        EXPECT_NE(color(), crValue);
    });
}

class RibbonMarkTest : public ContrastTest<GRibbon>
{};

// In Classic the visual style alone draws it in another one.
TEST_F(RibbonMarkTest, ABoxWithAMarkIsInItsTrueState)
{
    std::vector<Picture> pictures;
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior made(behavior);
        InEachScheme([&](GRibbon&, HWND hwnd, const Scheme&) { pictures.emplace_back(hwnd); });
    }
    for (size_t n = 0; n < std::size(SCHEMES); ++n) {
        EXPECT_TRUE(pictures.at(n) == pictures.at(n + std::size(SCHEMES))) << SCHEMES[n].name;
    }
}

} // namespace
