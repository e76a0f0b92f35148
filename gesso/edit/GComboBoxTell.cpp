// What those are told of a combo box who do not see it. The rows of an open list are told by its window.
#include <gesso/edit/GComboBoxAccess.h>
#include <gesso/framework/Frame.h>

using gesso::COMBO_FIELD;
using gesso::COMBO_LIST;
using gesso::ComboParts;
using gesso::Frame;
using gesso::HasComboList;
using gesso::NO_INDEX;
using gesso::StringOf;
using gesso::Watch;

namespace {

constexpr DWORD TEXT_SELECTION_CHANGED =
    0x8014; // EVENT_OBJECT_TEXTSELECTIONCHANGED, which not all headers have

} // namespace

GComboBox::Inside::Seen GComboBox::Inside::SeenOf(const GComboBox& combo)
{
    const Inside& own = *combo.m_inside;
    const bool fOpen = combo.IsDropped();
    const UINT nHot = fOpen ? combo.m_pList->m_nHot : NO_INDEX;
    return {own.nTextChanges, own.nItemChanges, own.nSelected, combo.m_nCaret, combo.m_nAnchor, nHot, fOpen};
}

void GComboBox::Inside::StartTelling(const GComboBox& combo)
{
    fTells = true;
    told = SeenOf(combo);
    strTold = StringOf(combo.m_strText);
}

LRESULT GComboBox::Inside::TakeFocus(GComboBox& combo)
{
    const Watch watch(combo);
    combo.Invalidate(0);
    gesso::TellItemFocus(combo.m_hWnd, ComboParts(combo.Kind()).ChildOf(COMBO_FIELD));
    if (watch) {
        Frame::SendNotify(combo, static_cast<UINT>(NM_SETFOCUS));
    }
    return 0;
}

namespace {

// One event after the other, as long as the control is there.
class Tale
{
public:
    Tale(const GWnd& wnd, HWND hwndList) : m_watch(wnd), m_hWnd(Frame::Handle(wnd)), m_hwndList(hwndList) {}

    void Tell(bool fChanged, DWORD dwEvent, LONG nChild) const
    {
        if (fChanged && m_watch) {
            gesso::TellAccess(m_hWnd, dwEvent, nChild);
        }
    }
    // Of a row of the open list, by its window.
    void TellRow(bool fChanged, DWORD dwEvent, UINT nRow) const
    {
        if (fChanged && nRow != NO_INDEX && m_watch && m_hwndList) {
            gesso::TellAccess(m_hwndList, dwEvent, static_cast<LONG>(nRow) + 1);
        }
    }

private:
    const Watch m_watch;
    const HWND m_hWnd;
    const HWND m_hwndList;
};

} // namespace

void GComboBox::Inside::Tell(GComboBox& combo)
{
    Inside& own = *combo.m_inside;
    const Seen now = SeenOf(combo);
    const Seen former = std::exchange(own.told, now);
    if (!own.fTells) {
        return;
    }
    const bool fTouched = former.nTextChanges != now.nTextChanges;
    const bool fText = fTouched && own.strTold != combo.m_strText;
    if (fText) {
        own.strTold = StringOf(combo.m_strText);
    }
    const bool fField = combo.Kind() == GCBS_DROPDOWN;
    const bool fMarks = fField && (former.nCaret != now.nCaret || former.nAnchor != now.nAnchor);
    const bool fFocus = GetFocus() == combo.m_hWnd;
    const ComboParts parts(combo.Kind());
    const Tale tale(combo, now.fOpen ? combo.m_pList->m_hWnd : nullptr);
    const bool fOpened = former.fOpen != now.fOpen;
    tale.Tell(former.nItemChanges != now.nItemChanges && HasComboList(combo.Kind()), EVENT_OBJECT_REORDER,
              parts.ChildOf(COMBO_LIST));
    tale.Tell(fOpened, EVENT_OBJECT_STATECHANGE, CHILDID_SELF);
    tale.Tell(fText, EVENT_OBJECT_VALUECHANGE, CHILDID_SELF);
    tale.Tell(fText && fField, EVENT_OBJECT_VALUECHANGE, parts.ChildOf(COMBO_FIELD));
    tale.Tell(fMarks, TEXT_SELECTION_CHANGED, parts.ChildOf(COMBO_FIELD));
    tale.TellRow(former.nSelected != now.nSelected, EVENT_OBJECT_SELECTION, now.nSelected);
    tale.TellRow(former.nHot != now.nHot && fFocus, EVENT_OBJECT_FOCUS, now.nHot);
    tale.Tell(fOpened && !now.fOpen && fFocus, EVENT_OBJECT_FOCUS, parts.ChildOf(COMBO_FIELD));
}
