// Prepared texts: handles that are there, null or invalid, painted in every way, by a platform that may fail.

#include "Plain.h"

#include <tests/support/TextCheck.h>

#include <gesso/text/CDrawText.h>

#include <algorithm>
#include <utility>

namespace attack {

namespace {

constexpr size_t HANDLES = 8;

class TextWorld : public World
{
public:
    explicit TextWorld(Source& source) : World(Operations(), source) {}
    ~TextWorld() override
    {
        for (stcDrawTextBuffer* p : m_texts) {
            CDrawText::DrawText_CloseHandle(p);
        }
    }
    void* Object() override { return this; }
    std::string Check() override { return std::exchange(m_fault, {}); }

private:
    static const Table& Operations();

    stcDrawTextBuffer* Any(Source& source) const
    {
        if (m_texts.empty() || source.Chance(10)) {
            return source.Flag() ? nullptr : reinterpret_cast<stcDrawTextBuffer*>(static_cast<UINT_PTR>(-1));
        }
        return m_texts[source.Below(static_cast<UINT>(m_texts.size()))];
    }

    void Prepare(Source& source)
    {
        const Text text = source.AnyText();
        const int nChars = source.Chance(3) ? static_cast<int>(source.Below(text.Length() + 1)) : -1;
        RECT rc = source.Rect();
        UINT nLines = 0;
        stcDrawTextBuffer* const pText = CDrawText::DrawText_Prepare_Int(
            AnyContext(source), text, nChars, source.Chance(4) ? nullptr : &rc,
            source.Bits() & ~UINT{DT_CALCRECT}, source.Integer(), source.Flag() ? &nLines : nullptr);
        if (!pText) {
            return;
        }
        m_fault = test::CheckText(*pText);
        m_texts.push_back(pText);
        if (m_texts.size() > HANDLES) {
            CDrawText::DrawText_CloseHandle(m_texts.front());
            m_texts.erase(m_texts.begin());
        }
    }

    void Measure(Source& source)
    {
        const Text text = source.AnyText();
        RECT rc = source.Rect();
        CDrawText::DrawText_Prepare(AnyContext(source), text, -1, &rc, source.Bits() | DT_CALCRECT,
                                    source.Integer(), nullptr);
        CDrawText::DrawTextW(AnyContext(source), text, -1, rc, source.Bits(), source.Integer(), nullptr);
    }

    void Paint(Source& source)
    {
        stcDrawTextBuffer* const p = Any(source);
        const HDC hdc = AnyContext(source);
        const int x = source.Integer();
        const int y = source.Integer();
        const UINT n = source.Number();
        switch (source.Below(7)) {
        case 0: CDrawText::DrawTextW(hdc, p, source.Rect()); break;
        case 1: CDrawText::DrawText_TextOut(hdc, x, y, p); break;
        case 2: CDrawText::DrawText_TextOut_Start_Glyph(hdc, x, y, p, n, source.Number()); break;
        case 3: CDrawText::DrawText_TextOut_cxMax(hdc, x, y, p, n, source.Number()); break;
        case 4: CDrawText::DrawText_TextOut_Item(hdc, x, y, p, n, source.Number()); break;
        case 5: CDrawText::DrawText_TextOut_Char(hdc, x, y, p, n); break;
        default: CDrawText::DrawText_TextOut_Break(hdc, source.Rect(), p); break;
        }
    }

    void ByHand(Source& source)
    {
        const Text text = source.AnyText();
        const HDC hdc = AnyContext(source);
        stcDrawTextBuffer buffer{};
        if (source.Flag()) {
            CDrawText::PrepareBuffer(&buffer, source.Count(300), source.Count(300), source.Count(300));
            CDrawText::DrawText_Calculate(hdc, text, text.Length(), &buffer);
        } else {
            CDrawText::DrawText_Calculate_Optimized(hdc, text, text.Length(), &buffer);
        }
        CDrawText::DrawText_Break(text, text.Length(), source.Number(), &buffer);
        m_fault = test::CheckLines(buffer);
        CDrawText::DrawText_TextOut(hdc, 0, 0, &buffer);
        if (source.Chance(3)) {
            CDrawText::OptimizeBuffer(&buffer);
        }
        CDrawText::FreeBuffer(&buffer);
    }

    void Close(Source& source)
    {
        stcDrawTextBuffer* const p = Any(source);
        CDrawText::DrawText_CloseHandle(p);
        std::erase(m_texts, p);
    }

    std::vector<stcDrawTextBuffer*> m_texts;
    std::string m_fault;
};

const Table& TextWorld::Operations()
{
    using Self = TextWorld;
    static const Table TABLE = [] {
        Table table{
            Often(6, Plain<Self>("Prepare", [](Self& self, Source& source) { self.Prepare(source); })),
            Plain<Self>("Measure", [](Self& self, Source& source) { self.Measure(source); }),
            Often(6, Plain<Self>("Paint", [](Self& self, Source& source) { self.Paint(source); })),
            Often(2, Plain<Self>("ByHand", [](Self& self, Source& source) { self.ByHand(source); })),
            Plain<Self>("Close", [](Self& self, Source& source) { self.Close(source); }),
            Plain<Self>("SelectFont", [](Self& self, Source& source) {
                SelectObject(self.AnyContext(source), self.AnyFont(source));
            })};
        AddFaults(table);
        AddFonts(table);
        return table;
    }();
    return TABLE;
}

} // namespace

void AddTexts(std::vector<AttackedClass>& classes)
{
    classes.push_back(OfWorld<TextWorld>("CDrawText"));
}

} // namespace attack
