#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/ribbon/RibbonImages.h>
#include <gesso/ribbon/RibbonInside.h>

using gesso::Color;
using gesso::Frame;
using gesso::LightColorOf;
using gesso::Quirk;
namespace Metrics = gesso::Metrics;

constinit ATOM GRibbon::s_aClass = 0;

namespace {

HFONT MakeFont(HWND hwnd, gesso::Measure height)
{
    return CreateFontW(-gesso::Pixels(hwnd, height), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Calibri");
}

HPEN MakePen(HWND hwnd, COLORREF cr)
{
    return CreatePen(PS_SOLID, gesso::Pixels(hwnd, Metrics::THIN_LINE), cr);
}

template <class HANDLE, class MAKE> void MakeMissing(HANDLE& handle, const MAKE& make)
{
    if (!handle) {
        handle.Reset(make());
    }
}

} // namespace

ATOM GRibbon::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GRibbon", WindowProc, gesso::CLASS_HOST);
}

// --- Coming to life and going

GRibbon::GRibbon()
    : m_crActiveLine(LightColorOf(Color::RibbonActiveLine)),
      m_crActiveFill(LightColorOf(Color::RibbonActiveFill)), m_crHotLine(LightColorOf(Color::RibbonHotLine)),
      m_crHotFill(LightColorOf(Color::RibbonHotFill)), m_crPageLine(LightColorOf(Color::RibbonPageLine))
{
    m_hTabFont.Reset(MakeFont(nullptr, Metrics::RIBBON_TAB_FONT));
}

// The tabs are as wide as their titles, and the pages lay out their items anew.
void GRibbon::OnScaling()
{
    if (m_hTabFont) { // a constructor with a template prepares none
        m_hTabFont.Reset(MakeFont(m_hWnd, Metrics::RIBBON_TAB_FONT));
    }
    ReleaseTools();
    MakeMissingTools();
    for (RibbonTab& tab : m_aTabs) {
        tab.uTextWidth = MeasureTitle(tab.pPage->Title());
        if (tab.pPage->RibbonWindow()) {
            tab.pPage->OnScaling();
        }
    }
}

GRibbon::GRibbon(UINT uTemplate) : m_template(LOWORD(uTemplate)) {}

GRibbon::GRibbon(LPCWSTR pszTemplate) : m_template(reinterpret_cast<ULONG_PTR>(pszTemplate)) {}

GRibbon::~GRibbon() = default;

HWND GRibbon::Create(int x, int y, int cx, int cy, HWND hwndParent, HINSTANCE hInstance)
{
    m_hLargeImages.Reset();
    m_hSmallImages.Reset();
    TakeMissingImages(hInstance);
    const gesso::Lifeline life(*this);
    const DWORD dwTabStop = gesso::WillHave(Quirk::RibbonTakesNoKeys) ? 0 : WS_TABSTOP;
    const HWND hwnd = Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent},
                                          0, 0, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | dwTabStop);
    if (!hwnd && life) {
        m_hLargeImages.Reset();
        m_hSmallImages.Reset();
    }
    return hwnd;
}

int GRibbon::Destroy()
{
    return DestroyWindow(m_hWnd);
}

void GRibbon::Init(void*) {}

// --- Messages

LRESULT GRibbon::OnCreate(const CREATESTRUCTW*)
{
    Frame::SetState(*this, Frame::FirstState(*this));
    if (!Has(*this, Quirk::StateOutlivesWindow)) {
        m_inside->hwndBefore = nullptr;
        ChangeHot(RIBBON_NONE);
    }
    ReleaseTools();
    MakeMissingTools();
    for (UINT i = 0; i < m_aTabs.GetLength(); i++) {
        m_aTabs[i].pPage->Create(this);
    }
    if (gesso::GetScaling() != gesso::Scaling::None) {
        OnScaling(); // what was measured for no window yet
    }
    return 0;
}

void GRibbon::ReleaseTools()
{
    m_hActivePen.Reset();
    m_hActiveBrush.Reset();
    m_hHotPen.Reset();
    m_hHotBrush.Reset();
    m_hPagePen.Reset();
    m_hPageFont.Reset();
}

void GRibbon::MakeMissingTools()
{
    MakeMissing(m_hActivePen, [this] { return MakePen(m_hWnd, m_crActiveLine); });
    MakeMissing(m_hActiveBrush, [this] { return CreateSolidBrush(m_crActiveFill); });
    MakeMissing(m_hHotPen, [this] { return MakePen(m_hWnd, m_crHotLine); });
    MakeMissing(m_hHotBrush, [this] { return CreateSolidBrush(m_crHotFill); });
    MakeMissing(m_hPagePen, [this] { return MakePen(m_hWnd, m_crPageLine); });
    MakeMissing(m_hPageFont, [this] { return MakeFont(m_hWnd, Metrics::RIBBON_PAGE_FONT); });
}

// A list that there is stays: it may be of another module's template.
void GRibbon::TakeMissingImages(HINSTANCE hInstance)
{
    const gesso::RibbonImages images =
        m_template ? gesso::LoadRibbonImages(hInstance, reinterpret_cast<LPCWSTR>(m_template))
                   : gesso::MakeEmptyRibbonImages();
    gesso::ImageListHandle hLarge;
    gesso::ImageListHandle hSmall;
    (m_hLargeImages ? hLarge : m_hLargeImages).Reset(images.hLarge);
    (m_hSmallImages ? hSmall : m_hSmallImages).Reset(images.hSmall);
}

void GRibbon::SetImageLists(HIMAGELIST hLarge, HIMAGELIST hSmall)
{
    m_inside->hLargeImages = hLarge;
    m_inside->hSmallImages = hSmall;
    Invalidate(0);
}

HIMAGELIST GRibbon::LargeImages() const
{
    const HIMAGELIST hOfHost = m_inside->hLargeImages;
    return hOfHost ? hOfHost : m_hLargeImages;
}

HIMAGELIST GRibbon::SmallImages() const
{
    const HIMAGELIST hOfHost = m_inside->hSmallImages;
    return hOfHost ? hOfHost : m_hSmallImages;
}

// Opens the pages' style anew, and makes what could not be made before. Images that are lacking come from the
// program: where else a template may lie is known to Create alone.
LRESULT GRibbon::OnThemeChanged()
{
    if (!m_template) {
        MakeMissing(m_hTabFont, [this] { return MakeFont(m_hWnd, Metrics::RIBBON_TAB_FONT); });
    }
    MakeMissingTools();
    if (!m_hLargeImages || !m_hSmallImages) {
        TakeMissingImages(nullptr);
    }
    for (const RibbonTab& tab : m_aTabs) {
        // A derived page need not have called the base class's Create.
        if (tab.pPage->RibbonWindow()) {
            tab.pPage->TakeStyle();
        }
    }
    Invalidate(0);
    return 0;
}

LRESULT GRibbon::OnDestroy()
{
    for (UINT i = 0; i < m_aTabs.GetLength(); i++) {
        m_aTabs[i].pPage->Destroy();
    }
    ReleaseTools();
    m_hLargeImages.Reset();
    m_hSmallImages.Reset();
    return Frame::Detach(*this);
}

// A new size changes nothing: groups never shrink, and what does not fit is clipped.
LRESULT GRibbon::OnWindowPosChanged()
{
    return 0;
}

LRESULT GRibbon::OnLButtonDown(WPARAM wKeys, POINTS pt)
{
    const UINT nHit = HitTest(pt);
    if (nHit == RIBBON_NONE) {
        if (GRibbonPage* pPage = ActivePage()) {
            pPage->OnLButtonDown(wKeys, pt);
        }
    } else if (nHit != m_nActive) {
        SetActive(nHit);
    }
    return 0;
}

LRESULT GRibbon::OnLButtonUp(WPARAM wKeys, POINTS pt)
{
    if (GRibbonPage* pPage = ActivePage()) {
        pPage->OnLButtonUp(wKeys, pt);
    }
    return 0;
}

// The one place where the tab under the pointer changes.
void GRibbon::ChangeHot(UINT nIndex)
{
    m_nHot = nIndex;
}

LRESULT GRibbon::OnMouseMove(WPARAM wKeys, POINTS pt)
{
    Frame::TrackLeave(*this);
    const UINT nHit = HitTest(pt);
    if (nHit != m_nHot) {
        // Fixed behaviour: the active tab never becomes hot, so that each move over it repaints. Without that
        // a page that follows the pointer would show what was under it before.
        ChangeHot(nHit == m_nActive ? RIBBON_NONE : nHit);
        Invalidate(0);
    }
    GRibbonPage* pPage = ActivePage();
    if (pPage && m_nHot == RIBBON_NONE) {
        pPage->OnMouseMove(wKeys, pt);
    } else if (pPage) {
        pPage->ForgetPointer();
    }
    return 0;
}

LRESULT GRibbon::OnMouseLeave()
{
    ChangeHot(RIBBON_NONE);
    Frame::OnMouseLeave(*this);
    if (GRibbonPage* pPage = ActivePage()) {
        pPage->OnMouseLeave();
    }
    return 0;
}

LRESULT GRibbon::OnCaptureChanged(HWND hwndNew)
{
    Frame::OnCaptureChanged(*this, hwndNew);
    if (GRibbonPage* pPage = ActivePage()) {
        pPage->OnCaptureChanged(hwndNew);
    }
    return 0;
}

LRESULT CALLBACK GRibbon::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GRibbon>(hwnd, uMsg, wParam, lParam);
}

LRESULT GRibbon::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_DESTROY: return OnDestroy();
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_WINDOWPOSCHANGED: return OnWindowPosChanged();
    case WM_COMMAND:
    case WM_NOTIFY: return PassToParent(uMsg, wParam, lParam);
    case WM_GETDLGCODE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_KEYDOWN: return OnKeyboardMessage(uMsg, wParam, lParam);
    default: return OnMouseMessage(uMsg, wParam, lParam);
    }
}

// Of a hosted window.
LRESULT GRibbon::PassToParent(UINT uMsg, WPARAM wParam, LPARAM lParam) const
{
    const bool fLost = Has(*this, Quirk::RibbonLosesAnswers);
    const LRESULT lAnswer = SendMessageW(::GetParent(m_hWnd), uMsg, wParam, lParam);
    return fLost ? 0 : lAnswer;
}

LRESULT GRibbon::OnMouseMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return OnLButtonUp(wParam, gesso::PointOf(lParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_CAPTURECHANGED: return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
