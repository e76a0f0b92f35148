// GDI+, for drawing the glyphs and for saving what a window shows.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

// Keeps GDI+ started for as long as it lives.
class PictureSession
{
public:
    PictureSession();
    ~PictureSession();
    PictureSession(const PictureSession&) = delete;
    PictureSession& operator=(const PictureSession&) = delete;

private:
    ULONG_PTR m_token = 0;
};

// Saves a window's client area, as it stands on the screen, as a PNG. False where that failed.
bool SavePicture(HWND hwnd, LPCWSTR pszPath);
// The same for the whole window, caption and frame included.
bool SaveWholePicture(HWND hwnd, LPCWSTR pszPath);
// The same for a part of the screen, whatever windows show there.
bool SaveScreenPicture(const RECT& rc, LPCWSTR pszPath);

} // namespace gallery
