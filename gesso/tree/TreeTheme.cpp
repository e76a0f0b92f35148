#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/framework/ScaledImage.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/Wrapped.h>
#include <gesso/tree/TreeTheme.h>

namespace gesso {

void TreeTheme::Open(HWND hwnd)
{
    Close();
    m_items.Open(hwnd, L"TREEVIEW");
    const HTHEME hTheme = m_items;
    m_hGlyphs = hTheme && IsThemePartDefined(hTheme, TVP_GLYPH, 0) ? hTheme : nullptr;
    m_fHotGlyph = m_hGlyphs && IsThemePartDefined(hTheme, TVP_HOTGLYPH, 0);
}

void TreeTheme::Close()
{
    m_hGlyphs = nullptr;
    m_items.Close();
}

void TreeTheme::DrawGlyph(HDC hdc, bool fHot, bool fOpen, const RECT& rc) const
{
    DrawGlyph(nullptr, hdc, fHot, fOpen, rc);
}

void TreeTheme::DrawGlyph(HWND hwnd, HDC hdc, bool fHot, bool fOpen, const RECT& rc) const
{
    const int nPart = fHot && (m_fHotGlyph || IsDrawnFlat()) ? TVP_HOTGLYPH : TVP_GLYPH;
    ThemePart(m_hGlyphs, hdc, nPart, fOpen ? GLPS_OPENED : GLPS_CLOSED, PlainPart::TreeGlyph)
        .In(hwnd)
        .DrawBackground(rc);
}

int RowStateOf(bool fSelected, bool fFocused, bool fHot)
{
    if (fSelected) {
        return !fFocused ? TREIS_SELECTEDNOTFOCUS : fHot ? TREIS_HOTSELECTED : TREIS_SELECTED;
    }
    return fHot ? TREIS_HOT : TREIS_DISABLED;
}

void FillTreeBackground(HDC hdc, const RECT& rc)
{
    BrushHandle brush;
    brush.Reset(CreateSolidBrush(ColorOf(Color::TreeBackground)));
    FillRect(hdc, &rc, brush);
}

void DrawTreeImage(HDC hdc, HIMAGELIST hImageList, UINT nImage, int x, int y, int nSide)
{
    if (!hImageList) {
        return;
    }
    LayoutOverlay::Add(hdc, {x, y, Wrapped(int64_t{x} + nSide), Wrapped(int64_t{y} + nSide)});
    {
        const UprightScope place(hdc, x, nSide);
        if (DrawImageInPlace(hdc, hImageList, static_cast<int>(nImage), {place.Left(), y}, nSide)) {
            return;
        }
    }
    const UprightScope upright(hdc, x, WidthInPlace(hdc, hImageList, nSide));
    IMAGELISTDRAWPARAMS params{};
    params.cbSize = sizeof(params);
    params.himl = hImageList;
    params.i = static_cast<int>(nImage);
    params.hdcDst = hdc;
    params.x = upright.Left();
    params.y = y;
    params.cx = nSide;
    params.cy = nSide;
    params.rgbBk = CLR_NONE;
    reinterpret_cast<IImageList*>(hImageList)->Draw(&params);
}

void DrawTreeLabel(HDC hdc, LPCWSTR pszName, RECT rc)
{
    LayoutOverlay::Add(hdc, rc);
    DrawTextW(hdc, pszName, -1, &rc, TREE_LABEL_FORMAT);
}

} // namespace gesso
