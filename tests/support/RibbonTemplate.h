// Ribbon templates built in memory: piece by piece, or laid out whole for two strips of images.
#pragma once

#include <platform/platform.h>

#include <span>
#include <vector>

namespace test {

// A strip of square images, its pixels in blue, green, red, alpha, from the bottom row up.
struct Strip
{
    int cx;
    int cy;
    std::vector<DWORD> pixels;

    // Each pixel tells where in the strip it stands.
    static Strip Numbered(int cx, int cy, DWORD dwFirst);
    size_t Bytes() const { return pixels.size() * sizeof(DWORD); }
    BITMAPINFOHEADER Header() const;
};

class RibbonTemplate
{
public:
    // Of each section's entries.
    RibbonTemplate(WORD wFirst, WORD wSecond, WORD wThird);

    RibbonTemplate& Word(WORD w) { return Record(w); }
    RibbonTemplate& Fill(size_t nBytes, BYTE bValue = 0xA5);
    RibbonTemplate& Text(LPCWSTR psz);
    template <class RECORD> RibbonTemplate& Record(const RECORD& record)
    {
        const auto* p = reinterpret_cast<const BYTE*>(&record);
        m_bytes.insert(m_bytes.end(), p, p + sizeof(record));
        return *this;
    }
    // The header of a strip, and bytes in the place of its pixels.
    RibbonTemplate& Image(const Strip& strip) { return Record(strip.Header()).Fill(strip.Bytes()); }
    // The pixels of a strip over the bytes from an offset on.
    RibbonTemplate& Overlay(size_t nOffset, std::span<const DWORD> pixels);

    std::vector<BYTE>& Bytes() { return m_bytes; }

private:
    std::vector<BYTE> m_bytes;
};

// The layout that docs/ribbon.md describes: both strips come out whole, but for the first three pixels of the
// large one. The small one must not be larger.
std::vector<BYTE> LayOutTemplate(const Strip& large, const Strip& little);

} // namespace test
