#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugAids.h>
#include <gesso/framework/DebugHooks.h>

#if !defined(NDEBUG)

#include <algorithm>
#include <array>
#include <cstdio>
#include <mutex>
#include <utility>
#include <vector>

namespace gesso {
namespace {

// --- The trace

constexpr size_t NAME_CAPACITY = 64;
constexpr int ANY_ID = -1;
// Deeper messages are indented no further, so that each line has its end.
constexpr int DEEPEST_SHOWN = 40;

// What is traced: read by every thread that has controls.
struct TracedControl
{
    std::mutex mutex;
    std::array<wchar_t, NAME_CAPACITY> name{};
    int nId = ANY_ID;
};

TracedControl& Traced()
{
    static TracedControl s_traced;
    return s_traced;
}

constinit thread_local int s_nDepth = 0;

bool IsTraced(HWND hwnd)
{
    TracedControl& traced = Traced();
    const std::lock_guard lock(traced.mutex);
    std::array<wchar_t, NAME_CAPACITY> name{};
    if (!traced.name[0] || (traced.nId != ANY_ID && traced.nId != GetDlgCtrlID(hwnd)) ||
        !GetClassNameW(hwnd, name.data(), static_cast<int>(name.size())))
    {
        return false;
    }
    return traced.name[0] == L'*' || !_wcsicmp(traced.name.data(), name.data());
}

void Say(UINT uMsg, const char* pszWhat)
{
    char name[16];
    std::snprintf(name, sizeof(name), "0x%04X", uMsg);
    const char* pszName = NameOfMessage(uMsg);
    char line[256];
    std::snprintf(line, sizeof(line), "%*s%s%s\n", 2 * std::min(s_nDepth, DEEPEST_SHOWN), "",
                  pszName ? pszName : name, pszWhat);
    OutputDebugStringA(line);
}

// --- The overlay

constinit thread_local HWND s_hwndShown = nullptr;
constinit thread_local bool s_fAllShown = false;
constinit thread_local LayoutOverlay* s_pPainting = nullptr;

} // namespace

struct Rectangles
{
    std::vector<RECT> all;
};

void TraceMessages(LPCWSTR pszControl)
{
    TracedControl& traced = Traced();
    const std::lock_guard lock(traced.mutex);
    traced.name = {};
    traced.nId = ANY_ID;
    for (size_t i = 0; pszControl && pszControl[i] && i + 1 < traced.name.size(); ++i) {
        if (pszControl[i] == L':') {
            traced.nId = static_cast<int>(wcstol(pszControl + i + 1, nullptr, 10));
            break;
        }
        traced.name[i] = pszControl[i];
    }
}

MessageTrace::MessageTrace(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    : m_uMsg(uMsg), m_fTraced(IsTraced(hwnd))
{
    if (!m_fTraced) {
        return;
    }
    char what[96];
    std::snprintf(what, sizeof(what), " hwnd=%p wParam=0x%llX lParam=0x%llX", static_cast<void*>(hwnd),
                  static_cast<unsigned long long>(wParam), static_cast<unsigned long long>(lParam));
    Say(m_uMsg, what);
    ++s_nDepth;
}

MessageTrace::~MessageTrace()
{
    s_nDepth -= m_fTraced ? 1 : 0;
}

LRESULT MessageTrace::Returned(LRESULT lResult)
{
    if (m_fTraced) {
        --s_nDepth;
        char what[48];
        std::snprintf(what, sizeof(what), " = 0x%llX", static_cast<unsigned long long>(lResult));
        Say(m_uMsg, what);
        ++s_nDepth;
    }
    return lResult;
}

void ShowLayout(HWND hwnd)
{
    for (const HWND hwndChanged : {std::exchange(s_hwndShown, hwnd), hwnd}) {
        if (hwndChanged) {
            InvalidateRect(hwndChanged, nullptr, FALSE);
        }
    }
}

void ShowLayoutOfAll(bool fShow)
{
    s_fAllShown = fShow;
}

LayoutOverlay::LayoutOverlay(HWND hwnd, HDC hdc)
    : m_pOuter(std::exchange(s_pPainting, this)), m_hdc(hdc),
      m_pRectangles(s_fAllShown || (hwnd && s_hwndShown == hwnd) ? new Rectangles : nullptr)
{}

LayoutOverlay::~LayoutOverlay()
{
    s_pPainting = m_pOuter;
    delete m_pRectangles;
}

void LayoutOverlay::Show()
{
    if (!m_pRectangles) {
        return;
    }
    const HBRUSH hBrush = CreateSolidBrush(ColorOf(Color::LayoutOverlay));
    for (const RECT& rc : m_pRectangles->all) {
        FrameRect(m_hdc, &rc, hBrush);
    }
    DeleteObject(hBrush);
}

void LayoutOverlay::Add(HDC hdc, const RECT& rc)
{
    if (s_pPainting && s_pPainting->m_pRectangles && s_pPainting->m_hdc == hdc) {
        s_pPainting->m_pRectangles->all.push_back(rc);
    }
}

} // namespace gesso

#else

namespace gesso {

void TraceMessages(LPCWSTR) {}
void ShowLayout(HWND) {}
void ShowLayoutOfAll(bool) {}

} // namespace gesso

#endif
