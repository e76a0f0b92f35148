#include <gesso/containers/Misuse.h>
#include <gesso/framework/Quirks.h>
#include <gesso/text/CDrawText.h>
#include <gesso/text/TextArrays.h>

#include <atomic>

using namespace gesso;

namespace {

constexpr UINT SCRATCH_ITEMS = 16;
constexpr UINT SCRATCH_CHARS = 64;
constexpr UINT SCRATCH_GLYPHS = 64;

constexpr UINT ITEM_STEP = 16;
constexpr UINT GLYPH_STEP = 64;

// A script processor that still asks for room with all this is not short of room but of memory, and would ask
// for ever.
constexpr uint64_t AmpleRoom(UINT nRoom, UINT nChars)
{
    constexpr uint64_t PER_CHAR = 32;
    constexpr uint64_t ANYWAY = 0x4000;
    return nRoom + PER_CHAR * nChars + ANYWAY;
}

// The room for glyphs that a run is offered at first. A script processor may set up all that it is offered,
// and after one long text the scratch has a thousand times what a short one needs.
UINT FirstRoom(UINT nRoom, int nRunChars)
{
    constexpr UINT PER_CHAR = 4;
    constexpr UINT ANYWAY = 64;
    return static_cast<UINT>(
        std::min<uint64_t>(nRoom, uint64_t{PER_CHAR} * static_cast<UINT>(nRunChars) + ANYWAY));
}

// Gives arrays that have one capacity another. False without memory: all have the former one, though some may
// have more room.
template <class... T> bool GrowArrays(UINT& nCapacity, UINT n, T*&... p)
{
    if (!(GrowArray(p, nCapacity, n) && ...)) {
        return false;
    }
    nCapacity = n;
    return true;
}

bool GrowItems(stcDrawTextBuffer& buffer, UINT nStep)
{
    return GrowArrays(buffer.nItemsAlloc, buffer.nItemsAlloc + nStep, buffer.pItems, buffer.pRuns);
}

bool GrowGlyphs(stcDrawTextBuffer& buffer, UINT nStep)
{
    return GrowArrays(buffer.nGlyphsAlloc, buffer.nGlyphsAlloc + nStep, buffer.pGlyphs, buffer.pVisAttr,
                      buffer.pAdvance, buffer.pOffset);
}

bool ReserveChars(stcDrawTextBuffer& buffer, UINT nChars)
{
    return nChars <= buffer.nCharsAlloc ||
           GrowArrays(buffer.nCharsAlloc, nChars, buffer.pLogClust, buffer.pLogAttr);
}

// The scratch grows by the same steps as a buffer does, but by half of what it has where a long text needs
// more than that, so that few calls are repeated. A text needs about one entry a character.
UINT ScratchStep(UINT nRoom, UINT nChars, UINT nLeast)
{
    return std::max(nLeast, std::min(nRoom / 2, nChars - std::min(nRoom, nChars)));
}

// Working space: a buffer of which only the arrays, their capacities and the running counts are used. One is
// kept from text to text, and its arrays never shrink. Threads prepare their own texts: whoever gets the
// pointer has the spare to itself, and whoever finds none makes another.
class Scratch
{
public:
    Scratch() : m_pArrays(Exchange(nullptr))
    {
        if (!m_pArrays) {
            m_pArrays = static_cast<stcDrawTextBuffer*>(Allocate(sizeof(stcDrawTextBuffer)));
            *m_pArrays = {};
            CDrawText::PrepareBuffer(m_pArrays, SCRATCH_ITEMS, SCRATCH_CHARS, SCRATCH_GLYPHS);
        }
        m_pArrays->nItems = 0;
        m_pArrays->nChars = 0;
        m_pArrays->nGlyphs = 0;
    }
    ~Scratch()
    {
        stcDrawTextBuffer* const pOther = Exchange(m_pArrays);
        if (pOther) {
            CDrawText::FreeBuffer(pOther);
            Free(pOther);
        }
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    stcDrawTextBuffer& Arrays() const { return *m_pArrays; }

private:
    static stcDrawTextBuffer* Exchange(stcDrawTextBuffer* pArrays)
    {
        static constinit std::atomic<stcDrawTextBuffer*> s_pSpare = nullptr;
        return s_pSpare.exchange(pArrays);
    }

    stcDrawTextBuffer* m_pArrays;
};

// How the arrays of a calculation grow: by fixed steps, which a buffer's capacities tell, or by what a text
// needs.
enum class Growth
{
    BY_STEPS,
    BY_NEED
};

// Itemizes, shapes and places one text in a set of arrays: those of a buffer, or the scratch.
class Calculation
{
public:
    Calculation(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer& arrays, Growth growth,
                SCRIPT_CACHE& cache)
        : m_hdc(hdc), m_pszText(pszText), m_nChars(pszText ? nChars : 0), m_arrays(arrays), m_growth(growth),
          m_cache(cache)
    {}

    // False without memory: there are no items then, and the other counts are as they were.
    bool Run()
    {
        const UINT nFormerChars = m_arrays.nChars;
        const UINT nFormerGlyphs = m_arrays.nGlyphs;
        FreeCache(m_cache); // of another font, it may be
        ItemizeByDirection();
        if (m_arrays.nItems != 0) {
            m_fRefused = m_fRefused || !ReserveChars(m_arrays, m_arrays.nChars + m_nChars);
        }
        for (UINT n = 0; n < m_arrays.nItems && !m_fRefused; ++n) {
            AddItem(n);
        }
        if (m_fRefused) {
            m_arrays.nItems = 0;
            m_arrays.nChars = nFormerChars;
            m_arrays.nGlyphs = nFormerGlyphs;
        }
        return !m_fRefused;
    }

private:
    void Itemize(const SCRIPT_CONTROL* pControl, const SCRIPT_STATE* pState);
    void ItemizeByDirection();
    void AddItem(UINT nItem);
    void Shape(SCRIPT_ITEM& item, stcDrawTextRun& run);
    HRESULT ShapeInScript(SCRIPT_ITEM& item, stcDrawTextRun& run);
    void Place(SCRIPT_ITEM& item, stcDrawTextRun& run);
    void ClearPlaces(stcDrawTextRun& run);

    UINT Step(UINT nRoom, UINT nLeast) const
    {
        return m_growth == Growth::BY_NEED ? ScratchStep(nRoom, m_nChars, nLeast) : nLeast;
    }
    bool MakeItemRoom() { return Made(GrowItems(m_arrays, Step(m_arrays.nItemsAlloc, ITEM_STEP))); }
    bool MakeGlyphRoom() { return Made(GrowGlyphs(m_arrays, Step(m_arrays.nGlyphsAlloc, GLYPH_STEP))); }
    bool Made(bool fMade)
    {
        m_fRefused = m_fRefused || !fMade;
        return fMade;
    }

    HDC m_hdc;
    LPCWSTR m_pszText;
    UINT m_nChars;
    stcDrawTextBuffer& m_arrays;
    Growth m_growth;
    SCRIPT_CACHE& m_cache;
    bool m_fRefused = false; // there was no memory
};

void Calculation::Itemize(const SCRIPT_CONTROL* pControl, const SCRIPT_STATE* pState)
{
    const uint64_t nLimit = AmpleRoom(m_arrays.nItemsAlloc, m_nChars);
    HRESULT hr;
    int nItems;
    for (;;) {
        nItems = 0;
        // One entry is kept back for the end marker, which is not counted.
        hr = ScriptItemize(m_pszText, static_cast<int>(m_nChars), static_cast<int>(m_arrays.nItemsAlloc) - 1,
                           pControl, pState, m_arrays.pItems, &nItems);
        if (hr != E_OUTOFMEMORY || m_arrays.nItemsAlloc > nLimit || !MakeItemRoom()) {
            break;
        }
    }
    m_arrays.nItems = FAILED(hr) ? 0 : std::min(static_cast<UINT>(nItems), m_arrays.nItemsAlloc - 1);
}

// The script processor finds out which way spaces, punctuation and digits go only if it is given a state, and
// parts texts otherwise then. Where nothing goes from right to left it is left to its first result.
void Calculation::ItemizeByDirection()
{
    m_arrays.fOneBlock &= ~IN_VISUAL_ORDER;
    Itemize(nullptr, nullptr);
    const SCRIPT_ITEM* const pItems = m_arrays.pItems;
    const auto isRightToLeft = [](const SCRIPT_ITEM& item) { return item.a.fRTL; };
    if (std::none_of(pItems, pItems + m_arrays.nItems, isRightToLeft) || WillHave(Quirk::TextRunsInOrder)) {
        return;
    }
    constexpr SCRIPT_CONTROL CONTROL{};
    constexpr SCRIPT_STATE LEFT_TO_RIGHT{};
    Itemize(&CONTROL, &LEFT_TO_RIGHT);
    if (m_arrays.nItems == 0) {
        Itemize(nullptr, nullptr);
    }
    m_arrays.fOneBlock |= IN_VISUAL_ORDER;
}

void Calculation::AddItem(UINT nItem)
{
    SCRIPT_ITEM& item = m_arrays.pItems[nItem];
    stcDrawTextRun& run = m_arrays.pRuns[nItem];
    run = {};
    run.nChars = m_arrays.pItems[nItem + 1].iCharPos - item.iCharPos;
    run.nFirstGlyph = m_arrays.nGlyphs;
    Shape(item, run);
    Place(item, run);
    m_arrays.nChars += static_cast<UINT>(run.nChars);
    m_arrays.nGlyphs += static_cast<UINT>(run.nGlyphs);
}

// A run that the font cannot show is shaped as of no script: boxes appear, and it is placed and painted so.
void Calculation::Shape(SCRIPT_ITEM& item, stcDrawTextRun& run)
{
    HRESULT hr = ShapeInScript(item, run);
    if (hr == USP_E_SCRIPT_NOT_IN_FONT) {
        item.a.eScript = SCRIPT_UNDEFINED;
        hr = ShapeInScript(item, run);
    }
    // A failing call may have set a count and written no glyph: the arrays hold those of an earlier text
    // there.
    const int nRoom = static_cast<int>(m_arrays.nGlyphsAlloc - m_arrays.nGlyphs);
    run.nGlyphs = FAILED(hr) ? 0 : std::clamp(run.nGlyphs, 0, nRoom);
    // Sixteen bits: in a text of more than 65,535 glyphs the values start again at zero.
    WORD* const pLogClust = m_arrays.pLogClust + m_arrays.nChars;
    for (int n = 0; n < run.nChars; ++n) {
        pLogClust[n] = static_cast<WORD>((FAILED(hr) ? 0U : pLogClust[n]) + m_arrays.nGlyphs);
    }
}

// Offers more room for glyphs until there is enough.
HRESULT Calculation::ShapeInScript(SCRIPT_ITEM& item, stcDrawTextRun& run)
{
    const UINT nGlyphs = m_arrays.nGlyphs;
    const uint64_t nLimit = AmpleRoom(m_arrays.nGlyphsAlloc, m_nChars);
    WORD* const pLogClust = m_arrays.pLogClust + m_arrays.nChars;
    std::fill_n(pLogClust, run.nChars, WORD());
    // A buffer's own arrays offer no room at all here, and grow when that is refused.
    if (m_growth == Growth::BY_NEED && m_arrays.nGlyphsAlloc == nGlyphs && !MakeGlyphRoom()) {
        return E_OUTOFMEMORY;
    }
    UINT nRoom = FirstRoom(m_arrays.nGlyphsAlloc - nGlyphs, run.nChars);
    for (;;) {
        run.nGlyphs = 0;
        const HRESULT hr = ScriptShape(m_hdc, &m_cache, m_pszText + item.iCharPos, run.nChars,
                                       static_cast<int>(nRoom), &item.a, m_arrays.pGlyphs + nGlyphs,
                                       pLogClust, m_arrays.pVisAttr + nGlyphs, &run.nGlyphs);
        if (hr != E_OUTOFMEMORY || m_arrays.nGlyphsAlloc > nLimit) {
            return hr;
        }
        if (nRoom == m_arrays.nGlyphsAlloc - nGlyphs && !MakeGlyphRoom()) {
            return hr;
        }
        nRoom = m_arrays.nGlyphsAlloc - nGlyphs;
    }
}

// What a failing call has written is taken back: the glyphs have no widths then.
void Calculation::Place(SCRIPT_ITEM& item, stcDrawTextRun& run)
{
    const UINT nGlyphs = run.nFirstGlyph;
    ClearPlaces(run);
    const HRESULT hr =
        ScriptPlace(m_hdc, &m_cache, m_arrays.pGlyphs + nGlyphs, run.nGlyphs, m_arrays.pVisAttr + nGlyphs,
                    &item.a, m_arrays.pAdvance + nGlyphs, m_arrays.pOffset + nGlyphs, &run.abc);
    if (FAILED(hr)) {
        ClearPlaces(run);
    }
}

void Calculation::ClearPlaces(stcDrawTextRun& run)
{
    std::fill_n(m_arrays.pAdvance + run.nFirstGlyph, run.nGlyphs, 0);
    std::fill_n(m_arrays.pOffset + run.nFirstGlyph, run.nGlyphs, GOFFSET());
    run.abc = {};
}

// Gives the buffer exact copies of what the scratch holds. The end marker of the items is not kept. False,
// with nothing done, without memory.
bool Publish(const stcDrawTextBuffer& scratch, stcDrawTextBuffer& buffer)
{
    if (!CopyCalculated(buffer, scratch)) {
        return false;
    }
    buffer.nItems = buffer.nItemsAlloc = scratch.nItems;
    buffer.nChars = buffer.nCharsAlloc = scratch.nChars;
    buffer.nGlyphs = buffer.nGlyphsAlloc = scratch.nGlyphs;
    return true;
}

} // namespace

void CDrawText::DrawText_Calculate(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer* pBuffer)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    if (!pBuffer->pItems) {
        Misuse("CDrawText::DrawText_Calculate: PrepareBuffer comes first");
        PrepareBuffer(pBuffer, 0, 0, 0);
    }
    if (pBuffer->fOneBlock & ONE_BLOCK && !PartCalculated(*pBuffer)) {
        pBuffer->nItems = 0;
        return;
    }
    Calculation(hdc, pszText, nChars, *pBuffer, Growth::BY_STEPS, pBuffer->scriptCache).Run();
}

bool gesso::CalculateExactly(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer& buffer)
{
    const Scratch scratch;
    Calculation calculation(hdc, pszText, nChars, scratch.Arrays(), Growth::BY_NEED, buffer.scriptCache);
    const bool fDone = calculation.Run() && Publish(scratch.Arrays(), buffer);
    if (!fDone) {
        FreeCache(buffer.scriptCache); // what the buffer still holds may be of another font
    }
    return fDone;
}

void CDrawText::DrawText_Calculate_Optimized(HDC hdc, LPCWSTR pszText, UINT nChars,
                                             stcDrawTextBuffer* pBuffer)
{
    if (IsBuffer(pBuffer)) {
        static_cast<void>(CalculateExactly(hdc, pszText, nChars, *pBuffer));
    }
}
