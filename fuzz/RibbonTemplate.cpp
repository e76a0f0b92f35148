// Reads anything as a ribbon template. What it finds must lie in the resource as far as it says, and must be
// fetched from where the format says, zeros standing for what is outside.

#include <gesso/ribbon/RibbonTemplate.h>

#include <vector>

namespace {

void Check(bool fTrue)
{
    if (!fTrue) {
        std::abort();
    }
}

void CheckImage(std::span<const BYTE> resource, const gesso::TemplateImage& image, size_t nSource)
{
    const BITMAPINFOHEADER& header = image.header;
    Check(header.biWidth > 0 && header.biHeight > 0 && header.biBitCount == 32);
    Check(image.nBytes / 4 / static_cast<size_t>(header.biWidth) == static_cast<size_t>(header.biHeight));
    Check(image.nBytes <= resource.size());
    Check(image.nSource == nSource);
    std::vector<BYTE> pixels(image.nBytes, 0xEE);
    gesso::CopyTemplatePixels(resource, image, pixels);
    for (size_t i = 0; i < pixels.size(); i++) {
        const size_t nAt = nSource + i;
        Check(pixels[i] == (nAt < resource.size() ? resource[nAt] : 0));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    const std::span<const BYTE> resource(pData, nSize);
    const gesso::TemplateImages images = gesso::ReadRibbonTemplate(resource);
    size_t nSource = 40;
    if (images.imageLarge) {
        CheckImage(resource, *images.imageLarge, nSource);
        nSource += images.imageLarge->nBytes + 40;
    }
    if (images.imageSmall) {
        CheckImage(resource, *images.imageSmall, nSource);
    }
    return 0;
}
