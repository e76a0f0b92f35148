#include <gallery/EditorRibbon.h>
#include <gallery/Pages.h>

#include <gesso/ribbon/GRightClickMenu.h>

#include <algorithm>
#include <commctrl.h>
#include <cwctype>
#include <iterator>

namespace gallery {
namespace {

constexpr int PAGE_WIDTH = 804;
constexpr int RIBBON_HEIGHT = 120;
constexpr RECT RIBBON_RECT = {MARGIN, FIRST_BLOCK, MARGIN + PAGE_WIDTH, FIRST_BLOCK + RIBBON_HEIGHT};
constexpr RECT EDITOR_RECT = {MARGIN, RIBBON_RECT.bottom + GAP, MARGIN + PAGE_WIDTH, 588};
constexpr LPCWSTR FIRST_TEXT =
    L"The quick brown fox jumps over the lazy dog.\r\n\r\n"
    L"The ribbon's buttons act on this text, and so do the values of the menu that a "
    L"right click shows.";

enum CommandId : UINT
{
    ID_EDITOR = 200,
    ID_FIND_FIELD,
    ID_SIZES,
    ID_NEW,
    ID_CUT,
    ID_COPY,
    ID_PASTE,
    ID_CLEAR,
    ID_UNDO,
    ID_SELECT_ALL,
    ID_FIND_NEXT,
    ID_BOLD,
    ID_ITALIC,
    ID_UNDERLINE,
    ID_DATE,
    ID_CHARACTER,
    ID_TOP,
    ID_BOTTOM,
    ID_READ_ONLY,
    ID_FIXED_PITCH,
    ID_REVIEW_TAB,
    ID_UPPER_CASE,
    ID_LOWER_CASE,
};

enum TabIndex : UINT
{
    TAB_HOME,
    TAB_INSERT,
    TAB_REVIEW,
    TAB_VIEW,
};

constexpr int SIZES[] = {9, 10, 12, 14, 18, 24};

HWND MakePlatformWindow(LPCWSTR pszClass, HWND hwndParent, UINT uId, SIZE size, DWORD dwStyle)
{
    const HWND hwnd =
        CreateWindowExW(0, pszClass, L"", WS_CHILD | dwStyle, 0, 0, size.cx, size.cy, hwndParent,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(uId)), nullptr, nullptr);
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
    return hwnd;
}

// The windows that the platform lends as long as the library has no text fields: the text itself, the field
// to find in, and the box with the font sizes.
HWND MakeEditor(HWND hwndParent, const RECT& rc)
{
    const HWND hwnd = MakePlatformWindow(
        L"EDIT", hwndParent, ID_EDITOR, {rc.right - rc.left, rc.bottom - rc.top},
        WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN | ES_NOHIDESEL);
    SetWindowPos(hwnd, nullptr, rc.left, rc.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SetWindowTextW(hwnd, FIRST_TEXT);
    return hwnd;
}

HWND MakeFindField(HWND hwndParent)
{
    return MakePlatformWindow(L"EDIT", hwndParent, ID_FIND_FIELD, {110, 22}, WS_BORDER | ES_AUTOHSCROLL);
}

HWND MakeSizeBox(HWND hwndParent)
{
    const HWND hwnd =
        MakePlatformWindow(L"COMBOBOX", hwndParent, ID_SIZES, {90, 200}, CBS_DROPDOWNLIST | WS_VSCROLL);
    for (const int nPoints : SIZES) {
        const std::wstring text = std::to_wstring(nPoints) + L" points";
        SendMessageW(hwnd, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    SendMessageW(hwnd, CB_SETCURSEL, 0, 0);
    return hwnd;
}

std::wstring WholeText(HWND hwnd)
{
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(hwnd)) + 1, 0);
    GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()));
    text.resize(text.size() - 1);
    return text;
}

std::wstring Today()
{
    wchar_t szDate[80] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, nullptr, nullptr, szDate,
                   static_cast<int>(std::size(szDate)));
    return szDate;
}

// The value menu's window runs on an object of its own, which has what it shows put in here.
class ValueMenu : public GRightClickMenu
{
public:
    void Show(POINT ptScreen, HWND hwndOwner, std::initializer_list<LPCWSTR> values)
    {
        Dismiss();
        const int cy = static_cast<int>(values.size()) * ROW_HEIGHT + 2;
        const HWND hwnd = Create(ptScreen.x, ptScreen.y, 130, cy, hwndOwner, 0);
        auto& shown = static_cast<GRightClickMenu&>(*FromHwnd(hwnd));
        shown.*& ValueMenu::m_hwndOwner = hwndOwner;
        shown.*& ValueMenu::m_hFont = g_hDefaultFont;
        for (const LPCWSTR psz : values) {
            shown.AddValue(psz);
        }
        SetWindowSubclass(hwnd, &EndWhenInactive, 1, 0);
    }

    void Dismiss()
    {
        if (IsWindow(m_hWnd)) {
            DestroyWindow(m_hWnd);
        }
    }

private:
    static constexpr int ROW_HEIGHT = 20;

    // The menu itself ends with a choice alone.
    static LRESULT CALLBACK EndWhenInactive(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                            DWORD_PTR)
    {
        if (uMsg == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE) {
            PostMessageW(hwnd, WM_CLOSE, 0, 0);
        }
        return DefSubclassProc(hwnd, uMsg, wParam, lParam);
    }
};

class RibbonPage : public Page
{
public:
    ~RibbonPage() override { DeleteObject(m_hFont); }

    void Build(Canvas& canvas) override
    {
        canvas.Title(L"Ribbon",
                     L"GRibbon: tabs, groups, buttons in three sizes, check boxes and hosted windows; "
                     L"GRightClickMenu on a right click in the text.");
        m_hwnd = canvas.Window();
        m_ribbon = &canvas.Own(std::make_unique<EditorRibbon>());
        m_ribbon->Create(RIBBON_RECT, m_hwnd);
        m_hwndEditor = MakeEditor(m_hwnd, EDITOR_RECT);
        SetWindowSubclass(m_hwndEditor, &WatchRightClick, 1, reinterpret_cast<DWORD_PTR>(this));
        AddHome();
        AddInsert();
        AddReview();
        AddView();
        m_ribbon->ShowTab(TAB_REVIEW, false);
        ApplyFont();
    }

    LRESULT OnCommand(UINT uId, UINT uCode, HWND hwndFrom) override
    {
        if (hwndFrom && hwndFrom == m_menu.GetHwnd()) {
            OnValue(uCode);
        } else if (uId == ID_SIZES && uCode == CBN_SELCHANGE) {
            m_nPoints = SIZES[SendMessageW(hwndFrom, CB_GETCURSEL, 0, 0)];
            ApplyFont();
        } else if (uCode == 0) {
            OnItem(uId, hwndFrom != nullptr);
        }
        return 0;
    }

    std::vector<Part> Parts() const override
    {
        std::vector<Part> parts;
        m_ribbon->AddParts(parts);
        return parts;
    }

private:
    void AddHome()
    {
        EditorPage& page = m_ribbon->AddEditorPage(L"Home");
        page.Group(L"Clipboard");
        page.Button(ID_PASTE, RIS_LARGE, IMAGE_PASTE, L"Paste");
        page.Button(ID_CUT, RIS_MEDIUM, IMAGE_CUT, L"Cut");
        page.Button(ID_COPY, RIS_MEDIUM, IMAGE_COPY, L"Copy");
        page.Button(ID_CLEAR, RIS_MEDIUM, IMAGE_CLEAR, L"Clear");
        page.Group(L"Font");
        page.Button(ID_BOLD, RIS_SMALL, IMAGE_BOLD, nullptr);
        page.Button(ID_ITALIC, RIS_SMALL, IMAGE_ITALIC, nullptr);
        page.Button(ID_UNDERLINE, RIS_SMALL, IMAGE_UNDERLINE, nullptr);
        page.Group(L"Size", 102);
        page.Host(MakeSizeBox(*m_ribbon), 0);
        page.Group(L"Editing");
        page.Button(ID_UNDO, RIS_LARGE, IMAGE_UNDO, L"Undo");
        page.Button(ID_SELECT_ALL, RIS_LARGE, IMAGE_NONE, L"Select everything");
        page.Group(L"Search for", 122);
        m_hwndFind = MakeFindField(*m_ribbon);
        page.Host(m_hwndFind, 0);
        page.Group(L"Search");
        page.Button(ID_FIND_NEXT, RIS_LARGE, IMAGE_FIND, L"Find");
    }

    void AddInsert()
    {
        EditorPage& page = m_ribbon->AddEditorPage(L"Insert");
        page.Group(L"Text");
        page.Button(ID_NEW, RIS_LARGE, IMAGE_NEW, L"New");
        page.Button(ID_DATE, RIS_LARGE, IMAGE_DATE, L"Date");
        page.Button(ID_CHARACTER, RIS_LARGE, IMAGE_CHARACTER, L"Dash");
        page.Group(L"Go to");
        page.Button(ID_TOP, RIS_MEDIUM, IMAGE_TOP, L"Start");
        page.Button(ID_BOTTOM, RIS_MEDIUM, IMAGE_BOTTOM, L"End");
    }

    void AddReview()
    {
        EditorPage& page = m_ribbon->AddEditorPage(L"Review");
        page.Group(L"Selection");
        page.Button(ID_UPPER_CASE, RIS_MEDIUM, IMAGE_NONE, L"To upper case");
        page.Button(ID_LOWER_CASE, RIS_MEDIUM, IMAGE_NONE, L"To lower case");
        page.Group(L"Words");
        page.Button(ID_FIND_NEXT, RIS_LARGE, IMAGE_NONE, L"Find the next one");
    }

    void AddView()
    {
        EditorPage& page = m_ribbon->AddEditorPage(L"View");
        page.Group(L"Text");
        page.CheckBox(ID_READ_ONLY, false, L"Read only");
        page.CheckBox(ID_FIXED_PITCH, false, L"Fixed pitch");
        page.Group(L"Tabs");
        page.CheckBox(ID_REVIEW_TAB, false, L"Show the tab Review");
    }

    // A click on an item of the ribbon.
    void OnItem(UINT uId, bool fChecked)
    {
        switch (uId) {
        case ID_NEW: return StartAnew();
        case ID_CUT: return Edit(WM_CUT);
        case ID_COPY: return Edit(WM_COPY);
        case ID_PASTE: return Edit(WM_PASTE);
        case ID_CLEAR: return Edit(WM_CLEAR);
        case ID_UNDO: return Edit(EM_UNDO);
        case ID_SELECT_ALL: return Select(0, -1);
        case ID_TOP: return Select(0, 0);
        case ID_BOTTOM: return Select(GetWindowTextLengthW(m_hwndEditor), -1);
        case ID_FIND_NEXT: return FindNext();
        case ID_BOLD: return Toggle(m_fBold);
        case ID_ITALIC: return Toggle(m_fItalic);
        case ID_UNDERLINE: return Toggle(m_fUnderline);
        case ID_FIXED_PITCH: return Toggle(m_fFixedPitch);
        case ID_DATE: return Replace(Today());
        case ID_CHARACTER: return Replace(L"\x2013");
        case ID_UPPER_CASE: return ReplaceCharacters(&std::towupper);
        case ID_LOWER_CASE: return ReplaceCharacters(&std::towlower);
        case ID_READ_ONLY: return Edit(EM_SETREADONLY, fChecked);
        case ID_REVIEW_TAB: return m_ribbon->ShowTab(TAB_REVIEW, fChecked);
        default: break;
        }
    }

    // A choice from the value menu.
    void OnValue(UINT nRow)
    {
        constexpr UINT COMMANDS[] = {ID_CUT, ID_COPY, ID_PASTE, ID_SELECT_ALL, ID_DATE};
        if (nRow < std::size(COMMANDS)) {
            OnItem(COMMANDS[nRow], false);
        }
    }

    static LRESULT CALLBACK WatchRightClick(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                            DWORD_PTR page)
    {
        if (uMsg != WM_CONTEXTMENU) {
            return DefSubclassProc(hwnd, uMsg, wParam, lParam);
        }
        auto& self = *reinterpret_cast<RibbonPage*>(page);
        self.m_menu.Show({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, self.m_hwnd,
                         {L"Cut", L"Copy", L"Paste", L"Select all", L"Today's date"});
        return 0;
    }

    void Edit(UINT uMsg, WPARAM wParam = 0)
    {
        SendMessageW(m_hwndEditor, uMsg, wParam, 0);
        FocusEditor();
    }

    void FocusEditor() { SetFocus(m_hwndEditor); }

    void StartAnew()
    {
        SetWindowTextW(m_hwndEditor, L"");
        FocusEditor();
    }

    void Select(int nStart, int nEnd)
    {
        SendMessageW(m_hwndEditor, EM_SETSEL, static_cast<WPARAM>(nStart), nEnd);
        SendMessageW(m_hwndEditor, EM_SCROLLCARET, 0, 0);
        FocusEditor();
    }

    void Replace(const std::wstring& text)
    {
        SendMessageW(m_hwndEditor, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
        FocusEditor();
    }

    void ReplaceCharacters(wint_t (*convert)(wint_t))
    {
        DWORD dwStart = 0;
        DWORD dwEnd = 0;
        SendMessageW(m_hwndEditor, EM_GETSEL, reinterpret_cast<WPARAM>(&dwStart),
                     reinterpret_cast<LPARAM>(&dwEnd));
        std::wstring text = WholeText(m_hwndEditor).substr(dwStart, dwEnd - dwStart);
        std::transform(text.begin(), text.end(), text.begin(),
                       [convert](wchar_t c) { return static_cast<wchar_t>(convert(c)); });
        Replace(text);
        Select(static_cast<int>(dwStart), static_cast<int>(dwEnd));
    }

    // From the selection on, and then once more from the start.
    void FindNext()
    {
        const std::wstring wanted = WholeText(m_hwndFind);
        const std::wstring text = WholeText(m_hwndEditor);
        DWORD dwEnd = 0;
        SendMessageW(m_hwndEditor, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&dwEnd));
        size_t nAt = text.find(wanted, dwEnd);
        if (nAt == std::wstring::npos) {
            nAt = text.find(wanted);
        }
        if (!wanted.empty() && nAt != std::wstring::npos) {
            Select(static_cast<int>(nAt), static_cast<int>(nAt + wanted.size()));
        }
    }

    void Toggle(bool& fStyle)
    {
        fStyle = !fStyle;
        ApplyFont();
    }

    void ApplyFont()
    {
        const HDC hdcScreen = GetDC(nullptr);
        const int nHeight = -MulDiv(m_nPoints, GetDeviceCaps(hdcScreen, LOGPIXELSY), 72);
        ReleaseDC(nullptr, hdcScreen);
        const HFONT hFormer = m_hFont;
        m_hFont = CreateFontW(nHeight, 0, 0, 0, m_fBold ? FW_BOLD : FW_NORMAL, m_fItalic, m_fUnderline, 0, 0,
                              0, 0, 0, 0, m_fFixedPitch ? L"DejaVu Sans Mono" : L"Segoe UI");
        SendMessageW(m_hwndEditor, WM_SETFONT, reinterpret_cast<WPARAM>(m_hFont), TRUE);
        DeleteObject(hFormer);
    }

    HWND m_hwnd = nullptr;
    EditorRibbon* m_ribbon = nullptr; // the canvas's
    HWND m_hwndEditor = nullptr;
    HWND m_hwndFind = nullptr;
    ValueMenu m_menu;
    HFONT m_hFont = nullptr;
    int m_nPoints = SIZES[0];
    bool m_fBold = false;
    bool m_fItalic = false;
    bool m_fUnderline = false;
    bool m_fFixedPitch = false;
};

} // namespace

std::unique_ptr<Page> MakeRibbonPage()
{
    return std::make_unique<RibbonPage>();
}

} // namespace gallery
