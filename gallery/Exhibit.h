// What a page shows only after some input, for the pictures of the docs: a dialog that it opens, or a part of
// the page in a certain state. Dialogs and the lists of combo boxes run their own message loop, so that the
// picture is taken from within.
#pragma once

#include <gesso/gesso.h>

#include <functional>
#include <string>

namespace gallery {

struct Exhibit
{
    std::wstring name;                 // of the picture, without its ending
    std::function<void()> open;        // opens the dialog, or brings the page into the state
    std::function<void(HWND)> prepare; // brings the dialog into the state to show; may be empty
    RECT rcPart{};                     // on the screen, of the page; empty for a dialog
};

// Opens the exhibit of a window, saves its picture when it has painted itself, and ends it. False if that
// failed.
bool SaveExhibit(HWND hwndOwner, const Exhibit& exhibit, LPCWSTR pszPath);

} // namespace gallery
