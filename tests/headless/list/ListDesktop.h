// A list on a fresh desktop; at the end nothing may be left of what the test made.
#pragma once

#include "../../list/ListFixture.h"
#include "../FreshDesktop.h"

namespace test {

class ListDesktop : private FreshDesktop, public ListFixture
{};

} // namespace test
