// Any edits, keys, clicks, sizes and styles of an edit field, as the monkey of the tests does and checks
// them.

#include "../tests/headless/edit/EditMonkey.h"

#include <gesso/containers/Misuse.h>
#include <platform/headless/headless.h>

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    gesso::headless::Reset();
    InitControls();
    const HWND hwndHost = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                          nullptr, nullptr, nullptr);
    FuzzedDataProvider input(pData, nSize);
    {
        test::EditMonkey monkey(hwndHost,
                                [&](unsigned n) { return input.ConsumeIntegralInRange(0u, n - 1); });
        while (input.remaining_bytes() > 0) {
            const std::string fault = monkey.Step();
            if (!fault.empty()) {
                std::fprintf(stderr, "%s\n", fault.c_str());
                std::abort();
            }
        }
    }
    DestroyWindow(hwndHost);
    return 0;
}
