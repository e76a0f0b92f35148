// What an input method composes in a text field, driven by the program in the input method's place.

#include "../support/Host.h"
#include "../support/Keys.h"
#include "../support/WithBehavior.h"
#include "EditFixture.h"

#include <memory>

namespace {

using namespace test;

class CompositionTest : public testing::Test
{
protected:
    // A field with a text, the focus, and the characters from nFrom up to nTo selected.
    void Make(LPCWSTR text, int nFrom, int nTo, DWORD dwStyle = ES_AUTOHSCROLL)
    {
        hwnd = edit->Create(10, 10, 200, 60, host, 7, text, WS_CHILD | WS_VISIBLE | dwStyle, 0);
        SetFocus(hwnd);
        SendMessageW(hwnd, EM_SETSEL, static_cast<WPARAM>(nFrom), nTo);
        Own(ImmGetContext(hwnd));
        host.TakeReports();
    }
    void Own(HIMC himc) { m_himc = himc; }
    void TearDown() override { Notify(CPS_CANCEL); }

    void Compose(LPCWSTR text)
    {
        const auto cb = static_cast<DWORD>(wcslen(text) * sizeof(wchar_t));
        EXPECT_TRUE(ImmSetCompositionStringW(m_himc, SCS_SETSTR, const_cast<LPWSTR>(text), cb, nullptr, 0));
    }
    void Notify(DWORD dwIndex) { ImmNotifyIME(m_himc, NI_COMPOSITIONSTR, dwIndex, 0); }
    void Accept(LPCWSTR text)
    {
        Compose(text);
        Notify(CPS_COMPLETE);
        DispatchAll();
    }
    // The text with a bar at the caret, or one at both ends of the selection.
    std::string Shown() const
    {
        int nFrom = 0;
        int nTo = 0;
        edit->GetSel(&nFrom, &nTo);
        std::string text = TextOf(hwnd);
        text.insert(static_cast<size_t>(nTo), "|");
        return nFrom == nTo ? text : text.insert(static_cast<size_t>(nFrom), "|");
    }
    POINT CaretPoint() const
    {
        POINT pt{};
        GetCaretPos(&pt);
        return pt;
    }
    // Of the messages to the parent those codes that tell of changes.
    std::vector<std::string> Told()
    {
        std::vector<std::string> told;
        for (const std::string& report : host.TakeReports()) {
            for (const UINT uCode : {EN_UPDATE, EN_CHANGE, EN_MAXTEXT}) {
                if (report.find("code " + std::to_string(uCode)) != std::string::npos) {
                    told.push_back(std::to_string(uCode));
                }
            }
        }
        return told;
    }
    CANDIDATEFORM Candidates() const
    {
        CANDIDATEFORM form{};
        ImmGetCandidateWindow(m_himc, 0, &form);
        return form;
    }
    template <class FORM> FORM Asked(WPARAM wRequest) const
    {
        FORM form{};
        EXPECT_NE(SendMessageW(hwnd, WM_IME_REQUEST, wRequest, reinterpret_cast<LPARAM>(&form)), 0);
        return form;
    }

    const Modern modern;
    Host host;
    std::unique_ptr<GEdit> edit = std::make_unique<GEdit>();
    HWND hwnd = nullptr;

private:
    HIMC m_himc = nullptr;
};

TEST_F(CompositionTest, ComposedTextIsShownAndNoTextBeforeItIsAccepted)
{
    Make(L"xy", 1, 1);
    const POINT ptFormer = CaretPoint();
    UpdateWindow(hwnd);
    Compose(L"ab");
    EXPECT_TRUE(TakeRepaint(hwnd));
    EXPECT_GT(CaretPoint().x, ptFormer.x) << "a caret of its own";
    Compose(L"abc");
    EXPECT_EQ(Shown(), "x|y");
    EXPECT_EQ(Told(), std::vector<std::string>());
    EXPECT_FALSE(SendMessageW(hwnd, EM_GETMODIFY, 0, 0));
    EXPECT_FALSE(SendMessageW(hwnd, EM_CANUNDO, 0, 0));
    Notify(CPS_COMPLETE);
    EXPECT_EQ(Shown(), "xabc|y");
    EXPECT_EQ(Told().size(), 2U) << "EN_UPDATE and EN_CHANGE";
    DispatchAll();
    EXPECT_EQ(Shown(), "xabc|y") << "and not once more as characters";
    Accept(L"d");
    EXPECT_EQ(Shown(), "xabcd|y");
    SendMessageW(hwnd, EM_UNDO, 0, 0);
    EXPECT_EQ(Shown(), "xabc|y") << "a step each";
    SendMessageW(hwnd, EM_UNDO, 0, 0);
    EXPECT_EQ(Shown(), "x|y");
}

TEST_F(CompositionTest, ACancelledOneBringsTheSelectionBack)
{
    for (const bool fByEsc : {false, true}) {
        edit = std::make_unique<GEdit>();
        Make(L"one two three", 4, 7);
        const POINT ptFormer = CaretPoint();
        Compose(L"wide composed text");
        EXPECT_NE(CaretPoint().x, ptFormer.x);
        if (fByEsc) {
            SendMessageW(hwnd, WM_KEYDOWN, VK_ESCAPE, 1);
        } else {
            Notify(CPS_CANCEL);
        }
        EXPECT_EQ(Shown(), "one |two| three");
        EXPECT_EQ(CaretPoint().x, ptFormer.x);
        Notify(CPS_COMPLETE);
        DispatchAll();
        EXPECT_EQ(Shown(), "one |two| three") << "there is nothing left to accept";
        EXPECT_EQ(Told(), std::vector<std::string>());
        DestroyWindow(hwnd);
    }
}

TEST_F(CompositionTest, AnotherTextCancelsWhatIsComposed)
{
    Make(L"xy", 1, 1);
    Compose(L"ab");
    edit->SetText(L"new");
    Notify(CPS_COMPLETE);
    DispatchAll();
    EXPECT_EQ(Shown(), "|new");
}

TEST_F(CompositionTest, AnAcceptedOneTakesTheSelectionsPlaceInOneStep)
{
    Make(L"one two\r\nthree four", 4, 14, ES_MULTILINE | ES_AUTOVSCROLL);
    Compose(L"2");
    UpdateWindow(hwnd);
    Notify(CPS_COMPLETE);
    EXPECT_EQ(Shown(), "one 2| four");
    SendMessageW(hwnd, EM_UNDO, 0, 0);
    EXPECT_EQ(Shown(), "one |two\r\nthree| four");
}

TEST_F(CompositionTest, LosingTheFocusAcceptsInTheFieldThatLosesIt)
{
    Make(L"xy", 1, 1);
    GEdit other;
    const HWND hwndOther = other.Create(10, 80, 200, 30, host, 8, L"other", WS_CHILD | WS_VISIBLE, 0);
    Compose(L"ab");
    SetFocus(hwndOther);
    DispatchAll();
    EXPECT_EQ(Shown(), "xab|y");
    EXPECT_EQ(TextOf(hwndOther), "other");
    SetFocus(hwnd);
    Compose(L"c");
    EnableWindow(hwnd, FALSE);
    EXPECT_EQ(Shown(), "xabc|y");
    EnableWindow(hwnd, TRUE);
    SetFocus(hwnd);
    Compose(L"d");
    SendMessageW(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 5));
    SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(1, 5));
    EXPECT_EQ(Shown(), "|xabcdy") << "and so does a press of a button";
}

TEST_F(CompositionTest, WhatIsAcceptedKeepsToTheFieldsRules)
{
    Make(L"1", 1, 1, ES_NUMBER | ES_AUTOHSCROLL);
    Accept(L"a2b3");
    EXPECT_EQ(Shown(), "123|");
    SendMessageW(hwnd, EM_LIMITTEXT, 4, 0);
    Told();
    Accept(L"456");
    EXPECT_EQ(Shown(), "1234|");
    EXPECT_EQ(Told(), (std::vector<std::string>{std::to_string(EN_UPDATE), std::to_string(EN_CHANGE),
                                                std::to_string(EN_MAXTEXT)}));
    const POINT ptFormer = CaretPoint();
    Compose(L"5");
    EXPECT_NE(CaretPoint().x, ptFormer.x);
    SendMessageW(hwnd, EM_SETREADONLY, TRUE, 0);
    EXPECT_EQ(CaretPoint().x, ptFormer.x);
    Compose(L"5");
    EXPECT_EQ(CaretPoint().x, ptFormer.x) << "nothing is composed where nothing is typed";
    Notify(CPS_COMPLETE);
    DispatchAll();
    EXPECT_EQ(Shown(), "1234|");
}

TEST_F(CompositionTest, TheInputMethodsWindowsStandBelowTheText)
{
    Make(L"xy", 1, 1);
    const POINT ptCaret = CaretPoint();
    Compose(L"abc");
    const CANDIDATEFORM candidates = Candidates();
    EXPECT_EQ(candidates.dwStyle, static_cast<DWORD>(CFS_EXCLUDE));
    EXPECT_EQ(candidates.ptCurrentPos.x, ptCaret.x) << "where the composed text begins";
    EXPECT_EQ(candidates.rcArea.top, ptCaret.y);
    EXPECT_EQ(candidates.rcArea.right, CaretPoint().x);
    EXPECT_EQ(candidates.ptCurrentPos.y, candidates.rcArea.bottom);
    EXPECT_GT(candidates.rcArea.bottom, candidates.rcArea.top);
    const auto asked = Asked<CANDIDATEFORM>(IMR_CANDIDATEWINDOW);
    EXPECT_TRUE(EqualRect(&asked.rcArea, &candidates.rcArea));
    const auto composition = Asked<COMPOSITIONFORM>(IMR_COMPOSITIONWINDOW);
    EXPECT_EQ(composition.dwStyle, static_cast<DWORD>(CFS_POINT));
    EXPECT_EQ(composition.ptCurrentPos.x, ptCaret.x);
    EXPECT_EQ(composition.ptCurrentPos.y, ptCaret.y);
    EXPECT_EQ(SendMessageW(hwnd, WM_IME_REQUEST, IMR_CANDIDATEWINDOW, 0), 0);
}

TEST_F(CompositionTest, TheInputMethodsWindowsFollowWhatMovesTheText)
{
    Make(L"xy", 1, 1);
    Compose(L"abc");
    const LONG xFormer = Candidates().ptCurrentPos.x;
    const auto dwMargins = static_cast<DWORD>(SendMessageW(hwnd, EM_GETMARGINS, 0, 0));
    SendMessageW(hwnd, EM_SETMARGINS, EC_LEFTMARGIN, MAKELPARAM(LOWORD(dwMargins) + 20, 0));
    EXPECT_EQ(Candidates().ptCurrentPos.x, xFormer + 20);
    EXPECT_EQ(SendMessageW(hwnd, WM_IME_REQUEST, IMR_RECONVERTSTRING, 0), 0)
        << "nothing else is converted meanwhile";
}

TEST_F(CompositionTest, WhatIsSelectedCanBeConvertedAgain)
{
    Make(L"one two", 4, 6);
    const LRESULT cb = SendMessageW(hwnd, WM_IME_REQUEST, IMR_RECONVERTSTRING, 0);
    ASSERT_GE(cb, static_cast<LRESULT>(sizeof(RECONVERTSTRING) + 2 * sizeof(wchar_t)));
    const auto ask = [&](DWORD dwSize) {
        std::vector<BYTE> block(static_cast<size_t>(cb));
        auto* const pString = reinterpret_cast<RECONVERTSTRING*>(block.data());
        pString->dwSize = dwSize;
        if (SendMessageW(hwnd, WM_IME_REQUEST, IMR_RECONVERTSTRING, reinterpret_cast<LPARAM>(pString)) == 0) {
            return std::string("refused");
        }
        EXPECT_LE(pString->dwStrOffset + pString->dwStrLen * sizeof(wchar_t), block.size());
        EXPECT_LE(pString->dwCompStrOffset / sizeof(wchar_t) + pString->dwCompStrLen, pString->dwStrLen);
        EXPECT_EQ(pString->dwTargetStrOffset, pString->dwCompStrOffset);
        EXPECT_EQ(pString->dwTargetStrLen, pString->dwCompStrLen);
        const BYTE* const pComposed = block.data() + pString->dwStrOffset + pString->dwCompStrOffset;
        const auto* const psz = reinterpret_cast<const wchar_t*>(pComposed);
        return std::string(psz, psz + pString->dwCompStrLen);
    };
    EXPECT_EQ(ask(static_cast<DWORD>(cb)), "tw");
    EXPECT_EQ(ask(static_cast<DWORD>(cb) - 1), "refused");
    SendMessageW(hwnd, EM_SETSEL, 1, 1);
    EXPECT_EQ(SendMessageW(hwnd, WM_IME_REQUEST, IMR_RECONVERTSTRING, 0),
              static_cast<LRESULT>(cb + sizeof(wchar_t)));
    EXPECT_EQ(Shown(), "o|ne two");
    Accept(L"1");
    SendMessageW(hwnd, EM_UNDO, 0, 0);
    SendMessageW(hwnd, EM_SETREADONLY, TRUE, 0);
    EXPECT_EQ(SendMessageW(hwnd, WM_IME_REQUEST, IMR_RECONVERTSTRING, 0), 0);
}

TEST_F(CompositionTest, TheWordAtTheCaretIsSelectedToBeConverted)
{
    Make(L"one two", 1, 1);
    std::vector<BYTE> block(static_cast<size_t>(SendMessageW(hwnd, WM_IME_REQUEST, IMR_RECONVERTSTRING, 0)));
    reinterpret_cast<RECONVERTSTRING*>(block.data())->dwSize = static_cast<DWORD>(block.size());
    EXPECT_NE(SendMessageW(hwnd, WM_IME_REQUEST, IMR_RECONVERTSTRING, reinterpret_cast<LPARAM>(block.data())),
              0);
    EXPECT_EQ(Shown(), "|one| two");
    Accept(L"1");
    EXPECT_EQ(Shown(), "1| two");
}

TEST_F(CompositionTest, ASecretIsNeitherComposedNorConvertedAgain)
{
    Make(L"secret", 0, 6, ES_PASSWORD | ES_AUTOHSCROLL);
    EXPECT_EQ(SendMessageW(hwnd, WM_IME_REQUEST, IMR_RECONVERTSTRING, 0), 0);
    EXPECT_EQ(ImmGetContext(hwnd), nullptr);
    SendMessageW(hwnd, EM_SETPASSWORDCHAR, 0, 0);
    Own(ImmGetContext(hwnd));
    Accept(L"new");
    EXPECT_EQ(Shown(), "new|");
    Compose(L"er");
    SendMessageW(hwnd, EM_SETPASSWORDCHAR, '*', 0);
    EXPECT_EQ(ImmGetContext(hwnd), nullptr);
    Notify(CPS_COMPLETE);
    DispatchAll();
    EXPECT_EQ(Shown(), "new|");
}

TEST_F(CompositionTest, ComposedTextStaysInViewInANarrowField)
{
    Make(L"a text that is wider than the field, in front of the caret and behind it", 30, 30);
    RECT rc{};
    GetClientRect(hwnd, &rc);
    Compose(L"what is composed is wider than the whole field is, and its end is in view");
    EXPECT_GE(CaretPoint().x, 0);
    EXPECT_LT(CaretPoint().x, rc.right);
    UpdateWindow(hwnd);
    Notify(CPS_CANCEL);
    EXPECT_LT(CaretPoint().x, rc.right);
}

TEST_F(CompositionTest, AComboBoxTakesEscForItsOwnAndCompletesWhatIsAccepted)
{
    GComboBox combo;
    hwnd = combo.Create(10, 10, 200, 30, host, 8, WS_CHILD | WS_VISIBLE | GCBS_DROPDOWN, 0);
    combo.InsertItem(0, 0, L"abcdef", 0, nullptr);
    combo.SetAutoComplete(true);
    SetFocus(hwnd);
    Own(ImmGetContext(hwnd));
    Compose(L"xyz");
    SendMessageW(hwnd, WM_KEYDOWN, VK_ESCAPE, 1);
    Notify(CPS_COMPLETE);
    DispatchAll();
    EXPECT_EQ(TextOf(hwnd), "");
    host.TakeReports();
    Accept(L"ab");
    EXPECT_EQ(TextOf(hwnd), "abcdef");
    SendMessageW(hwnd, WM_CHAR, 'x', 1);
    EXPECT_EQ(TextOf(hwnd), "abx") << "what was completed is selected";
    SendMessageW(hwnd, WM_UNDO, 0, 0);
    EXPECT_EQ(TextOf(hwnd), "abcdef");
    SendMessageW(hwnd, WM_UNDO, 0, 0);
    EXPECT_EQ(TextOf(hwnd), "") << "what was accepted and what completes it are one step";
}

TEST_F(CompositionTest, TheControlMayGoWhenTheTextIsAccepted)
{
    for (const bool fByFocus : {false, true}) {
        edit = std::make_unique<GEdit>();
        Make(L"xy", 1, 1);
        Compose(L"ab");
        host.onReport = [this](const std::string&) {
            host.onReport = nullptr;
            DestroyWindow(hwnd);
            edit.reset();
        };
        if (fByFocus) {
            SetFocus(host);
        } else {
            Notify(CPS_COMPLETE);
        }
        EXPECT_FALSE(IsWindow(hwnd));
        DispatchAll();
    }
}

} // namespace
