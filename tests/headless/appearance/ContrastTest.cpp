// Whether everything can be told from what it stands on, in each scheme that the library draws by itself:
// worked out from what every control draws in every state.

#include "../../support/WithBehavior.h"
#include "Exhibit.h"
#include "Picture.h"
#include "Schemes.h"

namespace {

using namespace test;
using gesso::ColorRole;

constexpr double TEXT_CONTRAST = 4.5;
constexpr double LEAST_CONTRAST = 3; // of disabled texts, and of what is no text

void ShowCues(HWND hwnd)
{
    SendMessageW(hwnd, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}

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

// The number of texts.
size_t ExpectTextsToStandOut(HWND hwnd, const std::string& where)
{
    const bool fDisabled = !IsWindowEnabled(hwnd);
    const Picture picture(hwnd);
    for (const Picture::Text& text : picture.Texts()) {
        const bool fGrey = fDisabled || text.cr == ColorOf(ColorRole::DisabledText);
        int nAll = 0;
        for (const auto& [cr, nPixels] : text.ground) {
            nAll += nPixels;
        }
        for (const auto& [cr, nPixels] : text.ground) {
            if (nPixels * 4 < nAll) {
                continue; // a frame or a mark beside it
            }
            if (cr == UNPAINTED) {
                ADD_FAILURE() << where << ": on nothing: " << text.line;
            } else {
                EXPECT_GE(Contrast(text.cr, cr), fGrey ? LEAST_CONTRAST : TEXT_CONTRAST)
                    << where << ": on " << std::hex << cr << ": " << text.line;
            }
        }
    }
    return picture.Texts().size();
}

using WithoutText = ClassList<GNavigationButton, GProgressBar, GSeparator, GScrollbar>;

template <class CONTROL> class ContrastTest : public testing::Test
{
    FreshDesktop m_desktop;
};
TYPED_TEST_SUITE(ContrastTest, AllControls::Types);

TYPED_TEST(ContrastTest, EveryTextStandsOutInEveryState)
{
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        for (const Scheme& scheme : SCHEMES) {
            desk::Reset();
            // As styles have it; the simulated one has its texts at the very edge.
            desk::SetThemeMargins("COMBOBOX", CP_READONLY, 0, TMT_CONTENTMARGINS, {4, 4, 4, 4});
            const WithBehavior made(behavior);
            const WithScheme looks(scheme);
            const Ground ground;
            TypeParam control;
            const HWND hwnd = MakeExhibit(control, ground);
            ASSERT_TRUE(hwnd);
            size_t nTexts = 0;
            for (const Step& step : STEPS) {
                step.pfn(hwnd);
                desk::Pump();
                if (IsWindow(hwnd)) { // a click ends a value menu
                    nTexts += ExpectTextsToStandOut(hwnd, scheme.name + std::string(", ") + step.name);
                }
            }
            EXPECT_EQ(nTexts != 0, !WithoutText::Has<TypeParam>()) << scheme.name;
            control.Destroy();
        }
    }
}

// Those whose edge shows where to write.
template <class CONTROL> class FieldContrastTest : public ContrastTest<CONTROL>
{};
using Fields = testing::Types<GEdit, GComboBox>;
TYPED_TEST_SUITE(FieldContrastTest, Fields);

TYPED_TEST(FieldContrastTest, TheEdgeAndTheCaretStandOut)
{
    for (const Scheme& scheme : SCHEMES) {
        desk::Reset();
        const WithScheme looks(scheme);
        const Ground ground;
        TypeParam control;
        const HWND hwnd = MakeExhibit(control, ground);
        if constexpr (std::is_same_v<TypeParam, GEdit>) { // the other draws its own
            SetWindowLongW(hwnd, GWL_STYLE, GetWindowLongW(hwnd, GWL_STYLE) | WS_BORDER);
            SetWindowPos(hwnd, nullptr, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
        }
        for (const bool fFocus : {false, true}) {
            SetFocus(fFocus ? hwnd : ground);
            const Picture picture(hwnd);
            const int cx = picture.Width(), cy = picture.Height();
            const COLORREF crInside = ColorOf(ColorRole::Window);
            for (const POINT pt : {POINT{0, cy / 2}, {cx - 1, cy / 2}, {cx / 2, 0}, {cx / 2, cy - 1}}) {
                const COLORREF cr = picture.At(pt.x, pt.y);
                ASSERT_NE(cr, UNPAINTED);
                EXPECT_GE(Contrast(cr, ColorOf(ColorRole::Panel)), LEAST_CONTRAST) << scheme.name << fFocus;
                EXPECT_GE(Contrast(cr, crInside), LEAST_CONTRAST) << scheme.name << fFocus;
            }
            // The platform inverts what is below a caret.
            EXPECT_GE(Contrast(crInside, crInside ^ RGB(0xFF, 0xFF, 0xFF)), LEAST_CONTRAST) << scheme.name;
        }
        control.Destroy();
    }
}

template <class CONTROL> class FocusContrastTest : public ContrastTest<CONTROL>
{};
using Framed = testing::Types<GButton, GCheckBox, GRadioButton, GCommandButton, GComboBox, GList, GRibbon>;
TYPED_TEST_SUITE(FocusContrastTest, Framed);

TYPED_TEST(FocusContrastTest, TheFocusFrameStandsOutAndIsTwoPixelsWideInContrast)
{
    const Modern modern;
    for (const Scheme& scheme : SCHEMES) {
        desk::Reset();
        const WithScheme looks(scheme);
        const Ground ground;
        TypeParam control;
        const HWND hwnd = MakeExhibit(control, ground);
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
                        << scheme.name << " at " << x << ", " << y;
                }
            }
        }
        EXPECT_GT(nFrame, 40) << scheme.name;
        EXPECT_EQ(nWide > nFrame / 4, scheme.scheme == gesso::ColorScheme::Contrast)
            << scheme.name << ": " << nWide << " of " << nFrame;
        control.Destroy();
    }
}

template <class CONTROL> class MarkContrastTest : public ContrastTest<CONTROL>
{};
using Marked = testing::Types<GCheckBox, GRadioButton>;
TYPED_TEST_SUITE(MarkContrastTest, Marked);

TYPED_TEST(MarkContrastTest, BoxAndMarkStandOutInEveryState)
{
    constexpr int SIDE = 13, SOME_PIXELS = 4;
    for (const Scheme& scheme : SCHEMES) {
        desk::Reset();
        const WithScheme looks(scheme);
        const Ground ground;
        TypeParam control;
        const HWND hwnd = MakeExhibit(control, ground);
        for (const bool fDisabled : {false, true}) {
            EnableWindow(hwnd, !fDisabled);
            control.SetCheck(0);
            const Picture empty(hwnd);
            control.SetCheck(1);
            const Picture marked(hwnd);
            RECT rcBox{0, 0, SIDE, marked.Height()};
            const auto standsOut = [&](const Picture& picture) {
                double best = 0;
                for (const auto& [cr, nPixels] : picture.Shades(rcBox)) {
                    const bool fSome = nPixels >= SOME_PIXELS && cr != UNPAINTED;
                    best = std::max(best, fSome ? Contrast(cr, ColorOf(ColorRole::Panel)) : 0);
                }
                return best;
            };
            EXPECT_GE(standsOut(empty), LEAST_CONTRAST) << scheme.name << fDisabled;
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
            EXPECT_GE(best, LEAST_CONTRAST) << scheme.name << fDisabled;
            EXPECT_FALSE(empty == marked);
        }
        control.Destroy();
    }
}

} // namespace
