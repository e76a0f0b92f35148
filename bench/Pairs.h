// The rows that every kind of control has: making and destroying it, and painting it, beside the platform's.
#pragma once

#include <bench/Bench.h>

#include <memory>

namespace bench {

// How one control of each side is made, alike in size and content.
struct Makers
{
    std::function<std::unique_ptr<GWnd>(HWND hwndParent, int x, int y)> gesso;
    std::function<HWND(HWND hwndParent, int x, int y)> platform;
};

// A top-level window to make controls in; a STATIC, so that nothing of its own costs time.
HWND MakeParent(DWORD dwStyle);

// Making and destroying one of 1,000, in a hidden and in a shown parent.
void MeasureMaking(Bench& bench, const Makers& makers);
// Painting one on the screen.
void MeasurePainting(Bench& bench, HWND hwndGesso, HWND hwndPlatform);
// Painting one into a given context, where the platform's control answers WM_PRINTCLIENT as well.
void MeasurePrinting(Bench& bench, HWND hwndGesso, HWND hwndPlatform);

// Types so many characters into an edit field and takes them back, each with what it changes on the screen.
inline void TypeAndPaint(HWND hwnd, int nKeys)
{
    for (const WPARAM wChar : {WPARAM{'x'}, WPARAM{VK_BACK}}) {
        for (int i = 0; i < nKeys; i++) {
            SendMessageW(hwnd, WM_CHAR, wChar, 1);
            UpdateWindow(hwnd);
        }
    }
}

} // namespace bench
