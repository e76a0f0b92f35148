#include <gesso/containers/OString.h>

#include "../support/DialogTemplate.h"
#include "../support/Host.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace test;

class GLabelTest : public testing::Test
{
protected:
    Host host;
    GLabel label;
    HWND hwnd = label.Create(10, 10, 100, 30, host, 44, L"Label", 0, WS_CHILD | WS_VISIBLE);
};

std::string Wrapped(const std::string& text)
{
    OString<wchar_t> in = OString<wchar_t>::Build(L"%hs", text.c_str());
    OString<wchar_t> out;
    GLabel::WrapText(out, in);
    return Narrow(out);
}

TEST_F(GLabelTest, IsAStaticControlWithoutAnId)
{
    ASSERT_TRUE(hwnd);
    EXPECT_EQ(GetDlgCtrlID(hwnd), 0);
    EXPECT_EQ(SendMessageW(hwnd, WM_GETDLGCODE, 0, 0), DLGC_STATIC);
    EXPECT_EQ(label.SetTextColor(RGB(1, 2, 3)), 0u);
    EXPECT_EQ(label.GetTextColor(), static_cast<COLORREF>(RGB(1, 2, 3)));
    SetFocus(hwnd);
    SetFocus(host);
    SendMessageW(hwnd, WM_LBUTTONDOWN, 0, 0);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "a label sends nothing";
    TakeRepaint(hwnd);
    EnableWindow(hwnd, FALSE);
    EXPECT_TRUE(TakeRepaint(hwnd));
    EXPECT_NE(label.Destroy(), 0);
}

TEST_F(GLabelTest, WrapTextBreaksAt48Columns)
{
    const std::string word60(60, 'x');
    EXPECT_EQ(Wrapped(""), "");
    EXPECT_EQ(Wrapped("short"), "short");
    EXPECT_EQ(Wrapped(std::string(48, 'x')), std::string(48, 'x'));
    EXPECT_EQ(Wrapped(word60), std::string(49, 'x') + "\r\n" + std::string(11, 'x'));
    // A space stays at the end of the upper line, whether it stands at the break or before the word that is
    // moved down.
    EXPECT_EQ(Wrapped(std::string(49, 'a') + " tail"), std::string(49, 'a') + " \r\ntail");
    EXPECT_EQ(Wrapped(std::string(40, 'a') + " " + std::string(20, 'b')),
              std::string(40, 'a') + " \r\n" + std::string(20, 'b'));
    // The count starts anew behind each line end.
    const std::string lines = std::string(40, 'a') + "\r\n" + std::string(40, 'b');
    EXPECT_EQ(Wrapped(lines), lines);
    // A word that follows a break and is too long itself is cut, and does not go back behind that break.
    EXPECT_EQ(Wrapped("aa " + std::string(120, 'b')), "aa \r\n" + std::string(49, 'b') + "\r\n" +
                                                          std::string(49, 'b') + "\r\n" +
                                                          std::string(22, 'b'));
    EXPECT_EQ(Wrapped(std::string(49, 'a') + "\r"), std::string(49, 'a') + "\r");
}

TEST_F(GLabelTest, CalcSizeTextLimitsOnlyTheFreeDirections)
{
    const auto calc = [&](DWORD dwFlags, UINT cx, UINT cy, RECT* prc) {
        return label.CalcSizeText(prc, dwFlags, L"several words that are to be measured", 0, cx, cy);
    };
    RECT rcFree{};
    ASSERT_EQ(calc(GLC_FREEWIDTH | GLC_FREEHEIGHT, 0, 0, &rcFree), S_OK);
    const auto cx = static_cast<UINT>(rcFree.right);
    const auto cy = static_cast<UINT>(rcFree.bottom);
    ASSERT_GT(cx, 0u);
    ASSERT_GT(cy, 0u);

    RECT rc{};
    EXPECT_EQ(calc(GLC_FREEWIDTH, cx, 1, &rc), S_OK) << "the height is not checked";
    EXPECT_EQ(calc(GLC_FREEWIDTH, cx - 1, 1, &rc), E_FAIL);
    EXPECT_EQ(static_cast<UINT>(rc.right), cx) << "the measure is there all the same";
    EXPECT_EQ(calc(GLC_FREEHEIGHT, cx / 2, cy, &rc), E_FAIL) << "two lines and more";
    EXPECT_GT(static_cast<UINT>(rc.bottom), cy);
    EXPECT_EQ(calc(GLC_FREEHEIGHT, cx / 2, 10 * cy, &rc), S_OK);
    EXPECT_EQ(calc(0, cx / 2, 1, &rc), S_OK) << "a rectangle, and no check";
    label.CalcSizeText(&rc, GLC_FREEHEIGHT, nullptr, 1, 100, 0);
    EXPECT_EQ(rc.right, 0) << "a null text has no width";
    EXPECT_EQ(calc(GLC_FREEWIDTH, 0, 0, nullptr), S_OK) << "nobody wants the measure";

    const OString<wchar_t> words = OString<wchar_t>::Build(L"%hs", (std::string(60, 'x')).c_str());
    EXPECT_EQ(label.CalcSizeText(&rc, GLC_FREEWIDTH | GLC_FREEHEIGHT, words, 1, 0, 0), S_OK);
    EXPECT_EQ(static_cast<UINT>(rc.bottom), 2 * cy) << "broken hard first";
}

TEST(Dialog, TemplateMakesControlsWithTheirTextAndTheKeyboardWorks)
{
    Host host;
    static Reports s_reports;
    s_reports.clear();
    const DLGPROC pfnDialog = [](HWND, UINT uMsg, WPARAM wParam, LPARAM) -> INT_PTR {
        if (uMsg == WM_COMMAND) {
            s_reports.push_back("click " + std::to_string(LOWORD(wParam)));
        }
        return FALSE;
    };
    DialogTemplate dialog(WS_POPUP | WS_VISIBLE | WS_CAPTION, 200, 100);
    dialog.Add(L"GButton", 1, WS_TABSTOP | GBS_DEFAULT, 10, 50, 50, 14, L"OK")
        .Add(L"GLabel", 100, 0, 10, 10, 50, 10, L"&Label")
        .Add(L"GButton", 101, WS_TABSTOP, 70, 50, 50, 14, L"Under the &other mnemonic")
        .AddBare(L"GButton", 102, WS_TABSTOP, 130, 50, 50, 14);
    const HWND hDlg = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), dialog.Get(), host, pfnDialog, 0);
    ASSERT_TRUE(hDlg);
    EXPECT_EQ(TextOf(GetDlgItem(hDlg, 1)), "OK");
    EXPECT_EQ(TextOf(GetDlgItem(hDlg, 100)), "&Label");
    EXPECT_EQ(TextOf(GetDlgItem(hDlg, 102)), "");

    const auto key = [&](UINT uMsg, WPARAM wParam) {
        MSG msg{};
        msg.hwnd = GetFocus();
        msg.message = uMsg;
        msg.wParam = wParam;
        return IsDialogMessageW(hDlg, &msg);
    };
    SetFocus(GetDlgItem(hDlg, 1));
    EXPECT_TRUE(key(WM_KEYDOWN, VK_TAB));
    EXPECT_EQ(GetFocus(), GetDlgItem(hDlg, 101));
    EXPECT_TRUE(key(WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(std::exchange(s_reports, {}), Reports{"click 101"})
        << "the focused button has become the default";
    EXPECT_TRUE(key(WM_SYSCHAR, 'l'));
    EXPECT_EQ(GetFocus(), GetDlgItem(hDlg, 101)) << "a label's mnemonic goes on to the next control";
}

// Its size in bytes is the first word that the control sees, and looks like the mark of a tag.
TEST(Dialog, CreationDataOfTheLargestSizeIsAText)
{
    Host host;
    constexpr size_t SIZE = 0xFFFF;
    constexpr size_t LENGTH = SIZE / 2 - 1;
    std::vector<BYTE> data(SIZE, 'A');
    std::fill(data.begin() + 2 * LENGTH, data.end(), BYTE{0});
    DialogTemplate dialog(WS_POPUP, 200, 100);
    dialog.Add({0, 1, L"GButton", L"", data}).Add({0, 2, L"GLabel", L"", std::vector<BYTE>(SIZE, 0)});
    const DLGPROC pfnDialog = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
    const HWND hDlg = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), dialog.Get(), host, pfnDialog, 0);
    ASSERT_TRUE(hDlg);
    EXPECT_EQ(GetWindowTextLengthW(GetDlgItem(hDlg, 1)), static_cast<int>(LENGTH));
    EXPECT_EQ(TextOf(GetDlgItem(hDlg, 2)), "");

    // An object's own Create finds it there all the same.
    GButton button;
    button.Create(0, 0, 10, 10, hDlg, 3, L"Own", WS_EX_NOPARENTNOTIFY, WS_CHILD);
    EXPECT_EQ(GWnd::FromHwnd(button), &button);
    DestroyWindow(hDlg);
}

} // namespace
