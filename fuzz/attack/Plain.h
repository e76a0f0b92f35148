// Operations of what has no window, and the line by which such a class joins.
#pragma once

#include "Call.h"
#include "Classes.h"

namespace attack {

// Of a world that is its own object.
template <class WORLD, class ACT> Operation Plain(const char* pszName, ACT act)
{
    return {pszName, [act](World& world, Source& source) { act(static_cast<WORLD&>(world), source); }};
}

template <class WORLD> AttackedClass OfWorld(std::string_view name)
{
    return {name, [](Source& source) -> std::unique_ptr<World> { return std::make_unique<WORLD>(source); }};
}

void AddContainers(std::vector<AttackedClass>& classes);
void AddTexts(std::vector<AttackedClass>& classes);
void AddDialogs(std::vector<AttackedClass>& classes);
void AddBases(std::vector<AttackedClass>& classes);
void AddHostBases(std::vector<AttackedClass>& classes);
void AddFields(std::vector<AttackedClass>& classes);

} // namespace attack
