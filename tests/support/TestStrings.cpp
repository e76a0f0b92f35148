#include "TestStrings.h"

#if defined(_WIN32)

// They stand in tests.rc.
HINSTANCE TestStrings()
{
    return GetModuleHandleW(nullptr);
}

#else

#include <gesso/platform/headless/headless.h>

HINSTANCE TestStrings()
{
    using namespace gesso::headless;
    using namespace std::string_view_literals;
    AddString(HostModule(), TEST_STRING_FIRST, "first");
    AddString(HostModule(), TEST_STRING_ZERO, "ends in zero\0"sv);
    AddString(HostModule(), TEST_STRING_LAST, "last");
    return HostModule();
}

#endif
