// What holds of every test: none leaves a fault that never fired.
#include "Faults.h"

namespace test {
namespace {

class Listener : public testing::EmptyTestEventListener
{
    void OnTestEnd(const testing::TestInfo&) override { EndFaults(); }
};

const bool LISTENING = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Listener);
    return true;
}();

} // namespace
} // namespace test
