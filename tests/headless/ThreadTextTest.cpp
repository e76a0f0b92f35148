// Threads that prepare and paint texts of which their fonts lack something. It runs under ThreadSanitizer
// too, alone.

#include "../support/WithBehavior.h"
#include "FreshDesktop.h"

#include <gesso/framework/DrawScope.h>
#include <gesso/text/FallbackFonts.h>

#include <algorithm>
#include <thread>

namespace test {
namespace {

// Each of the three letters needs another font.
void PrepareAndPaint()
{
    const gesso::MemoryContext hdc;
    LOGFONTW log{};
    log.lfHeight = -12;
    const HFONT font = CreateFontIndirectW(&log);
    {
        const gesso::SelectScope selected(hdc, font);
        for (int i = 0; i < 100; ++i) {
            RECT rc{0, 0, 20, 100};
            stcDrawTextBuffer* const text = CDrawText::DrawText_Prepare_Int(
                hdc, i % 2 ? L"a\x65E5\x3B2" : L"\x3B2\x65E5\u0061", 3, &rc, 0, 20, nullptr);
            ASSERT_TRUE(text);
            EXPECT_EQ(text->nItems, 3u);
            EXPECT_EQ(std::count(text->pGlyphs, text->pGlyphs + text->nGlyphs, WORD{0}), 0);
            CDrawText::DrawTextW(hdc, text, rc);
            CDrawText::DrawText_CloseHandle(text);
        }
    }
    DeleteObject(font);
}

} // namespace

TEST(ThreadTextTest, ThreadsShareTheFontsThatTheyFind)
{
    const FreshDesktop desktop;
    const Modern modern;
    gesso::ForgetFallbackFonts();
    desk::InstallFont("Latin", {{0x20, 0x24F}});
    desk::InstallFont("Sim Han", {{0x3000, 0x9FFF}});
    desk::InstallFont("Sim Greek", {{0x370, 0x3FF}});
    std::thread other(PrepareAndPaint);
    PrepareAndPaint();
    other.join();
    gesso::ForgetFallbackFonts();
}

} // namespace test
