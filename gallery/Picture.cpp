#include <gallery/GdiPlus.h>
#include <gallery/Picture.h>

namespace gallery {
namespace {

// {557CF406-1A04-11D3-9A73-0000F81EF32E}, the PNG encoder that every Windows has.
constexpr CLSID PNG_ENCODER = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

HBITMAP CopyClientArea(HWND hwnd)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    const HDC hdcWindow = GetDC(hwnd);
    const HDC hdcMemory = CreateCompatibleDC(hdcWindow);
    const HBITMAP hbm = CreateCompatibleBitmap(hdcWindow, rc.right, rc.bottom);
    const HGDIOBJ hFormer = SelectObject(hdcMemory, hbm);
    BitBlt(hdcMemory, 0, 0, rc.right, rc.bottom, hdcWindow, 0, 0, SRCCOPY);
    SelectObject(hdcMemory, hFormer);
    DeleteDC(hdcMemory);
    ReleaseDC(hwnd, hdcWindow);
    return hbm;
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
    const HBITMAP hbm = CopyClientArea(hwnd);
    Gdiplus::Bitmap bitmap(hbm, nullptr);
    const bool fSaved = bitmap.Save(pszPath, &PNG_ENCODER, nullptr) == Gdiplus::Ok;
    DeleteObject(hbm);
    return fSaved;
}

} // namespace gallery
