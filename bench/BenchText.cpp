#include <bench/Bench.h>

#include <algorithm>
#include <memory>

namespace bench {
namespace {

constexpr wchar_t TEXT[] = L"Twenty letters, wide";
constexpr int LENGTH = static_cast<int>(std::size(TEXT)) - 1;
static_assert(LENGTH == 20);
constexpr int LINE_HEIGHT = 20;
constexpr int TEXTS = 200;
constexpr int PAINTS = 500;
constexpr int MANY_ROUNDS = 201;
constexpr size_t LONG_TEXT = 100'000;
constexpr UINT LINE_WIDTH = 160;
constexpr int CX = 640;
constexpr int CY = 480;

// A bitmap's context with the default font.
class Surface
{
public:
    Surface()
    {
        const HDC hdcScreen = GetDC(nullptr);
        m_hdc = CreateCompatibleDC(hdcScreen);
        m_hbm = CreateCompatibleBitmap(hdcScreen, CX, CY);
        ReleaseDC(nullptr, hdcScreen);
        m_hFormerBitmap = SelectObject(m_hdc, m_hbm);
        m_hFormerFont = SelectObject(m_hdc, g_hDefaultFont);
        SetBkMode(m_hdc, TRANSPARENT);
    }
    ~Surface()
    {
        SelectObject(m_hdc, m_hFormerFont);
        SelectObject(m_hdc, m_hFormerBitmap);
        DeleteObject(m_hbm);
        DeleteDC(m_hdc);
    }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    operator HDC() const { return m_hdc; }

private:
    HDC m_hdc;
    HBITMAP m_hbm;
    HGDIOBJ m_hFormerBitmap;
    HGDIOBJ m_hFormerFont;
};

struct CloseText
{
    void operator()(stcDrawTextBuffer* pBuffer) const { CDrawText::DrawText_CloseHandle(pBuffer); }
};
using Text = std::unique_ptr<stcDrawTextBuffer, CloseText>;

Text Prepare(HDC hdc, LPCWSTR pszText, int nLength, UINT uFormat)
{
    RECT rc = {0, 0, CX, CY};
    return Text(CDrawText::DrawText_Prepare_Int(hdc, pszText, nLength, &rc, uFormat, LINE_HEIGHT, nullptr));
}

// What a program calls of the script processor for the same text, in arrays that are there and long enough.
struct BareText
{
    static constexpr int ROOM = 64;

    void Shape(HDC hdc)
    {
        ScriptItemize(TEXT, LENGTH, ROOM - 1, nullptr, nullptr, items, &nItems);
        nGlyphs = 0;
        for (int i = 0; i < nItems; i++) {
            ShapeItem(hdc, i);
        }
    }

    void ShapeItem(HDC hdc, int i)
    {
        const int nFirst = items[i].iCharPos;
        const int nChars = items[i + 1].iCharPos - nFirst;
        int nItemGlyphs = 0;
        ScriptShape(hdc, &cache, TEXT + nFirst, nChars, ROOM - nGlyphs, &items[i].a, glyphs + nGlyphs,
                    clusters + nFirst, attributes + nGlyphs, &nItemGlyphs);
        ScriptPlace(hdc, &cache, glyphs + nGlyphs, nItemGlyphs, attributes + nGlyphs, &items[i].a,
                    advances + nGlyphs, offsets + nGlyphs, &abc);
        ScriptBreak(TEXT + nFirst, nChars, &items[i].a, breaks + nFirst);
        counts[i] = nItemGlyphs;
        nGlyphs += nItemGlyphs;
    }

    void Paint(HDC hdc)
    {
        int x = 0;
        int nFirst = 0;
        for (int i = 0; i < nItems; i++) {
            ScriptTextOut(hdc, &cache, x, 0, 0, nullptr, &items[i].a, nullptr, 0, glyphs + nFirst, counts[i],
                          advances + nFirst, nullptr, offsets + nFirst);
            for (int n = nFirst; n < nFirst + counts[i]; n++) {
                x += advances[n];
            }
            nFirst += counts[i];
        }
    }

    ~BareText() { ScriptFreeCache(&cache); }

    SCRIPT_CACHE cache = nullptr;
    SCRIPT_ITEM items[ROOM];
    int counts[ROOM];
    WORD glyphs[ROOM];
    WORD clusters[ROOM];
    SCRIPT_VISATTR attributes[ROOM];
    SCRIPT_LOGATTR breaks[ROOM];
    int advances[ROOM];
    GOFFSET offsets[ROOM];
    ABC abc;
    int nItems = 0;
    int nGlyphs = 0;
};

void MeasurePreparing(Bench& bench, HDC hdc)
{
    bench.Measure(
        "prepare 20 characters / bare Script calls, new cache", TEXTS,
        [&] {
            for (int i = 0; i < TEXTS; i++) {
                Prepare(hdc, TEXT, LENGTH, 0);
            }
        },
        [&] {
            for (int i = 0; i < TEXTS; i++) {
                BareText().Shape(hdc);
            }
        });
}

// What preparing costs where nothing has to be looked for in other fonts.
void MeasureBehaviors(Bench& bench, HDC hdc)
{
    const auto prepareIn = [&](gesso::Behavior behavior) {
        const gesso::Behavior former = gesso::GetBehavior();
        gesso::SetBehavior(behavior);
        for (int i = 0; i < TEXTS; i++) {
            Prepare(hdc, TEXT, LENGTH, 0);
        }
        gesso::SetBehavior(former);
    };
    bench.Measure(
        "prepare 20 Latin characters, Modern / Classic", TEXTS, [&] { prepareIn(gesso::Behavior::Modern); },
        [&] { prepareIn(gesso::Behavior::Classic); });
}

void MeasurePainting(Bench& bench, HDC hdc)
{
    const Text text = Prepare(hdc, TEXT, LENGTH, DT_SINGLELINE);
    const RECT rc = {0, 0, CX, CY};
    const auto paint = [&] {
        for (int i = 0; i < PAINTS; i++) {
            CDrawText::DrawTextW(hdc, text.get(), rc);
        }
    };
    BareText bare;
    bare.Shape(hdc);
    bench.Measure("paint a prepared text / bare ScriptTextOut", PAINTS, paint, [&] {
        for (int i = 0; i < PAINTS; i++) {
            bare.Paint(hdc);
        }
    });
    bench.Measure("paint a prepared text / DrawTextW", PAINTS, paint, [&] {
        for (int i = 0; i < PAINTS; i++) {
            RECT rcText = rc;
            ::DrawTextW(hdc, TEXT, LENGTH, &rcText, DT_SINGLELINE | DT_NOPREFIX);
        }
    });
}

void PrintSize(Bench& bench, HDC hdc)
{
    const Text text = Prepare(hdc, TEXT, LENGTH, 0);
    const size_t cbItem = sizeof(SCRIPT_ITEM) + sizeof(stcDrawTextRun);
    const size_t cbChar = sizeof(WORD) + sizeof(SCRIPT_LOGATTR);
    const size_t cbGlyph = sizeof(WORD) + sizeof(SCRIPT_VISATTR) + sizeof(int) + sizeof(GOFFSET);
    const size_t cb = sizeof(*text) + text->nItemsAlloc * cbItem + text->nCharsAlloc * cbChar +
                      text->nGlyphsAlloc * cbGlyph + (text->nBreaks + 1) * sizeof(stcDrawTextBreak);
    bench.PrintAlone("  bytes of that prepared text", static_cast<long long>(cb));
}

std::vector<wchar_t> Words(size_t nChars)
{
    std::vector<wchar_t> text;
    while (text.size() < nChars) {
        text.insert(text.end(), TEXT, TEXT + LENGTH);
    }
    text.resize(nChars);
    return text;
}

std::vector<wchar_t> OneWord(size_t nChars)
{
    std::vector<wchar_t> text(nChars, L'm');
    text[2] = L' ';
    return text;
}

// A long text beside a tenth of it, broken ten times: a ratio of 1 says that the time is linear in the
// length.
void MeasureBreaking(Bench& bench, HDC hdc, const std::string& name, const std::vector<wchar_t>& text)
{
    constexpr int PARTS = 10;
    const auto nChars = static_cast<int>(text.size());
    const int nPart = nChars / PARTS;
    const Text whole = Prepare(hdc, text.data(), nChars, DT_SINGLELINE);
    const Text part = Prepare(hdc, text.data(), nPart, DT_SINGLELINE);
    const auto breakText = [&](const Text& prepared, int n) {
        CDrawText::DrawText_Break(text.data(), static_cast<UINT>(n), LINE_WIDTH, prepared.get());
    };
    bench.Measure(
        name, nChars, [&] { breakText(whole, nChars); },
        [&] {
            for (int i = 0; i < PARTS; i++) {
                breakText(part, nPart);
            }
        });
}

} // namespace

void MeasureText(Bench& bench)
{
    const Surface hdc;
    bench.Family("Prepared text (CDrawText)");
    MeasurePreparing(bench, hdc);
    // A difference of a hundredth is to be seen.
    Bench many(MANY_ROUNDS);
    MeasureBehaviors(many, hdc);
    PrintSize(bench, hdc);
    MeasurePainting(bench, hdc);
    MeasureBreaking(bench, hdc, "break words, a character of 100,000 / of 10,000", Words(LONG_TEXT));
    MeasureBreaking(bench, hdc, "break one word, a character of 100,000 / of 10,000", OneWord(LONG_TEXT));
}

} // namespace bench
