// Numbers that the template and the program share. Resource compilers read macros only.
#pragma once

#define IDD_FORM 100
#define IDC_NAME 101
#define IDC_NEWS 102
#define IDC_ALPHABET 103
#define IDC_DATE 104

// Gesso's styles as the template needs them; sources have them as constants from <gesso/gesso.h>.
#ifdef RC_INVOKED
#define GS_CENTER 0x0001
#define GS_VCENTER 0x0004
#define GBS_DEFAULT 0x4000
#endif
