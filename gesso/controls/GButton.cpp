#include <gesso/controls/ButtonInput.h>
#include <gesso/controls/ContentLayout.h>
#include <gesso/controls/GButton.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::ImageKind;
using gesso::ImageSide;

constinit ATOM GButton::s_aClass = 0;

namespace {

constexpr LPCWSTR THEME_CLASS = L"BUTTON";

ImageSide ImageSideOf(DWORD dwStyle)
{
    switch (dwStyle & GBS_IMAGEBOTTOM) {
    case GBS_IMAGERIGHT: return ImageSide::Right;
    case GBS_IMAGETOP: return ImageSide::Top;
    case GBS_IMAGEBOTTOM: return ImageSide::Bottom;
    default: return ImageSide::Left;
    }
}

} // namespace

ATOM GButton::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GButton", WindowProc, gesso::CLASS_CONTROL);
}

HWND GButton::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText, DWORD dwExStyle,
                     DWORD dwStyle)
{
    m_pszText.Reset(gesso::CopyText(pszText));
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GButton::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
}

int GButton::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GButton::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GButton::GetStyle() const
{
    return Frame::Style(*this);
}

void GButton::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

HFONT GButton::GetFont() const
{
    return m_hFont;
}

int GButton::SetText(LPCWSTR pszText)
{
    m_pszText.Reset(gesso::CopyText(pszText));
    Invalidate(0);
    return 1;
}

int GButton::GetTextLength() const
{
    return gesso::TextLength(m_pszText);
}

int GButton::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_pszText, pszBuffer, pnLength);
}

HICON GButton::SetIcon(HICON hIcon)
{
    const HANDLE hFormer = gesso::ReplaceImage(ImageKind::Icon, hIcon, m_hImage, m_cxImage, m_cyImage);
    Invalidate(0);
    return static_cast<HICON>(hFormer);
}

HICON GButton::GetIcon() const
{
    return static_cast<HICON>(m_hImage);
}

HBITMAP GButton::SetBitmap(HBITMAP hBitmap)
{
    const HANDLE hFormer = gesso::ReplaceImage(ImageKind::Bitmap, hBitmap, m_hImage, m_cxImage, m_cyImage);
    Invalidate(0);
    return static_cast<HBITMAP>(hFormer);
}

HBITMAP GButton::GetBitmap() const
{
    return static_cast<HBITMAP>(m_hImage);
}

// --- Drawing
// ------------------------------------------------------------------------------------------------------

int GButton::ThemeState(DWORD dwStyle) const
{
    constexpr DWORD HOT_AND_PRESSED = GWS_HOT | GWS_PRESSED;
    if ((m_dwState & GWS_KEYDOWN) || (m_dwState & HOT_AND_PRESSED) == HOT_AND_PRESSED) {
        return PBS_PRESSED;
    }
    if (m_dwState & GWS_HOT) {
        return PBS_HOT;
    }
    if (dwStyle & WS_DISABLED) {
        return PBS_DISABLED;
    }
    return dwStyle & GBS_DEFAULT ? PBS_DEFAULTED : PBS_NORMAL;
}

bool GButton::ShowsFocus() const
{
    return !(m_dwState & GWS_HIDEFOCUS) && ::GetFocus() == m_hWnd;
}

void GButton::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const DWORD dwStyle = Frame::Style(*this);
    DrawThemeParentBackground(m_hWnd, hdc, &rcClient);
    const gesso::ThemePart part(m_hTheme, hdc, BP_PUSHBUTTON, ThemeState(dwStyle),
                                gesso::PlainPart::PushButton);
    part.DrawBackground(rcClient);
    const RECT rcContent = part.ContentOf(rcClient);

    const gesso::SelectScope font(hdc, m_hFont);
    const LPCWSTR pszText = gesso::TextOrEmpty(m_pszText);
    const ImageKind kind = m_hImage ? gesso::ImageKindOf(dwStyle) : ImageKind::None;
    const ImageSide side = ImageSideOf(dwStyle);
    const SIZE image{m_cxImage, m_cyImage};
    const UINT uFormat = dwStyle & GS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE;

    RECT rcText = kind == ImageKind::None ? rcContent : gesso::RoomBesideImage(rcContent, side, image);
    rcText = part.TextExtent(pszText, uFormat, rcText);
    gesso::AlignText(&rcText, rcContent, dwStyle);
    if (kind != ImageKind::None) {
        const POINT pt = gesso::PlaceImage(&rcText, side, image, dwStyle);
        gesso::DrawImage(hdc, kind, m_hImage, pt.x, pt.y, image.cx, image.cy, dwStyle);
    }
    part.DrawString(pszText, uFormat | gesso::PrefixFormat(m_dwState), rcText);
    if (ShowsFocus()) {
        DrawFocusRect(hdc, &rcContent);
    }
}

// --- Messages
// -----------------------------------------------------------------------------------------------------

LRESULT GButton::OnCreate(const CREATESTRUCTW*)
{
    m_dwState = Frame::FIRST_STATE;
    m_hTheme.Reset(OpenThemeData(m_hWnd, THEME_CLASS));
    m_hFont = g_hDefaultFont;
    return 0;
}

LRESULT GButton::OnDestroy()
{
    m_hTheme.Reset();
    m_pszText.Reset();
    return Frame::Detach(*this);
}

LRESULT GButton::OnThemeChanged()
{
    m_hTheme.Reset();
    m_hTheme.Reset(OpenThemeData(m_hWnd, THEME_CLASS));
    Invalidate(0);
    return 0;
}

LRESULT GButton::OnGetDlgCode() const
{
    return DLGC_BUTTON | (Frame::Style(*this) & GBS_DEFAULT ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
}

LRESULT GButton::OnSetStyle(WPARAM wStyle, UINT uRedraw)
{
    const DWORD dwStyle = Frame::Style(*this);
    SetStyle(wStyle & BS_DEFPUSHBUTTON ? dwStyle | GBS_DEFAULT : dwStyle & ~GBS_DEFAULT);
    if (uRedraw) {
        Invalidate(0);
    }
    return 0;
}

LRESULT GButton::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GButton::OnSetFocus(HWND)
{
    return Frame::OnSetFocus(*this);
}

LRESULT GButton::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this);
}

LRESULT GButton::OnKeyDown(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyDown(*this, uKey);
}

LRESULT GButton::OnKeyUp(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyUp(*this, uKey);
}

LRESULT GButton::OnLButtonDown(WPARAM, POINTS)
{
    return gesso::OnButtonDown(*this);
}

LRESULT GButton::OnLButtonUp(WPARAM, POINTS pt)
{
    return gesso::OnButtonUp(*this, pt);
}

LRESULT GButton::OnMouseMove(WPARAM, POINTS pt)
{
    return gesso::OnButtonMove(*this, pt);
}

LRESULT GButton::OnMouseLeave()
{
    return Frame::OnMouseLeave(*this);
}

LRESULT GButton::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

LRESULT GButton::OnStyleChanged()
{
    return Frame::OnStyleChanged(*this);
}

LRESULT GButton::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT GButton::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GButton::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT GButton::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_pszText, nCapacity, pszBuffer);
}

LRESULT GButton::OnGetTextLength() const
{
    return GetTextLength();
}

int GButton::HitTest(POINTS pt) const
{
    return gesso::HitTestClient(m_hWnd, pt);
}

LRESULT CALLBACK GButton::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pButton = Frame::ObjectOf<GButton>(hwnd);
    if (!pButton) {
        return uMsg == WM_CREATE ? Frame::Attach<GButton>(hwnd, lParam)
                                 : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    GButton& button = *pButton;
    switch (uMsg) {
    case WM_DESTROY: return button.OnDestroy();
    case WM_ENABLE: return button.OnEnable(wParam != 0);
    case WM_SETFOCUS: return button.OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return button.OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_KEYDOWN: return button.OnKeyDown(static_cast<UINT>(wParam), lParam);
    case WM_KEYUP: return button.OnKeyUp(static_cast<UINT>(wParam), lParam);
    case WM_LBUTTONDOWN: return button.OnLButtonDown(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return button.OnLButtonUp(wParam, gesso::PointOf(lParam));
    case WM_MOUSEMOVE: return button.OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_MOUSELEAVE: return button.OnMouseLeave();
    case WM_CAPTURECHANGED: return button.OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_PAINT: return gesso::PaintControl(button, hwnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(button, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return button.OnThemeChanged();
    case WM_STYLECHANGED: return button.OnStyleChanged();
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(button, wParam, lParam);
    case WM_SETFONT: return button.OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return button.OnGetFont();
    case WM_SETTEXT: return button.OnSetText(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return button.OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return button.OnGetTextLength();
    case WM_GETDLGCODE: return button.OnGetDlgCode();
    case BM_SETSTYLE: return button.OnSetStyle(wParam, LOWORD(lParam));
    default: return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
}
