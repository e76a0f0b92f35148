// One part of a visual style in one state, and what stands in for it where the style does not have it: with
// visual styles off, or in a style that lacks the class, the part is drawn in plain system colours, so that
// the control stays usable. With a complete style every operation is the theme service's own and nothing
// more.
//
// In Dark and Contrast the library draws every part by itself (framework/FlatPart); sizes, margins and fonts
// stay the style's, so that nothing moves.
#pragma once

#include <gesso/framework/OwnedHandles.h>

namespace gesso {

// What a part looks like without a style.
enum class PlainPart
{
    PushButton,
    CheckBox,
    RadioButton,
    CommandLink,
    CommandLinkGlyph,
    BackButton,
    EntryField,     // frame and background of a text field
    OpenList,       // the frame and background of a combo box's list
    DropDownButton, // of a combo box
    ProgressBar,
    ProgressFill,
    ScrollTrack,
    ScrollArrow,
    ScrollThumb,
    ScrollGripper,
    ItemView,  // the frame and background of a list or tree
    Row,       // one of its rows
    TreeGlyph, // of a row with others below it: closed in state 1, open in state 2
    HeaderItem,
    SortArrow, // up in state 1, down in state 2
    DialogPanel,
    DialogFooter,
    DialogText,
    EditBackground,
    EditBorder,
};

// Whether its states come in fours, one for each mark.
constexpr bool HasCheck(PlainPart plain)
{
    return plain == PlainPart::CheckBox || plain == PlainPart::RadioButton;
}

// What an edge of the platform's takes without a style, in pixels at any number of dots an inch.
inline constexpr int PLAIN_EDGE = 2;

class ThemePart
{
public:
    ThemePart(HTHEME hTheme, HDC hdc, int nPart, int nState, PlainPart plain)
        : m_hTheme(hTheme), m_hdc(hdc), m_nPart(nPart), m_nState(nState), m_plain(plain)
    {}

    // The window that the part is drawn for, which tells how large it looks without a style.
    ThemePart& In(HWND hwnd)
    {
        m_hWnd = hwnd;
        return *this;
    }
    // The font of its texts with scaling, made for the window's dots: the style's own drawing takes one of
    // whatever dots. Null leaves the style's, and so does Scaling::None.
    ThemePart& WithFont(HFONT hFont);

    // A dialog's default button, which shows it in states that the style has no such look for.
    ThemePart& AsDefault(bool fDefault)
    {
        m_fDefault = fDefault;
        return *this;
    }

    void DrawBackground(const RECT& rc) const;
    // Whether nothing behind it shows. Where the style has no such part that is the caller's to know.
    bool IsOpaque() const;
    // rc less the part's content margins.
    RECT ContentOf(const RECT& rc) const;
    // The part's true size in a window; that of the system's check mark where the style has none.
    SIZE Size(HWND hwnd, const RECT* prc) const;
    // The width of the part's border, in pixels; 1 where the style has none.
    int BorderSize() const;
    // In pixels, of the part's font; of the context's font where the style has none.
    int AverageCharWidth() const;
    // The rectangle that the text takes, from the top left of rcBounds. uFormat as for DrawTextW.
    RECT TextExtent(LPCWSTR psz, UINT uFormat, const RECT& rcBounds) const;
    // Of the first nLength characters.
    RECT TextExtent(LPCWSTR psz, int nLength, UINT uFormat, const RECT& rcBounds) const;
    void DrawString(LPCWSTR psz, UINT uFormat, const RECT& rc) const;
    // What the part's text is drawn in.
    COLORREF TextColor() const;
    // Around what has the focus in the part.
    void DrawFocus(const RECT& rc) const;

private:
    void DrawFlatBackground(const RECT& rc) const;
    MARGINS ContentMargins(RECT rc) const;
    SIZE GlyphSize(HWND hwnd, SIZE size) const;
    bool DrawStyleText(LPCWSTR psz, UINT uFormat, const RECT& rc) const;
    // Without a style.
    RECT PlainContentOf(const RECT& rc) const;
    HFONT MakePlainFont() const;
    // What a text is in that the style does not draw; null for the context's font.
    HFONT FontOfText(FontHandle& made) const;
    void DrawPlainBackground(RECT rc) const;
    void DrawPlainButton(RECT rc, UINT uButton) const;
    void DrawPlainCheck(const RECT& rc, UINT uButton) const;
    void DrawPlainField(RECT rc) const;
    void DrawPlainDropDown(RECT rc, UINT uButton) const;
    void DrawPlainFrame(RECT rc, UINT uType, UINT uKind) const;
    void DrawPlainRow(const RECT& rc) const;
    void DrawPlainSortArrow(RECT rc) const;
    void DrawPlainTreeGlyph(const RECT& rc) const;
    COLORREF PlainTextColor() const;
    void DrawPlainText(LPCWSTR psz, UINT uFormat, RECT rc) const;

    HTHEME m_hTheme;
    HDC m_hdc;
    int m_nPart;
    int m_nState;
    PlainPart m_plain;
    HWND m_hWnd = nullptr;
    bool m_fDefault = false;
    HFONT m_hFont = nullptr; // null for the style's
};

} // namespace gesso
