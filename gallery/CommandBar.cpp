#include <gallery/CommandBar.h>

namespace gallery {
void CommandBar::Create(HWND hwndParent)
{
    EditorPage& page = m_ribbon.AddEditorPage(L"Gallery");
    page.Group(L"Page");
    page.Button(ID_PREVIOUS_PAGE, RIS_LARGE, IMAGE_PREVIOUS, L"Previous");
    page.Button(ID_NEXT_PAGE, RIS_LARGE, IMAGE_NEXT, L"Next");
    page.Group(L"Show");
    page.CheckBox(ID_SHOW_REPORT, true, L"What controls report");
    page.CheckBox(ID_SHOW_CUES, false, L"Keyboard cues");
    page.CheckBox(ID_CLASSIC, false, L"Page in Classic");
    page.Group(L"Colours");
    page.Button(ID_LIGHT, RIS_MEDIUM, IMAGE_NONE, L"Light");
    page.Button(ID_DARK, RIS_MEDIUM, IMAGE_NONE, L"Dark");
    page.Button(ID_CONTRAST, RIS_MEDIUM, IMAGE_NONE, L"Contrast");
    page.Button(ID_SYSTEM, RIS_MEDIUM, IMAGE_NONE, L"As the system");
    page.Group(L"Window");
    page.Button(ID_SMALL_WINDOW, RIS_MEDIUM, IMAGE_SMALL_WINDOW, L"800 x 600");
    page.Button(ID_LARGE_WINDOW, RIS_MEDIUM, IMAGE_LARGE_WINDOW, L"As large as the screen");
    page.Group(L"Gesso");
    page.Button(ID_ABOUT, RIS_LARGE, IMAGE_ABOUT, L"About");
    m_ribbon.MakeWindow({0, 0, 100, HEIGHT}, hwndParent);
}

// By a kind of their own, apart from the items of a page's ribbon.
void CommandBar::AddParts(std::vector<Part>& parts) const
{
    std::vector<Part> own;
    m_ribbon.AddParts(own);
    for (Part& part : own) {
        part.kind = L"command";
        parts.push_back(part);
    }
}

void CommandBar::Place(const RECT& rc)
{
    m_ribbon.MoveWindow(rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top);
}

} // namespace gallery
