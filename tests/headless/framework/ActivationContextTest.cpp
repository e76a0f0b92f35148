// The activation context under faults of the platform.

#include <gesso/framework/ActivationContext.h>

#include "../FreshDesktop.h"

#include <utility>

namespace {

using namespace test;

constexpr ULONG_PTR NOT_SET_UP = ~static_cast<ULONG_PTR>(0);

class ActivationContextTest : public testing::Test
{
protected:
    void SetUp() override
    {
        desk::Reset();
        InitControls();
        m_hFormer = std::exchange(g_hActCtx, NOT_SET_UP);
        m_fFormer = std::exchange(g_fActCtxUnavailable, false);
    }
    void TearDown() override
    {
        EndFaults();
        g_hActCtx = m_hFormer;
        g_fActCtxUnavailable = m_fFormer;
    }

    static HWND MakeWindow()
    {
        return IsolationAwareCreateWindowExW(0, MAKEINTRESOURCEW(GLabel::s_aClass), nullptr, WS_POPUP, 0, 0,
                                             10, 10, nullptr, nullptr, nullptr, nullptr);
    }

private:
    ULONG_PTR m_hFormer = NOT_SET_UP;
    bool m_fFormer = false;
};

TEST_F(ActivationContextTest, PlatformWithoutContextsIsRememberedAndTheCallGoesThrough)
{
    for (const DWORD dwError :
         std::initializer_list<DWORD>{ERROR_MOD_NOT_FOUND, ERROR_PROC_NOT_FOUND, ERROR_CALL_NOT_IMPLEMENTED,
                                      ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED})
    {
        for (const char* pszOperation : {"ActivateActCtx", "QueryActCtxW"}) {
            g_hActCtx = NOT_SET_UP;
            g_fActCtxUnavailable = false;
            desk::Fail(pszOperation, 100, dwError);
            const HWND hwnd = MakeWindow();
            EXPECT_TRUE(hwnd) << pszOperation << " " << dwError;
            EXPECT_TRUE(g_fActCtxUnavailable);
            DestroyWindow(hwnd);
            EndFaults();
        }
    }
}

TEST_F(ActivationContextTest, AnyOtherErrorGivesTheFailureValueWithoutTheCall)
{
    const desk::Census before = desk::Live();
    desk::Fail("QueryActCtxW", 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(MakeWindow(), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    desk::Fail("CreateActCtxW", 1, ERROR_OUTOFMEMORY);
    EXPECT_EQ(MakeWindow(), nullptr);
    desk::Fail("GetModuleFileNameW", 1, ERROR_OUTOFMEMORY);
    EXPECT_EQ(MakeWindow(), nullptr);
    EXPECT_EQ(desk::Live(), before);
    EXPECT_FALSE(g_fActCtxUnavailable) << "and the next call tries again";
    const HWND hwnd = MakeWindow();
    EXPECT_TRUE(hwnd);
    DestroyWindow(hwnd);
}

TEST_F(ActivationContextTest, LibraryWithoutAManifestGoesOnWithoutAContext)
{
    for (const DWORD dwError : std::initializer_list<DWORD>{
             ERROR_RESOURCE_DATA_NOT_FOUND, ERROR_RESOURCE_TYPE_NOT_FOUND, ERROR_RESOURCE_NAME_NOT_FOUND,
             ERROR_RESOURCE_LANG_NOT_FOUND, ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND})
    {
        g_hActCtx = NOT_SET_UP;
        desk::Fail("CreateActCtxW", 1, dwError);
        const HWND hwnd = MakeWindow();
        EXPECT_TRUE(hwnd) << dwError;
        EXPECT_EQ(g_hActCtx, 0u) << dwError;
        DestroyWindow(hwnd);
    }
}

TEST_F(ActivationContextTest, FailedCallKeepsItsOwnErrorWhetherItsContextCanBeLeftOrNot)
{
    DestroyWindow(MakeWindow()); // sets the context up
    ULONG_PTR below = 0;
    ASSERT_TRUE(ActivateActCtx(nullptr, &below));
    for (const int nStuck : {0, 1}) {
        desk::Fail("CreateWindowExW", 1, ERROR_NOT_ENOUGH_MEMORY);
        if (nStuck) {
            desk::Fail("DeactivateActCtx", 1, ERROR_INVALID_PARAMETER);
        }
        EXPECT_EQ(MakeWindow(), nullptr);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_ENOUGH_MEMORY));
        EXPECT_EQ(desk::ActivationDepth(), 1 + nStuck);
    }
    DeactivateActCtx(0, below); // and what lies on it
    EXPECT_EQ(desk::ActivationDepth(), 0);
}

TEST_F(ActivationContextTest, EachWrapperHasItsOwnFailureValue)
{
    desk::Fail("QueryActCtxW", 100, ERROR_ACCESS_DENIED);
    EXPECT_EQ(IsolationAwareRegisterClassExW(nullptr), 0);
    EXPECT_EQ(IsolationAwareDialogBoxIndirectParamW(nullptr, nullptr, nullptr, nullptr, 0), -1);
    EXPECT_EQ(IsolationAwareCreateDialogIndirectParamW(nullptr, nullptr, nullptr, nullptr, 0), nullptr);
    EXPECT_EQ(IsolationAwareImageList_Create(16, 16, 1), nullptr);
    EXPECT_EQ(IsolationAwareImageList_Destroy(nullptr), FALSE);
    EXPECT_EQ(IsolationAwareImageList_Add(nullptr, nullptr), -1);
    EXPECT_EQ(IsolationAwareImageList_DrawEx(nullptr, 0, nullptr, 0, 0, 0, 0), FALSE);
    HICON hIcon = nullptr;
    EXPECT_EQ(IsolationAwareLoadIconWithScaleDown(nullptr, nullptr, 16, 16, &hIcon),
              HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
}

TEST_F(ActivationContextTest, ImageListGoesWithoutTheContextToo)
{
    const desk::Census before = desk::Live();
    const HIMAGELIST hList = IsolationAwareImageList_Create(16, 16, 1);
    ASSERT_TRUE(hList);
    desk::Fail("ActivateActCtx", 1, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(IsolationAwareImageList_Destroy(hList));
    EXPECT_EQ(desk::Live()[desk::Kind::ImageList], before[desk::Kind::ImageList]);
}

// As a host has it that isolates its parts by other means, or has cleaned up already.
TEST_F(ActivationContextTest, FlagsOfTheHostsLetTheCallsThrough)
{
    struct
    {
        bool fUnavailable, fDownlevel, fCleanedUp;
    } const rows[] = {{true, false, false}, {false, true, false}, {true, true, false}, {false, false, true}};
    for (const auto& row : rows) {
        g_hActCtx = NOT_SET_UP;
        row.fCleanedUp ? void(DestroyWindow(MakeWindow())) : void();
        const ULONG_PTR hActCtx = g_hActCtx;
        g_fActCtxUnavailable = row.fUnavailable;
        g_fIsolationDownlevel = row.fDownlevel;
        g_fIsolationCleanupCalled = row.fCleanedUp;
        EXPECT_TRUE(DestroyWindow(MakeWindow())) << &row - rows;
        EXPECT_TRUE(IsolationAwareImageList_Destroy(IsolationAwareImageList_Create(16, 16, 1)));
        EXPECT_EQ(g_hActCtx, hActCtx) << "no context was made";
        EXPECT_EQ(desk::ActivationDepth(), 0);
        g_fActCtxUnavailable = g_fIsolationDownlevel = g_fIsolationCleanupCalled = false;
    }
}

// In a process of its own, in which no test before this one has looked anything up.
TEST_F(ActivationContextTest, CommonControlsAreLookedUpOnceAndOnlyASuccessIsKept)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto isMade = [](bool fFails) {
        if (fFails) {
            desk::Fail("GetProcAddress", 1, ERROR_PROC_NOT_FOUND);
        }
        return IsolationAwareImageList_Create(16, 16, 1) != nullptr;
    };
    const auto fail = [] { desk::Fail("GetProcAddress", 1, ERROR_PROC_NOT_FOUND); };
    const auto othersFail = [&] {
        HICON hIcon = nullptr;
        fail();
        bool fFail = IsolationAwareImageList_Add(nullptr, nullptr) == -1;
        fail();
        fFail = fFail && !IsolationAwareImageList_DrawEx(nullptr, 0, nullptr, 0, 0, 0, 0);
        fail();
        fFail = fFail && !IsolationAwareImageList_Destroy(nullptr);
        fail();
        return fFail && FAILED(IsolationAwareLoadIconWithScaleDown(nullptr, nullptr, 16, 16, &hIcon));
    };
    EXPECT_EXIT(std::_Exit(othersFail() ? 0 : 1), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(std::_Exit(!isMade(true) && isMade(false) && isMade(true) ? 0 : 1),
                testing::ExitedWithCode(0), "");
}

} // namespace
