// The aids of debug builds: the trace of a control's messages, and the outlines of its layout.

#include "../controls/DrawFixture.h"

#include <gesso/framework/DebugAids.h>
#include <gesso/gesso.h>

namespace {

using namespace test;

#if !defined(NDEBUG)

constexpr UINT PRIVATE_MESSAGE = WM_APP + 7;

class DebugAidsTest : public DrawFixture
{
protected:
    void TearDown() override
    {
        gesso::TraceMessages(nullptr);
        gesso::ShowLayout(nullptr);
        gesso::ShowLayoutOfAll(false);
        DrawFixture::TearDown();
    }

    // What goes to the debug output meanwhile.
    template <class ACT> static std::string Output(ACT act)
    {
        testing::internal::CaptureStderr();
        act();
        return testing::internal::GetCapturedStderr();
    }

    // The lines of two records that are in the second alone.
    static Lines Added(const Lines& before, const Lines& after)
    {
        Lines added = after;
        for (const std::string& line : before) {
            if (const auto at = std::find(added.begin(), added.end(), line); at != added.end()) {
                added.erase(at);
            }
        }
        return added;
    }
};

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

TEST_F(DebugAidsTest, TraceNamesAMessageAndItsResultOfTheTracedControlAlone)
{
    GButton button;
    GLabel label;
    button.Create(0, 0, 80, 25, Parent(), 17, L"OK", 0, WS_CHILD | WS_VISIBLE);
    label.Create(0, 30, 80, 25, Parent(), 18, L"Text", 0, WS_CHILD | WS_VISIBLE);

    char result[64];
    std::snprintf(result, sizeof(result), "\nWM_GETDLGCODE = 0x%llX\n",
                  static_cast<unsigned long long>(SendMessageW(button, WM_GETDLGCODE, 0, 0)));
    gesso::TraceMessages(L"GButton:17");
    const std::string output = Output([&] {
        SendMessageW(button, WM_GETDLGCODE, 0x12, 0x34);
        SendMessageW(button, PRIVATE_MESSAGE, 0, 0);
    });
    EXPECT_TRUE(Has(output, "WM_GETDLGCODE hwnd=0x")) << output;
    EXPECT_TRUE(Has(output, " wParam=0x12 lParam=0x34\n")) << output;
    EXPECT_TRUE(Has(output, result)) << output;
    EXPECT_TRUE(Has(output, "0x8007 hwnd=")) << output;
    EXPECT_EQ(Output([&] { SendMessageW(label, WM_GETDLGCODE, 0, 0); }), "");

    gesso::TraceMessages(L"GButton:18");
    EXPECT_EQ(Output([&] { SendMessageW(button, WM_GETDLGCODE, 0, 0); }), "");
    gesso::TraceMessages(L"*");
    EXPECT_NE(Output([&] { SendMessageW(label, WM_GETDLGCODE, 0, 0); }), "");
    gesso::TraceMessages(nullptr);
    EXPECT_EQ(Output([&] { SendMessageW(button, WM_GETDLGCODE, 0, 0); }), "");
}

TEST_F(DebugAidsTest, TraceIndentsWhatIsSentWithinAMessage)
{
    GButton button;
    button.Create(0, 0, 80, 25, Parent(), 17, L"OK", 0, WS_CHILD | WS_VISIBLE);
    gesso::TraceMessages(L"GButton");
    const std::string output = Output([&] { SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, 0x50005); });
    gesso::TraceMessages(nullptr);
    SendMessageW(button, WM_LBUTTONUP, 0, 0x50005);
    EXPECT_TRUE(output.starts_with("WM_LBUTTONDOWN hwnd=")) << output;
    EXPECT_TRUE(Has(output, "\n  WM_SETFOCUS hwnd=")) << output;
    EXPECT_TRUE(Has(output, "\n  WM_SETFOCUS = 0x0\n")) << output;
    EXPECT_TRUE(Has(output, "\nWM_LBUTTONDOWN = 0x0\n")) << output;
}

TEST_F(DebugAidsTest, TraceFollowsDialogsByThePlatformsNameOfTheirClass)
{
    std::string output;
    desk::WhenIdle([&output] {
        gesso::TraceMessages(L"#32770");
        output = Output([] { SendMessageW(GDialog::s_hActiveDlg, PRIVATE_MESSAGE, 1, 2); });
        gesso::TraceMessages(nullptr);
        desk::TypeKey(VK_ESCAPE);
    });
    GTaskDialog::MessageBoxW(Parent(), L"Content", L"Caption", MB_OK);
    EXPECT_TRUE(output.starts_with("0x8007 hwnd=")) << output;
    EXPECT_TRUE(output.ends_with(" wParam=0x1 lParam=0x2\n0x8007 = 0x0\n")) << output;
}

TEST_F(DebugAidsTest, OverlayOutlinesTheControlThatIsShownAndLeavesTheRestOfThePicture)
{
    GButton shown;
    GButton other;
    shown.Create(0, 0, 80, 25, Parent(), 1, L"Shown", 0, WS_CHILD | WS_VISIBLE);
    other.Create(0, 30, 80, 25, Parent(), 2, L"Other", 0, WS_CHILD | WS_VISIBLE);
    const Lines before = Draw(shown, "");
    const Lines otherBefore = Draw(other, "");
    ASSERT_FALSE(before.empty());

    gesso::ShowLayout(shown);
    const Lines after = Draw(shown, "");
    const Lines outlines = Added(before, after);
    ASSERT_FALSE(outlines.empty());
    for (const std::string& line : outlines) {
        EXPECT_TRUE(line.starts_with("FrameRect")) << line;
    }
    EXPECT_EQ(Added(after, before), Lines()) << "nothing of the picture is lost";
    EXPECT_EQ(after.back(), before.back()) << "outlined before it is copied to the window";
    EXPECT_EQ(PlaceOf(outlines[0]), "(0,0,80,25)"); // the face, which is drawn first
    EXPECT_EQ(Draw(other, ""), otherBefore);

    gesso::ShowLayout(nullptr);
    EXPECT_EQ(Draw(shown, ""), before);
}

TEST_F(DebugAidsTest, OverlayLeavesOutWhatTheParentDrawsBehindTheControl)
{
    GButton behind;
    GLabel label;
    behind.Create(0, 0, 180, 60, Parent(), 1, L"Behind", 0, WS_CHILD | WS_VISIBLE);
    label.Create(10, 10, 80, 25, behind, 2, L"Text", 0, WS_CHILD | WS_VISIBLE);
    const Lines before = Draw(label, "");
    gesso::ShowLayout(label);
    const Lines outlines = Added(before, Draw(label, ""));
    ASSERT_EQ(outlines.size(), 1u);
    EXPECT_TRUE(outlines[0].starts_with("FrameRect (0,0,80,25)")) << outlines[0];
}

TEST_F(DebugAidsTest, OverlayOutlinesRowsWhereTheyAreSeen)
{
    GTree tree;
    tree.Create(0, 0, 200, 100, Parent(), 1, 0, WS_CHILD | WS_VISIBLE);
    tree.SetItemHeight(20);
    tree.InsertItem(nullptr, nullptr, L"First", 0, 0, nullptr);
    tree.InsertItem(nullptr, nullptr, L"Second", 0, 0, nullptr);
    gesso::ShowLayoutOfAll(true);
    const Lines outlines = Draw(tree, "FrameRect");
    EXPECT_TRUE(AnyStartsWith(outlines, "FrameRect (0,0,200,20)")) << testing::PrintToString(outlines);
    EXPECT_TRUE(AnyStartsWith(outlines, "FrameRect (0,20,200,40)")) << testing::PrintToString(outlines);
}

#endif

} // namespace
