// A window of the same program that has put something on the clipboard hears of every cut and paste, and may
// destroy the control in its midst.

#include "../support/Interception.h"
#include "EditFixture.h"

#include <memory>

namespace {

template <class CONTROL> class ClipboardOwnerTest : public testing::Test
{
protected:
    ClipboardOwnerTest()
    {
        InitControls();
        m_pControl = std::make_unique<CONTROL>();
        if constexpr (requires { m_pControl->SetSel(0, 0); }) {
            m_hWnd = m_pControl->Create(10, 10, 100, 30, host, 5, L"", WS_CHILD | WS_VISIBLE, 0);
        } else {
            m_hWnd = m_pControl->Create(10, 10, 100, 30, host, 5, WS_CHILD | GCBS_DROPDOWN, 0);
        }
        m_pControl->SetText(L"text that the heap keeps");
        // With nothing on it so far: what is wanted is asked for.
        OpenClipboard(host);
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT, nullptr);
        CloseClipboard();
    }
    ~ClipboardOwnerTest() override
    {
        OpenClipboard(nullptr);
        EmptyClipboard();
        CloseClipboard();
    }

    // Selects all and presses the key; the clipboard's owner does what it does, and destroys the control.
    void ExpectSurvival(WPARAM wKey, UINT uMsgToOwner, const std::function<void()>& answer)
    {
        const test::HeldKeys keys({VK_CONTROL});
        SendMessageW(m_hWnd, WM_KEYDOWN, 'A', 1);
        host.TakeReports();
        const test::Interception told(host, uMsgToOwner, [&] {
            answer();
            DestroyWindow(m_hWnd);
            m_pControl.reset();
        });
        SendMessageW(m_hWnd, WM_KEYDOWN, wKey, 1);
        EXPECT_TRUE(told.Happened());
        EXPECT_FALSE(IsWindow(m_hWnd));
        EXPECT_EQ(host.TakeReports(), test::Reports{});
    }

    test::Host host;

private:
    std::unique_ptr<CONTROL> m_pControl;
    HWND m_hWnd = nullptr;
};

using Fields = testing::Types<GEdit, GComboBox>;
TYPED_TEST_SUITE(ClipboardOwnerTest, Fields);

TYPED_TEST(ClipboardOwnerTest, MayDestroyTheControlThatCuts)
{
    this->ExpectSurvival('X', WM_DESTROYCLIPBOARD, [] {});
}

TYPED_TEST(ClipboardOwnerTest, MayDestroyTheControlThatPastes)
{
    this->ExpectSurvival('V', WM_RENDERFORMAT, [] {
        constexpr wchar_t PASTED[] = L"pasted";
        const HGLOBAL hBlock = GlobalAlloc(GMEM_MOVEABLE, sizeof(PASTED));
        std::memcpy(GlobalLock(hBlock), PASTED, sizeof(PASTED));
        GlobalUnlock(hBlock);
        SetClipboardData(CF_UNICODETEXT, hBlock);
    });
}

} // namespace
