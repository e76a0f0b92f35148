#include <gallery/EntryCombos.h>
#include <gallery/Fonts.h>
#include <gallery/Scale.h>

#include <algorithm>
#include <string>

namespace gallery {
namespace {

constexpr SIZE CELL = {122, 24};
constexpr UINT APPEND = static_cast<UINT>(-1);
constexpr int MANY_ROWS = 2000;
constexpr WPARAM ROWS_IN_PICTURE = 7;
constexpr DWORD COMBO_STYLE = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

constexpr LPCWSTR CITIES[] = {
    L"Aachen",  L"Basel",      L"Bergen", L"Bordeaux",  L"Brno",    L"Cork",    L"Dresden", L"Esbjerg",
    L"Ferrara", L"Gdańsk",     L"Graz",   L"Heraklion", L"İzmir",   L"Jena",    L"Kraków",  L"Leiden",
    L"Malmö",   L"Nantes",     L"Odense", L"Porto",     L"Quimper", L"Rostock", L"Siena",   L"Tampere",
    L"Uppsala", L"Valladolid", L"Weimar", L"York",      L"Zürich",
};

void AddCities(GComboBox& combo)
{
    for (LPCWSTR pszCity : CITIES) {
        combo.InsertItem(APPEND, 0, pszCity, 0, nullptr);
    }
}

} // namespace

int EntryCombos::Build(Canvas& canvas, POINT pt)
{
    m_pCanvas = &canvas;
    Grid grid(canvas, pt, L"Combo boxes: F4 or a click opens, the wheel steps", 3, CELL);
    Add(grid, L"drop-down", GCBS_DROPDOWN);
    Add(grid, L"drop-down list", GCBS_DROPDOWNLIST).SetSelected(10);
    Add(grid, L"plain: arrow keys", GCBS_PLAIN).SetSelected(0);
    Add(grid, L"button at the left", GCBS_DROPDOWN, WS_EX_LEFTSCROLLBAR).SetSelected(28);
    Add(grid, L"list, disabled", GCBS_DROPDOWNLIST | WS_DISABLED).SetSelected(4);
    GComboBox& many = Add(grid, L"2,000 rows", GCBS_DROPDOWNLIST);
    many.RemoveAllItems();
    for (int n = 1; n <= MANY_ROWS; ++n) {
        many.InsertItem(APPEND, 0, (L"Row " + std::to_wstring(n)).c_str(), 0, nullptr);
    }
    many.SetSelected(MANY_ROWS / 2 - 1);
    GComboBox& completing = Add(grid, L"completes", GCBS_DROPDOWN);
    completing.SetAutoComplete(true);
    SendMessageW(completing, CB_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(L"A city"));
    AddPlatformField(grid);
    GComboBox& sorted = Add(grid, L"sorted, wide items", GCBS_DROPDOWNLIST | GCBS_SORT);
    sorted.InsertItem(APPEND, 0, L"Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch", 0, nullptr);
    sorted.SetSelected(sorted.InsertItem(APPEND, 0, L"ירושלים", 0, nullptr));

    const int y = grid.Bottom();
    m_pCounts = &canvas.Text({pt.x, y, pt.x + BLOCK_WIDTH, y + Grid::CAPTION_HEIGHT}, L"", g_hDefaultFont,
                             Shade::Caption);
    ShowCounts();
    return y + Grid::CAPTION_HEIGHT + MARGIN;
}

GComboBox& EntryCombos::Add(Grid& grid, LPCWSTR pszCaption, DWORD dwStyle, DWORD dwExStyle)
{
    const RECT rc = grid.NextCell(pszCaption);
    GComboBox& combo = m_pCanvas->Own(std::make_unique<GComboBox>());
    combo.Create(rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, m_pCanvas->Window(),
                 m_pCanvas->NextId(), COMBO_STYLE | dwStyle, dwExStyle);
    AddCities(combo);
    m_combos.push_back(&combo);
    return combo;
}

// The platform's own field, to cut and paste from and to.
void EntryCombos::AddPlatformField(Grid& grid) const
{
    const RECT rc = grid.NextCell(L"the platform's EDIT");
    const auto nId = static_cast<INT_PTR>(m_pCanvas->NextId());
    const HWND hwnd = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", COMBO_STYLE | ES_AUTOHSCROLL, rc.left,
                                      rc.top, rc.right - rc.left, rc.bottom - rc.top, m_pCanvas->Window(),
                                      reinterpret_cast<HMENU>(nId), nullptr, nullptr);
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
}

void EntryCombos::OnCommand(UINT uCode, HWND hwndFrom)
{
    const bool fOwn = std::any_of(m_combos.begin(), m_combos.end(),
                                  [&](const GComboBox* p) { return p->GetHwnd() == hwndFrom; });
    if (fOwn) {
        ++m_counts[uCode == EN_CHANGE ? CBN_EDITCHANGE : uCode]; // the first in Classic
        ShowCounts();
    }
}

Exhibit EntryCombos::OpenList() const
{
    const HWND hwnd = *m_combos.front();
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    const bool fMirrored = GetWindowLongW(hwnd, GWL_EXSTYLE) & WS_EX_LAYOUTRTL;
    const LONG xFirst = fMirrored ? rc.right - Scaled(BLOCK_WIDTH) : rc.left; // the block's left edge
    const RECT rcPart{xFirst - Scaled(GAP), rc.top - Scaled(Grid::HEADING_HEIGHT + 8),
                      xFirst + Scaled(BLOCK_WIDTH + GAP), rc.bottom + Scaled(180)};
    const auto open = [hwnd] {
        SetFocus(hwnd);
        SendMessageW(hwnd, CB_SETMINVISIBLE, ROWS_IN_PICTURE, 0);
        SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 0);
        SendMessageW(hwnd, WM_KEYDOWN, VK_F4, 0);
    };
    return {L"combobox", open, {}, rcPart};
}

void EntryCombos::ShowCounts()
{
    const struct
    {
        LPCWSTR pszName;
        UINT uCode;
    } shown[] = {
        {L"changes", CBN_SELCHANGE}, {L", edits", CBN_EDITCHANGE}, {L", opened", CBN_DROPDOWN},
        {L", closed", CBN_CLOSEUP},  {L", taken", CBN_SELENDOK},   {L", left", CBN_SELENDCANCEL},
        {L", focus", CBN_SETFOCUS},
    };
    std::wstring text;
    for (const auto& count : shown) {
        text += count.pszName + (L" " + std::to_wstring(m_counts[count.uCode]));
    }
    m_pCounts->SetText(text.c_str());
}

} // namespace gallery
