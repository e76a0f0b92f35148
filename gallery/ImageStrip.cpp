#include <gallery/GdiPlus.h>
#include <gallery/ImageStrip.h>
#include <gallery/resource.h>

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

bool IsGroundDark()
{
    const COLORREF cr = gesso::ColorOf(gesso::ColorRole::Panel);
    return gesso::ActiveColorScheme() != gesso::ColorScheme::Light &&
           GetRValue(cr) + GetGValue(cr) + GetBValue(cr) < 3 * 0x80;
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

SchemeImages ImagesOfScheme()
{
    static const SchemeImages s_onLight{nullptr, LoadImageStrip(IDB_SMALL_IMAGES)};
    static const SchemeImages s_onDark{LoadImageStrip(IDB_LARGE_IMAGES_ON_DARK),
                                       LoadImageStrip(IDB_SMALL_IMAGES_ON_DARK)};
    return IsGroundDark() ? s_onDark : s_onLight;
}

} // namespace gallery
