// Windows of their own that a page opens, saved as pictures: dialogs run their own message loop, so that the
// picture is taken from within.
#pragma once

#include <gesso/gesso.h>

#include <functional>
#include <string>

namespace gallery {

struct Exhibit
{
    std::wstring name; // of the picture, without its ending
    std::function<void()> open;
    std::function<void(HWND)> prepare; // brings the dialog into the state to show; may be empty
};

// Opens the exhibit over a window, saves its picture when it has painted itself, and ends it. False if that
// failed.
bool SaveExhibit(HWND hwndOwner, const Exhibit& exhibit, LPCWSTR pszPath);

} // namespace gallery
