// Dialog templates in memory, in both of the platform's forms.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

struct DialogItem
{
    DWORD style = 0;
    DWORD exStyle = 0;
    RECT place{}; // left, top and, as right and bottom, width and height; in dialog units
    DWORD id = 0;
    LPCWSTR className = nullptr;  // a name, or an atom in its place
    LPCWSTR text = nullptr;       // likewise
    void* creationData = nullptr; // begins with its size as a word; null if there is none
};

struct DialogTemplate
{
    DWORD style = 0;
    DWORD exStyle = 0;
    POINT corner{}; // in dialog units
    SIZE size{};
    LPCWSTR className = nullptr;
    LPCWSTR text = nullptr;
    bool hasFont = false;
    LOGFONTW font{}; // its height in points
    std::vector<DialogItem> items;
};

DialogTemplate ReadTemplate(const DLGTEMPLATE* source);

} // namespace gesso::headless
