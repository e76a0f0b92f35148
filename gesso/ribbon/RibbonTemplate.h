// The ribbon template: a resource of type "RT_DLG" that brings a ribbon its two strips of images.
//
// All numbers are little-endian, and nothing is aligned:
//
//    0  18 bytes   header, skipped
//   18  u16        count of entries in the first section
//   20  u16        count of entries in the second section
//   22  u16        count of entries in the third section
//   24  u16        skipped
//   26             the three sections, image 1 (a strip of 32 by 32 images), image 2 (16 by 16)
//
// An entry of the first and second section is 8 bytes and a terminated wide text. One of the third is 16
// bytes; a class, which is 0xFFFF and a u16 or else a terminated wide text; a terminated wide text; u16; u16
// count; u16; and as many times 4 bytes as the count says. The sections are only skipped.
//
// An image record is 4 bytes of which the first two are 0, for no image; or a BITMAPINFOHEADER for 32 bits a
// pixel, uncompressed and bottom-up, and the bytes of its pixels.
//
// The pixels are not fetched from the record, but from a place that is counted from the start of the
// resource: 40 for image 1, and for image 2 as many bytes behind that as image 1 with its header takes.
// Templates are laid out for it; docs/ribbon.md shows how.
#pragma once

#include <gesso/api.h>

#include <optional>
#include <span>

namespace gesso {

struct TemplateImage
{
    BITMAPINFOHEADER header;
    size_t nSource; // where its pixels start, from the start of the resource; may lie behind its end
    size_t nBytes;  // of pixels; never more than the resource has
};

// No value where the template has no such image, or ends or is malformed before or in it.
struct TemplateImages
{
    std::optional<TemplateImage> imageLarge;
    std::optional<TemplateImage> imageSmall;
};

TemplateImages ReadRibbonTemplate(std::span<const BYTE> resource);

// Copies the image's pixels; those that lie outside the resource are zero. `pixels` is image.nBytes long.
void CopyTemplatePixels(std::span<const BYTE> resource, const TemplateImage& image, std::span<BYTE> pixels);

} // namespace gesso
