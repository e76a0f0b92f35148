#include "Keyboard.h"
#include "Input.h"
#include "Queue.h"

#include "../core/TableLock.h"

namespace gesso::headless {
namespace {

constexpr BYTE DOWN = 0x80;
constexpr BYTE TOGGLED = 0x01;

constexpr LPARAM EXTENDED_BIT = 1 << 24;
constexpr LPARAM CONTEXT_BIT = 1 << 29;
constexpr LPARAM WAS_DOWN_BIT = 1 << 30;
constexpr LPARAM RELEASED_BIT = LPARAM{1} << 31;

struct PunctuationKey
{
    UINT vk;
    char16_t plain;
    char16_t shifted;
};

constexpr PunctuationKey PUNCTUATION[] = {
    {VK_SPACE, ' ', ' '},     {VK_OEM_1, ';', ':'},      {VK_OEM_PLUS, '=', '+'}, {VK_OEM_COMMA, ',', '<'},
    {VK_OEM_MINUS, '-', '_'}, {VK_OEM_PERIOD, '.', '>'}, {VK_OEM_2, '/', '?'},    {VK_OEM_3, '`', '~'},
    {VK_OEM_4, '[', '{'},     {VK_OEM_5, '\\', '|'},     {VK_OEM_6, ']', '}'},    {VK_OEM_7, '\'', '"'},
    {VK_MULTIPLY, '*', '*'},  {VK_ADD, '+', '+'},        {VK_SUBTRACT, '-', '-'}, {VK_DECIMAL, '.', '.'},
    {VK_DIVIDE, '/', '/'},
};
constexpr char16_t SHIFTED_DIGITS[] = u")!@#$%^&*(";

bool IsLetter(UINT vk)
{
    return vk >= 'A' && vk <= 'Z';
}

bool IsDigit(UINT vk)
{
    return vk >= '0' && vk <= '9';
}

bool IsExtended(UINT vk)
{
    switch (vk) {
    case VK_PRIOR:
    case VK_NEXT:
    case VK_END:
    case VK_HOME:
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_INSERT:
    case VK_DELETE:
    case VK_DIVIDE:
    case VK_APPS:
    case VK_RCONTROL:
    case VK_RMENU: return true;
    default: return false;
    }
}

// The key that stands for both the left and the right one.
UINT SharedKey(UINT vk)
{
    switch (vk) {
    case VK_LSHIFT:
    case VK_RSHIFT: return VK_SHIFT;
    case VK_LCONTROL:
    case VK_RCONTROL: return VK_CONTROL;
    case VK_LMENU:
    case VK_RMENU: return VK_MENU;
    default: return vk;
    }
}

bool Holds(UINT vk)
{
    return (TheDesktop().keysSeen[vk] & DOWN) != 0;
}

// Control characters: with Ctrl held, letters and a few more.
std::optional<char16_t> ControlCharacter(UINT vk)
{
    if (IsLetter(vk)) {
        return static_cast<char16_t>(vk - 'A' + 1);
    }
    switch (vk) {
    case VK_BACK: return u'\x7F';
    case VK_RETURN: return u'\n';
    case VK_ESCAPE: return u'\x1B';
    case VK_SPACE: return u' ';
    case VK_OEM_4: return u'\x1B';
    case VK_OEM_5: return u'\x1C';
    case VK_OEM_6: return u'\x1D';
    default: return std::nullopt;
    }
}

std::optional<char16_t> PrintedCharacter(UINT vk, bool shift)
{
    if (IsDigit(vk)) {
        return shift ? SHIFTED_DIGITS[vk - '0'] : static_cast<char16_t>(vk);
    }
    if (vk >= VK_NUMPAD0 && vk <= VK_NUMPAD9) {
        return static_cast<char16_t>(u'0' + (vk - VK_NUMPAD0));
    }
    for (const PunctuationKey& key : PUNCTUATION) {
        if (key.vk == vk) {
            return shift ? key.shifted : key.plain;
        }
    }
    return std::nullopt;
}

std::optional<char16_t> PlainCharacter(UINT vk)
{
    const bool shift = Holds(VK_SHIFT);
    const bool capital = shift != ((TheDesktop().keysSeen[VK_CAPITAL] & TOGGLED) != 0);
    if (IsLetter(vk)) {
        return static_cast<char16_t>(capital ? vk : vk + ('a' - 'A'));
    }
    switch (vk) {
    case VK_BACK: return u'\b';
    case VK_TAB: return u'\t';
    case VK_RETURN: return u'\r';
    case VK_ESCAPE: return u'\x1B';
    default: return PrintedCharacter(vk, shift);
    }
}

std::optional<char16_t> CharacterOf(const MSG& message)
{
    const UINT vk = LOWORD(message.wParam);
    if (vk == VK_PACKET) {
        return static_cast<char16_t>(HIWORD(message.wParam));
    }
    // Ctrl and Alt together make no control characters.
    return Holds(VK_CONTROL) && !Holds(VK_MENU) ? ControlCharacter(vk) : PlainCharacter(vk);
}

} // namespace

void SeeKeys(const InputEvent& event, bool remove)
{
    if (!remove) {
        return;
    }
    const auto press = [](UINT vk, bool down) {
        BYTE& state = TheDesktop().keysSeen[vk];
        const bool wasDown = (state & DOWN) != 0;
        const auto toggled = static_cast<BYTE>((state ^ (down && !wasDown ? TOGGLED : 0)) & TOGGLED);
        state = static_cast<BYTE>((down ? DOWN : 0) | toggled);
    };
    switch (event.message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP: press(VK_LBUTTON, event.message == WM_LBUTTONDOWN); break;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP: press(VK_RBUTTON, event.message == WM_RBUTTONDOWN); break;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP: press(VK_MBUTTON, event.message == WM_MBUTTONDOWN); break;
    case WM_KEYDOWN: {
        const UINT vk = LOWORD(event.wParam) & 0xFF;
        press(vk, !event.released);
        if (SharedKey(vk) != vk) {
            press(SharedKey(vk), !event.released);
        }
        break;
    }
    default: break;
    }
}

bool KeyMessage(const InputEvent& event, MSG& message)
{
    Desktop& desktop = TheDesktop();
    const HWND hwnd = desktop.shared->focus ? desktop.shared->focus : desktop.shared->active;
    if (!hwnd) {
        return false;
    }
    const UINT vk = LOWORD(event.wParam);
    const bool alt = Holds(VK_MENU) || SharedKey(vk) == VK_MENU;
    const bool system = !desktop.shared->focus || vk == VK_F10 || (alt && !Holds(VK_CONTROL));
    UINT kind = system ? WM_SYSKEYDOWN : WM_KEYDOWN;
    LPARAM lParam = 1 | (IsExtended(vk) ? EXTENDED_BIT : 0) | (alt ? CONTEXT_BIT : 0);
    if (event.released) {
        kind += WM_KEYUP - WM_KEYDOWN;
        lParam |= WAS_DOWN_BIT | RELEASED_BIT;
    } else if (HIWORD(event.wParam) != 0 && vk != VK_PACKET) {
        lParam |= WAS_DOWN_BIT;
    }
    const WPARAM wParam = vk == VK_PACKET ? event.wParam : SharedKey(vk);
    message = {hwnd, kind, wParam, lParam, static_cast<DWORD>(event.time), event.point};
    return true;
}

UINT KeyOf(char16_t character, bool& shift)
{
    const bool capital = character >= 'A' && character <= 'Z';
    const bool lower = character >= 'a' && character <= 'z';
    shift = capital;
    if (capital || lower) {
        return capital ? character : character - ('a' - 'A');
    }
    if (character >= '0' && character <= '9') {
        return character;
    }
    switch (character) {
    case '\b': return VK_BACK;
    case '\t': return VK_TAB;
    case '\r':
    case '\n': return VK_RETURN;
    default: break;
    }
    for (const PunctuationKey& key : PUNCTUATION) {
        if (key.plain == character || key.shifted == character) {
            shift = key.plain != character;
            return key.vk;
        }
    }
    for (UINT digit = 0; digit < 10; ++digit) {
        if (SHIFTED_DIGITS[digit] == character) {
            shift = true;
            return '0' + digit;
        }
    }
    return 0;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI TranslateMessage(const MSG* message)
{
    const TableLock lock;
    const bool system = message->message == WM_SYSKEYDOWN;
    if (message->message != WM_KEYDOWN && !system) {
        return message->message == WM_KEYUP || message->message == WM_SYSKEYUP;
    }
    if (const auto character = CharacterOf(*message)) {
        Post(message->hwnd, system ? WM_SYSCHAR : WM_CHAR, *character, message->lParam);
    }
    return TRUE;
}

SHORT WINAPI GetKeyState(int vk)
{
    const TableLock lock;
    const BYTE state = TheDesktop().keysSeen[static_cast<size_t>(vk & 0xFF)];
    return static_cast<SHORT>(((state & DOWN) ? 0xFF80 : 0) | (state & TOGGLED));
}

SHORT WINAPI GetAsyncKeyState(int vk)
{
    const TableLock lock;
    const BYTE state = TheDesktop().keysNow[static_cast<size_t>(vk & 0xFF)];
    return static_cast<SHORT>((state & DOWN) ? 0x8000 : 0);
}

BOOL WINAPI GetKeyboardState(PBYTE states)
{
    const TableLock lock;
    std::memcpy(states, TheDesktop().keysSeen.data(), TheDesktop().keysSeen.size());
    return TRUE;
}

BOOL WINAPI SetKeyboardState(LPBYTE states)
{
    const TableLock lock;
    std::memcpy(TheDesktop().keysSeen.data(), states, TheDesktop().keysSeen.size());
    return TRUE;
}
}
