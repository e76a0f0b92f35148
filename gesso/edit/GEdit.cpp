// Coming to life, and the window procedure.

#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;

constinit ATOM GEdit::s_aClass = 0;
constinit HCURSOR GEdit::s_hIbeam = nullptr;

namespace {

constexpr LPCWSTR THEME_CLASS = L"EDIT";

UINT RepeatOf(LPARAM lParam)
{
    return LOWORD(lParam);
}

UINT FlagsOf(LPARAM lParam)
{
    return HIWORD(lParam);
}

} // namespace

ATOM GEdit::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GEdit", WindowProc, gesso::CLASS_TEXT_ENTRY);
}

GEdit::GEdit() : m_strText(FIRST_CAPACITY)
{
    m_aLines.Add(0);
    if (!s_hIbeam) {
        s_hIbeam = gesso::LoadIBeam();
    }
}

HWND GEdit::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText, DWORD dwStyle,
                   DWORD dwExStyle)
{
    m_strText = gesso::TextOrEmpty(pszText);
    BeOneLine();
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GEdit::Init(void* pCreateData)
{
    m_strText = pCreateData ? static_cast<LPCWSTR>(pCreateData) + 1 : L"";
    BeOneLine();
}

int GEdit::Destroy()
{
    return DestroyWindow(m_hWnd);
}

void GEdit::SetFont(HFONT hFont)
{
    m_hFont = hFont;
    m_nSettled = 0;
}

HFONT GEdit::GetFont() const
{
    return m_hFont;
}

int GEdit::GetTextLength() const
{
    return static_cast<int>(m_strText.GetLength());
}

int GEdit::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_strText, pszBuffer, pnLength);
}

// --- Messages

LRESULT GEdit::OnNcCreate(const CREATESTRUCTW* pcs)
{
    m_dwState = Frame::FIRST_STATE;
    m_hTheme.Reset(OpenThemeData(m_hWnd, THEME_CLASS));
    return GWndScroll::OnNcCreate(pcs);
}

LRESULT GEdit::OnCreate(const CREATESTRUCTW*)
{
    m_hFont = g_hDefaultFont;
    BeOneLine();
    return 0;
}

LRESULT GEdit::OnNcDestroy()
{
    GWndScroll::OnNcDestroy();
    m_hTheme.Reset();
    m_strText = L"";
    BeOneLine();
    return Frame::Detach(*this);
}

LRESULT GEdit::OnSetFocus(HWND)
{
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    const TEXTMETRICW metric = gesso::WindowMeasure(m_hWnd, m_hFont, false).FontMetric();
    CreateCaret(m_hWnd, nullptr, 0, metric.tmAscent + metric.tmDescent);
    m_fCaret = true;
    UpdateCursorPos();
    ShowCaret(m_hWnd);
    Frame::SendNotify(*this, static_cast<UINT>(NM_SETFOCUS));
    return 0;
}

LRESULT GEdit::OnKillFocus(HWND)
{
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    m_fCaret = false;
    DestroyCaret();
    Frame::SendNotify(*this, static_cast<UINT>(NM_KILLFOCUS));
    return 0;
}

LRESULT GEdit::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GEdit::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT GEdit::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_strText, nCapacity, pszBuffer);
}

LRESULT GEdit::OnGetTextLength() const
{
    return GetTextLength();
}

LRESULT GEdit::OnSetFont(HFONT hFont, UINT uRedraw)
{
    m_nSettled = 0;
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT GEdit::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GEdit::OnStyleChanged()
{
    m_nSettled = 0;
    return Frame::OnStyleChanged(*this);
}

LRESULT GEdit::OnThemeChanged()
{
    Frame::OnThemeChanged(*this, m_hTheme, THEME_CLASS);
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    return 0;
}

LRESULT GEdit::OnSetCursor() const
{
    SetCursor(s_hIbeam);
    return 1;
}

LRESULT GEdit::OnGetDlgCode(const MSG* pMsg) const
{
    constexpr LRESULT CODE = DLGC_WANTCHARS | DLGC_WANTARROWS;
    if (pMsg && pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_ESCAPE) {
        return CODE;
    }
    return Frame::Style(*this) & ES_WANTRETURN ? CODE | DLGC_WANTALLKEYS : CODE;
}

LRESULT GEdit::OnSetSel(int nStart, int nEnd)
{
    SetSel(nStart, nEnd);
    return 0;
}

LRESULT CALLBACK GEdit::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pEdit = Frame::ObjectOf<GEdit>(hwnd);
    if (!pEdit) {
        return uMsg == WM_NCCREATE ? Frame::Attach<GEdit>(hwnd, lParam)
                                   : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    GEdit& edit = *pEdit;
    const POINTS pt = gesso::PointOf(lParam);
    const auto uHit = static_cast<UINT>(wParam);
    switch (uMsg) {
    case WM_CREATE: return edit.OnCreate(reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_NCDESTROY: return edit.OnNcDestroy();
    case WM_SETFOCUS: return edit.OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return edit.OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_ENABLE: return edit.OnEnable(wParam != 0);
    case WM_SETTEXT: return edit.OnSetText(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return edit.OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return edit.OnGetTextLength();
    case WM_PAINT: return gesso::PaintControl(edit, hwnd);
    case WM_PRINTCLIENT: return edit.OnPrintClient(reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_SETCURSOR: return edit.OnSetCursor();
    case WM_SETFONT: return edit.OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return edit.OnGetFont();
    case WM_STYLECHANGED: return edit.OnStyleChanged();
    case WM_VSCROLL: edit.Invalidate(0); return 0;
    case WM_NCCALCSIZE: return edit.OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
    case WM_NCHITTEST: return edit.OnNcHitTest(pt);
    case WM_NCPAINT: return edit.OnNcPaint(wParam);
    case WM_GETDLGCODE: return edit.OnGetDlgCode(reinterpret_cast<const MSG*>(lParam));
    case WM_NCMOUSEMOVE: return edit.OnNcMouseMove(uHit, pt);
    case WM_NCLBUTTONDOWN: return edit.OnNcLButtonDown(uHit, pt);
    case WM_NCLBUTTONDBLCLK: return edit.OnNcLButtonDblClk(uHit, pt);
    case WM_NCLBUTTONUP: return edit.OnNcLButtonUp(uHit, pt);
    case WM_NCMOUSELEAVE: return edit.OnNcMouseLeave();
    case EM_SETSEL: return edit.OnSetSel(static_cast<int>(wParam), static_cast<int>(lParam));
    case WM_KEYDOWN: return edit.OnKeyDown(static_cast<UINT>(wParam), RepeatOf(lParam), FlagsOf(lParam));
    case WM_CHAR: return edit.OnChar(static_cast<UINT>(wParam), RepeatOf(lParam), FlagsOf(lParam));
    case WM_LBUTTONDOWN: return edit.OnLButtonDown(wParam, pt);
    case WM_LBUTTONDBLCLK: return edit.OnLButtonDblClk(wParam, pt);
    case WM_LBUTTONUP: return edit.OnLButtonUp(wParam, pt);
    case WM_MOUSEMOVE: return edit.OnMouseMove(wParam, pt);
    case WM_MOUSELEAVE: return edit.OnMouseLeave();
    case WM_CAPTURECHANGED: return edit.OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_THEMECHANGED: return edit.OnThemeChanged();
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(edit, wParam, lParam);
    case WM_DESTROY:
    case WM_WINDOWPOSCHANGED:
    case WM_NOTIFY:
    case WM_CONTEXTMENU:
    case WM_NCACTIVATE:
    case WM_KEYUP:
    case WM_DEADCHAR:
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
    case WM_APPCOMMAND: return 0;
    default: return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
}
