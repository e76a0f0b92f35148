#include <gesso/containers/Misuse.h>
#include <gesso/framework/Quirks.h>
#include <gesso/text/CDrawText.h>
#include <gesso/text/FontSplit.h>
#include <gesso/text/TextArrays.h>
#include <gesso/text/TextSpace.h>

#include <new>
#include <numeric>
#include <optional>
#include <vector>

using namespace gesso;

namespace {

constexpr UINT ITEM_STEP = 16;
constexpr UINT GLYPH_STEP = 64;

// Letters of the scripts that go from right to left, halves of pairs that may be such, and the marks that
// turn others.
bool MayGoRightToLeft(LPCWSTR pszText, UINT nChars)
{
    constexpr wchar_t FIRST = 0x0590;
    return std::any_of(pszText, pszText + nChars, [](wchar_t c) {
        const bool fMark = c == 0x200F || c == 0x202B || c == 0x202E || c == 0x2067;
        return c >= FIRST && (fMark || c <= 0x08FF || (c >= 0xFB1D && c <= 0xFEFC) ||
                              (c >= 0xD802 && c <= 0xD803) || (c >= 0xD83A && c <= 0xD83B));
    });
}

// A script processor that still asks for room with all this is not short of room but of memory, and would ask
// for ever.
constexpr uint64_t AmpleRoom(UINT nRoom, UINT nChars)
{
    constexpr uint64_t PER_CHAR = 32;
    constexpr uint64_t ANYWAY = 0x4000;
    return nRoom + PER_CHAR * nChars + ANYWAY;
}

// The room for glyphs that a run is offered at first. A script processor may set up all that it is offered,
// and after one long text the space has a thousand times what a short one needs.
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

// The platform refuses arrays that are null, however short.
bool FillArrays(stcDrawTextBuffer& buffer)
{
    return (buffer.pLogClust || GrowArrays(buffer.nCharsAlloc, 1U, buffer.pLogClust, buffer.pLogAttr)) &&
           (buffer.pGlyphs || GrowGlyphs(buffer, GLYPH_STEP));
}

// Working space grows by the same steps as a buffer does, but by half of what it has where a long text needs
// more than that, so that few calls are repeated. A text needs about one entry a character.
UINT SpaceStep(UINT nRoom, UINT nChars, UINT nLeast)
{
    return std::max(nLeast, std::min(nRoom / 2, nChars - std::min(nRoom, nChars)));
}

// How the arrays of a calculation grow: by fixed steps, which a buffer's capacities tell, or by what a text
// needs.
enum class Growth
{
    BY_STEPS,
    BY_NEED
};

// Itemizes, shapes and places one text in a set of arrays: those of a buffer, or working space.
class Calculation
{
public:
    Calculation(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer& arrays, Growth growth,
                SCRIPT_CACHE& cache)
        : m_hdc(hdc), m_pszText(pszText), m_nChars(pszText ? nChars : 0), m_arrays(arrays), m_growth(growth),
          m_cache(cache), m_font(m_ownFont)
    {}
    // In a font of which something is kept. The context may be null.
    Calculation(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer& arrays, PassFont& font,
                TextItems& items)
        : m_hdc(hdc), m_pszText(pszText), m_nChars(pszText ? nChars : 0), m_arrays(arrays),
          m_growth(Growth::BY_NEED), m_cache(font.cache), m_font(font), m_pKnown(&items)
    {
        m_font.fDefaultRead = m_font.wDefault.has_value();
    }

    void UseOwnFontOnly() { m_fLinks = false; }

    // False without memory: there are no items then, and the other counts are as they were.
    bool Run()
    {
        const UINT nFormerChars = m_arrays.nChars;
        const UINT nFormerGlyphs = m_arrays.nGlyphs;
        const auto takeBack = [&] {
            m_arrays.nChars = nFormerChars;
            m_arrays.nGlyphs = nFormerGlyphs;
        };
        CalculateInOwnFont();
        if (PartItems()) {
            takeBack();
            AddItems();
            if (m_fRefused) {
                m_fRefused = false;
                m_fonts.clear();
                UseOwnFontOnly();
                takeBack();
                CalculateInOwnFont();
            }
        }
        if (m_fRefused) {
            m_arrays.nItems = 0;
            takeBack();
        }
        return !m_fRefused;
    }

    // Of each item, if another font than the context's shows any; empty otherwise.
    std::span<const RunFontRef> Fonts() const { return m_fonts; }
    // There is no context, and the font is not known well enough.
    bool NeedsContext() const { return m_fNeedsContext; }
    bool HasFailed() const { return m_fFailed; }

private:
    void Itemize(const SCRIPT_CONTROL* pControl, const SCRIPT_STATE* pState);
    void ItemizeByDirection();
    void ItemizeOnce();
    bool ItemizeAsRead();
    void CalculateInOwnFont();
    void AddItems();
    void AddItem(UINT nItem);
    bool AddInFont(const RunFontRef& font, SCRIPT_ITEM& item, stcDrawTextRun& run);
    void ShapeInFont(SCRIPT_ITEM& item, stcDrawTextRun& run, SCRIPT_CACHE& cache);
    void NoteMissing(const SCRIPT_ITEM& item, const stcDrawTextRun& run, bool fWholeScript);
    bool HasDefaultGlyph(const stcDrawTextRun& run);
    bool PartItems();
    bool TakeItems(const std::vector<FontStretch>& stretches);
    bool Shape(SCRIPT_ITEM& item, stcDrawTextRun& run, SCRIPT_CACHE& cache);
    HRESULT ShapeInScript(SCRIPT_ITEM& item, stcDrawTextRun& run, SCRIPT_CACHE& cache);
    void Place(SCRIPT_ITEM& item, stcDrawTextRun& run, SCRIPT_CACHE& cache);
    void ClearPlaces(stcDrawTextRun& run);

    UINT Step(UINT nRoom, UINT nLeast) const
    {
        return m_growth == Growth::BY_NEED ? SpaceStep(nRoom, m_nChars, nLeast) : nLeast;
    }
    bool IsInPass() const { return &m_font != &m_ownFont; }
    HRESULT Noted(HRESULT hr)
    {
        m_fNeedsContext = m_fNeedsContext || (hr == E_PENDING && !m_hdc);
        m_fFailed = m_fFailed || FAILED(hr);
        return hr;
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

    bool m_fNeedsContext = false;
    bool m_fFailed = false; // a call of the platform

    bool m_fLinks = !WillHave(Quirk::TextHasOneFont);
    PassFont m_ownFont; // without a cache
    PassFont& m_font;
    TextItems* m_pKnown = nullptr;
    std::optional<FontSplitter> m_splitter;
    std::vector<FontStretch> m_stretches; // of the items up to the last one in which something is missing
    std::vector<RunFontRef> m_fonts;      // of the items, once these are parted
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
    m_fFailed = m_fFailed || (FAILED(hr) && m_nChars != 0); // it refuses an empty text
    m_arrays.nItems = FAILED(hr) ? 0 : std::min(static_cast<UINT>(nItems), m_arrays.nItemsAlloc - 1);
}

// The script processor finds out which way spaces, punctuation and digits go only if it is given a state, and
// parts texts otherwise then. Where nothing goes from right to left it is left to its first result.
void Calculation::ItemizeByDirection()
{
    m_arrays.fOneBlock &= ~PAINTED_AS_READ;
    const bool fAsRead = !WillHave(Quirk::TextRunsInOrder) && MayGoRightToLeft(m_pszText, m_nChars);
    if (!fAsRead || !ItemizeAsRead()) {
        Itemize(nullptr, nullptr);
    }
}

// False where that finds nothing that goes from right to left.
bool Calculation::ItemizeAsRead()
{
    constexpr SCRIPT_CONTROL CONTROL{};
    constexpr SCRIPT_STATE LEFT_TO_RIGHT{};
    Itemize(&CONTROL, &LEFT_TO_RIGHT);
    const SCRIPT_ITEM* const pItems = m_arrays.pItems;
    const auto isRightToLeft = [](const SCRIPT_ITEM& item) { return item.a.fRTL; };
    if (m_fRefused || std::none_of(pItems, pItems + m_arrays.nItems, isRightToLeft)) {
        return m_fRefused;
    }
    m_arrays.fOneBlock |= PAINTED_AS_READ;
    return true;
}

// Of a text in several fonts.
void Calculation::ItemizeOnce()
{
    m_arrays.fOneBlock &= ~PAINTED_AS_READ;
    while (m_arrays.nItemsAlloc <= m_pKnown->nItems && !m_fRefused) {
        MakeItemRoom();
    }
    if (m_fRefused) {
        m_arrays.nItems = 0;
        return;
    }
    if (m_pKnown->nItems != 0) {
        m_arrays.nItems = m_pKnown->nItems;
        std::copy_n(m_pKnown->items.begin(), m_pKnown->nItems + 1, m_arrays.pItems);
        return;
    }
    ItemizeByDirection();
    if (m_arrays.nItems <= TextItems::MOST && !IsPaintedAsRead(m_arrays)) {
        m_pKnown->nItems = m_arrays.nItems;
        std::copy_n(m_arrays.pItems, m_arrays.nItems + 1, m_pKnown->items.begin());
    }
}

void Calculation::CalculateInOwnFont()
{
    if (!IsInPass()) {
        FreeCache(m_cache); // of another font, it may be
    }
    m_pKnown ? ItemizeOnce() : ItemizeByDirection();
    if (m_arrays.nItems != 0) {
        m_fRefused = m_fRefused || !ReserveChars(m_arrays, m_arrays.nChars + m_nChars);
    }
    if (m_growth == Growth::BY_NEED && m_arrays.nItems != 0 && !m_fRefused) {
        std::fill_n(m_arrays.pLogAttr, m_nChars, SCRIPT_LOGATTR()); // of a former text's lines
    }
    AddItems();
}

void Calculation::AddItems()
{
    for (UINT n = 0; n < m_arrays.nItems && !m_fRefused; ++n) {
        AddItem(n);
    }
}

void Calculation::AddItem(UINT nItem)
{
    SCRIPT_ITEM& item = m_arrays.pItems[nItem];
    stcDrawTextRun& run = m_arrays.pRuns[nItem];
    run = {};
    run.nChars = m_arrays.pItems[nItem + 1].iCharPos - item.iCharPos;
    run.nFirstGlyph = m_arrays.nGlyphs;
    if (nItem >= m_fonts.size() || !AddInFont(m_fonts[nItem], item, run)) {
        ShapeInFont(item, run, m_cache);
        if (nItem < m_fonts.size()) {
            m_fonts[nItem] = {};
        }
    }
    m_arrays.nChars += static_cast<UINT>(run.nChars);
    m_arrays.nGlyphs += static_cast<UINT>(run.nGlyphs);
}

// False where the item is to have the context's font.
bool Calculation::AddInFont(const RunFontRef& font, SCRIPT_ITEM& item, stcDrawTextRun& run)
{
    if (!font) {
        return false;
    }
    const RunFontScope scope(m_hdc, *font.Get());
    if (scope.IsSelected()) {
        ShapeInFont(item, run, scope.Cache());
        return true;
    }
    return false;
}

void Calculation::ShapeInFont(SCRIPT_ITEM& item, stcDrawTextRun& run, SCRIPT_CACHE& cache)
{
    const SCRIPT_ITEM asItemized = item;
    const bool fWholeScript = !Shape(item, run, cache);
    Place(item, run, cache);
    if (m_fLinks && m_fonts.empty() && (fWholeScript || HasDefaultGlyph(run))) {
        NoteMissing(asItemized, run, fWholeScript);
    }
}

// A run that the font cannot show is shaped as of no script: boxes appear, and it is placed and painted so.
// False for such a one.
bool Calculation::Shape(SCRIPT_ITEM& item, stcDrawTextRun& run, SCRIPT_CACHE& cache)
{
    HRESULT hr = ShapeInScript(item, run, cache);
    const bool fInFont = hr != USP_E_SCRIPT_NOT_IN_FONT;
    if (!fInFont) {
        item.a.eScript = SCRIPT_UNDEFINED;
        hr = ShapeInScript(item, run, cache);
    }
    // A failing call may have set a count and written no glyph: the arrays hold those of an earlier text
    // there.
    const int nRoom = static_cast<int>(m_arrays.nGlyphsAlloc - m_arrays.nGlyphs);
    run.nGlyphs = FAILED(Noted(hr)) ? 0 : std::clamp(run.nGlyphs, 0, nRoom);
    // Sixteen bits: in a text of more than 65,535 glyphs the values start again at zero.
    WORD* const pLogClust = m_arrays.pLogClust + m_arrays.nChars;
    for (int n = 0; n < run.nChars; ++n) {
        pLogClust[n] = static_cast<WORD>((FAILED(hr) ? 0U : pLogClust[n]) + m_arrays.nGlyphs);
    }
    return fInFont;
}

// Offers more room for glyphs until there is enough.
HRESULT Calculation::ShapeInScript(SCRIPT_ITEM& item, stcDrawTextRun& run, SCRIPT_CACHE& cache)
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
        const HRESULT hr = ScriptShape(m_hdc, &cache, m_pszText + item.iCharPos, run.nChars,
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
void Calculation::Place(SCRIPT_ITEM& item, stcDrawTextRun& run, SCRIPT_CACHE& cache)
{
    const UINT nGlyphs = run.nFirstGlyph;
    ClearPlaces(run);
    const HRESULT hr =
        ScriptPlace(m_hdc, &cache, m_arrays.pGlyphs + nGlyphs, run.nGlyphs, m_arrays.pVisAttr + nGlyphs,
                    &item.a, m_arrays.pAdvance + nGlyphs, m_arrays.pOffset + nGlyphs, &run.abc);
    if (FAILED(Noted(hr))) {
        ClearPlaces(run);
    }
    if (IsPaintedAsRead(m_arrays)) {
        // The pen is moved by advances, from which the measures of the glyphs may differ.
        const int* const pAdvance = m_arrays.pAdvance + nGlyphs;
        run.abc = {0, static_cast<UINT>(std::accumulate(pAdvance, pAdvance + run.nGlyphs, 0, WrapAdd)), 0};
    }
}

void Calculation::ClearPlaces(stcDrawTextRun& run)
{
    std::fill_n(m_arrays.pAdvance + run.nFirstGlyph, run.nGlyphs, 0);
    std::fill_n(m_arrays.pOffset + run.nFirstGlyph, run.nGlyphs, GOFFSET());
    run.abc = {};
}

bool Calculation::HasDefaultGlyph(const stcDrawTextRun& run)
{
    if (!std::exchange(m_font.fDefaultRead, true)) {
        SCRIPT_FONTPROPERTIES properties{};
        properties.cBytes = sizeof(properties);
        if (SUCCEEDED(Noted(ScriptGetFontProperties(m_hdc, &m_cache, &properties)))) {
            m_font.wDefault = properties.wgDefault;
        }
    }
    const WORD* const pGlyphs = m_arrays.pGlyphs + run.nFirstGlyph;
    const WORD* const pEnd = pGlyphs + run.nGlyphs;
    return m_font.wDefault && std::find(pGlyphs, pEnd, *m_font.wDefault) != pEnd;
}

// Without memory to look for other fonts there are boxes.
void Calculation::NoteMissing(const SCRIPT_ITEM& item, const stcDrawTextRun& run, bool fWholeScript)
try {
    const WORD* const pGlyphs = m_arrays.pGlyphs + run.nFirstGlyph;
    const std::span<const WORD> glyphs(pGlyphs, fWholeScript ? 0 : static_cast<size_t>(run.nGlyphs));
    if (IsInPass() && !m_hdc) {
        m_fNeedsContext = true;
        return;
    }
    if (!m_splitter) {
        m_splitter.emplace(m_hdc, m_pszText, m_nChars);
    }
    m_splitter->Split({item, static_cast<UINT>(run.nChars), glyphs, m_arrays.pLogClust + m_arrays.nChars,
                       static_cast<WORD>(run.nFirstGlyph)},
                      m_font.wDefault.value_or(0), m_stretches);
} catch (const std::bad_alloc&) {
    m_stretches.clear();
}

// Makes an item of each stretch that has a font of its own. False if there is none, or no memory: the items
// stay.
bool Calculation::PartItems()
try {
    const auto hasFont = [](const FontStretch& stretch) { return bool(stretch.font); };
    if (m_fRefused || std::none_of(m_stretches.begin(), m_stretches.end(), hasFont)) {
        return false;
    }
    std::vector<FontStretch> all;
    auto stretch = m_stretches.begin();
    for (UINT n = 0; n < m_arrays.nItems; ++n) {
        const auto nEnd = static_cast<UINT>(m_arrays.pItems[n + 1].iCharPos);
        if (stretch == m_stretches.end() || stretch->nFrom >= nEnd) {
            const SCRIPT_ITEM& item = m_arrays.pItems[n];
            all.push_back({static_cast<UINT>(item.iCharPos), nEnd, item.a, RunFontRef()});
        }
        for (; stretch != m_stretches.end() && stretch->nFrom < nEnd; ++stretch) {
            all.push_back(*stretch);
        }
    }
    m_splitter->UniteClusters(all);
    return TakeItems(all);
} catch (const std::bad_alloc&) {
    return false;
}

bool Calculation::TakeItems(const std::vector<FontStretch>& stretches)
{
    const SCRIPT_ITEM endMarker = m_arrays.pItems[m_arrays.nItems];
    const auto nItems = static_cast<UINT>(stretches.size());
    m_fonts.reserve(nItems);
    if (nItems >= m_arrays.nItemsAlloc && !GrowItems(m_arrays, nItems + 1 - m_arrays.nItemsAlloc)) {
        return false;
    }
    SCRIPT_ITEM* pNext = m_arrays.pItems;
    for (const FontStretch& stretch : stretches) {
        *pNext++ = {static_cast<int>(stretch.nFrom), stretch.analysis};
        m_fonts.push_back(stretch.font);
    }
    *pNext = endMarker;
    m_arrays.nItems = nItems;
    m_arrays.fOneBlock |= PAINTED_AS_READ;
    return true;
}

// Gives the buffer exact copies of what working space holds. The end marker of the items is not kept. False,
// with nothing done, without memory.
bool Publish(const stcDrawTextBuffer& space, std::span<const RunFontRef> fonts, stcDrawTextBuffer& buffer)
{
    if (!CopyCalculated(buffer, space, fonts)) {
        return false;
    }
    buffer.nItems = buffer.nItemsAlloc = space.nItems;
    buffer.nChars = buffer.nCharsAlloc = space.nChars;
    buffer.nGlyphs = buffer.nGlyphsAlloc = space.nGlyphs;
    return true;
}

// A buffer has fonts of its own only where its arrays lie in one block.
bool KeepFonts(stcDrawTextBuffer& buffer, std::span<const RunFontRef> fonts)
{
    stcDrawTextBuffer block{};
    if (!CopyCalculated(block, buffer, fonts)) {
        return false;
    }
    MoveCalculated(buffer, block);
    buffer.nItemsAlloc = buffer.nItems;
    buffer.nCharsAlloc = buffer.nChars;
    buffer.nGlyphsAlloc = buffer.nGlyphs;
    return true;
}

} // namespace

void CDrawText::DrawText_Calculate(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer* pBuffer)
{
    if (!IsBuffer(pBuffer)) {
        return;
    }
    if (!Unshare(*pBuffer)) {
        pBuffer->nItems = 0;
        return;
    }
    if (!pBuffer->pItems) {
        Misuse("CDrawText::DrawText_Calculate: PrepareBuffer comes first");
        PrepareBuffer(pBuffer, 0, 0, 0);
    }
    if (pBuffer->fOneBlock & ONE_BLOCK && !(PartCalculated(*pBuffer) && FillArrays(*pBuffer))) {
        pBuffer->nItems = 0;
        return;
    }
    const UINT nFormerChars = pBuffer->nChars;
    const UINT nFormerGlyphs = pBuffer->nGlyphs;
    Calculation calculation(hdc, pszText, nChars, *pBuffer, Growth::BY_STEPS, pBuffer->scriptCache);
    if (calculation.Run() && !calculation.Fonts().empty() && !KeepFonts(*pBuffer, calculation.Fonts())) {
        pBuffer->nChars = nFormerChars;
        pBuffer->nGlyphs = nFormerGlyphs;
        Calculation boxes(hdc, pszText, nChars, *pBuffer, Growth::BY_STEPS, pBuffer->scriptCache);
        boxes.UseOwnFontOnly();
        static_cast<void>(boxes.Run());
    }
}

Prepared gesso::CalculateInSpace(HDC hdc, PassFont& font, LPCWSTR pszText, UINT nChars,
                                 stcDrawTextBuffer& space, TextItems& items)
{
    space.nItems = space.nChars = space.nGlyphs = 0;
    Calculation calculation(hdc, pszText, nChars, space, font, items);
    const bool fCalculated = calculation.Run();
    if (!hdc && calculation.NeedsContext()) {
        return Prepared::NeedsContext;
    }
    const bool fPlain = calculation.Fonts().empty() && !IsPaintedAsRead(space);
    return fCalculated && fPlain && !calculation.HasFailed() ? Prepared::Yes : Prepared::No;
}

bool gesso::CalculateExactly(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer& buffer)
{
    if (!Unshare(buffer)) {
        return false;
    }
    const TextSpace space;
    stcDrawTextBuffer& arrays = space.Arrays();
    Calculation calculation(hdc, pszText, nChars, arrays, Growth::BY_NEED, buffer.scriptCache);
    const bool fCalculated = calculation.Run();
    bool fDone = fCalculated && Publish(arrays, calculation.Fonts(), buffer);
    if (fCalculated && !fDone && !calculation.Fonts().empty()) {
        arrays.nItems = arrays.nChars = arrays.nGlyphs = 0;
        Calculation boxes(hdc, pszText, nChars, arrays, Growth::BY_NEED, buffer.scriptCache);
        boxes.UseOwnFontOnly();
        fDone = boxes.Run() && Publish(arrays, {}, buffer);
    }
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
