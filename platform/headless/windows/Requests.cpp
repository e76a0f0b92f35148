#include "Requests.h"

#include <algorithm>
#include <filesystem>

namespace gesso::headless {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

// How long a thread waits for others while nothing at all happens on the desktop.
constexpr auto PATIENCE = 10s;
// How often a waiting thread looks whether there is anybody left to wait for.
constexpr auto LOOK_AFTER = 20ms;

size_t CountThreads()
{
    std::error_code error;
    const std::filesystem::directory_iterator threads("/proc/self/task", error);
    return static_cast<size_t>(std::distance(begin(threads), end(threads)));
}

// ThreadSanitizer runs one of its own.
#if defined(__SANITIZE_THREAD__)
constexpr size_t SANITIZER_THREADS = 1;
#else
constexpr size_t SANITIZER_THREADS = 0;
#endif

bool WaitsInVain(const Desktop& desktop)
{
    return desktop.waiting && !desktop.woken && desktop.requests.empty();
}

// A thread that runs may wake another one, be it one that has never used the desktop.
bool OthersMayCome()
{
    const auto& desktops = AllDesktops();
    const bool allWait = std::all_of(desktops.begin(), desktops.end(),
                                     [](const auto& desktop) { return WaitsInVain(*desktop); });
    return !allWait || CountThreads() > desktops.size() + SANITIZER_THREADS;
}

class WaitScope
{
public:
    WaitScope(Desktop& desktop, bool readsMessages) : m_desktop(desktop)
    {
        desktop.waiting = true;
        desktop.readsMessages = readsMessages;
        if (readsMessages) {
            WakeWatchers();
        }
    }
    ~WaitScope()
    {
        m_desktop.waiting = false;
        m_desktop.woken = false;
    }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

private:
    // Those who may be waiting for this thread to be at rest.
    static void WakeWatchers()
    {
        for (const auto& other : AllDesktops()) {
            if (other->waiting && !other->readsMessages) {
                Wake(*other);
            }
        }
    }

    Desktop& m_desktop;
};

RequestRef Put(Desktop& whom, std::function<LRESULT()> call)
{
    auto request = std::make_shared<Request>();
    request->from = TheDesktopRef();
    request->call = std::move(call);
    whom.requests.push_back(request);
    Wake(whom);
    return request;
}

void Answer(Request& request, LRESULT answer)
{
    if (!request.answered) {
        request.answered = true;
        request.answer = answer;
        Wake(*request.from);
    }
}

// Gives up a request. False if the other thread is at it already: then it is waited for.
bool Withdraw(Desktop& whom, const RequestRef& request)
{
    if (request->begun) {
        return false;
    }
    std::erase(whom.requests, request);
    TheDesktop().deadlocked = true;
    SetLastError(ERROR_TIMEOUT);
    return true;
}

} // namespace

LRESULT Ask(Desktop& whom, std::function<LRESULT()> call)
{
    const auto keep = whom.shared_from_this();
    const RequestRef request = Put(whom, std::move(call));
    for (;;) {
        Serve();
        if (request->answered) {
            return request->answer;
        }
        if (!WaitForOthers(false) && Withdraw(whom, request)) {
            return 0;
        }
    }
}

void Tell(Desktop& whom, std::function<LRESULT()> call)
{
    Put(whom, std::move(call));
}

bool AskWithin(std::chrono::milliseconds limit, Desktop& whom, std::function<LRESULT()> call, LRESULT& answer)
{
    const auto keep = whom.shared_from_this();
    const auto end = SteadyClock::now() + limit;
    const RequestRef request = Put(whom, std::move(call));
    while (!request->answered && SteadyClock::now() < end) {
        Serve();
        if (!request->answered) {
            WaitUnlocked(TheDesktop().wake, std::min<std::chrono::milliseconds>(limit, LOOK_AFTER));
        }
    }
    if (!request->answered) {
        std::erase(whom.requests, request);
        SetLastError(ERROR_TIMEOUT);
    }
    answer = request->answer;
    return request->answered;
}

void Serve()
{
    const auto mine = TheDesktopRef();
    while (!mine->requests.empty()) {
        const RequestRef request = mine->requests.front();
        mine->requests.pop_front();
        request->begun = true;
        mine->serving.push_back(request);
        const LRESULT answer = request->call();
        mine->serving.pop_back();
        Answer(*request, answer);
    }
}

void AnswerAll(Desktop& going)
{
    for (const RequestRef& request : std::exchange(going.requests, {})) {
        Answer(*request, 0);
    }
    for (const RequestRef& request : going.serving) {
        Answer(*request, 0);
    }
}

void Wake(Desktop& desktop)
{
    if (&desktop != &TheDesktop()) {
        desktop.woken = true;
        desktop.wake.notify_all();
    }
}

void WakeAll()
{
    for (const auto& desktop : AllDesktops()) {
        Wake(*desktop);
    }
}

bool WaitForOthers(bool readsMessages)
{
    const auto mine = TheDesktopRef();
    const WaitScope scope(*mine, readsMessages);
    uint64_t seen = TimesLocked();
    auto since = SteadyClock::now();
    while (!mine->woken) {
        if (readsMessages && !OthersMayCome()) {
            return false;
        }
        WaitUnlocked(mine->wake, LOOK_AFTER);
        if (std::exchange(seen, TimesLocked()) != seen) {
            since = SteadyClock::now();
        } else if (SteadyClock::now() - since > PATIENCE) {
            return false;
        }
    }
    return true;
}

bool IsAtRest(const Desktop& desktop)
{
    return WaitsInVain(desktop) && desktop.readsMessages;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

BOOL WINAPI ReplyMessage(LRESULT answer)
{
    const TableLock lock;
    const auto& serving = TheDesktop().serving;
    if (serving.empty()) {
        return FALSE;
    }
    Answer(*serving.back(), answer);
    return TRUE;
}

BOOL WINAPI InSendMessage()
{
    const TableLock lock;
    return !TheDesktop().serving.empty();
}
}
