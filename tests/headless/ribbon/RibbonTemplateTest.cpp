#include <gesso/ribbon/RibbonTemplate.h>
#include <tests/support/RibbonTemplate.h>

#include <gtest/gtest.h>

using gesso::ReadRibbonTemplate;
using gesso::TemplateImage;
using gesso::TemplateImages;

namespace {

using namespace test;

const Strip LARGE = Strip::Numbered(64, 32, 0x10000000);
const Strip LITTLE = Strip::Numbered(32, 16, 0x20000000);

std::vector<BYTE> PixelsOf(const std::vector<BYTE>& bytes, const TemplateImage& image)
{
    std::vector<BYTE> pixels(image.nBytes, 0xEE);
    gesso::CopyTemplatePixels(bytes, image, pixels);
    return pixels;
}

std::vector<DWORD> ColorsOf(const std::vector<BYTE>& bytes, const TemplateImage& image)
{
    const std::vector<BYTE> pixels = PixelsOf(bytes, image);
    std::vector<DWORD> colors(pixels.size() / sizeof(DWORD));
    std::memcpy(colors.data(), pixels.data(), pixels.size());
    return colors;
}

// Sections of every form, and both images.
std::vector<BYTE> FullTemplate()
{
    RibbonTemplate bytes(2, 1, 3);
    bytes.Fill(8).Text(L"Home").Fill(8).Text(L"");
    bytes.Fill(8).Text(L"View");
    bytes.Fill(16).Word(0xFFFF).Word(7).Text(L"Paste").Word(1).Word(2).Word(3).Fill(8);
    bytes.Fill(16).Text(L"GComboBox").Text(L"").Word(1).Word(0).Word(3);
    bytes.Fill(16).Text(L"").Text(L"Bold").Word(1).Word(1).Word(3).Fill(4);
    return bytes.Image(LARGE).Image(LITTLE).Bytes();
}

} // namespace

TEST(RibbonTemplate, ImagesAreFoundBehindSectionsOfEveryForm)
{
    const TemplateImages images = ReadRibbonTemplate(FullTemplate());
    ASSERT_TRUE(images.imageLarge && images.imageSmall);
    EXPECT_EQ(images.imageLarge->header.biWidth, LARGE.cx);
    EXPECT_EQ(images.imageLarge->nBytes, LARGE.Bytes());
    EXPECT_EQ(images.imageSmall->header.biWidth, LITTLE.cx);
    EXPECT_EQ(images.imageSmall->nBytes, LITTLE.Bytes());
}

TEST(RibbonTemplate, PixelsAreFetchedFromTheStartOfTheResourceAndNotFromTheRecord)
{
    const TemplateImages both = ReadRibbonTemplate(FullTemplate());
    EXPECT_EQ(both.imageLarge->nSource, 40u);
    EXPECT_EQ(both.imageSmall->nSource, 40 + LARGE.Bytes() + 40);

    const TemplateImages one =
        ReadRibbonTemplate(RibbonTemplate(0, 0, 0).Word(0).Fill(2).Image(LITTLE).Bytes());
    EXPECT_FALSE(one.imageLarge);
    ASSERT_TRUE(one.imageSmall);
    EXPECT_EQ(one.imageSmall->nSource, 40u);
}

TEST(RibbonTemplate, TheDocumentedLayoutBringsBothStripsButForThreePixels)
{
    const std::vector<BYTE> bytes = LayOutTemplate(LARGE, LITTLE);
    const TemplateImages images = ReadRibbonTemplate(bytes);
    ASSERT_TRUE(images.imageLarge && images.imageSmall);
    const std::vector<DWORD> large = ColorsOf(bytes, *images.imageLarge);
    EXPECT_TRUE(std::equal(large.begin() + 3, large.end(), LARGE.pixels.begin() + 3, LARGE.pixels.end()));
    EXPECT_EQ(large[0] | large[1] | (large[2] & 0xFFFF0000), 0u) << "the three pixels should not show";
    EXPECT_EQ(ColorsOf(bytes, *images.imageSmall), LITTLE.pixels);
}

// What is cut off is not there, and nothing outside is read: each copy is exactly as long as its cut.
TEST(RibbonTemplate, EveryCutIsReadSafely)
{
    const std::vector<BYTE> whole = FullTemplate();
    const size_t nSmall = whole.size() - LITTLE.Bytes();
    const size_t nLarge = nSmall - sizeof(BITMAPINFOHEADER) - LARGE.Bytes();
    for (size_t nCut = 0; nCut <= whole.size(); nCut++) {
        const std::vector<BYTE> bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(nCut));
        const TemplateImages images = ReadRibbonTemplate(bytes);
        // An image that claims more pixels than all of the resource has is malformed.
        ASSERT_EQ(images.imageLarge.has_value(), nCut >= nLarge && nCut >= LARGE.Bytes()) << nCut;
        ASSERT_EQ(images.imageSmall.has_value(), nCut >= nSmall) << nCut;
        if (images.imageLarge) {
            PixelsOf(bytes, *images.imageLarge);
        }
        if (images.imageSmall) {
            PixelsOf(bytes, *images.imageSmall);
        }
    }
}

TEST(RibbonTemplate, PixelsOutsideTheResourceAreZero)
{
    std::vector<BYTE> bytes(100, 0x77);
    const BITMAPINFOHEADER header = Strip::Numbered(4, 4, 0).Header();
    EXPECT_EQ(PixelsOf(bytes, {header, 100, 64}), std::vector<BYTE>(64, 0));
    EXPECT_EQ(PixelsOf(bytes, {header, 5000, 64}), std::vector<BYTE>(64, 0));
    std::vector<BYTE> half(64, 0);
    std::fill_n(half.begin(), 32, BYTE{0x77});
    EXPECT_EQ(PixelsOf(bytes, {header, 68, 64}), half);
}

TEST(RibbonTemplate, AMalformedImageIsNoneAndSoIsTheOneBehindIt)
{
    const auto with = [](auto change) {
        BITMAPINFOHEADER header = LARGE.Header();
        change(header);
        return ReadRibbonTemplate(
            RibbonTemplate(0, 0, 0).Record(header).Fill(LARGE.Bytes()).Image(LITTLE).Bytes());
    };
    ASSERT_TRUE(with([](BITMAPINFOHEADER&) {}).imageSmall);
    const std::vector<TemplateImages> results = {
        with([](BITMAPINFOHEADER& h) { h.biSize = 12; }),
        with([](BITMAPINFOHEADER& h) { h.biPlanes = 2; }),
        with([](BITMAPINFOHEADER& h) { h.biBitCount = 8; }),
        with([](BITMAPINFOHEADER& h) { h.biCompression = BI_BITFIELDS; }),
        with([](BITMAPINFOHEADER& h) { h.biWidth = 0; }),
        with([](BITMAPINFOHEADER& h) { h.biHeight = -32; }),
        with([](BITMAPINFOHEADER& h) { h.biWidth = h.biHeight = 0x7FFFFFFF; }),
        with([](BITMAPINFOHEADER& h) { h.biWidth = 0x40000000; }),
    };
    for (size_t i = 0; i < results.size(); i++) {
        EXPECT_FALSE(results[i].imageLarge || results[i].imageSmall) << "change " << i;
    }
}
