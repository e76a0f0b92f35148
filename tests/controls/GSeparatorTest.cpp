#include "Survival.h"

#include <array>
#include <cstring>

namespace {

using namespace test;

constexpr int ID = 12;

class ProbeSeparator : public GSeparator
{
public:
    DWORD& State() { return m_dwState; }
};

class GSeparatorTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(Make(separator, ID)); }
    void TearDown() override { DestroyWindow(separator); }

    HWND Make(GSeparator& any, int nId)
    {
        return any.Create(100, 10, 6, 100, host, nId, 0, WS_CHILD | WS_VISIBLE);
    }
    static void Mouse(HWND hwnd, UINT uMsg, int x = 2, int y = 5)
    {
        SendMessageW(hwnd, uMsg, 0, MAKELPARAM(x, y));
    }

    Host host;
    ProbeSeparator separator;
};

TEST_F(GSeparatorTest, DragIsToldFromPressToRelease)
{
    Mouse(separator, WM_MOUSEMOVE);
    Mouse(separator, WM_LBUTTONUP);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "nothing without a press";
    Mouse(separator, WM_LBUTTONDOWN);
    EXPECT_EQ(GetCapture(), separator.GetHwnd());
    Mouse(separator, WM_MOUSEMOVE, -20, 5);
    Mouse(separator, WM_MOUSEMOVE, 30, 5);
    Mouse(separator, WM_LBUTTONUP, 30, 5);
    EXPECT_EQ(host.TakeReports(), (Reports{"setfocus 12", "notify 12 code -101", "notify 12 code -103",
                                           "notify 12 code -103", "notify 12 code -102"}));
    EXPECT_EQ(GetCapture(), nullptr);
    Mouse(separator, WM_MOUSEMOVE);
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GSeparatorTest, RecordHoldsThePointerInItsFixedPlaces)
{
    std::array<int, 20> words{};
    HWND hwndFrom = nullptr;
    host.onNotify = [&](const NMHDR& header) {
        if (header.code == GSN_DRAG) {
            std::memcpy(words.data(), &header, sizeof(words));
            hwndFrom = header.hwndFrom;
        }
    };
    Mouse(separator, WM_LBUTTONDOWN);
    Mouse(separator, WM_MOUSEMOVE, -20, 300);
    Mouse(separator, WM_LBUTTONUP);
    EXPECT_EQ(hwndFrom, separator.GetHwnd());
    EXPECT_EQ(words[2], ID);
    EXPECT_EQ(words[4], -103);
    // From the 24th byte on: the pointer, negative to the left of the strip, and nothing else.
    EXPECT_EQ(std::vector(words.begin() + 6, words.end()),
              (std::vector<int>{0, 0, 0, 0, 0, 0, -20, 300, 0, 0, 0, 0, 0, 0}));
}

TEST_F(GSeparatorTest, CaptureThatGoesElsewhereEndsTheDragSilently)
{
    Mouse(separator, WM_LBUTTONDOWN);
    separator.State() |= 0x08;
    host.TakeReports();
    SendMessageW(separator, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(separator.GetHwnd()));
    EXPECT_EQ(separator.State() & 0x0A, 0x0Au) << "its own capture changes nothing";
    SetCapture(host);
    EXPECT_EQ(separator.State() & 0x0A, 0u);
    Mouse(separator, WM_MOUSEMOVE);
    Mouse(separator, WM_LBUTTONUP);
    EXPECT_EQ(host.TakeReports(), Reports{});
    ReleaseCapture();
}

TEST_F(GSeparatorTest, DragEndsWithItsWindowAlsoWhereTheObjectGetsANewOne)
{
    Mouse(separator, WM_LBUTTONDOWN);
    DestroyWindow(separator);
    Make(separator, ID);
    host.TakeReports();
    Mouse(separator, WM_MOUSEMOVE);
    Mouse(separator, WM_LBUTTONUP);
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GSeparatorTest, CursorIsLoadedByTheConstructorAndShownOverTheStrip)
{
    GSeparator::s_hColumnSizing = nullptr;
    auto* pMade = static_cast<GSeparator*>(CreateControl(GCK_SEPARATOR));
    EXPECT_TRUE(GSeparator::s_hColumnSizing);
    EXPECT_EQ(GSeparator::s_hColumnSizing, LoadCursorW(nullptr, MAKEINTRESOURCEW(32644)));
    pMade->Delete(pMade);
    SetCursor(nullptr);
    EXPECT_EQ(SendMessageW(separator, WM_SETCURSOR, reinterpret_cast<WPARAM>(separator.GetHwnd()),
                           MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)),
              1);
    EXPECT_EQ(GetCursor(), GSeparator::s_hColumnSizing);
}

TEST_F(GSeparatorTest, PaintsNothingAndLetsNoPaintWait)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), L"GSeparator", &record));
    EXPECT_EQ(record.hbrBackground, nullptr);
    EXPECT_EQ(record.style, 0x4083u);
    EXPECT_EQ(separator.State(), 0u);
    separator.Invalidate(0);
    UpdateWindow(separator);
    EXPECT_FALSE(TakeRepaint(separator));
    SendMessageW(separator, WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS), 0);
    EXPECT_EQ(separator.State(), GWS_HIDEFOCUS);
}

TEST_F(GSeparatorTest, ParentMayDestroyTheSeparatorInEveryReport)
{
    const auto expectSurvival = [&](const std::string& report, const std::function<void(HWND)>& act) {
        auto* pDoomed = new GSeparator;
        Make(*pDoomed, 33);
        ExpectSurvival(host, report, pDoomed, act);
    };
    const auto drag = [](HWND hwnd) {
        Mouse(hwnd, WM_LBUTTONDOWN);
        Mouse(hwnd, WM_MOUSEMOVE, 9, 9);
        Mouse(hwnd, WM_LBUTTONUP, 9, 9);
    };
    for (const char* pszReport :
         {"setfocus 33", "notify 33 code -101", "notify 33 code -103", "notify 33 code -102"})
    {
        expectSurvival(pszReport, drag);
    }
    expectSurvival("killfocus 33", [&](HWND hwnd) {
        SetFocus(hwnd);
        SetFocus(host);
    });
}

} // namespace
