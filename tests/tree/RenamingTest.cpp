// Items of a tree are renamed in place, in both behaviours.

#include "../support/AllowMisuse.h"
#include "../support/Interception.h"
#include "../support/User.h"
#include "TreeModern.h"

namespace {

using namespace test;

constexpr int RENAMING = -459;
constexpr int RENAMED = -460;

// a with a1 below it, and b to l, of which 5 rows show.
class RenamingTest : public TreeTest<GTree>, public testing::WithParamInterface<gesso::Behavior>
{
protected:
    void SetUp() override
    {
        Make(WS_VSCROLL | WS_HSCROLL);
        a = tree.Add(nullptr, "a");
        a1 = tree.Add(a, "a1");
        for (char c = 'b'; c <= 'l'; ++c) {
            b = tree.Add(nullptr, std::string(1, c), 0, nullptr);
        }
        b = tree.At(1);
        SetFocus(tree);
        host.Take();
        host.onNotify = [this](const Notified& n) { Note(n); };
    }
    void TearDown() override
    {
        host.onNotify = nullptr;
        TreeTest::TearDown();
    }
    void Note(const Notified& n)
    {
        if (n.code == RENAMING || n.code == RENAMED) {
            std::string line = std::to_string(n.code) + (n.record.pItem == a1  ? " a1"
                                                         : n.record.pItem == a ? " a"
                                                                               : " b");
            told.push_back(line + (n.code == RENAMED ? " " + Narrow(n.record.pszText) : ""));
            host.answer = n.code == RENAMED ? fTakes : fRefuses;
        }
    }
    Lines Told() { return std::exchange(told, {}); }
    static HWND Field() { return GetFocus(); }
    static void Type(const std::string& text)
    {
        for (const char c : text) {
            SendMessageW(Field(), WM_CHAR, static_cast<WPARAM>(c), 1);
        }
    }
    static void KeyOfField(UINT vk) { SendMessageW(Field(), WM_KEYDOWN, vk, 1); }

    WithBehavior behavior{GetParam()};
    void *a, *a1, *b;
    Lines told;
    bool fTakes = true;
    bool fRefuses = false;
};

INSTANTIATE_TEST_SUITE_P(Both, RenamingTest,
                         testing::Values(gesso::Behavior::Classic, gesso::Behavior::Modern));

TEST_P(RenamingTest, EnterTakesTheTextWhereTheParentDoes)
{
    ASSERT_TRUE(tree.EditLabel(b));
    EXPECT_EQ(GetParent(Field()), tree.GetHwnd());
    EXPECT_EQ(TextOf(Field()), "b");
    RECT rc{}, rcField{};
    ASSERT_TRUE(tree.GetItemRect(b, true, &rc));
    GetWindowRect(Field(), &rcField);
    MapWindowPoints(nullptr, tree, reinterpret_cast<POINT*>(&rcField), 2);
    EXPECT_EQ(rcField.top, rc.top);
    EXPECT_TRUE(rcField.left <= rc.left && rcField.right >= rc.right) << "it covers the label";
    Type("new");
    EXPECT_EQ(TextOf(Field()), "new") << "the former text was all selected";
    KeyOfField(VK_RETURN);
    EXPECT_EQ(Told(), (Lines{"-459 b", "-460 b new"}));
    EXPECT_EQ(Narrow(tree.GetItemName(b)), "new");
    EXPECT_EQ(GetFocus(), tree.GetHwnd());
    EXPECT_EQ(GetWindow(tree, GW_CHILD), nullptr);
    fTakes = false;
    ASSERT_TRUE(tree.EditLabel(b));
    Type("other");
    KeyOfField(VK_RETURN);
    EXPECT_EQ(Told(), (Lines{"-459 b", "-460 b other"}));
    EXPECT_EQ(Narrow(tree.GetItemName(b)), "new");
}

TEST_P(RenamingTest, EscapeDropsTheTextAndAClickElsewhereTakesIt)
{
    tree.EditLabel(b);
    Type("dropped");
    KeyOfField(VK_ESCAPE);
    EXPECT_EQ(Told(), (Lines{"-459 b", "-460 b (null)"}));
    EXPECT_EQ(Narrow(tree.GetItemName(b)), "b");
    tree.EditLabel(b);
    Type("taken");
    Click(60, 90);
    EXPECT_EQ(Told(), (Lines{"-459 b", "-460 b taken"}));
    EXPECT_EQ(Narrow(tree.GetItemName(b)), "taken");
    tree.EditLabel(b);
    SetFocus(host);
    EXPECT_EQ(Told(), (Lines{"-459 b", "-460 b taken"}));
    EXPECT_EQ(GetFocus(), static_cast<HWND>(host)) << "the focus stays where it went";
    fRefuses = true;
    EXPECT_FALSE(tree.EditLabel(b));
    EXPECT_EQ(Told(), Lines{"-459 b"});
    EXPECT_EQ(GetWindow(tree, GW_CHILD), nullptr);
}

TEST_P(RenamingTest, ASecondEditTakesTheTextOfTheFirst)
{
    tree.EditLabel(b);
    Type("first");
    EXPECT_TRUE(tree.EditLabel(a));
    Type("second");
    KeyOfField(VK_RETURN);
    EXPECT_EQ(Told(), (Lines{"-459 b", "-460 b first", "-459 a", "-460 a second"}));
    EXPECT_EQ(Narrow(tree.GetItemName(b)), "first");
}

TEST_P(RenamingTest, TheParentMayBeginAnotherWhileTheFieldIsMade)
{
    {
        const Interception made(tree, WM_PARENTNOTIFY, [this] { tree.EditLabel(a); });
        EXPECT_FALSE(tree.EditLabel(b));
        EXPECT_TRUE(made.Happened());
    }
    EXPECT_EQ(TextOf(Field()), "a");
    EXPECT_EQ(GetWindow(GetWindow(tree, GW_CHILD), GW_HWNDNEXT), nullptr) << "one field";
    Type("new");
    KeyOfField(VK_RETURN);
    EXPECT_EQ(Told().back(), "-460 a new");
}

TEST_P(RenamingTest, AnItemOutOfViewIsBroughtIntoView)
{
    SendMessageW(tree, WM_VSCROLL, SB_PAGEDOWN, 0);
    EXPECT_TRUE(tree.EditLabel(a1));
    EXPECT_EQ(tree.Rows().substr(0, 6), "a a1 b");
    RECT rc{}, rcField{};
    ASSERT_TRUE(tree.GetItemRect(a1, true, &rc));
    EXPECT_EQ(rc.top, 0);
    // The field goes along with its row.
    SendMessageW(tree, WM_VSCROLL, SB_LINEDOWN, 0);
    GetWindowRect(Field(), &rcField);
    MapWindowPoints(nullptr, tree, reinterpret_cast<POINT*>(&rcField), 2);
    EXPECT_EQ(rcField.top, -20);
    // A text that is wider than the field stays on one line, which grows as far as there is room.
    Type(std::string(80, 'w'));
    GetWindowRect(Field(), &rc);
    EXPECT_GT(rc.right - rc.left, rcField.right - rcField.left);
    EXPECT_EQ(TextOf(Field()), std::string(80, 'w'));
    KeyOfField(VK_RETURN);
    EXPECT_EQ(Narrow(tree.GetItemName(a1)), std::string(80, 'w'));
}

TEST_P(RenamingTest, AnItemThatGoesMeanwhileEndsTheEdit)
{
    for (const bool fAll : {false, true}) {
        tree.EditLabel(a1);
        Type("lost");
        if (fAll) {
            tree.RemoveAllItems();
        } else {
            tree.RemoveItem(a1);
            a1 = tree.Add(a, "a1");
        }
        EXPECT_EQ(GetFocus(), tree.GetHwnd());
        const Lines ends = Told();
        ASSERT_EQ(ends.size(), 2u);
        EXPECT_EQ(ends[1].substr(ends[1].size() - 6), "(null)");
        EXPECT_TRUE(tree.Check());
    }
    const AllowMisuse allow;
    EXPECT_FALSE(tree.EditLabel(nullptr));
    EXPECT_FALSE(tree.EditLabel(&tree));
    EXPECT_FALSE(tree.EditLabel(tree.GetRootItem()));
    EXPECT_TRUE(Told().empty());
}

TEST_P(RenamingTest, TheParentMayDestroyTheTreeInEachNotification)
{
    for (const bool fObjectToo : {false, true}) {
        for (const auto& [code, vk] : {std::pair{RENAMING, VK_RETURN},
                                       {FOCUS_KILLED, VK_RETURN},
                                       {RENAMED, VK_RETURN},
                                       {RENAMED, VK_ESCAPE},
                                       {FOCUS_SET, VK_ESCAPE},
                                       {EXPANDED, VK_RETURN}})
        {
            auto* doomed = new GTree;
            const HWND hwnd = doomed->Create(0, 0, 100, 100, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
            void* hTop = doomed->InsertItem(nullptr, nullptr, L"top", 0, 0, nullptr);
            void* hBelow = doomed->InsertItem(hTop, nullptr, L"below", 0, 0, nullptr);
            if (fObjectToo) {
                gesso::OwnByWindow(doomed);
            }
            SetFocus(hwnd);
            host.onNotify = [&, code = code](const Notified& n) {
                host.answer = n.code == RENAMED;
                if (n.code == code && n.record.hdr.hwndFrom == hwnd) {
                    DestroyWindow(hwnd);
                }
            };
            if (doomed->EditLabel(hBelow)) {
                SendMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(vk), 1);
            }
            EXPECT_FALSE(IsWindow(hwnd)) << code;
            host.onNotify = nullptr;
            if (!fObjectToo) {
                delete doomed;
            }
        }
    }
}

// The object goes, and its window and the field stay.
TEST_P(RenamingTest, AFieldThatHasLostItsTreeEndsAlone)
{
    auto* doomed = new GTree;
    const HWND hwnd = doomed->Create(0, 0, 100, 100, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
    ASSERT_TRUE(doomed->EditLabel(doomed->InsertItem(nullptr, nullptr, L"top", 0, 0, nullptr)));
    Told();
    delete doomed;
    KeyOfField(VK_RETURN);
    EXPECT_TRUE(Told().empty());
    DestroyWindow(hwnd);
    // And a tree that goes in the middle of it.
    tree.EditLabel(a);
    DestroyWindow(tree);
    EXPECT_EQ(GetFocus() == nullptr || !IsChild(host, GetFocus()), true);
}

// F2 is Modern's alone.
TEST_P(RenamingTest, AUserRenamesByF2)
{
    tree.SetSelectedItem(b);
    user::TypeKey(VK_F2);
    user::Pump();
    if (GetParam() == gesso::Behavior::Classic) {
        EXPECT_TRUE(Told().empty());
        return;
    }
    host.Take();
    user::TypeText("new");
    user::TypeKey(VK_RETURN);
    user::Pump(host);
    EXPECT_EQ(Told(), (Lines{"-459 b", "-460 b new"}));
    EXPECT_EQ(host.TakeCodes(), (std::vector<int>{FOCUS_SET, RENAMED})) << "Enter is no more than the end";
    EXPECT_EQ(host.TakeClicks(), 0);
}

} // namespace
