// What assistive technology hears of edit fields and combo boxes.
#include "../../support/Host.h"
#include "../../support/WithBehavior.h"

#include <platform/headless/headless.h>

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace test;
using gesso::Behavior;
using gesso::headless::EventName;

using Lines = std::vector<std::string>;

constexpr DWORD SHOWN = WS_CHILD | WS_VISIBLE;
constexpr UINT NONE = static_cast<UINT>(-1);

class TextEvents : public testing::TestWithParam<Behavior>
{
protected:
    TextEvents() : m_behavior(GetParam()) { SetFocus(host); }

    // What a control tells in an action: "FOCUS 0".
    static Lines EventsOf(HWND hwnd, const std::function<void()>& act)
    {
        gesso::headless::StartEvents();
        act();
        Lines lines;
        for (const auto& event : gesso::headless::StopEvents()) {
            if (event.hwnd == hwnd && event.object == OBJID_CLIENT) {
                const std::string name = EventName(event.event);
                const std::string prefix = "EVENT_OBJECT_";
                lines.push_back((name.starts_with(prefix) ? name.substr(prefix.size()) : name) + " " +
                                std::to_string(event.child));
            }
        }
        return lines;
    }
    static bool IsModern() { return GetParam() == Behavior::Modern; }

    WithBehavior m_behavior;
    Host host;
};

INSTANTIATE_TEST_SUITE_P(Both, TextEvents, testing::Values(Behavior::Classic, Behavior::Modern));

const Lines EDITED = {"VALUECHANGE 0", "TEXTSELECTIONCHANGED 0"};

TEST_P(TextEvents, AFieldTellsItsTextAndItsSelection)
{
    GEdit edit;
    HWND hwnd = nullptr;
    const auto events = [&](const std::function<void()>& act) { return EventsOf(hwnd, act); };
    hwnd = edit.Create(0, 0, 200, 30, host, 7, L"Ada", SHOWN | ES_AUTOHSCROLL, 0);
    EXPECT_EQ(events([&] { edit.SetSel(1, 2); }), Lines{"TEXTSELECTIONCHANGED 0"});
    EXPECT_EQ(events([&] { edit.SetSel(1, 2); }), Lines{});
    EXPECT_EQ(events([&] { edit.SetText(L"Eve"); }), EDITED);
    EXPECT_EQ(events([&] { edit.SetText(L"Eve"); }), Lines{});
    EXPECT_EQ(events([&] { SetFocus(hwnd); }), Lines{"FOCUS 0"});
    EXPECT_EQ(events([&] { SendMessageW(hwnd, WM_CHAR, L'x', 1); }), EDITED);
    EXPECT_EQ(events([&] { edit.ReplaceSel(L"yz", true); }), EDITED);
    EXPECT_EQ(events([&] { EnableWindow(hwnd, FALSE); }), Lines{"STATECHANGE 0"});
    if (IsModern()) {
        EnableWindow(hwnd, TRUE);
        EXPECT_EQ(events([&] { SendMessageW(hwnd, EM_UNDO, 0, 0); }), EDITED);
        EXPECT_EQ(events([&] { SendMessageW(hwnd, EM_SETREADONLY, TRUE, 0); }), Lines{"STATECHANGE 0"});
    }
}

TEST_P(TextEvents, AComboBoxTellsItsTextItsItemsAndItsList)
{
    GComboBox combo;
    const HWND hwnd = combo.Create(10, 10, 120, 24, host, 5, SHOWN | GCBS_DROPDOWNLIST, 0);
    const auto events = [&](const std::function<void()>& act) { return EventsOf(hwnd, act); };
    EXPECT_EQ(events([&] { combo.InsertItem(NONE, 0, L"Ada", 0, nullptr); }), Lines{"REORDER 2"});
    combo.InsertItem(NONE, 0, L"Bob", 0, nullptr);
    EXPECT_EQ(events([&] { combo.SetSelected(1); }), Lines{"VALUECHANGE 0"});
    EXPECT_EQ(events([&] { combo.SetSelected(1); }), Lines{});
    EXPECT_EQ(events([&] { SetFocus(hwnd); }), Lines{"FOCUS 0"});
    EXPECT_EQ(events([&] { SendMessageW(hwnd, WM_KEYDOWN, VK_UP, 1); }), Lines{"VALUECHANGE 0"});
    if (IsModern()) {
        EXPECT_EQ(events([&] { SendMessageW(hwnd, CB_SHOWDROPDOWN, TRUE, 0); }), Lines{"STATECHANGE 0"});
        EXPECT_EQ(events([&] { SendMessageW(hwnd, CB_SHOWDROPDOWN, FALSE, 0); }),
                  (Lines{"STATECHANGE 0", "FOCUS 0"}));
    }
    EXPECT_EQ(events([&] { combo.RemoveAllItems(); }),
              IsModern() ? (Lines{"REORDER 2", "VALUECHANGE 0"}) : Lines{"REORDER 2"});
    EXPECT_EQ(events([&] { combo.RemoveAllItems(); }), Lines{});
    combo.Destroy();
}

TEST_P(TextEvents, TheFieldOfAComboBoxHasTheFocus)
{
    GComboBox combo;
    const HWND hwnd = combo.Create(10, 10, 120, 24, host, 5, SHOWN | GCBS_DROPDOWN, 0);
    EXPECT_EQ(EventsOf(hwnd, [&] { SetFocus(hwnd); }),
              (Lines{"FOCUS 0", "FOCUS 1"})); // the platform's, and the field
    EXPECT_EQ(EventsOf(hwnd, [&] { SendMessageW(hwnd, WM_CHAR, L'x', 1); }),
              (Lines{"VALUECHANGE 0", "VALUECHANGE 1", "TEXTSELECTIONCHANGED 1"}));
    combo.Destroy();
}

} // namespace
