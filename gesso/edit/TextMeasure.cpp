#include <gesso/edit/FieldText.h>
#include <gesso/edit/TextMeasure.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr UINT MEASURE_TEXT = DT_CALCRECT | DT_NOPREFIX;

// More characters than a line on the screen has, so that a longer one is not measured whole.
constexpr UINT CHUNK = 512;

} // namespace

TextMeasure::Piece TextMeasure::Shown(LPCWSTR psz, UINT nCount) const
{
    if (!m_fMasked) {
        return {psz, nCount};
    }
    const UINT nFormer = m_marks.GetLength();
    if (nFormer < nCount && m_marks.SetLength(nCount, -1)) {
        std::fill(m_marks.begin() + nFormer, m_marks.end(), PASSWORD_MARK);
    }
    return {m_marks.GetData(), std::min(nCount, m_marks.GetLength())};
}

int TextMeasure::Width(LPCWSTR psz, UINT nCount) const
{
    const Piece shown = Shown(psz, nCount);
    return shown.nCount > 0 ? MeasureField(m_hdc, shown.psz, shown.nCount).cx : 0;
}

SIZE TextMeasure::Extent(LPCWSTR psz, UINT nCount) const
{
    const Piece shown = Shown(psz, nCount);
    return shown.nCount > 0 ? MeasureField(m_hdc, shown.psz, shown.nCount, MEASURE_TEXT)
                            : SIZE{0, GlyphHeight()};
}

int TextMeasure::LineHeight() const
{
    return MeasureField(m_hdc, L"a", 1).cy;
}

int TextMeasure::GlyphHeight() const
{
    return MeasureField(m_hdc, L"a", 1, MEASURE_TEXT).cy;
}

// Whether the start of a long line alone is too wide already.
bool TextMeasure::Overflows(LPCWSTR psz, UINT nCount, int nLimit) const
{
    for (UINT nChunk = CHUNK; nChunk < nCount; nChunk *= 2) {
        if (Width(psz, nChunk) > nLimit) {
            return true;
        }
    }
    return false;
}

int TextMeasure::CompareWidth(LPCWSTR psz, UINT nCount, int nLimit) const
{
    return Overflows(psz, nCount, nLimit) ? 1 : Width(psz, nCount) - nLimit;
}

UINT TextMeasure::CountFitting(LPCWSTR psz, UINT nCount, int nLimit) const
{
    for (UINT nChunk = CHUNK;; nChunk *= 2) {
        const UINT nTried = std::min(nChunk, nCount);
        const Piece shown = Shown(psz, nTried);
        int nFitting = 0;
        SIZE size{};
        if (!GetTextExtentExPointW(m_hdc, shown.psz, static_cast<int>(shown.nCount), nLimit, &nFitting,
                                   nullptr, &size))
        {
            return nCount; // none would be pushed from line to line without an end
        }
        if (static_cast<UINT>(nFitting) < nTried || nTried == nCount) {
            return static_cast<UINT>(nFitting);
        }
    }
}

UINT TextMeasure::CountBefore(LPCWSTR psz, UINT nCount, int x) const
{
    UINT nBefore = 0;
    while (nBefore < nCount) {
        const UINT nMiddle = nBefore + (nCount - nBefore) / 2;
        if (Extent(psz, nMiddle + 1).cx >= x) {
            nCount = nMiddle;
        } else {
            nBefore = nMiddle + 1;
        }
    }
    return nBefore;
}

TEXTMETRICW WindowMeasure::FontMetric() const
{
    TEXTMETRICW metric{};
    GetTextMetricsW(m_hdc, &metric);
    return metric;
}

void CreateTextCaret(HWND hwnd, HFONT hFont)
{
    const TEXTMETRICW metric = WindowMeasure(hwnd, hFont, false).FontMetric();
    CreateCaret(hwnd, nullptr, 0, metric.tmAscent + metric.tmDescent);
}

} // namespace gesso
