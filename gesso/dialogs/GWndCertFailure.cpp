#include <gesso/controls/GCheckBox.h>
#include <gesso/controls/Image.h>
#include <gesso/dialogs/ButtonRow.h>
#include <gesso/dialogs/CertContent.h>
#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GWndCertFailure.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Module.h>
#include <gesso/framework/ThemePart.h>

#include <utility>

using gesso::Frame;
using gesso::SEVERITIES;

namespace {

constexpr UINT TEMPLATE_ID = 130;

template <class ARRAY> void ReleaseAll(ARRAY& array, void (*release)(void*))
{
    for (void* p : array) {
        release(p);
    }
    array.RemoveAll();
}

} // namespace

// --- The static functions ---

HRESULT GWndCertFailure::WndCertFailure(DWORD* pdwResult, HWND hwndParent, CertCallback pfnShow, void* pData,
                                        DWORD dwType, DWORD dwFailures, LPCWSTR pszCaption,
                                        LPCWSTR pszSubject)
{
    const GWNDCERTFAILURECONFIG config{dwType, dwFailures, pszCaption, pszSubject, pfnShow, pData};
    return WndCertFailureIndirect(pdwResult, hwndParent, &config);
}

HRESULT GWndCertFailure::WndCertFailureIndirect(DWORD* pdwResult, HWND hwndParent,
                                                const GWNDCERTFAILURECONFIG* pConfig)
{
    if (!pConfig || pConfig->dwType >= std::size(SEVERITIES)) {
        gesso::Misuse("GWndCertFailure: no configuration, or no such severity");
        return E_INVALIDARG;
    }
    const DLGTEMPLATE* pTemplate =
        g_hModule ? gesso::LoadDialogTemplate(g_hModule, MAKEINTRESOURCEW(TEMPLATE_ID)) : nullptr;
    if (!pTemplate) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    GWndCertFailure object(pConfig);
    const INT_PTR nResult = IsolationAwareDialogBoxIndirectParamW(
        g_hModule, pTemplate, hwndParent, DialogProc, reinterpret_cast<LPARAM>(&object));
    if (pdwResult) {
        *pdwResult = static_cast<DWORD>(nResult);
    }
    return static_cast<int>(nResult) == -1 ? E_FAIL : S_OK;
}

GWndCertFailure::GWndCertFailure(const GWNDCERTFAILURECONFIG* pConfig) : m_pConfig(pConfig) {}

DLGPROC GWndCertFailure::GetDialogProc()
{
    return DialogProc;
}

// --- Drawing ---

void GWndCertFailure::Draw(HDC hdc)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    FillRect(hdc, &rcClient, gesso::DialogBrush(hdc));
    DrawBand(hdc);
    gesso::ThemePart(m_hTheme, hdc, TDLG_SECONDARYPANEL, 0, gesso::PlainPart::DialogFooter)
        .In(m_hWnd)
        .DrawBackground(m_rcFooter);
    const gesso::StateScope state(hdc);
    SetBkMode(hdc, TRANSPARENT);
    if (gesso::AreTextsByRole()) {
        SetTextColor(hdc, ColorOf(gesso::Color::CertText));
    }
    DrawElements(hdc);
}

// In one shade where the library draws by itself.
void GWndCertFailure::DrawBand(HDC hdc) const
{
    if (gesso::IsDrawnFlat()) {
        const RECT rcBand{0, 0, m_rcHeader.right, m_rcHeader.bottom};
        gesso::FillColor(hdc, rcBand, ColorOf(gesso::SeverityOf(m_pConfig->dwType).left));
        return;
    }
    const gesso::MemoryContext gradient;
    const gesso::SelectScope bitmap(gradient, m_hGradient);
    for (int y = 0; y < m_rcHeader.bottom; ++y) {
        BitBlt(hdc, 0, y, m_rcHeader.right, 1, gradient, 0, 0, SRCCOPY);
    }
}

// Font and colour change only where an element's differ from the last.
void GWndCertFailure::DrawElements(HDC hdc) const
{
    HFONT hFont = nullptr;
    COLORREF cr = gesso::ColorOf(gesso::Color::CertText);
    for (UINT i = 0; i < m_aElements.GetLength(); ++i) {
        const auto& element = *static_cast<const CertElement*>(m_aElements[i]);
        if (element.uKind == gesso::KIND_ICON) {
            const CertIcon& icon = element.icon;
            SIZE size{};
            if (gesso::IsMirrored(hdc)) {
                gesso::MeasureIcon(icon.hIcon, &size);
            }
            const gesso::UprightScope upright(hdc, icon.x, size.cx);
            DrawIconEx(hdc, upright.Left(), icon.y, icon.hIcon, 0, 0, 0, nullptr, DI_NORMAL);
            continue;
        }
        const CertText& text = element.text;
        if (text.hFont != hFont) {
            hFont = text.hFont;
            SelectObject(hdc, hFont);
        }
        if (const COLORREF crText = ColorOf(text.color); crText != cr) {
            cr = crText;
            SetTextColor(hdc, cr);
        }
        RECT rc = text.rc;
        DrawTextW(hdc, text.psz, -1, &rc, DT_WORDBREAK);
    }
}

// --- Messages ---

// The dialog toggles the box itself, so that flag and box stay equal.
void GWndCertFailure::OnToggle(HWND hwndCheckBox)
{
    if (!m_pCheckBox || hwndCheckBox != m_pCheckBox->GetHwnd()) {
        return;
    }
    const bool fCheck = !m_pCheckBox->GetCheck();
    m_dwResult = fCheck ? m_dwResult | CFR_DONTASK : m_dwResult & ~CFR_DONTASK;
    m_pCheckBox->SetCheck(fCheck);
}

int GWndCertFailure::OnCommand(UINT uId, HWND hwndControl)
{
    const bool fGoOn = m_pConfig->dwType != CFT_INVALID && (uId == IDOK || uId == IDYES);
    switch (uId) {
    case IDOK:
    case IDCANCEL:
    case IDYES:
    case IDNO: EndDialog(m_hWnd, static_cast<INT_PTR>(m_dwResult | (fGoOn ? IDYES : IDNO))); break;
    case gesso::CHECKBOX_ID: OnToggle(hwndControl); break;
    case gesso::SHOW_ID:
        if (m_pConfig->pfnShow) {
            m_pConfig->pfnShow(m_hWnd, m_pConfig->pData);
        }
        break;
    default: break;
    }
    return 1;
}

int GWndCertFailure::OnClose()
{
    EndDialog(m_hWnd, static_cast<INT_PTR>(m_dwResult | IDNO));
    return 1;
}

int GWndCertFailure::OnDestroy()
{
    gesso::EndButtonArray(m_ppButtons, gesso::CERT_BUTTONS);
    if (m_pCheckBox) {
        m_pCheckBox->Destroy();
        delete std::exchange(m_pCheckBox, nullptr);
    }
    ReleaseElements();
    m_hTheme.Reset();
    return 0;
}

void GWndCertFailure::ReleaseElements()
{
    DeleteObject(std::exchange(m_hGradient, nullptr));
    ReleaseAll(m_aElements, [](void* p) { delete static_cast<CertElement*>(p); });
    ReleaseAll(m_aFonts, [](void* p) { DeleteObject(p); });
    ReleaseAll(m_aIcons, [](void* p) { DestroyIcon(static_cast<HICON>(p)); });
}

INT_PTR CALLBACK GWndCertFailure::DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::RouteDialog<GWndCertFailure, Frame::DialogDefault>(hDlg, uMsg, wParam, lParam);
}

INT_PTR GWndCertFailure::OnMessage(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_INITDIALOG: return OnInitDialog();
    case WM_COMMAND: return OnCommand(LOWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_CLOSE: return OnClose();
    case WM_ACTIVATE: return gesso::OnDialogActivate(hDlg, wParam);
    case WM_PAINT: return gesso::PaintControl<gesso::Lifeline>(*this, hDlg);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_DESTROY: return OnDestroy();
    default: return Frame::DialogDefault(hDlg, uMsg, wParam, lParam);
    }
}
