// What start-up and the factory know of the controls. The table stands above all controls, in
// gesso/ControlTable.cpp, so that the framework needs to know none of them.
#pragma once

#include <gesso/framework/GWnd.h>

#include <span>

namespace gesso {

using RegisterClassFunction = ATOM (*)();
using MakeControlFunction = GWnd* (*)();

// The classes that InitControls registers, in this order.
std::span<const RegisterClassFunction> StartupClasses();

// The constructors of CreateControl's kinds; kind n stands at n - 1.
std::span<const MakeControlFunction> ControlKinds();

} // namespace gesso
