// The parts that the library draws by itself, one by one.

#include "../controls/DrawFixture.h"
#include "Picture.h"
#include "Schemes.h"

#include <gesso/framework/ThemePart.h>

namespace {

using namespace test;
using gesso::PlainPart;
using gesso::ThemePart;

constexpr SIZE SIZE_OF_PART = {24, 24};

struct PartStates
{
    PlainPart plain;
    int nPart;
    std::vector<int> states;
};

class FlatPartTest : public DrawFixture
{
protected:
    Picture Draw(PlainPart plain, int nPart, int nState, bool fDefault = false) const
    {
        return {SIZE_OF_PART, Lines(plain, nPart, nState, fDefault)};
    }
    test::Lines Lines(PlainPart plain, int nPart, int nState, bool fDefault) const
    {
        const HDC hdc = GetDC(Parent());
        desk::ClearDrawing(Parent());
        SetTextColor(hdc, ColorOf(gesso::ColorRole::WindowText)); // as a row's text has it
        ThemePart(nullptr, hdc, nPart, nState, plain)
            .In(Parent())
            .AsDefault(fDefault)
            .DrawBackground({0, 0, SIZE_OF_PART.cx, SIZE_OF_PART.cy});
        ReleaseDC(Parent(), hdc);
        return desk::Drawing(Parent());
    }
    // What is left of a picture to somebody who sees no shades: what is light and what is dark.
    static std::string ShapeOf(const Picture& picture, PlainPart plain)
    {
        const bool fInField =
            plain == PlainPart::EditBorder || plain == PlainPart::Row || plain == PlainPart::TreeGlyph;
        // What nothing was drawn at is the ground.
        const auto shadeAt = [&](int x, int y) {
            const COLORREF cr = picture.At(x, y);
            return cr != UNPAINTED ? cr
                                   : ColorOf(fInField ? gesso::ColorRole::Window : gesso::ColorRole::Panel);
        };
        std::string shape;
        for (int y = 0; y < SIZE_OF_PART.cy; ++y) {
            for (int x = 0; x < SIZE_OF_PART.cx; ++x) {
                const COLORREF cr = shadeAt(x, y);
                shape += Contrast(cr, BLACK) > Contrast(cr, WHITE) ? '#' : '.';
            }
            shape += '\n';
        }
        return shape;
    }
};

TEST_F(FlatPartTest, InContrastNoStateIsToldByItsShadeAlone)
{
    const std::vector<PartStates> parts = {
        {PlainPart::PushButton, BP_PUSHBUTTON, {1, 2, 3, 4, 5}},
        {PlainPart::CheckBox, BP_CHECKBOX, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
        {PlainPart::RadioButton, BP_RADIOBUTTON, {1, 2, 3, 4, 5, 6, 7, 8}},
        {PlainPart::CommandLink, BP_COMMANDLINK, {1, 2, 3, 4, 5}},
        {PlainPart::BackButton, 1, {1, 2, 3, 4}},
        {PlainPart::EntryField, CP_BORDER, {1, 2, 3, 4}},
        {PlainPart::EditBorder, EP_EDITBORDER_NOSCROLL, {1, 2, 3, 4}},
        {PlainPart::Row, LVP_LISTITEM, {1, 2, 3, 5, 6}},
        {PlainPart::HeaderItem, HP_HEADERITEM, {1, 2, 3}},
        {PlainPart::ScrollThumb, SBP_THUMBBTNVERT, {1, 2, 3}},
        {PlainPart::ScrollArrow, SBP_ARROWBTN, {1, 2, 3, 5, 9, 13}},
        {PlainPart::DropDownButton, CP_DROPDOWNBUTTONRIGHT, {1}},
        {PlainPart::ItemView, 0, {0, LISS_DISABLED}},
        {PlainPart::ProgressBar, PP_BAR, {0, PBS_DISABLED}},
        {PlainPart::TreeGlyph, TVP_GLYPH, {1, 2}},
    };
    for (const Scheme& scheme : SCHEMES) {
        if (scheme.scheme != gesso::ColorScheme::Contrast) {
            continue;
        }
        const WithScheme looks(scheme);
        for (const PartStates& part : parts) {
            std::map<std::string, int> seen;
            for (const int nState : part.states) {
                const std::string shape = ShapeOf(Draw(part.plain, part.nPart, nState), part.plain);
                const auto [at, fNew] = seen.try_emplace(shape, nState);
                EXPECT_TRUE(fNew) << static_cast<int>(part.plain) << ": " << nState << " is like "
                                  << at->second << " in " << scheme.name << "\n"
                                  << shape;
            }
        }
    }
}

// Which it stays in every state but disabled, where it cannot be chosen.
TEST_F(FlatPartTest, ADefaultButtonIsToldInEachState)
{
    for (const Scheme& scheme : SCHEMES) {
        const WithScheme looks(scheme);
        for (const int nState : {PBS_HOT, PBS_PRESSED}) {
            const Picture usual = Draw(PlainPart::PushButton, BP_PUSHBUTTON, nState);
            const Picture other = Draw(PlainPart::PushButton, BP_PUSHBUTTON, nState, true);
            EXPECT_EQ(ShapeOf(usual, PlainPart::PushButton) != ShapeOf(other, PlainPart::PushButton),
                      scheme.scheme == gesso::ColorScheme::Contrast)
                << nState;
        }
    }
    desk::SetThemed(false);
    for (const int nState : {PBS_HOT, PBS_PRESSED, PBS_DISABLED}) {
        EXPECT_EQ(AnyStartsWith(Lines(PlainPart::PushButton, BP_PUSHBUTTON, nState, true), "FrameRect"),
                  nState != PBS_DISABLED);
        EXPECT_FALSE(AnyStartsWith(Lines(PlainPart::PushButton, BP_PUSHBUTTON, nState, false), "FrameRect"));
    }
}

TEST_F(FlatPartTest, InDarkEachStateOfARowLooksDifferent)
{
    const WithScheme looks(SCHEMES[0]);
    constexpr int STATES[] = {LISS_NORMAL, LISS_HOT, LISS_SELECTED, LISS_SELECTEDNOTFOCUS, LISS_HOTSELECTED};
    for (const int nState : STATES) {
        for (const int nOther : STATES) {
            EXPECT_EQ(Draw(PlainPart::Row, LVP_LISTITEM, nState) ==
                          Draw(PlainPart::Row, LVP_LISTITEM, nOther),
                      nState == nOther)
                << nState << " " << nOther;
        }
    }
}

// It lies on a panel.
TEST_F(FlatPartTest, InContrastATracksEdgeStandsOut)
{
    for (const Scheme& scheme : SCHEMES) {
        const WithScheme looks(scheme);
        if (gesso::ActiveColorScheme() == gesso::ColorScheme::Contrast) {
            const Picture track = Draw(PlainPart::ScrollTrack, SBP_LOWERTRACKVERT, 1);
            EXPECT_GE(Contrast(track.At(0, 12), track.At(12, 12)), 3) << scheme.name;
        }
    }
}

TEST_F(FlatPartTest, WhatIsOpaqueLeavesNothing)
{
    const std::pair<PartStates, bool> parts[] = {
        {{PlainPart::EntryField, CP_BORDER, {1, 2, 3, 4}}, true},
        {{PlainPart::OpenList, CP_BORDER, {1}}, true},
        {{PlainPart::EditBackground, EP_BACKGROUND, {1, 3}}, true},
        {{PlainPart::ItemView, 0, {0, LISS_DISABLED}}, true},
        {{PlainPart::ProgressBar, PP_BAR, {0, PBS_DISABLED}}, true},
        {{PlainPart::ProgressFill, PP_FILL, {1}}, true},
        {{PlainPart::ScrollTrack, SBP_LOWERTRACKVERT, {1, 4}}, true},
        {{PlainPart::HeaderItem, HP_HEADERITEM, {0, 1, 2, 3}}, true},
        {{PlainPart::DialogPanel, TDLG_PRIMARYPANEL, {0}}, true},
        {{PlainPart::DialogFooter, TDLG_SECONDARYPANEL, {0}}, true},
        {{PlainPart::PushButton, BP_PUSHBUTTON, {1}}, false},
        {{PlainPart::CheckBox, BP_CHECKBOX, {1, 5}}, false},
        {{PlainPart::EditBorder, EP_EDITBORDER_NOSCROLL, {1}}, false},
        {{PlainPart::TreeGlyph, TVP_GLYPH, {1}}, false},
        {{PlainPart::Row, LVP_LISTITEM, {1, 3}}, false},
    };
    for (const Scheme& scheme : SCHEMES) {
        const WithScheme looks(scheme);
        for (const auto& [part, fOpaque] : parts) {
            for (const int nState : part.states) {
                const bool fSays = ThemePart(nullptr, nullptr, part.nPart, nState, part.plain).IsOpaque();
                EXPECT_EQ(fSays, fOpaque) << static_cast<int>(part.plain) << " " << nState;
                const Picture picture = Draw(part.plain, part.nPart, nState);
                const auto shades = picture.Shades({0, 0, SIZE_OF_PART.cx, SIZE_OF_PART.cy});
                EXPECT_FALSE(fOpaque && shades.contains(UNPAINTED))
                    << static_cast<int>(part.plain) << " " << nState;
            }
        }
    }
}

// At 200 percent edges are twice as wide, and focus frames of Contrast four pixels.
TEST_F(FlatPartTest, ThinLinesGrowWithTheDotsAnInch)
{
    const auto edge = [this](PlainPart plain, int nPart) {
        const Picture picture = Draw(plain, nPart, 1);
        int nWidth = 0;
        while (picture.At(nWidth, SIZE_OF_PART.cy / 2) == picture.At(0, SIZE_OF_PART.cy / 2)) {
            ++nWidth;
        }
        return nWidth;
    };
    const auto focus = [this] {
        const HDC hdc = GetDC(Parent());
        desk::ClearDrawing(Parent());
        ThemePart(nullptr, hdc, BP_PUSHBUTTON, 1, PlainPart::PushButton)
            .In(Parent())
            .DrawFocus({0, 0, SIZE_OF_PART.cx, SIZE_OF_PART.cy});
        ReleaseDC(Parent(), hdc);
        const Picture picture(SIZE_OF_PART, desk::Drawing(Parent()));
        return static_cast<int>(picture.Shades({0, 12, 12, 13}).at(ColorOf(gesso::ColorRole::PanelText)));
    };
    for (const Scheme& scheme : SCHEMES) {
        const WithScheme looks(scheme);
        const int nFocus = scheme.scheme == gesso::ColorScheme::Contrast ? 2 : 1;
        for (const int nTimes : {1, 2}) {
            desk::SetWindowDpi(Parent(), 96 * nTimes);
            gesso::SetScaling(gesso::Scaling::PerMonitor);
            EXPECT_EQ(edge(PlainPart::EntryField, CP_BORDER), nTimes) << scheme.name;
            EXPECT_EQ(edge(PlainPart::ItemView, 0), nTimes) << scheme.name;
            EXPECT_EQ(edge(PlainPart::PushButton, BP_PUSHBUTTON), nTimes) << scheme.name;
            EXPECT_EQ(focus(), nTimes * nFocus) << scheme.name;
            gesso::SetScaling(gesso::Scaling::None);
        }
    }
}

// Round corners go over into what they stand on.
TEST_F(FlatPartTest, CornersTakeTheGroundThatIsThere)
{
    const WithScheme looks(SCHEMES[0]);
    for (const COLORREF crGround : {RGB(0xF0, 0x10, 0x10), RGB(0x20, 0xE0, 0x20)}) {
        BITMAPINFO info{};
        info.bmiHeader = {
            sizeof(info.bmiHeader), SIZE_OF_PART.cx, -SIZE_OF_PART.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        const HDC hdc = CreateCompatibleDC(nullptr);
        void* pBits = nullptr;
        const HBITMAP hBitmap = CreateDIBSection(hdc, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
        const HGDIOBJ hFormer = SelectObject(hdc, hBitmap);
        const RECT rc{0, 0, SIZE_OF_PART.cx, SIZE_OF_PART.cy};
        const HBRUSH hBrush = CreateSolidBrush(crGround);
        FillRect(hdc, &rc, hBrush);
        ThemePart(nullptr, hdc, BP_PUSHBUTTON, PBS_NORMAL, PlainPart::PushButton).DrawBackground(rc);
        // The corner is a mixture: the channel that is strong in the ground is in it too.
        const COLORREF cr = GetPixel(hdc, 1, 0);
        const bool fRed = GetRValue(crGround) > GetGValue(crGround);
        EXPECT_GT(fRed ? GetRValue(cr) : GetGValue(cr), (fRed ? GetGValue(cr) : GetRValue(cr)) + 20)
            << std::hex << cr;
        DeleteObject(hBrush);
        SelectObject(hdc, hFormer);
        DeleteObject(hBitmap);
        DeleteDC(hdc);
    }
}

// The ends of what a host can ask for.
TEST_F(FlatPartTest, NoSizeIsTooSmallOrTooLarge)
{
    constexpr RECT RECTS[] = {{0, 0, 0, 0},
                              {0, 0, 1, 1},
                              {5, 5, 2, 2},
                              {0, 0, 2, 400},
                              {INT_MIN, INT_MIN, INT_MAX, INT_MAX},
                              {INT_MAX, INT_MAX, INT_MIN, INT_MIN}};
    const HDC hdc = GetDC(Parent());
    for (const Scheme& scheme : SCHEMES) {
        const WithScheme looks(scheme);
        for (int nPlain = 0; nPlain <= static_cast<int>(PlainPart::EditBorder); ++nPlain) {
            for (const RECT& rc : RECTS) {
                for (const int nState : {-1, 0, 1, 4, 7, 99}) {
                    ThemePart(nullptr, hdc, 1, nState, static_cast<PlainPart>(nPlain)).DrawBackground(rc);
                }
            }
        }
    }
    ReleaseDC(Parent(), hdc);
    SUCCEED() << "the sanitizers tell";
}

} // namespace
