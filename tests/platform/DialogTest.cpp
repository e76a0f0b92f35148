// Dialog boxes: templates, the keyboard, and the modal loop.
#include "../support/DialogTemplate.h"
#include "../support/Numbers.h"
#include "../support/OnWine.h"
#include "../support/TestWindow.h"
#include "../support/User.h"

using namespace test;
using namespace test::user;

namespace {

using Procedure = std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)>;
Procedure s_procedure;
std::vector<WORD> s_commands;

INT_PTR CALLBACK DialogProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        s_commands.push_back(LOWORD(wParam));
    }
    return s_procedure ? s_procedure(hwnd, message, wParam, lParam) : message == WM_INITDIALOG;
}

constexpr DWORD BOX_STYLE = WS_POPUP | WS_VISIBLE | WS_CAPTION | DS_SETFONT;
constexpr DWORD TAB_STOP = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

DialogTemplate Template(const std::vector<DialogItem>& items, DWORD style = BOX_STYLE, bool extended = true)
{
    DialogTemplate source(style, 200, 100, extended);
    for (const DialogItem& item : items) {
        source.Add(item);
    }
    return source;
}

class DialogTest : public WindowsTest
{
protected:
    void SetUp() override
    {
        WindowsTest::SetUp();
        s_procedure = nullptr;
        s_commands.clear();
    }
    void TearDown() override
    {
        if (IsWindow(m_dialog)) {
            DestroyWindow(m_dialog);
        }
        WindowsTest::TearDown();
    }

    HWND Create(const std::vector<DialogItem>& items, bool extended = true)
    {
        const DialogTemplate source = Template(items, BOX_STYLE, extended);
        m_dialog =
            CreateDialogIndirectParamW(GetModuleHandleW(nullptr), source.Get(), nullptr, DialogProcedure, 42);
        Pump(m_dialog);
        s_commands.clear();
        return m_dialog;
    }

    int FocusAfter(UINT vk, std::initializer_list<UINT> modifiers = {})
    {
        TypeKey(vk, modifiers);
        Pump(m_dialog);
        return GetDlgCtrlID(GetFocus());
    }

    bool IsDefault(int id) const
    {
        return (SendDlgItemMessageW(m_dialog, id, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
    }

    HWND m_dialog = nullptr;
};

TEST_F(DialogTest, BothFormsOfTemplateMakeTheSameDialog)
{
    for (const bool extended : {false, true}) {
        std::vector<std::string> seen;
        s_procedure = [&](HWND, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
            if (message == WM_INITDIALOG) {
                seen.push_back("init " + std::to_string(GetDlgCtrlID(reinterpret_cast<HWND>(wParam))) + " " +
                               std::to_string(lParam));
            }
            return message == WM_INITDIALOG;
        };
        const HWND dialog = Create({{0, 1, L"STATIC", L"Label"},
                                    {TAB_STOP, 2, L"EDIT", L"Field", {1, 2, 3, 4}},
                                    {TAB_STOP, 3, L"BUTTON", L"Button"}},
                                   extended);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(seen, std::vector<std::string>{"init 2 42"});
        wchar_t text[16];
        EXPECT_EQ(GetDlgItemTextW(dialog, 3, text, 16), 6U);
        RECT expected = {4, 8, 44, 24};
        MapDialogRect(dialog, &expected);
        EXPECT_EQ(Numbers(PlaceIn(dialog, GetDlgItem(dialog, 2))), Numbers(expected));
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendDlgItemMessageW(dialog, 2, WM_GETFONT, 0, 0)), sizeof(font),
                   &font);
        EXPECT_EQ(font.lfHeight, -12);
        EXPECT_EQ(font.lfWeight, extended ? FW_BOLD : FW_DONTCARE);
        DestroyWindow(dialog);
    }
}

TEST_F(DialogTest, TitleAndFontOfATemplateAreTextsWhateverTheyStartWith)
{
    constexpr WORD MARK = 0xFFFF; // announces a number where one can stand
    constexpr WORD POPUP = 0x8000;
    alignas(4)
        const WORD source[] = {DS_SETFONT, POPUP, 0, 0, 0,    10, 10, 50, 50, 0, 0, // no menu, no class
                               MARK,       7,     0, 9, MARK, 1,  0};
    m_dialog = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), reinterpret_cast<const DLGTEMPLATE*>(source), nullptr, DialogProcedure, 0);
    ASSERT_NE(m_dialog, nullptr);
    wchar_t text[8]{};
    EXPECT_EQ(GetWindowTextW(m_dialog, text, 8), 2);
    EXPECT_EQ(text[0], MARK);
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(m_dialog, WM_GETFONT, 0, 0)), sizeof(font), &font);
    EXPECT_EQ(font.lfFaceName[0], MARK);
    EXPECT_EQ(font.lfFaceName[1], 1);
}

TEST_F(DialogTest, CreationDataIsHandedOverWithItsSizeInFront)
{
    static std::vector<std::vector<BYTE>> s_got;
    s_got.clear();
    const WNDPROC procedure = [](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == WM_NCCREATE) {
            const auto* data =
                static_cast<const BYTE*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
            s_got.emplace_back(data, data ? data + 2 + 3 : nullptr);
        }
        return DefWindowProcW(hwnd, message, wParam, lParam);
    };
    const WNDCLASSW data{0,       procedure, 0,       0,       GetModuleHandleW(nullptr),
                         nullptr, nullptr,   nullptr, nullptr, L"TakesData"};
    RegisterClassW(&data);
    Create({{0, 1, L"TakesData", L"", {7, 8, 9}}, {0, 2, L"TakesData", L""}});
    ASSERT_EQ(s_got.size(), 2U);
    EXPECT_EQ(s_got[0], (std::vector<BYTE>{3, 0, 7, 8, 9}));
    EXPECT_TRUE(s_got[1].empty());
    DestroyWindow(m_dialog);
    UnregisterClassW(L"TakesData", GetModuleHandleW(nullptr));
}

TEST_F(DialogTest, TabGoesRoundTheUsableStopsAndIntoControlParents)
{
    Create({{TAB_STOP, 1, L"EDIT", L""},
            {0, 2, L"EDIT", L""},
            {TAB_STOP | WS_DISABLED, 3, L"EDIT", L""},
            {0, 4, L"STATIC", L"", {}, WS_EX_CONTROLPARENT},
            {TAB_STOP, 5, L"BUTTON", L""}});
    const HWND inner = CreateWindowExW(0, L"EDIT", nullptr, TAB_STOP, 0, 0, 5, 5, GetDlgItem(m_dialog, 4),
                                       reinterpret_cast<HMENU>(44), nullptr, nullptr);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), 1); // the program left it to the platform
    EXPECT_EQ(FocusAfter(VK_TAB), 44);
    EXPECT_EQ(FocusAfter(VK_TAB), 5);
    EXPECT_EQ(FocusAfter(VK_TAB), 1);
    EXPECT_EQ(FocusAfter(VK_TAB, {VK_SHIFT}), 5);
    EXPECT_EQ(SendMessageW(m_dialog, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS, 0); // the keyboard is in use
}

TEST_F(DialogTest, ArrowsStayInTheGroupAndSelectAutomaticRadioButtons)
{
    constexpr DWORD RADIO = BS_AUTORADIOBUTTON;
    Create({{RADIO | WS_TABSTOP | WS_GROUP, 1, L"BUTTON", L""},
            {RADIO, 2, L"BUTTON", L""},
            {RADIO, 3, L"BUTTON", L""},
            {TAB_STOP | WS_GROUP, 4, L"BUTTON", L""}});
    EXPECT_EQ(FocusAfter(VK_DOWN), 2);
    EXPECT_EQ(IsDlgButtonChecked(m_dialog, 2), UINT{BST_CHECKED});
    EXPECT_EQ(FocusAfter(VK_RIGHT), 3);
    EXPECT_EQ(FocusAfter(VK_DOWN), 1);
    EXPECT_EQ(FocusAfter(VK_UP), 3);
    EXPECT_EQ(s_commands, (std::vector<WORD>{2, 3, 1, 3}));
}

TEST_F(DialogTest, TheDefaultFollowsTheFocusAmongButtonsAndComesBack)
{
    Create({{TAB_STOP, 1, L"EDIT", L""},
            {TAB_STOP | BS_DEFPUSHBUTTON, 2, L"BUTTON", L""},
            {TAB_STOP, 3, L"BUTTON", L""}});
    EXPECT_TRUE(IsDefault(2));
    FocusAfter(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(IsDefault(3));
    EXPECT_FALSE(IsDefault(2));
    FocusAfter(VK_RETURN);
    FocusAfter(VK_TAB);
    EXPECT_TRUE(IsDefault(2));
    EXPECT_FALSE(IsDefault(3));
    FocusAfter(VK_RETURN);
    SendMessageW(m_dialog, DM_SETDEFID, 3, 0);
    EXPECT_TRUE(IsDefault(3));
    EXPECT_EQ(SendMessageW(m_dialog, DM_GETDEFID, 0, 0), MAKELONG(3, DC_HASDEFID));
    FocusAfter(VK_RETURN);
    EnableWindow(GetDlgItem(m_dialog, 3), FALSE);
    FocusAfter(VK_RETURN); // a disabled default does nothing
    FocusAfter(VK_ESCAPE);
    EXPECT_EQ(s_commands, (std::vector<WORD>{3, 2, 3, IDCANCEL}));
}

TEST_F(DialogTest, AMnemonicPressesAButtonOrLeadsFromALabelToItsField)
{
    Create({{TAB_STOP, 1, L"BUTTON", L"&Go"},
            {0, 2, L"STATIC", L"R && &Name"},
            {TAB_STOP, 3, L"EDIT", L""},
            {TAB_STOP | WS_DISABLED, 4, L"BUTTON", L"&Xtra"}});
    FocusAfter('X', {VK_MENU});
    EXPECT_TRUE(s_commands.empty());
    EXPECT_EQ(FocusAfter('N', {VK_MENU}), 3);
    FocusAfter('G'); // the field wants characters
    EXPECT_TRUE(s_commands.empty());
    FocusAfter('G', {VK_MENU});
    EXPECT_EQ(s_commands, std::vector<WORD>{1});
    SetFocus(GetDlgItem(m_dialog, 1));
    FocusAfter('G'); // a button wants none, so that the bare letter does it
    EXPECT_EQ(s_commands, (std::vector<WORD>{1, 1}));
}

TEST_F(DialogTest, TheFocusIsKeptWhileAnotherWindowIsActive)
{
    Create({{TAB_STOP, 1, L"EDIT", L""}, {TAB_STOP, 2, L"EDIT", L""}});
    SetFocus(GetDlgItem(m_dialog, 2));
    const HWND other = MakeTop();
    EXPECT_EQ(GetFocus(), other);
    SetActiveWindow(m_dialog);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), 2);
}

TEST_F(DialogTest, AModalDialogDisablesItsOwnerAndGivesItBack)
{
    const HWND owner = MakeTop();
    const HWND child = MakeChild(owner, {0, 0, 10, 10});
    const DialogTemplate source = Template({{TAB_STOP, IDOK, L"BUTTON", L"OK"}});
    std::string during;
    HWND dialog = nullptr;
    s_procedure = [](HWND hwnd, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND) {
            EndDialog(hwnd, 100 + LOWORD(wParam));
        }
        return message == WM_INITDIALOG;
    };
    WhenIdle([&] {
        dialog = GetActiveWindow();
        during += IsWindowEnabled(owner) ? "enabled " : "disabled ";
        during += GetWindow(dialog, GW_OWNER) == owner && IsWindowVisible(dialog) ? "shown" : "hidden";
        TypeKey(VK_RETURN);
    });
    EXPECT_EQ(DialogBoxIndirectParamW(GetModuleHandleW(nullptr), source.Get(), child, DialogProcedure, 0),
              100 + IDOK);
    EXPECT_EQ(during, "disabled shown");
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetActiveWindow(), owner);
    EXPECT_TRUE(dialog && !IsWindow(dialog));
}

TEST_F(DialogTest, AModalDialogThatHidesItselfStaysHidden)
{
    const DialogTemplate source = Template({}, BOX_STYLE & ~DWORD{WS_VISIBLE});
    HWND dialog = nullptr;
    std::string seen;
    s_procedure = [&](HWND hwnd, UINT, WPARAM, LPARAM) -> INT_PTR {
        dialog = hwnd;
        return FALSE;
    };
    WhenIdle([&] {
        seen += IsWindowVisible(dialog) ? "shown " : "hidden ";
        ShowWindow(dialog, SW_HIDE);
        PostMessageW(dialog, WM_USER, 0, 0);
    });
    WhenIdle([&] {
        seen += IsWindowVisible(dialog) ? "shown" : "hidden";
        EndDialog(dialog, 1);
    });
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), source.Get(), nullptr, DialogProcedure, 0);
    EXPECT_EQ(seen, "shown hidden");
}

TEST_F(DialogTest, AModalDialogEndsWithQuitWhichGoesOnToTheOuterLoop)
{
    const DialogTemplate source = Template({});
    HWND dialog = nullptr;
    s_procedure = [&](HWND hwnd, UINT, WPARAM, LPARAM) -> INT_PTR {
        dialog = hwnd;
        return FALSE;
    };
    WhenIdle([] { PostQuitMessage(3); });
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), source.Get(), nullptr, DialogProcedure, 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_FALSE(Pump());
}

TEST_F(DialogTest, ADialogMayEndAtItsStartAndOneThatCannotBeMadeSaysSo)
{
    s_procedure = [](HWND hwnd, UINT message, WPARAM, LPARAM) -> INT_PTR {
        return message == WM_INITDIALOG && EndDialog(hwnd, 9);
    };
    EXPECT_EQ(
        DialogBoxIndirectParamW(GetModuleHandleW(nullptr), Template({}).Get(), nullptr, DialogProcedure, 0),
        9);

    const HWND owner = MakeTop();
    const DialogTemplate source =
        Template({{TAB_STOP, 1, L"BUTTON", L""}, {TAB_STOP, 2, L"NoSuchClass", L""}});
    EXPECT_EQ(DialogBoxIndirectParamW(GetModuleHandleW(nullptr), source.Get(), owner, DialogProcedure, 0),
              -1);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(DialogBoxIndirectParamW(GetModuleHandleW(nullptr), nullptr, owner, DialogProcedure, 0), -1);
}

TEST_F(DialogTest, ADialogAnswersByItsResultOrByMsgResult)
{
    Create({{TAB_STOP, 1, L"BUTTON", L""}});
    s_procedure = [](HWND hwnd, UINT message, WPARAM, LPARAM) -> INT_PTR {
        SetWindowLongPtrW(hwnd, DWLP_MSGRESULT, 77);
        return message == WM_USER || message == WM_CTLCOLORDLG ? 5 : FALSE;
    };
    EXPECT_EQ(SendMessageW(m_dialog, WM_USER, 0, 0), 77);
    EXPECT_EQ(SendMessageW(m_dialog, WM_CTLCOLORDLG, 0, 0), 5);
    s_procedure = nullptr;
    PostMessageW(m_dialog, WM_CLOSE, 0, 0);
    Pump(m_dialog);
    EXPECT_EQ(s_commands, std::vector<WORD>{IDCANCEL});
}

} // namespace
