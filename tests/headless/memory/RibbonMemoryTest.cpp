// Ribbons, menus and dialogs to which memory for their texts is refused.
#include "../../ribbon/RibbonTestSupport.h"
#include "../../support/TestStrings.h"
#include "../controls/DrawFixture.h"
#include "LongText.h"

#include <gesso/dialogs/GTaskDialog.h>
#include <gesso/dialogs/GWizard.h>
#include <gesso/ribbon/GRightClickMenu.h>

#include <functional>

using test::LongText;
using test::MemoryLimit;

namespace {

class RibbonMemoryTest : public test::DrawFixture
{};
class DialogMemoryTest : public test::DrawFixture
{};

struct LongWizard : GWizard
{
    explicit LongWizard(const GWIZARDCONFIG& config) { m_pConfig = &config; }
};

GRibbonPage::ItemInfo Button(LPCWSTR pszText, const UINT* puOptions, int nOptions)
{
    GRibbonPage::ItemInfo info{};
    info.uType = RIT_BUTTON;
    info.nId = 12;
    info.nOptions = nOptions;
    info.puOptions = puOptions;
    info.nImage = 3;
    info.pszText = pszText;
    return info;
}

} // namespace

TEST_F(RibbonMemoryTest, WhatIsRefusedIsNotInsertedAndLeavesWhatWasThere)
{
    const LongText text;
    const std::vector<UINT> options(LongText::LENGTH, UINT{RIS_LARGE} << 16);
    std::vector<HWND> windows(LongText::LENGTH);
    auto longText = Button(text, options.data(), 1);
    auto longOptions = Button(L"Other", options.data(), static_cast<int>(options.size()));
    GRibbon ribbon;
    auto* pPage = new test::ribbon::OpenPage(1, L"Page");
    ribbon.AddPage(pPage, 0, nullptr);
    const HWND hwnd = test::ribbon::CreateRibbon(ribbon, Parent());
    pPage->InsertGroup(0, 1, L"Group", 0);
    test::ribbon::InsertButton(*pPage, 1, 10, RIS_LARGE, L"Button", 0);
    const auto& items = pPage->m_aGroups[0].aItems;
    const std::function<void()> actions[] = {
        [&] { pPage->SetGroupName(1, text); },
        [&] { pPage->InsertItem(1, 0, &longText); },
        [&] { pPage->InsertItem(1, 0, &longOptions); },
        [&] { pPage->SetItemInfo(1, 10, &longText); },
        [&] { pPage->SetItemInfo(1, 10, &longOptions); },
        [&] { ribbon.RenamePage(pPage, text); },
        [&] { pPage->SetTitle(text); },
    };
    {
        const MemoryLimit limit;
        EXPECT_EQ(pPage->InsertGroup(0, 2, text, 0), 0);
        EXPECT_EQ(ribbon.AddPage(nullptr, 7, text), RIBBON_NONE);
        for (const auto& act : actions) {
            const size_t nRefused = limit.Refused();
            act();
            EXPECT_EQ(limit.Refused(), nRefused + 1);
        }
        pPage->AddWindow(1, windows.data(), LongText::LENGTH);
        ASSERT_EQ(items.GetLength(), 1u);
        EXPECT_EQ(items[0].nId, 10u);
        EXPECT_EQ(test::Narrow(items[0].pszText), "Button");
        EXPECT_EQ(items[0].nImage, 0);
        EXPECT_EQ(test::Narrow(pPage->m_aGroups[0].strTitle), "Group");
        EXPECT_EQ(pPage->m_aGroups.GetLength(), 1u);
        InvalidateRect(hwnd, nullptr, FALSE);
        UpdateWindow(hwnd);
    }
    pPage->SetItemInfo(1, 10, &longOptions);
    EXPECT_EQ(test::Narrow(items[0].pszText), "Other");
    EXPECT_EQ(pPage->InsertGroup(0, 2, text, 0), 1);
    EXPECT_EQ(ribbon.AddPage(nullptr, 7, text), 1u);
    EXPECT_EQ(test::Narrow(pPage->m_aGroups[0].strTitle), test::Narrow(text));
    InvalidateRect(hwnd, nullptr, FALSE);
    UpdateWindow(hwnd);
    DestroyWindow(hwnd);
}

TEST_F(RibbonMemoryTest, AMenuHasNoRowForAValueThatIsRefused)
{
    const LongText text;
    GRightClickMenu menu;
    menu.AddValue(L"Before");
    {
        const MemoryLimit limit;
        menu.AddValue(text);
        menu.SetValue(0, text);
        EXPECT_EQ(limit.Refused(), 2u);
        EXPECT_EQ(menu.GetValueCount(), 1u);
        EXPECT_EQ(test::Narrow(menu.GetValue(0)), "Before");
    }
    menu.AddValue(text);
    EXPECT_EQ(test::Narrow(menu.GetValue(1)), test::Narrow(text));
}

TEST_F(DialogMemoryTest, ADialogWhoseTextsAreRefusedDoesNotRun)
{
    const LongText text;
    GWIZARDCONFIG config{};
    config.pszTitle = text;
    LongWizard wizard(config);
    const MemoryLimit limit;
    UINT uButton = 7;
    const auto run = [&](LPCWSTR pszTitle, LPCWSTR pszInstruction, LPCWSTR pszContent) {
        return GTaskDialog::IsolationAwareTaskDialog(Parent(), nullptr, pszTitle, pszInstruction, pszContent,
                                                     TDCBF_OK_BUTTON, nullptr, &uButton);
    };
    EXPECT_EQ(run(text, nullptr, nullptr), E_FAIL);
    EXPECT_EQ(run(nullptr, text, nullptr), E_FAIL);
    EXPECT_EQ(run(nullptr, nullptr, text), E_FAIL);
    EXPECT_EQ(uButton, UINT(-1));
    EXPECT_EQ(GTaskDialog::MessageBoxW(Parent(), text, L"Caption", MB_OK), UINT(-1));
    EXPECT_EQ(wizard.DoModal(Parent(), nullptr), -1);
    EXPECT_EQ(limit.Refused(), 5u);
    EXPECT_FALSE(SetWindowTextW(Parent(), text)) << "as a certificate dialog does with its caption";
}
