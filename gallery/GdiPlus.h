// GDI+'s header, with what it expects to find before it.
#pragma once

#include <gesso/api.h>

#include <objidl.h>

#include <algorithm>

namespace Gdiplus {
using std::max;
using std::min;
} // namespace Gdiplus

#include <gdiplus.h>
