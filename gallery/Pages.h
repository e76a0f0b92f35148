// The gallery's pages. A new one is a source file of its own and a line in each of the two lists.
#pragma once

#include <gallery/EditorRibbon.h>
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
std::unique_ptr<Page> MakeExplorerPage();

struct PageEntry
{
    LPCWSTR pszFamily; // a heading above it in the list of pages, or null
    LPCWSTR pszName;
    UINT image;
    std::unique_ptr<Page> (*make)();
};

// clang-format off
inline constexpr PageEntry PAGES[] = {
    {L"Basics", L"Labels", IMAGE_LABEL, &MakeLabelsPage},
    {nullptr, L"Buttons", IMAGE_BUTTON, &MakeButtonsPage},
    {nullptr, L"Choices", IMAGE_CHECK_BOX, &MakeChoicesPage},
    {nullptr, L"Text", IMAGE_TEXT, &MakeTextPage},
    {nullptr, L"Entry", IMAGE_ENTRY, &MakeEntryPage},
    {L"Views", L"List", IMAGE_LIST, &MakeListPage},
    {nullptr, L"Trees", IMAGE_TREE, &MakeTreesPage},
    {L"Windows", L"Ribbon", IMAGE_RIBBON, &MakeRibbonPage},
    {nullptr, L"Dialogs", IMAGE_DIALOG, &MakeDialogsPage},
    {L"A program", L"Explorer", IMAGE_EXPLORER, &MakeExplorerPage},
};
// clang-format on
inline constexpr int PAGE_COUNT = static_cast<int>(std::size(PAGES));

} // namespace gallery
