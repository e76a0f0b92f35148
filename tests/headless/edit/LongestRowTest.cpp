#include "ModelSupport.h"

#include <gesso/edit/LongestRow.h>

#include <random>

namespace {

using namespace test;
using gesso::EditKind;
using gesso::EditModel;

class Follower final : public gesso::TextListener
{
public:
    void OnTextChange(const gesso::TextChange& change) override { longest.Follow(model.Rows(), change); }

    EditModel model{*this};
    gesso::LongestRow longest;
};

TEST(LongestRow, IsTheOneThatALookAtAllRowsFinds)
{
    static const Characters PARTS[] = {CharactersOf("x"),
                                       CharactersOf("/"),
                                       CharactersOf("longer"),
                                       CharactersOf(""),
                                       CharactersOf("a/bbbbbbbbbbbb/c"),
                                       CharactersOf("//")};
    std::minstd_rand random(3);
    const auto below = [&](UINT n) { return static_cast<UINT>(random() % n); };
    Follower follower;
    EditModel& model = follower.model;
    for (int i = 0; i < 20000; ++i) {
        const UINT nFrom = below(model.Length() + 1);
        const UINT nTo = std::min(model.Length(), nFrom + below(model.Length() > 200 ? 60 : 4));
        const Characters& part = PARTS[below(std::size(PARTS))];
        if (below(8) == 0) {
            model.Undo();
        } else {
            ASSERT_TRUE(
                model.Replace({nFrom, nTo}, part.data(), static_cast<UINT>(part.size()), EditKind::Step, 0));
        }
        if (below(3) > 0) {
            const gesso::RowTable& rows = model.Rows();
            UINT nMost = 0;
            for (UINT nRow = 0; nRow < rows.Count(); ++nRow) {
                nMost = std::max(nMost, rows.Length(nRow));
            }
            ASSERT_EQ(rows.Length(follower.longest.Find(rows)), nMost) << "after edit " << i;
        }
    }
}

} // namespace
