// What a thing is to those who do not see it, and what hosts may say of their controls.
//
// Every control of the library describes itself to assistive technology by Active Accessibility: it answers
// WM_GETOBJECT with an IAccessible. docs/accessibility.md tells what each says.
#pragma once

#include <gesso/api.h>

namespace gesso {

// The platform's ROLE_SYSTEM_ values.
enum class Role : UINT
{
    None = 0,
    ScrollBar = ROLE_SYSTEM_SCROLLBAR,
    Grip = ROLE_SYSTEM_GRIP,
    Window = ROLE_SYSTEM_WINDOW,
    Client = ROLE_SYSTEM_CLIENT, // a window of the platform's that is nothing else
    MenuPopup = ROLE_SYSTEM_MENUPOPUP,
    MenuItem = ROLE_SYSTEM_MENUITEM,
    Pane = ROLE_SYSTEM_PANE,
    Dialog = ROLE_SYSTEM_DIALOG,
    Grouping = ROLE_SYSTEM_GROUPING,
    Separator = ROLE_SYSTEM_SEPARATOR,
    ColumnHeader = ROLE_SYSTEM_COLUMNHEADER,
    List = ROLE_SYSTEM_LIST,
    ListItem = ROLE_SYSTEM_LISTITEM,
    Outline = ROLE_SYSTEM_OUTLINE,
    OutlineItem = ROLE_SYSTEM_OUTLINEITEM,
    PageTab = ROLE_SYSTEM_PAGETAB,
    PropertyPage = ROLE_SYSTEM_PROPERTYPAGE,
    Indicator = ROLE_SYSTEM_INDICATOR,
    Graphic = ROLE_SYSTEM_GRAPHIC,
    StaticText = ROLE_SYSTEM_STATICTEXT,
    Text = ROLE_SYSTEM_TEXT,
    PushButton = ROLE_SYSTEM_PUSHBUTTON,
    CheckButton = ROLE_SYSTEM_CHECKBUTTON,
    RadioButton = ROLE_SYSTEM_RADIOBUTTON,
    ComboBox = ROLE_SYSTEM_COMBOBOX,
    ProgressBar = ROLE_SYSTEM_PROGRESSBAR,
    PageTabList = ROLE_SYSTEM_PAGETABLIST
};

// What a control says of itself, or of one of its items.
struct AccessibleText
{
    Role role;
    LPCWSTR name;        // none of the three is null when it comes to a callback
    LPCWSTR description; // null, where a callback puts that, counts as empty
    LPCWSTR value;
};

// A name and a description for a control of the library, which go before its own text, in that of the
// program's user. The text is copied, an ampersand stands for itself, and null takes it back. Any thread may
// call. Nothing for a window that is none of the library's controls and dialogs, or without memory.
GESSO_API void SetAccessibleName(HWND hwnd, LPCWSTR name);
GESSO_API void SetAccessibleDescription(HWND hwnd, LPCWSTR description);

// A program's own words: gets what the control says of itself, child 0, or of an item, from 1, in the order
// of the control's children, and may put other texts in their place, which must last until the callback
// returns. The role stays whatever is put there. True where the three texts hold, false where they are to be
// as they came. It is called on the control's thread, whenever somebody asks.
using DescribeFunction = bool (*)(HWND hwnd, int child, AccessibleText* text, void* context);
// Has a control of the library ask a callback; null has it ask none. Nothing for any other window.
GESSO_API void DescribeAccessible(HWND hwnd, DescribeFunction callback, void* context);

} // namespace gesso
