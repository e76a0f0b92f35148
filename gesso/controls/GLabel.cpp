#include <gesso/controls/GLabel.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FirstFont.h>
#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::ImageKind;
using gesso::Quirk;

constinit ATOM GLabel::s_aClass = 0;

namespace {

// The style bits that pass straight into the text format.
constexpr DWORD ALIGNMENT_BITS = GS_CENTER | GS_RIGHT | GS_VCENTER | GS_BOTTOM;
static_assert(GS_CENTER == DT_CENTER && GS_RIGHT == DT_RIGHT && GS_VCENTER == DT_VCENTER &&
              GS_BOTTOM == DT_BOTTOM);

struct Span
{
    int nStart, nExtent;
};

// Fixed behaviour: the extents are not the image's own, but a height less the image's y unless it stands at
// the top, and a width less its x at the right. Another extent would scale the images of such labels anew.
Span PlaceVertically(const RECT& rc, int cy, DWORD dwStyle)
{
    if (dwStyle & GS_VCENTER) {
        const int y = (rc.bottom - cy + rc.top) >> 1;
        return {y, cy - y};
    }
    if (dwStyle & GS_BOTTOM) {
        const int y = rc.bottom - cy;
        return {y, cy - y};
    }
    return {rc.top, cy};
}

Span PlaceHorizontally(const RECT& rc, int cx, DWORD dwStyle)
{
    if (dwStyle & GS_CENTER) {
        return {(rc.right - cx + rc.left) >> 1, cx};
    }
    if (dwStyle & GS_RIGHT) {
        const int x = rc.right - cx;
        return {x, cx - x};
    }
    return {rc.left, cx};
}

} // namespace

ATOM GLabel::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GLabel", WindowProc, gesso::CLASS_CONTROL);
}

HWND GLabel::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText, DWORD dwExStyle,
                    DWORD dwStyle)
{
    if (!gesso::HoldText(m_pszText, pszText)) {
        return nullptr;
    }
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent},
                               gesso::WillHave(Quirk::IdIsDropped) ? 0 : nId, dwExStyle, dwStyle);
}

void GLabel::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
}

int GLabel::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GLabel::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GLabel::GetStyle() const
{
    return Frame::Style(*this);
}

void GLabel::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

HFONT GLabel::GetFont() const
{
    return m_hFont;
}

int GLabel::SetText(LPCWSTR pszText)
{
    return gesso::ReplaceText(*this, m_pszText, pszText);
}

int GLabel::GetTextLength() const
{
    return gesso::TextLength(m_pszText);
}

int GLabel::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_pszText, pszBuffer, pnLength);
}

HICON GLabel::SetIcon(HICON hIcon)
{
    return gesso::ReplaceIcon(*this, hIcon, {m_hImage, m_cxImage, m_cyImage});
}

HICON GLabel::GetIcon() const
{
    return static_cast<HICON>(m_hImage);
}

HBITMAP GLabel::SetBitmap(HBITMAP hBitmap)
{
    return gesso::ReplaceBitmap(*this, hBitmap, {m_hImage, m_cxImage, m_cyImage});
}

HBITMAP GLabel::GetBitmap() const
{
    return static_cast<HBITMAP>(m_hImage);
}

COLORREF GLabel::SetTextColor(COLORREF cr)
{
    const COLORREF crFormer = m_crText;
    m_crText = cr;
    m_fColorSet = true;
    return crFormer;
}

COLORREF GLabel::GetTextColor() const
{
    return m_crText;
}

// --- Drawing

namespace {

void DrawFlatLine(HWND hwnd, HDC hdc, RECT rc, bool fDown)
{
    const int nWidth = gesso::Pixels(hwnd, gesso::Metrics::THIN_LINE);
    (fDown ? rc.right : rc.bottom) = (fDown ? rc.left : rc.top) + nWidth;
    gesso::FillColor(hdc, rc, ColorOf(gesso::Color::PanelLine));
}

} // namespace

void GLabel::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = Frame::Style(*this);
    if (!Frame::DrawParentBackground(*this, hdc, &rc) || (dwStyle & GLS_EMPTY)) {
        return;
    }
    if (dwStyle & (GLS_ETCHEDVERT | GLS_ETCHEDHORZ)) {
        const bool fDown = dwStyle & GLS_ETCHEDVERT;
        gesso::IsDrawnFlat() ? DrawFlatLine(m_hWnd, hdc, rc, fDown) : DrawEtchedLine(hdc, rc, fDown);
    } else if (dwStyle & (GS_ICON | GS_BITMAP)) {
        DrawContentImage(hdc, rc, dwStyle);
    } else {
        DrawContentText(hdc, rc, dwStyle);
    }
}

void GLabel::DrawEtchedLine(HDC hdc, RECT rc, bool fDown)
{
    DrawEdge(hdc, &rc, EDGE_ETCHED, fDown ? BF_LEFT : BF_TOP);
}

// In Light a disabled label looks like any other.
COLORREF GLabel::ColorOfText(DWORD dwStyle) const
{
    const bool fDisabled = gesso::IsDrawnFlat() && (dwStyle & WS_DISABLED);
    return gesso::HostColor(m_crText, m_fColorSet,
                            fDisabled ? gesso::ColorRole::DisabledText : gesso::ColorRole::PanelText);
}

void GLabel::DrawContentImage(HDC hdc, const RECT& rc, DWORD dwStyle) const
{
    const ImageKind kind = gesso::ImageKindOf(dwStyle);
    SIZE size{};
    if (!gesso::MeasureImage(kind, m_hImage, &size)) {
        return;
    }
    size = gesso::TimesIn(m_hWnd, size);
    Span across = PlaceHorizontally(rc, size.cx, dwStyle);
    Span down = PlaceVertically(rc, size.cy, dwStyle);
    if (!Has(*this, Quirk::LabelImageIsStretched)) {
        across.nExtent = size.cx;
        down.nExtent = size.cy;
    }
    gesso::DrawImageIn(m_hWnd, hdc, kind, m_hImage, {across.nStart, down.nStart},
                       {across.nExtent, down.nExtent}, dwStyle);
}

void GLabel::DrawContentText(HDC hdc, RECT rc, DWORD dwStyle) const
{
    if (dwStyle & GLS_INSET) {
        const int nInset = gesso::Pixels(m_hWnd, gesso::Metrics::LABEL_INSET);
        InflateRect(&rc, -nInset, -nInset);
    }
    const UINT uFormat = (dwStyle & ALIGNMENT_BITS) |
                         (dwStyle & GS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE) |
                         (dwStyle & GLS_NOPREFIX ? DT_NOPREFIX : 0) | gesso::PrefixFormat(m_dwState);
    const gesso::TransparentScope mode(hdc);
    const gesso::SelectScope font(hdc, m_hFont);
    const gesso::TextColorScope color(hdc, ColorOfText(dwStyle));
    gesso::LayoutOverlay::Add(hdc, rc);
    DrawTextW(hdc, gesso::TextOrEmpty(m_pszText), -1, &rc, uFormat);
}

// --- Messages

LRESULT GLabel::OnCreate(const CREATESTRUCTW*)
{
    Frame::SetState(*this, Frame::FirstState(*this));
    gesso::TakeFirstFont(*this, m_hFont);
    return 0;
}

LRESULT GLabel::OnDestroy()
{
    m_pszText.Reset();
    return Frame::Detach(*this);
}

// Clears no state, since a label has none of the kind.
LRESULT GLabel::OnEnable(BOOL)
{
    Invalidate(0);
    return 0;
}

LRESULT GLabel::OnStyleChanged()
{
    return Frame::OnStyleChanged(*this);
}

LRESULT GLabel::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT GLabel::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GLabel::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT GLabel::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_pszText, nCapacity, pszBuffer);
}

LRESULT GLabel::OnGetTextLength() const
{
    return GetTextLength();
}

LRESULT CALLBACK GLabel::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GLabel>(hwnd, uMsg, wParam, lParam);
}

LRESULT GLabel::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_DESTROY: return OnDestroy();
    case WM_ENABLE: return OnEnable(wParam != 0);
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_STYLECHANGED: return OnStyleChanged();
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(*this, wParam, lParam);
    case WM_SETFONT: return OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return OnGetFont();
    case WM_SETTEXT: return OnSetText(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return OnGetTextLength();
    case WM_GETDLGCODE: return DLGC_STATIC;
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
