// Random use of a combo box, open and closed, beside a plain model of its items; what must hold always is
// looked at after each step.

#include "../../support/WithBehavior.h"
#include "ComboFixture.h"

#include <random>

namespace {

using namespace test;

class ComboMonkeyTest : public ComboFixture
{
protected:
    int Pick(int nBelow) { return std::uniform_int_distribution<int>(0, nBelow - 1)(m_random); }

    void Check()
    {
        ASSERT_TRUE(Combo().IsSound());
        ASSERT_EQ(Combo().GetItemCount(), m_model.size());
        int nRoom = Combo().GetTextLength() + 1;
        std::vector<wchar_t> buffer(static_cast<size_t>(nRoom));
        ASSERT_EQ(Combo().GetText(buffer.data(), &nRoom), 1);
        ASSERT_EQ(wcslen(buffer.data()) + 1, buffer.size());
        for (size_t n = 0; n < m_model.size(); ++n) {
            ASSERT_EQ(Narrow(Combo().GetItemText(static_cast<UINT>(n))), m_model[n]);
        }
    }

    void Insert()
    {
        const std::string text(static_cast<size_t>(Pick(4)), static_cast<char>('a' + Pick(26)));
        const auto nAt = static_cast<size_t>(Pick(40));
        wchar_t buffer[8]{};
        std::copy(text.begin(), text.end(), buffer);
        Combo().InsertItem(static_cast<UINT>(nAt), 0, buffer, 0, nullptr);
        m_model.insert(m_model.begin() + static_cast<std::ptrdiff_t>(std::min(nAt, m_model.size())), text);
    }
    void Remove()
    {
        const auto nAt = static_cast<size_t>(Pick(40));
        Combo().RemoveItem(static_cast<UINT>(nAt));
        if (nAt < m_model.size()) {
            m_model.erase(m_model.begin() + static_cast<std::ptrdiff_t>(nAt));
        }
    }

    // One action of a user or a program; what it does is queued or done at once.
    void Act()
    {
        constexpr UINT KEYS[] = {VK_PRIOR, VK_NEXT, VK_END, VK_HOME,   VK_LEFT, VK_UP,     VK_RIGHT,
                                 VK_DOWN,  VK_BACK, 'A',    VK_DELETE, 'V',     VK_RETURN, VK_ESCAPE};
        const HWND hwnd = Pick(3) > 0 && List() ? List() : Combo().GetHwnd();
        switch (Pick(16)) {
        case 0: Insert(); break;
        case 1: Remove(); break;
        case 2: Combo().SetSelected(static_cast<UINT>(Pick(30))); break;
        case 3: Combo().Callback(static_cast<UINT>(Pick(30) - 1)); break;
        case 4: desk::Wheel(120 * (Pick(5) - 2)); break;
        case 5: desk::TypeText("x y"); break;
        case 6: Combo().SetText(Pick(2) ? L"longer text than before" : L""); break;
        case 7: MoveTo(hwnd, Pick(160) - 20, Pick(160) - 20); break;
        case 8: ClickAt(hwnd, Pick(160) - 20, Pick(160) - 20); break;
        case 9: Pick(2) ? desk::PressButton() : desk::ReleaseButton(); break;
        case 10: SendMessageW(Combo(), CB_SETEDITSEL, 0, MAKELPARAM(Pick(30), Pick(30))); break;
        case 11: ToggleList(); break;
        case 12: InvalidateRect(hwnd, nullptr, FALSE); break;
        case 13: ChangeKind(); break;
        default: {
            const UINT uKey = KEYS[static_cast<size_t>(Pick(std::size(KEYS)))];
            const UINT uModifier = Pick(2) ? VK_SHIFT : VK_CONTROL;
            Pick(2) ? desk::TypeKey(uKey) : desk::TypeKey(uKey, {uModifier});
            break;
        }
        }
    }
    void ToggleList()
    {
        if (List()) {
            SendMessageW(List(), WM_VSCROLL, static_cast<WPARAM>(Pick(9)), 0);
            desk::TypeKey(VK_ESCAPE);
        } else {
            desk::TypeKey(VK_F4);
        }
    }
    void ChangeKind()
    {
        const DWORD kinds[] = {0, GCBS_PLAIN, GCBS_DROPDOWN, GCBS_DROPDOWN, GCBS_DROPDOWNLIST};
        Combo().SetStyle(WS_CHILD | WS_VISIBLE | kinds[Pick(std::size(kinds))]);
    }

    // What Modern knows besides.
    void ActInModern(HFONT hFont)
    {
        const POINT pt = OnScreen(Combo(), Pick(160) - 20, Pick(60) - 20);
        const auto nAny = static_cast<WPARAM>(Pick(40) - 1);
        switch (Pick(9)) {
        case 0: Combo().SetFont(Pick(2) ? hFont : nullptr); break;
        case 1: SendMessageW(Combo(), CB_SETTOPINDEX, nAny, 0); break;
        case 2: SendMessageW(Combo(), CB_INITSTORAGE, nAny, 0); break;
        case 3: SendMessageW(Combo(), CB_SETMINVISIBLE, nAny, 0); break;
        case 4: SendMessageW(Combo(), CB_SETITEMHEIGHT, 0, Pick(30)); break;
        case 5: desk::Click(pt.x, pt.y, desk::Button::Right); break;
        case 6: Rename(); break;
        case 7: desk::Advance(20); break;
        default: desk::TypeText("aabc"); break;
        }
    }
    void Rename()
    {
        const auto nAt = static_cast<size_t>(Pick(10));
        if (nAt < m_model.size()) {
            Combo().SetItemText(static_cast<UINT>(nAt), L"new");
            m_model[nAt] = "new";
        }
    }
    // Without a field the text is the selected item's.
    void CheckText()
    {
        if ((Combo().GetStyle() & GCBS_KIND) != GCBS_DROPDOWN) {
            const size_t nSelected = Combo().GetSelected();
            ASSERT_EQ(TextOf(Combo()), nSelected < m_model.size() ? m_model[nSelected] : "");
        }
        ASSERT_EQ(List() != nullptr, SendMessageW(Combo(), CB_GETDROPPEDSTATE, 0, 0) != 0);
    }

    // An action whenever the open list's loop is quiet; in the end the list is closed.
    void KeepActing()
    {
        desk::WhenIdle([this] { KeepActing(); });
        if (++m_nInLoop > 30) {
            DestroyWindow(List());
            return;
        }
        Act();
        Check();
    }

    std::mt19937 m_random;
    std::vector<std::string> m_model;
    int m_nInLoop = 0;
};

TEST_F(ComboMonkeyTest, AnyUseKeepsItemsTextAndSelectionInOrder)
{
    desk::WhenIdle([this] { KeepActing(); });
    desk::SetClipboardText("pasted\r\ntext");
    int nOpenings = 0;
    for (unsigned uSeed = 1; uSeed <= 40 && !HasFatalFailure(); ++uSeed) {
        SCOPED_TRACE(uSeed);
        m_random.seed(uSeed);
        m_model.clear();
        pCombo = std::make_unique<ComboProbe>();
        Make(GCBS_DROPDOWN);
        Combo().SetDropdownHeight(90);
        SetFocus(Combo());
        for (int nStep = 0; nStep < 100 && !HasFatalFailure(); ++nStep) {
            m_nInLoop = 0;
            Act();
            desk::Pump();
            nOpenings += m_nInLoop > 0;
            Check();
        }
        desk::ReleaseButton();
        desk::Pump();
        Combo().Destroy();
        ASSERT_FALSE(List());
    }
    EXPECT_GT(nOpenings, 100) << "the list has to be used as well";
    desk::SetClipboardText("");
}

TEST_F(ComboMonkeyTest, SoItDoesInModern)
{
    const Modern modern;
    const HFONT hFont = CreateFontW(-30, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, nullptr);
    desk::SetClipboardText("pasted\r\ntext");
    int nOpen = 0;
    for (unsigned uSeed = 1; uSeed <= 60 && !HasFatalFailure(); ++uSeed) {
        SCOPED_TRACE(uSeed);
        m_random.seed(uSeed);
        m_model.clear();
        pCombo = std::make_unique<ComboProbe>();
        Make(uSeed % 3 ? GCBS_DROPDOWN : GCBS_DROPDOWNLIST);
        Combo().SetAutoComplete(uSeed % 2);
        SetFocus(Combo());
        for (int nStep = 0; nStep < 150 && !HasFatalFailure(); ++nStep) {
            Pick(3) ? Act() : ActInModern(hFont);
            desk::Pump();
            nOpen += List() != nullptr;
            Check();
            CheckText();
        }
        desk::ReleaseButton();
        desk::Pump();
        Combo().Destroy();
        ASSERT_FALSE(List());
    }
    EXPECT_GT(nOpen, 1000) << "the list has to be used as well";
    DeleteObject(hFont);
    desk::SetClipboardText("");
}

} // namespace
