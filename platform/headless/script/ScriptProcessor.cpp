// The script processor: one item for each run of a script, one glyph for each character, every glyph as wide
// as a character of the font. A glyph's index is the character's code, so that a record can show it; that of
// a character whose script the font lacks is the box of a missing glyph.
#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/Text.h"
#include "../gdi/FontMetrics.h"
#include "../gdi/InstalledFonts.h"
#include "../gdi/Record.h"
#include "Scripts.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <vector>

using namespace gesso::headless;

namespace {

// The index of the box that stands for what a font lacks; it shows as U+25A1.
constexpr WORD MISSING_GLYPH = 0;

// What a SCRIPT_CACHE points to: the measures of the font that it was made with, and what it has.
struct Cache
{
    FontMetrics font;
    bool hasDevanagari;
    std::shared_ptr<const InstalledFont> installed; // null for one that has all characters

    bool LacksScript(WORD script) const
    {
        return script == static_cast<WORD>(Script::Devanagari) && !hasDevanagari;
    }
    bool Lacks(char32_t c) const
    {
        return installed ? !installed->Has(c)
                         : c <= 0xFFFF && LacksScript(static_cast<WORD>(ScriptOf(static_cast<wchar_t>(c))));
    }
};

// A font that is not installed has all scripts, unless it is Tahoma: as on Windows, it has no tables to shape
// Devanagari by.
bool HasDevanagari(const Font* font, const InstalledFont* installed)
{
    constexpr char32_t KA = 0x0915;
    return installed ? installed->Has(KA) : !font || _wcsicmp(font->log.lfFaceName, L"Tahoma") != 0;
}

// The code point that a character belongs to, be it the first or the second half of a pair.
char32_t CodePointAt(const WCHAR* text, int length, int at)
{
    const auto isHigh = [](WCHAR c) { return (c & 0xFC00) == 0xD800; };
    const auto isLow = [](WCHAR c) { return (c & 0xFC00) == 0xDC00; };
    const int high = isLow(text[at]) && at > 0 ? at - 1 : at;
    if (high + 1 >= length || !isHigh(text[high]) || !isLow(text[high + 1])) {
        return text[at];
    }
    return 0x10000 + ((char32_t{text[high]} & 0x3FF) << 10) + (char32_t{text[high + 1]} & 0x3FF);
}

// Makes the cache when it is first needed, which takes a context; null if there is neither.
Cache* NeedCache(HDC hdc, SCRIPT_CACHE* cache)
{
    const Context* const context = *cache ? nullptr : FindContext(hdc);
    if (context) {
        const auto* font = Find<Font>(context->state.font);
        const auto installed = font ? FontShownFor(font->log) : nullptr;
        *cache = new Cache{MeasureSelectedFont(hdc), HasDevanagari(font, installed.get()), installed};
        Track(Kind::ScriptCache, *cache);
    }
    return static_cast<Cache*>(*cache);
}

// The script that a character's item has: neutral ones go with the character before them, and at the start of
// a text or behind a control character with the first that has a script.
Script ResolveScript(const wchar_t* text, int length, int at, Script former)
{
    const Script own = ScriptOf(text[at]);
    if (own != Script::Neutral) {
        return own;
    }
    if (former != Script::Control) {
        return former;
    }
    const wchar_t* const end = text + length;
    const wchar_t* const next =
        std::find_if(text + at, end, [](wchar_t c) { return ScriptOf(c) != Script::Neutral; });
    return next == end || ScriptOf(*next) == Script::Control ? Script::Latin : ScriptOf(*next);
}

// What an item has in common.
struct Trait
{
    Script script;
    BYTE level;

    bool operator==(const Trait&) const = default;
};

// The direction that neutral characters within right-to-left text have where the processor is given a state,
// in a text that runs from left to right: that of the text, unless right-to-left characters or digits follow.
Trait TraitInState(const wchar_t* text, int length, int at, Script script, Script former)
{
    const auto isDigit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
    if (ScriptOf(text[at]) != Script::Neutral || !IsRightToLeft(script)) {
        return {script, IsRightToLeft(script)};
    }
    if (isDigit(text[at])) {
        return {Script::Latin, 2};
    }
    const wchar_t* const end = text + length;
    const wchar_t* const next =
        std::find_if(text + at, end, [&](wchar_t c) { return isDigit(c) || ScriptOf(c) != Script::Neutral; });
    const bool within =
        IsRightToLeft(former) && next != end && (isDigit(*next) || IsRightToLeft(ScriptOf(*next)));
    return within ? Trait{script, 1} : Trait{Script::Latin, 0};
}

SCRIPT_ITEM ItemAt(int position, const Trait& trait)
{
    SCRIPT_ITEM item{};
    item.iCharPos = position;
    item.a.eScript = static_cast<WORD>(trait.script) & 0x3FF;
    item.a.fRTL = trait.level % 2;
    item.a.s.uBidiLevel = trait.level & 0x1F;
    return item;
}

} // namespace

HRESULT WINAPI ScriptItemize(const WCHAR* text, int length, int maxItems, const SCRIPT_CONTROL* control,
                             const SCRIPT_STATE* state, SCRIPT_ITEM* items, int* count)
{
    if (FaultFires("ScriptItemize")) {
        return FaultResult();
    }
    if (!text || length <= 0 || !items || !count || maxItems < 2) {
        return E_INVALIDARG;
    }
    int used = 0;
    Script former = Script::Control;
    Trait open{};
    for (int i = 0; i < length; ++i) {
        const Script script = ResolveScript(text, length, i, former);
        const Trait trait = control && state ? TraitInState(text, length, i, script, former)
                                             : Trait{script, IsRightToLeft(script)};
        if (i == 0 || trait != open || script == Script::Control) {
            if (used == maxItems) {
                return E_OUTOFMEMORY;
            }
            items[used++] = ItemAt(i, trait);
        }
        former = script;
        open = trait;
    }
    items[used] = ItemAt(length, Trait{Script::Neutral, 0});
    *count = used;
    return S_OK;
}

// From the highest level down, each stretch of runs of that level or above is turned around.
HRESULT WINAPI ScriptLayout(int count, const BYTE* levels, int* visualToLogical, int* logicalToVisual)
{
    if (FaultFires("ScriptLayout")) {
        return FaultResult();
    }
    if (count < 0 || !levels || (!visualToLogical && !logicalToVisual)) {
        return E_INVALIDARG;
    }
    std::vector<int> order(static_cast<size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    for (int level = count ? *std::max_element(levels, levels + count) : 0; level > 0; --level) {
        const auto isBelow = [&](int run) { return levels[run] < level; };
        for (auto from = order.begin(); from != order.end();) {
            from = std::find_if_not(from, order.end(), isBelow);
            const auto to = std::find_if(from, order.end(), isBelow);
            std::reverse(from, to);
            from = to;
        }
    }
    for (int place = 0; place < count; ++place) {
        const int run = order[static_cast<size_t>(place)];
        if (visualToLogical) {
            visualToLogical[place] = run;
        }
        if (logicalToVisual) {
            logicalToVisual[run] = place;
        }
    }
    return S_OK;
}

HRESULT WINAPI ScriptShape(HDC hdc, SCRIPT_CACHE* cache, const WCHAR* text, int length, int maxGlyphs,
                           SCRIPT_ANALYSIS* analysis, WORD* glyphs, WORD* clusters,
                           SCRIPT_VISATTR* attributes, int* count)
{
    if (!cache || !analysis || !attributes || !count || length < 0) {
        return E_INVALIDARG;
    }
    *count = length; // set before any glyph is written, and left so where the call fails
    if (FaultFires("ScriptShape")) {
        return FaultResult();
    }
    if (length > maxGlyphs) {
        return E_OUTOFMEMORY;
    }
    const Cache* const found = NeedCache(hdc, cache);
    if (!found) {
        return E_PENDING;
    }
    if (found->LacksScript(analysis->eScript)) {
        return USP_E_SCRIPT_NOT_IN_FONT;
    }
    for (int i = 0; i < length; ++i) {
        // The glyphs of a right-to-left item stand as they are seen, from left to right.
        const int glyph = analysis->fRTL ? length - 1 - i : i;
        const bool missing = found->Lacks(CodePointAt(text, length, i));
        glyphs[glyph] = missing ? WORD{MISSING_GLYPH} : WORD{text[i]};
        clusters[i] = static_cast<WORD>(glyph);
        attributes[glyph] = {};
        attributes[glyph].fClusterStart = 1;
    }
    return S_OK;
}

HRESULT WINAPI ScriptGetFontProperties(HDC hdc, SCRIPT_CACHE* cache, SCRIPT_FONTPROPERTIES* properties)
{
    if (FaultFires("ScriptGetFontProperties")) {
        return FaultResult();
    }
    if (!cache || !properties || properties->cBytes != static_cast<int>(sizeof(*properties))) {
        return E_INVALIDARG;
    }
    if (!NeedCache(hdc, cache)) {
        return E_PENDING;
    }
    properties->wgBlank = L' ';
    properties->wgDefault = MISSING_GLYPH;
    properties->wgInvalid = MISSING_GLYPH;
    properties->wgKashida = 0xFFFF;
    properties->iKashidaWidth = 0;
    return S_OK;
}

HRESULT WINAPI ScriptPlace(HDC hdc, SCRIPT_CACHE* cache, const WORD*, int count,
                           const SCRIPT_VISATTR* attributes, SCRIPT_ANALYSIS*, int* advances,
                           GOFFSET* offsets, ABC* abc)
{
    if (FaultFires("ScriptPlace")) {
        return FaultResult();
    }
    if (!cache || !attributes || !offsets || count < 0) {
        return E_INVALIDARG;
    }
    const Cache* found = NeedCache(hdc, cache);
    if (!found) {
        return E_PENDING;
    }
    std::fill_n(advances, count, found->font.width);
    std::fill_n(offsets, count, GOFFSET{});
    if (abc) {
        *abc = {0, static_cast<UINT>(int64_t{count} * found->font.width), 0};
    }
    return S_OK;
}

HRESULT WINAPI ScriptBreak(const WCHAR* text, int length, const SCRIPT_ANALYSIS* analysis,
                           SCRIPT_LOGATTR* attributes)
{
    if (FaultFires("ScriptBreak")) {
        return FaultResult();
    }
    if (!text || length < 0 || !analysis || !attributes) {
        return E_INVALIDARG;
    }
    for (int i = 0; i < length; ++i) {
        const bool wordStart = i > 0 && IsWhiteSpace(text[i - 1]) && !IsWhiteSpace(text[i]);
        attributes[i] = {};
        attributes[i].fSoftBreak = i > 0 && MayBreakBetween(text[i - 1], text[i]);
        attributes[i].fWhiteSpace = IsWhiteSpace(text[i]);
        attributes[i].fCharStop = 1;
        attributes[i].fWordStop = wordStart;
    }
    return S_OK;
}

HRESULT WINAPI ScriptTextOut(HDC hdc, SCRIPT_CACHE* cache, int x, int y, UINT options, const RECT* clip,
                             const SCRIPT_ANALYSIS* analysis, const WCHAR*, int, const WORD* glyphs,
                             int count, const int* advances, const int* justified, const GOFFSET* offsets)
{
    if (FaultFires("ScriptTextOut")) {
        return FaultResult();
    }
    if (!FindContext(hdc) || !cache || !analysis || !glyphs || !advances || !offsets || count < 0) {
        return E_INVALIDARG;
    }
    if (count == 0) {
        return S_OK;
    }
    long long width = 0;
    for (int i = 0; i < count; ++i) {
        width += justified ? justified[i] : advances[i];
    }
    WideText shown(glyphs, glyphs + count);
    std::replace(shown.begin(), shown.end(), wchar_t{MISSING_GLYPH}, L'\x25A1');
    Line line(hdc, "ScriptTextOut");
    line.Text(Characters(shown), count).Put(POINT{x, y});
    line.Word("cx=" + std::to_string(width)).Word(ScriptName(static_cast<Script>(analysis->eScript)));
    if (analysis->fRTL) {
        line.Word("rtl");
    }
    if (options != 0) {
        line.Hex(options);
    }
    if (clip) {
        line.Put(*clip);
    }
    line.TextState();
    return S_OK;
}

HRESULT WINAPI ScriptFreeCache(SCRIPT_CACHE* cache)
{
    if (FaultFires("ScriptFreeCache")) {
        return FaultResult();
    }
    if (!cache) {
        return E_INVALIDARG;
    }
    if (Untrack(Kind::ScriptCache, *cache)) {
        delete static_cast<Cache*>(*cache);
    }
    *cache = nullptr;
    return S_OK;
}
