#include <gesso/dialogs/DialogSupport.h>
#include <gesso/framework/Access.h>
#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/Lifeline.h>

#include <utility>

constinit HWND GDialog::s_hActiveDlg = nullptr;

namespace {

// A dialog that this thread is making: until it is bound to its window its procedure may delete the object.
class Making
{
public:
    explicit Making(const GDialog& dialog)
        : m_pDialog(&dialog), m_life(dialog), m_pOuter(std::exchange(s_pInnermost, this))
    {}
    ~Making() { s_pInnermost = m_pOuter; }
    Making(const Making&) = delete;
    Making& operator=(const Making&) = delete;

    operator bool() const { return m_life; }
    // Whether it is the object of a dialog in the making, and is there no more.
    static bool IsGone(const GDialog* pDialog)
    {
        const Making* pMaking = s_pInnermost;
        while (pMaking && pMaking->m_pDialog != pDialog) {
            pMaking = pMaking->m_pOuter;
        }
        return pMaking && !*pMaking;
    }

private:
    const GDialog* m_pDialog;
    gesso::Lifeline m_life;
    const Making* m_pOuter;

    static constinit inline thread_local const Making* s_pInnermost = nullptr;
};

} // namespace

GDialog::GDialog(UINT nId) : m_template(reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(nId))) {}

GDialog::GDialog(LPCWSTR pszName) : m_template(pszName) {}

GDialog::~GDialog()
{
    // To ask about no window would write over the last error of one that could not be made.
    if (m_hWnd && reinterpret_cast<GDialog*>(GetWindowLongPtrW(m_hWnd, DWLP_USER)) == this) {
        SetWindowLongPtrW(m_hWnd, DWLP_USER, 0);
        gesso::EndAccess(m_hWnd);
    }
}

int GDialog::Create(HWND hwndParent, HINSTANCE hInstance)
{
    // The resource's module is the host's choice; the dialog belongs to the host's program.
    Start(hwndParent, GetModuleHandleW(nullptr), gesso::LoadDialogTemplate(hInstance, m_template));
    return 1;
}

int GDialog::CreateIndirect(HWND hwndParent, HINSTANCE hInstance, const DLGTEMPLATE* pTemplate)
{
    Start(hwndParent, hInstance, pTemplate);
    return 1;
}

void GDialog::Start(HWND hwndParent, HINSTANCE hInstance, const DLGTEMPLATE* pTemplate)
{
    const Making making(*this);
    const HWND hwnd =
        pTemplate ? IsolationAwareCreateDialogIndirectParamW(hInstance, pTemplate, hwndParent,
                                                             GetDialogProc(), reinterpret_cast<LPARAM>(this))
                  : nullptr;
    if (making) { // the procedure may have deleted the object
        m_hWnd = hwnd;
    }
}

int GDialog::Destroy()
{
    return DestroyWindow(m_hWnd);
}

INT_PTR GDialog::DoModal(HWND hwndParent, HINSTANCE hInstance)
{
    const DLGTEMPLATE* pTemplate = gesso::LoadDialogTemplate(hInstance, m_template);
    if (!pTemplate) {
        return static_cast<INT_PTR>(GetLastError());
    }
    const Making making(*this);
    return IsolationAwareDialogBoxIndirectParamW(GetModuleHandleW(nullptr), pTemplate, hwndParent,
                                                 GetDialogProc(), reinterpret_cast<LPARAM>(this));
}

int GDialog::SetText(LPCWSTR pszText)
{
    return static_cast<int>(SendMessageW(m_hWnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(pszText)));
}

int GDialog::GetTextLength() const
{
    return static_cast<int>(SendMessageW(m_hWnd, WM_GETTEXTLENGTH, 0, 0));
}

int GDialog::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    if (!pnLength) {
        return 0;
    }
    const int nCapacity = pszBuffer && *pnLength > 0 ? *pnLength : 0;
    const HWND hwnd = m_hWnd; // the host's procedure may delete the object
    const auto nCopied = static_cast<int>(
        SendMessageW(hwnd, WM_GETTEXT, static_cast<WPARAM>(nCapacity), reinterpret_cast<LPARAM>(pszBuffer)));
    const bool fFilled = nCopied + 1 >= nCapacity;
    *pnLength = fFilled ? nCopied : static_cast<int>(SendMessageW(hwnd, WM_GETTEXTLENGTH, 0, 0)) + 1;
    return fFilled;
}

HWND GDialog::GetDlgItem(int nId) const
{
    return ::GetDlgItem(m_hWnd, nId);
}

GDialog* GDialog::ObjectOf(HWND hDlg, UINT uMsg, LPARAM lParam)
{
    auto* pDialog = reinterpret_cast<GDialog*>(lParam);
    if (uMsg == WM_INITDIALOG && pDialog && !Making::IsGone(pDialog)) {
        SetWindowLongPtrW(hDlg, DWLP_USER, lParam);
        pDialog->m_hWnd = hDlg;
    }
    return reinterpret_cast<GDialog*>(GetWindowLongPtrW(hDlg, DWLP_USER));
}
