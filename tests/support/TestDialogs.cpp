#include "TestDialogs.h"

#if defined(_WIN32)

// They stand in tests.rc.
HINSTANCE TestDialogs()
{
    return GetModuleHandleW(nullptr);
}

#else

#include "DialogTemplate.h"

#include <gesso/platform/headless/headless.h>

HINSTANCE TestDialogs()
{
    using namespace gesso::headless;
    test::DialogTemplate page(WS_CHILD | DS_CONTROL, 180, 90);
    AddResource(HostModule(), L"RT_DLG", MAKEINTRESOURCEW(TEST_PAGE), page.Bytes());
    page.Add(L"GCheckBox", TEST_FIELD, WS_TABSTOP, 5, 5, 60, 14, L"Field");
    AddResource(HostModule(), L"RT_DLG", MAKEINTRESOURCEW(TEST_FIELD_PAGE), page.Bytes());
    return HostModule();
}

#endif
