// Drawing of a combo box.

#include <gesso/edit/FieldText.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemePart.h>

#include <algorithm>

using gesso::Frame;
using gesso::PlainPart;
using gesso::ThemePart;

bool GComboBox::IsDropped() const
{
    return m_pList->IsOpen();
}

GComboBox::Look GComboBox::LookNow() const
{
    constexpr DWORD PRESSED = GWS_HOT | GWS_PRESSED;
    if (IsDropped() || (m_dwState & PRESSED) == PRESSED || (m_dwState & GWS_KEYDOWN)) {
        return {CBXS_PRESSED, CBXS_PRESSED};
    }
    if (m_dwState & GWS_HOT) {
        return {CBXS_HOT, m_hitMove.nPart == gesso::COMBO_BUTTON ? CBXS_HOT : CBXS_NORMAL};
    }
    const int nIdle = Frame::Style(*this) & WS_DISABLED ? CBXS_DISABLED : CBXS_NORMAL;
    return {nIdle, nIdle};
}

// The room for text in every kind, before the button is taken off.
RECT GComboBox::FieldRect(HDC hdc, int nState) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    int nBorder = 0;
    if (FAILED(GetThemeInt(m_hTheme, 0, nState, TMT_BORDERSIZE, &nBorder))) {
        nBorder = gesso::SystemMetric(m_hWnd, SM_CXEDGE);
    }
    InflateRect(&rc, -nBorder, -nBorder);
    return ThemePart(m_hTheme, hdc, CP_READONLY, nState, PlainPart::EntryField).In(m_hWnd).ContentOf(rc);
}

// Fixed behaviour: the button's room is left free also by the kinds that have none; their text would reach
// further.
RECT GComboBox::TextRect(HDC hdc, int nState) const
{
    RECT rc = FieldRect(hdc, nState);
    const int cxButton = gesso::SystemMetric(m_hWnd, SM_CXVSCROLL);
    if (IsButtonLeft()) {
        rc.left += cxButton;
    } else {
        rc.right -= cxButton;
    }
    return rc;
}

RECT GComboBox::ButtonRect(const RECT& rcClient) const
{
    const int cxButton = gesso::SystemMetric(m_hWnd, SM_CXVSCROLL);
    RECT rc = rcClient;
    if (IsButtonLeft()) {
        rc.right = rc.left + cxButton;
    } else {
        rc.left = rc.right - cxButton;
    }
    return rc;
}

bool GComboBox::IsButtonLeft() const
{
    return GetWindowLongW(m_hWnd, GWL_EXSTYLE) & WS_EX_LEFTSCROLLBAR;
}

namespace {

// Of a face that is pressed as a whole. In the style it looks the same in every state.
int GlyphOfFace(int nState)
{
    return gesso::IsDrawnFlat() && nState == CBXS_DISABLED ? CBXS_DISABLED : CBXS_NORMAL;
}

// With the focus that of a field to write in. In the style it looks the same in every state.
int EdgeOfField(HWND hwnd, int nState)
{
    return gesso::IsDrawnFlat() && GetFocus() == hwnd ? CBXS_PRESSED : nState;
}

} // namespace

void GComboBox::DrawFrame(HDC hdc, const RECT& rcClient, Look look) const
{
    const DWORD dwKind = Kind();
    if (dwKind == 0) {
        return;
    }
    const bool fReadOnly = dwKind == GCBS_DROPDOWNLIST;
    ThemePart(m_hTheme, hdc, fReadOnly ? CP_READONLY : CP_BORDER,
              fReadOnly ? look.nBorder : EdgeOfField(m_hWnd, look.nBorder),
              fReadOnly ? PlainPart::PushButton : PlainPart::EntryField)
        .In(m_hWnd)
        .DrawBackground(rcClient);
    if (dwKind == GCBS_PLAIN) {
        return;
    }
    const gesso::FlatTextScope color(
        hdc, ColorOf(fReadOnly ? gesso::ColorRole::PanelText : gesso::ColorRole::WindowText));
    ThemePart(m_hTheme, hdc, IsButtonLeft() ? CP_DROPDOWNBUTTONLEFT : CP_DROPDOWNBUTTONRIGHT,
              fReadOnly ? GlyphOfFace(look.nBorder) : look.nButton, PlainPart::DropDownButton)
        .In(m_hWnd)
        .DrawBackground(ButtonRect(rcClient));
}

void GComboBox::DrawField(HDC hdc, const RECT& rcText) const
{
    gesso::LayoutOverlay::Add(hdc, rcText);
    if (Modern* pModern = ModernPart(); pModern && pModern->HasField()) {
        pModern->DrawField(hdc);
        return;
    }
    if (Modern* pModern = ModernPart()) {
        const bool fGrey = Frame::Style(*this) & WS_DISABLED;
        pModern->Texts().Draw(
            hdc, m_strText, rcText,
            gesso::ColorOf(fGrey ? gesso::Color::FieldDisabledText : gesso::Color::FieldText));
        return;
    }
    const bool fSelection = m_bCaret && GetFocus() == m_hWnd;
    const UINT nFrom = fSelection ? std::min(m_nCaret, m_nAnchor) : 0;
    const UINT nTo = fSelection ? std::max(m_nCaret, m_nAnchor) : 0;
    // In Light a disabled field's text looks like any other's.
    const bool fGrey = gesso::IsDrawnFlat() && (Frame::Style(*this) & WS_DISABLED);
    const gesso::TextColorScope color(
        hdc, gesso::ColorOf(fGrey ? gesso::Color::FieldDisabledText : gesso::Color::FieldText));
    gesso::DrawField(hdc, rcText, m_strText, m_strText.GetLength(), nFrom, nTo);
}

void GComboBox::DrawFace(HDC hdc, const RECT& rcText, int nState) const
{
    Modern* pModern = ModernPart();
    if (const ComboItem* pItem = ItemAt(Selected())) {
        const ThemePart part(m_hTheme, hdc, CP_READONLY, nState, PlainPart::PushButton);
        if (pModern) {
            pModern->Texts().Draw(hdc, pItem->pszText, rcText, part.TextColor());
        } else {
            part.DrawString(pItem->pszText, DT_SINGLELINE | gesso::ItemPrefixFormat(*this), rcText);
        }
    } else if (pModern) {
        pModern->DrawCue(hdc, rcText);
    }
    if (GetFocus() == m_hWnd && !(m_dwState & GWS_HIDEFOCUS)) {
        gesso::DrawFocusFrame(m_hWnd, hdc, rcText);
    }
}

void GComboBox::Draw(HDC hdc)
{
    RECT rcClient{};
    if (!Frame::DrawParentBackground(*this, hdc, &rcClient)) {
        return;
    }
    const gesso::TransparentScope mode(hdc);
    const gesso::SelectScope font(hdc, m_hFont);
    const Look look = LookNow();
    DrawFrame(hdc, rcClient, look);

    const RECT rcText = TextRect(hdc, look.nBorder);
    if (Kind() == GCBS_DROPDOWNLIST) {
        DrawFace(hdc, rcText, look.nBorder);
    } else {
        DrawField(hdc, rcText);
    }
}
