#include <gallery/CommandBar.h>

namespace gallery {
namespace {

template <class CHOICES>
void AddChoices(EditorPage& page, LPCWSTR pszTitle, UINT nFirstId, const CHOICES& choices)
{
    page.Group(pszTitle);
    for (const auto& choice : choices) {
        page.Button(nFirstId++, RIS_MEDIUM, IMAGE_NONE, choice.pszName);
    }
}

} // namespace

void CommandBar::Create(HWND hwndParent)
{
    AddGalleryPage();
    AddLookPage();
    m_ribbon.MakeWindow({0, 0, 100, HEIGHT}, hwndParent);
}

void CommandBar::AddGalleryPage()
{
    EditorPage& page = m_ribbon.AddEditorPage(L"Gallery");
    page.Group(L"Page");
    page.Button(ID_PREVIOUS_PAGE, RIS_LARGE, IMAGE_PREVIOUS, L"Previous");
    page.Button(ID_NEXT_PAGE, RIS_LARGE, IMAGE_NEXT, L"Next");
    page.Group(L"Show");
    page.CheckBox(ID_SHOW_REPORT, true, L"What controls report");
    page.CheckBox(ID_SHOW_CUES, false, L"Keyboard cues");
    page.CheckBox(ID_CLASSIC, false, L"Page in Classic");
    page.Group(L"Window");
    page.Button(ID_SMALL_WINDOW, RIS_MEDIUM, IMAGE_SMALL_WINDOW, L"800 x 600");
    page.Button(ID_LARGE_WINDOW, RIS_MEDIUM, IMAGE_LARGE_WINDOW, L"As large as the screen");
    page.Group(L"Gesso");
    page.Button(ID_ABOUT, RIS_LARGE, IMAGE_ABOUT, L"About");
}

void CommandBar::AddLookPage()
{
    EditorPage& page = m_ribbon.AddEditorPage(L"Look");
    AddChoices(page, L"Colours", ID_FIRST_SCHEME, SCHEMES);
    AddChoices(page, L"Size", ID_FIRST_SIZE, SIZES);
    AddChoices(page, L"Direction", ID_FIRST_DIRECTION, DIRECTIONS);
    AddChoices(page, L"Language of dialogs and menus", ID_FIRST_LANGUAGE, LANGUAGES);
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
