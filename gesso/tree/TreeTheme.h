// The visual style of a tree, and the painting of what its rows are made of.
#pragma once

#include <gesso/framework/ItemTheme.h>

namespace gesso {

// The "TREEVIEW" class. Where the style has no glyph for the pointer over it the usual one stands in, and
// where it has none at all a plain one.
class GESSO_API TreeTheme
{
public:
    // Closes what was open first.
    void Open(HWND hwnd);
    void Close();

    const ItemTheme& Items() const { return m_items; }

    void DrawGlyph(HDC hdc, bool fHot, bool fOpen, const RECT& rc) const;
    // The same in a window, which tells how large it is without a style.
    void DrawGlyph(HWND hwnd, HDC hdc, bool fHot, bool fOpen, const RECT& rc) const;

private:
    ItemTheme m_items;
    HTHEME m_hGlyphs = nullptr; // null where the style has no glyphs
    bool m_fHotGlyph = false;
};

constexpr UINT TREE_LABEL_FORMAT = DT_NOPREFIX | DT_SINGLELINE | DT_VCENTER;

// The state that a row is drawn in (TREIS_).
int RowStateOf(bool fSelected, bool fFocused, bool fHot);
void FillTreeBackground(HDC hdc, const RECT& rc);
// Draws the image in a square; nothing without a list or with an index past its end.
void DrawTreeImage(HDC hdc, HIMAGELIST hImageList, UINT nImage, int x, int y, int nSide);
void DrawTreeLabel(HDC hdc, LPCWSTR pszName, RECT rc);

} // namespace gesso
