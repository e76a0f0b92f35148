// The gallery's command line.
#pragma once

#include <gesso/framework/Appearance.h>

#include <string>

namespace gallery {

struct Options
{
    int nDots = 0;          // --scale DOTS: drawn for so many dots an inch, whatever the screen has
    int nPage = 0;          // --page NAME: the page shown first
    bool fMirrored = false; // --direction rtl: its window is laid out from right to left
    gesso::ColorScheme scheme = gesso::ColorScheme::Light; // --scheme light|dark|contrast|system
    std::wstring pictureDir; // --shots DIR: saves a picture of each page there and ends
    std::wstring logFile;    // --log FILE: what the controls report goes there too, a line each
    std::wstring statsFile;  // --stats FILE: what the gallery holds of the system, four times a second
    std::wstring layoutFile; // --layout FILE: where the controls stand, written for each page and at F12
};

// Reads the process's command line. False, with a message on standard error, where it is not understood.
bool ReadOptions(Options& options);

} // namespace gallery
