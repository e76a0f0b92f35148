// What the keyboard does in a navigation bar.

#include <gesso/framework/Direction.h>
#include <gesso/framework/Press.h>
#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/NavigationRows.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

using gesso::Has;
using gesso::IsSelectable;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::TreeActions;
using gesso::TreeInput;

// In Modern Enter is a bar's own while it has a selection to click.
LRESULT GNavigationBar::KeysWanted(const MSG* pMessage) const
{
    if (Has(*this, Quirk::PaneHasNoKeys)) {
        return 0;
    }
    const bool fEnter = pMessage && pMessage->message == WM_KEYDOWN && pMessage->wParam == VK_RETURN;
    return DLGC_WANTCHARS | (fEnter && m_aVisible[m_nSelected] ? DLGC_WANTALLKEYS : 0);
}

LRESULT GNavigationBar::OnKeyUp(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyUp(*this, uKey);
}

LRESULT GNavigationBar::OnKeyDown(UINT uKey, LPARAM)
{
    if (Has(*this, Quirk::PaneHasNoKeys)) {
        return gesso::OnButtonKeyDown(*this, uKey);
    }
    if (TreeInput::GoesOnWithWord(*this, uKey)) {
        return 0;
    }
    const bool fNone = m_nSelected >= m_aVisible.GetLength();
    switch (gesso::KeyInLayout(m_hWnd, uKey)) {
    case VK_UP: StepTo(fNone ? SelectableFrom(0, true) : SelectableFrom(m_nSelected - 1, false)); break;
    case VK_DOWN: StepTo(SelectableFrom(fNone ? 0 : m_nSelected + 1, true)); break;
    case VK_HOME: StepTo(SelectableFrom(0, true)); break;
    case VK_END: StepTo(SelectableFrom(m_aVisible.GetLength() - 1, false)); break;
    case VK_LEFT: StepOut(); break;
    case VK_RIGHT: StepIn(); break;
    case VK_RETURN:
    case VK_SPACE:
        if (!fNone) {
            TreeActions::SendItem(*this, static_cast<UINT>(NM_CLICK), m_nSelected, 0, -1, -1);
        }
        break;
    default: break;
    }
    return 0;
}

// In Classic a bar has no type-ahead.
LRESULT GNavigationBar::OnTyped(WPARAM wChar, LPARAM lParam)
{
    return Has(*this, Quirk::PaneHasNoKeys) ? gesso::Frame::Default(*this, WM_CHAR, wChar, lParam)
                                            : TreeInput::OnTyped(*this, static_cast<wchar_t>(wChar));
}

// The nearest row that can be selected, from one on; NO_INDEX for none.
UINT GNavigationBar::SelectableFrom(UINT row, bool fDown) const
{
    while (row < m_aVisible.GetLength() && !IsSelectable(*m_aVisible[row])) {
        row = fDown ? row + 1 : row - 1; // in front of the first row is NO_INDEX
    }
    return row < m_aVisible.GetLength() ? row : NO_INDEX;
}

// Nothing without such a row.
void GNavigationBar::StepTo(UINT row)
{
    if (row != NO_INDEX) {
        View().SelectRow(row);
        EnsureVisible(row);
        Invalidate(0);
        if (TreeActions::TellSelection(*this)) {
            TreeActions::TellScrolled(*this);
        }
    }
}

// Closes, or goes out to the parent.
void GNavigationBar::StepOut()
{
    const NavigationBarItem* item = m_aVisible[m_nSelected];
    if (item && (item->uState & NBIS_EXPANDED)) {
        Collapse(m_nSelected);
    } else if (item && item->pParent != m_pRoot) {
        StepTo(SelectableFrom(Items().FindRow(item->pParent), false));
    }
}

// Opens, or goes in to the first child.
void GNavigationBar::StepIn()
{
    const NavigationBarItem* item = m_aVisible[m_nSelected];
    if (item && !(item->uState & NBIS_EXPANDED)) {
        Expand(m_nSelected);
    } else if (item && item->aChildren.GetLength() > 0) {
        StepTo(SelectableFrom(m_nSelected + 1, true));
    }
}
