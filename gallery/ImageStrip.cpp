#include <gallery/GdiPlus.h>
#include <gallery/ImageStrip.h>

#include <commctrl.h>
#include <memory>

namespace gallery {
namespace {

struct ReleaseStream
{
    void operator()(IStream* pStream) const { pStream->Release(); }
};

std::unique_ptr<IStream, ReleaseStream> OpenResource(int nResource)
{
    const HRSRC hResource =
        FindResourceW(nullptr, MAKEINTRESOURCEW(nResource), MAKEINTRESOURCEW(10)); // RT_RCDATA
    const DWORD dwSize = hResource ? SizeofResource(nullptr, hResource) : 0;
    const HGLOBAL hMemory = dwSize ? GlobalAlloc(GMEM_MOVEABLE, dwSize) : nullptr;
    IStream* pStream = nullptr;
    if (hMemory) {
        std::memcpy(GlobalLock(hMemory), LockResource(LoadResource(nullptr, hResource)), dwSize);
        GlobalUnlock(hMemory);
        CreateStreamOnHGlobal(hMemory, TRUE, &pStream); // frees the memory with the stream
    }
    return std::unique_ptr<IStream, ReleaseStream>(pStream);
}

} // namespace

HIMAGELIST LoadImageStrip(int nResource)
{
    const auto stream = OpenResource(nResource);
    Gdiplus::Bitmap strip(stream.get());
    HBITMAP hBitmap = nullptr;
    if (!stream || strip.GetHBITMAP(Gdiplus::Color(0, 0, 0, 0), &hBitmap) != Gdiplus::Ok) {
        return nullptr;
    }
    const auto nSize = static_cast<int>(strip.GetHeight());
    const HIMAGELIST hImages =
        ImageList_Create(nSize, nSize, ILC_COLOR32, static_cast<int>(strip.GetWidth()) / nSize, 0);
    ImageList_Add(hImages, hBitmap, nullptr);
    DeleteObject(hBitmap);
    return hImages;
}

} // namespace gallery
