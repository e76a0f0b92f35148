// How wide and high a piece of text is in the font of a context, by DrawTextW without painting.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/framework/DrawScope.h>

namespace gesso {

// What stands for each character of a password.
constexpr wchar_t PASSWORD_MARK = 7;

class TextMeasure
{
public:
    // A masked text is measured as so many marks.
    TextMeasure(HDC hdc, bool fMasked) : m_hdc(hdc), m_fMasked(fMasked) {}

    struct Piece
    {
        LPCWSTR psz;
        UINT nCount;
    };
    // The piece as it is shown: itself, or marks, which hold until the next call. These are fewer where there
    // is no memory for so many.
    Piece Shown(LPCWSTR psz, UINT nCount) const;
    // Of one line of text, in pixels; 0 for no characters.
    int Width(LPCWSTR psz, UINT nCount) const;
    // Of a text that may contain line ends.
    SIZE Extent(LPCWSTR psz, UINT nCount) const;
    // Of every line, an empty one too: with the font's external leading, and without.
    int LineHeight() const;
    int GlyphHeight() const;

    // How the line's width compares with nLimit: below, equal or above 0.
    int CompareWidth(LPCWSTR psz, UINT nCount, int nLimit) const;
    // How many characters of the line fit into nLimit.
    UINT CountFitting(LPCWSTR psz, UINT nCount, int nLimit) const;
    // How many of its characters end in front of x.
    UINT CountBefore(LPCWSTR psz, UINT nCount, int x) const;

private:
    bool Overflows(LPCWSTR psz, UINT nCount, int nLimit) const;

    HDC m_hdc;
    bool m_fMasked;
    mutable OArray<wchar_t, wchar_t> m_marks;
};

// The same with a font and a context of its own, a window's.
class WindowMeasure
{
public:
    // No font: the one that the context happens to have.
    WindowMeasure(HWND hwnd, HFONT hFont, bool fMasked)
        : m_hdc(hwnd), m_font(m_hdc, hFont), m_measure(m_hdc, fMasked)
    {}

    const TextMeasure* operator->() const { return &m_measure; }
    TEXTMETRICW FontMetric() const;

private:
    WindowContext m_hdc;
    SelectScope m_font;
    TextMeasure m_measure;
};

// Makes the platform's caret for a window, as high as the font.
void CreateTextCaret(HWND hwnd, HFONT hFont);

} // namespace gesso
