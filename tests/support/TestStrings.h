// String resources of the test program, the same on both platforms.
#pragma once

#include <platform/platform.h>

constexpr UINT TEST_STRING_FIRST = 0x40; // "first"
constexpr UINT TEST_STRING_EMPTY = 0x41; // of no characters
constexpr UINT TEST_STRING_ZERO = 0x42;  // "ends in zero", with a zero as its last character
constexpr UINT TEST_STRING_LAST = 0x4F;  // "last", the last entry of its table

// The module that has them.
HINSTANCE TestStrings();
