#include <gesso/ribbon/RibbonTemplate.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr size_t OFFSET_COUNTS = 18;
constexpr size_t BYTES_BEHIND_COUNTS = 2;
constexpr size_t BYTES_NO_IMAGE = 4;
constexpr size_t BYTES_PIXEL = 4;
constexpr WORD CLASS_NUMBER = 0xFFFF;

// Reads forward; once something lies outside the resource, everything does.
class Reader
{
public:
    explicit Reader(std::span<const BYTE> bytes) : m_bytes(bytes) {}

    bool IsInside() const { return m_fInside; }

    void Skip(size_t nBytes)
    {
        m_fInside = m_fInside && nBytes <= m_bytes.size() - m_nAt;
        m_nAt += m_fInside ? nBytes : 0;
    }

    // Zero outside.
    template <class RECORD> RECORD Peek() const
    {
        RECORD record{};
        if (m_fInside && sizeof(record) <= m_bytes.size() - m_nAt) {
            std::memcpy(&record, m_bytes.data() + m_nAt, sizeof(record));
        }
        return record;
    }

    WORD ReadWord()
    {
        const WORD w = Peek<WORD>();
        Skip(sizeof(w));
        return w;
    }

    void SkipText()
    {
        while (ReadWord()) {
        }
    }

private:
    std::span<const BYTE> m_bytes;
    size_t m_nAt = 0;
    bool m_fInside = true;
};

void SkipTitledEntry(Reader& reader)
{
    reader.Skip(8);
    reader.SkipText();
}

void SkipItemEntry(Reader& reader)
{
    reader.Skip(16);
    if (reader.Peek<WORD>() == CLASS_NUMBER) {
        reader.Skip(2 * sizeof(WORD));
    } else {
        reader.SkipText();
    }
    reader.SkipText();
    reader.Skip(sizeof(WORD));
    const WORD wCount = reader.ReadWord();
    reader.Skip(sizeof(WORD));
    reader.Skip(size_t{4} * wCount);
}

void SkipEntries(Reader& reader, UINT nCount, void (*pfnSkip)(Reader&))
{
    for (UINT i = 0; i < nCount && reader.IsInside(); i++) {
        pfnSkip(reader);
    }
}

void SkipSections(Reader& reader)
{
    reader.Skip(OFFSET_COUNTS);
    const WORD wFirst = reader.ReadWord();
    const WORD wSecond = reader.ReadWord();
    const WORD wThird = reader.ReadWord();
    reader.Skip(BYTES_BEHIND_COUNTS);
    SkipEntries(reader, UINT{wFirst} + wSecond, SkipTitledEntry);
    SkipEntries(reader, wThird, SkipItemEntry);
}

// What follows a header of another form could not be found, and its section would not hold the pixels.
bool IsPlain(const BITMAPINFOHEADER& header)
{
    return header.biSize == sizeof(header) && header.biPlanes == 1 && header.biBitCount == 32 &&
           header.biCompression == BI_RGB && header.biWidth > 0 && header.biHeight > 0;
}

size_t PixelBytes(const BITMAPINFOHEADER& header)
{
    return static_cast<size_t>(header.biWidth) * static_cast<size_t>(header.biHeight) * BYTES_PIXEL;
}

// Reads the record that the reader stands at. nSource is where the pixels of an image here would be; it moves
// on behind them. No image follows one that is malformed.
std::optional<TemplateImage> ReadImage(Reader& reader, size_t& nSource, size_t nLimit)
{
    if (reader.Peek<WORD>() == 0) {
        reader.Skip(BYTES_NO_IMAGE);
        return std::nullopt;
    }
    const auto header = reader.Peek<BITMAPINFOHEADER>();
    if (!IsPlain(header) || PixelBytes(header) > nLimit) {
        reader.Skip(nLimit + 1);
        return std::nullopt;
    }
    const TemplateImage image{header, nSource + sizeof(header), PixelBytes(header)};
    nSource = image.nSource + image.nBytes;
    reader.Skip(sizeof(header));
    reader.Skip(image.nBytes);
    return image;
}

} // namespace

TemplateImages ReadRibbonTemplate(std::span<const BYTE> resource)
{
    Reader reader(resource);
    SkipSections(reader);
    size_t nSource = 0;
    TemplateImages images;
    images.imageLarge = ReadImage(reader, nSource, resource.size());
    images.imageSmall = ReadImage(reader, nSource, resource.size());
    return images;
}

void CopyTemplatePixels(std::span<const BYTE> resource, const TemplateImage& image, std::span<BYTE> pixels)
{
    const auto available = resource.subspan(std::min(image.nSource, resource.size()));
    const size_t nCopied = std::min(available.size(), pixels.size());
    std::copy_n(available.begin(), nCopied, pixels.begin());
    std::fill(pixels.begin() + static_cast<ptrdiff_t>(nCopied), pixels.end(), BYTE{0});
}

} // namespace gesso
