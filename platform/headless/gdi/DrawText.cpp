// DrawTextW: measuring, breaking into lines, prefixes and tabs.
#include "../core/Faults.h"
#include "FontMetrics.h"
#include "Record.h"

#include <algorithm>
#include <new>

using namespace gesso::headless;

namespace {

constexpr UINT ELLIPSIS = DT_END_ELLIPSIS | DT_WORD_ELLIPSIS | DT_PATH_ELLIPSIS;

bool IsBreak(wchar_t c)
{
    return c == L'\r' || c == L'\n';
}

// Takes a text apart into lines of a width.
class TextLines
{
public:
    TextLines(LPCWSTR text, size_t length, UINT format, int64_t limit, int advance, int64_t tab)
        : m_text(text), m_end(length), m_format(format), m_limit(limit), m_advance(advance), m_tab(tab)
    {}

    bool AtEnd() const { return m_next >= m_end; }
    size_t Position() const { return m_next; }
    // Moves on to the next line and gives its width; `last` is the line that may end in an ellipsis.
    int64_t NextWidth(bool last);

private:
    // One character that shows, where it comes from and where it ends.
    struct Unit
    {
        wchar_t c;
        size_t source;
        int64_t right;
    };

    size_t Collect();
    bool TakesPrefix(size_t at) const;
    void AddUnit(wchar_t c, size_t source);
    bool Breaks() const { return (m_format & (DT_SINGLELINE | DT_WORDBREAK)) == DT_WORDBREAK; }
    size_t Fitting() const;
    size_t BreakLine(size_t fitting, size_t& used) const;
    size_t PastBreak(size_t at) const;
    int64_t WidthOf(size_t units) const { return units == 0 ? 0 : m_units[units - 1].right; }
    bool IsSpace(size_t unit) const { return unit < m_units.size() && m_units[unit].c == L' '; }
    int64_t Ellipsified(int64_t width) const;

    LPCWSTR m_text;
    size_t m_end;
    size_t m_next = 0;
    UINT m_format;
    int64_t m_limit;
    int m_advance;
    int64_t m_tab;
    std::vector<Unit> m_units; // up to the next hard break
};

int64_t TextLines::NextWidth(bool last)
{
    const size_t end = Collect();
    size_t shown = m_units.size();
    size_t used = shown;
    if (Breaks() && WidthOf(shown) > m_limit) {
        shown = BreakLine(Fitting(), used);
    }
    m_next = used < m_units.size() ? m_units[used].source : PastBreak(end);
    const int64_t width = WidthOf(shown);
    return last && (m_format & ELLIPSIS) ? Ellipsified(width) : width;
}

// Gathers the characters up to the next hard break and returns where that is.
size_t TextLines::Collect()
{
    m_units.clear();
    size_t at = m_next;
    for (; at < m_end && ((m_format & DT_SINGLELINE) || !IsBreak(m_text[at])); ++at) {
        const size_t source = at;
        if (TakesPrefix(at)) {
            ++at;
        }
        AddUnit(m_text[at], source);
    }
    return at;
}

// An ampersand stands for the character behind it; the last one of a text for itself.
bool TextLines::TakesPrefix(size_t at) const
{
    return m_text[at] == L'&' && !(m_format & DT_NOPREFIX) && at + 1 < m_end;
}

void TextLines::AddUnit(wchar_t c, size_t source)
{
    const int64_t left = WidthOf(m_units.size());
    const bool tab = c == L'\t' && (m_format & DT_EXPANDTABS);
    m_units.push_back({c, source, tab ? (left / m_tab + 1) * m_tab : left + m_advance});
}

size_t TextLines::Fitting() const
{
    const auto first = std::find_if(m_units.begin(), m_units.end(),
                                    [this](const Unit& unit) { return unit.right > m_limit; });
    return static_cast<size_t>(first - m_units.begin());
}

// Breaks a line of which `fitting` characters fit; returns how many it shows and sets how many it uses up.
// The space at which a line is broken stays on it if it fits there and the text is set to the left.
size_t TextLines::BreakLine(size_t fitting, size_t& used) const
{
    size_t at = fitting;
    while (at > 0 && !IsSpace(at)) {
        --at;
    }
    if (IsSpace(at) && fitting > 0) {
        const bool keepsSpace = at < fitting && !(m_format & (DT_RIGHT | DT_CENTER));
        const size_t shown = keepsSpace ? at + 1 : at;
        used = IsSpace(shown) ? shown + 1 : shown;
        return shown;
    }
    if ((m_format & (DT_EDITCONTROL | ELLIPSIS)) == DT_EDITCONTROL) {
        return used = std::max<size_t>(fitting, 1);
    }
    // A word too wide for a line of its own is not broken.
    for (at = fitting; at < m_units.size() && !IsSpace(at);) {
        ++at;
    }
    used = IsSpace(at) ? at + 1 : at;
    return at;
}

// A carriage return and a line feed are one break, in either order.
size_t TextLines::PastBreak(size_t at) const
{
    if (at >= m_end) {
        return m_end;
    }
    const bool pair = at + 1 < m_end && IsBreak(m_text[at + 1]) && m_text[at + 1] != m_text[at];
    return at + (pair ? 2 : 1);
}

int64_t TextLines::Ellipsified(int64_t width) const
{
    if (width <= m_limit) {
        return width;
    }
    const int64_t dots = int64_t{3} * m_advance;
    int64_t kept = m_advance;
    for (const Unit& unit : m_units) {
        if (unit.right + dots <= m_limit) {
            kept = unit.right;
        }
    }
    return kept + dots;
}

int64_t TabWidth(UINT format, const DRAWTEXTPARAMS* params, int advance)
{
    constexpr int64_t DEFAULT_STOP = 8;
    return (format & DT_TABSTOP && params && params->iTabLength > 0 ? params->iTabLength : DEFAULT_STOP) *
           advance;
}

struct Measured
{
    int64_t width;
    int64_t height;
    size_t length;
};

// Without DT_NOCLIP and DT_CALCRECT the lines below the rectangle are left out.
Measured MeasureLines(TextLines& lines, UINT format, int64_t room, int lineHeight)
{
    const bool all = (format & (DT_NOCLIP | DT_CALCRECT)) != 0;
    const int need = format & DT_EDITCONTROL ? 2 * lineHeight - 1 : lineHeight;
    Measured measured{0, 0, 0};
    bool last = false;
    while (!last && !(lines.AtEnd() && measured.height > 0)) {
        last = !all && measured.height + need > room;
        measured.width = std::max(measured.width, lines.NextWidth(last || (format & DT_SINGLELINE)));
        measured.height += lineHeight;
    }
    measured.length = lines.Position();
    return measured;
}

// The distance of the text's end from the rectangle's top, which is what DrawTextW returns.
int64_t EndOf(const Measured& measured, UINT format, int64_t room)
{
    if (format & DT_SINGLELINE && format & DT_VCENTER) {
        return (room - measured.height) / 2 + measured.height;
    }
    return format & DT_SINGLELINE && format & DT_BOTTOM ? room : measured.height;
}

int DrawEmpty(LPRECT rect, UINT format, int lineHeight)
{
    if (format & DT_CALCRECT) {
        rect->right = rect->left;
        rect->bottom = Wrapped(int64_t{rect->top} + (format & DT_SINGLELINE ? lineHeight : 0));
    }
    return lineHeight;
}

int DrawLines(HDC hdc, LPCWSTR text, int count, LPRECT rect, UINT format, LPDRAWTEXTPARAMS params)
try {
    const bool valid = text && rect && (!params || params->cbSize == sizeof(DRAWTEXTPARAMS));
    if (!valid || !FindContext(hdc)) {
        return 0;
    }
    const FontMetrics font = MeasureSelectedFont(hdc);
    const size_t length = count < 0 ? wcslen(text) : static_cast<size_t>(count);
    if (length == 0) {
        return DrawEmpty(rect, format, font.height);
    }
    const int64_t margins = params ? int64_t{params->iLeftMargin} + params->iRightMargin : 0;
    TextLines lines(text, length, format, int64_t{rect->right} - rect->left - margins, font.width,
                    TabWidth(format, params, font.width));
    const int64_t room = int64_t{rect->bottom} - rect->top;
    const Measured measured = MeasureLines(lines, format, room, font.height);
    if (params) {
        params->uiLengthDrawn = static_cast<UINT>(measured.length);
    }
    if (!(format & DT_CALCRECT)) {
        Line(hdc, "DrawTextW").Text(text, count).Put(*rect).Hex(format).TextState();
        return Saturated(EndOf(measured, format, room));
    }
    rect->right = Wrapped(rect->left + measured.width + margins);
    rect->bottom = Wrapped(rect->top + measured.height);
    return Saturated(measured.height);
} catch (const std::bad_alloc&) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return 0;
}

} // namespace

INT WINAPI DrawTextExW(HDC hdc, LPWSTR text, INT count, LPRECT rect, UINT format, LPDRAWTEXTPARAMS params)
{
    return DrawLines(hdc, text, count, rect, format, params);
}

INT WINAPI DrawTextW(HDC hdc, LPCWSTR text, INT count, LPRECT rect, UINT format)
{
    if (FaultFires("DrawTextW")) {
        return 0;
    }
    // With DT_TABSTOP the second byte is the distance of the stops, and no flags.
    constexpr UINT STOP_MASK = 0xFF00;
    DRAWTEXTPARAMS params{};
    params.cbSize = sizeof(params);
    if (format & DT_TABSTOP) {
        params.iTabLength = static_cast<int>((format & STOP_MASK) >> 8);
        format &= ~STOP_MASK;
    }
    return DrawLines(hdc, text, count, rect, format, &params);
}
