// GWndCertFailure: the dialog that tells the state of a connection's certificate and, where that is possible,
// asks whether to go on. A host calls one of the two static functions with a severity, the failures found and
// the other side's name; the texts are the library's (Language.h). The button that shows the certificate
// calls the host's callback: the library knows nothing of certificates.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/dialogs/GDialog.h>
#include <gesso/framework/ThemeHandle.h>

namespace gesso {
enum class Color;
} // namespace gesso

class GButton;
class GCheckBox;
struct CertElement; // CertContent.h

// Severities.
constexpr DWORD CFT_SECURE = 0;
constexpr DWORD CFT_UNTRUSTED = 1;
constexpr DWORD CFT_INVALID = 2; // no question: the user can only read and press OK

// Part of the result: the user does not want to be asked again.
constexpr DWORD CFR_DONTASK = 0x10000;

// Called by the certificate button with the dialog's window; the result is ignored.
using CertCallback = int (*)(HWND hDlg, void* pData);

struct GWNDCERTFAILURECONFIG
{
    DWORD dwType;         // CFT_; any other value fails with E_INVALIDARG
    DWORD dwFailures;     // bits 0 to 10, each a line; the bits above are ignored
    LPCWSTR pszCaption;   // of the window; null counts as empty
    LPCWSTR pszSubject;   // names the other side; null counts as empty
    CertCallback pfnShow; // may be null
    void* pData;          // for the callback
};
static_assert(offsetof(GWNDCERTFAILURECONFIG, pszCaption) == 8 && sizeof(GWNDCERTFAILURECONFIG) == 40);

class GESSO_API GWndCertFailure : public GDialog
{
public:
    // The record outlives the object. The static functions make one themselves.
    explicit GWndCertFailure(const GWNDCERTFAILURECONFIG* pConfig);

    // Runs the dialog. Returns S_OK, and in *pdwResult IDYES (go on) or IDNO, with CFR_DONTASK where that was
    // ticked. E_FAIL where the platform could not run it, in which case *pdwResult is -1; another failure,
    // with *pdwResult as it was, where the template is missing or the severity is none of the three.
    // pdwResult may be null.
    static HRESULT WndCertFailure(DWORD* pdwResult, HWND hwndParent, CertCallback pfnShow, void* pData,
                                  DWORD dwType, DWORD dwFailures, LPCWSTR pszCaption, LPCWSTR pszSubject);
    static HRESULT WndCertFailureIndirect(DWORD* pdwResult, HWND hwndParent,
                                          const GWNDCERTFAILURECONFIG* pConfig);

    DLGPROC GetDialogProc() override;
    // Draws the dialog at the origin of a context.
    void Draw(HDC hdc);

    static INT_PTR CALLBACK DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);

protected:
    int OnInitDialog();
    int OnCommand(UINT uId, HWND hwndControl);
    int OnClose();
    int OnDestroy();

    const GWNDCERTFAILURECONFIG* m_pConfig;
    DWORD m_dwResult = 0;
    gesso::ThemeHandle m_hTheme;
    HBITMAP m_hGradient = nullptr;
    RECT m_rcHeader{};
    RECT m_rcFooter{};
    OArray<void*, void* const&> m_aFonts;
    OArray<void*, void* const&> m_aIcons;
    OArray<void*, void* const&> m_aElements; // CertElement*
    GCheckBox* m_pCheckBox = nullptr;
    GButton** m_ppButtons = nullptr;

private:
    friend class gesso::Frame;
    struct Layout;
    INT_PTR OnMessage(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void PlaceElements();
    void ReleaseElements();
    void OnScaling(const RECT* prcWanted);
    void AddText(HFONT hFont, gesso::Color color, LPCWSTR psz, const RECT& rc);
    HICON LoadKeptIcon(WORD wId, int cx, int cy);
    void AddIcon(HICON hIcon, int x, int y);
    void PlaceHeader(Layout& layout);
    void PlaceSubject(Layout& layout);
    void PlaceFailures(Layout& layout);
    void PlaceQuestion(Layout& layout);
    void PlaceButtons(Layout& layout);
    SIZE WindowSizeFor(SIZE client) const;
    void MakeGradient();
    void OnToggle(HWND hwndCheckBox);
    void DrawBand(HDC hdc) const;
    void DrawElements(HDC hdc) const;
};
