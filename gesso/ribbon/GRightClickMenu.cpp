#include <gesso/containers/Index.h>
#include <gesso/containers/Misuse.h>
#include <gesso/framework/Access.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/ribbon/TrackedMenu.h>

using gesso::Color;
using gesso::ColorOf;
using gesso::Frame;
using gesso::Pixels;
namespace Metrics = gesso::Metrics;

constinit ATOM GRightClickMenu::s_aClass = 0;

namespace {

// Fixed behaviour: rounds towards zero, so that the 19 pixels above the window belong to the first row. A
// release there would otherwise tell the owner the row 65535.
int RowOf(HWND hwnd, POINTS pt)
{
    return pt.y / Pixels(hwnd, Metrics::VALUE_MENU_ROW_HEIGHT);
}

void FillColor(HDC hdc, const RECT& rc, COLORREF cr)
{
    gesso::BrushHandle hBrush;
    hBrush.Reset(CreateSolidBrush(cr));
    FillRect(hdc, &rc, hBrush);
}

void DrawHotRow(HWND hwnd, HDC hdc, const RECT& rc)
{
    if (gesso::IsDrawnFlat()) {
        gesso::ThemePart(nullptr, hdc, LVP_LISTITEM, LISS_HOTSELECTED, gesso::PlainPart::Row)
            .In(hwnd)
            .DrawBackground(rc);
    } else {
        FillColor(hdc, rc, ColorOf(Color::ValueMenuHotFill));
    }
}

// In Light the text keeps its colour, unless the host has set one.
COLORREF HotTextColor(COLORREF crText)
{
    return IsDrawnAs(gesso::ColorRole::SelectionText) ? ColorOf(Color::ValueMenuHotText) : crText;
}

// Over the platform's own border, which has a colour for Light.
void DrawFrame(HWND hwnd)
{
    RECT rc{};
    if (GetWindowRect(hwnd, &rc)) {
        OffsetRect(&rc, -rc.left, -rc.top);
        const gesso::FrameContext hdc(hwnd);
        gesso::FrameColor(hdc, rc, ColorOf(gesso::ColorRole::Border), gesso::SystemMetric(hwnd, SM_CXBORDER));
    }
}

// Nothing of an object that its window does not run on.
void TellRow(const GWnd& menu, HWND hwnd, UINT nRow, DWORD dwEvent)
{
    if (Frame::IsAlive(hwnd, &menu)) {
        gesso::TellAccess(hwnd, dwEvent, static_cast<LONG>(nRow) + 1);
    }
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
    // A window that has this object, made by its class's name, goes on without it: it would ask for its paint
    // for ever, since the object paints the new one.
    Frame::Abandon(*this);
    const gesso::Lifeline life(*this);
    // The parameter is this object itself and no tag, so that the window makes an object of its own.
    const HWND hwnd = IsolationAwareCreateWindowExW(
        0, MAKEINTRESOURCEW(IsolationAwareRegisterClassW()), nullptr, WS_POPUP | WS_VISIBLE | WS_BORDER, x, y,
        cx, cy, hwndParent, reinterpret_cast<HMENU>(static_cast<LONG_PTR>(nId)), nullptr, this);
    if (life) { // the owner, no longer active, may have deleted the object
        m_hWnd = hwnd;
    }
    gesso::TellAccess(hwnd, EVENT_SYSTEM_MENUPOPUPSTART);
    return hwnd;
}

int GRightClickMenu::Destroy()
{
    return DestroyWindow(m_hWnd);
}

void GRightClickMenu::Init(void*) {}

void GRightClickMenu::AddValue(LPCWSTR pszText)
{
    OString<wchar_t> str;
    const bool fKept = str.Format(L"%s", gesso::TextOrEmpty(pszText));
    const UINT nIndex = fKept ? m_aValues.Add(OString<wchar_t>()) : gesso::NO_INDEX;
    if (nIndex != gesso::NO_INDEX) {
        m_aValues[nIndex] = std::move(str);
        TellRow(*this, m_hWnd, nIndex, EVENT_OBJECT_CREATE);
    }
}

void GRightClickMenu::SetValue(UINT nIndex, LPCWSTR pszText)
{
    if (nIndex >= m_aValues.GetLength()) {
        return gesso::Misuse("GRightClickMenu::SetValue: a row that is not there");
    }
    const bool fOther = m_aValues[nIndex] != gesso::TextOrEmpty(pszText);
    if (m_aValues[nIndex].Format(L"%s", gesso::TextOrEmpty(pszText)) && fOther) {
        TellRow(*this, m_hWnd, nIndex, EVENT_OBJECT_NAMECHANGE);
    }
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

// From the given row on.
void GRightClickMenu::DrawRows(HDC hdc, UINT nFirst, UINT uFormat) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    FillColor(hdc, rc, ColorOf(Color::ValueMenuFill));
    const gesso::TransparentScope mode(hdc);
    const gesso::SelectScope font(hdc, m_hFont);
    const COLORREF crText = gesso::HostColor(m_crText, m_crText != 0, gesso::ColorRole::WindowText);
    const int cyRow = Pixels(m_hWnd, Metrics::VALUE_MENU_ROW_HEIGHT);
    RECT rcRow{rc.left, rc.top, rc.right, rc.top + cyRow};
    for (UINT i = nFirst; i < m_aValues.GetLength(); i++) {
        gesso::LayoutOverlay::Add(hdc, rcRow);
        const bool fHot = static_cast<int>(i) == m_nHot;
        if (fHot) {
            DrawHotRow(m_hWnd, hdc, rcRow);
        }
        const gesso::TextColorScope rowColor(hdc, fHot ? HotTextColor(crText) : crText);
        RECT rcText = rcRow;
        rcText.left += Pixels(m_hWnd, Metrics::VALUE_MENU_INDENT);
        DrawTextW(hdc, m_aValues[i], -1, &rcText, uFormat);
        OffsetRect(&rcRow, 0, cyRow);
    }
}

// --- Messages

LRESULT GRightClickMenu::OnCreate(const CREATESTRUCTW*)
{
    Frame::SetState(*this, Frame::FirstState(*this));
    return 0;
}

LRESULT GRightClickMenu::OnDestroy()
{
    const gesso::Watch watch(*this);
    gesso::TellAccess(m_hWnd, EVENT_SYSTEM_MENUPOPUPEND);
    return watch ? Frame::Detach(*this) : 0;
}

LRESULT GRightClickMenu::OnPaint()
{
    const gesso::Watch watch(*this);
    const gesso::BufferedPaint paint(m_hWnd);
    if (watch) {
        DrawRows(paint.Context(), 0, 0);
    }
    return 0;
}

LRESULT GRightClickMenu::OnMouseMove(WPARAM, POINTS pt)
{
    const int nRow = RowOf(m_hWnd, pt);
    if (nRow != m_nHot) {
        ChangeHot(nRow);
        Invalidate(0);
    }
    return 0;
}

// The one place where the row under the pointer changes.
void GRightClickMenu::ChangeHot(int nRow)
{
    m_nHot = nRow;
}

LRESULT GRightClickMenu::OnLButtonUp(WPARAM, POINTS pt)
{
    const HWND hwnd = m_hWnd;
    const HWND hwndOwner = m_hwndOwner;
    SendMessageW(hwndOwner, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), RowOf(hwnd, pt)),
                 reinterpret_cast<LPARAM>(hwnd));
    // An owner that deleted the object alone has left the window to be ended.
    EndMenu(hwnd, FromHwnd(hwnd) == this, hwndOwner);
    return 0;
}

UINT GRightClickMenu::Track(HWND hwndOwner, int x, int y, const LPCWSTR* ppszValues, UINT nCount,
                            UINT uChecked)
{
    const bool fOwn = GetWindowThreadProcessId(hwndOwner, nullptr) == GetCurrentThreadId();
    if (!IsWindow(hwndOwner) || !fOwn || !ppszValues) {
        gesso::Misuse("GRightClickMenu::Track: no owner, or no texts");
        return gesso::NO_INDEX;
    }
    gesso::TrackedMenu menu(ppszValues, nCount, uChecked);
    const bool fKept = nCount > 0 && menu.GetValueCount() == nCount;
    return fKept ? menu.Run(hwndOwner, {x, y}) : gesso::NO_INDEX;
}

void GRightClickMenu::Kill()
{
    EndMenu(m_hWnd, true, m_hwndOwner);
}

LRESULT CALLBACK GRightClickMenu::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GRightClickMenu>(hwnd, uMsg, wParam, lParam);
}

LRESULT GRightClickMenu::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_DESTROY: return OnDestroy();
    case WM_PAINT: return OnPaint();
    case WM_ERASEBKGND: // the paint covers all of it; the class's brush would flash
        return gesso::IsDrawnFlat() ? 1 : Frame::Default(*this, uMsg, wParam, lParam);
    case WM_NCPAINT: {
        const LRESULT lAnswer = Frame::Default(*this, uMsg, wParam, lParam);
        if (gesso::IsDrawnFlat()) {
            DrawFrame(m_hWnd);
        }
        return lAnswer;
    }
    case WM_MOUSEMOVE: return OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return OnLButtonUp(wParam, gesso::PointOf(lParam));
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
