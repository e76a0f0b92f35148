#include "Interception.h"

#include <utility>

namespace test {
namespace {

Interception* g_pCurrent = nullptr;

} // namespace

Interception::Interception(HWND hwnd, UINT uMsg, std::function<void()> act)
    : m_hWnd(hwnd), m_uMsg(uMsg), m_act(std::move(act))
{
    g_pCurrent = this;
    m_pfnFormer = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProc)));
}

Interception::~Interception()
{
    if (IsWindow(m_hWnd)) {
        SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnFormer));
    }
    g_pCurrent = nullptr;
}

LRESULT CALLBACK Interception::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (uMsg == g_pCurrent->m_uMsg && g_pCurrent->m_act) {
        std::exchange(g_pCurrent->m_act, nullptr)();
    }
    return CallWindowProcW(g_pCurrent->m_pfnFormer, hwnd, uMsg, wParam, lParam);
}

} // namespace test
