#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>
#include <gesso/ribbon/RibbonImages.h>
#include <gesso/ribbon/RibbonTemplate.h>

namespace gesso {
namespace {

constexpr int FIRST_IMAGES = 4;

// Of the images as a template has them, whatever the scale.
int LargeWidth()
{
    return Metrics::RIBBON_LARGE_IMAGE.nPixels;
}

int SmallWidth()
{
    return Metrics::RIBBON_SMALL_IMAGE.nPixels;
}

std::span<const BYTE> FindTemplate(HINSTANCE hInstance, LPCWSTR pszName)
{
    const HRSRC hResource = FindResourceW(hInstance, pszName, L"RT_DLG");
    const HGLOBAL hLoaded = hResource ? LoadResource(hInstance, hResource) : nullptr;
    const auto* pBytes = hLoaded ? static_cast<const BYTE*>(LockResource(hLoaded)) : nullptr;
    return pBytes ? std::span(pBytes, SizeofResource(hInstance, hResource)) : std::span<const BYTE>();
}

HBITMAP MakeStrip(std::span<const BYTE> resource, const TemplateImage& image)
{
    BITMAPINFO info{image.header, {}};
    // A palette has no use with 32 bits, and there is none behind this record.
    info.bmiHeader.biClrUsed = 0;
    void* pPixels = nullptr;
    const MemoryContext context;
    const HBITMAP hStrip = CreateDIBSection(context, &info, DIB_RGB_COLORS, &pPixels, nullptr, 0);
    if (hStrip) {
        CopyTemplatePixels(resource, image, {static_cast<BYTE*>(pPixels), image.nBytes});
    }
    return hStrip;
}

HIMAGELIST MakeList(std::span<const BYTE> resource, const std::optional<TemplateImage>& image, int cx)
{
    if (!image) {
        return IsolationAwareImageList_Create(cx, cx, FIRST_IMAGES);
    }
    const HIMAGELIST hList = IsolationAwareImageList_Create(cx, cx, image->header.biWidth / cx);
    if (const HBITMAP hStrip = MakeStrip(resource, *image)) {
        IsolationAwareImageList_Add(hList, hStrip);
        DeleteObject(hStrip);
    }
    return hList;
}

} // namespace

RibbonImages MakeEmptyRibbonImages()
{
    return {MakeList({}, std::nullopt, LargeWidth()), MakeList({}, std::nullopt, SmallWidth())};
}

RibbonImages LoadRibbonImages(HINSTANCE hInstance, LPCWSTR pszTemplate)
{
    const auto resource = FindTemplate(hInstance, pszTemplate);
    const TemplateImages images = ReadRibbonTemplate(resource);
    return {MakeList(resource, images.imageLarge, LargeWidth()),
            MakeList(resource, images.imageSmall, SmallWidth())};
}

} // namespace gesso
