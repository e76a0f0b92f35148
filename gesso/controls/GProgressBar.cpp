#include <gesso/controls/GProgressBar.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

#include <algorithm>

using gesso::Frame;
using gesso::PlainPart;
using gesso::ThemePart;

constinit ATOM GProgressBar::s_aClass = 0;

namespace {

constexpr LPCWSTR STYLE_CLASS = L"PROGRESS";

// Drawing has no coordinates beyond this, and no bar is that long.
constexpr double FARTHEST = 0x7FFFFFF;

// Truncated toward zero; the order of the operations is part of the result.
int FillWidth(int cxBar, UINT nProgress)
{
    return -static_cast<int>(std::clamp(cxBar / -1000.0 * nProgress, -FARTHEST, FARTHEST));
}

} // namespace

ATOM GProgressBar::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GProgressBar", WindowProc, gesso::CLASS_CONTROL);
}

HWND GProgressBar::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                          DWORD dwStyle)
{
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent},
                               gesso::WillHave(gesso::Quirk::IdIsDropped) ? 0 : nId, dwExStyle, dwStyle);
}

int GProgressBar::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GProgressBar::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GProgressBar::GetStyle() const
{
    return Frame::Style(*this);
}

void GProgressBar::SetProgress(UINT nProgress)
{
    const HWND hwnd = m_hWnd;
    const bool fChanges = m_nProgress != nProgress;
    ChangeProgress(nProgress);
    Invalidate(0);
    if (fChanges) {
        gesso::TellAccess(hwnd, EVENT_OBJECT_VALUECHANGE);
    }
}

// Every change of the progress goes through here.
void GProgressBar::ChangeProgress(UINT nProgress)
{
    m_nProgress = nProgress;
}

void GProgressBar::Draw(HDC hdc)
{
    RECT rc{};
    if (!Frame::DrawParentBackground(*this, hdc, &rc)) {
        return;
    }
    // The style has no look for a disabled one.
    const bool fGrey = gesso::IsDrawnFlat() && (Frame::Style(*this) & WS_DISABLED);
    ThemePart(m_hTheme, hdc, PP_BAR, fGrey ? int{PBS_DISABLED} : 0, PlainPart::ProgressBar)
        .In(m_hWnd)
        .DrawBackground(rc);
    RECT rcFill = ThemePart(m_hTheme, hdc, PP_BAR, 0, PlainPart::ProgressBar).In(m_hWnd).ContentOf(rc);
    rcFill.right = rcFill.left + FillWidth(rcFill.right - rcFill.left, m_nProgress);
    ThemePart(m_hTheme, hdc, PP_FILL, fGrey ? int{PBS_DISABLED} : PBFS_NORMAL, PlainPart::ProgressFill)
        .DrawBackground(rcFill);
}

LRESULT GProgressBar::OnCreate(const CREATESTRUCTW*)
{
    m_hTheme.Open(m_hWnd, STYLE_CLASS);
    return 0;
}

LRESULT GProgressBar::OnDestroy()
{
    m_hTheme.Reset();
    return Frame::Detach(*this);
}

LRESULT GProgressBar::OnEnable(BOOL)
{
    Invalidate(0);
    return 0;
}

LRESULT CALLBACK GProgressBar::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GProgressBar>(hwnd, uMsg, wParam, lParam);
}

LRESULT GProgressBar::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_DESTROY: return OnDestroy();
    case WM_ENABLE: return OnEnable(wParam != 0);
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    // Fixed behaviour: a style that is open stays open. A host would see a plain bar where reopening fails.
    case WM_THEMECHANGED: return m_hTheme ? 0 : Frame::OnThemeChanged(*this, m_hTheme, STYLE_CLASS);
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
