#include "WindowFacts.h"

#include <algorithm>

namespace gesso::headless {
namespace {

bool IsOfClass(HWND hwnd, WideView name)
{
    const TableLock lock;
    const WindowRef window = Peek(hwnd);
    return window && EqualIgnoringCase(window->windowClass->name, name);
}

DWORD StyleOf(HWND hwnd)
{
    const TableLock lock;
    const WindowRef window = Peek(hwnd);
    return window ? window->style : 0;
}

bool IsButton(HWND hwnd)
{
    return IsOfClass(hwnd, u"BUTTON");
}

bool IsStatic(HWND hwnd)
{
    return IsOfClass(hwnd, u"STATIC");
}

DWORD ButtonRole(DWORD style)
{
    switch (style & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE: return ROLE_SYSTEM_CHECKBUTTON;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON: return ROLE_SYSTEM_RADIOBUTTON;
    case BS_GROUPBOX: return ROLE_SYSTEM_GROUPING;
    default: return ROLE_SYSTEM_PUSHBUTTON;
    }
}

DWORD StaticRole(DWORD style)
{
    switch (style & SS_TYPEMASK) {
    case SS_ICON:
    case SS_BITMAP:
    case SS_ENHMETAFILE: return ROLE_SYSTEM_GRAPHIC;
    case SS_ETCHEDHORZ:
    case SS_ETCHEDVERT:
    case SS_ETCHEDFRAME: return ROLE_SYSTEM_SEPARATOR;
    default: return ROLE_SYSTEM_STATICTEXT;
    }
}

DWORD ClientRole(HWND hwnd)
{
    const DWORD style = StyleOf(hwnd);
    return IsButton(hwnd)               ? ButtonRole(style)
           : IsStatic(hwnd)             ? StaticRole(style)
           : IsField(hwnd)              ? ROLE_SYSTEM_TEXT
           : IsOfClass(hwnd, u"#32770") ? ROLE_SYSTEM_DIALOG
                                        : ROLE_SYSTEM_CLIENT;
}

bool IsBar(LONG object)
{
    return object == OBJID_VSCROLL || object == OBJID_HSCROLL;
}

DWORD ButtonState(HWND hwnd)
{
    const DWORD isDefault = (StyleOf(hwnd) & BS_TYPEMASK) == BS_DEFPUSHBUTTON ? STATE_SYSTEM_DEFAULT : 0;
    switch (SendMessageW(hwnd, BM_GETCHECK, 0, 0)) {
    case BST_CHECKED: return isDefault | STATE_SYSTEM_CHECKED;
    case BST_INDETERMINATE: return isDefault | STATE_SYSTEM_MIXED;
    default: return isDefault;
    }
}

DWORD FieldState(HWND hwnd)
{
    const DWORD style = StyleOf(hwnd);
    return (style & ES_READONLY ? STATE_SYSTEM_READONLY : 0) |
           (style & ES_PASSWORD ? STATE_SYSTEM_PROTECTED : 0);
}

DWORD ClientState(HWND hwnd)
{
    if (IsStatic(hwnd)) {
        return STATE_SYSTEM_READONLY;
    }
    if (ClientRole(hwnd) == ROLE_SYSTEM_GROUPING) {
        return 0;
    }
    const DWORD focusable = IsWindowEnabled(hwnd) ? STATE_SYSTEM_FOCUSABLE : 0;
    const DWORD focused = FocusBeside(hwnd) == hwnd ? STATE_SYSTEM_FOCUSED : 0;
    return focusable | focused | (IsButton(hwnd) ? ButtonState(hwnd) : IsField(hwnd) ? FieldState(hwnd) : 0);
}

DWORD BarState(HWND hwnd, LONG object)
{
    return StyleOf(hwnd) & (object == OBJID_VSCROLL ? WS_VSCROLL : WS_HSCROLL) ? 0 : STATE_SYSTEM_INVISIBLE;
}

CaretState CaretIn(HWND hwnd)
{
    const TableLock lock;
    const WindowRef window = Peek(hwnd);
    const bool here = window && window->desktop && window->desktop->caret.hwnd == hwnd;
    return here ? window->desktop->caret : CaretState{};
}

DWORD PartState(HWND hwnd, LONG object)
{
    if (IsBar(object)) {
        return BarState(hwnd, object);
    }
    if (object == OBJID_CARET) {
        return CaretIn(hwnd).visible ? 0 : STATE_SYSTEM_INVISIBLE;
    }
    const DWORD unavailable = IsWindowEnabled(hwnd) ? 0 : STATE_SYSTEM_UNAVAILABLE;
    const DWORD own = object == OBJID_CLIENT ? ClientState(hwnd) : unavailable ? 0 : STATE_SYSTEM_FOCUSABLE;
    return unavailable | own;
}

WideText TextOf(HWND hwnd)
{
    const int length = GetWindowTextLengthW(hwnd);
    WideText text(static_cast<size_t>(std::max(length, 0)) + 1, u'\0');
    text.resize(static_cast<size_t>(
        GetWindowTextW(hwnd, reinterpret_cast<LPWSTR>(text.data()), static_cast<int>(text.size()))));
    return text;
}

// The text of the window, or for a field that of the static before it: what is hidden is looked past, and
// whatever else the user can tab to ends the search.
WideText LabelOf(HWND hwnd)
{
    if (!IsField(hwnd)) {
        return TextOf(hwnd);
    }
    for (HWND at = GetWindow(hwnd, GW_HWNDPREV); at; at = GetWindow(at, GW_HWNDPREV)) {
        const DWORD style = StyleOf(at);
        if ((style & WS_VISIBLE) && (SendMessageW(at, WM_GETDLGCODE, 0, 0) & DLGC_STATIC)) {
            return TextOf(at);
        }
        if (style & WS_TABSTOP) {
            break;
        }
    }
    return {};
}

// Two ampersands stand for one; one marks the character behind it.
WideText WithoutMark(const WideText& text)
{
    WideText plain;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool marks = text[i] == u'&' && i + 1 < text.size();
        i += marks ? 1 : 0;
        plain += text[i];
    }
    return plain;
}

char16_t Mnemonic(const WideText& text)
{
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == u'&' && text[++i] != u'&') {
            return text[i];
        }
    }
    return 0;
}

WideText BarValue(HWND hwnd, LONG object)
{
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    GetScrollInfo(hwnd, object == OBJID_VSCROLL ? SB_VERT : SB_HORZ, &info);
    const int64_t range = int64_t{info.nMax} - info.nMin - std::max<int64_t>(int64_t{info.nPage} - 1, 0);
    const int64_t done = int64_t{info.nPos} - info.nMin;
    return FromUtf8(std::to_string(range > 0 ? done * 100 / range : 0) + "%");
}

} // namespace

bool IsField(HWND hwnd)
{
    return IsOfClass(hwnd, u"EDIT");
}

bool IsPassword(HWND hwnd)
{
    return IsField(hwnd) && (StyleOf(hwnd) & ES_PASSWORD);
}

HWND FocusBeside(HWND hwnd)
{
    const TableLock lock;
    const WindowRef window = Peek(hwnd);
    return window && window->desktop ? window->desktop->shared->focus : nullptr;
}

std::vector<HWND> ChildWindows(HWND hwnd)
{
    const TableLock lock;
    std::vector<HWND> children;
    if (const WindowRef window = Peek(hwnd)) {
        for (const Window* child : window->children) {
            children.push_back(child->handle);
        }
    }
    return children;
}

DWORD RoleOf(HWND hwnd, LONG object)
{
    return object == OBJID_WINDOW  ? ROLE_SYSTEM_WINDOW
           : object == OBJID_CARET ? ROLE_SYSTEM_CARET
           : IsBar(object)         ? ROLE_SYSTEM_SCROLLBAR
                                   : ClientRole(hwnd);
}

DWORD StateOf(HWND hwnd, LONG object)
{
    return IsWindow(hwnd) ? (IsWindowVisible(hwnd) ? 0 : STATE_SYSTEM_INVISIBLE) | PartState(hwnd, object)
                          : STATE_SYSTEM_INVISIBLE;
}

WideText NameOf(HWND hwnd, LONG object)
{
    return object == OBJID_VSCROLL   ? u"Vertical"
           : object == OBJID_HSCROLL ? u"Horizontal"
           : object == OBJID_CARET   ? WideText()
           : object == OBJID_WINDOW  ? TextOf(hwnd)
                                     : WithoutMark(LabelOf(hwnd));
}

WideText ShortcutOf(HWND hwnd, LONG object)
{
    const char16_t mnemonic = object == OBJID_CLIENT ? Mnemonic(LabelOf(hwnd)) : u'\0';
    return mnemonic ? WideText(u"Alt+") + mnemonic : WideText();
}

WideText ValueOf(HWND hwnd, LONG object)
{
    return IsBar(object)                             ? BarValue(hwnd, object)
           : object == OBJID_CLIENT && IsField(hwnd) ? TextOf(hwnd)
                                                     : WideText();
}

WideText ActionOf(HWND hwnd, LONG object)
{
    if (object != OBJID_CLIENT || !IsButton(hwnd)) {
        return {};
    }
    const bool checked = (ButtonState(hwnd) & STATE_SYSTEM_CHECKED) != 0;
    switch (ButtonRole(StyleOf(hwnd))) {
    case ROLE_SYSTEM_CHECKBUTTON: return checked ? u"Uncheck" : u"Check";
    case ROLE_SYSTEM_RADIOBUTTON: return u"Check";
    case ROLE_SYSTEM_PUSHBUTTON: return u"Press";
    default: return {};
    }
}

RECT PlaceOf(HWND hwnd, LONG object)
{
    const TableLock lock;
    const WindowRef window = Peek(hwnd);
    if (!window) {
        return {};
    }
    const RECT& frame = window->frame;
    const RECT& client = window->client;
    switch (object) {
    case OBJID_CLIENT: return client;
    case OBJID_VSCROLL: return {client.right, client.top, frame.right, client.bottom};
    case OBJID_HSCROLL: return {client.left, client.bottom, client.right, frame.bottom};
    case OBJID_CARET: {
        const CaretState caret = CaretIn(hwnd);
        return ToScreen(*window, Spanned(caret.position.x, caret.position.y, caret.size.cx, caret.size.cy));
    }
    default: return frame;
    }
}

} // namespace gesso::headless
