// GDialog: the base of the library's dialogs. It loads a dialog template from the resource type "RT_DLG" and
// starts the dialog, modeless or modal, with the procedure that its subclass supplies. It answers no message
// itself.
//
// A host's message loop should hand each message to IsDialogMessageW(GDialog::s_hActiveDlg, &msg) while that
// is not null, so that the keyboard works in modeless dialogs.
#pragma once

#include <gesso/framework/GWnd.h>

class GESSO_API GDialog : public GWnd
{
public:
    // The library's dialog that is now active; null if there is none. The library never reads it.
    static HWND s_hActiveDlg;

    GDialog() = default;
    // The template's id, or its name, which is not copied.
    explicit GDialog(UINT nId);
    explicit GDialog(LPCWSTR pszName);
    // Copies share the window.
    GDialog(const GDialog& other) = default;
    GDialog& operator=(const GDialog& other) = default;
    // Leaves the window as it is; it goes on without the object.
    ~GDialog() override;

    // Starts the template that the constructor named, from a module's resources, as a modeless dialog. Always
    // returns 1: ask GetHwnd whether there is a window.
    virtual int Create(HWND hwndParent, HINSTANCE hInstance);
    // The same with a template in memory. Always returns 1.
    virtual int CreateIndirect(HWND hwndParent, HINSTANCE hInstance, const DLGTEMPLATE* pTemplate);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();
    // Runs the dialog and returns what it ended with; -1 where the platform could not run it; the last error,
    // which cannot be told from a button's id, where the template is missing.
    virtual INT_PTR DoModal(HWND hwndParent, HINSTANCE hInstance);
    virtual DLGPROC GetDialogProc() = 0;
    // The caption. Returns non-zero for success.
    virtual int SetText(LPCWSTR pszText);
    // In characters, without the terminator.
    virtual int GetTextLength() const;
    // *pnLength is the buffer's capacity in characters. Returns 1 and the length where the text filled the
    // buffer to its end, and 0 and the length plus one where there was room left.
    // Fixed behaviour: the two results are this way round. A host that calls again with a larger buffer until
    // it gets 0 would never end, or lose the end of the text, if they were those of the controls' GetText.
    virtual int GetText(LPWSTR pszBuffer, int* pnLength) const;
    virtual HWND GetDlgItem(int nId) const;

protected:
    // For a dialog procedure: the object that answers for the window, which takes it at WM_INITDIALOG from
    // lParam. Null before that message.
    static GDialog* ObjectOf(HWND hDlg, UINT uMsg, LPARAM lParam);

    LPCWSTR m_template = nullptr; // an id or a name, as for FindResourceW; null for none

private:
    friend class gesso::Frame;
    void Start(HWND hwndParent, HINSTANCE hInstance, const DLGTEMPLATE* pTemplate);
};
