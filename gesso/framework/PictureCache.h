// Drawings whose pixels are cached, from the second time on that they are drawn in a size. To copy a small
// picture takes less than to fill two rectangles; the theme service takes a hundred times as long for a part
// that it scales anew each time.
//
// Only what looks over every background as its drawing does is cached (framework/CachedPicture), and all of
// it goes with the library's last window.
#pragma once

#include <gesso/framework/CachedPicture.h>

#include <array>

namespace gesso {

// What tells a drawing from others, beside its size: the numbers are all that it is made of.
struct PictureKey
{
    HTHEME hTheme = nullptr; // null where the library draws by itself
    std::array<DWORD, 12> numbers{};

    bool operator==(const PictureKey&) const = default;
};

class CacheableDrawing : public PictureSource
{
public:
    virtual PictureKey Key() const = 0;
    // Whether it may be worth its pixels. Asked once, before they are read.
    virtual bool IsWorthwhile() const = 0;

protected:
    ~CacheableDrawing() = default;
};

// Copies the drawing to rc, where it is cached, or leaves it out where it is blank. False where it is to be
// drawn: for the first time in this size, or because its pixels do not tell how it looks, it is very large,
// or goes into a context other than a memory context whose units are pixels, or the library has no window.
bool DrawCached(const CacheableDrawing& drawing, HDC hdc, const RECT& rc);

// Drops what is cached of a theme handle.
void DropPictures(HTHEME hTheme);
// Drops everything, where the library has no window any more.
void ReleasePictures();

// Whether the entries agree with each other and with the count of pixels. For tests.
bool CheckPictureCache();

} // namespace gesso
