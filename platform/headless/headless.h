// The driver of the simulated desktop: what a test has in the place of a user, a clock and a pair of eyes.
//
// Tests include this header beside platform/platform.h, make windows with the platform's own operations, act
// as a user with the operations below, call Pump(), and look at what came of it. Coordinates are pixels;
// those of the pointer are screen coordinates. Text is UTF-8. docs/headless.md shows it at work.
//
// Each thread has windows, a queue, a user, a clock, a trace and faults of its own, and the operations below
// act on those of the calling thread. All threads see all windows, and send and post to them. A thread's user
// acts on its windows and on those of threads that are joined with it by a parent or an owner; while a thread
// has never had a window, on everybody's: so a test drives windows that run on threads of their own.
#pragma once

#include "../platform.h"

#include <array>
#include <functional>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace gesso {
// What a thing is to accessibility clients: the platform's ROLE_SYSTEM_ values, named in gesso/access/Role.h.
enum class Role : UINT;
} // namespace gesso

namespace gesso::headless {

// --- The desktop as a whole ---

// Gives the calling thread a fresh desktop: destroys every window of it, sets the clock to zero and the
// pointer to the screen's last pixel, and clears queues, key states, clipboard, records, faults and settings.
// Window classes, graphics objects and the library's own globals stay, as they would in a process that goes
// on. Call it at the start of each test, with no modal loop running.
void Reset();

// The top-level windows of the calling thread, topmost first, visible or not.
std::vector<HWND> TopLevelWindows();
// Those of another thread.
std::vector<HWND> TopLevelWindows(DWORD thread);

// The module handles of the program and of the library. The library's entry point has run before `main`.
HMODULE HostModule();
HMODULE LibraryModule();

// --- Resources ---

// The library has the resources that it was built with; a test or a host adds those that it needs. They stay
// until they are removed.

// Adds a resource, or replaces the one of that type and name; both are texts or MAKEINTRESOURCEW.
void AddResource(HMODULE module, LPCWSTR type, LPCWSTR name, std::span<const std::byte> bytes);
// Adds one text to the module's string tables.
void AddString(HMODULE module, UINT id, std::string_view text);
// Adds all of a compiled resource file (.res, as `windres -O res` makes it). False if the file is cut off.
bool AddResourceFile(HMODULE module, std::span<const std::byte> file);
// Drops what was added to the module.
void RemoveResources(HMODULE module);

// --- Input ---

// Input is queued as a user's would be, and finds its window when a message loop takes it out: by capture,
// focus, or hit-testing. Nothing is delivered before Pump(), or before a loop of the program's own runs.

enum class Button
{
    Left,
    Right,
    Middle
};

// Moves the pointer. Moves that follow one another in the queue become one, as the platform does it.
void MoveMouse(int x, int y);
// Presses or releases a button where the pointer is.
void PressButton(Button button = Button::Left);
void ReleaseButton(Button button = Button::Left);
// Moves the pointer, presses and releases: once, or twice within the double-click time. The clock moves on
// past the double-click time first, so that a click never makes a pair with one before it.
void Click(int x, int y, Button button = Button::Left);
void DoubleClick(int x, int y, Button button = Button::Left);
// Turns the wheel by `delta`, 120 being one notch away from the user. It goes to the window with the focus.
void Wheel(int delta);

// Presses or releases a key by its virtual code. A press of a key that is down already is a repeat.
void PressKey(UINT vk);
void ReleaseKey(UINT vk);
// Presses and releases a key, with modifier keys (VK_SHIFT, VK_CONTROL, VK_MENU) held around it.
void TypeKey(UINT vk, std::initializer_list<UINT> modifiers = {});
// Types a text, character by character, in the American layout; what that layout lacks comes as VK_PACKET.
void TypeText(std::string_view text);

// Gives another program the foreground, as Alt+Tab would: this one's active window is active no longer.
void SwitchAway();

// --- Things by what they are ---

// As a user acts who knows what a thing is and what it is called, and not where it lies. Each finds the one
// thing of that role and name that can be seen in a visible top-level window of the calling thread: in the
// active window, if that is enabled and has such a thing, or else in all. It asks for it by IAccessible
// alone, so that windows of any class are found that answer WM_GETOBJECT, and the platform's own by what the
// platform says of them. Where there is none it lets time pass, up to five seconds of the clock, for whatever
// timers will bring it. What they do is pumped before they return.
//
// False, with the reason and with what is there on the standard error stream, where there is none or more
// than one, where it is unavailable, or where it does not do what is asked. Of an object's children the first
// 10000 are looked at. Where the action opens a modal dialog, the call comes back when that is over: say by
// WhenIdle beforehand what is to happen there, which may use these operations too.

// Does what is done by default: presses a button, ticks a box, opens an item.
bool Press(Role role, std::string_view name);
// Gives it the focus and this text as its value, as typing would.
bool Fill(Role role, std::string_view name, std::string_view text);
// Selects an item of it: of a list or a tree, of a combo box, which is opened for it and closed again, of a
// menu, or a page of a ribbon.
bool Choose(Role role, std::string_view name, std::string_view item);
// Only looks whether it is there.
bool Expect(Role role, std::string_view name);

// --- Message loops and time ---

// Dispatches all that is pending: posted messages, input, paints, due timers. False if it met WM_QUIT, which
// it takes out of the queue. The second form offers each message to IsDialogMessageW first.
bool Pump();
bool Pump(HWND dialog);

// Moves the clock on by `milliseconds`, stopping at each timer that falls due, in order, to dispatch what is
// pending there. The clock moves in no other way.
void Advance(DWORD milliseconds);
// Milliseconds since Reset().
ULONGLONG Now();

// Waits until another thread that runs a message loop has nothing left to do: no message, no timer due. False
// if it ended, or did not come to rest while nothing happened on the desktop for ten seconds.
bool WaitUntilIdle(DWORD thread);
// Moves the clock of such a thread on, as Advance does: the thread itself dispatches at each timer.
bool Advance(DWORD milliseconds, DWORD thread);

// Queues an action. Each time that a GetMessageW or WaitMessage of the program finds nothing to do, the next
// action runs in its place: so a test drives a modal loop from within. With no action left the loop waits for
// other threads. Where none is there that could wake it, or nothing happened on the desktop for ten seconds,
// it is ended by WM_QUIT, and Deadlocked() says so until Reset(). It also says so of a message to another
// thread that did not look for so long; the message is then not sent.
void WhenIdle(std::function<void()> action);
bool Deadlocked();

// --- What went on ---

// One message as a window got it. `posted` tells a message that came through the queue from one that was
// sent.
struct Message
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    bool posted;
};

// Starts keeping the messages that `hwnd` gets, whichever thread it is of, or those of all windows of the
// calling thread with null, and forgets those kept so far.
void StartTrace(HWND hwnd = nullptr);
// Ends the trace and gives what was kept, in the order in which the window procedures were entered.
std::vector<Message> StopTrace();
// "WM_CREATE", or "0x0465" for a message with no name here.
std::string MessageName(UINT message);

// An event for accessibility clients: what NotifyWinEvent was given.
struct Event
{
    DWORD event;
    HWND hwnd;
    LONG object; // OBJID_CLIENT, ...
    LONG child;  // CHILDID_SELF, or a child's

    bool operator==(const Event&) const = default;
};
// "EVENT_OBJECT_FOCUS OBJID_CLIENT 3", without the window.
std::ostream& operator<<(std::ostream& out, const Event& event);

// Starts keeping the events of the calling thread, whether a hook of SetWinEventHook hears them or not, and
// forgets those kept so far.
void StartEvents();
// Ends that and gives what was kept, in order.
std::vector<Event> StopEvents();
// "EVENT_OBJECT_FOCUS", or "0x8123" for an event with no name here.
std::string EventName(DWORD event);

// What was drawn into the window since its last ClearDrawing, one line an operation, in order:
//   DrawThemeBackground BUTTON 1 3 (0,0,100,30)
//   DrawTextW "Hello" (0,0,100,30) 0x0025 font="Segoe UI" 12 color=000000
// What is drawn into a memory bitmap is kept with the bitmap and joins the window's record when the bitmap is
// copied there. Coordinates are those of the call. Behind them a line tells, where it is so, the background
// that a text fills (back=FFFFFF), the place of a moved origin (origin=(-10,-20)), the clip region's
// rectangles (clip=(0,0,50,10)), that the context is the whole window's (nonclient), and that it is mirrored
// (mirrored): then all of these count from the right edge. Rectangles are (left,top,right, bottom), colours
// RRGGBB, fonts a face and its em height.
std::vector<std::string> Drawing(HWND hwnd);
void ClearDrawing(HWND hwnd);

// The clipboard's text, empty if it has none.
std::string ClipboardText();
void SetClipboardText(std::string_view text);

struct CaretState
{
    HWND hwnd; // null while there is no caret
    POINT position;
    SIZE size;
    bool visible;
};
CaretState Caret();

// The next menu that pops up is answered by the item of this text, as it was given, if there is such a one
// that is not grey; otherwise, and without this call, by none.
void ChooseFromMenu(std::string_view text);
// The items of the last menu that popped up, as "&Undo (grey)|-|&Copy"; empty before the first.
std::string LastMenu();

// --- Accounting ---

// The kinds of platform object that are counted while they live.
enum class Kind
{
    Window,
    DeviceContext,
    Bitmap,
    Font,
    Pen,
    Brush,
    Theme,
    Region,
    Timer,
    Hook,
    ScriptCache,
    ImageList,
    Icon,
    Menu,
    ActivationContext,
    GlobalMemory,
    // An object that the platform made for accessibility clients, or one that a window gave out and that
    // nobody has taken yet.
    AccessibleObject,
    BasicString, // a BSTR
    EventHook,   // of SetWinEventHook
    Count
};

// How many objects of each kind live. Two are compared to see that an operation left nothing behind; printed,
// a census names the kinds that have any.
struct Census
{
    std::array<int, static_cast<size_t>(Kind::Count)> counts{};

    int operator[](Kind kind) const { return counts[static_cast<size_t>(kind)]; }
    bool operator==(const Census&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Census& census);

Census Live();

// How many activation contexts are open on the stack now.
int ActivationDepth();

// True if no heap block is lost. Only a build with AddressSanitizer on a system with leak checking can tell;
// any other build answers true.
bool HeapIsClean();

// --- Faults ---

// An operation that can fail. `failure` is what it then returns ("null", "FALSE", ...; "HRESULT" is that of
// the error); `releases` tells one that gives something back, which stays held where the operation fails.
struct FallibleOperation
{
    std::string_view name;
    std::string_view failure;
    bool releases = false;
};

// All of them, in alphabetic order: what a test goes through that lets each fail in turn.
std::span<const FallibleOperation> FallibleOperations();

// Lets the named operation ("CreateWindowExW", "BeginPaint", ...) fail: the first `skip` calls that the
// program makes go through, the `times` calls after them do nothing and fail with `error` as the last error.
// What the platform asks of itself meanwhile never fails. A name that is none of FallibleOperations() stops
// the program with a message. A second order for an operation takes the place of the first.
void Fail(std::string_view operation, int times = 1, DWORD error = ERROR_NOT_ENOUGH_MEMORY, int skip = 0);
// The operations that were told to fail and of which no call has failed yet: a test that ends with one has
// tested nothing by it.
std::vector<std::string> PendingFaults();
// Drops all faults, whether they fired or not, as Reset() does.
void ClearFaults();

// --- Settings ---

// All return to their first values with Reset(). None sends a message: a test that needs WM_THEMECHANGED or
// WM_SETTINGCHANGE sends it.

// Visual styles as a whole, one class of them, or one part of a class. Class names are as in OpenThemeData.
void SetThemed(bool themed);
void SetThemeClassAvailable(std::string_view themeClass, bool available);
void SetThemePartAvailable(std::string_view themeClass, int part, bool available);
// What GetThemeMargins, GetThemePartSize, GetThemeColor, GetThemeInt and GetThemeFont answer. State 0 stands
// for every state that was not set by itself.
void SetThemeMargins(std::string_view themeClass, int part, int state, int property, MARGINS margins);
void SetThemePartSize(std::string_view themeClass, int part, int state, SIZE size);
void SetThemeColor(std::string_view themeClass, int part, int state, int property, COLORREF color);
void SetThemeInt(std::string_view themeClass, int part, int state, int property, int value);
void SetThemeFont(std::string_view themeClass, int part, int state, int property, const LOGFONTW& font);

// Installs a font that has these characters, in ascending order, and no others. Until the first is installed
// every face is a font that has all characters, but for Tahoma, which cannot show Devanagari; from then on
// there are the installed ones alone, and the first is in the place of each face that is none of them. The
// shape is in hundredths of the em height.
struct CodeRange
{
    char32_t first;
    char32_t last;
};
struct FontShape
{
    int ascent = 100;
    int descent = 25;
};
void InstallFont(std::string_view face, std::initializer_list<CodeRange> characters, FontShape shape = {});

// The input method accepts a text and goes on with another, and tells of both at once.
void AcceptAndCompose(std::u16string_view accepted, std::u16string_view composed);

// Sets a registry value of several texts; the key is one below HKEY_LOCAL_MACHINE.
void SetRegistryTexts(std::string_view key, std::string_view value, const std::vector<std::string>& texts);
// Sets a registry value that is a number; the key is one below HKEY_CURRENT_USER.
void SetRegistryNumber(std::string_view key, std::string_view value, DWORD number);

void SetSystemMetric(int index, int value);
void SetSystemColor(int index, COLORREF color);
// Whether the user has a contrast theme; the colours are set by themselves.
void SetHighContrast(bool on);
// Whether a window's caption was made dark.
bool HasDarkCaption(HWND hwnd);
void SetDpi(int dpi);
// The dots an inch of one window, those below it included; those of SetDpi at first. ChangeDpi also tells it,
// as a move to another screen does: WM_DPICHANGED with a rectangle of the same place, which the window takes
// or not, and WM_DPICHANGED_BEFOREPARENT and _AFTERPARENT to those below.
void SetWindowDpi(HWND hwnd, int dpi);
void ChangeDpi(HWND hwnd, int dpi);
// Whether a class of the style has one handle, whose last dots an inch are those of all, margins are those of
// 96, and fonts are the screen's in a context and have no height without one, as Wine has it; false at first.
void ShareThemeHandles(bool shared);
// The keyboard's repeat delay, 0 to 3, and speed, 0 to 31.
void SetKeyboardRepeat(int delay, int speed);
// Lines that one notch of the wheel scrolls.
void SetWheelLines(UINT lines);
// The languages that the user wants programs in, best first; en-US at first.
void SetUserLanguages(const std::vector<std::string>& tags);

} // namespace gesso::headless
