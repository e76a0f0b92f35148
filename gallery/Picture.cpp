#include <gallery/GdiPlus.h>
#include <gallery/Picture.h>

namespace gallery {
namespace {

// {557CF406-1A04-11D3-9A73-0000F81EF32E}, the PNG encoder that every Windows has.
constexpr CLSID PNG_ENCODER = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

HBITMAP Copy(HDC hdc, POINT ptFrom, SIZE size)
{
    const HDC hdcMemory = CreateCompatibleDC(hdc);
    const HBITMAP hbm = CreateCompatibleBitmap(hdc, size.cx, size.cy);
    const HGDIOBJ hFormer = SelectObject(hdcMemory, hbm);
    BitBlt(hdcMemory, 0, 0, size.cx, size.cy, hdc, ptFrom.x, ptFrom.y, SRCCOPY);
    SelectObject(hdcMemory, hFormer);
    DeleteDC(hdcMemory);
    return hbm;
}

// A part of what stands in a window's context. False where it could not be saved.
bool Save(HWND hwnd, HDC hdc, POINT ptFrom, SIZE size, LPCWSTR pszPath)
{
    const HBITMAP hbm = Copy(hdc, ptFrom, size);
    ReleaseDC(hwnd, hdc);
    Gdiplus::Bitmap bitmap(hbm, nullptr);
    const bool fSaved = bitmap.Save(pszPath, &PNG_ENCODER, nullptr) == Gdiplus::Ok;
    DeleteObject(hbm);
    return fSaved;
}

// A copy of a mirrored window's context would be the mirror image of what the user sees.
bool IsMirrored(HWND hwnd)
{
    return GetWindowLongW(hwnd, GWL_EXSTYLE) & WS_EX_LAYOUTRTL;
}

} // namespace

PictureSession::PictureSession()
{
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&m_token, &input, nullptr);
}

PictureSession::~PictureSession()
{
    Gdiplus::GdiplusShutdown(m_token);
}

bool SavePicture(HWND hwnd, LPCWSTR pszPath)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    if (IsMirrored(hwnd)) {
        MapWindowPoints(hwnd, nullptr, reinterpret_cast<POINT*>(&rc), 2);
        return SaveScreenPicture(rc, pszPath);
    }
    return Save(hwnd, GetDC(hwnd), {0, 0}, {rc.right, rc.bottom}, pszPath);
}

bool SaveWholePicture(HWND hwnd, LPCWSTR pszPath)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    if (IsMirrored(hwnd)) {
        return SaveScreenPicture(rc, pszPath);
    }
    return Save(hwnd, GetWindowDC(hwnd), {0, 0}, {rc.right - rc.left, rc.bottom - rc.top}, pszPath);
}

bool SaveScreenPicture(const RECT& rc, LPCWSTR pszPath)
{
    return Save(nullptr, GetDC(nullptr), {rc.left, rc.top}, {rc.right - rc.left, rc.bottom - rc.top},
                pszPath);
}

} // namespace gallery
