// What a text field shows, line by line, to tell which lines look other than before.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OStringEx.h>

namespace gesso {

class ShownLines
{
public:
    // What all lines look by. Lines of different manners have nothing in common.
    struct Manner
    {
        HFONT hFont;
        int nLineHeight; // in pixels; 0 where nothing is known of the lines
        int nScrollPos;
        DWORD dwStyle; // of its bits those that show
        bool operator==(const Manner&) const = default;
    };
    // Lines from nFirst up to nEnd.
    struct Range
    {
        UINT nFirst, nEnd;
    };

    ShownLines() = default;
    explicit ShownLines(const Manner& manner) : m_manner(manner) {}

    // The next line: its characters, with those from nFrom up to nTo selected.
    void Add(LPCWSTR psz, UINT nLength, UINT nFrom, UINT nTo);

    const Manner& Look() const { return m_manner; }
    // The lines, of either, that differ; an empty range if none does.
    Range DifferenceFrom(const ShownLines& former) const;
    bool operator==(const ShownLines& other) const
    {
        return m_manner == other.m_manner && DifferenceFrom(other).nEnd == 0;
    }

private:
    static constexpr UINT FIELDS = 3;

    UINT Count() const { return m_lines.GetLength() / FIELDS; }
    UINT LengthOf(UINT nLine) const { return nLine < Count() ? m_lines[nLine * FIELDS] : 0; }
    bool IsLineAt(UINT nLine, UINT nOffset, const ShownLines& other, UINT nOtherOffset) const;

    Manner m_manner{};
    OStringEx<wchar_t> m_strText;
    OArray<UINT, UINT const&> m_lines; // of each its length and the ends of its selection
};

} // namespace gesso
