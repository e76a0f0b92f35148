// What a window hears of the input method, while nobody but the program composes.
#include "../support/TestWindow.h"
#include "../support/User.h"

#include <array>

using namespace test;

namespace {

class InputMethodTest : public WindowsTest
{
protected:
    void SetUp() override
    {
        WindowsTest::SetUp();
        const Handler note = [this](HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
            if (message == WM_IME_SETCONTEXT || message == WM_SETFOCUS || message == WM_KILLFOCUS) {
                const char* const name = message == WM_SETFOCUS    ? "focus"
                                         : message == WM_KILLFOCUS ? "no focus"
                                         : wParam                  ? "context"
                                                                   : "no context";
                m_notes += std::string(hwnd == a ? "a " : "b ") + name + ", ";
            }
            return std::optional<LRESULT>();
        };
        const HWND top = MakeTop();
        a = MakeChild(top, {0, 0, 10, 10}, note);
        b = MakeChild(top, {20, 0, 30, 10}, note);
        SetFocus(a);
        context = ImmGetContext(a);
    }

    void Compose(LPCWSTR text)
    {
        const auto size = static_cast<DWORD>(wcslen(text) * sizeof(wchar_t));
        EXPECT_TRUE(
            ImmSetCompositionStringW(context, SCS_SETSTR, const_cast<LPWSTR>(text), size, nullptr, 0));
    }
    BOOL Notify(DWORD index) const { return ImmNotifyIME(context, NI_COMPOSITIONSTR, index, 0); }
    // A text of the context, in letters, with the size that it tells.
    std::string Read(DWORD index) const
    {
        std::array<wchar_t, 20> text{};
        const LONG size = ImmGetCompositionStringW(context, index, text.data(), sizeof(text));
        EXPECT_EQ(ImmGetCompositionStringW(context, index, nullptr, 0), size);
        return std::string(text.begin(), text.begin() + size / static_cast<LONG>(sizeof(wchar_t)));
    }
    // The input method's messages and characters, with their parameters.
    std::string Heard(const std::function<void()>& act)
    {
        std::string heard;
        for (const Seen& seen : Traced(act)) {
            const bool composition = seen.message == WM_IME_COMPOSITION;
            const std::string names = Names({seen});
            if (names.starts_with("WM_IME_") || seen.message == WM_CHAR) {
                heard += (seen.hwnd == a ? "a:" : "b:") + names.substr(3);
                heard += seen.wParam ? std::string(" ") + static_cast<char>(seen.wParam) : "";
                heard += composition && (seen.lParam & GCS_COMPSTR) ? " composed" : "";
                heard += composition && (seen.lParam & GCS_RESULTSTR) ? " result" : "";
                heard += "\n";
            }
        }
        return heard;
    }
    std::string TakeNotes() { return std::exchange(m_notes, {}); }

    HWND a = nullptr;
    HWND b = nullptr;
    HIMC context = nullptr;

private:
    std::string m_notes;
};

TEST_F(InputMethodTest, ComposedTextIsTypedWhenItIsAccepted)
{
    EXPECT_EQ(Heard([&] { Compose(L"ab"); }), "a:IME_STARTCOMPOSITION\na:IME_COMPOSITION a composed\n");
    EXPECT_EQ(Read(GCS_COMPSTR), "ab");
    EXPECT_EQ(ImmGetCompositionStringW(context, GCS_CURSORPOS, nullptr, 0), 2);
    EXPECT_EQ(ImmGetCompositionStringW(context, GCS_COMPATTR, nullptr, 0), 2);
    EXPECT_EQ(Heard([&] { Compose(L"xyz"); }), "a:IME_COMPOSITION x composed\n");
    EXPECT_EQ(Heard([&] { EXPECT_TRUE(Notify(CPS_COMPLETE)); }), "a:IME_COMPOSITION composed\n"
                                                                 "a:IME_COMPOSITION x result\n"
                                                                 "a:IME_CHAR x\na:IME_CHAR y\na:IME_CHAR z\n"
                                                                 "a:IME_ENDCOMPOSITION\n");
    EXPECT_EQ(Read(GCS_COMPSTR), "");
    EXPECT_EQ(Read(GCS_RESULTSTR), "xyz");
    EXPECT_EQ(Heard([] { user::Pump(); }), "a:CHAR x\na:CHAR y\na:CHAR z\n");
    EXPECT_EQ(Heard([&] { Notify(CPS_COMPLETE); }), "");
}

TEST_F(InputMethodTest, ComposedTextGoesWhenItIsCancelled)
{
    Compose(L"ab");
    EXPECT_EQ(Heard([&] { EXPECT_TRUE(Notify(CPS_CANCEL)); }), "a:IME_ENDCOMPOSITION\n");
    EXPECT_EQ(Read(GCS_COMPSTR) + Read(GCS_RESULTSTR), "");
    Compose(L"ab");
    EXPECT_EQ(Heard([&] { Compose(L""); }), "a:IME_COMPOSITION composed\n")
        << "nothing is composed, and goes on";
    EXPECT_EQ(Heard([&] { Notify(CPS_COMPLETE); }), "a:IME_ENDCOMPOSITION\n");
}

TEST_F(InputMethodTest, ItBelongsToTheWindowWithTheFocus)
{
    Compose(L"ab");
    TakeNotes();
    SetFocus(b);
    EXPECT_EQ(TakeNotes(), "a no focus, a no context, b context, b focus, ");
    EXPECT_EQ(ImmGetContext(b), context) << "one for all windows of a thread";
    EXPECT_EQ(Heard([&] { Notify(CPS_CANCEL); }), "b:IME_ENDCOMPOSITION\n");
    SetFocus(nullptr);
    EXPECT_EQ(TakeNotes(), "b no focus, b no context, ");
    EXPECT_EQ(Heard([&] { Compose(L"ab"); }), "");
    Notify(CPS_CANCEL);
    SetFocus(a);
    EXPECT_EQ(TakeNotes(), "a context, a focus, ");
    EXPECT_EQ(ImmGetContext(nullptr), nullptr);
    EXPECT_TRUE(ImmReleaseContext(a, context));
}

TEST_F(InputMethodTest, ItsWindowsStayWhereTheyArePut)
{
    COMPOSITIONFORM composition{CFS_POINT, {5, 6}, {}};
    EXPECT_TRUE(ImmSetCompositionWindow(context, &composition));
    composition = {};
    EXPECT_TRUE(ImmGetCompositionWindow(context, &composition));
    EXPECT_EQ(composition.ptCurrentPos.y, 6);
    CANDIDATEFORM candidates{0, CFS_EXCLUDE, {1, 2}, {1, 2, 3, 4}};
    EXPECT_TRUE(ImmSetCandidateWindow(context, &candidates));
    candidates = {};
    EXPECT_TRUE(ImmGetCandidateWindow(context, 0, &candidates));
    EXPECT_EQ(candidates.rcArea.bottom, 4);
    LOGFONTW font{};
    EXPECT_TRUE(ImmSetCompositionFontW(context, &font));
    EXPECT_FALSE(ImmGetCandidateWindow(context, 4, &candidates));
    EXPECT_FALSE(ImmSetCompositionWindow(nullptr, &composition));
    EXPECT_FALSE(Notify(CPS_REVERT));
}

} // namespace
