#include <gallery/EntryEdits.h>
#include <gallery/Fonts.h>
#include <gallery/Marks.h>

#include <algorithm>
#include <string>

namespace gallery {
namespace {

constexpr SIZE LINE_CELL = {122, 24};
constexpr SIZE FILE_CELL = {BLOCK_WIDTH, 104};
constexpr SIZE TEXT_CELL = {189, 84};
constexpr DWORD EDIT_STYLE = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER;
constexpr DWORD LINES = ES_MULTILINE | ES_WANTRETURN;
constexpr DWORD UNWRAPPED = ES_AUTOHSCROLL | WS_HSCROLL;
constexpr int FILE_LINES = 674;
constexpr int LONG_LINES = 7; // every so many
constexpr int LIMIT = 8;

constexpr LPCWSTR LETTER =
    L"Dear reader,\n\nthis is a text of several paragraphs. Its lines wrap at the width of "
    L"the field, word by word, and again after every edit.\n\nSelect, cut, paste.";

constexpr LPCWSTR DIRECTIONS =
    L"one \u05E9\u05EA\u05D9\u05D9\u05DD three\n\u0645\u0631\u062D\u0628\u0627 (hello) 123\n"
    L"\u4F60\u597D \u3053\u3093\u306B\u3061\u306F \u0928\u092E\u0938\u094D\u0924\u0947\n"
    L"e\u0301 \U0001F469\u200D\U0001F467 \U0001F1E9\U0001F1EA";

std::wstring File()
{
    std::wstring text;
    for (int n = 1; n <= FILE_LINES; ++n) {
        const std::wstring number = std::to_wstring(n);
        text += number + L"\tThis is line " + number + L" of a file";
        text += n % LONG_LINES == 0 ? L", one that is long enough to be wrapped in a field of this width, or "
                                      L"to be scrolled to.\n"
                                    : L".\n";
    }
    return text;
}

} // namespace

void EntryEdits::Build(Canvas& canvas, POINT pt)
{
    m_pCanvas = &canvas;
    const int y = BuildSeveralLines({pt.x, BuildFile({pt.x, BuildSingleLines(pt)})});
    m_pCount = &canvas.Text({pt.x, y, pt.x + BLOCK_WIDTH, y + Grid::CAPTION_HEIGHT}, L"", g_hDefaultFont,
                            Shade::Caption);
    ShowCount();
}

int EntryEdits::BuildSingleLines(POINT pt)
{
    Grid grid(*m_pCanvas, pt, L"Edit fields of one line", 3, LINE_CELL);
    GEdit& name = Add(grid.NextCell(L"scrolls; has a cue"), L"Type here", ES_AUTOHSCROLL);
    SendMessageW(name, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Your name"));
    Add(grid.NextCell(L"ES_NUMBER"), L"42", ES_AUTOHSCROLL | ES_NUMBER);
    Add(grid.NextCell(L"password"), L"secret", ES_AUTOHSCROLL | ES_PASSWORD);
    Add(grid.NextCell(L"read only"), L"C:\\Users\\me\\Documents\\letter.txt", ES_AUTOHSCROLL | ES_READONLY);
    GEdit& limited = Add(grid.NextCell(L"at most 8 characters"), L"limited", ES_AUTOHSCROLL);
    SendMessageW(limited, EM_LIMITTEXT, LIMIT, 0);
    Add(grid.NextCell(L"up to its width"), L"Stops at the edge", 0);
    Add(grid.NextCell(L"ES_CENTER"), L"Centred", ES_AUTOHSCROLL | ES_CENTER);
    Add(grid.NextCell(L"ES_RIGHT, upper case"), L"RIGHT", ES_AUTOHSCROLL | ES_RIGHT | ES_UPPERCASE);
    Add(grid.NextCell(L"disabled"), L"Not now", WS_DISABLED);
    return grid.Bottom();
}

int EntryEdits::BuildFile(POINT pt)
{
    Grid grid(*m_pCanvas, pt, L"A file of 674 lines", 1, FILE_CELL);
    const RECT rc = grid.NextCell(L"");
    m_pFile = &Add(rc, File().c_str(), LINES | ES_AUTOVSCROLL | WS_VSCROLL | UNWRAPPED);
    m_pWrap = &m_pCanvas->Own(std::make_unique<GCheckBox>());
    m_pWrap->Create(rc.left, rc.bottom + 2, FILE_CELL.cx, Grid::CAPTION_HEIGHT, m_pCanvas->Window(),
                    m_pCanvas->NextId(), L"&Wrap its lines", 0,
                    WS_CHILD | WS_VISIBLE | WS_TABSTOP | GBS_AUTO);
    return grid.Bottom();
}

int EntryEdits::BuildSeveralLines(POINT pt)
{
    Grid grid(*m_pCanvas, pt, L"Lines that wrap", 2, TEXT_CELL);
    Add(grid.NextCell(L"as many as are typed"), LETTER, LINES | ES_AUTOVSCROLL | WS_VSCROLL);
    Add(grid.NextCell(L"both directions, many scripts"), DIRECTIONS, LINES | ES_AUTOVSCROLL);
    return grid.Bottom();
}

void EntryEdits::Wrap(bool fWrap) const
{
    const auto dwStyle = static_cast<DWORD>(GetWindowLongW(*m_pFile, GWL_STYLE));
    SetWindowLongW(*m_pFile, GWL_STYLE,
                   static_cast<LONG>(fWrap ? dwStyle & ~UNWRAPPED : dwStyle | UNWRAPPED));
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
    if (m_pWrap && hwndFrom == m_pWrap->GetHwnd() && uCode == BN_CLICKED) {
        Wrap(MarkAfterClick(*m_pWrap) != 0);
    }
}

void EntryEdits::ShowCount() const
{
    m_pCount->SetText((L"EN_CHANGE " + std::to_wstring(m_nChanges)).c_str());
}

} // namespace gallery
