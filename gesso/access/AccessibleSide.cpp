#include <gesso/access/AccessibleSide.h>
#include <gesso/containers/Index.h>
#include <gesso/containers/OStringEx.h>
#include <gesso/framework/Frame.h>

namespace gesso {

LPCWSTR NameOf(AccessibleAction action)
{
    switch (action) {
    case AccessibleAction::None: return nullptr;
    case AccessibleAction::Press: return L"Press";
    case AccessibleAction::Check: return L"Check";
    case AccessibleAction::Uncheck: return L"Uncheck";
    case AccessibleAction::Expand: return L"Expand";
    case AccessibleAction::Collapse: return L"Collapse";
    case AccessibleAction::Open: return L"Open";
    case AccessibleAction::Close: return L"Close";
    case AccessibleAction::Select: return L"Select";
    }
    return nullptr;
}

bool AccessibleSide::Has(const GWnd&, AccessibleId id) const
{
    return id == WHOLE;
}

AccessString AccessibleSide::NameOf(const GWnd&, AccessibleId) const
{
    return {};
}

AccessString AccessibleSide::DescriptionOf(const GWnd&, AccessibleId) const
{
    return {};
}

AccessString AccessibleSide::ValueOf(const GWnd&, AccessibleId) const
{
    return {};
}

bool AccessibleSide::HasValue(const GWnd&, AccessibleId) const
{
    return false;
}

AccessString AccessibleSide::ShortcutOf(const GWnd&, AccessibleId) const
{
    return {};
}

UINT AccessibleSide::StateOf(const GWnd& wnd, AccessibleId) const
{
    return StateOfWindow(Frame::Handle(wnd), false);
}

RECT AccessibleSide::RectOf(const GWnd&, AccessibleId) const
{
    return {};
}

UINT AccessibleSide::CountOf(const GWnd&, AccessibleId) const
{
    return 0;
}

AccessibleId AccessibleSide::ChildOf(const GWnd&, AccessibleId, UINT) const
{
    return WHOLE;
}

UINT AccessibleSide::IndexOf(const GWnd& wnd, AccessibleId outer, AccessibleId id) const
{
    const UINT nCount = CountOf(wnd, outer);
    for (UINT n = 0; n < nCount; ++n) {
        if (ChildOf(wnd, outer, n) == id) {
            return n;
        }
    }
    return NO_INDEX;
}

AccessibleId AccessibleSide::ParentOf(const GWnd&, AccessibleId) const
{
    return WHOLE;
}

bool AccessibleSide::IsObject(const GWnd&, AccessibleId id) const
{
    return id == WHOLE;
}

AccessibleId AccessibleSide::FocusOf(const GWnd&) const
{
    return WHOLE;
}

UINT AccessibleSide::NextSelected(const GWnd&, AccessibleId, UINT) const
{
    return NO_INDEX;
}

AccessibleId AccessibleSide::HitTest(const GWnd&, POINT) const
{
    return WHOLE;
}

AccessibleAction AccessibleSide::ActionOf(const GWnd&, AccessibleId) const
{
    return AccessibleAction::None;
}

bool AccessibleSide::Act(GWnd&, AccessibleId) const
{
    return false;
}

bool AccessibleSide::Focus(GWnd& wnd, AccessibleId id) const
{
    const HWND hwnd = Frame::Handle(wnd);
    if (!(id == WHOLE) || !(StateOf(wnd, id) & STATE_SYSTEM_FOCUSABLE)) {
        return false;
    }
    SetFocus(hwnd);
    return GetFocus() == hwnd;
}

bool AccessibleSide::Choose(GWnd&, AccessibleId, AccessibleChoice) const
{
    return false;
}

bool AccessibleSide::Open(GWnd&, AccessibleId, bool) const
{
    return false;
}

bool AccessibleSide::Show(GWnd&, AccessibleId) const
{
    return false;
}

bool AccessibleSide::SetValue(GWnd&, AccessibleId, LPCWSTR) const
{
    return false;
}

namespace {

// A child of which nothing lies within its parent.
bool IsOutside(HWND hwnd)
{
    const HWND hwndParent = GetAncestor(hwnd, GA_PARENT);
    RECT rc{}, rcParent{}, rcBoth{};
    if (!(GetWindowLongW(hwnd, GWL_STYLE) & WS_CHILD) || !hwndParent || !GetWindowRect(hwnd, &rc) ||
        !GetClientRect(hwndParent, &rcParent))
    {
        return false;
    }
    MapWindowPoints(hwndParent, nullptr, reinterpret_cast<POINT*>(&rcParent), 2);
    return !IntersectRect(&rcBoth, &rc, &rcParent);
}

} // namespace

UINT AccessibleSide::StateOfWindow(HWND hwnd, bool fTakesFocus)
{
    UINT uState = 0;
    if (!IsWindowEnabled(hwnd)) {
        uState |= STATE_SYSTEM_UNAVAILABLE;
    } else if (fTakesFocus) {
        uState |= STATE_SYSTEM_FOCUSABLE;
    }
    if (fTakesFocus && GetFocus() == hwnd) {
        uState |= STATE_SYSTEM_FOCUSED;
    }
    if (!IsWindowVisible(hwnd)) {
        uState |= STATE_SYSTEM_INVISIBLE;
    } else if (IsOutside(hwnd)) {
        uState |= STATE_SYSTEM_OFFSCREEN;
    }
    return uState;
}

namespace {

// Goes through a text as it shows: each character, and whether it is the mnemonic.
template <class EACH> void ForEachShown(LPCWSTR pszText, const EACH& each)
{
    for (LPCWSTR p = pszText ? pszText : L""; *p; ++p) {
        const bool fMarked = *p == L'&';
        if (fMarked && !*++p) {
            return;
        }
        each(*p, fMarked && *p != L'&');
    }
}

} // namespace

AccessString WithoutMnemonic(LPCWSTR pszText)
{
    OStringEx<wchar_t> str;
    str = pszText ? pszText : L"";
    UINT nLength = 0;
    if (wchar_t* const pTo = str.GetBuffer(str.GetLength() + 1)) {
        ForEachShown(pszText, [&](wchar_t ch, bool) { pTo[nLength++] = ch; });
        pTo[nLength] = 0;
        str.ReleaseBuffer(nLength);
    }
    return str;
}

AccessString ShortcutOfMnemonic(LPCWSTR pszText)
{
    wchar_t chFound = 0;
    ForEachShown(pszText,
                 [&](wchar_t ch, bool fMnemonic) { chFound = fMnemonic && !chFound ? ch : chFound; });
    if (!chFound) {
        return {};
    }
    CharUpperBuffW(&chFound, 1);
    return AccessString::Build(L"Alt+%c", chFound);
}

} // namespace gesso
