// The schemes that the library draws by itself, as the tests go through them: Dark, three sets of a
// user's contrast colours, as the system comes with them, and one in which no two grounds are alike.
#pragma once

#include "../FreshDesktop.h"

#include <initializer_list>

namespace test {

struct Scheme
{
    const char* name;
    gesso::ColorScheme scheme;
    std::initializer_list<std::pair<int, COLORREF>> colors; // of the system
};

inline constexpr COLORREF WHITE = RGB(0xFF, 0xFF, 0xFF), BLACK = RGB(0, 0, 0);

inline const Scheme SCHEMES[] = {
    {"dark", gesso::ColorScheme::Dark, {}},
    {"white on black",
     gesso::ColorScheme::Contrast,
     {{COLOR_WINDOW, BLACK},
      {COLOR_WINDOWTEXT, WHITE},
      {COLOR_BTNFACE, BLACK},
      {COLOR_BTNTEXT, WHITE},
      {COLOR_GRAYTEXT, RGB(0x3F, 0xF2, 0x3F)},
      {COLOR_HIGHLIGHT, RGB(0x1A, 0xEB, 0xFF)},
      {COLOR_HIGHLIGHTTEXT, BLACK},
      {COLOR_HOTLIGHT, RGB(0xFF, 0xFF, 0x00)}}},
    {"black on white",
     gesso::ColorScheme::Contrast,
     {{COLOR_WINDOW, WHITE},
      {COLOR_WINDOWTEXT, BLACK},
      {COLOR_BTNFACE, WHITE},
      {COLOR_BTNTEXT, BLACK},
      {COLOR_GRAYTEXT, RGB(0x60, 0x00, 0x00)},
      {COLOR_HIGHLIGHT, RGB(0x37, 0x00, 0x6E)},
      {COLOR_HIGHLIGHTTEXT, WHITE},
      {COLOR_HOTLIGHT, RGB(0x00, 0x00, 0x9F)}}},
    {"yellow on black",
     gesso::ColorScheme::Contrast,
     {{COLOR_WINDOW, BLACK},
      {COLOR_WINDOWTEXT, RGB(0xFF, 0xFF, 0x00)},
      {COLOR_BTNFACE, BLACK},
      {COLOR_BTNTEXT, RGB(0xFF, 0xFF, 0x00)},
      {COLOR_GRAYTEXT, RGB(0x00, 0xFF, 0x00)},
      {COLOR_HIGHLIGHT, RGB(0x00, 0x80, 0x00)},
      {COLOR_HIGHLIGHTTEXT, WHITE},
      {COLOR_HOTLIGHT, RGB(0x00, 0xFF, 0xFF)}}},
    {"yellow on blue, black on cream",
     gesso::ColorScheme::Contrast,
     {{COLOR_WINDOW, RGB(0x00, 0x00, 0x40)},
      {COLOR_WINDOWTEXT, RGB(0xFF, 0xFF, 0x00)},
      {COLOR_BTNFACE, RGB(0xFF, 0xF5, 0xE3)},
      {COLOR_BTNTEXT, RGB(0x20, 0x20, 0x20)},
      {COLOR_GRAYTEXT, RGB(0x7A, 0x7A, 0x7A)},
      {COLOR_HIGHLIGHT, RGB(0x6A, 0x0D, 0xAD)},
      {COLOR_HIGHLIGHTTEXT, WHITE},
      {COLOR_HOTLIGHT, RGB(0x00, 0x66, 0xCC)}}},
};

// One of them, while this lives.
class WithScheme
{
public:
    explicit WithScheme(const Scheme& scheme)
    {
        for (const auto& [nIndex, cr] : scheme.colors) {
            desk::SetSystemColor(nIndex, cr);
        }
        gesso::SetColorScheme(scheme.scheme);
    }
    ~WithScheme() { gesso::SetColorScheme(gesso::ColorScheme::Light); }
    WithScheme(const WithScheme&) = delete;
    WithScheme& operator=(const WithScheme&) = delete;
};

} // namespace test
