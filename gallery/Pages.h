// The gallery's pages. A new one is a source file of its own and a line in each of the two lists.
#pragma once

#include <gallery/Page.h>

#include <memory>

namespace gallery {

std::unique_ptr<Page> MakeLabelsPage();
std::unique_ptr<Page> MakeButtonsPage();
std::unique_ptr<Page> MakeChoicesPage();
std::unique_ptr<Page> MakeTextPage();
std::unique_ptr<Page> MakeEntryPage();
std::unique_ptr<Page> MakeListPage();
std::unique_ptr<Page> MakeTreesPage();
std::unique_ptr<Page> MakeRibbonPage();
std::unique_ptr<Page> MakeDialogsPage();

struct PageEntry
{
    LPCWSTR pszName;
    std::unique_ptr<Page> (*make)();
};

// clang-format off
inline constexpr PageEntry PAGES[] = {
    {L"Labels", &MakeLabelsPage},
    {L"Buttons", &MakeButtonsPage},
    {L"Choices", &MakeChoicesPage},
    {L"Text", &MakeTextPage},
    {L"Entry", &MakeEntryPage},
    {L"List", &MakeListPage},
    {L"Trees", &MakeTreesPage},
    {L"Ribbon", &MakeRibbonPage},
    {L"Dialogs", &MakeDialogsPage},
};
// clang-format on
inline constexpr int PAGE_COUNT = static_cast<int>(std::size(PAGES));

} // namespace gallery
