// Controls whose text is refused: what they say, and what they show goes on.
#include "../controls/DrawFixture.h"
#include "LongText.h"

using test::LongText;
using test::MemoryLimit;
using test::TextOf;

namespace {

template <class CONTROL> HWND Make(CONTROL& control, HWND hwndParent, LPCWSTR psz, LPCWSTR pszNote = nullptr)
{
    constexpr DWORD STYLE = WS_CHILD | WS_VISIBLE;
    if constexpr (requires { control.SetNote(pszNote); }) {
        return control.Create(0, 0, 90, 40, hwndParent, 1, psz, pszNote, 0, STYLE);
    } else {
        return control.Create(0, 0, 90, 40, hwndParent, 1, psz, 0, STYLE);
    }
}

template <class CONTROL> class ControlMemoryTest : public test::DrawFixture
{};
using TextControls = testing::Types<GLabel, GButton, GCheckBox, GRadioButton, GCommandButton>;

class CommandMemoryTest : public test::DrawFixture
{};
class LabelMemoryTest : public test::DrawFixture
{};
class KindMemoryTest : public testing::TestWithParam<int>
{};

} // namespace

TYPED_TEST_SUITE(ControlMemoryTest, TextControls);

TYPED_TEST(ControlMemoryTest, ATextThatIsRefusedLeavesTheFormerOne)
{
    const LongText text;
    TypeParam control;
    TypeParam unborn;
    const HWND hwnd = Make(control, this->Parent(), L"Before");
    {
        const MemoryLimit limit;
        SetLastError(0);
        EXPECT_EQ(Make(unborn, this->Parent(), text), nullptr);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
        EXPECT_EQ(Make(control, this->Parent(), text), nullptr) << "its window goes on as it is";
        EXPECT_EQ(control.SetText(text), 0);
        EXPECT_EQ(SendMessageW(hwnd, WM_SETTEXT, 0, text.Param()), 0);
        EXPECT_EQ(TextOf(hwnd), "Before");
        EXPECT_EQ(limit.Refused(), 4u);
    }
    EXPECT_EQ(control.SetText(text), 1);
    EXPECT_EQ(control.GetTextLength(), static_cast<int>(LongText::LENGTH));
    EXPECT_NE(Make(unborn, this->Parent(), text), nullptr);
    UpdateWindow(hwnd);
}

TYPED_TEST(ControlMemoryTest, OfATemplateItHasNoTextThen)
{
    const LongText text;
    const auto make = [&] {
        return CreateWindowExW(0, MAKEINTRESOURCEW(TypeParam::IsolationAwareRegisterClassW()), nullptr,
                               WS_CHILD | WS_VISIBLE, 0, 0, 90, 40, this->Parent(), nullptr, nullptr,
                               reinterpret_cast<LPVOID>(text.Param()));
    };
    std::optional<MemoryLimit> limit(std::in_place);
    const HWND hwnd = make();
    EXPECT_EQ(TextOf(hwnd), "");
    UpdateWindow(hwnd);
    limit.reset();
    EXPECT_EQ(SendMessageW(make(), WM_GETTEXTLENGTH, 0, 0), LRESULT{LongText::LENGTH} - 1);
}

TEST_F(CommandMemoryTest, ANoteThatIsRefusedLeavesTheFormerOne)
{
    const LongText text;
    GCommandButton button;
    Make(button, Parent(), L"Title", L"Note");
    {
        const MemoryLimit limit;
        EXPECT_EQ(Make(button, Parent(), L"Other", text), nullptr);
        EXPECT_EQ(button.SetNote(text), 0);
    }
    EXPECT_EQ(button.GetTextLength(), 5);
    EXPECT_EQ(button.GetNoteLength(), 4);
    EXPECT_EQ(button.SetNote(text), 1);
}

TEST_F(LabelMemoryTest, ATextThatCannotBeWrappedIsNotMeasured)
{
    const LongText text;
    GLabel label;
    Make(label, Parent(), L"Label");
    const auto strLong = OString<wchar_t>::Build(L"%ls", static_cast<LPCWSTR>(text));
    auto str = OString<wchar_t>::Build(L"%ls", L"before");
    RECT rc{1, 2, 3, 4};
    {
        const MemoryLimit limit;
        GLabel::WrapText(str, strLong);
        EXPECT_TRUE(str == L"before");
        EXPECT_EQ(label.CalcSizeText(&rc, 0, text, FALSE, 90, 40), E_OUTOFMEMORY);
        EXPECT_EQ(label.CalcSizeText(&rc, 0, text, TRUE, 90, 40), E_OUTOFMEMORY);
        EXPECT_EQ(rc.right, 3);
    }
    EXPECT_EQ(label.CalcSizeText(&rc, 0, text, TRUE, 90, 40), S_OK);
}

TEST_F(LabelMemoryTest, ATextThatThePlatformHasNoMemoryForIsNotDrawn)
{
    const LongText text;
    GLabel label;
    Make(label, Parent(), text);
    test::desk::ClearDrawing(label);
    const MemoryLimit limit;
    UpdateWindow(label);
    EXPECT_GT(limit.Refused(), 0u);
    EXPECT_FALSE(GetUpdateRect(label, nullptr, FALSE));
    const test::Lines drawn = test::desk::Drawing(label);
    EXPECT_FALSE(drawn.empty()) << "but for its background";
    EXPECT_FALSE(test::AnyStartsWith(drawn, "DrawTextW"));
}

TEST_P(KindMemoryTest, OneThatIsNotToBeHadIsNull)
{
    const MemoryLimit limit(1);
    EXPECT_EQ(CreateControl(GetParam()), nullptr);
    EXPECT_EQ(limit.Refused(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Every, KindMemoryTest, testing::Range(int{GCK_LABEL}, GCK_TREE + 1));
