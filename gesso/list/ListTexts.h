// The texts of a list's items, prepared in its two fonts. Those of one pass that are equal are prepared once,
// and what a font needs for it is kept from one text to the next.
#pragma once

#include <gesso/containers/BlockPool.h>
#include <gesso/list/ListRecords.h>
#include <gesso/text/TextSpace.h>

#include <array>
#include <cstring>

namespace gesso {

// A pair for handles that have been prepared alone.
ListTextPair* MakePair();
// Ends a share in a pair; with the last one the pair goes, and the handles that it has then.
void ReleasePair(ListTextPair* pair);

// What pairs of the same fonts have in common, until the last one goes.
class ListTextKit;

// Texts that came in one by one of late, and their pairs: those that had come before, so that what differs
// from all others is not kept.
class RecentTexts
{
public:
    RecentTexts() = default;
    ~RecentTexts() { Forget(); }
    RecentTexts(const RecentTexts&) = delete;
    RecentTexts& operator=(const RecentTexts&) = delete;

    // A share in the pair of the text, null where it is not kept. Texts of another line height are forgotten.
    ListTextPair* Find(UINT hash, LPCWSTR text, UINT length, UINT format, int lineHeight);
    void Note(UINT hash, LPCWSTR text, UINT length, UINT format, ListTextPair* pair);
    void Forget();

private:
    struct Table;

    Table* m_table = nullptr; // null until there is a text
    int m_lineHeight = 0;
};

// What a list keeps of its fonts between passes.
class ListTexts
{
public:
    ListTexts() = default;
    ~ListTexts() { Forget(); }
    ListTexts(const ListTexts&) = delete;
    ListTexts& operator=(const ListTexts&) = delete;

    void Forget();

private:
    friend class ListTextPass;

    // Fonts as they were: a handle may be another font's by now.
    struct Key
    {
        std::array<HFONT, 2> fonts;
        std::array<LOGFONTW, 2> logs;
        LONG generation;

        bool operator==(const Key& other) const
        {
            return fonts == other.fonts && generation == other.generation &&
                   std::memcmp(&logs, &other.logs, sizeof(logs)) == 0;
        }
    };
    static bool MakeKey(Key& key, HFONT hFirst, HFONT hSecond);

    Key m_key{};
    ListTextKit* m_kit = nullptr; // null for none
    RecentTexts m_recent;
};

// The contexts of a pass, one a font: to change the font of a context costs as much as to shape a text.
class ListTextContexts
{
public:
    ListTextContexts(HWND hwnd, HFONT hFirst, HFONT hSecond) : m_hwnd(hwnd), m_fonts{hFirst, hSecond} {}
    ~ListTextContexts();
    ListTextContexts(const ListTextContexts&) = delete;
    ListTextContexts& operator=(const ListTextContexts&) = delete;

    // With its font selected; made when it is first asked for.
    HDC In(size_t font);
    // A font could not be selected: the texts are in another one.
    bool HasFailed() const { return m_fFailed; }

private:
    void Select(size_t font);

    HWND m_hwnd;
    std::array<HFONT, 2> m_fonts;
    std::array<HDC, 2> m_contexts{};
    std::array<HGDIOBJ, 2> m_formers{};
    std::array<bool, 2> m_fOpen{};
    size_t m_last = 0;
    bool m_fFailed = false;
};

// Texts prepared one behind the other. Nothing changes the fonts and the window meanwhile.
class ListTextPass
{
public:
    enum class Extent
    {
        One,
        Many // equal ones are looked for
    };

    ListTextPass(ListTexts& texts, HWND hwnd, HFONT hFirst, HFONT hSecond, int lineHeight, Extent extent);
    ~ListTextPass();
    ListTextPass(const ListTextPass&) = delete;
    ListTextPass& operator=(const ListTextPass&) = delete;

    // A share in a pair of the text, which stays as it is until the pass ends.
    ListTextPair* Prepare(LPCWSTR text, UINT format);

private:
    struct Known;

    ListTextPair* PrepareOne(UINT hash, LPCWSTR text, UINT length, UINT format);
    ListTextPair* PrepareAnew(LPCWSTR text, UINT length, UINT format);
    ListTextPair* Pack(LPCWSTR text, UINT length, UINT format);
    Known* Find(UINT hash, LPCWSTR text, UINT length, UINT format);
    bool GrowTable();

    ListTexts& m_texts;
    ListTextKit* m_kit; // null without memory: each text is prepared by itself then
    int m_lineHeight;
    Extent m_extent;
    ListTextContexts m_contexts;
    std::array<TextSpace, 2> m_spaces;
    BlockPool m_pool; // of many texts
    Known* m_table = nullptr;
    UINT m_places = 0;
    UINT m_used = 0;
};

} // namespace gesso
