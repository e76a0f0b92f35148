// What check boxes and radio buttons draw. Text is 6 pixels a character and 15 high; with the margins set
// here, the content of a control of 100 x 40 is (3,5,96,34), and the box is 13 x 13.

#include "DrawFixture.h"

#include "../../support/Interception.h"

namespace {

using namespace test;

template <class CONTROL> class CheckDrawTest : public DrawFixture
{
protected:
    static constexpr bool RADIO = std::is_same_v<CONTROL, GRadioButton>;
    static constexpr int PART = RADIO ? BP_RADIOBUTTON : BP_CHECKBOX;

    class Probe : public CONTROL
    {
    public:
        void SetState(DWORD dwState) { this->m_dwState = dwState; }
        void SpoilImageSize() { this->m_cxImage = this->m_cyImage = 99; }
    };

    void SetUp() override
    {
        desk::SetThemeMargins("BUTTON", PART, 0, TMT_CONTENTMARGINS, {3, 4, 5, 6});
        desk::SetThemePartSize("BUTTON", PART, 0, {13, 13});
    }
    void Make(DWORD dwStyle, LPCWSTR pszText = L"abcd")
    {
        control.Create(0, 0, 100, 40, Parent(), 5, pszText, 0, WS_CHILD | WS_VISIBLE | dwStyle);
    }
    static std::string Start() { return "DrawThemeBackground BUTTON " + std::to_string(PART) + " "; }
    // The places of the box, the image and the text with a style.
    Lines Places(DWORD dwStyle)
    {
        Make(dwStyle);
        Lines places;
        for (const std::string& word : {Start(), std::string("DrawStateW"), std::string("DrawThemeText")}) {
            for (const std::string& line : Draw(control, word)) {
                places.push_back(PlaceOf(line));
            }
        }
        DestroyWindow(control);
        return places;
    }
    std::string FocusPlace(DWORD dwStyle)
    {
        Make(dwStyle);
        SendMessageW(control, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
        SetFocus(control);
        const Lines lines = Draw(control, "DrawFocusRect");
        DestroyWindow(control);
        return lines.size() == 1 ? PlaceOf(lines[0]) : "none";
    }

    Probe control;
};

using Checks = testing::Types<GCheckBox, GRadioButton>;
TYPED_TEST_SUITE(CheckDrawTest, Checks);

TYPED_TEST(CheckDrawTest, WholeRecord)
{
    this->Make(GS_VCENTER, L"a&bcd");
    const std::string part = std::to_string(this->PART);
    EXPECT_EQ(this->Draw(this->control, ""),
              (Lines{
                  "DrawThemeParentBackground (0,0,100,40)",
                  "FillRect (0,0,400,300) brush=sys15 F0F0F0 clip=(0,0,100,40)",
                  "DrawThemeBackground BUTTON " + part + " 1 (3,13,16,26)",
                  "DrawThemeText BUTTON " + part +
                      " 1 \"a&bcd\" (19,12,43,27) 0x100020 font=\"Segoe UI\" 12 color=000000",
                  "BitBlt (0,0,100,40) from (0,0) SRCCOPY",
              }));
}

TYPED_TEST(CheckDrawTest, TextOfSeveralLinesIsBrokenAtItsWords)
{
    this->Make(GS_MULTILINE, L"a b");
    const Lines lines = this->Draw(this->control, "DrawThemeText");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find(" 0x100010 "), std::string::npos) << lines[0];
}

TYPED_TEST(CheckDrawTest, ThemeStateByPressAndMark)
{
    this->Make(0, L"");
    struct
    {
        DWORD dwState, dwStyle;
        int nCheck;
        const char* pszState;
    } const rows[] = {
        {0, 0, 0, "1"},
        {GWS_HOT, 0, 0, "2"},
        {GWS_PRESSED, 0, 0, "1"},
        {GWS_HOT | GWS_PRESSED, 0, 1, "7"},
        {GWS_KEYDOWN, WS_DISABLED, 0, "3"},
        {0, WS_DISABLED, 1, "8"},
        {0, 0, 1, "5"},
        {0, GBS_DEFAULT, 1, "5"}, // the bit means nothing here
        {0, 0, 2, "9"},           // beyond a radio button's states, and handed over as it is
        {GWS_HOT, 0, 77, "310"},
    };
    for (const auto& row : rows) {
        this->control.SetState(row.dwState);
        this->control.SetCheck(row.nCheck);
        this->control.SetStyle(WS_CHILD | WS_VISIBLE | row.dwStyle);
        const Lines lines = this->Draw(this->control, this->Start());
        EXPECT_EQ(lines, Lines{this->Start() + row.pszState + " (3,5,16,18)"})
            << row.dwState << " " << row.dwStyle << " " << row.nCheck;
    }
}

TYPED_TEST(CheckDrawTest, BoxAndTextPlaces)
{
    EXPECT_EQ(this->Places(0), (Lines{"(3,5,16,18)", "(19,5,43,20)"}));
    EXPECT_EQ(this->Places(GS_RIGHT | GS_BOTTOM), (Lines{"(3,21,16,34)", "(72,19,96,34)"}));
    EXPECT_EQ(this->Places(GS_CENTER | GS_VCENTER), (Lines{"(3,13,16,26)", "(45,12,69,27)"}));
    EXPECT_EQ(this->Places(GCS_BOXRIGHT), (Lines{"(83,5,96,18)", "(3,5,27,20)"}));
    EXPECT_EQ(this->Places(GCS_BOXRIGHT | GS_RIGHT | GS_VCENTER), (Lines{"(83,13,96,26)", "(56,12,80,27)"}));
}

// The image is 16 x 12. Its x follows from its y, and it stands to the left in either case: as it is known.
TYPED_TEST(CheckDrawTest, ImagePlaces)
{
    const HBITMAP hBitmap = CreateBitmap(16, 12, 1, 32, nullptr);
    this->control.SetBitmap(hBitmap);
    this->control.SpoilImageSize(); // it is measured at each paint
    EXPECT_EQ(this->Places(GS_BITMAP | GS_VCENTER),
              (Lines{"(3,13,16,26)", "(20,13,36,25)", "(50,12,74,27)"}));
    EXPECT_EQ(this->Places(GS_BITMAP | GS_VCENTER | GCS_IMAGERIGHT),
              (Lines{"(3,13,16,26)", "(-21,13,-5,25)", "(9,12,33,27)"}));
    EXPECT_EQ(this->Places(GS_BITMAP), (Lines{"(3,5,16,18)", "(28,5,44,17)", "(50,5,74,20)"}));
    EXPECT_EQ(this->Places(GS_VCENTER), (Lines{"(3,13,16,26)", "(19,12,43,27)"})) << "no image bit, no image";
    this->Make(GS_BITMAP | WS_DISABLED);
    EXPECT_EQ(this->Draw(this->control, "DrawStateW"), Lines{"DrawStateW bitmap=16x12 (28,5,44,17) 0x0024"});
    DestroyWindow(this->control);
    DeleteObject(hBitmap);
    EXPECT_EQ(this->Places(GS_BITMAP), (Lines{"(3,5,16,18)", "(19,5,43,20)"})) << "the image is gone";
}

TYPED_TEST(CheckDrawTest, FocusSurroundsTextAndImageButNotTheBox)
{
    EXPECT_EQ(this->FocusPlace(0), "(17,3,45,22)");
    const HBITMAP hTall = CreateBitmap(16, 30, 1, 32, nullptr);
    this->control.SetBitmap(hTall);
    EXPECT_EQ(this->FocusPlace(GS_BITMAP | GS_VCENTER), "(48,2,76,36)");
    EXPECT_EQ(this->FocusPlace(GS_BITMAP | GS_VCENTER | GCS_IMAGERIGHT), "(7,2,-12,36)")
        << "the right edge is the image's, which stands to the left";
    DeleteObject(hTall);
    this->Make(0);
    SetFocus(this->control);
    EXPECT_EQ(this->Draw(this->control, "DrawFocusRect"), Lines{}) << "hidden until the UI state shows it";
}

TYPED_TEST(CheckDrawTest, WithoutAStyleAPlainBoxIsDrawn)
{
    desk::SetThemed(false);
    this->Make(0);
    this->control.SetCheck(1);
    const Lines lines = this->Draw(this->control, "DrawFrameControl");
    ASSERT_EQ(lines.size(), 1u);
    const UINT uKind = this->RADIO ? DFCS_BUTTONRADIO : DFCS_BUTTONCHECK;
    char state[16];
    std::snprintf(state, sizeof(state), "0x%04X", DFCS_CHECKED | uKind);
    EXPECT_NE(lines[0].find(state), std::string::npos) << lines[0];
    EXPECT_FALSE(this->Draw(this->control, "DrawTextW \"abcd\"").empty());
    this->control.SetCheck(2);
    std::snprintf(state, sizeof(state), "0x%04X",
                  this->RADIO ? DFCS_BUTTONRADIO | DFCS_CHECKED : DFCS_BUTTONCHECK);
    EXPECT_NE(this->Draw(this->control, "DrawFrameControl").at(0).find(state), std::string::npos);
    const auto nMarks = [&] { return AnyStartsWith(this->Draw(this->control, ""), "FillRect (4,"); };
    EXPECT_EQ(nMarks(), !this->RADIO) << "a mixed box has a dash of its own";
    this->control.SetCheck(1);
    EXPECT_FALSE(nMarks());
}

TYPED_TEST(CheckDrawTest, TextThatTheParentChangesWhileItDrawsBehindTheBoxIsDrawn)
{
    this->Make(0, L"before");
    desk::Pump();
    const Interception background(this->Parent(), WM_ERASEBKGND, [&] { this->control.SetText(L"after"); });
    const Lines lines = this->Draw(this->control, "DrawThemeText");
    ASSERT_FALSE(lines.empty());
    EXPECT_NE(lines[0].find("\"after\""), std::string::npos) << lines[0];
}

} // namespace
