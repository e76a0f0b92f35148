// Prepares any text at any width, with a platform that may fail, and paints it in every way. The records must
// be in order and the lines end; the sanitizers watch the arrays, which fit exactly. In Modern the machine
// has fonts that others have to help out.

#include "tests/support/TextCheck.h"

#include <gesso/framework/Behavior.h>
#include <gesso/text/FallbackFonts.h>
#include <platform/headless/headless.h>

#include <cstdio>
#include <span>
#include <vector>

namespace {

namespace desk = gesso::headless;

// What the front of an input decides; its rest is the text, 16 bits a character.
struct Plan
{
    UINT format;
    int width;
    int lineHeight;
    RECT paintIn;
    UINT start;
    UINT count;
    BYTE fault;      // which operation fails, and how
    BYTE faultAfter; // calls that go through
    BYTE glyphs;     // how shaping's results are changed before the text is broken once more
};

class Input
{
public:
    explicit Input(std::span<const uint8_t> bytes) : m_bytes(bytes) {}

    BYTE Byte()
    {
        if (m_bytes.empty()) {
            return 0;
        }
        const BYTE value = m_bytes.front();
        m_bytes = m_bytes.subspan(1);
        return value;
    }
    int Short()
    {
        const int low = Byte();
        return static_cast<int16_t>(low | Byte() << 8);
    }
    bool IsEmpty() const { return m_bytes.empty(); }

private:
    std::span<const uint8_t> m_bytes;
};

Plan ReadPlan(Input& input)
{
    Plan plan{};
    plan.format = static_cast<UINT>(input.Short());
    plan.width = input.Short();
    plan.lineHeight = input.Short();
    const int left = input.Short();
    const int top = input.Short();
    plan.paintIn = {left, top, left + input.Short(), top + input.Short()};
    plan.start = input.Byte();
    plan.count = input.Byte();
    plan.fault = input.Byte();
    plan.faultAfter = input.Byte();
    plan.glyphs = input.Byte();
    return plan;
}

void OrderFault(const Plan& plan)
{
    static constexpr const char* OPERATIONS[] = {"ScriptItemize", "ScriptShape", "ScriptPlace", "ScriptBreak",
                                                 "GetTextMetricsW"};
    const int operation = plan.fault & 7;
    if (operation < static_cast<int>(std::size(OPERATIONS))) {
        const DWORD error = static_cast<DWORD>(plan.fault & 8 ? E_OUTOFMEMORY : E_FAIL);
        desk::Fail(OPERATIONS[operation], 1 + (plan.fault >> 4), error, plan.faultAfter);
    }
}

void Expect(const std::string& complaint)
{
    if (!complaint.empty()) {
        std::fprintf(stderr, "%s", complaint.c_str());
        std::abort();
    }
}

void PaintInEveryWay(HDC hdc, stcDrawTextBuffer* buffer, const Plan& plan)
{
    const int x = plan.paintIn.left;
    const int y = plan.paintIn.top;
    CDrawText::DrawTextW(hdc, buffer, plan.paintIn);
    CDrawText::DrawText_TextOut(hdc, x, y, buffer);
    CDrawText::DrawText_TextOut_Start_Glyph(hdc, x, y, buffer, plan.start, plan.count);
    CDrawText::DrawText_TextOut_Start_Glyph(hdc, x, y, buffer, plan.start, ~plan.count);
    CDrawText::DrawText_TextOut_cxMax(hdc, x, y, buffer, plan.count % (buffer->nBreaks + 1), plan.start);
    CDrawText::DrawText_TextOut_Item(hdc, x, y, buffer, plan.start, plan.count);
    CDrawText::DrawText_TextOut_Char(hdc, x, y, buffer, plan.count);
}

// As other fonts and scripts shape: characters share a glyph or have several, glyphs have no width or go
// back.
void ChangeGlyphs(stcDrawTextBuffer& buffer, BYTE change)
{
    for (UINT c = 1; c < buffer.nChars; ++c) {
        if ((c + change) % 5 == 0) {
            buffer.pLogClust[c] = buffer.pLogClust[c - 1];
        } else if ((c + change) % 23 == 0) {
            buffer.pLogClust[c] = static_cast<WORD>(change * c);
        }
    }
    for (UINT g = change % 7; g < buffer.nGlyphs; g += 7) {
        buffer.pAdvance[g] = change & 1 ? 0 : change & 2 ? -buffer.pAdvance[g] : 0x40000000;
    }
}

void PrepareByHand(HDC hdc, LPCWSTR text, UINT length, const Plan& plan)
{
    stcDrawTextBuffer buffer{};
    CDrawText::PrepareBuffer(&buffer, plan.start, plan.count, plan.glyphs);
    CDrawText::DrawText_Calculate(hdc, text, length, &buffer);
    CDrawText::DrawText_Break(text, length, static_cast<UINT>(plan.width), &buffer);
    Expect(test::CheckLines(buffer));
    PaintInEveryWay(hdc, &buffer, plan);
    CDrawText::OptimizeBuffer(&buffer);
    PaintInEveryWay(hdc, &buffer, plan);
    CDrawText::FreeBuffer(&buffer);
}

void Run(HDC hdc, LPCWSTR text, int length, const Plan& plan)
{
    RECT rc = {0, 0, plan.width, 100};
    stcDrawTextBuffer* const buffer =
        CDrawText::DrawText_Prepare_Int(hdc, text, length, &rc, plan.format, plan.lineHeight, nullptr);
    if (!buffer) {
        return;
    }
    Expect(test::CheckText(*buffer));
    PaintInEveryWay(hdc, buffer, plan);
    if (plan.glyphs != 0) {
        ChangeGlyphs(*buffer, plan.glyphs);
        CDrawText::DrawText_Break(text, static_cast<UINT>(length), static_cast<UINT>(plan.width), buffer);
        Expect(test::CheckLines(*buffer));
        PaintInEveryWay(hdc, buffer, plan);
    }
    CDrawText::DrawText_CloseHandle(buffer);
}

void RunAll(const std::vector<wchar_t>& text, const Plan& plan)
{
    gesso::ForgetFallbackFonts();
    const HDC hdc = CreateCompatibleDC(nullptr);
    const desk::Census before = desk::Live();
    OrderFault(plan);
    Run(hdc, text.data(), static_cast<int>(text.size()), plan);
    PrepareByHand(hdc, text.data(), static_cast<UINT>(text.size()), plan);
    desk::ClearFaults();
    gesso::ForgetFallbackFonts();
    if (desk::Live() != before) {
        Expect("something was left behind\n");
    }
    DeleteDC(hdc);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    desk::InstallFont("Latin", {{0x20, 0x24F}});
    desk::InstallFont("Marks", {{0x300, 0x36F}, {0x590, 0x6FF}, {0x20D0, 0x20F0}}, {130, 40});
    desk::InstallFont("Wide", {{0x900, 0x97F}, {0x3000, 0x9FFF}, {0x1F1E6, 0x1FAFF}}, {90, 20});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    Input input({pData, nSize});
    const Plan plan = ReadPlan(input);
    std::vector<wchar_t> text;
    while (!input.IsEmpty()) {
        text.push_back(static_cast<wchar_t>(input.Short()));
    }
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        gesso::SetBehavior(behavior);
        RunAll(text, plan);
    }
    return 0;
}
