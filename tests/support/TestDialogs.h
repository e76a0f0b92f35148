// Dialog templates in the test program's own resources, of the type that dialogs are looked up under.
#pragma once

#include <platform/platform.h>

// Child dialogs of 180 x 90 units, without a font of their own.
constexpr WORD TEST_PAGE = 500;
constexpr WORD TEST_FIELD_PAGE = 501; // with a check box
constexpr int TEST_FIELD = 900;       // its id
constexpr WORD TEST_NO_PAGE = 502;    // is not there

// The module that has them.
HINSTANCE TestDialogs();
