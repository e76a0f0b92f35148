#include "Events.h"

#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../windows/Requests.h"

#include <algorithm>
#include <iterator>
#include <ostream>

namespace gesso::headless {
namespace {

struct EventHook
{
    HWINEVENTHOOK handle;
    std::weak_ptr<Desktop> desktop; // of the thread that set it
    DWORD first;
    DWORD last;
    WINEVENTPROC procedure;
    DWORD thread; // 0 for all
    UINT flags;
    bool ofProcess; // false if it listens to another process, from which nothing comes

    bool Hears(DWORD event, const Desktop& from) const
    {
        const bool own = desktop.lock().get() == &from;
        return ofProcess && event >= first && event <= last && (thread == 0 || thread == from.thread) &&
               !(flags & WINEVENT_SKIPOWNPROCESS) && !(own && (flags & WINEVENT_SKIPOWNTHREAD));
    }
};
using HookRef = std::shared_ptr<EventHook>;

std::vector<HookRef>& Hooks()
{
    static std::vector<HookRef> s_hooks;
    return s_hooks;
}

HookRef FindHook(HWINEVENTHOOK handle)
{
    const auto found = std::find_if(Hooks().begin(), Hooks().end(),
                                    [&](const HookRef& hook) { return hook->handle == handle; });
    return found == Hooks().end() ? nullptr : *found;
}

void Remove(const HookRef& hook)
{
    Untrack(Kind::EventHook, hook->handle);
    std::erase(Hooks(), hook);
}

void Call(HWINEVENTHOOK handle, const Event& event, DWORD thread, DWORD time)
{
    const HookRef hook = FindHook(handle);
    if (hook) {
        const CallsBy program(Caller::Program);
        const TableUnlock unlock;
        hook->procedure(handle, event.event, event.hwnd, event.object, event.child, thread, time);
    }
}

// A hook out of context hears on its own thread: at once, if the event is that thread's, and else when it
// looks for messages. One in context hears on the thread of the event.
void Offer(const EventHook& hook, const Event& event)
{
    const DWORD thread = TheDesktop().thread;
    const auto time = static_cast<DWORD>(Now());
    const auto desktop = hook.desktop.lock();
    if (desktop.get() == &TheDesktop() || (hook.flags & WINEVENT_INCONTEXT)) {
        Call(hook.handle, event, thread, time);
    } else if (desktop) {
        Tell(*desktop, [handle = hook.handle, event, thread, time]() -> LRESULT {
            Call(handle, event, thread, time);
            return 0;
        });
    }
}

void Spread(const Event& event)
{
    Desktop& desktop = TheDesktop();
    if (desktop.keepsEvents) {
        desktop.events.push_back(event);
    }
    const std::vector<HookRef> hooks = Hooks(); // which those that hear may change
    for (const HookRef& hook : hooks) {
        if (hook->Hears(event.event, desktop)) {
            Offer(*hook, event);
        }
    }
}

struct Named
{
    DWORD value;
    const char* name;
};

constexpr Named EVENTS[] = {
    {0x0002, "EVENT_SYSTEM_ALERT"},
    {0x0003, "EVENT_SYSTEM_FOREGROUND"},
    {0x0004, "EVENT_SYSTEM_MENUSTART"},
    {0x0005, "EVENT_SYSTEM_MENUEND"},
    {0x0006, "EVENT_SYSTEM_MENUPOPUPSTART"},
    {0x0007, "EVENT_SYSTEM_MENUPOPUPEND"},
    {0x0010, "EVENT_SYSTEM_DIALOGSTART"},
    {0x0011, "EVENT_SYSTEM_DIALOGEND"},
    {0x0012, "EVENT_SYSTEM_SCROLLINGSTART"},
    {0x0013, "EVENT_SYSTEM_SCROLLINGEND"},
    {0x8000, "EVENT_OBJECT_CREATE"},
    {0x8001, "EVENT_OBJECT_DESTROY"},
    {0x8002, "EVENT_OBJECT_SHOW"},
    {0x8003, "EVENT_OBJECT_HIDE"},
    {0x8004, "EVENT_OBJECT_REORDER"},
    {0x8005, "EVENT_OBJECT_FOCUS"},
    {0x8006, "EVENT_OBJECT_SELECTION"},
    {0x8007, "EVENT_OBJECT_SELECTIONADD"},
    {0x8008, "EVENT_OBJECT_SELECTIONREMOVE"},
    {0x8009, "EVENT_OBJECT_SELECTIONWITHIN"},
    {0x800A, "EVENT_OBJECT_STATECHANGE"},
    {0x800B, "EVENT_OBJECT_LOCATIONCHANGE"},
    {0x800C, "EVENT_OBJECT_NAMECHANGE"},
    {0x800D, "EVENT_OBJECT_DESCRIPTIONCHANGE"},
    {0x800E, "EVENT_OBJECT_VALUECHANGE"},
    {0x800F, "EVENT_OBJECT_PARENTCHANGE"},
    {0x8010, "EVENT_OBJECT_HELPCHANGE"},
    {0x8011, "EVENT_OBJECT_DEFACTIONCHANGE"},
    {0x8012, "EVENT_OBJECT_ACCELERATORCHANGE"},
    {0x8013, "EVENT_OBJECT_INVOKED"},
    {0x8014, "EVENT_OBJECT_TEXTSELECTIONCHANGED"},
    {0x8015, "EVENT_OBJECT_CONTENTSCROLLED"},
};

constexpr Named OBJECTS[] = {
    {static_cast<DWORD>(OBJID_WINDOW), "OBJID_WINDOW"},
    {static_cast<DWORD>(OBJID_SYSMENU), "OBJID_SYSMENU"},
    {static_cast<DWORD>(OBJID_TITLEBAR), "OBJID_TITLEBAR"},
    {static_cast<DWORD>(OBJID_MENU), "OBJID_MENU"},
    {static_cast<DWORD>(OBJID_CLIENT), "OBJID_CLIENT"},
    {static_cast<DWORD>(OBJID_VSCROLL), "OBJID_VSCROLL"},
    {static_cast<DWORD>(OBJID_HSCROLL), "OBJID_HSCROLL"},
    {static_cast<DWORD>(OBJID_CARET), "OBJID_CARET"},
    {static_cast<DWORD>(OBJID_CURSOR), "OBJID_CURSOR"},
    {static_cast<DWORD>(OBJID_ALERT), "OBJID_ALERT"},
};

template <size_t COUNT>
std::string NameIn(const Named (&table)[COUNT], DWORD value, const std::string& without)
{
    const auto found =
        std::find_if(std::begin(table), std::end(table), [&](const Named& n) { return n.value == value; });
    return found == std::end(table) ? without : found->name;
}

std::string Hexadecimal(DWORD value)
{
    char text[16];
    std::snprintf(text, sizeof(text), "0x%04X", value);
    return text;
}

} // namespace

void TellEvent(DWORD event, const Window& window, LONG object)
{
    Spread({event, window.handle, object, CHILDID_SELF});
}

void DropEventHooks(const Desktop& going)
{
    const std::vector<HookRef> hooks = Hooks();
    for (const HookRef& hook : hooks) {
        const auto desktop = hook->desktop.lock();
        if (!desktop || desktop.get() == &going) {
            Remove(hook);
        }
    }
}

void StartEvents()
{
    const TableLock lock;
    TheDesktop().events.clear();
    TheDesktop().keepsEvents = true;
}

std::vector<Event> StopEvents()
{
    const TableLock lock;
    TheDesktop().keepsEvents = false;
    return std::exchange(TheDesktop().events, {});
}

std::string EventName(DWORD event)
{
    return NameIn(EVENTS, event, Hexadecimal(event));
}

std::ostream& operator<<(std::ostream& out, const Event& event)
{
    return out << EventName(event.event) << ' '
               << NameIn(OBJECTS, static_cast<DWORD>(event.object), std::to_string(event.object)) << ' '
               << event.child;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

// Tells nothing of a window that is none.
void WINAPI NotifyWinEvent(DWORD event, HWND hwnd, LONG object, LONG child)
{
    const TableLock lock;
    if (Find(hwnd)) {
        Spread({event, hwnd, object, child});
    }
}

HWINEVENTHOOK WINAPI SetWinEventHook(DWORD first, DWORD last, HMODULE module, WINEVENTPROC procedure,
                                     DWORD process, DWORD thread, DWORD flags)
{
    const TableLock lock;
    if (FaultFires("SetWinEventHook")) {
        return nullptr;
    }
    const DWORD error = !procedure                                ? ERROR_INVALID_FILTER_PROC
                        : first > last                            ? ERROR_INVALID_HOOK_FILTER
                        : (flags & WINEVENT_INCONTEXT) && !module ? ERROR_HOOK_NEEDS_HMOD
                        : thread != 0 && !DesktopOf(thread)       ? ERROR_INVALID_THREAD_ID
                                                                  : ERROR_SUCCESS;
    if (error != ERROR_SUCCESS) {
        SetLastError(error);
        return nullptr;
    }
    static uintptr_t s_last = 0;
    const auto handle = reinterpret_cast<HWINEVENTHOOK>(++s_last);
    const bool ofProcess = process == 0 || process == GetCurrentProcessId();
    Hooks().push_back(std::make_shared<EventHook>(
        EventHook{handle, TheDesktopRef(), first, last, procedure, thread, flags, ofProcess}));
    Track(Kind::EventHook, handle);
    return handle;
}

BOOL WINAPI UnhookWinEvent(HWINEVENTHOOK handle)
{
    const TableLock lock;
    if (FaultFires("UnhookWinEvent")) {
        return FALSE;
    }
    const HookRef hook = FindHook(handle);
    if (!hook || hook->desktop.lock() != TheDesktopRef()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    Remove(hook);
    return TRUE;
}
}
