#include "RibbonTemplate.h"

#include <numeric>

namespace test {

Strip Strip::Numbered(int cx, int cy, DWORD dwFirst)
{
    Strip strip{cx, cy, std::vector<DWORD>(static_cast<size_t>(cx * cy))};
    std::iota(strip.pixels.begin(), strip.pixels.end(), dwFirst);
    return strip;
}

BITMAPINFOHEADER Strip::Header() const
{
    BITMAPINFOHEADER header{};
    header.biSize = sizeof(header);
    header.biWidth = cx;
    header.biHeight = cy;
    header.biPlanes = 1;
    header.biBitCount = 32;
    return header;
}

RibbonTemplate::RibbonTemplate(WORD wFirst, WORD wSecond, WORD wThird)
{
    Fill(18).Word(wFirst).Word(wSecond).Word(wThird).Fill(2);
}

RibbonTemplate& RibbonTemplate::Fill(size_t nBytes, BYTE bValue)
{
    m_bytes.insert(m_bytes.end(), nBytes, bValue);
    return *this;
}

RibbonTemplate& RibbonTemplate::Text(LPCWSTR psz)
{
    for (; *psz; psz++) {
        Word(*psz);
    }
    return Word(0);
}

RibbonTemplate& RibbonTemplate::Overlay(size_t nOffset, std::span<const DWORD> pixels)
{
    std::memcpy(m_bytes.data() + nOffset, pixels.data(), pixels.size_bytes());
    return *this;
}

std::vector<BYTE> LayOutTemplate(const Strip& large, const Strip& little)
{
    constexpr size_t OFFSET_ITEMS = 52;
    constexpr size_t PIXELS_LOST = 3;
    const size_t nItems = large.pixels.size() - PIXELS_LOST;
    RibbonTemplate bytes(0, 0, 1);
    bytes.Fill(16, 0).Text(L"").Text(L"").Word(0).Word(static_cast<WORD>(nItems)).Word(0);
    bytes.Fill(nItems * sizeof(DWORD)).Overlay(OFFSET_ITEMS, std::span(large.pixels).subspan(PIXELS_LOST));
    bytes.Image(large).Overlay(bytes.Bytes().size() - large.Bytes(), little.pixels);
    return bytes.Image(little).Bytes();
}

} // namespace test
