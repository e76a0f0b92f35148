// A wizard of four pages, the second of which lets the user go only when its box is ticked.
#pragma once

#include <gesso/gesso.h>

#include <array>
#include <memory>

namespace gallery {

class DemoWizard : public GWizard
{
public:
    static constexpr UINT PAGE_COUNT = 4;

    // With the first so many of the pages.
    explicit DemoWizard(UINT nPages);
    ~DemoWizard() override;

private:
    class DemoPage;

    static INT_PTR CALLBACK PageProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

    std::array<std::unique_ptr<DemoPage>, PAGE_COUNT> m_demoPages;
    std::array<stcPage, PAGE_COUNT> m_records{};
};

} // namespace gallery
