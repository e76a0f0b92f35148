#include "TreeFixture.h"

namespace test {

Lines Expansion(int row, int action, int keys)
{
    const std::string rest = " row " + std::to_string(row) + " action " + std::to_string(action) +
                             " at -1,0 keys " + std::to_string(keys);
    return {std::to_string(EXPANDING) + rest, std::to_string(EXPANDED) + rest};
}

} // namespace test
