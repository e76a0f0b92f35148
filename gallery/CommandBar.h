// The ribbon at the top: what acts on the gallery as a whole.
#pragma once

#include <gallery/EditorRibbon.h>

namespace gallery {

enum GalleryCommand : UINT
{
    FIRST_GALLERY_COMMAND = 1000, // well away from IDOK and IDCANCEL, which the dialog manager sends
    ID_PREVIOUS_PAGE = FIRST_GALLERY_COMMAND,
    ID_NEXT_PAGE,
    ID_SHOW_REPORT,
    ID_SHOW_CUES,
    ID_CLASSIC,
    ID_LIGHT,
    ID_DARK,
    ID_CONTRAST,
    ID_SYSTEM,
    ID_SMALL_WINDOW,
    ID_LARGE_WINDOW,
    ID_ABOUT,
    END_OF_GALLERY_COMMANDS
};

class CommandBar
{
public:
    static constexpr int HEIGHT = 120;

    // Its commands come to the parent as WM_COMMAND; of the check boxes lParam tells the new state.
    void Create(HWND hwndParent);
    void Place(const RECT& rc);
    void AddParts(std::vector<Part>& parts) const;

private:
    EditorRibbon m_ribbon;
};

} // namespace gallery
