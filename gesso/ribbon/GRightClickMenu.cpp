#include <gesso/containers/Misuse.h>
#include <gesso/containers/StringOf.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/ribbon/GRightClickMenu.h>

using gesso::Frame;

constinit ATOM GRightClickMenu::s_aClass = 0;

namespace {

constexpr int ROW_HEIGHT = 20;
constexpr int TEXT_INDENT = 5;
constexpr COLORREF CR_BACKGROUND = 0xFFFFFF;
constexpr COLORREF CR_HOT = 0x8CC8FF;

// Rounds towards zero, so that the 19 pixels above the window belong to the first row: hosts rely on it.
constexpr int RowOf(POINTS pt)
{
    return pt.y / ROW_HEIGHT;
}

void FillColor(HDC hdc, const RECT& rc, COLORREF cr)
{
    gesso::BrushHandle hBrush;
    hBrush.Reset(CreateSolidBrush(cr));
    FillRect(hdc, &rc, hBrush);
}

// fThere is false where an answer to the command has destroyed the window already.
void EndMenu(HWND hwnd, bool fThere, HWND hwndOwner)
{
    ReleaseCapture();
    if (fThere) {
        DestroyWindow(hwnd);
    }
    ShowWindow(hwndOwner, SW_SHOW);
}

} // namespace

ATOM GRightClickMenu::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GRightClickMenu", WindowProc, gesso::CLASS_HOST);
}

HWND GRightClickMenu::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId)
{
    const gesso::Lifeline life(*this);
    // The parameter is this object itself and no tag, so that the window makes an object of its own.
    const HWND hwnd = IsolationAwareCreateWindowExW(
        0, MAKEINTRESOURCEW(IsolationAwareRegisterClassW()), nullptr, WS_POPUP | WS_VISIBLE | WS_BORDER, x, y,
        cx, cy, hwndParent, reinterpret_cast<HMENU>(static_cast<LONG_PTR>(nId)), nullptr, this);
    if (life) { // the owner, no longer active, may have deleted the object
        m_hWnd = hwnd;
    }
    return hwnd;
}

int GRightClickMenu::Destroy()
{
    return DestroyWindow(m_hWnd);
}

void GRightClickMenu::Init(void*) {}

void GRightClickMenu::AddValue(LPCWSTR pszText)
{
    m_aValues.Add(gesso::StringOf(pszText));
}

void GRightClickMenu::SetValue(UINT nIndex, LPCWSTR pszText)
{
    if (nIndex >= m_aValues.GetLength()) {
        return gesso::Misuse("GRightClickMenu::SetValue: a row that is not there");
    }
    m_aValues[nIndex] = gesso::StringOf(pszText);
}

LPCWSTR GRightClickMenu::GetValue(UINT nIndex) const
{
    if (nIndex >= m_aValues.GetLength()) {
        gesso::Misuse("GRightClickMenu::GetValue: a row that is not there");
        return L"";
    }
    return m_aValues[nIndex];
}

UINT GRightClickMenu::GetValueCount() const
{
    return m_aValues.GetLength();
}

void GRightClickMenu::DrawRows(HDC hdc) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    FillColor(hdc, rc, CR_BACKGROUND);
    const gesso::TransparentScope mode(hdc);
    const gesso::SelectScope font(hdc, m_hFont);
    const gesso::TextColorScope color(hdc, m_crText);
    RECT rcRow{rc.left, rc.top, rc.right, rc.top + ROW_HEIGHT};
    for (UINT i = 0; i < m_aValues.GetLength(); i++) {
        if (static_cast<int>(i) == m_nHot) {
            FillColor(hdc, rcRow, CR_HOT);
        }
        RECT rcText = rcRow;
        rcText.left += TEXT_INDENT;
        DrawTextW(hdc, m_aValues[i], -1, &rcText, 0);
        OffsetRect(&rcRow, 0, ROW_HEIGHT);
    }
}

// --- Messages

LRESULT GRightClickMenu::OnCreate(const CREATESTRUCTW*)
{
    m_dwState = Frame::FIRST_STATE;
    return 0;
}

LRESULT GRightClickMenu::OnDestroy()
{
    return Frame::Detach(*this);
}

LRESULT GRightClickMenu::OnPaint()
{
    const gesso::BufferedPaint paint(m_hWnd);
    DrawRows(paint.Context());
    return 0;
}

LRESULT GRightClickMenu::OnMouseMove(WPARAM, POINTS pt)
{
    const int nRow = RowOf(pt);
    if (nRow != m_nHot) {
        m_nHot = nRow;
        Invalidate(0);
    }
    return 0;
}

LRESULT GRightClickMenu::OnLButtonUp(WPARAM, POINTS pt)
{
    const HWND hwnd = m_hWnd;
    const HWND hwndOwner = m_hwndOwner;
    SendMessageW(hwndOwner, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), RowOf(pt)),
                 reinterpret_cast<LPARAM>(hwnd));
    // An owner that deleted the object alone has left the window to be ended.
    EndMenu(hwnd, FromHwnd(hwnd) == this, hwndOwner);
    return 0;
}

void GRightClickMenu::Kill()
{
    EndMenu(m_hWnd, true, m_hwndOwner);
}

LRESULT CALLBACK GRightClickMenu::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pMenu = Frame::ObjectOf<GRightClickMenu>(hwnd);
    if (!pMenu) {
        return uMsg == WM_CREATE ? Frame::Attach<GRightClickMenu>(hwnd, lParam)
                                 : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    switch (uMsg) {
    case WM_DESTROY: return pMenu->OnDestroy();
    case WM_PAINT: return pMenu->OnPaint();
    case WM_MOUSEMOVE: return pMenu->OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return pMenu->OnLButtonUp(wParam, gesso::PointOf(lParam));
    default: return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
}
