#include <gesso/containers/Misuse.h>
#include <gesso/controls/GButton.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GWizard.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemePart.h>

#include <utility>

using gesso::DIALOG_BUTTON_STYLE;
using gesso::MapUnits;
using gesso::Pixels;
namespace Metrics = gesso::Metrics;

namespace {

constexpr DWORD DIALOG_STYLE = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | WS_CAPTION | WS_SYSMENU | DS_CENTER |
                               DS_MODALFRAME | DS_SETFONT | DS_FIXEDSYS;
static_assert(DIALOG_STYLE == 0x92C808C8);

SIZE WindowSize(HWND hwnd)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    return {rc.right - rc.left, rc.bottom - rc.top};
}

void Show(HWND hwnd, bool fShow)
{
    ShowWindow(hwnd, fShow ? SW_SHOW : SW_HIDE);
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

// --- Pages ---

void GWizard::InsertPage(UINT nIndex, stcPage* pPage)
{
    if (!pPage) {
        gesso::Misuse("GWizard::InsertPage: no page");
        return;
    }
    m_aPages.InsertAt(nIndex < m_aPages.GetLength() ? nIndex : m_aPages.GetLength(), pPage);
}

void GWizard::RemovePage(UINT nIndex)
{
    if (nIndex < m_aPages.GetLength()) {
        m_aPages.RemoveAt(nIndex, 1);
    }
}

stcPage* GWizard::GetPage(UINT nIndex) const
{
    return nIndex < m_aPages.GetLength() ? m_aPages[nIndex] : nullptr;
}

bool GWizard::IsLast(UINT nIndex) const
{
    return nIndex + 1 == m_aPages.GetLength();
}

// Whether the page allows a step. A page without a window has nobody to refuse.
bool GWizard::Ask(UINT nIndex, UINT uCode)
{
    const stcPage* pPage = GetPage(nIndex);
    if (!pPage || !pPage->hwnd) {
        return true;
    }
    stcWizardNotify notify{{m_hWnd, 0, uCode}, 0};
    SendMessageW(pPage->hwnd, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notify));
    return notify.nResult != 0;
}

void GWizard::ActivatePage(UINT nIndex)
{
    // The buttons are the last that is made.
    if (!GetPage(nIndex) || !m_pBack) {
        return;
    }
    // A page may end the dialog in its answer, delete the wizard, or activate another page.
    const gesso::Lifeline life(*this);
    const auto isThere = [&life, hwnd = m_hWnd] { return life && IsWindow(hwnd); };
    const HWND hwndFormer = GetFocus();
    if (m_nCurrent != NO_PAGE && (!Ask(m_nCurrent, WZN_KILLACTIVE) || !isThere())) {
        return;
    }
    if (const stcPage* pCurrent = GetPage(m_nCurrent)) {
        Show(pCurrent->hwnd, false);
    }
    if (!isThere()) {
        return;
    }
    SwitchButtons(nIndex);
    const HWND hwndFocus = GetFocus();
    Ask(nIndex, WZN_SETACTIVE);
    if (!isThere() || m_nCurrent != nIndex || !GetPage(nIndex)) {
        return;
    }
    const stcPage& page = *GetPage(nIndex);
    Show(page.hwnd, true);
    if (isThere() && GetFocus() == hwndFocus) { // or else the page chose
        KeepFocus(hwndFormer, page);
    }
}

void GWizard::SwitchButtons(UINT nIndex)
{
    if (m_nCurrent != NO_PAGE && IsLast(m_nCurrent)) {
        m_pFinish->SetVisible(0);
        m_pNext->SetVisible(1);
    }
    m_nCurrent = nIndex;
    if (IsLast(nIndex)) {
        m_pNext->SetVisible(0);
        m_pFinish->SetVisible(1);
        EnableWindow(*m_pFinish, TRUE);
    }
    EnableWindow(*m_pBack, nIndex != 0);
}

// What had the focus may be hidden or disabled by now: then the new page's first control gets it if it was in
// a page, or else the button that leads on. Without that the keyboard would end at nothing, or at Cancel.
void GWizard::KeepFocus(HWND hwndFormer, const stcPage& page)
{
    if (!IsWindowVisible(m_hWnd) || !IsChild(m_hWnd, hwndFormer) ||
        (IsWindowVisible(hwndFormer) && IsWindowEnabled(hwndFormer)))
    {
        return;
    }
    const bool fWasInPage = ::GetParent(hwndFormer) != m_hWnd;
    HWND hwndNew = fWasInPage ? GetNextDlgTabItem(page.hwnd, nullptr, FALSE) : nullptr;
    if (!hwndNew) {
        hwndNew = IsLast(m_nCurrent) ? *m_pFinish : *m_pNext;
    }
    SendMessageW(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(hwndNew), TRUE);
}

void GWizard::NextPage()
{
    ActivatePage(m_nCurrent + 1);
}

void GWizard::PreviousPage()
{
    ActivatePage(m_nCurrent - 1);
}

int GWizard::SetCurrentPage(UINT nIndex, const stcPage* pPage)
{
    if (pPage) {
        for (nIndex = 0; nIndex < m_aPages.GetLength() && m_aPages[nIndex] != pPage;) {
            ++nIndex;
        }
    }
    ActivatePage(nIndex);
    return 1;
}

int GWizard::SetButtons(DWORD dwShow, DWORD dwEnable)
{
    const std::pair<DWORD, GButton*> buttons[] = {
        {WZB_FINISH, m_pFinish}, {WZB_CANCEL, m_pCancel}, {WZB_NEXT, m_pNext}, {WZB_BACK, m_pBack}};
    for (const auto& [dwBit, pButton] : buttons) {
        if (pButton) {
            pButton->SetVisible((dwShow & dwBit) != 0);
            EnableWindow(*pButton, (dwEnable & dwBit) != 0);
        }
    }
    return 1;
}

// --- Start ---

INT_PTR GWizard::DoModal(HWND hwndParent, HINSTANCE)
{
    if (!m_pConfig) {
        gesso::Misuse("GWizard::DoModal: no configuration");
        return -1;
    }
    m_nCurrent = NO_PAGE;
    // Of a former run.
    for (OwnedButton* pButton : {&m_pFinish, &m_pCancel, &m_pNext, &m_pBack}) {
        pButton->Reset();
    }
    const gesso::EmptyDialogTemplate dialog(WS_EX_WINDOWEDGE, DIALOG_STYLE, Metrics::WIZARD_WIDTH,
                                            Metrics::WIZARD_HEIGHT, Title());
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
    m_rcFooter = {m_rcClient.left, m_rcClient.bottom - cyFooter, m_rcClient.right, m_rcClient.bottom};
    MakeButtons();
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
        Show(page.hwnd, false);
        const SIZE size = WindowSize(page.hwnd);
        SetWindowPos(page.hwnd, nullptr, ptPage.x, ptPage.y, size.cx, size.cy, SWP_FRAMECHANGED);
    }
}

// Sizes the dialog to the first page that has a window, and centres it.
void GWizard::FitFirstPage(int cyFooter)
{
    SIZE size = WindowSize(m_hWnd);
    for (UINT i = 0; i < m_aPages.GetLength(); ++i) {
        if (m_aPages[i]->hwnd) {
            const SIZE page = WindowSize(m_aPages[i]->hwnd);
            const SIZE growth{page.cx - (m_rcClient.right - m_rcClient.left),
                              page.cy + cyFooter - (m_rcClient.bottom - m_rcClient.top)};
            size = {size.cx + growth.cx, size.cy + growth.cy};
            m_rcClient.right += growth.cx;
            m_rcClient.bottom += growth.cy;
            break;
        }
    }
    if (GetWindowLongW(m_hWnd, GWL_STYLE) & DS_CENTER) {
        gesso::CenterWindow(m_hWnd, m_hWnd, size);
    } else {
        SetWindowPos(m_hWnd, nullptr, 0, 0, size.cx, size.cy, SWP_FRAMECHANGED | SWP_NOMOVE);
    }
}

void GWizard::MakeButtons()
{
    const RECT rcUnits = MapUnits(m_hWnd, Metrics::DIALOG_BUTTON_WIDTH, Metrics::DIALOG_BUTTON_HEIGHT,
                                  Metrics::DIALOG_BUTTON_GAP, 0);
    const int cx = rcUnits.left, cy = rcUnits.top, cxGap = rcUnits.right;
    const int y = m_rcFooter.top + ((m_rcFooter.bottom - m_rcFooter.top) >> 1) - (cy >> 1);
    const int xCancel = m_rcFooter.right - cxGap - cx;
    const int xNext = xCancel - cxGap - cx;
    const auto make = [&](OwnedButton& button, int x, UINT uId, LPCWSTR pszLabel, DWORD dwStyle) {
        button.Reset(new GButton);
        button->Create(x, y, cx, cy, m_hWnd, static_cast<int>(uId), pszLabel, 0, dwStyle);
    };
    // Finish waits, hidden, in the place of Next.
    make(m_pFinish, xNext, WZB_FINISH, m_pConfig ? m_pConfig->pszFinish : nullptr,
         DIALOG_BUTTON_STYLE & ~DWORD{WS_VISIBLE});
    make(m_pCancel, xCancel, WZB_CANCEL, L"Cancel", DIALOG_BUTTON_STYLE);
    make(m_pNext, xNext, WZB_NEXT, L"Next", DIALOG_BUTTON_STYLE);
    make(m_pBack, xNext - cxGap - cx, WZB_BACK, L"Back", DIALOG_BUTTON_STYLE);
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
    options.dwFlags = DTT_COMPOSITED | DTT_GLOWSIZE;
    options.iGlowSize = Pixels(m_hWnd, Metrics::WIZARD_TITLE_GLOW);
    LOGFONTW font{};
    const HFONT hFont =
        SUCCEEDED(GetThemeSysFont(hTheme, TMT_CAPTIONFONT, &font)) ? CreateFontIndirectW(&font) : nullptr;
    {
        const gesso::SelectScope select(hdc, hFont);
        RECT rc{rcClient.left + Pixels(m_hWnd, Metrics::WIZARD_TITLE_LEFT),
                rcClient.top + Pixels(m_hWnd, Metrics::WIZARD_TITLE_TOP),
                rcClient.right - Pixels(m_hWnd, Metrics::WIZARD_TITLE_RIGHT),
                Pixels(m_hWnd, Metrics::WIZARD_TITLE_BOTTOM)};
        if (FAILED(DrawThemeTextEx(hTheme, hdc, 0, 0, Title(), -1, DT_WORD_ELLIPSIS, &rc, &options))) {
            const gesso::TransparentScope mode(hdc);
            DrawTextW(hdc, Title(), -1, &rc, DT_WORD_ELLIPSIS);
        }
    }
    if (hFont) {
        DeleteObject(hFont);
    }
}

void GWizard::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    DrawTitle(hdc, rcClient);
    gesso::ThemePart(m_hTheme, hdc, AW_COMMANDAREA, 0, gesso::PlainPart::DialogFooter)
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
    auto* pWizard = static_cast<GWizard*>(ObjectOf(hDlg, uMsg, lParam));
    if (!pWizard) {
        return gesso::OnWhiteDialogColor(uMsg, lParam);
    }
    switch (uMsg) {
    case WM_INITDIALOG: return pWizard->OnInitDialog();
    case WM_COMMAND: return pWizard->OnCommand(LOWORD(wParam));
    case WM_CLOSE: return pWizard->OnCommand(WZB_CANCEL);
    case WM_NOTIFY: return 1;
    case WZM_SETCURPAGE:
        return Answer(hDlg, pWizard->SetCurrentPage(static_cast<UINT>(wParam),
                                                    reinterpret_cast<const stcPage*>(lParam)));
    case WZM_GETCURPAGE:
        return Answer(hDlg, pWizard->OnGetCurrentPage(reinterpret_cast<UINT*>(wParam),
                                                      reinterpret_cast<stcPage**>(lParam)));
    case WZM_SETBUTTONS:
        return Answer(hDlg, pWizard->SetButtons(static_cast<DWORD>(wParam), static_cast<DWORD>(lParam)));
    case WM_DESTROY: return pWizard->OnDestroy();
    default: return gesso::OnWhiteDialogColor(uMsg, lParam);
    }
}
