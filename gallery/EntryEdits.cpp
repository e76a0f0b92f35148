#include <gallery/EntryEdits.h>
#include <gallery/Fonts.h>

#include <algorithm>
#include <string>

namespace gallery {
namespace {

constexpr SIZE LINE_CELL = {122, 24};
constexpr SIZE TEXT_CELL = {189, 116};
constexpr DWORD EDIT_STYLE = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER;

constexpr LPCWSTR LETTER =
    L"Dear reader,\n\nthis is a text of several paragraphs. Its lines wrap at the width of "
    L"the field, word by word, and again after every edit.\n\nSelect, cut, paste.";

} // namespace

void EntryEdits::Build(Canvas& canvas, POINT pt)
{
    m_pCanvas = &canvas;
    const int y = BuildSeveralLines({pt.x, BuildSingleLines(pt)});
    m_pCount = &canvas.Text({pt.x, y, pt.x + BLOCK_WIDTH, y + Grid::CAPTION_HEIGHT}, L"", g_hDefaultFont,
                            CAPTION_COLOR);
    ShowCount();
}

int EntryEdits::BuildSingleLines(POINT pt)
{
    Grid grid(*m_pCanvas, pt, L"Edit fields of one line", 3, LINE_CELL);
    Add(grid.NextCell(L"up to its width"), L"Type here", 0);
    Add(grid.NextCell(L"password"), L"secret", ES_PASSWORD);
    Add(grid.NextCell(L"disabled"), L"Not now", WS_DISABLED);
    Add(grid.NextCell(L"ES_CENTER: stays left"), L"Centred", ES_CENTER);
    Add(grid.NextCell(L"ES_RIGHT: stays left"), L"Right", ES_RIGHT);
    Add(grid.NextCell(L"ES_AUTOHSCROLL"), L"Up to its width", ES_AUTOHSCROLL);
    return grid.Bottom();
}

int EntryEdits::BuildSeveralLines(POINT pt)
{
    Grid grid(*m_pCanvas, pt, L"Edit fields of many lines: Ctrl+Tab leaves them", 2, TEXT_CELL);
    Add(grid.NextCell(L"as many as are typed"), LETTER, ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN);
    Add(grid.NextCell(L"as many as there is room for"),
        L"One\nTwo \u00D7 two\nThr\u00E9e e\u0301\n\u03A4\u03AD\u03C3\u03C3\u03B5\u03C1\u03B1",
        ES_MULTILINE | ES_WANTRETURN);
    return grid.Bottom();
}

GEdit& EntryEdits::Add(const RECT& rc, LPCWSTR pszText, DWORD dwStyle)
{
    GEdit& edit = m_pCanvas->Own(std::make_unique<GEdit>());
    edit.Create(rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, m_pCanvas->Window(),
                m_pCanvas->NextId(), L"", EDIT_STYLE | dwStyle, 0);
    edit.SetText(pszText);
    m_edits.push_back(&edit);
    return edit;
}

void EntryEdits::OnCommand(UINT uCode, HWND hwndFrom)
{
    const bool fOwn =
        std::any_of(m_edits.begin(), m_edits.end(), [&](const GEdit* p) { return p->GetHwnd() == hwndFrom; });
    if (fOwn && uCode == EN_CHANGE) {
        ++m_nChanges;
        ShowCount();
    }
}

void EntryEdits::ShowCount() const
{
    m_pCount->SetText((L"EN_CHANGE " + std::to_wstring(m_nChanges)).c_str());
}

} // namespace gallery
