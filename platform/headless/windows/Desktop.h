// The state of the simulated desktop: all that the window manager knows, in one place. Every thread has its
// own.
#pragma once

#include "../core/Area.h"
#include "../core/Arithmetic.h"
#include "../core/Text.h"

#include <deque>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

namespace gesso::headless {

struct WindowClass
{
    ATOM atom;
    WideText name;
    WNDCLASSEXW data;
    int windows = 0; // that live
};

// One standard scroll bar of a window, or the bar of a scroll bar control.
struct ScrollBar
{
    int min = 0;
    int max = 100;
    UINT page = 0;
    int position = 0;
    bool known = false; // set at least once
};

// What a dialog box keeps beyond its extra bytes.
struct DialogState
{
    HWND focus = nullptr; // has the focus when the dialog is active
    UINT defaultId = 0;   // 0 for none
    HFONT font = nullptr; // owned
    bool ended = false;
    bool ownerDisabled = false; // by the modal loop, which enables it again
    INT_PTR result = 0;
};

struct Window : std::enable_shared_from_this<Window>
{
    HWND handle = nullptr;
    WindowClass* windowClass = nullptr;
    Window* parent =
        nullptr; // the desktop's root for a top-level window; null for the root and for a dead one
    HWND owner = nullptr;
    std::vector<Window*> children; // topmost first

    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    HINSTANCE instance = nullptr;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    std::vector<BYTE> extra;
    WideText text;
    std::map<WideText, HANDLE> properties;

    RECT frame{};  // the whole window, on the screen
    RECT client{}; // the client area, on the screen
    ScrollBar bars[2];

    Area invalid; // of the client area, in client coordinates
    bool frameInvalid = false;
    bool eraseInvalid = false;
    bool sizePending = false; // WM_SIZE and WM_MOVE are due with the first showing
    int failedPaints = 0;     // BeginPaints in a row, since a loop last had nothing else to do
    bool beingDestroyed = false;
    bool alive = true;
    WORD uiState = 0;
    std::unique_ptr<DialogState> dialog;

    bool IsChild() const { return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD; }
    bool Has(DWORD bits) const { return (style & bits) == bits; }
};
using WindowRef = std::shared_ptr<Window>;

struct Timer
{
    HWND hwnd;
    UINT_PTR id;
    UINT period;
    ULONGLONG due;
    TIMERPROC procedure;
};

// What a user did, before it has found a window. A mouse event is kept as its client message.
struct InputEvent
{
    UINT message;
    WPARAM wParam; // the virtual key, or the wheel's delta
    POINT point;
    ULONGLONG time;
    bool released;      // of a key
    bool apart = false; // a press that makes no double-click with the one before
    uint64_t serial = 0;
    bool inWork = false; // a loop is finding out whose it is; loops within that one pass it over
};

struct PointerTracking
{
    HWND hwnd = nullptr;
    bool nonClient = false;
};

struct LastPress
{
    UINT message = 0;
    HWND hwnd = nullptr;
    POINT point{};
    ULONGLONG time = 0;
};

struct Clipboard
{
    bool open = false;
    HWND opener = nullptr;
    HWND owner = nullptr; // who emptied it last
    std::map<UINT, HANDLE> data;
};

struct Desktop
{
    std::unordered_map<HWND, WindowRef> windows;
    WindowRef root;

    std::deque<MSG> posted;
    std::optional<int> quit;
    std::deque<InputEvent> input; // by serial
    uint64_t lastInput = 0;
    std::deque<std::function<void()>> idleActions;
    bool deadlocked = false;
    DWORD messageTime = 0;
    POINT messagePoint{};

    HWND active = nullptr;
    HWND focus = nullptr;
    HWND capture = nullptr;
    bool elsewhere = false; // another program has the foreground

    POINT pointer{};
    bool pointerStale = false; // windows changed under the pointer: it may be over another one
    HWND pointerWindow = nullptr;
    PointerTracking tracking;
    LastPress lastPress;
    std::array<BYTE, 256> keysNow{};  // as the user holds them
    std::array<BYTE, 256> keysSeen{}; // as of the last message taken
    bool keyboardLast = false;        // the last input came from the keyboard
    HCURSOR cursor = nullptr;
    int cursorShown = 0;

    std::list<Timer> timers; // counted by address
    UINT_PTR nextTimer = 1;

    CaretState caret{};
    int caretHidden = 0;
    Clipboard clipboard;

    bool tracing = false;
    HWND traced = nullptr;
    std::vector<Message> trace;
};

Desktop& TheDesktop();

// The window of a handle; null, with the last error set, for a handle that is none.
WindowRef Find(HWND hwnd);
// The same without touching the last error.
WindowRef Peek(HWND hwnd);
Window& Root();

// The nearest ancestor or self that is no child.
Window& TopLevelOf(Window& window);
// True if `window` lies below `ancestor`, or is it.
bool IsWithin(const Window& window, const Window& ancestor);
bool IsShown(const Window& window);  // visible with all its ancestors
bool IsUsable(const Window& window); // enabled with all its ancestors
bool IsTopLevel(const Window& window);

inline SIZE SizeOf(const RECT& r)
{
    return {Saturated(int64_t{r.right} - r.left), Saturated(int64_t{r.bottom} - r.top)};
}
inline bool SameRect(const RECT& a, const RECT& b)
{
    return EqualRect(&a, &b);
}

} // namespace gesso::headless
