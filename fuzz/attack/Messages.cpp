// Messages that a window gets from anyone, with any numbers in them. Where a message holds a pointer it is a
// good one: the platform gives no other.

#include "Call.h"

#include <gesso/framework/Library.h>

#include <tests/support/User.h>

#include <algorithm>

namespace attack {

namespace {

// Both parameters are numbers, windows included.
constexpr UINT NUMBERS[] = {
    WM_SETFOCUS,
    WM_KILLFOCUS,
    WM_ENABLE,
    WM_SETREDRAW,
    WM_SHOWWINDOW,
    WM_CANCELMODE,
    WM_MOUSEMOVE,
    WM_LBUTTONDOWN,
    WM_LBUTTONUP,
    WM_LBUTTONDBLCLK,
    WM_RBUTTONDOWN,
    WM_RBUTTONUP,
    WM_RBUTTONDBLCLK,
    WM_MBUTTONDOWN,
    WM_MBUTTONUP,
    WM_MOUSEWHEEL,
    WM_MOUSEHWHEEL,
    WM_MOUSELEAVE,
    WM_MOUSEHOVER,
    WM_NCMOUSEMOVE,
    WM_NCLBUTTONDOWN,
    WM_NCLBUTTONUP,
    WM_NCLBUTTONDBLCLK,
    WM_NCRBUTTONDOWN,
    WM_NCMOUSELEAVE,
    WM_NCHITTEST,
    WM_NCPAINT,
    WM_NCACTIVATE,
    WM_SETCURSOR,
    WM_MOUSEACTIVATE,
    WM_CAPTURECHANGED,
    WM_KEYDOWN,
    WM_KEYUP,
    WM_CHAR,
    WM_DEADCHAR,
    WM_SYSKEYDOWN,
    WM_SYSKEYUP,
    WM_SYSCHAR,
    WM_UNICHAR,
    WM_HOTKEY,
    WM_HSCROLL,
    WM_VSCROLL,
    WM_TIMER,
    WM_SIZE,
    WM_MOVE,
    WM_PAINT,
    WM_SYSCOLORCHANGE,
    WM_FONTCHANGE,
    WM_DISPLAYCHANGE,
    WM_THEMECHANGED,
    WM_UPDATEUISTATE,
    WM_CHANGEUISTATE,
    WM_QUERYUISTATE,
    WM_GETTEXTLENGTH,
    WM_CUT,
    WM_COPY,
    WM_PASTE,
    WM_CLEAR,
    WM_UNDO,
    WM_CONTEXTMENU,
    WM_SYSCOMMAND,
    WM_ACTIVATE,
    WM_INPUTLANGCHANGE,
    WM_GETICON,
    WM_QUERYOPEN,
    WM_NULL,
    WM_ENTERIDLE,
    BM_CLICK,
    BM_GETCHECK,
    BM_SETCHECK,
    BM_SETSTATE,
    BM_GETSTATE,
    EM_SETSEL,
    EM_LIMITTEXT,
    CB_DELETESTRING,
    CB_RESETCONTENT,
    CB_GETCOUNT,
    CB_GETCURSEL,
    CB_SETCURSEL,
    CB_GETLBTEXTLEN,
    CB_SETEDITSEL,
    CB_LIMITTEXT,
    CB_SHOWDROPDOWN,
    CB_GETITEMDATA,
    CB_SETITEMDATA,
    CB_SETDROPPEDWIDTH,
    CB_GETTOPINDEX,
    CB_SETTOPINDEX,
    CB_GETDROPPEDSTATE,
    CB_GETDROPPEDWIDTH,
    CB_SETITEMHEIGHT,
    CB_GETITEMHEIGHT,
    CB_SETEXTENDEDUI,
    CB_SETMINVISIBLE,
    CB_INITSTORAGE,
    WM_CANCELMODE,
};

WPARAM AnyParameter(World& world, Source& source)
{
    switch (source.Below(6)) {
    case 0: return reinterpret_cast<WPARAM>(world.AnyWindow(source));
    case 1: return MAKEWPARAM(source.Integer(), source.Integer());
    case 2: return source.Bits();
    default: return static_cast<WPARAM>(static_cast<INT_PTR>(source.Integer()));
    }
}

// A key, a point inside or a code of scrolling: what a handler understands.
WPARAM Sensible(UINT uMsg, Source& source)
{
    static constexpr UINT KEYS[] = {VK_UP,    VK_DOWN,  VK_LEFT, VK_RIGHT,  VK_HOME,   VK_END,  VK_PRIOR,
                                    VK_NEXT,  VK_SPACE, VK_TAB,  VK_RETURN, VK_DELETE, VK_BACK, VK_F4,
                                    VK_SHIFT, 'A',      'V',     'X',       VK_ESCAPE};
    switch (uMsg) {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYDOWN: return source.Any(std::span<const UINT>(KEYS));
    case WM_HSCROLL:
    case WM_VSCROLL: return MAKEWPARAM(source.Below(9), source.Integer());
    case WM_MOUSEWHEEL: return MAKEWPARAM(0, static_cast<WORD>(source.Integer()));
    default: return source.Below(16);
    }
}

void SendNumbers(World& world, Source& source)
{
    const UINT uMsg = source.Any(std::span<const UINT>(NUMBERS));
    source.Note(desk::MessageName(uMsg));
    const bool fSensible = source.Chance(2);
    const WPARAM wParam = fSensible ? Sensible(uMsg, source) : AnyParameter(world, source);
    const LPARAM lParam = fSensible ? MAKELPARAM(source.Size(), source.Size())
                                    : static_cast<LPARAM>(AnyParameter(world, source));
    const bool fPosted = source.Chance(4);
    // A timer's second number is the address of its procedure.
    const LPARAM lSent = uMsg == WM_TIMER ? 0 : lParam;
    fPosted ? static_cast<void>(PostMessageW(world.Window(), uMsg, wParam, lSent))
            : static_cast<void>(SendMessageW(world.Window(), uMsg, wParam, lSent));
}

// Of no known meaning: the messages of the platform's newer controls take pointers.
void SendUnknown(World& world, Source& source)
{
    constexpr UINT BEHIND_CONTROLS = CBM_FIRST + 0x100;
    const UINT uMsg = source.Chance(2) ? WM_USER + source.Below(0x7800) : 0xC000 + source.Below(0x3FFF);
    if (uMsg >= ECM_FIRST && uMsg < BEHIND_CONTROLS) {
        return;
    }
    const WPARAM wParam = AnyParameter(world, source);
    SendMessageW(world.Window(), uMsg, wParam, static_cast<LPARAM>(AnyParameter(world, source)));
}

LPARAM Pointer(const void* p)
{
    return reinterpret_cast<LPARAM>(p);
}

void SendTexts(World& world, Source& source)
{
    static constexpr UINT MESSAGES[] = {WM_SETTEXT,       CB_ADDSTRING,    CB_INSERTSTRING,
                                        CB_FINDSTRING,    CB_SELECTSTRING, CB_FINDSTRINGEXACT,
                                        WM_SETTINGCHANGE, CB_SETCUEBANNER};
    const UINT uMsg = source.Any(std::span<const UINT>(MESSAGES));
    source.Note(desk::MessageName(uMsg));
    const Text text = source.AnyText();
    SendMessageW(world.Window(), uMsg, static_cast<WPARAM>(source.Integer()),
                 Pointer(static_cast<LPCWSTR>(text)));
}

void SendGetText(World& world, Source& source)
{
    const UINT nCapacity = source.Count(200);
    std::vector<wchar_t> buffer(nCapacity);
    SendMessageW(world.Window(), WM_GETTEXT, nCapacity, Pointer(buffer.data()));
}

void SendGetItemText(World& world, Source& source)
{
    const WPARAM wParam = static_cast<WPARAM>(source.Integer());
    const LRESULT nLength = SendMessageW(world.Window(), CB_GETLBTEXTLEN, wParam, 0);
    if (nLength >= 0) {
        std::vector<wchar_t> buffer(static_cast<size_t>(nLength) + 1);
        SendMessageW(world.Window(), CB_GETLBTEXT, wParam, Pointer(buffer.data()));
    }
}

void SendGetSelection(World& world, Source& source)
{
    DWORD aEnds[2]{};
    SendMessageW(world.Window(), source.Flag() ? UINT{CB_GETEDITSEL} : UINT{EM_GETSEL},
                 static_cast<WPARAM>(Pointer(&aEnds[0])), Pointer(&aEnds[1]));
}

// What the list of a combo box is like, and the cue.
void SendComboQueries(World& world, Source& source)
{
    RECT rc{};
    SendMessageW(world.Window(), CB_GETDROPPEDCONTROLRECT, 0, Pointer(&rc));
    COMBOBOXINFO info{};
    info.cbSize = source.Chance(4) ? source.Bits() : sizeof(info);
    SendMessageW(world.Window(), CB_GETCOMBOBOXINFO, 0, Pointer(&info));
    std::vector<wchar_t> cue(source.Count(20));
    SendMessageW(world.Window(), CB_GETCUEBANNER, static_cast<WPARAM>(Pointer(cue.data())),
                 static_cast<LPARAM>(cue.size()));
}

void SendFont(World& world, Source& source)
{
    const HFONT hFont = world.AnyFont(source);
    SendMessageW(world.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(hFont), source.Flag());
}

// What a control gives out is the host's from then on, but for the font that all share.
void SendGetFont(World& world, Source&)
{
    const auto hFont = reinterpret_cast<HFONT>(SendMessageW(world.Window(), WM_GETFONT, 0, 0));
    if (hFont != g_hDefaultFont) {
        world.Keep(hFont);
    }
}

void SendContext(World& world, Source& source)
{
    static constexpr UINT MESSAGES[] = {WM_PRINTCLIENT, WM_PRINTCLIENT, WM_PRINT, WM_ERASEBKGND,
                                        WM_CTLCOLORSTATIC};
    const UINT uMsg = source.Any(std::span<const UINT>(MESSAGES));
    source.Note(desk::MessageName(uMsg));
    const HDC hdc = world.AnyContext(source);
    SendMessageW(world.Window(), uMsg, reinterpret_cast<WPARAM>(hdc),
                 source.Chance(3) ? static_cast<LPARAM>(source.Bits()) : PRF_CLIENT | PRF_NONCLIENT);
}

void SendStyle(World& world, Source& source)
{
    STYLESTRUCT styles{source.Bits(), source.Bits()};
    SendMessageW(world.Window(), source.Flag() ? UINT{WM_STYLECHANGED} : UINT{WM_STYLECHANGING},
                 static_cast<WPARAM>(source.Flag() ? GWL_STYLE : GWL_EXSTYLE), Pointer(&styles));
}

void SendPosition(World& world, Source& source)
{
    WINDOWPOS pos{world.Window(),   world.AnyWindow(source), source.Integer(),      source.Integer(),
                  source.Integer(), source.Integer(),        source.Bits() & 0x1FFF};
    SendMessageW(world.Window(), source.Flag() ? UINT{WM_WINDOWPOSCHANGED} : UINT{WM_WINDOWPOSCHANGING}, 0,
                 Pointer(&pos));
}

void SendCalcSize(World& world, Source& source)
{
    WINDOWPOS pos{};
    // As large as windows are: the platform makes these itself.
    const RECT rc{0, 0, source.Size(), source.Size()};
    NCCALCSIZE_PARAMS params{{rc, rc, rc}, &pos};
    SendMessageW(world.Window(), WM_NCCALCSIZE, source.Flag(), Pointer(&params));
}

void SendGetDlgCode(World& world, Source& source)
{
    MSG msg{world.AnyWindow(source),
            source.Flag() ? UINT{WM_KEYDOWN} : UINT{WM_CHAR},
            static_cast<WPARAM>(source.Integer()),
            0,
            0,
            {}};
    SendMessageW(world.Window(), WM_GETDLGCODE, msg.wParam, source.Flag() ? Pointer(&msg) : 0);
}

} // namespace

void AddMessages(Table& table)
{
    Add(table, {
                   {"SendNumbers", SendNumbers, 24},
                   {"SendUnknown", SendUnknown},
                   {"SendTexts", SendTexts, 4},
                   {"SendGetText", SendGetText},
                   {"SendGetItemText", SendGetItemText},
                   {"SendGetSelection", SendGetSelection},
                   {"SendComboQueries", SendComboQueries},
                   {"SendFont", SendFont, 2},

                   {"SendContext", SendContext, 2, true},
                   {"SendStyle", SendStyle},
                   {"SendPosition", SendPosition},
                   {"SendCalcSize", SendCalcSize},
                   {"SendGetDlgCode", SendGetDlgCode},
                   {"SendGetFont", SendGetFont},
               });
}

// --- A user

namespace {

void PointAtWindow(World& world, Source& source)
{
    RECT rc{};
    GetWindowRect(world.Window(), &rc);
    const auto between = [&source](int nFrom, int nTo) {
        const int nFirst = std::clamp(nFrom, -0x8000, 0x8000);
        const auto nSize = static_cast<UINT>(std::clamp(std::clamp(nTo, -0x8000, 0x8000) - nFirst, 1, 2000));
        return nFirst + static_cast<int>(source.Below(nSize + 8)) - 4;
    };
    const int x = between(rc.left, rc.right);
    const int y = between(rc.top, rc.bottom);
    source.Note(std::to_string(x) + "," + std::to_string(y));
    test::user::MoveMouse(x, y);
}

desk::Button AnyButton(Source& source)
{
    return source.Chance(5) ? source.Chance(2) ? desk::Button::Right : desk::Button::Middle
                            : desk::Button::Left;
}

void UseMouse(World& world, Source& source)
{
    PointAtWindow(world, source);
    switch (source.Below(4)) {
    case 0: desk::PressButton(AnyButton(source)); break;
    case 1: desk::ReleaseButton(AnyButton(source)); break;
    case 2: {
        const desk::Button button = AnyButton(source);
        desk::PressButton(button);
        desk::ReleaseButton(button);
        break;
    }
    default: break;
    }
    if (source.Chance(2)) {
        desk::Pump();
    }
}

void DoubleClick(World& world, Source& source)
{
    for (int n = 0; n < 2; ++n) {
        if (n == 0) {
            PointAtWindow(world, source);
        }
        desk::PressButton();
        desk::ReleaseButton();
    }
    desk::Pump();
}

void UseKeys(World&, Source& source)
{
    static constexpr UINT KEYS[] = {VK_UP,    VK_DOWN, VK_LEFT,  VK_RIGHT,    VK_HOME,    VK_END,
                                    VK_PRIOR, VK_NEXT, VK_SPACE, VK_TAB,      VK_RETURN,  VK_DELETE,
                                    VK_BACK,  VK_F4,   VK_F2,    VK_ESCAPE,   'A',        'C',
                                    'V',      'X',     VK_ADD,   VK_SUBTRACT, VK_MULTIPLY};
    const UINT vk = source.Any(std::span<const UINT>(KEYS));
    source.Note("key " + std::to_string(vk));
    switch (source.Below(6)) {
    case 0: test::user::TypeKey(vk, {VK_CONTROL}); break;
    case 1: test::user::TypeKey(vk, {VK_SHIFT}); break;
    case 2: test::user::PressKey(vk); break;
    case 3: test::user::ReleaseKey(vk); break;
    case 4: test::user::TypeKey(vk, {VK_CONTROL, VK_SHIFT}); break;
    default: test::user::TypeKey(vk); break;
    }
    if (source.Chance(2)) {
        desk::Pump();
    }
}

void Type(World&, Source& source)
{
    static constexpr const char* TEXTS[] = {"a",        "Word and more", "\xF0\x9F\x98\x80",
                                            "\xCC\x81", "\xD7\x90",      "  "};
    test::user::TypeText(source.Any(std::span<const char* const>(TEXTS)));
    desk::Pump();
}

void TurnWheel(World&, Source& source)
{
    test::user::Wheel(std::clamp(source.Integer(), -0x8000, 0x7FFF));
    desk::Pump();
}

void LetTimePass(World&, Source& source)
{
    desk::LetPass(source.Below(source.Chance(4) ? 2000 : 60));
}

void FocusIt(World& world, Source&)
{
    SetFocus(world.Window());
}

void FillClipboard(World&, Source& source)
{
    static constexpr const char* TEXTS[] = {"", "clip", "two\r\nlines",
                                            "a very long line of many words that wraps"};
    desk::SetClipboardText(source.Any(std::span<const char* const>(TEXTS)));
}

} // namespace

void AddInput(Table& table)
{
    Add(table, {
                   {"UseMouse", UseMouse, 12},
                   {"DoubleClick", DoubleClick, 2},
                   {"UseKeys", UseKeys, 8},
                   {"Type", Type, 2},
                   {"TurnWheel", TurnWheel, 2},
                   {"LetTimePass", LetTimePass, 3},
                   {"Pump", [](World&, Source&) { desk::Pump(); }, 6},
                   {"Focus", FocusIt, 3},
                   {"SwitchAway", [](World&, Source&) { desk::SwitchAway(); }},
                   {"FillClipboard", FillClipboard},
               });
}

} // namespace attack
