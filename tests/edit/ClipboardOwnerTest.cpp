// A window of the same program that has put something on the clipboard hears of every cut and paste, and may
// destroy the control in its midst.

#include "../controls/MakeControl.h"
#include "../support/Interception.h"
#include "EditFixture.h"

#include <memory>

namespace {

using namespace test;

template <class CONTROL> class ClipboardOwnerTest : public testing::Test
{
protected:
    ClipboardOwnerTest()
    {
        MakeControl(*m_pControl, host);
        m_pControl->SetText(L"text that the heap keeps");
        // With nothing on it so far: what is wanted is asked for.
        OpenClipboard(host);
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT, nullptr);
        CloseClipboard();
    }
    ~ClipboardOwnerTest() override { EmptyTheClipboard(); }

    // Selects all and presses the key; the clipboard's owner does what it does, and destroys the control.
    void ExpectSurvival(WPARAM wKey, UINT uMsgToOwner, const std::function<void()>& answer)
    {
        const HeldKeys keys({VK_CONTROL});
        const HWND hwnd = m_pControl->GetHwnd();
        SendMessageW(hwnd, WM_KEYDOWN, 'A', 1);
        host.TakeReports();
        const Interception told(host, uMsgToOwner, [&] {
            answer();
            DestroyWindow(hwnd);
            m_pControl.reset();
        });
        SendMessageW(hwnd, WM_KEYDOWN, wKey, 1);
        EXPECT_TRUE(told.Happened());
        EXPECT_FALSE(IsWindow(hwnd));
        EXPECT_EQ(host.TakeReports(), Reports{});
    }

    Host host;

private:
    std::unique_ptr<CONTROL> m_pControl = std::make_unique<CONTROL>();
};

using Fields = testing::Types<GEdit, GComboBox>;
TYPED_TEST_SUITE(ClipboardOwnerTest, Fields);

TYPED_TEST(ClipboardOwnerTest, MayDestroyTheControlThatCuts)
{
    this->ExpectSurvival('X', WM_DESTROYCLIPBOARD, [] {});
}

TYPED_TEST(ClipboardOwnerTest, MayDestroyTheControlThatPastes)
{
    this->ExpectSurvival('V', WM_RENDERFORMAT, [] { SetClipboardData(CF_UNICODETEXT, BlockOf(L"pasted")); });
}

} // namespace
