#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/MakeOnce.h>

#include <algorithm>
#include <atomic>
#include <new>
#include <utility>

namespace gesso {
namespace {

constinit SRWLOCK s_lock = SRWLOCK_INIT;

// Under the lock, in the order of the handles; it goes with the last one.
constinit std::vector<LibraryWindow>* s_pWindows = nullptr;
// Whether it is there, for who asks at each paint.
constinit std::atomic<bool> s_fAny = false;

std::vector<LibraryWindow>::iterator PlaceOf(HWND hwnd)
{
    return std::ranges::lower_bound(*s_pWindows, hwnd, {}, &LibraryWindow::hwnd);
}

LibraryWindow* Find(HWND hwnd)
{
    if (!s_pWindows) {
        return nullptr;
    }
    const auto at = PlaceOf(hwnd);
    return at != s_pWindows->end() && at->hwnd == hwnd ? &*at : nullptr;
}

void EndIfEmpty()
{
    if (s_pWindows && s_pWindows->empty()) {
        delete std::exchange(s_pWindows, nullptr);
        s_fAny = false;
    }
}

bool IsGone(const LibraryWindow& window)
{
    return !IsWindow(window.hwnd);
}

// The windows of a thread that ends go without a message.
void DropGone()
{
    if (s_pWindows) {
        std::erase_if(*s_pWindows, IsGone);
        EndIfEmpty();
    }
}

} // namespace

bool AddLibraryWindow(HWND hwnd, UINT uDpi)
try {
    const ScopedLock lock(s_lock);
    if (s_pWindows && s_pWindows->size() == s_pWindows->capacity()) {
        DropGone();
    }
    if (!s_pWindows) {
        s_pWindows = new std::vector<LibraryWindow>;
    }
    const LibraryWindow window{hwnd, uDpi, 0};
    if (LibraryWindow* pKnown = Find(hwnd)) {
        *pKnown = window;
    } else {
        s_pWindows->insert(PlaceOf(hwnd), window);
    }
    s_fAny = true;
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

void RemoveLibraryWindow(HWND hwnd)
{
    const ScopedLock lock(s_lock);
    if (const LibraryWindow* pKnown = Find(hwnd)) {
        s_pWindows->erase(s_pWindows->begin() + (pKnown - s_pWindows->data()));
        s_pWindows->erase(s_pWindows->begin(), std::ranges::find_if_not(*s_pWindows, IsGone));
        EndIfEmpty();
    }
}

bool HasLibraryWindows()
{
    return s_fAny;
}

LibraryWindow KnownWindow(HWND hwnd)
{
    const ScopedLock lock(s_lock);
    const LibraryWindow* pKnown = Find(hwnd);
    return pKnown ? *pKnown : LibraryWindow{};
}

void SetKnownWindow(const LibraryWindow& window)
{
    const ScopedLock lock(s_lock);
    if (LibraryWindow* pKnown = Find(window.hwnd)) {
        *pKnown = window;
    }
}

std::vector<LibraryWindow> LibraryWindows()
{
    const ScopedLock lock(s_lock);
    DropGone();
    return s_pWindows ? *s_pWindows : std::vector<LibraryWindow>();
}

HWND NextLibraryWindow(HWND hwndFormer)
{
    const ScopedLock lock(s_lock);
    if (!s_pWindows) {
        return nullptr;
    }
    const auto behind = std::ranges::upper_bound(*s_pWindows, hwndFormer, {}, &LibraryWindow::hwnd);
    const auto next = std::find_if_not(behind, s_pWindows->end(), IsGone);
    const HWND hwndNext = next != s_pWindows->end() ? next->hwnd : nullptr;
    s_pWindows->erase(behind, next);
    EndIfEmpty();
    return hwndNext;
}

} // namespace gesso
