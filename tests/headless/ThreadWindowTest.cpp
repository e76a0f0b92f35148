// Windows of several threads on one desktop: they send and post to each other, lie within each other, and end
// with their threads. Runs under ThreadSanitizer too.
#include <gesso/gesso.h>
#include <platform/headless/headless.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <future>
#include <thread>

namespace test {
namespace {

namespace desk = gesso::headless;

constexpr UINT ASK = WM_APP + 1;   // answered by what Answer() says
constexpr UINT LEAVE = WM_APP + 2; // ends the message loop

using Answer = std::function<LRESULT(HWND, WPARAM, LPARAM)>;

// A window's procedure and what it is asked with.
struct Script
{
    Answer onAsk = [](HWND, WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam); };
    Answer onCommand = [](HWND, WPARAM, LPARAM) { return LRESULT{0}; };
    Answer onTimer = onCommand;
};

LRESULT CALLBACK ScriptProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        SetWindowLongPtrW(
            hwnd, GWLP_USERDATA,
            reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
    }
    const auto* script = reinterpret_cast<const Script*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    switch (message) {
    case ASK: return script->onAsk(hwnd, wParam, lParam);
    case WM_COMMAND: return script->onCommand(hwnd, wParam, lParam);
    case WM_TIMER: return script->onTimer(hwnd, wParam, lParam);
    case LEAVE: PostQuitMessage(static_cast<int>(wParam)); return 0;
    default: return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

HWND MakeWindow(const Script& script, int x = 0)
{
    WNDCLASSW data{};
    data.lpfnWndProc = ScriptProc;
    data.lpszClassName = L"Script";
    RegisterClassW(&data); // by whichever thread comes first
    return CreateWindowExW(0, L"Script", L"", WS_POPUP | WS_VISIBLE, x, 0, 200, 100, nullptr, nullptr,
                           nullptr, const_cast<Script*>(&script));
}

int RunLoop()
{
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

enum class AtEnd
{
    DestroysWindow,
    LeavesWindow
};

// A thread that makes a window and runs a message loop until it is told to leave it.
class WindowThread
{
public:
    explicit WindowThread(std::function<HWND()> make, AtEnd atEnd = AtEnd::DestroysWindow)
        : m_thread([this, make = std::move(make), atEnd] {
              m_id = GetCurrentThreadId();
              const HWND hwnd = make();
              m_made.set_value(hwnd);
              RunLoop();
              if (atEnd == AtEnd::DestroysWindow) {
                  DestroyWindow(hwnd);
              }
          }),
          m_hwnd(Made())
    {}
    ~WindowThread() { End(); }
    WindowThread(const WindowThread&) = delete;
    WindowThread& operator=(const WindowThread&) = delete;

    HWND Hwnd() const { return m_hwnd; }
    DWORD Id() const { return m_id; }
    void End()
    {
        if (m_thread.joinable()) {
            PostThreadMessageW(m_id, WM_QUIT, 0, 0);
            m_thread.join();
        }
    }

private:
    // The new window may have something to tell to a parent on this thread.
    HWND Made()
    {
        std::future<HWND> made = m_made.get_future();
        while (made.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
            desk::Pump();
        }
        return made.get();
    }

    std::promise<HWND> m_made;
    std::atomic<DWORD> m_id = 0;
    std::thread m_thread;
    HWND m_hwnd;
};

class ThreadWindows : public testing::Test
{
protected:
    ThreadWindows() { desk::Reset(); }
    ~ThreadWindows() override { desk::Reset(); }
};

} // namespace

TEST_F(ThreadWindows, AMessageSentRunsOnTheThreadOfTheWindowAndIsWaitedFor)
{
    DWORD ranOn = 0;
    BOOL inSend = FALSE;
    Script script;
    script.onAsk = [&](HWND, WPARAM wParam, LPARAM lParam) {
        ranOn = GetCurrentThreadId();
        inSend = InSendMessage();
        *reinterpret_cast<int*>(lParam) = 5; // the sender's own memory
        return static_cast<LRESULT>(wParam * 2);
    };
    const WindowThread other([&] { return MakeWindow(script); });
    int written = 0;
    EXPECT_EQ(SendMessageW(other.Hwnd(), ASK, 21, reinterpret_cast<LPARAM>(&written)), 42);
    EXPECT_EQ(written, 5);
    EXPECT_EQ(ranOn, other.Id());
    EXPECT_TRUE(inSend);
    EXPECT_FALSE(InSendMessage());
    DWORD process = 0;
    EXPECT_EQ(GetWindowThreadProcessId(other.Hwnd(), &process), other.Id());
    EXPECT_EQ(process, GetCurrentProcessId());
    wchar_t text[8] = {};
    SetWindowTextW(other.Hwnd(), L"text");
    EXPECT_EQ(GetWindowTextW(other.Hwnd(), text, 8), 4);
}

TEST_F(ThreadWindows, ASenderServesWhatIsSentToItMeanwhile)
{
    Script mine;
    mine.onAsk = [](HWND, WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam + 1); };
    const HWND hwnd = MakeWindow(mine);
    Script theirs;
    theirs.onAsk = [hwnd](HWND, WPARAM wParam, LPARAM) { return SendMessageW(hwnd, ASK, wParam, 0) * 10; };
    const WindowThread other([&] { return MakeWindow(theirs); });
    EXPECT_EQ(SendMessageW(other.Hwnd(), ASK, 1, 0), 20);
    EXPECT_FALSE(desk::Deadlocked());
}

// Both send at the same time, again and again; neither can wait for the other to come to its message loop.
TEST_F(ThreadWindows, ThreadsThatSendToEachOtherBothGoOn)
{
    constexpr int TIMES = 200;
    std::atomic<int> asked = 0;
    Script script;
    script.onAsk = [&](HWND, WPARAM, LPARAM) { return LRESULT{++asked}; };
    const HWND hwnd = MakeWindow(script);
    Script sender = script;
    sender.onCommand = [hwnd](HWND, WPARAM, LPARAM) {
        for (int i = 0; i < TIMES; ++i) {
            SendMessageW(hwnd, ASK, 0, 0);
        }
        PostMessageW(hwnd, LEAVE, 3, 0);
        return LRESULT{0};
    };
    const WindowThread other([&] { return MakeWindow(sender); });
    PostMessageW(other.Hwnd(), WM_COMMAND, 0, 0);
    for (int i = 0; i < TIMES; ++i) {
        SendMessageW(other.Hwnd(), ASK, 0, 0);
    }
    EXPECT_EQ(RunLoop(), 3);
    EXPECT_EQ(asked, 2 * TIMES);
    EXPECT_FALSE(desk::Deadlocked());
}

TEST_F(ThreadWindows, PostsKeepTheirOrderAndWakeTheLoop)
{
    std::vector<WPARAM> got;
    Script script;
    script.onAsk = [&](HWND, WPARAM wParam, LPARAM) {
        got.push_back(wParam);
        return LRESULT{0};
    };
    WindowThread other([&] { return MakeWindow(script); });
    for (WPARAM i = 0; i < 5; ++i) {
        EXPECT_TRUE(PostMessageW(other.Hwnd(), ASK, i, 0));
    }
    EXPECT_TRUE(desk::WaitUntilIdle(other.Id()));
    SendNotifyMessageW(other.Hwnd(), ASK, 5, 0);
    const DWORD id = other.Id();
    other.End();
    EXPECT_EQ(got, (std::vector<WPARAM>{0, 1, 2, 3, 4, 5}));
    EXPECT_FALSE(PostThreadMessageW(id, WM_NULL, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_THREAD_ID));
    EXPECT_FALSE(desk::WaitUntilIdle(id));
}

TEST_F(ThreadWindows, AnAnswerGivenEarlyLetsTheSenderGo)
{
    std::promise<void> answered;
    Script script;
    script.onAsk = [&](HWND, WPARAM, LPARAM) {
        EXPECT_TRUE(ReplyMessage(7));
        answered.get_future().wait(); // which the sender says when it has the answer
        return LRESULT{8};
    };
    const WindowThread other([&] { return MakeWindow(script); });
    EXPECT_EQ(SendMessageW(other.Hwnd(), ASK, 0, 0), 7);
    answered.set_value();
    EXPECT_FALSE(ReplyMessage(0)) << "nothing was sent to this thread";
}

TEST_F(ThreadWindows, AThreadThatDoesNotLookIsWaitedForNoLongerThanAsked)
{
    std::promise<void> goOn;
    Script script;
    script.onCommand = [&](HWND, WPARAM, LPARAM) {
        goOn.get_future().wait();
        return LRESULT{0};
    };
    const WindowThread other([&] { return MakeWindow(script); });
    SendNotifyMessageW(other.Hwnd(), WM_COMMAND, 0, 0);
    DWORD_PTR answer = 0;
    EXPECT_FALSE(SendMessageTimeoutW(other.Hwnd(), ASK, 1, 0, SMTO_NORMAL, 50, &answer));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_TIMEOUT));
    goOn.set_value();
    EXPECT_TRUE(SendMessageTimeoutW(other.Hwnd(), ASK, 1, 0, SMTO_NORMAL, 5000, &answer));
    EXPECT_EQ(answer, 1U);
}

TEST_F(ThreadWindows, OnlyItsOwnThreadDestroysAWindowOrGivesItTimersAndCapture)
{
    const Script script;
    WindowThread other([&] { return MakeWindow(script); });
    SetLastError(0);
    EXPECT_FALSE(DestroyWindow(other.Hwnd()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_FALSE(SetTimer(other.Hwnd(), 1, 100, nullptr));
    SetCapture(other.Hwnd());
    EXPECT_FALSE(GetCapture());
    EXPECT_FALSE(SetFocus(other.Hwnd()));
    EXPECT_TRUE(IsWindow(other.Hwnd()));
    EXPECT_EQ(desk::TopLevelWindows(other.Id()), std::vector<HWND>{other.Hwnd()});
    EXPECT_TRUE(desk::TopLevelWindows().empty());
}

TEST_F(ThreadWindows, AThreadThatEndsTakesItsWindowsWithIt)
{
    const desk::Census before = desk::Live();
    const Script script;
    HWND child = nullptr;
    const HWND mine = MakeWindow(script);
    HWND orphan = nullptr;
    {
        WindowThread other(
            [&] {
                const HWND hwnd = MakeWindow(script);
                child =
                    CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, hwnd, nullptr, nullptr, nullptr);
                CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, mine, nullptr, nullptr, nullptr);
                SetTimer(hwnd, 1, 100, nullptr);
                SetTimer(nullptr, 0, 100, nullptr);
                return hwnd;
            },
            AtEnd::LeavesWindow);
        orphan =
            CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, other.Hwnd(), nullptr, nullptr, nullptr);
        EXPECT_TRUE(IsChild(other.Hwnd(), orphan));
        EXPECT_TRUE(GetWindow(mine, GW_CHILD));
        other.End();
        EXPECT_FALSE(IsWindow(other.Hwnd()));
    }
    EXPECT_FALSE(IsWindow(child));
    EXPECT_FALSE(GetWindow(mine, GW_CHILD));
    desk::Pump();
    EXPECT_FALSE(IsWindow(orphan)) << "it was this thread's to destroy";
    DestroyWindow(mine);
    EXPECT_EQ(desk::Live(), before);
}

TEST_F(ThreadWindows, AChildOfAnotherThreadIsClickedThereAndTellsItsParentHere)
{
    std::vector<DWORD> told; // the thread that each command came on
    Script script;
    script.onCommand = [&](HWND, WPARAM, LPARAM) {
        told.push_back(GetCurrentThreadId());
        return LRESULT{0};
    };
    const HWND parent = MakeWindow(script);
    GButton button;
    const WindowThread other([&] {
        button.Create(10, 10, 80, 30, parent, 7, L"Press", 0, WS_CHILD | WS_VISIBLE);
        return button.GetHwnd();
    });
    EXPECT_EQ(GetParent(other.Hwnd()), parent);
    for (int i = 0; i < 3; ++i) {
        desk::Click(20, 20);
        desk::Pump();
        EXPECT_TRUE(desk::WaitUntilIdle(other.Id())); // it serves the notifications meanwhile
    }
    EXPECT_EQ(told, std::vector<DWORD>(3, GetCurrentThreadId()));
    EXPECT_EQ(GetFocus(), other.Hwnd()) << "parent and child have one focus";
    desk::TypeKey(VK_SPACE);
    desk::Pump();
    EXPECT_TRUE(desk::WaitUntilIdle(other.Id()));
    EXPECT_EQ(told.size(), 4U);
    EXPECT_FALSE(desk::Drawing(other.Hwnd()).empty());
    DestroyWindow(parent);
    EXPECT_FALSE(IsWindow(other.Hwnd()));
    EXPECT_FALSE(button.GetHwnd() && IsWindow(button.GetHwnd()));
}

TEST_F(ThreadWindows, AThreadWithoutWindowsActsAsTheUserOfAllOthers)
{
    std::atomic<int> told = 0;
    Script script;
    script.onCommand = [&](HWND, WPARAM, LPARAM) { return LRESULT{++told}; };
    GEdit edit;
    const WindowThread other([&] {
        const HWND hwnd = MakeWindow(script, 300);
        CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 30, hwnd, nullptr, nullptr,
                        nullptr);
        edit.Create(60, 0, 100, 30, hwnd, 2, L"", WS_CHILD | WS_VISIBLE, 0);
        return hwnd;
    });
    desk::Click(310, 10);
    desk::Click(370, 10);
    desk::Pump();
    EXPECT_TRUE(desk::WaitUntilIdle(other.Id()));
    const int commands = told;
    EXPECT_GT(commands, 0);
    desk::TypeText("ab");
    desk::Pump();
    EXPECT_TRUE(desk::WaitUntilIdle(other.Id()));
    wchar_t text[8] = {};
    EXPECT_EQ(GetWindowTextW(edit.GetHwnd(), text, 8), 2);
}

TEST_F(ThreadWindows, EachThreadHasAClockThatAnotherOneMayMove)
{
    std::atomic<int> ticks = 0;
    Script script;
    script.onTimer = [&](HWND, WPARAM, LPARAM) { return LRESULT{++ticks}; };
    WindowThread other([&] {
        const HWND hwnd = MakeWindow(script);
        SetTimer(hwnd, 1, 100, nullptr);
        return hwnd;
    });
    desk::Advance(1000);
    EXPECT_EQ(ticks, 0) << "that was this thread's clock";
    EXPECT_TRUE(desk::Advance(350, other.Id()));
    EXPECT_EQ(ticks, 3);
    EXPECT_EQ(desk::Now(), 1000U);
    const DWORD id = other.Id();
    other.End();
    EXPECT_FALSE(desk::Advance(1, id));
}

TEST_F(ThreadWindows, ALoopThatNobodyCanWakeEnds)
{
    const Script script;
    MakeWindow(script);
    EXPECT_EQ(RunLoop(), 0);
    EXPECT_TRUE(desk::Deadlocked()) << "no other thread is there";
    desk::Reset();
    std::promise<bool> told;
    std::thread other([&] {
        MakeWindow(script);
        RunLoop();
        told.set_value(desk::Deadlocked());
    });
    RunLoop(); // one of the two is told first, and that ends its wait or its thread
    other.join();
    EXPECT_TRUE(told.get_future().get());
    EXPECT_TRUE(desk::Deadlocked());
}

TEST_F(ThreadWindows, ALoopWaitsForAThreadThatHasYetToComeToTheDesktop)
{
    int asked = 0;
    Script script;
    script.onAsk = [&](HWND, WPARAM, LPARAM) { return LRESULT{++asked}; };
    const HWND hwnd = MakeWindow(script);
    std::thread worker([hwnd] { // as one that computes has no windows of its own
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        PostMessageW(hwnd, ASK, 0, 0);
        PostMessageW(hwnd, LEAVE, 9, 0);
    });
    EXPECT_EQ(RunLoop(), 9);
    worker.join();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(desk::Deadlocked());
}

} // namespace test
