// Everything that a host needs of Gesso.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OStringEx.h>
#include <gesso/controls/GButton.h>
#include <gesso/controls/GCheckBox.h>
#include <gesso/controls/GCommandButton.h>
#include <gesso/controls/GLabel.h>
#include <gesso/controls/GNavigationButton.h>
#include <gesso/controls/GProgressBar.h>
#include <gesso/controls/GRadioButton.h>
#include <gesso/controls/GScrollbar.h>
#include <gesso/controls/GSeparator.h>
#include <gesso/dialogs/GDialog.h>
#include <gesso/dialogs/GTaskDialog.h>
#include <gesso/dialogs/GWizard.h>
#include <gesso/dialogs/GWndCertFailure.h>
#include <gesso/edit/GComboBox.h>
#include <gesso/framework/GWindow2.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/Library.h>
#include <gesso/list/GList.h>
#include <gesso/list/GListNotify.h>
#include <gesso/ribbon/GRibbon.h>
#include <gesso/ribbon/GRibbonPage.h>
#include <gesso/ribbon/GRightClickMenu.h>
#include <gesso/text/CDrawText.h>
