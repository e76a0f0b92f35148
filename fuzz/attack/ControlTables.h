// The operations of each class of controls beyond those that all have, and what must hold of an object. A new
// class declares its own here and defines them in a source of this folder.
#pragma once

#include "World.h"

#include <gesso/edit/GComboBoxList.h>
#include <gesso/gesso.h>

namespace attack {

// A class of tests/support/AllControls.h without operations does not build.
template <class CONTROL> void AddOperations(Table& table) = delete;

template <> void AddOperations<GLabel>(Table& table);
template <> void AddOperations<GButton>(Table& table);
template <> void AddOperations<GCheckBox>(Table& table);
template <> void AddOperations<GRadioButton>(Table& table);
template <> void AddOperations<GCommandButton>(Table& table);
template <> void AddOperations<GNavigationButton>(Table& table);
template <> void AddOperations<GProgressBar>(Table& table);
template <> void AddOperations<GSeparator>(Table& table);
template <> void AddOperations<GScrollbar>(Table& table);
template <> void AddOperations<GEdit>(Table& table);
template <> void AddOperations<GComboBox>(Table& table);
template <> void AddOperations<GList>(Table& table);
template <> void AddOperations<GTree>(Table& table);
template <> void AddOperations<GNavigationBar>(Table& table);
template <> void AddOperations<GRibbon>(Table& table);
template <> void AddOperations<GRightClickMenu>(Table& table);

// What does not hold of an object; empty where all does.
inline std::string CheckObject(const GWnd&)
{
    return {};
}
#if !defined(_WIN32) // whose DLL keeps the checks to itself
std::string CheckObject(const GList& list);
std::string CheckObject(const GEdit& edit);
std::string CheckObject(const GComboBox& combo);
std::string CheckObject(GTree& tree);
std::string CheckObject(GNavigationBar& bar);
#endif

} // namespace attack
