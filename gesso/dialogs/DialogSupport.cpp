#include <gesso/dialogs/DialogSupport.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemeFont.h>
#include <gesso/framework/WindowDpi.h>
#include <gesso/language/LanguageTable.h>

#include <algorithm>
#include <atomic>
#include <new>

namespace gesso {
namespace {

constexpr size_t SPARE_WORDS = 6; // zeros behind the face

} // namespace

const DLGTEMPLATE* LoadDialogTemplate(HINSTANCE hInstance, LPCWSTR pszTemplate)
{
    const HRSRC hResource = FindResourceW(hInstance, pszTemplate, L"RT_DLG");
    const HGLOBAL hData = hResource ? LoadResource(hInstance, hResource) : nullptr;
    return hData ? static_cast<const DLGTEMPLATE*>(LockResource(hData)) : nullptr;
}

DWORD LayoutOfTexts()
{
    return ReadsFromRight() ? WS_EX_LAYOUTRTL : 0;
}

EmptyDialogTemplate::EmptyDialogTemplate(DWORD dwExStyle, DWORD dwStyle, UINT cx, UINT cy, LPCWSTR pszTitle)
{
    try {
        Build(dwExStyle, dwStyle, cx, cy, pszTitle);
    } catch (const std::bad_alloc&) {
        m_words.clear();
    }
}

void EmptyDialogTemplate::Build(DWORD dwExStyle, DWORD dwStyle, UINT cx, UINT cy, LPCWSTR pszTitle)
{
    constexpr WORD VERSION = 1, SIGNATURE = 0xFFFF, ITEMS = 0, X = 200, Y = 200, NO_MENU = 0, NO_CLASS = 0;
    constexpr DWORD HELP_ID = 0;
    m_words = {VERSION, SIGNATURE};
    for (const DWORD dw : {HELP_ID, dwExStyle | LayoutOfTexts(), dwStyle}) {
        AddDouble(dw);
    }
    for (const WORD w : {ITEMS, X, Y, static_cast<WORD>(cx), static_cast<WORD>(cy), NO_MENU, NO_CLASS}) {
        m_words.push_back(w);
    }
    AddText(pszTitle ? pszTitle : L"");
    constexpr WORD NOT_ITALIC_ANSI = 0; // two bytes: italic, character set
    for (const WORD w : {WORD{Metrics::DEFAULT_FONT_POINTS}, WORD{FW_NORMAL}, NOT_ITALIC_ANSI}) {
        m_words.push_back(w);
    }
    AddText(L"Segoe UI");
    m_words.resize(m_words.size() + SPARE_WORDS);
}

void EmptyDialogTemplate::AddDouble(DWORD dw)
{
    m_words.push_back(LOWORD(dw));
    m_words.push_back(HIWORD(dw));
}

void EmptyDialogTemplate::AddText(LPCWSTR psz)
{
    m_words.insert(m_words.end(), psz, psz + wcslen(psz) + 1);
}

namespace {

// Of the dialog's font, as the platform reckons them: it knows those of the dialog's making alone.
SIZE BaseUnits(HWND hDlg)
{
    constexpr WCHAR LETTERS[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int COUNT = 52;
    const WindowContext context(hDlg);
    const SelectScope font(context, FontOf(hDlg));
    SIZE size{};
    TEXTMETRICW metrics{};
    GetTextExtentPointW(context, LETTERS, COUNT, &size);
    GetTextMetricsW(context, &metrics);
    return {(size.cx / (COUNT / 2) + 1) / 2, metrics.tmHeight};
}

RECT MapScaledUnits(HWND hDlg, const RECT& rc)
{
    constexpr int ACROSS = 4, DOWN = 8; // units of a character
    const SIZE base = BaseUnits(hDlg);
    return {MulDiv(rc.left, base.cx, ACROSS), MulDiv(rc.top, base.cy, DOWN),
            MulDiv(rc.right, base.cx, ACROSS), MulDiv(rc.bottom, base.cy, DOWN)};
}

} // namespace

RECT MapUnits(HWND hDlg, int left, int top, int right, int bottom)
{
    RECT rc{left, top, right, bottom};
    if (GetScaling() != Scaling::None) {
        return MapScaledUnits(hDlg, rc);
    }
    MapDialogRect(hDlg, &rc);
    return rc;
}

void FitDialog(HWND hDlg, const RECT* prcWanted, SIZE units)
{
    if (prcWanted) {
        SetWindowPos(hDlg, nullptr, prcWanted->left, prcWanted->top, prcWanted->right - prcWanted->left,
                     prcWanted->bottom - prcWanted->top, SWP_NOZORDER | SWP_NOACTIVATE);
        RedrawAll(hDlg);
    } else if (GetScaling() != Scaling::None) {
        const RECT rc = MapUnits(hDlg, 0, 0, units.cx, units.cy);
        RECT rcClient{};
        GetClientRect(hDlg, &rcClient);
        GrowWindow(hDlg, rc.right - rcClient.right, rc.bottom - rcClient.bottom);
        RedrawAll(hDlg);
    }
}

void RedrawAll(HWND hDlg)
{
    if (hDlg) { // a null one would mean the desktop
        RedrawWindow(hDlg, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
}

TextPane::TextPane(HWND hDlg, HTHEME hTheme, HDC hdc, int nPart)
    : m_part(hTheme, hdc, nPart, 0, PlainPart::DialogText)
{
    if (GetScaling() != Scaling::None) {
        const int nPercent = nPart == TDLG_MAININSTRUCTIONPANE ? TITLE_PERCENT : 100;
        m_font.Reset(MakeThemeFont(hDlg, hTheme, nPart, TMT_FONT, nPercent));
    }
    m_part.In(hDlg).WithFont(m_font);
}

ThemePart ControlTexts(HWND hDlg, HTHEME hTheme, HDC hdc)
{
    return ThemePart(hTheme, hdc, TDLG_CONTENTPANE, 0, PlainPart::DialogText).WithFont(FontOf(hDlg));
}

int TaskTextLimit(HWND hDlg, HTHEME hTheme, HDC hdc)
{
    // In average characters of each pane.
    constexpr int INSTRUCTION_COLUMNS = 40;
    constexpr int CONTENT_COLUMNS = 58;
    const int cxIcon = MapUnits(hDlg, Metrics::TASK_DIALOG_TEXT_LEFT, 0, 0, 0).left;
    const TextPane instruction(hDlg, hTheme, hdc, TDLG_MAININSTRUCTIONPANE);
    const TextPane content(hDlg, hTheme, hdc, TDLG_CONTENTPANE);
    return cxIcon + std::max(INSTRUCTION_COLUMNS * instruction->AverageCharWidth(),
                             CONTENT_COLUMNS * content->AverageCharWidth());
}

HFONT FontOf(HWND hDlg)
{
    const HFONT hScaled = GetScaling() != Scaling::None ? DefaultFontOf(hDlg) : nullptr;
    if (hScaled) {
        return hScaled;
    }
    return reinterpret_cast<HFONT>(SendMessageW(hDlg, WM_GETFONT, 0, 0));
}

void DrawDialogIcon(HWND hDlg, HDC hdc, HICON hIcon, POINT pt)
{
    const SIZE size{SystemMetric(hDlg, SM_CXICON), SystemMetric(hDlg, SM_CYICON)};
    const UprightScope upright(hdc, pt.x, size.cx);
    if (GetScaling() == Scaling::None) {
        DrawIcon(hdc, upright.Left(), pt.y, hIcon);
    } else {
        DrawIconEx(hdc, upright.Left(), pt.y, hIcon, size.cx, size.cy, 0, nullptr, DI_NORMAL);
    }
}

void CenterWindow(HWND hwnd, HWND hwndNear, SIZE size)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    const BOOL fKnown = GetMonitorInfoW(MonitorFromWindow(hwndNear, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& rcWork = monitor.rcWork;
    SetWindowPos(hwnd, nullptr, rcWork.left + (rcWork.right - rcWork.left - size.cx) / 2,
                 rcWork.top + (rcWork.bottom - rcWork.top - size.cy) / 2, size.cx, size.cy,
                 SWP_FRAMECHANGED | (fKnown ? 0u : UINT{SWP_NOMOVE}));
}

RECT GrowWindow(HWND hwnd, int cx, int cy)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    MoveWindow(hwnd, rc.left, rc.top, rc.right - rc.left + cx, rc.bottom - rc.top + cy, FALSE);
    GetClientRect(hwnd, &rc);
    return rc;
}

namespace {

// What the platform's own controls on a dialog draw their texts in.
void ColorPlatformControl(HDC hdc)
{
    if (AreTextsByRole()) {
        SetTextColor(hdc, ColorOf(ColorRole::PanelText));
        SetBkMode(hdc, TRANSPARENT);
    }
}

} // namespace

INT_PTR WhiteDialogDefault(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_CTLCOLORBTN:
        // Fixed behaviour: compared with 2 and not with a window, so that the white brush is what applies. A
        // test for the footer's buttons would put grey behind them.
        if (lParam == 2) {
            return reinterpret_cast<INT_PTR>(SystemBrush(reinterpret_cast<HDC>(wParam), COLOR_BTNFACE));
        }
        [[fallthrough]];
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
        ColorPlatformControl(reinterpret_cast<HDC>(wParam));
        return reinterpret_cast<INT_PTR>(DialogBrush(reinterpret_cast<HDC>(wParam)));
    default: return Frame::DialogDefault(hDlg, uMsg, wParam, lParam);
    }
}

INT_PTR OnDialogActivate(HWND hDlg, WPARAM wParam)
{
    std::atomic_ref(GDialog::s_hActiveDlg).store(LOWORD(wParam) != WA_INACTIVE ? hDlg : nullptr);
    return 1;
}

} // namespace gesso
