// Numbers that the gallery's resources and sources share.
#pragma once

#define IDD_LABELS 101
#define IDD_BUTTONS 102
#define IDD_CHOICES 103
#define IDR_RIBBON 104
#define IDR_WIZARD_PAGE 105
#define IDB_SMALL_IMAGES 106
#define IDB_SMALL_IMAGES_ON_DARK 107
#define IDB_LARGE_IMAGES_ON_DARK 108

#define IDC_TEMPLATE_BUTTON 900
#define IDC_TEMPLATE_LINK 901
