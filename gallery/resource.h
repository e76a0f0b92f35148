// Numbers that the gallery's resources and sources share.
#pragma once

#define IDD_LABELS 101
#define IDD_BUTTONS 102
#define IDD_CHOICES 103
#define IDR_RIBBON 104
#define IDR_WIZARD_PAGE 105
#define IDB_SMALL_IMAGES 106

#define IDC_TEMPLATE_BUTTON 900
#define IDC_TEMPLATE_LINK 901
