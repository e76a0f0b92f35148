// A monkey at the edit field.

#include "EditMonkey.h"

#include "../controls/DrawFixture.h"

#include <random>

namespace {

using namespace test;

class EditMonkeyTest : public DrawFixture, public testing::WithParamInterface<unsigned>
{};

TEST_P(EditMonkeyTest, LinesAddUpAndTheTextIsWhatWasTyped)
{
    std::mt19937 random(GetParam());
    EditMonkey monkey(Parent(), [&](unsigned n) { return static_cast<unsigned>(random() % n); });
    for (int i = 0; i < 1500; ++i) {
        const std::string fault = monkey.Step();
        ASSERT_EQ(fault, "") << "step " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditMonkeyTest, testing::Range(0u, 12u));

} // namespace
