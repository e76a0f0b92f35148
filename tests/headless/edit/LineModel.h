// A text of lines without a window, in a font of even columns.
#pragma once

#include <gesso/edit/TextField.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace test {

// Characters are two pixels wide, so that a field may be exactly as wide as a line or have a pixel more.
class Columns final : public gesso::LineMeasure
{
public:
    explicit Columns(UINT nColumns, int nMore = 1) : m_cx(2 * static_cast<int>(nColumns) + nMore) {}

    int Width() const override { return m_cx; }
    int Compare(LPCWSTR, UINT nLength) const override
    {
        ++nMeasured;
        return 2 * static_cast<int>(nLength) - m_cx;
    }
    UINT CountFitting(LPCWSTR, UINT nLength) const override
    {
        return std::min(nLength, static_cast<UINT>(m_cx) / 2);
    }

    mutable int nMeasured = 0;

private:
    int m_cx;
};

struct LineModel
{
    explicit LineModel(LPCWSTR psz = L"") { lines.Replace(gesso::LineText(psz)); }
    LineModel(LPCWSTR psz, const Columns& columns) : LineModel(psz) { lines.WrapAll(columns, {}); }
    LineModel(const LineModel&) = delete;
    LineModel& operator=(const LineModel&) = delete;

    // A bar behind each line and a slash for each line end: "aaaa |bb/|c|".
    std::string Shown() const
    {
        EXPECT_TRUE(lines.Check());
        std::string shown;
        UINT nOffset = 0;
        for (UINT i = 0; i < lines.Count(); ++i) {
            for (UINT n = 0; n < lines.Length(i); ++n) {
                shown += static_cast<char>(lines.CharAt(nOffset + n));
            }
            const UINT nWhole = lines.LengthWithBreak(i, nOffset);
            shown += nWhole > lines.Length(i) ? "/|" : "|";
            nOffset += nWhole;
        }
        return shown;
    }

    OStringEx<wchar_t> text;
    gesso::LineTable table;
    gesso::EditLines lines{text, table};
};

inline std::string Shown(const gesso::Place& place)
{
    return std::to_string(place.nLine) + "," + std::to_string(place.nChar);
}

} // namespace test
