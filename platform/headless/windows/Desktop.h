// The state of the simulated desktop: all that the window manager knows, in one place. The windows are the
// process's; the rest is kept for each thread. All of it stands under the one TableLock.
#pragma once

#include "../core/Area.h"
#include "../core/Arithmetic.h"
#include "../core/TableLock.h"
#include "../core/Text.h"

#include <deque>
#include <functional>
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

struct Desktop;

struct Window : std::enable_shared_from_this<Window>
{
    HWND handle = nullptr;
    WindowClass* windowClass = nullptr;
    std::shared_ptr<Desktop> desktop; // of the thread that made it; null for a root
    // The root of the thread's desktop for a top-level window; null for the root and for a dead one.
    Window* parent = nullptr;
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
    bool darkCaption = false;
    bool noInputContext = false; // no input method composes in it
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
    HWND to = nullptr;   // a mouse event that the user of another thread meant for this window
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

// What a thread asks of another one and waits for, unless nobody does: an answer to a message, mostly.
struct Request
{
    std::shared_ptr<Desktop> from;
    std::function<LRESULT()> call; // runs on the thread that is asked, with the lock held
    LRESULT answer = 0;
    bool begun = false;
    bool answered = false;
};
using RequestRef = std::shared_ptr<Request>;

// What threads have together whose windows are parents, children or owners of one another.
struct InputState
{
    HWND active = nullptr;
    HWND focus = nullptr;
    HWND capture = nullptr;
    bool elsewhere = false; // another program has the foreground
};

struct Clipboard
{
    bool open = false;
    DWORD thread = 0; // that opened it
    HWND opener = nullptr;
    HWND owner = nullptr; // who emptied it last
    std::map<UINT, HANDLE> data;
};

// The input method of a thread, which no user drives: programs compose by ImmSetCompositionStringW.
struct InputMethod
{
    HWND window = nullptr; // that had the focus last, until it hears that it has not
    bool composing = false;
    WideText composed;
    WideText result;
    COMPOSITIONFORM place{};
    std::array<CANDIDATEFORM, 4> candidates{};
    LOGFONTW font{};
};

// What one thread has of the desktop: its top-level windows, its queue, and a user and a clock of its own.
struct Desktop : std::enable_shared_from_this<Desktop>
{
    DWORD thread = 0;
    WindowRef root;
    bool hadWindows = false;    // if not, the thread's user acts on those of others
    ULONGLONG* clock = nullptr; // of core/Clock.h

    std::deque<RequestRef> requests; // of other threads
    std::vector<RequestRef> serving; // those that it is at, the innermost last
    std::condition_variable wake;
    bool woken = false;         // another thread did something since this one last looked
    bool waiting = false;       // in WaitForOthers
    bool readsMessages = false; // and that for any message, not just for an answer

    std::deque<MSG> posted;
    std::optional<int> quit;
    std::deque<InputEvent> input; // by serial
    uint64_t lastInput = 0;
    std::deque<std::function<void()>> idleActions;
    bool deadlocked = false;
    DWORD messageTime = 0;
    POINT messagePoint{};

    std::shared_ptr<InputState> shared = std::make_shared<InputState>();

    POINT pointer{};
    bool pointerStale = false; // windows changed under the pointer: it may be over another one
    HWND pointerWindow = nullptr;
    std::weak_ptr<Desktop> pointerGuest; // has the pointer over a window of its own meanwhile
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
    InputMethod inputMethod{};

    std::string menuChoice; // what the next menu that pops up is answered by
    std::string lastMenu;

    bool tracing = false;
    HWND traced = nullptr;
    std::vector<Message> trace;
    bool keepsEvents = false;
    std::vector<Event> events;
};

// The calling thread's.
Desktop& TheDesktop();
std::shared_ptr<Desktop> TheDesktopRef();
// Those of all threads that live and have used the desktop, the oldest first.
const std::vector<std::shared_ptr<Desktop>>& AllDesktops();
// Null for a thread that has none.
std::shared_ptr<Desktop> DesktopOf(DWORD thread);
// True for a window of another thread.
bool IsForeign(const Window& window);
// The same, with the last error set: for what only the thread of a window may do.
bool DenyForeign(const Window& window);
// The thread that an active window was last given to.
std::weak_ptr<Desktop>& Foreground();
// Gives the threads of two windows one focus, one active window and one capture.
void JoinInput(Desktop& kept, Desktop& other);
// True if the input of the two is joined.
bool AreJoined(const Desktop& a, const Desktop& b);
Clipboard& TheClipboard();

std::unordered_map<HWND, WindowRef>& Windows();
// The window of a handle; null, with the last error set, for a handle that is none.
WindowRef Find(HWND hwnd);
// The same without touching the last error.
WindowRef Peek(HWND hwnd);
// The bare desktop behind the calling thread's windows. Each thread has such a root, all with one handle.
Window& Root();
bool IsRoot(const Window* window);

// The nearest ancestor or self that is no child.
Window& TopLevelOf(Window& window);
// True if `window` lies below `ancestor`, or is it.
bool IsWithin(const Window& window, const Window& ancestor);
bool IsShown(const Window& window);  // visible with all its ancestors
bool IsUsable(const Window& window); // enabled with all its ancestors
// The top-level windows of a thread, topmost first.
std::vector<HWND> TopLevelsOf(const Desktop& desktop);
std::vector<HWND> OwnTopLevels(); // of the calling one

inline SIZE SizeOf(const RECT& r)
{
    return {Saturated(int64_t{r.right} - r.left), Saturated(int64_t{r.bottom} - r.top)};
}
inline bool SameRect(const RECT& a, const RECT& b)
{
    return EqualRect(&a, &b);
}

// A mirrored window counts its client area from the right edge, as Wine does: the screen's x is the edge less
// the client's x, for points as for edges. So the rightmost pixel is at 1, and the leftmost one at the width.
inline bool IsMirrored(const Window& window)
{
    return (window.exStyle & WS_EX_LAYOUTRTL) != 0;
}
POINT ToScreen(const Window& window, POINT client);
RECT ToScreen(const Window& window, const RECT& client);
Area ToScreen(const Window& window, const Area& client);
POINT ToClient(const Window& window, POINT screen);
RECT ToClient(const Window& window, const RECT& screen);
Area ToClient(const Window& window, const Area& screen);
// The layout of windows without a parent or an owner.
DWORD& DefaultLayout();

} // namespace gesso::headless
