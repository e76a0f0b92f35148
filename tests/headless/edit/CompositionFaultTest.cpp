// Composing while the platform fails, and how composed text is drawn.

#include "../../support/Host.h"
#include "../../support/WithBehavior.h"
#include "../Faults.h"
#include "../FreshDesktop.h"
#include "../memory/MemoryLimit.h"

#include <algorithm>

namespace test {
namespace {

namespace desk = gesso::headless;

class CompositionFaultTest : public testing::Test
{
protected:
    CompositionFaultTest()
    {
        hwnd = edit.Create(10, 10, 200, 30, host, 7, L"xy", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0);
        SetFocus(hwnd);
        SendMessageW(hwnd, EM_SETSEL, 1, 1);
        m_himc = ImmGetContext(hwnd);
    }

    void Compose(LPCWSTR text)
    {
        const auto cb = static_cast<DWORD>(wcslen(text) * sizeof(wchar_t));
        ImmSetCompositionStringW(m_himc, SCS_SETSTR, text, cb, nullptr, 0);
    }
    void Complete() { ImmNotifyIME(m_himc, NI_COMPOSITIONSTR, CPS_COMPLETE, 0); }
    // How many rectangles that are one pixel high were filled: underlines.
    int64_t Underlines()
    {
        desk::ClearDrawing(hwnd);
        InvalidateRect(hwnd, nullptr, FALSE);
        UpdateWindow(hwnd);
        const auto drawing = desk::Drawing(hwnd);
        return std::count_if(drawing.begin(), drawing.end(), [](const std::string& line) {
            int left = 0;
            int top = 0;
            int right = 0;
            int bottom = 0;
            return std::sscanf(line.c_str(), "FillRect (%d,%d,%d,%d)", &left, &top, &right, &bottom) == 4 &&
                   bottom - top == 1 && right - left > 1;
        });
    }

    const FreshDesktop desktop;
    const Modern modern;
    Host host;
    GEdit edit;
    HWND hwnd = nullptr;

private:
    HIMC m_himc = nullptr;
};

TEST_F(CompositionFaultTest, ComposedTextIsUnderlined)
{
    EXPECT_EQ(Underlines(), 0);
    Compose(L"abc");
    EXPECT_EQ(Underlines(), 1);
    Complete();
    EXPECT_EQ(Underlines(), 0);
}

TEST_F(CompositionFaultTest, AResultThatCannotBeReadComesAsCharacters)
{
    for (const char* const operation : {"ImmGetCompositionStringW", "ImmGetContext"}) {
        for (int skip = 0; skip < 2; ++skip) {
            edit.SetText(L"xy");
            SendMessageW(hwnd, EM_SETSEL, 1, 1);
            Compose(L"ab");
            Complete(); // how often it is asked until the result comes is the second one's
            desk::Pump();
            ASSERT_EQ(TextOf(hwnd), "xaby");
            edit.SetText(L"xy");
            SendMessageW(hwnd, EM_SETSEL, 1, 1);
            Compose(L"ab");
            desk::Fail(operation, 100, ERROR_NOT_ENOUGH_MEMORY, skip);
            Complete();
            EndFaults();
            desk::Pump();
            EXPECT_EQ(TextOf(hwnd), "xaby") << operation << " but for " << skip;
        }
    }
}

TEST_F(CompositionFaultTest, AResultThatComesAsCharactersIsOneStep)
{
    Compose(L"a b c");
    desk::Fail("ImmGetCompositionStringW", 100);
    Complete();
    EndFaults();
    EXPECT_EQ(TextOf(hwnd), "xa b cy");
    SendMessageW(hwnd, EM_UNDO, 0, 0);
    EXPECT_EQ(TextOf(hwnd), "xy");
}

TEST_F(CompositionFaultTest, WhatIsComposedBehindAResultIsShownUnlessTheFocusHasGone)
{
    GEdit other;
    const HWND hwndOther = other.Create(10, 50, 200, 30, host, 8, L"", WS_CHILD | WS_VISIBLE, 0);
    desk::AcceptAndCompose(u"a", u"bc");
    EXPECT_EQ(TextOf(hwnd), "xay");
    EXPECT_EQ(Underlines(), 1);
    host.onReport = [&](const std::string&) { SetFocus(hwndOther); };
    desk::AcceptAndCompose(u"d", u"ef");
    host.onReport = nullptr;
    EXPECT_EQ(TextOf(hwnd), "xady");
    EXPECT_EQ(Underlines(), 0);
    Complete();
    desk::Pump();
    EXPECT_EQ(TextOf(hwnd), "xady");
    EXPECT_EQ(TextOf(hwndOther), "ef") << "the input method goes on there";
}

TEST_F(CompositionFaultTest, ASecretTakesNothingOfAnInputMethodThatCannotBeKeptAway)
{
    desk::Fail("ImmAssociateContext");
    SendMessageW(hwnd, EM_SETPASSWORDCHAR, '*', 0);
    EndFaults();
    Compose(L"ab");
    EXPECT_EQ(Underlines(), 0);
    Complete();
    desk::Pump();
    EXPECT_EQ(TextOf(hwnd), "xy");
    SendMessageW(hwnd, EM_SETPASSWORDCHAR, 0, 0);
    Compose(L"ab");
    Complete();
    EXPECT_EQ(TextOf(hwnd), "xaby");
}

TEST_F(CompositionFaultTest, WhatThereIsNoMemoryForIsNotLost)
{
    constexpr size_t LENGTH = 100;
    std::vector<wchar_t> text(LENGTH, L'w');
    text.push_back(0);
    Compose(text.data());
    {
        const MemoryLimit limit(190);
        SetFocus(host);
        EXPECT_GT(limit.Refused(), 0U);
    }
    EXPECT_EQ(TextOf(hwnd), "xy");
    SetFocus(hwnd);
    SetFocus(host);
    EXPECT_EQ(TextOf(hwnd), "x" + std::string(LENGTH, 'w') + "y");
}

TEST_F(CompositionFaultTest, NothingElseIsLostWhereTheInputMethodFails)
{
    for (const char* const operation : {"ImmNotifyIME", "ImmReleaseContext", "ImmSetCandidateWindow",
                                        "ImmSetCompositionFontW", "ImmSetCompositionWindow"})
    {
        edit.SetText(L"xy");
        SendMessageW(hwnd, EM_SETSEL, 1, 1);
        desk::Fail(operation, 100);
        Compose(L"ab");
        SetFocus(host);
        EndFaults();
        EXPECT_EQ(TextOf(hwnd), "xaby") << operation;
        ImmNotifyIME(ImmGetContext(host), NI_COMPOSITIONSTR, CPS_CANCEL, 0);
        SetFocus(hwnd);
    }
}

TEST_F(CompositionFaultTest, ATextThatThereIsNoMemoryForLeavesWhatIsComposed)
{
    std::vector<wchar_t> text(MemoryLimit::LARGEST, L'w');
    text.push_back(0);
    Compose(L"ab");
    {
        const MemoryLimit limit;
        SendMessageW(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.data()));
        EXPECT_GT(limit.Refused(), 0U);
    }
    EXPECT_EQ(Underlines(), 1);
    Complete();
    EXPECT_EQ(TextOf(hwnd), "xaby");
    Compose(L"ab");
    SendMessageW(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"new"));
    EXPECT_EQ(Underlines(), 0);
    Complete();
    EXPECT_EQ(TextOf(hwnd), "new");
}

} // namespace
} // namespace test
