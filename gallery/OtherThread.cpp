#include <gallery/OtherThread.h>

namespace gallery {
namespace {

constexpr RECT PLACE = {700, 640, 1060, 760};

} // namespace

OtherThread::OtherThread()
{
    const HANDLE hShown = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    m_thread = std::thread([this, hShown] { Run(hShown); });
    WaitForSingleObject(hShown, INFINITE);
    CloseHandle(hShown);
}

OtherThread::~OtherThread()
{
    PostMessageW(m_hwnd, WM_CLOSE, 0, 0);
    m_thread.join();
}

void OtherThread::Run(HANDLE hShown)
{
    m_hwnd = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"Another thread's window",
                             WS_POPUPWINDOW | WS_CAPTION, PLACE.left, PLACE.top, PLACE.right - PLACE.left,
                             PLACE.bottom - PLACE.top, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(m_hwnd, SW_SHOW);
    SetForegroundWindow(m_hwnd);
    SetEvent(hShown);
    MSG msg{};
    while (IsWindow(m_hwnd) && GetMessageW(&msg, nullptr, 0, 0) > 0) {
        DispatchMessageW(&msg);
    }
}

} // namespace gallery
