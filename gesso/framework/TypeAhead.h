// The word that a user types to find an item of a list, a tree or a pane: characters that come within a
// second of each other make one. A word leads to the item that begins with it; one letter again and again
// leads from each item that begins with it to the next. Without case, in any script.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/framework/SystemTime.h>

namespace gesso {

class TypeAhead
{
public:
    static constexpr UINT MOST = 64; // characters: what a longer word goes on with is left out

    // Takes the character of a WM_CHAR. False where there is nothing to look for yet: it is part of no word,
    // or the first half of a pair.
    bool Add(wchar_t c);
    // Whether a character that comes now joins a word that was begun. A blank is part of such a word, and
    // otherwise the control's own.
    bool IsUnderWay() const;
    void Forget() { m_length = 0; }

    // The item that the word leads to from the current one, around the end: the current one itself where the
    // word has grown and it fits still. `textOf` answers an item's text, or null. NO_INDEX where none begins
    // so.
    template <class TEXT_OF> UINT Find(UINT current, UINT count, TEXT_OF textOf) const
    {
        const UINT first = First(current, count);
        const UINT length = Length();
        for (UINT64 i = first; i < UINT64{first} + count; ++i) {
            const auto item = static_cast<UINT>(i % count);
            if (IsStartOf(textOf(item), length)) {
                return item;
            }
        }
        return NO_INDEX;
    }

    // The item to look at first.
    UINT First(UINT current, UINT count) const
    {
        return current < count ? (current + (IsOneLetter() ? 1 : 0)) % count : 0;
    }
    // What an item's text is to begin with: so many characters, in lower case.
    LPCWSTR Word() const { return m_word; }
    UINT Length() const { return IsOneLetter() ? m_letterLength : m_length; }

private:
    bool IsOneLetter() const;
    bool IsStartOf(LPCWSTR text, UINT length) const;

    wchar_t m_word[MOST]{}; // in lower case
    UINT m_length = 0;
    UINT m_letterLength = 1; // of the first letter: 2 for a pair
    ULONGLONG m_lastTime = 0;
};

} // namespace gesso
