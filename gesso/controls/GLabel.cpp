#include <gesso/controls/GLabel.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::ImageKind;

using Control = GLabel;
#include <gesso/controls/ContentMembers.inl>

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

// Hosts rely on the extents that are not the image's own: a height less the image's y unless it stands at the
// top, and a width less its x at the right.
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

HWND GLabel::Create(int x, int y, int cx, int cy, HWND hwndParent, int, LPCWSTR pszText, DWORD dwExStyle,
                    DWORD dwStyle)
{
    m_pszText.Reset(gesso::CopyText(pszText));
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, 0,
                               dwExStyle, dwStyle);
}

void GLabel::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
}

COLORREF GLabel::SetTextColor(COLORREF cr)
{
    const COLORREF crFormer = m_crText;
    m_crText = cr;
    return crFormer;
}

COLORREF GLabel::GetTextColor() const
{
    return m_crText;
}

// --- Drawing

void GLabel::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = Frame::Style(*this);
    if (!Frame::DrawParentBackground(*this, hdc, &rc) || (dwStyle & GLS_EMPTY)) {
        return;
    }
    if (dwStyle & (GLS_ETCHEDVERT | GLS_ETCHEDHORZ)) {
        DrawEdge(hdc, &rc, EDGE_ETCHED, dwStyle & GLS_ETCHEDVERT ? BF_LEFT : BF_TOP);
    } else if (dwStyle & (GS_ICON | GS_BITMAP)) {
        DrawContentImage(hdc, rc, dwStyle);
    } else {
        DrawContentText(hdc, rc, dwStyle);
    }
}

void GLabel::DrawContentImage(HDC hdc, const RECT& rc, DWORD dwStyle) const
{
    const ImageKind kind = gesso::ImageKindOf(dwStyle);
    SIZE size{};
    if (!gesso::MeasureImage(kind, m_hImage, &size)) {
        return;
    }
    const Span across = PlaceHorizontally(rc, size.cx, dwStyle);
    const Span down = PlaceVertically(rc, size.cy, dwStyle);
    gesso::DrawImage(hdc, kind, m_hImage, across.nStart, down.nStart, across.nExtent, down.nExtent, dwStyle);
}

void GLabel::DrawContentText(HDC hdc, RECT rc, DWORD dwStyle) const
{
    if (dwStyle & GLS_INSET) {
        InflateRect(&rc, -1, -1);
    }
    const UINT uFormat = (dwStyle & ALIGNMENT_BITS) |
                         (dwStyle & GS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE) |
                         (dwStyle & GLS_NOPREFIX ? DT_NOPREFIX : 0) | gesso::PrefixFormat(m_dwState);
    const gesso::TransparentScope mode(hdc);
    const gesso::SelectScope font(hdc, m_hFont);
    const gesso::TextColorScope color(hdc, m_crText);
    DrawTextW(hdc, gesso::TextOrEmpty(m_pszText), -1, &rc, uFormat);
}

// --- Messages

LRESULT GLabel::OnCreate(const CREATESTRUCTW*)
{
    m_dwState = Frame::FIRST_STATE;
    m_hFont = g_hDefaultFont;
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

LRESULT CALLBACK GLabel::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pLabel = Frame::ObjectOf<GLabel>(hwnd);
    if (!pLabel) {
        return uMsg == WM_CREATE ? Frame::Attach<GLabel>(hwnd, lParam)
                                 : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    GLabel& label = *pLabel;
    switch (uMsg) {
    case WM_DESTROY: return label.OnDestroy();
    case WM_ENABLE: return label.OnEnable(wParam != 0);
    case WM_PAINT: return gesso::PaintControl(label, hwnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(label, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_STYLECHANGED: return label.OnStyleChanged();
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(label, wParam, lParam);
    case WM_SETFONT: return label.OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return label.OnGetFont();
    case WM_SETTEXT: return label.OnSetText(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return label.OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return label.OnGetTextLength();
    case WM_GETDLGCODE: return DLGC_STATIC;
    default: return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
}
