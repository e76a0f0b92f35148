// How large the public classes are. A host that was built before has these sizes in its code: none may
// change.
#include "Checks.h"

#include <gesso/edit/GComboBoxList.h>

namespace {

using UintArray = OArray<UINT, UINT const&>;

} // namespace

#define SIZE_OF(CLASS, GNU_SIZE, MICROSOFT_SIZE) SameForBoth(sizeof(CLASS), GNU_SIZE, MICROSOFT_SIZE, #CLASS)

void CheckSizes()
{
    Group("sizes");
    SIZE_OF(GWnd, 24, 24);
    SIZE_OF(GWndScroll, 160, 160);
    SIZE_OF(GWindow2, 24, 32);
    SIZE_OF(GButton, 80, 80);
    SIZE_OF(GCheckBox, 80, 80);
    SIZE_OF(GRadioButton, 80, 80);
    SIZE_OF(GCommandButton, 120, 136);
    SIZE_OF(GLabel, 72, 72);
    SIZE_OF(GNavigationButton, 40, 40);
    SIZE_OF(GProgressBar, 48, 48);
    SIZE_OF(GScrollbar, 96, 96);
    SIZE_OF(GSeparator, 24, 24);
    SIZE_OF(GEdit, 280, 280);
    SIZE_OF(GComboBox, 144, 144);
    SIZE_OF(GComboBoxList, 288, 288);
    SIZE_OF(GList, 584, 592);
    SIZE_OF(GTree, 440, 440);
    SIZE_OF(GNavigationBar, 376, 376);
    SIZE_OF(GRibbon, 272, 272);
    SIZE_OF(GRibbonPage, 224, 224);
    SIZE_OF(GRibbonPage::Group, 56, 56);
    SIZE_OF(GRibbonPage::Item, 64, 64);
    SIZE_OF(GRibbonPage::ItemInfo, 40, 40);
    SIZE_OF(GRightClickMenu, 72, 72);
    SIZE_OF(GDialog, 32, 32);
    SIZE_OF(GTaskDialog, 160, 160);
    SIZE_OF(GWizard, 184, 184);
    SIZE_OF(GWndCertFailure, 192, 192);
    SIZE_OF(GTASKDIALOGCONFIG, 136, 136);
    SIZE_OF(GWIZARDCONFIG, 40, 40);
    SIZE_OF(GWNDCERTFAILURECONFIG, 40, 40);
    SIZE_OF(stcPage, 40, 40);
    SIZE_OF(stcWizardNotify, 32, 32);
    SIZE_OF(stcCreateTag, 10, 10);
    SIZE_OF(stcSeparatorNotify, 80, 80);
    SIZE_OF(stcDrawTextBuffer, 144, 144);
    SIZE_OF(GLISTNOTIFY, 80, 80);
    SIZE_OF(GTREEDISPINFO, 24, 24);
    SIZE_OF(GLISTMATCH, 16, 16);
    SIZE_OF(ComboItem, 32, 32);
    SIZE_OF(ListItem, 48, 48);
    SIZE_OF(ListSubItem, 24, 24);
    SIZE_OF(ListColumn, 88, 88);
    SIZE_OF(ListGroup, 32, 32);
    SIZE_OF(TreeItem, 96, 96);
    SIZE_OF(NavigationBarItem, 96, 96);
    SIZE_OF(OString<wchar_t>, 8, 8);
    SIZE_OF(OStringEx<wchar_t>, 8, 8);
    SIZE_OF(UintArray, 24, 24);
    SIZE_OF(gesso::ControlText, 16, 16);
    SIZE_OF(gesso::ThemeHandle, 16, 16);
    SIZE_OF(gesso::ThemeFont, 16, 24);
    SIZE_OF(gesso::ItemTheme, 40, 40);
    SIZE_OF(gesso::TreeTheme, 56, 56);
    SIZE_OF(gesso::FontHandle, 16, 16);
}
