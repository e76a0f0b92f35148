// A host's dialog, over any template.
#pragma once

#include "World.h"

#include <tests/support/DialogTemplate.h>

#include <gesso/gesso.h>

namespace attack {

test::DialogTemplate AnyTemplate(Source& source);

class HostDialog : public GDialog
{
public:
    using GDialog::GDialog;
    DLGPROC GetDialogProc() override { return Proc; }

private:
    static INT_PTR CALLBACK Proc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        ObjectOf(hDlg, uMsg, lParam);
        NoteHostMessage(hDlg, uMsg);
        return uMsg == WM_COMMAND && LOWORD(wParam) == IDCANCEL && EndDialog(hDlg, IDCANCEL);
    }
};

// Dialogs and ribbons from resources that are made as the attack goes on.
void AddFromResources(Table& table);

} // namespace attack
