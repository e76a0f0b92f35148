#include <gesso/containers/Memory.h>
#include <gesso/framework/ControlText.h>
#include <gesso/list/ListTexts.h>
#include <gesso/text/PackedTexts.h>
#include <gesso/text/TextArrays.h>

#include <algorithm>
#include <new>
#include <utility>

namespace gesso {

class ListTextKit
{
public:
    ListTextKit* Share()
    {
        ++m_shares;
        return this;
    }
    void Release()
    {
        if (--m_shares == 0) {
            delete this;
        }
    }

    std::array<PassFont, 2> fonts;
    SharedArrays arrays;

private:
    UINT m_shares = 1;
};

namespace {

constexpr UINT MOST_PACKED = 1024; // characters: of a long text little is left to save
constexpr UINT FIRST_PLACES = 256;
constexpr UINT MOST_PLACES = 1U << 16;
constexpr UINT PLACES_TRIED = 8;

// What a pair is to the list: hosts see its beginning. Where it has a kit, two buffers stand behind it. A
// list is of one thread at a time, and its pairs are no other list's.
struct CountedPair : ListTextPair
{
    UINT shares = 1;
    ListTextKit* kit = nullptr;
};
static_assert(sizeof(CountedPair) % 8 == 0);

void CloseText(void* hText)
{
    if (hText) {
        CDrawText::DrawText_CloseHandle(hText);
    }
}

// Of these the script processor knows all by the glyphs alone, so that it asks for a context where it lacks
// one.
bool IsPlain(LPCWSTR text, UINT length)
{
    return std::all_of(text, text + length, [](wchar_t c) { return c >= 0x20 && c < 0x250; });
}

} // namespace

ListTextPair* MakePair()
{
    void* const block = BlockPool::TryAllocate(nullptr, sizeof(CountedPair));
    if (!block) {
        OutOfMemory();
    }
    return new (block) CountedPair();
}

void ReleasePair(ListTextPair* pair)
{
    auto* const counted = static_cast<CountedPair*>(pair);
    if (!counted || --counted->shares != 0) {
        return;
    }
    CloseText(counted->first);
    CloseText(counted->second);
    if (counted->kit) {
        counted->kit->Release();
    }
    BlockPool::Free(counted);
}

// --- RecentTexts

struct RecentTexts::Table
{
    static constexpr UINT PLACES = 64;
    static constexpr UINT LONGEST = 24; // characters: what repeats itself is short
    static constexpr UINT MARKS = 256;
    static constexpr UINT MARK_SHIFT = 16;

    struct Entry
    {
        UINT hash;
        UINT format;
        UINT length;
        std::array<wchar_t, LONGEST> text;
        CountedPair* pair; // null for none

        bool Is(UINT otherHash, LPCWSTR other, UINT otherLength, UINT otherFormat) const
        {
            return pair && hash == otherHash && length == otherLength && format == otherFormat &&
                   std::memcmp(text.data(), other, length * sizeof(*other)) == 0;
        }
    };
    // Whether such a text has come before, and is not forgotten for another one.
    bool HasMet(UINT hash)
    {
        const auto mark = static_cast<WORD>(hash >> MARK_SHIFT);
        return std::exchange(marks[hash % MARKS], mark) == mark;
    }

    std::array<Entry, PLACES> entries;
    std::array<WORD, MARKS> marks;
};

ListTextPair* RecentTexts::Find(UINT hash, LPCWSTR text, UINT length, UINT format, int lineHeight)
{
    if (std::exchange(m_lineHeight, lineHeight) != lineHeight) {
        Forget();
    }
    if (!m_table || length > Table::LONGEST) {
        return nullptr;
    }
    const Table::Entry& entry = m_table->entries[hash % Table::PLACES];
    if (!entry.Is(hash, text, length, format)) {
        return nullptr;
    }
    ++entry.pair->shares;
    return entry.pair;
}

void RecentTexts::Note(UINT hash, LPCWSTR text, UINT length, UINT format, ListTextPair* pair)
{
    auto* const counted = static_cast<CountedPair*>(pair);
    if (!counted->kit || length > Table::LONGEST) {
        return;
    }
    m_table = m_table ? m_table : AllocateArray<Table>(1);
    if (!m_table || !m_table->HasMet(hash)) {
        return;
    }
    Table::Entry& entry = m_table->entries[hash % Table::PLACES];
    ReleasePair(entry.pair);
    ++counted->shares;
    entry = {hash, format, length, {}, counted};
    std::copy_n(text, length, entry.text.data());
}

void RecentTexts::Forget()
{
    Table* const table = std::exchange(m_table, nullptr);
    for (UINT n = 0; table && n < Table::PLACES; ++n) {
        ReleasePair(table->entries[n].pair);
    }
    Free(table);
}

// --- ListTexts

void ListTexts::Forget()
{
    m_recent.Forget();
    if (m_kit) {
        std::exchange(m_kit, nullptr)->Release();
    }
}

// False where the fonts do not tell what they are.
bool ListTexts::MakeKey(Key& key, HFONT hFirst, HFONT hSecond)
{
    key.fonts = {hFirst, hSecond};
    key.generation = RunFontGeneration();
    return GetObjectW(hFirst, sizeof(LOGFONTW), &key.logs[0]) != 0 &&
           GetObjectW(hSecond, sizeof(LOGFONTW), &key.logs[1]) != 0;
}

// --- ListTextContexts

// In the reverse of their order: it may be one context.
ListTextContexts::~ListTextContexts()
{
    for (const size_t n : {size_t{1}, size_t{0}}) {
        if (m_formers[n]) {
            SelectObject(m_contexts[n], m_formers[n]);
        }
    }
    for (size_t n = 0; n < m_contexts.size(); ++n) {
        if (m_fOpen[n]) {
            ReleaseDC(m_hwnd, m_contexts[n]);
        }
    }
}

HDC ListTextContexts::In(size_t font)
{
    const bool fNew = !std::exchange(m_fOpen[font], true);
    if (fNew) {
        m_contexts[font] = GetDC(m_hwnd);
    }
    // A window may have one context for all.
    if (fNew || (m_contexts[0] == m_contexts[1] && m_last != font)) {
        Select(font);
    }
    m_last = font;
    return m_contexts[font];
}

void ListTextContexts::Select(size_t font)
{
    const HGDIOBJ hFormer = m_fonts[font] ? SelectObject(m_contexts[font], m_fonts[font]) : nullptr;
    m_fFailed = m_fFailed || (m_fonts[font] && !hFormer);
    m_formers[font] = m_formers[font] ? m_formers[font] : hFormer;
}

// --- ListTextPass

// A text of the pass that has been prepared.
struct ListTextPass::Known
{
    UINT hash;
    UINT format;
    UINT length;
    LPCWSTR text; // null for none
    CountedPair* pair;
};

ListTextPass::ListTextPass(ListTexts& texts, HWND hwnd, HFONT hFirst, HFONT hSecond, int lineHeight,
                           Extent extent)
    : m_texts(texts), m_lineHeight(lineHeight), m_extent(extent), m_contexts(hwnd, hFirst, hSecond)
{
    ListTexts::Key key{};
    const bool fKnown = ListTexts::MakeKey(key, hFirst, hSecond);
    if (!fKnown || !(key == texts.m_key)) {
        texts.Forget();
        texts.m_key = key;
    }
    if (!texts.m_kit) {
        texts.m_kit = new (std::nothrow) ListTextKit;
    }
    m_kit = texts.m_kit ? texts.m_kit->Share() : nullptr;
    if (!fKnown) {
        texts.Forget();
    }
}

// What is known of a wrong font is forgotten, so that a text that is set again is right.
ListTextPass::~ListTextPass()
{
    if (m_contexts.HasFailed()) {
        m_texts.Forget();
    }
    if (m_kit) {
        m_kit->Release();
    }
    Free(m_table);
}

ListTextPair* ListTextPass::Prepare(LPCWSTR text, UINT format)
{
    const auto length = static_cast<UINT>(TextLength(text));
    const UINT hash = HashOf(text, length * sizeof(*text)) ^ format;
    if (m_extent == Extent::One) {
        return PrepareOne(hash, text, length, format);
    }
    Known* const known = Find(hash, text, length, format);
    if (known && known->text) {
        ++known->pair->shares;
        return known->pair;
    }
    ListTextPair* const pair = PrepareAnew(text, length, format);
    auto* const counted = static_cast<CountedPair*>(pair);
    if (known && counted->kit) {
        *known = {hash, format, length, text, counted};
        ++m_used;
    }
    return pair;
}

ListTextPair* ListTextPass::PrepareOne(UINT hash, LPCWSTR text, UINT length, UINT format)
{
    if (ListTextPair* const pair = m_texts.m_recent.Find(hash, text, length, format, m_lineHeight)) {
        return pair;
    }
    ListTextPair* const pair = PrepareAnew(text, length, format);
    m_texts.m_recent.Note(hash, text, length, format, pair);
    return pair;
}

// The place of a text that is known, or a free one for it; null where there is none. In a full table the one
// that it would have first is made free.
ListTextPass::Known* ListTextPass::Find(UINT hash, LPCWSTR text, UINT length, UINT format)
{
    if (m_used >= m_places / 2 && !GrowTable() && m_places == 0) {
        return nullptr;
    }
    for (UINT n = 0; n < PLACES_TRIED; ++n) {
        Known& known = m_table[(hash + n) & (m_places - 1)];
        const bool fSame = known.text && known.hash == hash && known.format == format &&
                           known.length == length &&
                           std::memcmp(known.text, text, length * sizeof(*text)) == 0;
        if (!known.text || fSame) {
            return &known;
        }
    }
    Known& known = m_table[hash & (m_places - 1)];
    known.text = nullptr;
    --m_used;
    return &known;
}

bool ListTextPass::GrowTable()
{
    const UINT places = m_places ? 4 * m_places : FIRST_PLACES;
    auto* const table = places <= MOST_PLACES ? AllocateArray<Known>(places) : nullptr;
    if (!table) {
        return false;
    }
    Known* const former = std::exchange(m_table, table);
    const UINT formerPlaces = std::exchange(m_places, places);
    m_used = 0;
    for (UINT n = 0; n < formerPlaces; ++n) {
        Known* const known = former[n].text ? &m_table[former[n].hash & (places - 1)] : nullptr;
        if (known && !known->text) {
            *known = former[n];
            ++m_used;
        }
    }
    Free(former);
    return true;
}

// Shares nothing of a text of which something failed: the next one may not.
ListTextPair* ListTextPass::PrepareAnew(LPCWSTR text, UINT length, UINT format)
{
    if (ListTextPair* const pair = m_kit && length <= MOST_PACKED ? Pack(text, length, format) : nullptr) {
        return pair;
    }
    ListTextPair* const pair = MakePair();
    pair->first =
        CDrawText::DrawText_Prepare(m_contexts.In(0), text, -1, nullptr, format, m_lineHeight, nullptr);
    pair->second =
        CDrawText::DrawText_Prepare(m_contexts.In(1), text, -1, nullptr, format, m_lineHeight, nullptr);
    return pair;
}

ListTextPair* ListTextPass::Pack(LPCWSTR text, UINT length, UINT format)
{
    const bool fPlain = IsPlain(text, length);
    TextItems items;
    for (size_t n = 0; n < m_spaces.size(); ++n) {
        PassFont& font = m_kit->fonts[n];
        stcDrawTextBuffer& space = m_spaces[n].Arrays();
        Prepared prepared = Prepared::NeedsContext;
        if (fPlain && font.cache) {
            prepared = PrepareInSpace(nullptr, font, text, length, format, m_lineHeight, space, items);
        }
        if (prepared == Prepared::NeedsContext) {
            prepared =
                PrepareInSpace(m_contexts.In(n), font, text, length, format, m_lineHeight, space, items);
        }
        // What has no cache would make one when it is painted.
        if (prepared != Prepared::Yes || (format & DT_CALCRECT) || (space.nItems != 0 && !font.cache)) {
            return nullptr;
        }
    }
    BlockPool* const pool = m_extent == Extent::Many ? &m_pool : nullptr;
    std::byte* const block = PackTexts(pool, sizeof(CountedPair), m_spaces[0].Arrays(), m_kit->fonts[0].cache,
                                       m_spaces[1].Arrays(), m_kit->fonts[1].cache, m_kit->arrays);
    if (!block) {
        return nullptr;
    }
    auto* const pair = new (block) CountedPair();
    auto* const buffers = reinterpret_cast<stcDrawTextBuffer*>(pair + 1);
    pair->first = &buffers[0];
    pair->second = &buffers[1];
    pair->kit = m_kit->Share();
    return pair;
}

} // namespace gesso
