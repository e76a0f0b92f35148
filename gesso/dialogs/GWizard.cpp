#include <gesso/containers/Misuse.h>
#include <gesso/controls/GButton.h>
#include <gesso/dialogs/ButtonRow.h>
#include <gesso/dialogs/DialogPage.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GWizard.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/DpiApi.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/language/LanguageTable.h>

#include <algorithm>

using gesso::DIALOG_BUTTON_STYLE;
using gesso::Frame;
using gesso::MapUnits;
using gesso::Pixels;
using gesso::TextId;
using gesso::TextOf;
using gesso::WhiteDialogDefault;
namespace Metrics = gesso::Metrics;

namespace {

// A host that is built without optimization reads the constant from here, so that the library must have it.
[[gnu::used]] const UINT* const s_pNoPage = &GWizard::NO_PAGE;

constexpr DWORD DIALOG_STYLE = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | WS_CAPTION | WS_SYSMENU | DS_CENTER |
                               DS_MODALFRAME | DS_SETFONT | DS_FIXEDSYS;
static_assert(DIALOG_STYLE == 0x92C808C8);

constexpr int MOST_BUTTONS = 3; // beside each other

SIZE WindowSize(HWND hwnd)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    return {rc.right - rc.left, rc.bottom - rc.top};
}

// What the procedure returns tells the platform only that the message was answered; this is the answer.
INT_PTR Answer(HWND hDlg, int nResult)
{
    SetWindowLongPtrW(hDlg, DWLP_MSGRESULT, nResult);
    return nResult;
}

} // namespace

void GWizard::DeleteButton(GButton* pButton)
{
    delete pButton;
}

// --- Start ---

INT_PTR GWizard::DoModal(HWND hwndParent, HINSTANCE)
{
    if (!m_pConfig) {
        gesso::Misuse("GWizard::DoModal: no configuration");
        return -1;
    }
    ChangePage(NO_PAGE);
    // Of a former run.
    for (OwnedButton* pButton : {&m_pFinish, &m_pCancel, &m_pNext, &m_pBack}) {
        pButton->Reset();
    }
    const gesso::EmptyDialogTemplate dialog(WS_EX_WINDOWEDGE, DIALOG_STYLE, Metrics::WIZARD_WIDTH,
                                            Metrics::WIZARD_HEIGHT, Title());
    if (!dialog.Get()) {
        return -1;
    }
    return static_cast<int>(IsolationAwareDialogBoxIndirectParamW(
        GetModuleHandleW(nullptr), dialog.Get(), hwndParent, DialogProc, reinterpret_cast<LPARAM>(this)));
}

DLGPROC GWizard::GetDialogProc()
{
    return DialogProc;
}

int GWizard::OnInitDialog()
{
    const gesso::Lifeline life(*this);
    GetClientRect(m_hWnd, &m_rcClient);
    const int cyFooter = MapUnits(m_hWnd, 0, 0, 0, Metrics::DIALOG_FOOTER_HEIGHT).bottom;
    m_hTheme.Open(m_hWnd, L"AEROWIZARD");
    MakePages();
    if (life) {
        FitFirstPage(cyFooter);
    }
    if (!life) {
        return 1;
    }
    MakeButtons();
    if (!life) {
        return 1;
    }
    SendMessageW(m_hWnd, DM_SETDEFID, m_pConfig ? m_pConfig->nDefaultId : 0, 0);
    ActivatePage(0);
    return 1;
}

void GWizard::MakePages()
{
    const gesso::Lifeline life(*this);
    const POINT ptPage{m_rcClient.left, m_rcClient.top};
    for (UINT i = 0; life && i < m_aPages.GetLength(); ++i) {
        stcPage& page = *m_aPages[i];
        const DLGTEMPLATE* pTemplate = gesso::LoadDialogTemplate(page.hInstance, page.pszTemplate);
        page.hwnd = pTemplate ? IsolationAwareCreateDialogIndirectParamW(GetModuleHandleW(nullptr), pTemplate,
                                                                         m_hWnd, page.pfnDialog, page.lParam)
                              : nullptr;
        ShowWindow(page.hwnd, SW_HIDE);
        gesso::KeepPage(page.hwnd);
        gesso::FitPage(page.hwnd);
        const SIZE size = WindowSize(page.hwnd);
        SetWindowPos(page.hwnd, nullptr, ptPage.x, ptPage.y, size.cx, size.cy, SWP_FRAMECHANGED);
    }
}

namespace {

// The first page that has a window, which the dialog is sized to; null where none has.
HWND FirstPageOf(const OArray<stcPage*, stcPage*>& aPages)
{
    for (UINT i = 0; i < aPages.GetLength(); ++i) {
        if (aPages[i]->hwnd) {
            return aPages[i]->hwnd;
        }
    }
    return nullptr;
}

} // namespace

// Sizes the dialog to its first page, and centres it.
void GWizard::FitFirstPage(int cyFooter)
{
    SIZE size = WindowSize(m_hWnd);
    if (const HWND hwndPage = FirstPageOf(m_aPages)) {
        const SIZE page = WindowSize(hwndPage);
        const SIZE growth{std::max<LONG>(page.cx, WidthOfButtons()) - (m_rcClient.right - m_rcClient.left),
                          page.cy + cyFooter - (m_rcClient.bottom - m_rcClient.top)};
        size = {size.cx + growth.cx, size.cy + growth.cy};
        m_rcClient.right += growth.cx;
        m_rcClient.bottom += growth.cy;
    }
    // On its way it may come to other dots.
    m_rcFooter = {m_rcClient.left, m_rcClient.bottom - cyFooter, m_rcClient.right, m_rcClient.bottom};
    if (GetWindowLongW(m_hWnd, GWL_STYLE) & DS_CENTER) {
        gesso::CenterWindow(m_hWnd, m_hWnd, size);
    } else {
        SetWindowPos(m_hWnd, nullptr, 0, 0, size.cx, size.cy, SWP_FRAMECHANGED | SWP_NOMOVE);
    }
}

LPCWSTR GWizard::FinishLabel() const
{
    return m_pConfig && m_pConfig->pszFinish ? m_pConfig->pszFinish : TextOf(TextId::WizardFinish);
}

namespace {

gesso::ButtonRow RowFor(HWND hDlg, LPCWSTR pszFinish)
{
    const bool fScaled = gesso::GetScaling() != gesso::Scaling::None;
    gesso::ButtonRow row(hDlg, fScaled ? gesso::FontOf(hDlg) : nullptr);
    for (const LPCWSTR pszLabel :
         {pszFinish, TextOf(TextId::WizardCancel), TextOf(TextId::WizardNext), TextOf(TextId::WizardBack)})
    {
        row.FitLabel(pszLabel);
    }
    return row;
}

} // namespace

// Of the row with its gaps; 0 with the first texts, for which the dialog is as wide as its page.
int GWizard::WidthOfButtons() const
{
    if (!gesso::HasOtherTexts()) {
        return 0;
    }
    const gesso::ButtonRow row = RowFor(m_hWnd, FinishLabel());
    return MOST_BUTTONS * (row.Width() + row.Gap()) + row.Gap();
}

void GWizard::MakeButtons()
{
    const LPCWSTR pszFinish = FinishLabel();
    gesso::ButtonRow row = RowFor(m_hWnd, pszFinish);
    row.StandIn(m_rcFooter);
    const gesso::Lifeline life(*this);
    const auto make = [&](OwnedButton& button, int nPlace, UINT uId, LPCWSTR pszLabel, DWORD dwStyle) {
        if (!life) {
            return;
        }
        if (!button) {
            button.Reset(new GButton);
        }
        row.Make(*button, nPlace, static_cast<int>(uId), pszLabel, dwStyle);
    };
    // Finish waits, hidden, in the place of Next.
    make(m_pFinish, 1, WZB_FINISH, pszFinish, DIALOG_BUTTON_STYLE & ~DWORD{WS_VISIBLE});
    make(m_pCancel, 0, WZB_CANCEL, TextOf(TextId::WizardCancel), DIALOG_BUTTON_STYLE);
    make(m_pNext, 1, WZB_NEXT, TextOf(TextId::WizardNext), DIALOG_BUTTON_STYLE);
    make(m_pBack, 2, WZB_BACK, TextOf(TextId::WizardBack), DIALOG_BUTTON_STYLE);
}

namespace {

// What of the client area is neither page nor footer, for the dots that the page is laid out for.
struct SpareRoom
{
    HWND hwndPage;
    SIZE size;
    int nDpi;

    SpareRoom(HWND hwndFirst, const RECT& rcClient, const RECT& rcFooter)
        : hwndPage(hwndFirst), size(WindowSize(hwndFirst)), nDpi(static_cast<int>(gesso::PageDpi(hwndFirst)))
    {
        size = {rcClient.right - size.cx, rcClient.bottom - size.cy - (rcFooter.bottom - rcFooter.top)};
    }
    // The room above the footer that the page, as it is now, has with as much beside and below it.
    SIZE WithPage() const
    {
        const auto nNow = static_cast<int>(gesso::PageDpi(hwndPage));
        const SIZE page = WindowSize(hwndPage);
        return {page.cx + MulDiv(size.cx, nNow, nDpi), page.cy + MulDiv(size.cy, nNow, nDpi)};
    }
};

} // namespace

// All pages follow, those that are not shown as well, and the dialog is sized to them again. Without a page
// it is as large as the platform wants.
void GWizard::OnScaling(const RECT* prcWanted)
{
    const gesso::Lifeline life(*this);
    RECT rcFormer{};
    GetClientRect(m_hWnd, &rcFormer);
    const SpareRoom spare(FirstPageOf(m_aPages), rcFormer, m_rcFooter);
    for (UINT i = 0; life && i < m_aPages.GetLength(); ++i) {
        gesso::FitPage(m_aPages[i]->hwnd);
    }
    if (!life || !IsWindow(m_hWnd)) {
        return;
    }
    if (prcWanted) {
        gesso::FitDialog(m_hWnd, prcWanted, {});
    }
    m_hTheme.Open(m_hWnd, L"AEROWIZARD");
    const int cyFooter = MapUnits(m_hWnd, 0, 0, 0, Metrics::DIALOG_FOOTER_HEIGHT).bottom;
    GetClientRect(m_hWnd, &m_rcClient);
    const SIZE room = spare.hwndPage || !prcWanted ? spare.WithPage()
                                                   : SIZE{m_rcClient.right, m_rcClient.bottom - cyFooter};
    m_rcClient = gesso::GrowWindow(m_hWnd, std::max<int>(room.cx, WidthOfButtons()) - m_rcClient.right,
                                   room.cy + cyFooter - m_rcClient.bottom);
    m_rcFooter = m_rcClient;
    m_rcFooter.top = m_rcClient.bottom - cyFooter;
    if (m_pBack) { // the last that is made
        MakeButtons();
    }
    gesso::RedrawAll(m_hWnd);
}

// --- Drawing ---

LPCWSTR GWizard::Title() const
{
    return m_pConfig ? gesso::TextOrEmpty(m_pConfig->pszTitle) : L"";
}

void GWizard::DrawTitle(HDC hdc, const RECT& rcClient) const
{
    gesso::ThemeHandle hTheme;
    hTheme.Open(m_hWnd, L"CompositedWindow::Window");
    DTTOPTS options{};
    options.dwSize = sizeof(options);
    if (gesso::AreTextsByRole()) {
        options.dwFlags = DTT_TEXTCOLOR;
        options.crText = ColorOf(gesso::ColorRole::PanelText);
    } else {
        options.dwFlags = DTT_COMPOSITED | DTT_GLOWSIZE;
        options.iGlowSize = Pixels(m_hWnd, Metrics::WIZARD_TITLE_GLOW);
    }
    LOGFONTW font{};
    gesso::FontHandle hFont;
    const bool fScaled = gesso::GetScaling() != gesso::Scaling::None &&
                         gesso::PlatformCaptionFont(gesso::DpiOf(m_hWnd), &font);
    if (fScaled || SUCCEEDED(GetThemeSysFont(hTheme, TMT_CAPTIONFONT, &font))) {
        hFont.Reset(CreateFontIndirectW(&font));
    }
    const gesso::SelectScope select(hdc, hFont);
    RECT rc{rcClient.left + Pixels(m_hWnd, Metrics::WIZARD_TITLE_LEFT),
            rcClient.top + Pixels(m_hWnd, Metrics::WIZARD_TITLE_TOP),
            rcClient.right - Pixels(m_hWnd, Metrics::WIZARD_TITLE_RIGHT),
            Pixels(m_hWnd, Metrics::WIZARD_TITLE_BOTTOM)};
    if (FAILED(DrawThemeTextEx(hTheme, hdc, 0, 0, Title(), -1, DT_WORD_ELLIPSIS, &rc, &options))) {
        const gesso::TransparentScope mode(hdc);
        const gesso::FlatTextScope color(hdc, options.crText);
        DrawTextW(hdc, Title(), -1, &rc, DT_WORD_ELLIPSIS);
    }
}

void GWizard::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    DrawTitle(hdc, rcClient);
    gesso::ThemePart(m_hTheme, hdc, AW_COMMANDAREA, 0, gesso::PlainPart::DialogFooter)
        .In(m_hWnd)
        .DrawBackground(m_rcFooter);
}

// --- Messages ---

int GWizard::OnFinish()
{
    const gesso::Lifeline life(*this);
    const HWND hwnd = m_hWnd;
    if (Ask(m_nCurrent, WZN_KILLACTIVE) && life && IsWindow(hwnd) && Ask(m_nCurrent, WZN_FINISH) &&
        IsWindow(hwnd))
    {
        EndDialog(hwnd, WZB_FINISH);
    }
    return 1;
}

int GWizard::OnCommand(UINT uId)
{
    switch (uId) {
    case WZB_FINISH: return OnFinish();
    case WZB_CANCEL: EndDialog(m_hWnd, WZB_CANCEL); return 1;
    case WZB_NEXT: NextPage(); return 1;
    case WZB_BACK: PreviousPage(); return 1;
    default: return 0;
    }
}

int GWizard::OnGetCurrentPage(UINT* pnIndex, stcPage** ppPage) const
{
    if (pnIndex) {
        *pnIndex = m_nCurrent;
    }
    if (ppPage && m_nCurrent != NO_PAGE) {
        *ppPage = GetPage(m_nCurrent);
    }
    return 1;
}

void GWizard::OnActivate() {}

int GWizard::OnDestroy()
{
    const gesso::Lifeline life(*this);
    m_hTheme.Reset();
    for (UINT i = 0; life && i < m_aPages.GetLength(); ++i) {
        DestroyWindow(m_aPages[i]->hwnd);
    }
    if (!life) {
        return 1;
    }
    for (GButton* pButton : {static_cast<GButton*>(m_pFinish), static_cast<GButton*>(m_pCancel),
                             static_cast<GButton*>(m_pNext), static_cast<GButton*>(m_pBack)})
    {
        if (pButton) {
            pButton->Destroy();
        }
    }
    return 1;
}

INT_PTR CALLBACK GWizard::DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::RouteDialog<GWizard, WhiteDialogDefault>(hDlg, uMsg, wParam, lParam);
}

INT_PTR GWizard::OnMessage(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_INITDIALOG: return OnInitDialog();
    case WM_COMMAND: return OnCommand(LOWORD(wParam));
    case WM_CLOSE: return OnCommand(WZB_CANCEL);
    case WM_NOTIFY: return 1;
    case WZM_SETCURPAGE:
        return Answer(hDlg,
                      SetCurrentPage(static_cast<UINT>(wParam), reinterpret_cast<const stcPage*>(lParam)));
    case WZM_GETCURPAGE:
        return Answer(hDlg,
                      OnGetCurrentPage(reinterpret_cast<UINT*>(wParam), reinterpret_cast<stcPage**>(lParam)));
    case WZM_SETBUTTONS:
        return Answer(hDlg, SetButtons(static_cast<DWORD>(wParam), static_cast<DWORD>(lParam)));
    case WM_DESTROY: return OnDestroy();
    default: return WhiteDialogDefault(hDlg, uMsg, wParam, lParam);
    }
}
