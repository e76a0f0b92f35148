// The platform's messages to a combo box.

#include <gesso/edit/ComboSearch.h>
#include <gesso/edit/GComboBoxInside.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>

#include <algorithm>

using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;

namespace {

constexpr int NO_TEXT_LIMIT = 0x7FFFFFFE;

// Indices are answered as 32 bits, so that none is the platform's CB_ERR.
LRESULT Answer(UINT nIndex)
{
    return static_cast<int>(nIndex);
}

LPCWSTR TextArgument(LPARAM lParam)
{
    return gesso::TextOrEmpty(reinterpret_cast<LPCWSTR>(lParam));
}

} // namespace

// Both searches go from the start item, which is itself looked at, to the end, and then from the first item
// up to the start. A start beyond the items begins at the first.
template <class MATCHES> UINT GComboBox::Search(UINT nStart, MATCHES matches) const
{
    const ComboItem* const* ppFirst = m_aItems.begin();
    const ComboItem* const* ppEnd = m_aItems.end();
    const ComboItem* const* ppStart = ppFirst + std::min(nStart, m_aItems.GetLength());
    const ComboItem* const* ppHit = std::find_if(ppStart, ppEnd, matches);
    if (ppHit == ppEnd) {
        ppHit = std::find_if(ppFirst, ppStart, matches);
        if (ppHit == ppStart) {
            return NO_INDEX;
        }
    }
    return static_cast<UINT>(ppHit - ppFirst);
}

// Fixed behaviour: in Classic an item matches if its first letter stands anywhere in the search text, in
// either case, so that a longer text finds more items; another item would be found, and selected by
// CB_SELECTSTRING.
UINT GComboBox::FindString(UINT nStart, LPCWSTR pszSearch) const
{
    if (!Has(*this, Quirk::ComboFindsByLetter)) {
        return gesso::FindItem(m_aItems, nStart, pszSearch, gesso::ComboMatch::Start);
    }
    return Search(nStart, [&](const ComboItem* pItem) {
        const wchar_t c = pItem->pszText[0];
        return c && (wcschr(pszSearch, static_cast<wchar_t>(towlower(c))) ||
                     wcschr(pszSearch, static_cast<wchar_t>(towupper(c))));
    });
}

// Fixed behaviour: in Classic finds the first item whose text is not the search text; a host would get
// another item.
UINT GComboBox::FindStringExact(UINT nStart, LPCWSTR pszSearch) const
{
    if (!Has(*this, Quirk::ComboFindsByLetter)) {
        return gesso::FindItem(m_aItems, nStart, pszSearch, gesso::ComboMatch::Whole);
    }
    return Search(nStart, [&](const ComboItem* pItem) { return _wcsicmp(pItem->pszText, pszSearch) != 0; });
}

LRESULT GComboBox::OnSelectString(UINT nStart, LPCWSTR pszSearch)
{
    const UINT nHit = FindString(nStart, pszSearch);
    return Answer(nHit == NO_INDEX ? NO_INDEX : SetSelected(nHit));
}

LRESULT GComboBox::OnGetEditSel(DWORD* pdwStart, DWORD* pdwEnd) const
{
    const UINT nFrom = std::min(m_nCaret, m_nAnchor);
    const UINT nTo = std::max(m_nCaret, m_nAnchor);
    if (pdwStart) {
        *pdwStart = nFrom;
    }
    if (pdwEnd) {
        *pdwEnd = nTo;
    }
    return MAKELONG(nFrom, nTo);
}

LRESULT GComboBox::OnSetEditSel(UINT nStart, UINT nEnd)
{
    if (Kind() != GCBS_DROPDOWN) {
        return CB_ERR;
    }
    Field field(*this);
    field.text.Select({0, nStart}, {0, nEnd});
    ChangeField(field.text);
    return 1;
}

LRESULT GComboBox::OnLimitText(UINT nLimit)
{
    m_nTextLimit = nLimit ? static_cast<int>(nLimit) : NO_TEXT_LIMIT;
    m_inside->fLimited = true;
    return 1;
}

LRESULT GComboBox::OnGetLbText(UINT nIndex, LPWSTR pszBuffer) const
{
    const LRESULT nLength = OnGetLbTextLen(nIndex);
    if (nLength == CB_ERR || !pszBuffer) {
        return CB_ERR;
    }
    std::memcpy(pszBuffer, ItemAt(nIndex)->pszText, (static_cast<size_t>(nLength) + 1) * sizeof(wchar_t));
    return nLength;
}

LRESULT GComboBox::OnGetLbTextLen(UINT nIndex) const
{
    const ComboItem* pItem = ItemAt(nIndex);
    return pItem ? gesso::TextLength(pItem->pszText) : CB_ERR;
}

LRESULT GComboBox::OnComboMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const auto nIndex = static_cast<UINT>(wParam);
    switch (uMsg) {
    case CB_GETEDITSEL:
        return OnGetEditSel(reinterpret_cast<DWORD*>(wParam), reinterpret_cast<DWORD*>(lParam));
    case CB_SETEDITSEL: return OnSetEditSel(LOWORD(lParam), HIWORD(lParam));
    case CB_LIMITTEXT: return OnLimitText(nIndex);
    case CB_ADDSTRING: return Answer(InsertItem(NO_INDEX, 0, TextArgument(lParam), 0, nullptr));
    case CB_INSERTSTRING: return Answer(InsertItem(nIndex, 0, TextArgument(lParam), 0, nullptr));
    case CB_DELETESTRING: return Answer(RemoveItem(nIndex));
    case CB_RESETCONTENT: RemoveAllItems(); return 0;
    case CB_GETCOUNT: return GetItemCount();
    case CB_GETCURSEL: return Answer(GetSelected());
    case CB_SETCURSEL: return Answer(SetSelected(nIndex));
    case CB_GETLBTEXT: return OnGetLbText(nIndex, reinterpret_cast<LPWSTR>(lParam));
    case CB_GETLBTEXTLEN: return OnGetLbTextLen(nIndex);
    case CB_FINDSTRING: return Answer(FindString(nIndex, TextArgument(lParam)));
    case CB_FINDSTRINGEXACT: return Answer(FindStringExact(nIndex, TextArgument(lParam)));
    case CB_SELECTSTRING: return OnSelectString(nIndex, TextArgument(lParam));
    case CB_DIR:
    case CB_SHOWDROPDOWN:
    case CB_GETITEMDATA:
    case CB_SETITEMDATA:
    case CB_GETDROPPEDCONTROLRECT:
    case CB_SETITEMHEIGHT:
    case CB_GETITEMHEIGHT:
    case CB_SETEXTENDEDUI:
    case CB_GETEXTENDEDUI:
    case CB_GETDROPPEDSTATE:
    case CB_SETLOCALE:
    case CB_GETLOCALE:
    case CB_GETTOPINDEX:
    case CB_SETTOPINDEX:
    case CB_GETHORIZONTALEXTENT:
    case CB_SETHORIZONTALEXTENT:
    case CB_GETDROPPEDWIDTH:
    case CB_SETDROPPEDWIDTH:
    case CB_INITSTORAGE:
    case CB_GETCOMBOBOXINFO: return CB_ERR;
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
