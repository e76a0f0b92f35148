// The ribbon at the top: what acts on the gallery as a whole, and on its second page how all of it looks.
#pragma once

#include <gallery/EditorRibbon.h>
#include <gesso/framework/Appearance.h>

namespace gallery {

enum GalleryCommand : UINT
{
    FIRST_GALLERY_COMMAND = 1000, // well away from IDOK and IDCANCEL, which the dialog manager sends
    ID_PREVIOUS_PAGE = FIRST_GALLERY_COMMAND,
    ID_NEXT_PAGE,
    ID_SHOW_REPORT,
    ID_SHOW_CUES,
    ID_CLASSIC,
    ID_SMALL_WINDOW,
    ID_LARGE_WINDOW,
    ID_ABOUT,
    // Of the page "Look", each group in the order of its table below.
    ID_FIRST_SCHEME,
    ID_FIRST_SIZE = ID_FIRST_SCHEME + 4,
    ID_FIRST_DIRECTION = ID_FIRST_SIZE + 4,
    ID_FIRST_LANGUAGE = ID_FIRST_DIRECTION + 2,
    END_OF_GALLERY_COMMANDS = ID_FIRST_LANGUAGE + 12
};

// What a button of the page "Look" chooses.
template <class VALUE> struct Choice
{
    LPCWSTR pszName;
    VALUE value;
};

inline constexpr Choice<gesso::ColorScheme> SCHEMES[] = {
    {L"Light", gesso::ColorScheme::Light},
    {L"Dark", gesso::ColorScheme::Dark},
    {L"Contrast", gesso::ColorScheme::Contrast},
    {L"As the system", gesso::ColorScheme::System},
};
// In dots an inch.
inline constexpr Choice<int> SIZES[] = {{L"100 %", 96}, {L"125 %", 120}, {L"150 %", 144}, {L"200 %", 192}};
// Whether from right to left.
inline constexpr Choice<bool> DIRECTIONS[] = {{L"Left to right", false}, {L"Right to left", true}};
// Tags, of the texts that the library shows by itself.
inline constexpr Choice<LPCWSTR> LANGUAGES[] = {
    {L"Deutsch", L"de"},
    {L"English", L"en"},
    {L"Fran\u00E7ais", L"fr"},
    {L"Espa\u00F1ol", L"es"},
    {L"Italiano", L"it"},
    {L"Portugu\u00EAs", L"pt"},
    {L"Nederlands", L"nl"},
    {L"Polski", L"pl"},
    {L"\u0420\u0443\u0441\u0441\u043A\u0438\u0439", L"ru"},
    {L"\u65E5\u672C\u8A9E", L"ja"},
    {L"\u4E2D\u6587", L"zh"},
    {L"\u0627\u0644\u0639\u0631\u0628\u064A\u0629", L"ar"},
};
static_assert(ID_FIRST_SIZE - ID_FIRST_SCHEME == std::size(SCHEMES) &&
              ID_FIRST_DIRECTION - ID_FIRST_SIZE == std::size(SIZES) &&
              ID_FIRST_LANGUAGE - ID_FIRST_DIRECTION == std::size(DIRECTIONS) &&
              END_OF_GALLERY_COMMANDS - ID_FIRST_LANGUAGE == std::size(LANGUAGES));

class CommandBar
{
public:
    static constexpr int HEIGHT = 120;

    // Its commands come to the parent as WM_COMMAND; of the check boxes lParam tells the new state.
    void Create(HWND hwndParent);
    void Place(const RECT& rc);
    void FollowScheme() { m_ribbon.FollowScheme(); }
    void AddParts(std::vector<Part>& parts) const;

private:
    void AddGalleryPage();
    void AddLookPage();

    EditorRibbon m_ribbon;
};

} // namespace gallery
