// All that the attack knows: a line a class.
#pragma once

#include "World.h"

#include <memory>
#include <string_view>

namespace attack {

struct AttackedClass
{
    std::string_view name;
    std::unique_ptr<World> (*make)(Source&);
};

const std::vector<AttackedClass>& Classes();

} // namespace attack
