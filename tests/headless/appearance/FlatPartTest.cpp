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
    Picture Draw(PlainPart plain, int nPart, int nState) const
    {
        const HDC hdc = GetDC(Parent());
        desk::ClearDrawing(Parent());
        SetTextColor(hdc, ColorOf(gesso::ColorRole::WindowText)); // as a row's text has it
        ThemePart(nullptr, hdc, nPart, nState, plain)
            .DrawBackground({0, 0, SIZE_OF_PART.cx, SIZE_OF_PART.cy});
        ReleaseDC(Parent(), hdc);
        return {SIZE_OF_PART, desk::Drawing(Parent())};
    }
    // What is left of a picture to somebody who sees no shades: which pixels are like most.
    static std::string ShapeOf(const Picture& picture)
    {
        // What nothing was drawn at is the ground.
        const auto shadeAt = [&](int x, int y) {
            const COLORREF cr = picture.At(x, y);
            return cr == UNPAINTED ? ColorOf(gesso::ColorRole::Panel) : cr;
        };
        std::map<COLORREF, int> shades;
        for (int i = 0; i < SIZE_OF_PART.cx * SIZE_OF_PART.cy; ++i) {
            ++shades[shadeAt(i % SIZE_OF_PART.cx, i / SIZE_OF_PART.cx)];
        }
        const auto fewer = [](const auto& a, const auto& b) { return a.second < b.second; };
        const COLORREF crMost = std::max_element(shades.begin(), shades.end(), fewer)->first;
        std::string shape;
        for (int y = 0; y < SIZE_OF_PART.cy; ++y) {
            for (int x = 0; x < SIZE_OF_PART.cx; ++x) {
                shape += shadeAt(x, y) == crMost ? '.' : '#';
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
        {PlainPart::ScrollArrow, SBP_ARROWBTN, {1, 2, 3}},
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
                const std::string shape = ShapeOf(Draw(part.plain, part.nPart, nState));
                const auto [at, fNew] = seen.try_emplace(shape, nState);
                EXPECT_TRUE(fNew) << static_cast<int>(part.plain) << ": " << nState << " is like "
                                  << at->second << " in " << scheme.name << "\n"
                                  << shape;
            }
        }
    }
}

TEST_F(FlatPartTest, WhatIsOpaqueLeavesNothing)
{
    const std::vector<PartStates> parts = {
        {PlainPart::EntryField, CP_BORDER, {1, 2, 3, 4}},
        {PlainPart::EditBackground, EP_BACKGROUND, {1, 3}},
        {PlainPart::ItemView, 0, {0}},
        {PlainPart::ProgressBar, PP_BAR, {0}},
        {PlainPart::ProgressFill, PP_FILL, {1}},
        {PlainPart::ScrollTrack, SBP_LOWERTRACKVERT, {1, 4}},
        {PlainPart::HeaderItem, HP_HEADERITEM, {0, 1, 2, 3}},
        {PlainPart::DialogPanel, TDLG_PRIMARYPANEL, {0}},
        {PlainPart::DialogFooter, TDLG_SECONDARYPANEL, {0}},
        {PlainPart::PushButton, BP_PUSHBUTTON, {1}},
        {PlainPart::Row, LVP_LISTITEM, {1, 3}},
    };
    for (const Scheme& scheme : SCHEMES) {
        const WithScheme looks(scheme);
        for (const PartStates& part : parts) {
            for (const int nState : part.states) {
                const Picture picture = Draw(part.plain, part.nPart, nState);
                const auto shades = picture.Shades({0, 0, SIZE_OF_PART.cx, SIZE_OF_PART.cy});
                if (ThemePart(nullptr, nullptr, part.nPart, nState, part.plain).IsOpaque()) {
                    EXPECT_FALSE(shades.contains(UNPAINTED)) << static_cast<int>(part.plain) << " " << nState;
                }
            }
        }
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
