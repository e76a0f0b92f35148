// What the attack needs of the desktop beyond the platform's own operations and tests/support/User.h.
// headless/ has it from the simulated desktop, windows/ from the process and its session.
#pragma once

#include <platform/platform.h>

#include <climits>
#include <string>
#include <string_view>
#include <vector>

namespace attack::desk {

#if defined(_WIN32)
// As much as Wine draws, measures and waits for in a moment.
constexpr int LARGEST_SIZE = 3000;
// Any may be a size, and Wine draws the parts of the style whole, however little of them shows.
constexpr int LARGEST_NUMBER = 0x10001;
constexpr int SMALLEST_NUMBER = -0x10001;
constexpr UINT LONGEST_TEXT = 3000;
constexpr DWORD LONGEST_WAIT = 60; // milliseconds
// Wine keeps parts of the style, icons and brushes once they were used. A leak is what each of as many plays
// of the same run adds to.
constexpr UINT PLAYS = 4;
constexpr unsigned LONGEST_OPERATION = 30; // seconds
constexpr UINT PATIENCE = 8;               // moves of a user in a modal loop, each in a timer's time
// Of a child that turns into a popup or an icon the platform's own DestroyWindow does not always come back
// under Wine. Nor does its search for a dialog's next control where one is no child any more.
constexpr DWORD STYLES_LEFT_OUT = WS_POPUP | WS_MINIMIZE | WS_MAXIMIZE;
// Wine's own static control ends the process where it shortens some texts.
constexpr DWORD ITEM_STYLES_LEFT_OUT = STYLES_LEFT_OUT | SS_ELLIPSISMASK;
#else
constexpr int LARGEST_SIZE = 32767;
constexpr int LARGEST_NUMBER = INT_MAX;
constexpr int SMALLEST_NUMBER = INT_MIN;
constexpr UINT LONGEST_TEXT = 100000;
constexpr DWORD LONGEST_WAIT = 2000;
// What the library makes once and keeps is not lost: a second play makes no more of it.
constexpr UINT PLAYS = 2;
constexpr unsigned LONGEST_OPERATION = 120;
constexpr UINT PATIENCE = 24;
constexpr DWORD STYLES_LEFT_OUT = 0;
constexpr DWORD ITEM_STYLES_LEFT_OUT = 0;
#endif

// Windows without an owner's leave, the user's doings and what was told of the style are gone.
void Reset();
// The thread's own top-level windows.
std::vector<HWND> TopLevelWindows();
HMODULE HostModule();
HMODULE LibraryModule();
std::string MessageName(UINT uMsg);

// --- A user, and the time

enum class Button
{
    Left,
    Right,
    Middle
};
void PressButton(Button button = Button::Left);
void ReleaseButton(Button button = Button::Left);
// To another program.
void SwitchAway();
void SetClipboardText(std::string_view text);

// Dispatches what is pending.
void Pump();
// Lets time pass, of a large part just LONGEST_WAIT, dispatching what comes.
void LetPass(DWORD dwMilliseconds);
// Whether a host that is sent a message may do anything within it.
bool IsHostFree();
// What a modal loop runs where it finds nothing to do. Pump does not run it.
void WhenIdle(void (*pfn)());

// --- The style, and faults

// Of all windows, or of the one alone where the platform has it so.
void SetThemed(HWND hwnd, bool fThemed);
void ClearFaults();

// --- What the process holds

// Counts, each of a kind of the platform's objects.
struct Census
{
    std::vector<int> counts;
};
Census Live();
// Whether something is held that was not.
bool Grew(const Census& before, const Census& after);
std::string Told(const Census& census);
// Whether memory is lost, where that can be told.
bool HeapIsClean();

// --- Its end

// What is told where it ends by a fault, and not by itself.
void AtBadEnd(void (*pfnTell)());
// Ends it where it still runs after so many seconds; 0 puts the end off.
void EndAfter(unsigned nSeconds);

} // namespace attack::desk
