#include <gesso/framework/LiveControls.h>

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace gesso {
namespace {

constinit SRWLOCK s_lock = SRWLOCK_INIT;

class Lock
{
public:
    Lock() { AcquireSRWLockExclusive(&s_lock); }
    ~Lock() { ReleaseSRWLockExclusive(&s_lock); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
};

// Under the lock; it goes with the last one.
constinit std::vector<HWND>* s_pLive = nullptr;

void Repaint(HWND hwnd, UINT uChildren)
{
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | uChildren);
}

} // namespace

bool AddLiveControl(HWND hwnd)
try {
    const Lock lock;
    if (!s_pLive) {
        s_pLive = new std::vector<HWND>;
    }
    s_pLive->push_back(hwnd);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

// The last that came goes first, more often than not.
void RemoveLiveControl(HWND hwnd)
{
    const Lock lock;
    if (!s_pLive) {
        return;
    }
    const auto found = std::find(s_pLive->rbegin(), s_pLive->rend(), hwnd);
    if (found != s_pLive->rend()) {
        *found = s_pLive->back();
        s_pLive->pop_back();
    }
    if (s_pLive->empty()) {
        delete std::exchange(s_pLive, nullptr);
    }
}

namespace {

// The next of them in the order of their handles; null behind the last.
HWND NextLiveControl(HWND hwndFormer)
{
    const Lock lock;
    HWND hwndNext = nullptr;
    if (s_pLive) {
        for (const HWND hwnd : *s_pLive) {
            if (hwnd > hwndFormer && (!hwndNext || hwnd < hwndNext)) {
                hwndNext = hwnd;
            }
        }
    }
    return hwndNext;
}

} // namespace

// What shows through a control is what it stands in. No lock is held while the platform works, and no memory
// is needed.
void RepaintControls()
{
    for (HWND hwnd = NextLiveControl(nullptr); hwnd; hwnd = NextLiveControl(hwnd)) {
        Repaint(hwnd, RDW_ALLCHILDREN);
        HWND hwndAround = hwnd;
        while (hwndAround && (GetWindowLongW(hwndAround, GWL_STYLE) & WS_CHILD)) {
            hwndAround = GetParent(hwndAround);
            if (hwndAround) { // a null one would mean the desktop
                Repaint(hwndAround, RDW_NOCHILDREN);
            }
        }
    }
}

} // namespace gesso
