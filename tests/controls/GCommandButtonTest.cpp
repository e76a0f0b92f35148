#include "../support/Host.h"

#include <gtest/gtest.h>

namespace {

using namespace test;

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

bool IsFont(HFONT hFont)
{
    LOGFONTW font{};
    return GetObjectW(hFont, sizeof(font), &font) > 0;
}

HFONT SomeFont()
{
    return CreateFontW(-20, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
}

class GCommandButtonTest : public testing::Test
{
protected:
    HWND Make(GCommandButton& any, LPCWSTR pszNote = L"The note")
    {
        return any.Create(10, 10, 200, 60, host, 7, L"The title", pszNote, 0, CHILD);
    }

    // "title/note" of a link made by name.
    std::string MadeFrom(const wchar_t* pData)
    {
        const HWND hwnd = CreateWindowExW(0, L"GCommandButton", L"", CHILD, 0, 0, 200, 60, host, nullptr,
                                          nullptr, const_cast<wchar_t*>(pData));
        const auto* pButton = static_cast<GCommandButton*>(GWnd::FromHwnd(hwnd));
        std::string result = TextOf(hwnd) + "/" + NoteOf(*pButton);
        DestroyWindow(hwnd);
        return result;
    }

    static std::string NoteOf(const GCommandButton& any)
    {
        wchar_t buffer[64];
        int nLength = 64;
        EXPECT_EQ(any.GetNote(buffer, &nLength), 1);
        EXPECT_EQ(nLength, any.GetNoteLength());
        return Narrow(buffer);
    }

    Host host;
    GCommandButton button;
};

TEST_F(GCommandButtonTest, NoteGoesInAndOutBesideTheTitle)
{
    Make(button);
    EXPECT_EQ(NoteOf(button), "The note");
    EXPECT_EQ(TextOf(button), "The title");
    TakeRepaint(button);
    EXPECT_EQ(button.SetNote(L"Another"), 1);
    EXPECT_TRUE(TakeRepaint(button));
    EXPECT_EQ(NoteOf(button), "Another");
    EXPECT_EQ(TextOf(button), "The title");

    wchar_t buffer[8];
    int nLength = 7;
    EXPECT_EQ(button.GetNote(buffer, &nLength), 0);
    EXPECT_EQ(nLength, 8);
    EXPECT_EQ(button.GetNote(buffer, &nLength), 1);
    EXPECT_EQ(nLength, 7);
}

TEST_F(GCommandButtonTest, WithoutANoteTheNoteReadsAsEmpty)
{
    Make(button, nullptr);
    wchar_t buffer[2] = {L'#', L'#'};
    int nLength = 0;
    EXPECT_EQ(button.GetNote(buffer, &nLength), 0);
    EXPECT_EQ(nLength, 1);
    EXPECT_EQ(buffer[0], L'#');
    EXPECT_EQ(button.GetNote(buffer, &nLength), 1);
    EXPECT_EQ(nLength, 0);
    EXPECT_EQ(buffer[0], 0);
    button.SetNote(L"now there is one");
    button.SetNote(nullptr);
    EXPECT_EQ(button.GetNoteLength(), 0);
}

TEST_F(GCommandButtonTest, CreationDataHoldsTitleAndNote)
{
    EXPECT_EQ(MadeFrom(L"\x0001Title\0Note"), "Title/Note");
    EXPECT_EQ(MadeFrom(L"\x0001Title\0"), "Title/") << "an empty second text is no note";
    EXPECT_EQ(MadeFrom(nullptr), "/");
}

// A template may end with the title; what stands behind it then is the next control's.
TEST_F(GCommandButtonTest, CreationDataThatEndsWithTheTitleHasNoNote)
{
    EXPECT_EQ(MadeFrom(L"\x000ETitle\0not a note"), "Title/") << "its size with the word of the size";
    EXPECT_EQ(MadeFrom(L"\x000CTitle\0not a note"), "Title/") << "its size without that word";
    EXPECT_EQ(MadeFrom(L"\x0016Title\0Note"), "Title/Note");
}

TEST_F(GCommandButtonTest, FontsAreMadeFromTheStyleAndGoWithTheWindow)
{
    const HWND hwnd = Make(button);
    const HFONT hTitle = button.GetFont();
    const HFONT hNote = button.GetNoteFont();
    EXPECT_TRUE(IsFont(hTitle));
    EXPECT_TRUE(IsFont(hNote));
    EXPECT_NE(hTitle, g_hDefaultFont);
    EXPECT_NE(hNote, g_hDefaultFont);
    DestroyWindow(hwnd);
    EXPECT_FALSE(IsFont(hTitle));
    EXPECT_FALSE(IsFont(hNote));
    EXPECT_TRUE(IsFont(g_hDefaultFont));
}

// The control takes over what it is given, but leaves alone what it had.
TEST_F(GCommandButtonTest, FontsOfTheHostsAreDeletedAndFormerOnesAreNot)
{
    Make(button);
    const HFONT hFormer = button.GetFont();
    const HFONT hFormerNote = button.GetNoteFont();
    const HFONT hGiven = SomeFont();
    const HFONT hGivenNote = SomeFont();
    SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(hGiven), FALSE);
    button.SetNoteFont(hGivenNote);
    EXPECT_EQ(button.GetNoteFont(), hGivenNote);
    EXPECT_TRUE(IsFont(hFormer));
    EXPECT_TRUE(IsFont(hFormerNote));

    SendMessageW(button, WM_THEMECHANGED, 0, 0);
    // A handle may be used again at once, so that the new fonts are looked at by what they are.
    LOGFONTW font{};
    ASSERT_TRUE(GetObjectW(button.GetFont(), sizeof(font), &font) > 0);
    EXPECT_NE(font.lfHeight, -20) << "a change of the style takes the host's font away too";
    ASSERT_TRUE(GetObjectW(button.GetNoteFont(), sizeof(font), &font) > 0);
    EXPECT_NE(font.lfHeight, -20);

    const HFONT hLast = SomeFont();
    DeleteObject(button.GetFont());
    button.SetFont(hLast);
    DestroyWindow(button);
    EXPECT_FALSE(IsFont(hLast)) << "and so does the end of the window";
    DeleteObject(hFormer);
    DeleteObject(hFormerNote);
}

TEST_F(GCommandButtonTest, FontThatNobodyTookGoesWhenAnotherComes)
{
    class Probe : public GCommandButton
    {
    public:
        HFONT Font() const { return m_hFont; }
    } probe;
    Make(probe);
    const HFONT hMade = probe.Font();
    const HFONT hGiven = SomeFont();
    ASSERT_TRUE(IsFont(hMade));
    SendMessageW(probe, WM_SETFONT, reinterpret_cast<WPARAM>(hGiven), FALSE);
    EXPECT_FALSE(IsFont(hMade));
    EXPECT_TRUE(IsFont(hGiven));
}

TEST_F(GCommandButtonTest, FontsOfTheHostsStayWhereNoWindowTookThemOver)
{
    const HFONT hGiven = SomeFont();
    {
        GCommandButton never;
        never.SetFont(hGiven);
        never.SetNoteFont(hGiven);
    }
    EXPECT_TRUE(IsFont(hGiven)) << "no window, nothing to delete";
    button.SetFont(hGiven);
    button.SetNoteFont(hGiven);
    Make(button);
    EXPECT_NE(button.GetFont(), hGiven) << "the style's fonts stand in their place";
    DestroyWindow(button);
    EXPECT_TRUE(IsFont(hGiven));
    DeleteObject(hGiven);
}

TEST_F(GCommandButtonTest, CopiesShareTheFontsAndDeleteNone)
{
    Make(button);
    const HFONT hTitle = button.GetFont();
    {
        const GCommandButton copy(button);
        EXPECT_EQ(copy.GetFont(), hTitle);
    }
    EXPECT_TRUE(IsFont(hTitle));
}

} // namespace
