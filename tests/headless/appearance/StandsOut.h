// What has to be told from what it stands on, by how much, and whether a window's texts can.
#pragma once

#include "Exhibit.h"
#include "Picture.h"
#include "Schemes.h"

namespace test {

constexpr double TEXT_CONTRAST = 4.5;
constexpr double LEAST_CONTRAST = 3; // of disabled texts, and of what is no text

inline void ShowCues(HWND hwnd)
{
    SendMessageW(hwnd, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}

// The number of texts.
inline size_t ExpectTextsToStandOut(HWND hwnd, const std::string& where)
{
    const bool fDisabled = !IsWindowEnabled(hwnd);
    const Picture picture(hwnd);
    for (const Picture::Text& text : picture.Texts()) {
        const bool fGrey = fDisabled || text.cr == ColorOf(gesso::ColorRole::DisabledText);
        int nAll = 0;
        for (const auto& [cr, nPixels] : text.ground) {
            nAll += nPixels;
        }
        for (const auto& [cr, nPixels] : text.ground) {
            if (nPixels * 4 < nAll) {
                continue; // a frame or a mark beside it
            }
            if (cr == UNPAINTED) {
                ADD_FAILURE() << where << ": on nothing: " << text.line;
            } else {
                EXPECT_GE(Contrast(text.cr, cr), fGrey ? LEAST_CONTRAST : TEXT_CONTRAST)
                    << where << ": on " << std::hex << cr << ": " << text.line;
            }
        }
    }
    return picture.Texts().size();
}

} // namespace test
