// A text model for tests, and what it should be, plainly.
#pragma once

#include "PlainModel.h"

#include <gesso/edit/EditModel.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace test {

// A slash stands for a line end.
inline Characters CharactersOf(const std::string& text)
{
    Characters wide;
    for (const char c : text) {
        if (c == '/') {
            wide.push_back(L'\r');
        }
        wide.push_back(c == '/' ? L'\n' : static_cast<wchar_t>(c));
    }
    return wide;
}

inline Characters TextOf(const gesso::EditModel& model)
{
    Characters text(model.Length());
    model.Text().Copy({0, model.Length()}, text.data());
    return text;
}

inline std::vector<UINT> StartsOf(const gesso::RowTable& rows)
{
    std::vector<UINT> starts;
    for (UINT i = 0; i <= rows.Count(); ++i) {
        starts.push_back(rows.Start(i));
    }
    return starts;
}

// Follows the text and its rows by what it is told, and looks whether only the paragraphs concerned went.
class PlainListener final : public gesso::TextListener
{
public:
    void OnTextChange(const gesso::TextChange& change) override
    {
        if (!pModel) {
            return;
        }
        ++nTold;
        const Characters now = TextOf(*pModel);
        const auto from = text.begin() + change.nFrom;
        text.insert(text.erase(from, from + change.nRemoved), now.begin() + change.nFrom,
                    now.begin() + change.nFrom + change.nInserted);
        FollowRows(change);
        EXPECT_EQ(CountLineEnds(starts[change.nRow], change.nFrom), 0);
        const UINT nBehind = starts[change.nRow + change.nRowsInserted];
        EXPECT_LE(CountLineEnds(change.nFrom + change.nInserted, nBehind), 1);
        for (UINT i = 1; i < change.nRowsInserted; ++i) {
            EXPECT_EQ(text[starts[change.nRow + i] - 1], L'\n') << "wrapped";
        }
    }

    gesso::EditModel* pModel = nullptr; // null for one that is not followed
    Characters text;
    std::vector<UINT> starts{0, 0}; // with the text's end
    int nTold = 0;

private:
    std::ptrdiff_t CountLineEnds(UINT nFrom, UINT nTo) const
    {
        return std::count(text.begin() + nFrom, text.begin() + nTo, L'\n');
    }
    void FollowRows(const gesso::TextChange& change)
    {
        const auto first = starts.begin() + change.nRow;
        for (auto p = first + change.nRowsRemoved; p != starts.end(); ++p) {
            *p += change.nInserted - change.nRemoved;
        }
        const auto place = starts.erase(first, first + change.nRowsRemoved);
        std::vector<UINT> come;
        for (UINT i = 0; i < change.nRowsInserted; ++i) {
            come.push_back(pModel->Rows().Start(change.nRow + i));
        }
        starts.insert(place, come.begin(), come.end());
    }
};

} // namespace test
