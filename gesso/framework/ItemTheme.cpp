#include <gesso/framework/Colors.h>
#include <gesso/framework/ItemTheme.h>
#include <gesso/framework/ThemePart.h>

namespace gesso {
namespace {

constexpr int ROW_PART = LVP_LISTITEM;
static_assert(ROW_PART == TVP_TREEITEM && int{LISS_HOT} == TREIS_HOT &&
              int{LISS_SELECTED} == TREIS_SELECTED && int{LISS_SELECTEDNOTFOCUS} == TREIS_SELECTEDNOTFOCUS &&
              int{LISS_HOTSELECTED} == TREIS_HOTSELECTED);

// Null where the style lacks the part, since a part that it lacks is drawn like the whole control.
HTHEME RowsOf(HTHEME hTheme)
{
    return hTheme && IsThemePartDefined(hTheme, ROW_PART, 0) ? hTheme : nullptr;
}

} // namespace

void ItemTheme::Open(HWND hwnd, LPCWSTR pszClass)
{
    Close();
    m_hTheme.Open(hwnd, pszClass);
    m_hRows = RowsOf(m_hTheme);
    if (m_hTheme && !m_hRows) {
        m_hStandIn.Open(hwnd, L"TREEVIEW");
        m_hRows = RowsOf(m_hStandIn);
    }
}

void ItemTheme::Close()
{
    m_hRows = nullptr;
    m_hStandIn.Reset();
    m_hTheme.Reset();
}

void ItemTheme::DrawRow(HDC hdc, int nState, const RECT& rc) const
{
    DrawRow(nullptr, hdc, nState, rc);
}

void ItemTheme::DrawBackground(HDC hdc, const RECT& rc) const
{
    DrawBackground(nullptr, hdc, rc);
}

void ItemTheme::DrawRow(HWND hwnd, HDC hdc, int nState, const RECT& rc) const
{
    ThemePart(m_hRows, hdc, ROW_PART, nState, PlainPart::Row).In(hwnd).DrawBackground(rc);
}

void ItemTheme::DrawBackground(HWND hwnd, HDC hdc, const RECT& rc) const
{
    // The style has no states for it.
    const bool fGrey = IsDrawnFlat() && hwnd && !IsWindowEnabled(hwnd);
    ThemePart(m_hTheme, hdc, 0, fGrey ? LISS_DISABLED : 0, PlainPart::ItemView).In(hwnd).DrawBackground(rc);
}

COLORREF ItemTheme::GridColor() const
{
    if (IsDrawnAs(ColorRole::Line)) {
        return ColorOf(ColorRole::Line);
    }
    COLORREF color = 0;
    const bool fKnown = m_hTheme && m_hRows == m_hTheme &&
                        SUCCEEDED(GetThemeColor(m_hTheme, ROW_PART, 0, TMT_EDGEFILLCOLOR, &color));
    return fKnown ? color : SystemColor(COLOR_3DLIGHT);
}

int ItemTheme::BorderSize() const
{
    int nBorder = 0;
    const int nNone = m_hTheme ? 0 : PLAIN_EDGE;
    return SUCCEEDED(GetThemeInt(m_hTheme, 0, 0, TMT_BORDERSIZE, &nBorder)) ? nBorder : nNone;
}

} // namespace gesso
