// The user who finds things by what they are.
#include "AccessWindow.h"

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

constexpr auto BUTTON = static_cast<gesso::Role>(ROLE_SYSTEM_PUSHBUTTON);
constexpr auto CHECK = static_cast<gesso::Role>(ROLE_SYSTEM_CHECKBUTTON);
constexpr auto TEXT_FIELD = static_cast<gesso::Role>(ROLE_SYSTEM_TEXT);
constexpr auto LIST = static_cast<gesso::Role>(ROLE_SYSTEM_LIST);
constexpr auto LIST_ITEM = static_cast<gesso::Role>(ROLE_SYSTEM_LISTITEM);
constexpr auto COMBO = static_cast<gesso::Role>(ROLE_SYSTEM_COMBOBOX);
constexpr auto WINDOW = static_cast<gesso::Role>(ROLE_SYSTEM_WINDOW);

// What an operation said on the standard error stream, and that it failed.
std::string Complaint(const std::function<bool()>& operation)
{
    testing::internal::CaptureStderr();
    EXPECT_FALSE(operation());
    return testing::internal::GetCapturedStderr();
}

HWND NamedTop(LPCWSTR name, RECT place = {0, 0, 400, 300})
{
    const HWND top = MakeTop(place);
    SetWindowTextW(top, name);
    return top;
}

class AccessDriverTest : public DesktopTest
{};

TEST_F(AccessDriverTest, ButtonsArePressedBoxesTickedAndFieldsFilled)
{
    const HWND top = NamedTop(L"Host");
    const HWND box = MakeControl(L"BUTTON", L"&All", top, {0, 0, 50, 20}, BS_AUTOCHECKBOX);
    MakeControl(L"STATIC", L"&Name:", top, {0, 20, 50, 40});
    const HWND field = MakeControl(L"EDIT", L"", top, {50, 20, 150, 40});
    EXPECT_TRUE(Expect(WINDOW, "Host"));
    EXPECT_TRUE(Press(CHECK, "All"));
    EXPECT_EQ(SendMessageW(box, BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_TRUE(Fill(TEXT_FIELD, "Name:", "Zoë"));
    wchar_t text[8];
    GetWindowTextW(field, text, 8);
    EXPECT_EQ(wcscmp(text, L"Zo\u00EB"), 0);
    EXPECT_EQ(GetFocus(), field);
}

TEST_F(AccessDriverTest, WhatIsNotThereIsSaidWithWhatIs)
{
    const HWND top = NamedTop(L"Host");
    MakeControl(L"BUTTON", L"Open", top, {0, 0, 50, 20}, WS_DISABLED);
    MakeControl(L"BUTTON", L"Twice", top, {0, 20, 50, 40});
    MakeControl(L"BUTTON", L"Twice", top, {0, 40, 50, 60});
    ShowWindow(MakeControl(L"BUTTON", L"Hidden", top, {0, 60, 50, 80}), SW_HIDE);
    MakeControl(L"EDIT", L"stays", top, {0, 80, 50, 99}, ES_READONLY);

    const std::string there = "; what can be seen is\n"
                              "  window \"Host\"\n"
                              "    push button \"Open\" (unavailable)\n"
                              "    push button \"Twice\"\n"
                              "    push button \"Twice\"\n"
                              "    text \"\"\n\n";
    EXPECT_EQ(Complaint([] { return Expect(BUTTON, "Save"); }),
              "headless::Expect: there is no push button \"Save\"" + there);
    EXPECT_EQ(Complaint([] { return Press(BUTTON, "Twice"); }),
              "headless::Press: there is more than one push button \"Twice\"" + there);
    EXPECT_EQ(Complaint([] { return Press(BUTTON, "Hidden"); }),
              "headless::Press: there is no push button \"Hidden\"" + there);
    EXPECT_EQ(Complaint([] { return Press(BUTTON, "Open"); }),
              "headless::Press: push button \"Open\" is unavailable\n");
    EXPECT_EQ(Complaint([] { return Press(TEXT_FIELD, ""); }),
              "headless::Press: text \"\" does nothing when it is pressed\n");
    EXPECT_EQ(Complaint([] { return Fill(TEXT_FIELD, "", "new"); }),
              "headless::Fill: text \"\" takes no text\n");
    EXPECT_EQ(Now(), 0U) << "nothing is waited for where no timer will bring it";
}

TEST_F(AccessDriverTest, TimersBringWhatIsNotThereYet)
{
    const HWND top = MakeTop({0, 0, 400, 300}, [](HWND hwnd, UINT message, WPARAM, LPARAM) {
        if (message == WM_TIMER) {
            KillTimer(hwnd, 1);
            MakeControl(L"BUTTON", L"Late", hwnd, {0, 0, 50, 20});
        }
        return std::optional<LRESULT>();
    });
    SetTimer(top, 1, 3000, nullptr);
    EXPECT_TRUE(Press(BUTTON, "Late"));
    EXPECT_EQ(Now(), 3000U);
    SetTimer(top, 2, 6000, nullptr);
    EXPECT_NE(Complaint([] { return Expect(BUTTON, "Later"); }), "");
    EXPECT_EQ(Now(), 3000U) << "six seconds are too long";
}

TEST_F(AccessDriverTest, TheActiveWindowComesFirstAndWhatItDisablesIsOutOfReach)
{
    const HWND top = NamedTop(L"Host");
    const HWND box = MakeControl(L"BUTTON", L"OK", top, {0, 0, 50, 20}, BS_AUTOCHECKBOX);
    MakeControl(L"BUTTON", L"Behind", top, {0, 20, 50, 40});
    EnableWindow(top, FALSE);
    const HWND modal = NamedTop(L"Sure?", {50, 50, 200, 200});
    const HWND own = MakeControl(L"BUTTON", L"OK", modal, {0, 0, 50, 20}, BS_AUTOCHECKBOX);
    EXPECT_TRUE(Press(CHECK, "OK"));
    EXPECT_EQ(SendMessageW(own, BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(box, BM_GETCHECK, 0, 0), BST_UNCHECKED);
    EXPECT_TRUE(Expect(BUTTON, "Behind"));
    EXPECT_EQ(Complaint([] { return Press(BUTTON, "Behind"); }),
              "headless::Press: push button \"Behind\" is unavailable\n");
}

TEST_F(AccessDriverTest, ThingsAreFoundFromWithinALoop)
{
    const HWND top = MakeTop({0, 0, 400, 300}, [](HWND, UINT message, WPARAM, LPARAM) {
        if (message == WM_COMMAND) {
            PostQuitMessage(0);
        }
        return std::optional<LRESULT>();
    });
    MakeControl(L"BUTTON", L"Close", top, {0, 0, 50, 20});
    bool pressed = false;
    WhenIdle([&] { pressed = Press(BUTTON, "Close"); });
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0)) {
        DispatchMessageW(&message);
    }
    EXPECT_TRUE(pressed);
    EXPECT_FALSE(Deadlocked());
}

TEST_F(AccessDriverTest, ItemsOfAListAreSelected)
{
    Story story;
    story.items = {"one", "two", "two"};
    MakeTeller(story, NamedTop(L"Host"));
    EXPECT_TRUE(Choose(LIST, "Shelf", "one"));
    EXPECT_TRUE(Press(LIST_ITEM, "one"));
    EXPECT_EQ(story.did, "select1f act1 ");
    EXPECT_EQ(Complaint([] { return Choose(LIST, "Shelf", "three"); }),
              "headless::Choose: list \"Shelf\" has no item \"three\"; it has\n"
              "      list item \"one\"\n      list item \"two\"\n      list item \"two\"\n\n");
    EXPECT_NE(Complaint([] { return Choose(LIST, "Shelf", "two"); }).find("more than one item"),
              std::string::npos);
    EXPECT_EQ(story.references, 0);
}

// A combo box whose items are there while it is open.
TEST_F(AccessDriverTest, AComboBoxIsOpenedForItsItemAndClosed)
{
    Story story;
    story.role = ROLE_SYSTEM_COMBOBOX;
    story.state = STATE_SYSTEM_COLLAPSED;
    const auto open = [&](bool on) {
        story.state = on ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED;
        story.items = on ? std::vector<std::string>{"one", "two"} : std::vector<std::string>();
    };
    story.onAct = [&](LONG child) { open(child == CHILDID_SELF && story.state == STATE_SYSTEM_COLLAPSED); };
    MakeTeller(story, NamedTop(L"Host"));
    EXPECT_TRUE(Choose(COMBO, "Shelf", "two"));
    EXPECT_EQ(std::exchange(story.did, {}), "act0 act2 ");
    EXPECT_NE(Complaint([] { return Choose(COMBO, "Shelf", "three"); }), "");
    EXPECT_EQ(std::exchange(story.did, {}), "act0 act0 ") << "closed again";

    // One that runs a loop of its own while it is open.
    bool idle = false;
    WhenIdle([&] { idle = true; });
    story.onAct = [&](LONG child) {
        open(child == CHILDID_SELF && story.state == STATE_SYSTEM_COLLAPSED);
        PostMessageW(story.hwnd, WM_NULL, 0, 0); // the loop looks again
        MSG message{};
        while (story.state == STATE_SYSTEM_EXPANDED && GetMessageW(&message, nullptr, 0, 0)) {
            DispatchMessageW(&message);
        }
    };
    EXPECT_TRUE(Choose(COMBO, "Shelf", "one"));
    EXPECT_EQ(story.did, "act0 act1 ");
    EXPECT_FALSE(Deadlocked());
    EXPECT_FALSE(idle) << "what the test has for an idle loop is left to it";
    EXPECT_EQ(story.references, 0);
}

} // namespace
