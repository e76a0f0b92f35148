// The dialogs' base, and the templates that the library holds. Runs on both platforms.

#include <gesso/gesso.h>

#include "../support/DialogTemplate.h"
#include "../support/Host.h"
#include "../support/Interception.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using namespace test;

constexpr UINT EMPTY_TEMPLATE = 100;
constexpr UINT CERTIFICATE_TEMPLATE = 130;

// The module that the library's data is in.
HMODULE LibraryModule()
{
    HMODULE hModule = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&GDialog::s_hActiveDlg), &hModule);
    return hModule;
}

std::vector<WORD> WordsOf(UINT nTemplate)
{
    const HRSRC hResource = FindResourceW(LibraryModule(), MAKEINTRESOURCEW(nTemplate), L"RT_DLG");
    const HGLOBAL hData = hResource ? LoadResource(LibraryModule(), hResource) : nullptr;
    const auto* pWords = hData ? static_cast<const WORD*>(LockResource(hData)) : nullptr;
    return pWords ? std::vector<WORD>(pWords, pWords + SizeofResource(LibraryModule(), hResource) / 2)
                  : std::vector<WORD>{};
}

// A dialog as a host derives it.
class HostDialog : public GDialog
{
public:
    using GDialog::GDialog;

    DLGPROC GetDialogProc() override { return DialogProc; }
    UINT CountOf(UINT uMsg) const { return uMsg == WM_COMMAND ? m_nCommands : m_nInits; }
    // Called at WM_INITDIALOG.
    std::function<void()> onInit;

private:
    static INT_PTR CALLBACK DialogProc(HWND hDlg, UINT uMsg, WPARAM, LPARAM lParam)
    {
        auto* pDialog = static_cast<HostDialog*>(ObjectOf(hDlg, uMsg, lParam));
        if (!pDialog) {
            return FALSE;
        }
        pDialog->m_nCommands += uMsg == WM_COMMAND;
        pDialog->m_nInits += uMsg == WM_INITDIALOG;
        if (uMsg == WM_INITDIALOG && pDialog->onInit) {
            pDialog->onInit();
        }
        return uMsg == WM_INITDIALOG;
    }

    UINT m_nInits = 0;
    UINT m_nCommands = 0;
};

// Deletes itself at the first message.
class DoomedDialog : public GDialog
{
public:
    DoomedDialog() : GDialog(EMPTY_TEMPLATE) { s_pDoomed = this; }
    DLGPROC GetDialogProc() override { return DialogProc; }

    static inline HWND s_hWnd = nullptr;

private:
    static INT_PTR CALLBACK DialogProc(HWND hDlg, UINT uMsg, WPARAM, LPARAM lParam)
    {
        s_hWnd = hDlg;
        delete std::exchange(s_pDoomed, nullptr);
        EXPECT_EQ(ObjectOf(hDlg, uMsg, lParam), nullptr);
        return FALSE;
    }

    static inline DoomedDialog* s_pDoomed = nullptr;
};

class GDialogTest : public testing::Test
{
protected:
    Host host;
};

TEST_F(GDialogTest, TheLibraryHoldsOneTemplateUnderBothIds)
{
    const std::vector<WORD> expected = {1,   0xFFFF, 0,   0,   0,   0,   0x08C0, 0x96C8, 0,   20, 20, 245,
                                        220, 0,      0,   'D', 'i', 'a', 'l',    'o',    'g', 0,  9,  400,
                                        0,   'S',    'e', 'g', 'o', 'e', ' ',    'U',    'I', 0};
    ASSERT_EQ(expected.size() * sizeof(WORD), 68u);
    EXPECT_EQ(WordsOf(EMPTY_TEMPLATE), expected);
    EXPECT_EQ(WordsOf(CERTIFICATE_TEMPLATE), expected);
}

TEST_F(GDialogTest, StartsFromAnotherModulesResourceAndBindsItsObject)
{
    HostDialog dialog(EMPTY_TEMPLATE);
    EXPECT_EQ(dialog.GetHwnd(), nullptr);
    HWND hwndAtInit = nullptr;
    dialog.onInit = [&] { hwndAtInit = dialog; };
    EXPECT_EQ(dialog.Create(host, LibraryModule()), 1);
    ASSERT_TRUE(IsWindow(dialog));
    EXPECT_EQ(hwndAtInit, dialog.GetHwnd()) << "known before the start has returned";
    EXPECT_EQ(TextOf(dialog), "Dialog");
    EXPECT_EQ(reinterpret_cast<HMODULE>(GetWindowLongPtrW(dialog, GWLP_HINSTANCE)),
              GetModuleHandleW(nullptr));
    SendMessageW(dialog, WM_COMMAND, 5, 0);
    EXPECT_EQ(dialog.CountOf(WM_COMMAND), 1u);
    EXPECT_TRUE(dialog.Destroy());
    EXPECT_FALSE(IsWindow(dialog));
    dialog.Create(host, LibraryModule());
    EXPECT_TRUE(IsWindow(dialog)) << "an object can start its dialog again";
    dialog.Destroy();
}

TEST_F(GDialogTest, RunsModallyAndLetsTheHostMakeItsOwnMeanwhile)
{
    DialogTemplate source(WS_POPUP, 100, 50);
    HostDialog dialog(EMPTY_TEMPLATE);
    HostDialog own;
    dialog.onInit = [&] {
        for (HostDialog* pOwn : {&own, static_cast<HostDialog*>(nullptr)}) {
            const HWND hOwn = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), source.Get(), nullptr,
                                                         own.GetDialogProc(), reinterpret_cast<LPARAM>(pOwn));
            EXPECT_EQ(pOwn ? own.GetHwnd() : hOwn, hOwn);
            EXPECT_TRUE(DestroyWindow(hOwn)) << "with an object and without one";
        }
        EndDialog(dialog, 42);
    };
    EXPECT_EQ(dialog.DoModal(host, LibraryModule()), 42);
    EXPECT_EQ(dialog.CountOf(WM_INITDIALOG), 1u);
    EXPECT_EQ(own.CountOf(WM_INITDIALOG), 1u);
    EXPECT_TRUE(IsWindowEnabled(host));
}

TEST_F(GDialogTest, AnObjectThatIsDeletedBeforeItIsBoundIsNotRead)
{
    EXPECT_EQ((new DoomedDialog)->Create(host, LibraryModule()), 1);
    ASSERT_TRUE(IsWindow(DoomedDialog::s_hWnd));
    DestroyWindow(DoomedDialog::s_hWnd);
}

TEST_F(GDialogTest, MissingTemplateShowsNothing)
{
    HostDialog dialog(L"NO_SUCH_TEMPLATE");
    EXPECT_EQ(dialog.Create(host, LibraryModule()), 1);
    EXPECT_EQ(dialog.GetHwnd(), nullptr);
    EXPECT_EQ(dialog.CreateIndirect(host, nullptr, nullptr), 1);
    EXPECT_EQ(dialog.GetHwnd(), nullptr);
    SetLastError(0);
    const INT_PTR nResult = dialog.DoModal(host, LibraryModule());
    EXPECT_EQ(nResult, static_cast<INT_PTR>(GetLastError()));
    EXPECT_NE(nResult, 0);
    EXPECT_EQ(dialog.CountOf(WM_INITDIALOG), 0u);
    EXPECT_TRUE(IsWindowEnabled(host));
}

TEST_F(GDialogTest, GetTextTellsAFilledBufferFromOneWithRoom)
{
    HostDialog dialog(EMPTY_TEMPLATE);
    dialog.Create(host, LibraryModule());
    EXPECT_TRUE(dialog.SetText(L"Seven C"));
    EXPECT_EQ(dialog.GetTextLength(), 7);
    struct
    {
        int nCapacity, nResult, nLength;
        const char* pszText;
    } const rows[] = {
        {20, 0, 8, "Seven C"}, {8, 1, 7, "Seven C"}, {4, 1, 3, "Sev"}, {0, 1, 0, ""}, {-5, 1, 0, ""}};
    for (const auto& row : rows) {
        std::array<wchar_t, 20> buffer{};
        int nLength = row.nCapacity;
        EXPECT_EQ(dialog.GetText(buffer.data(), &nLength), row.nResult) << row.nCapacity;
        EXPECT_EQ(nLength, row.nLength) << row.nCapacity;
        EXPECT_EQ(Narrow(buffer.data()), row.pszText) << row.nCapacity;
    }
    int nLength = 20;
    EXPECT_EQ(dialog.GetText(nullptr, &nLength), 1) << "no buffer is one without room";
    EXPECT_EQ(dialog.GetText(nullptr, nullptr), 0);
    dialog.Destroy();
}

TEST_F(GDialogTest, WindowOutlivesItsObject)
{
    for (const bool fAtInit : {false, true}) {
        HWND hDlg = nullptr;
        auto* pDialog = new HostDialog(EMPTY_TEMPLATE);
        pDialog->onInit = [&] {
            hDlg = *pDialog;
            fAtInit ? delete pDialog : void();
        };
        pDialog->Create(host, LibraryModule());
        fAtInit ? void() : delete pDialog;
        ASSERT_TRUE(IsWindow(hDlg));
        SendMessageW(hDlg, WM_COMMAND, IDOK, 0);
        EXPECT_TRUE(DestroyWindow(hDlg));
    }
}

TEST_F(GDialogTest, AHostMayDeleteItWhileItsTextIsAsked)
{
    auto* pDialog = new HostDialog(EMPTY_TEMPLATE);
    pDialog->Create(host, LibraryModule());
    const HWND hDlg = pDialog->GetHwnd();
    pDialog->SetText(L"text");
    {
        const Interception deleted(hDlg, WM_GETTEXT, [&] { delete pDialog; });
        int nLength = 20;
        std::array<wchar_t, 20> buffer{};
        EXPECT_EQ(pDialog->GetText(buffer.data(), &nLength), 0);
        EXPECT_EQ(nLength, 5);
    }
    DestroyWindow(hDlg);
}

TEST_F(GDialogTest, FindsItsControls)
{
    DialogTemplate source(WS_POPUP, 100, 50);
    source.Add(L"GButton", 7, 0, 5, 5, 40, 14, L"Inside");
    HostDialog dialog;
    dialog.CreateIndirect(host, GetModuleHandleW(nullptr), source.Get());
    ASSERT_TRUE(dialog.GetDlgItem(7));
    EXPECT_EQ(TextOf(dialog.GetDlgItem(7)), "Inside");
    EXPECT_EQ(dialog.GetDlgItem(8), nullptr);
    dialog.Destroy();
}

} // namespace
