// The one pass from top to bottom in which GWndCertFailure measures and places everything, at WM_INITDIALOG.

#include <gesso/controls/GButton.h>
#include <gesso/controls/GCheckBox.h>
#include <gesso/dialogs/ButtonRow.h>
#include <gesso/dialogs/CertContent.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GWndCertFailure.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/WindowDpi.h>

#include <algorithm>

using gesso::Color;
using gesso::LightColorOf;
using gesso::Pixels;
namespace Metrics = gesso::Metrics;
using gesso::CHECKBOX_ID;
using gesso::KIND_ICON;
using gesso::KIND_TEXT;
using gesso::MapUnits;
using gesso::SHOW_ID;
using gesso::TextId;
using gesso::TextOf;

// The state of the pass.
struct GWndCertFailure::Layout
{
    HDC hdc;
    HFONT hFontHeader, hFontDialog;
    const gesso::CertSeverity& severity;
    int cxMargin, cxGap, cyGap;
    SIZE icon, smallIcon;
    int cyIconShift = 0; // centres a small icon on a line of text
    int xLimit = 0;      // the right limit of all text
    int xWidest = 0;     // the right edge of the widest text so far
    int y = 0;           // where the next element goes

    // Measures a text, wrapped at the limit, and keeps the widest.
    RECT Measure(HFONT hFont, LPCWSTR psz, int x, int yTop)
    {
        const gesso::SelectScope font(hdc, hFont);
        RECT rc{x, yTop, xLimit, 0};
        DrawTextW(hdc, psz, -1, &rc, DT_CALCRECT | DT_WORDBREAK);
        xWidest = std::max<int>(xWidest, rc.right);
        return rc;
    }
};

namespace {

constexpr WORD SUBJECT_ICON = 139;
constexpr int HEADER_COLUMNS = 48;
constexpr int BODY_COLUMNS = 58;
constexpr DWORD CHECKBOX_STYLE = WS_CHILD | WS_VISIBLE | WS_TABSTOP | GS_VCENTER;
static_assert(CHECKBOX_STYLE == 0x50010004);

void Keep(OArray<void*, void* const&>& aKept, void* p)
{
    aKept.GetAtGrow(aKept.GetLength()) = p;
}

HFONT MakeHeaderFont(HWND hwnd)
{
    return CreateFontW(-Pixels(hwnd, Metrics::CERT_HEADER_FONT), 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET,
                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH,
                       L"Segoe UI");
}

SIZE IconSize(HWND hwnd, int nWidthIndex, int nHeightIndex)
{
    return {gesso::SystemMetric(hwnd, nWidthIndex), gesso::SystemMetric(hwnd, nHeightIndex)};
}

TEXTMETRICW MetricsOf(HDC hdc, HFONT hFont)
{
    const gesso::SelectScope font(hdc, hFont);
    TEXTMETRICW metrics{};
    GetTextMetricsW(hdc, &metrics);
    return metrics;
}

// One pixel of a gradient's channel, worked in single precision and cut off.
DWORD Blend(DWORD crLeft, DWORD crRight, int nShift, int x, int nSteps)
{
    const int nLeft = static_cast<int>((crLeft >> nShift) & 0xFF);
    const int nRight = static_cast<int>((crRight >> nShift) & 0xFF);
    const float step = static_cast<float>(nRight - nLeft) / static_cast<float>(nSteps);
    return static_cast<DWORD>(static_cast<int>(step * static_cast<float>(x)) + nLeft) & 0xFF;
}

} // namespace

void GWndCertFailure::AddText(HFONT hFont, Color color, LPCWSTR psz, const RECT& rc)
{
    Keep(m_aElements, new CertElement{KIND_TEXT, {.text = {hFont, color, psz, rc}}});
}

HICON GWndCertFailure::LoadKeptIcon(WORD wId, int cx, int cy)
{
    HICON hIcon = nullptr;
    const auto hInstance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(m_hWnd, GWLP_HINSTANCE));
    IsolationAwareLoadIconWithScaleDown(hInstance, MAKEINTRESOURCEW(wId), cx, cy, &hIcon);
    Keep(m_aIcons, hIcon);
    return hIcon;
}

void GWndCertFailure::AddIcon(HICON hIcon, int x, int y)
{
    Keep(m_aElements, new CertElement{KIND_ICON, {.icon = {hIcon, x, y}}});
}

int GWndCertFailure::OnInitDialog()
{
    if (const DWORD dwLayout = gesso::LayoutOfTexts()) { // before the template's window has anything in it
        SetWindowLongW(m_hWnd, GWL_EXSTYLE,
                       static_cast<LONG>(GetWindowLongW(m_hWnd, GWL_EXSTYLE) | static_cast<LONG>(dwLayout)));
    }
    m_hTheme.Open(m_hWnd, L"TASKDIALOG");
    SetWindowTextW(m_hWnd, gesso::TextOrEmpty(m_pConfig->pszCaption));
    PlaceElements();
    SendMessageW(m_hWnd, DM_SETDEFID, m_pConfig->dwType == CFT_INVALID ? IDOK : IDYES, 0);
    // Last, since it makes the owner inactive, which may end the dialog then.
    gesso::CenterWindow(m_hWnd, ::GetParent(m_hWnd), WindowSizeFor({m_rcFooter.right, m_rcFooter.bottom}));
    return 1;
}

// The window is as large as what is in it, wherever it is to be.
void GWndCertFailure::OnScaling(const RECT* prcWanted)
{
    ReleaseElements();
    m_hTheme.Open(m_hWnd, L"TASKDIALOG");
    PlaceElements();
    RECT rc{};
    GetWindowRect(m_hWnd, &rc);
    const POINT pt = prcWanted ? POINT{prcWanted->left, prcWanted->top} : POINT{rc.left, rc.top};
    const SIZE size = WindowSizeFor({m_rcFooter.right, m_rcFooter.bottom});
    SetWindowPos(m_hWnd, nullptr, pt.x, pt.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    Invalidate(0);
}

// Everything from top to bottom.
void GWndCertFailure::PlaceElements()
{
    const gesso::WindowContext context(m_hWnd);
    const HFONT hFontHeader = MakeHeaderFont(m_hWnd);
    Keep(m_aFonts, hFontHeader);
    const RECT rcUnits = MapUnits(m_hWnd, Metrics::CERT_MARGIN, 0, Metrics::CERT_GAP_X, Metrics::CERT_GAP_Y);
    Layout layout{.hdc = context,
                  .hFontHeader = hFontHeader,
                  .hFontDialog = gesso::FontOf(m_hWnd),
                  .severity = gesso::SeverityOf(m_pConfig->dwType),
                  .cxMargin = rcUnits.left,
                  .cxGap = rcUnits.right,
                  .cyGap = rcUnits.bottom,
                  .icon = IconSize(m_hWnd, SM_CXICON, SM_CYICON),
                  .smallIcon = IconSize(m_hWnd, SM_CXSMICON, SM_CYSMICON)};
    PlaceHeader(layout);
    PlaceSubject(layout);
    PlaceFailures(layout);
    if (m_pConfig->dwType != CFT_INVALID) {
        PlaceQuestion(layout);
    }
    PlaceButtons(layout);
    m_rcHeader.right = m_rcFooter.right;
    MakeGradient();
}

void GWndCertFailure::PlaceHeader(Layout& layout)
{
    const TEXTMETRICW body = MetricsOf(layout.hdc, layout.hFontDialog);
    const TEXTMETRICW head = MetricsOf(layout.hdc, layout.hFontHeader);
    layout.cyIconShift = (body.tmHeight - layout.smallIcon.cy) / 2;
    layout.xLimit = std::max<int>(BODY_COLUMNS * body.tmAveCharWidth,
                                  layout.cxGap + layout.icon.cx + HEADER_COLUMNS * head.tmAveCharWidth) +
                    layout.cxMargin;
    m_rcHeader = MapUnits(m_hWnd, 0, 0, 0, Metrics::CERT_HEADER_HEIGHT);
    const LPCWSTR pszHeader = TextOf(layout.severity.header);
    RECT rc =
        layout.Measure(layout.hFontHeader, pszHeader,
                       MapUnits(m_hWnd, Metrics::CERT_HEADER_TEXT_LEFT, 0, 0, 0).left + layout.icon.cx, 0);
    if (rc.bottom + Pixels(m_hWnd, Metrics::CERT_HEADER_ROOM) < m_rcHeader.bottom) {
        OffsetRect(&rc, 0, (m_rcHeader.bottom - rc.bottom) / 2);
    } else {
        const int cyMargin = Pixels(m_hWnd, Metrics::CERT_HEADER_MARGIN);
        OffsetRect(&rc, 0, cyMargin);
        m_rcHeader.bottom = rc.bottom + cyMargin;
    }
    AddText(layout.hFontHeader, layout.severity.text, pszHeader, rc);
    AddIcon(LoadKeptIcon(layout.severity.wHeaderIcon, layout.icon.cx, layout.icon.cy), layout.cxGap,
            (m_rcHeader.bottom - layout.icon.cy) / 2);
    layout.y = m_rcHeader.bottom + layout.cyGap;
}

// The subject beside its icon, and the status sentence.
void GWndCertFailure::PlaceSubject(Layout& layout)
{
    AddIcon(LoadKeptIcon(SUBJECT_ICON, layout.smallIcon.cx, layout.smallIcon.cy), 3 * layout.cxGap,
            layout.y + layout.cyIconShift);
    const LPCWSTR pszSubject = gesso::TextOrEmpty(m_pConfig->pszSubject);
    RECT rc =
        layout.Measure(layout.hFontDialog, pszSubject, layout.smallIcon.cx + 4 * layout.cxGap, layout.y);
    AddText(layout.hFontDialog, Color::CertText, pszSubject, rc);
    const LPCWSTR pszStatus = TextOf(layout.severity.status);
    rc = layout.Measure(layout.hFontDialog, pszStatus, layout.cxMargin, rc.bottom + layout.cyGap);
    AddText(layout.hFontDialog, Color::CertText, pszStatus, rc);
    layout.y = rc.bottom + layout.cyGap;
}

void GWndCertFailure::PlaceFailures(Layout& layout)
{
    const HICON hIcon = LoadKeptIcon(layout.severity.wLineIcon, layout.smallIcon.cx, layout.smallIcon.cy);
    int yEnd = layout.y;
    for (size_t i = 0; i < std::size(gesso::FAILURE_TEXTS); ++i) {
        if (!(m_pConfig->dwFailures & (1u << i))) {
            continue;
        }
        AddIcon(hIcon, 4 * layout.cxGap, layout.y + layout.cyIconShift);
        const LPCWSTR pszLine = TextOf(gesso::FAILURE_TEXTS[i]);
        const RECT rc =
            layout.Measure(layout.hFontDialog, pszLine, layout.smallIcon.cx + 5 * layout.cxGap, layout.y);
        AddText(layout.hFontDialog, Color::CertText, pszLine, rc);
        layout.y = rc.bottom + layout.cyGap / 2;
        yEnd = rc.bottom + layout.cyGap;
    }
    layout.y = yEnd;
}

void GWndCertFailure::PlaceQuestion(Layout& layout)
{
    const LPCWSTR pszQuestion = TextOf(TextId::CertificateQuestion);
    RECT rc = layout.Measure(layout.hFontDialog, pszQuestion, layout.cxMargin, layout.y + layout.cyGap);
    AddText(layout.hFontDialog, Color::CertText, pszQuestion, rc);
    layout.y = rc.bottom + layout.cyGap;
    const LPCWSTR pszDontAsk = TextOf(TextId::CertificateDontAsk);
    rc = layout.Measure(layout.hFontDialog, pszDontAsk, layout.cxMargin, layout.y + layout.cyGap);
    layout.xWidest = std::max<int>(layout.xWidest, rc.right + 2 * layout.cxGap);
    if (m_pCheckBox) {
        m_pCheckBox->MoveWindow(layout.cxMargin, layout.y, layout.xWidest, layout.cyGap);
        const HFONT hFont = gesso::DefaultFontOf(m_hWnd);
        SendMessageW(*m_pCheckBox, WM_SETFONT, reinterpret_cast<WPARAM>(hFont), 0);
    } else {
        m_pCheckBox = new GCheckBox;
        m_pCheckBox->Create(layout.cxMargin, layout.y, layout.xWidest, layout.cyGap, m_hWnd, CHECKBOX_ID,
                            pszDontAsk, 0, CHECKBOX_STYLE);
    }
    layout.y += 2 * layout.cyGap;
}

void GWndCertFailure::PlaceButtons(Layout& layout)
{
    gesso::ButtonRow row(m_hWnd, layout.hFontDialog);
    const bool fAsks = m_pConfig->dwType != CFT_INVALID;
    for (const TextId label : {TextId::Yes, TextId::No}) {
        row.FitLabel(TextOf(fAsks ? label : TextId::Ok));
    }
    const int cxShow = std::max<int>(MapUnits(m_hWnd, Metrics::CERT_SHOW_WIDTH, 0, 0, 0).left,
                                     row.WidthOf(TextOf(TextId::CertificateShow)));
    const int cyFooter = MapUnits(m_hWnd, 0, 0, 0, Metrics::DIALOG_FOOTER_HEIGHT).bottom;
    const int nButtons = fAsks ? 2 : 1;
    const int cxNeeded = nButtons * (row.Width() + row.Gap()) + 2 * layout.cxMargin + cxShow;
    const int xRight = std::max(cxNeeded, layout.xWidest);
    row.StandAt(xRight, (cyFooter - row.Height()) / 2 + layout.y);
    if (!m_ppButtons) {
        m_ppButtons = gesso::MakeButtonArray(gesso::CERT_BUTTONS);
    }
    // A dialog that ends while a button is made has no place for more.
    const auto add = [this](size_t nIndex) {
        if (m_ppButtons && !m_ppButtons[nIndex]) {
            m_ppButtons[nIndex] = new GButton;
        }
        return m_ppButtons ? m_ppButtons[nIndex] : nullptr;
    };
    if (GButton* pNo = add(gesso::NO_BUTTON)) {
        row.Make(*pNo, 0, fAsks ? IDNO : IDOK, TextOf(fAsks ? TextId::No : TextId::Ok));
    }
    if (GButton* pYes = fAsks ? add(gesso::YES_BUTTON) : nullptr) {
        row.Make(*pYes, 1, IDYES, TextOf(TextId::Yes));
    }
    if (GButton* pShow = add(gesso::SHOW_BUTTON)) {
        row.MakeAt(*pShow, layout.cxMargin, cxShow, SHOW_ID, TextOf(TextId::CertificateShow));
    }
    m_rcFooter = {0, layout.y, layout.cxMargin + xRight, layout.y + cyFooter};
}

SIZE GWndCertFailure::WindowSizeFor(SIZE client) const
{
    RECT rcClient{}, rcWindow{};
    GetClientRect(m_hWnd, &rcClient);
    GetWindowRect(m_hWnd, &rcWindow);
    return {rcWindow.right - rcWindow.left + client.cx - rcClient.right,
            rcWindow.bottom - rcWindow.top + client.cy - rcClient.bottom};
}

// One row, which painting repeats in Light: the scheme may be another one when it is made.
void GWndCertFailure::MakeGradient()
{
    const gesso::CertSeverity& severity = gesso::SeverityOf(m_pConfig->dwType);
    const int cx = m_rcHeader.right;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), cx, 1, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pBits = nullptr;
    m_hGradient = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
    auto* pPixels = static_cast<DWORD*>(pBits);
    for (int x = 0; pPixels && x < cx; ++x) {
        const auto blend = [&](int nShift) {
            return Blend(LightColorOf(severity.left), LightColorOf(severity.right), nShift, x,
                         std::max(cx - 1, 1));
        };
        // A COLORREF has red lowest, a pixel blue.
        pPixels[x] = blend(0) << 16 | blend(8) << 8 | blend(16);
    }
}
