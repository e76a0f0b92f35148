// Starting the library and making controls by number.
//
// Call InitControls once before the first control is made; every thread that makes controls may call it.
// There is no call to end it: the default font and the window classes live until the process ends.
#pragma once

#include <gesso/api.h>

// The kinds that CreateControl makes.
enum GCONTROLKIND : int
{
    GCK_LABEL = 1,
    GCK_BUTTON = 2,
    GCK_CHECKBOX = 3,
    GCK_RADIOBUTTON = 4,
    GCK_COMMANDBUTTON = 5,
    GCK_COMBOBOX = 6,
    GCK_PROGRESSBAR = 7,
    GCK_SEPARATOR = 8,
    GCK_LIST = 9,
    GCK_TREE = 10,
};

extern "C" {

// Makes the default font ("Segoe UI", 9 points at the screen's resolution) and registers the window classes
// that dialog templates may name. May be repeated harmlessly.
GESSO_API void InitControls();

// Makes an object of a kind (GCONTROLKIND), without a window: cast the result to the kind's class and call
// its Create. Null for a number that is no kind, and where there is no memory for the object. Free it with
// pObject->Delete(pObject).
GESSO_API void* CreateControl(int nKind);
}

// The font that each control starts with; null before InitControls. Nobody deletes it.
extern GESSO_API HFONT g_hDefaultFont;
