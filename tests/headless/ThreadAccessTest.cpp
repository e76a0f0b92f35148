// Accessible objects and events of one thread for clients on another. Runs under ThreadSanitizer too.
#include "platform/AccessWindow.h"

#include <atomic>
#include <future>
#include <thread>

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

// A program with a teller on a thread of its own, which ends at Leave().
class Program
{
public:
    explicit Program(Story& story)
    {
        std::promise<HWND> made;
        m_thread = std::thread([&] {
            story.onAct = [](LONG) { s_actor = GetCurrentThreadId(); };
            made.set_value(MakeTeller(story, MakeTop()));
            MSG message{};
            while (GetMessageW(&message, nullptr, 0, 0) > 0) {
                DispatchMessageW(&message);
            }
            Reset();
        });
        m_hwnd = made.get_future().get();
        m_id = GetWindowThreadProcessId(m_hwnd, nullptr);
    }
    void Leave()
    {
        PostThreadMessageW(m_id, WM_QUIT, 0, 0);
        m_thread.join();
    }

    HWND Window() const { return m_hwnd; }
    DWORD Thread() const { return m_id; }

    static inline std::atomic<DWORD> s_actor;

private:
    std::thread m_thread;
    HWND m_hwnd = nullptr;
    DWORD m_id = 0;
};

using ThreadAccessTest = DesktopTest;

TEST_F(ThreadAccessTest, CallsGoThroughTheThreadOfTheObject)
{
    Story story;
    story.items = {"one", "two"};
    Program program(story);
    {
        const Object shelf(program.Window());
        EXPECT_EQ(shelf.Name(), "Shelf");
        EXPECT_EQ(shelf.Window(), program.Window());
        LONG count = 0;
        EXPECT_EQ(shelf->get_accChildCount(&count), S_OK);
        EXPECT_EQ(count, 2);
        EXPECT_EQ(shelf->accDoDefaultAction(Id(2)), S_OK);
        EXPECT_EQ(Program::s_actor, program.Thread());
        IUnknown* none = nullptr;
        EXPECT_EQ(shelf->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&none)), E_NOINTERFACE);
    }
    EXPECT_TRUE(WaitUntilIdle(program.Thread()));
    EXPECT_EQ(Live()[Kind::AccessibleObject], 0);
    program.Leave();
    EXPECT_EQ(story.did, "act2 ");
    EXPECT_EQ(story.references, 0);
}

TEST_F(ThreadAccessTest, AClientThatStaysLongerThanTheThreadHoldsNothing)
{
    Story story;
    Program program(story);
    const Object shelf(program.Window());
    EXPECT_EQ(shelf.Name(), "Shelf");
    program.Leave();
    BSTR name = nullptr;
    EXPECT_EQ(shelf->get_accName(Id(), &name), RPC_E_DISCONNECTED);
}

// The window's object lets its clients go.
TEST_F(ThreadAccessTest, DisconnectedClientsAreToldSo)
{
    std::promise<HWND> made;
    Story story;
    std::thread thread([&] {
        Teller* teller = new Teller(story);
        made.set_value(MakeTop({0, 0, 99, 99}, [&](HWND, UINT message, WPARAM wParam, LPARAM) {
            switch (message) {
            case WM_GETOBJECT: return std::optional(LresultFromObject(IID_IAccessible, wParam, teller));
            case WM_USER: return std::optional<LRESULT>(CoDisconnectObject(teller, 0));
            default: return std::optional<LRESULT>();
            }
        }));
        MSG message{};
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
        teller->Release();
        Reset();
    });
    const HWND top = made.get_future().get();
    const Object shelf(top);
    EXPECT_EQ(shelf.Name(), "Shelf");
    EXPECT_EQ(SendMessageW(top, WM_USER, 0, 0), S_OK);
    BSTR name = nullptr;
    EXPECT_EQ(shelf->get_accName(Id(), &name), RPC_E_DISCONNECTED);
    PostMessageW(top, WM_QUIT, 0, 0);
    thread.join();
    EXPECT_EQ(story.references, 0);
}

std::atomic<DWORD> s_listener;
void CALLBACK Hear(HWINEVENTHOOK, DWORD, HWND, LONG, LONG, DWORD, DWORD)
{
    s_listener = GetCurrentThreadId();
}

TEST_F(ThreadAccessTest, AHookOutOfContextHearsOnItsOwnThread)
{
    Story story;
    Program program(story);
    const HWINEVENTHOOK hook =
        SetWinEventHook(EVENT_SYSTEM_ALERT, EVENT_SYSTEM_ALERT, nullptr, Hear, 0, program.Thread(), 0);
    std::thread([&] {
        NotifyWinEvent(EVENT_SYSTEM_ALERT, program.Window(), OBJID_CLIENT, 0); // another thread's event
    }).join();
    Pump();
    EXPECT_EQ(s_listener, 0U);
    UnhookWinEvent(hook);
    const HWINEVENTHOOK all =
        SetWinEventHook(EVENT_SYSTEM_ALERT, EVENT_SYSTEM_ALERT, nullptr, Hear, 0, 0, WINEVENT_SKIPOWNTHREAD);
    std::thread([&] { NotifyWinEvent(EVENT_SYSTEM_ALERT, program.Window(), OBJID_CLIENT, 0); }).join();
    EXPECT_EQ(s_listener, 0U);
    Pump();
    EXPECT_EQ(s_listener, GetCurrentThreadId());
    UnhookWinEvent(all);
    program.Leave();
}

} // namespace
