// The task dialog and message box of Modern, and of GTaskDialog::Ask: any buttons, texts as they are given, a
// check box, and never more room than the monitor has.
#pragma once

#include <gesso/controls/GCheckBox.h>
#include <gesso/dialogs/GDialog.h>
#include <gesso/framework/ThemeHandle.h>

#include <memory>
#include <vector>

class GButton;
struct GTASKDIALOGCONFIG;

namespace gesso {

class ThemePart;

struct DialogButton
{
    LPCWSTR pszLabel;
    int nId; // IDHELP ends nothing
};

// The texts are the caller's, and outlive the dialog.
struct MessageContent
{
    LPCWSTR pszCaption = nullptr;
    LPCWSTR pszInstruction = nullptr; // null for none
    LPCWSTR pszContent = nullptr;
    LPCWSTR pszVerification = nullptr; // the check box; null or empty for none
    bool fChecked = false;             // its mark, at first and at the end
    HICON hIcon = nullptr;
    UINT cxWidth = 0;                    // in dialog units, at least; 0 for the usual width
    std::vector<DialogButton> buttons{}; // from the left
    int nDefaultId = 0;
    bool fEscEnds = true; // with IDCANCEL, also where there is no such button
};

// What a record of the task dialog, and the type of a message box, ask for.
MessageContent ContentOf(const GTASKDIALOGCONFIG& config);
void TakeMessageType(UINT uType, MessageContent* pContent);

class MessageDialog : public GDialog
{
public:
    explicit MessageDialog(MessageContent& content);
    ~MessageDialog() override;

    // Runs the dialog, and returns the id of the button that ended it; -1 where it could not run.
    INT_PTR Run(HWND hwndOwner, HINSTANCE hInstance);

    DLGPROC GetDialogProc() override;
    void Draw(HDC hdc);
    // A key that one of the dialog's controls gets: whether it is the dialog's.
    bool TakesKey(WPARAM wKey);
    // Whether the text has more lines than there is room for, so that the arrows across it are the dialog's.
    bool Scrolls() const { return LastPosition() > 0; }

    static INT_PTR CALLBACK DialogProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);

private:
    friend class Frame;
    static constexpr int CHECK_ID = 100; // none of the platform's buttons
    INT_PTR OnMessage(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const AccessibleSide& Describes();
    INT_PTR OnInitDialog();
    INT_PTR OnCommand(int nId);
    INT_PTR OnWheel(int nDelta);
    INT_PTR OnDestroy();
    void AskOwnerForHelp();

    // Layout; lengths in pixels.
    void LayOut(const RECT* prcWanted);
    void OnScaling(const RECT* prcWanted);
    int PlaceTexts(HDC hdc, int xLimit);
    int ButtonWidth(HDC hdc) const;
    int CheckWidth(HDC hdc) const;
    void Resize(SIZE needed, SIZE most);
    void MakeButtons(int cxButton);
    void MakeCheckBox();
    bool HasCheckBox() const { return m_content.pszVerification && *m_content.pszVerification; }
    HWND FirstFocus() const;

    void ScrollTo(int nPosition);
    int ViewHeight() const { return m_rcFooter.top - m_cyCheck; }
    int LastPosition() const { return m_cyTexts > ViewHeight() ? m_cyTexts - ViewHeight() : 0; }
    bool CopyTexts();

    MessageContent& m_content;
    ThemeHandle m_hTheme;
    RECT m_rcInstruction{};
    RECT m_rcContent{};
    RECT m_rcFooter{};
    POINT m_ptIcon{};
    int m_cyTexts = 0;
    int m_cyCheck = 0; // of the strip with the check box, above the footer
    int m_nPosition = 0;
    std::vector<std::unique_ptr<GButton>> m_buttons;
    GCheckBox m_check;
};

} // namespace gesso
