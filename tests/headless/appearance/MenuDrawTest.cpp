// Which menu of commands there is in which scheme, and how the one that the library draws looks.

#include "../../support/Host.h"
#include "StandsOut.h"

#include <gesso/framework/CommandMenu.h>
#include <gesso/framework/Direction.h>

namespace {

using namespace test;
using gesso::ColorRole;
using gesso::ColorScheme;

constexpr gesso::CommandEntry ENTRIES[] = {
    {7, L"&Undo", true}, {8, L"&Redo", false}, {0, nullptr, false}, {9, L"&Under", true}};

class MenuDrawTest : public testing::Test
{
protected:
    ~MenuDrawTest() override
    {
        gesso::SetColorScheme(ColorScheme::Light);
        gesso::SetScaling(gesso::Scaling::None);
    }

    // The command, with what the user does with the library's menu, one after the other.
    template <class... ACTS> static UINT Run(HWND hwndOwner, bool fByKey, ACTS... acts)
    {
        SetFocus(hwndOwner); // without one, keys are the system's
        (desk::WhenIdle([=] { acts(Menu()); }), ...);
        return gesso::RunCommandMenu(hwndOwner, {100, 50}, ENTRIES, fByKey);
    }
    static void Escape(HWND) { desk::TypeKey(VK_ESCAPE); }
    static HWND Menu()
    {
        HWND hwnd = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), TakeMenu, reinterpret_cast<LPARAM>(&hwnd));
        return hwnd;
    }
    static BOOL CALLBACK TakeMenu(HWND hwnd, LPARAM lResult)
    {
        wchar_t szClass[32]{};
        GetClassNameW(hwnd, szClass, 32);
        const bool fMenu = Narrow(szClass) == "GCommandMenu";
        if (fMenu) {
            *reinterpret_cast<HWND*>(lResult) = hwnd;
        }
        return !fMenu;
    }
    static SIZE SizeOf(HWND hwnd)
    {
        RECT rc{};
        GetWindowRect(hwnd, &rc);
        return {rc.right - rc.left, rc.bottom - rc.top};
    }

private:
    FreshDesktop m_desktop;
};

} // namespace

TEST_F(MenuDrawTest, ThePlatformsMenuIsThereButInDark)
{
    const Ground ground;
    for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Contrast}) {
        gesso::SetColorScheme(scheme);
        desk::ChooseFromMenu("&Under");
        EXPECT_EQ(gesso::RunCommandMenu(ground, {}, ENTRIES, false), 9u);
        EXPECT_EQ(desk::LastMenu(), "&Undo|&Redo (grey)|-|&Under");
    }
    gesso::SetColorScheme(ColorScheme::Dark);
    desk::ChooseFromMenu("&Under");
    EXPECT_EQ(Run(
                  ground, false, [](HWND hwnd) { EXPECT_TRUE(hwnd); }, Escape),
              0u);
    desk::ChooseFromMenu("");
}

TEST_F(MenuDrawTest, EveryEntryAndTheEdgeStandOutWhateverIsMarked)
{
    const Ground ground;
    gesso::SetColorScheme(ColorScheme::Dark);
    const auto look = [](HWND hwnd) {
        EXPECT_EQ(ExpectTextsToStandOut(hwnd, "menu"), 3u);
        const Picture picture(hwnd);
        for (const COLORREF crBeside : {ColorOf(ColorRole::Window), ColorOf(ColorRole::Panel)}) {
            EXPECT_GE(Contrast(picture.At(0, 0), crBeside), LEAST_CONTRAST);
        }
        desk::TypeKey(VK_DOWN);
    };
    // The ground of each entry's left end.
    const auto shades = [](HWND hwnd) {
        const Picture picture(hwnd);
        return Lines{std::to_string(picture.At(10, 14)), std::to_string(picture.At(10, 36)),
                     std::to_string(picture.At(10, 67))};
    };
    Lines first, second, third;
    Run(
        ground, true, look, [&](HWND hwnd) { first = shades(hwnd), look(hwnd); },
        [&](HWND hwnd) { second = shades(hwnd), look(hwnd); },
        [&](HWND hwnd) { third = shades(hwnd), look(hwnd); }, Escape);
    EXPECT_NE(first[0], first[1]);
    EXPECT_NE(second[1], second[0]);
    EXPECT_NE(second[1], first[0]) << "what is disabled is marked otherwise";
    EXPECT_EQ(third, (Lines{second[0], second[0], first[0]}));
}

TEST_F(MenuDrawTest, MnemonicsShowByTheKeyboardAndSeveralAlikeAreGoneThrough)
{
    const Ground ground;
    gesso::SetColorScheme(ColorScheme::Dark);
    const auto hides = [](HWND hwnd) {
        const Lines texts = NextPaint(hwnd, "DrawTextW");
        return std::count_if(texts.begin(), texts.end(),
                             [](const std::string& line) { return line.find("0x100024") != line.npos; });
    };
    Run(
        ground, false, [=](HWND hwnd) { EXPECT_EQ(hides(hwnd), 3); }, Escape);
    Run(
        ground, true, [=](HWND hwnd) { EXPECT_EQ(hides(hwnd), 0); }, Escape);
    const auto typed = [&](const char* text) {
        return Run(ground, true, [=](HWND) {
            desk::TypeText(text);
            desk::TypeKey(VK_RETURN);
        });
    };
    EXPECT_EQ(typed("u"), 7u);
    EXPECT_EQ(typed("uU"), 9u);
    EXPECT_EQ(typed("uuu"), 7u);
}

TEST_F(MenuDrawTest, ItIsAsLargeAsItsOwnersScaleAndMirroredAsItsOwnerIs)
{
    const Ground ground;
    gesso::SetColorScheme(ColorScheme::Dark);
    gesso::SetScaling(gesso::Scaling::PerMonitor);
    SIZE atBase{}, doubled{};
    Run(
        ground, true, [&](HWND hwnd) { atBase = SizeOf(hwnd); }, Escape);
    EXPECT_EQ(atBase.cy, 3 * 22 + 9 + 6);
    desk::SetWindowDpi(ground, 192);
    Run(
        ground, true, [&](HWND hwnd) { doubled = SizeOf(hwnd); }, Escape);
    EXPECT_EQ(doubled.cy, 2 * atBase.cy);
    EXPECT_NEAR(doubled.cx, 2 * atBase.cx, 8);
    SetWindowLongW(ground, GWL_EXSTYLE, WS_EX_LAYOUTRTL);
    Run(
        ground, true,
        [&](HWND hwnd) {
            RECT rc{};
            GetWindowRect(hwnd, &rc);
            EXPECT_TRUE(gesso::IsMirrored(hwnd));
            EXPECT_EQ(rc.right, std::max<LONG>(100, doubled.cx))
                << "left of the point, as far as there is room";
        },
        Escape);
}

TEST_F(MenuDrawTest, ItEndsWithItsOwnerWithTheProgramAndWithAnotherScale)
{
    gesso::SetColorScheme(ColorScheme::Dark);
    {
        const Ground ground;
        EXPECT_EQ(Run(ground, true, [&](HWND) { DestroyWindow(ground); }), 0u);
    }
    const Ground ground;
    EXPECT_EQ(Run(ground, true, [](HWND hwnd) { DestroyWindow(hwnd); }), 0u);
    gesso::SetScaling(gesso::Scaling::PerMonitor);
    EXPECT_EQ(Run(ground, true, [](HWND hwnd) { desk::ChangeDpi(hwnd, 192); }), 0u);
    EXPECT_EQ(Run(ground, true, [](HWND) { PostQuitMessage(3); }), 0u);
    MSG msg{};
    EXPECT_FALSE(GetMessageW(&msg, nullptr, 0, 0)) << "the loop around it ends too";
}

// A program may change its language while the menu is there.
TEST_F(MenuDrawTest, ItsTextsAreItsOwn)
{
    const Ground ground;
    gesso::SetColorScheme(ColorScheme::Dark);
    wchar_t text[] = L"&Undo";
    const gesso::CommandEntry entries[] = {{7, text, true}};
    SetFocus(ground);
    desk::WhenIdle([&] {
        text[1] = L'X';
        EXPECT_EQ(NextPaintBehind(Menu(), "DrawTextW \"&U").size(), 1u);
        Escape(nullptr);
    });
    EXPECT_EQ(gesso::RunCommandMenu(ground, {100, 50}, entries, true), 0u);
}
