// Items of a list are renamed in place, in both behaviours.

#include "../support/AllowMisuse.h"
#include "../support/Interception.h"
#include "../support/User.h"
#include "../support/WithBehavior.h"
#include "ListFixture.h"

namespace {

using namespace test;
using gesso::Behavior;

constexpr int RENAMING = -175;
constexpr int RENAMED = -176;

// Items a, b, c and so on, of which some are below the client area.
class ListRenamingTest : public ListFixture, public testing::WithParamInterface<Behavior>
{
protected:
    void SetUp() override
    {
        MakeList(GLS_DETAILS | GLS_HEADER);
        AddColumns(2);
        for (char c = 'a'; c <= 'p'; ++c) {
            AddItem(std::string(1, c).c_str());
        }
        SetFocus(list);
        host.Take();
        host.onNotify = [this](const Notified& n) { Note(n); };
    }
    void TearDown() override
    {
        host.onNotify = nullptr;
        ListFixture::TearDown();
    }
    void Note(const Notified& n)
    {
        if (n.code == EDIT_LEFT) {
            told.push_back("left");
        } else if (n.code == RENAMING || n.code == RENAMED) {
            const std::string line = std::to_string(n.code) + " " + std::to_string(n.record.iItem);
            told.push_back(line + (n.code == RENAMED ? " " + Narrow(n.record.pszText) : ""));
            host.answer = n.code == RENAMED ? fTakes : fRefuses;
        }
    }
    Reports Told() { return std::exchange(told, {}); }
    static void Type(const std::string& text)
    {
        for (const char c : text) {
            SendMessageW(GetFocus(), WM_CHAR, static_cast<WPARAM>(c), 1);
        }
    }
    static void KeyOfField(UINT vk) { SendMessageW(GetFocus(), WM_KEYDOWN, vk, 1); }
    std::string TextOfItem(UINT item) { return Narrow(list.GetItemText(item, 0)); }

    WithBehavior behavior{GetParam()};
    Reports told;
    bool fTakes = true;
    bool fRefuses = false;
};

INSTANTIATE_TEST_SUITE_P(Both, ListRenamingTest, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(ListRenamingTest, TheTextIsTakenOrDropped)
{
    ASSERT_TRUE(list.EditItem(1));
    EXPECT_EQ(GetParent(GetFocus()), list.GetHwnd());
    EXPECT_EQ(TextOf(GetFocus()), "b");
    Type("new");
    KeyOfField(VK_RETURN);
    EXPECT_EQ(TextOfItem(1), "new");
    EXPECT_EQ(GetFocus(), list.GetHwnd());
    list.EditItem(1);
    Type("dropped");
    KeyOfField(VK_ESCAPE);
    list.EditItem(1);
    Type("taken");
    list.EditItem(2); // takes the first one's
    SetFocus(host);
    EXPECT_EQ(TextOfItem(1), "taken");
    fTakes = false;
    list.EditItem(2);
    Type("unwanted");
    KeyOfField(VK_RETURN);
    EXPECT_EQ(TextOfItem(2), "c");
    fRefuses = true;
    EXPECT_FALSE(list.EditItem(2));
    EXPECT_EQ(GetWindow(list, GW_CHILD), nullptr);
    EXPECT_EQ(Told(), (Reports{"-175 1", "-176 1 new", "-175 1", "-176 1 (null)", "-175 1", "-176 1 taken",
                               "-175 2", "-176 2 c", "-175 2", "-176 2 unwanted", "-175 2"}))
        << "and no edit of the host's was left";
    const AllowMisuse allow;
    EXPECT_FALSE(list.EditItem(99));
    EXPECT_FALSE(list.EditItem(END));
    EXPECT_TRUE(Told().empty());
}

TEST_P(ListRenamingTest, TheFieldFollowsItsItem)
{
    ASSERT_TRUE(list.EditItem(8));
    RECT rc{}, rcClient{};
    const auto place = [&] {
        GetWindowRect(GetFocus(), &rc);
        MapWindowPoints(nullptr, list, reinterpret_cast<POINT*>(&rc), 2);
        return rc.top;
    };
    GetClientRect(list, &rcClient);
    EXPECT_TRUE(place() > 0 && rc.bottom <= rcClient.bottom) << "it was brought into view";
    RECT rcCell{};
    list.GetItemRect(&rcCell, 8, 0);
    EXPECT_EQ(place(), rcCell.top - list.m_siV.nPos);
    const int top = place();
    list.RemoveItem(2);
    EXPECT_LT(place(), top);
    list.InsertItem(0, 0, nullptr, 0, L"front", 0);
    list.Sort(0, false);
    Type("new");
    KeyOfField(VK_RETURN);
    EXPECT_EQ(Told(), (Reports{"-175 8", "-176 7 new"})) << "i, behind p to j";
    EXPECT_EQ(TextOfItem(7), "new");
    // An item that goes ends it.
    list.EditItem(3);
    list.RemoveItem(3);
    EXPECT_EQ(Told(), (Reports{"-175 3", "-176 -1 (null)"}));
    EXPECT_EQ(GetFocus(), list.GetHwnd());
    list.EditItem(3);
    list.RemoveAllItems();
    EXPECT_EQ(Told(), (Reports{"-175 3", "-176 -1 (null)"}));
}

TEST_P(ListRenamingTest, AColumnInsertedMeanwhileLeavesTheFieldWithItsItem)
{
    ASSERT_TRUE(list.EditItem(1));
    list.InsertColumn(2, 0, 0, 50, 20, L"More", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    Type("new");
    KeyOfField(VK_RETURN);
    EXPECT_EQ(TextOfItem(1), "new");
    EXPECT_EQ(Told(), (Reports{"-175 1", "-176 1 new"}));
}

// The list deletes the font that it had: the field must not go on with it.
TEST_P(ListRenamingTest, TheFieldTakesTheFontThatItsItemGetsMeanwhile)
{
    const auto makeFont = [](int nHeight) {
        return CreateFontW(-nHeight, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    };
    const auto fontOf = [](HWND hwnd) {
        return reinterpret_cast<HFONT>(SendMessageW(hwnd, WM_GETFONT, 0, 0));
    };
    const HFONT hText = makeFont(20), hLent = makeFont(21), hLast = makeFont(22);
    ASSERT_TRUE(list.EditItem(1));
    list.SetLabelTextFont(hText);
    EXPECT_EQ(fontOf(GetFocus()), hText);
    list.OnSetFont(hLent, 0);
    EXPECT_EQ(fontOf(GetFocus()), hLent);
    list.SetLabelTextFont(hLast);
    EXPECT_EQ(fontOf(GetFocus()), hLast);
    list.SetLabelTitleFont(makeFont(23));
    EXPECT_EQ(fontOf(GetFocus()), hLast) << "that of another item";
    KeyOfField(VK_ESCAPE);
    DeleteObject(hLent);
}

TEST_P(ListRenamingTest, TheParentMayBeginAnotherWhileTheFieldIsMade)
{
    {
        const Interception made(list, WM_PARENTNOTIFY, [this] { list.EditItem(2); });
        EXPECT_FALSE(list.EditItem(1));
        EXPECT_TRUE(made.Happened());
    }
    EXPECT_EQ(TextOf(GetFocus()), "c");
    EXPECT_EQ(GetWindow(GetWindow(list, GW_CHILD), GW_HWNDNEXT), nullptr) << "one field";
    Type("new");
    KeyOfField(VK_RETURN);
    EXPECT_EQ(TextOfItem(2), "new");
    EXPECT_EQ(TextOfItem(1), "b");
}

TEST_P(ListRenamingTest, EachViewWithATextHasAField)
{
    for (const UINT view : {GLS_DETAILS | GLS_CHECKBOXES, GLS_ICONS, GLS_DETAILS}) {
        list.SetListStyle(view);
        ASSERT_TRUE(list.EditItem(2)) << view;
        EXPECT_EQ(TextOf(GetFocus()), "c");
        KeyOfField(VK_ESCAPE);
    }
    for (const int type : {LCT_TITLE, LCT_IMAGETEXT}) {
        Renew();
        MakeList(GLS_DETAILS);
        AddColumn(L"Name", type);
        list.SetColumnCx(0, 2000);
        AddItem("wide");
        list.SetScrollPos(SB_HORZ, 500, FALSE);
        EXPECT_TRUE(list.EditItem(0));
        EXPECT_LT(list.m_siH.nPos, 10) << "the text's start is in view";
        KeyOfField(VK_ESCAPE);
    }
    list.RemoveAllItems();
    list.RemoveAllColumns();
    AddColumn(L"Picture", LCT_IMAGE);
    list.SetListStyle(GLS_DETAILS);
    AddItem("hidden");
    EXPECT_FALSE(list.EditItem(0));
}

TEST_P(ListRenamingTest, TheParentMayDestroyTheListInEachNotification)
{
    for (const bool fObjectToo : {false, true}) {
        for (const auto& [code, vk] : {std::pair{RENAMING, VK_RETURN},
                                       {FOCUS_KILLED, VK_RETURN},
                                       {RENAMED, VK_RETURN},
                                       {RENAMED, VK_ESCAPE}})
        {
            auto* doomed = new GList;
            const HWND hwnd =
                doomed->Create(0, 0, 100, 100, host, LIST_ID, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
            doomed->InsertColumn(0, 0, DT_SINGLELINE, 80, 10, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                                 nullptr);
            doomed->InsertItem(0, 0, nullptr, 0, L"item", 0);
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
            if (doomed->EditItem(0)) {
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

// F2 is Modern's alone.
TEST_P(ListRenamingTest, AUserRenamesByF2)
{
    list.SetFirstSelectedItemIndex(2);
    ClickItem(2);
    user::TypeKey(VK_F2);
    user::Pump();
    if (GetParam() == Behavior::Classic) {
        EXPECT_TRUE(Told().empty());
        return;
    }
    user::TypeText("new");
    user::TypeKey(VK_RETURN);
    host.Take();
    user::Pump(host);
    EXPECT_EQ(Told(), (Reports{"-175 2", "-176 2 new"}));
    for (const int code : host.TakeCodes()) {
        EXPECT_TRUE(code != KEY_PRESSED && code != -4) << "Enter is no more than the end";
    }
}

} // namespace
