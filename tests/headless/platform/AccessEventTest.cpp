// Events for accessibility clients, and the hooks that hear them.
#include "AccessWindow.h"

#include <sstream>

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

// What the hooks of a test hear: a letter of each hook's before the event.
std::string s_heard;
HWINEVENTHOOK s_hook;

void Note(const char* who, DWORD event, HWND hwnd, LONG object, LONG child)
{
    std::ostringstream line;
    line << who << ' ' << Event{event, hwnd, object, child} << ';';
    s_heard += line.str();
}

void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND hwnd, LONG object, LONG child, DWORD, DWORD)
{
    Note("a", event, hwnd, object, child);
}

void CALLBACK HearToo(HWINEVENTHOOK, DWORD event, HWND hwnd, LONG object, LONG child, DWORD, DWORD)
{
    Note("b", event, hwnd, object, child);
}

void CALLBACK HearOnce(HWINEVENTHOOK hook, DWORD event, HWND hwnd, LONG object, LONG child, DWORD, DWORD)
{
    Note("once", event, hwnd, object, child);
    EXPECT_TRUE(UnhookWinEvent(hook));
    UnhookWinEvent(s_hook);
}

class AccessEventTest : public DesktopTest
{
protected:
    void SetUp() override
    {
        DesktopTest::SetUp();
        s_heard.clear();
    }

    static HWINEVENTHOOK Hook(DWORD first, DWORD last, WINEVENTPROC procedure, DWORD flags = 0,
                              DWORD thread = 0, DWORD process = 0)
    {
        return SetWinEventHook(first, last, nullptr, procedure, process, thread, flags);
    }
    static std::string Heard() { return std::exchange(s_heard, {}); }
};

TEST_F(AccessEventTest, TheTraceKeepsThePlatformsEventsAndTheProgramsOwn)
{
    StartEvents();
    const HWND top = MakeTop();
    const HWND child = MakeChild(top, {0, 0, 50, 20});
    SetFocus(child);
    SetFocus(child);
    NotifyWinEvent(EVENT_OBJECT_STATECHANGE, child, OBJID_CLIENT, 3);
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, reinterpret_cast<HWND>(uintptr_t{0x1234}), OBJID_CLIENT, 0);
    const std::vector<Event> events = StopEvents();
    NotifyWinEvent(EVENT_OBJECT_STATECHANGE, child, OBJID_CLIENT, 4);

    const std::vector<Event> wanted = {
        {EVENT_OBJECT_CREATE, top, OBJID_WINDOW, 0},        {EVENT_OBJECT_FOCUS, top, OBJID_CLIENT, 0},
        {EVENT_OBJECT_CREATE, child, OBJID_WINDOW, 0},      {EVENT_OBJECT_FOCUS, child, OBJID_CLIENT, 0},
        {EVENT_OBJECT_STATECHANGE, child, OBJID_CLIENT, 3},
    };
    EXPECT_EQ(events, wanted);
    EXPECT_TRUE(StopEvents().empty());
    EXPECT_EQ(EventName(0x9999), "0x9999");
}

TEST_F(AccessEventTest, HooksHearWhatTheyAskedForAtOnce)
{
    const HWND top = MakeTop();
    const HWINEVENTHOOK states = Hook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_STATECHANGE, Hear);
    const DWORD self = GetCurrentThreadId();
    const HWINEVENTHOOK all = Hook(EVENT_MIN, EVENT_MAX, HearToo, 0, self, GetCurrentProcessId());
    const HWINEVENTHOOK deaf[] = {Hook(EVENT_MIN, EVENT_MAX, Hear, WINEVENT_SKIPOWNTHREAD),
                                  Hook(EVENT_MIN, EVENT_MAX, Hear, WINEVENT_SKIPOWNPROCESS),
                                  Hook(EVENT_MIN, EVENT_MAX, Hear, 0, 0, GetCurrentProcessId() + 1)};
    NotifyWinEvent(EVENT_OBJECT_STATECHANGE, top, OBJID_CLIENT, 1);
    EXPECT_EQ(Heard(),
              "a EVENT_OBJECT_STATECHANGE OBJID_CLIENT 1;b EVENT_OBJECT_STATECHANGE OBJID_CLIENT 1;");
    NotifyWinEvent(EVENT_SYSTEM_ALERT, top, OBJID_ALERT, 0);
    EXPECT_EQ(Heard(), "b EVENT_SYSTEM_ALERT OBJID_ALERT 0;");
    EXPECT_TRUE(UnhookWinEvent(all));
    EXPECT_FALSE(UnhookWinEvent(all));
    NotifyWinEvent(EVENT_SYSTEM_ALERT, top, OBJID_ALERT, 0);
    EXPECT_EQ(Heard(), "");

    EXPECT_EQ(Live()[Kind::EventHook], 4);
    UnhookWinEvent(states);
    for (const HWINEVENTHOOK hook : deaf) {
        UnhookWinEvent(hook);
    }
    EXPECT_EQ(Live()[Kind::EventHook], 0);
}

TEST_F(AccessEventTest, AHookMayEndItselfAndOthersWhileItHears)
{
    const HWND top = MakeTop();
    Hook(EVENT_MIN, EVENT_MAX, HearOnce);
    s_hook = Hook(EVENT_MIN, EVENT_MAX, Hear);
    NotifyWinEvent(EVENT_SYSTEM_ALERT, top, OBJID_WINDOW, 0);
    NotifyWinEvent(EVENT_SYSTEM_ALERT, top, OBJID_WINDOW, 0);
    EXPECT_EQ(Heard(), "once EVENT_SYSTEM_ALERT OBJID_WINDOW 0;");
}

TEST_F(AccessEventTest, WhatIsNoHookIsRefused)
{
    EXPECT_EQ(Hook(EVENT_MAX, EVENT_MIN, Hear), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HOOK_FILTER});
    EXPECT_EQ(Hook(EVENT_MIN, EVENT_MAX, Hear, WINEVENT_INCONTEXT), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_HOOK_NEEDS_HMOD});
    EXPECT_EQ(Hook(EVENT_MIN, EVENT_MAX, nullptr), nullptr);
    Hook(EVENT_MIN, EVENT_MAX, Hear);
    EXPECT_EQ(Live()[Kind::EventHook], 1);
    Reset();
    EXPECT_EQ(Live()[Kind::EventHook], 0);
}

} // namespace
