#include <gallery/EditorField.h>
#include <gallery/EditorRibbon.h>
#include <gallery/Fonts.h>
#include <gallery/Pages.h>
#include <gallery/Report.h>
#include <gallery/Scale.h>

#include <gesso/edit/GComboBox.h>
#include <gesso/ribbon/GRightClickMenu.h>

#include <algorithm>
#include <cwctype>
#include <iterator>

namespace gallery {
namespace {

constexpr int RIBBON_HEIGHT = 120;
constexpr int EDITOR_TOP = FIRST_BLOCK + RIBBON_HEIGHT + GAP;
constexpr LPCWSTR FIRST_TEXT = L"The quick brown fox jumps over the lazy dog.\r\n\r\n"
                               L"The ribbon's buttons act on this text, and so do the values of the menu "
                               L"that a right click shows.";

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
    ID_LOCKED,
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

constexpr UINT EDITING_COMMANDS[] = {ID_NEW,  ID_CUT,       ID_PASTE,      ID_CLEAR,     ID_UNDO,
                                     ID_DATE, ID_CHARACTER, ID_UPPER_CASE, ID_LOWER_CASE};

constexpr int SIZES[] = {9, 10, 12, 14, 18, 24};

constexpr DWORD FIELD_STYLE = WS_CHILD | WS_BORDER | WS_TABSTOP;

std::wstring Today()
{
    wchar_t szDate[80] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, nullptr, nullptr, szDate,
                   static_cast<int>(std::size(szDate)));
    return szDate;
}

class RibbonPage : public Page
{
public:
    ~RibbonPage() override { DeleteObject(m_hFont); }

    void Build(Canvas& canvas) override
    {
        canvas.Title(L"Ribbon",
                     L"GRibbon: groups, buttons, check boxes, hosted windows. GRightClickMenu: a right "
                     L"click in the text.");
        m_pCanvas = &canvas;
        m_hwnd = canvas.Window();
        m_ribbon = &canvas.Own(std::make_unique<EditorRibbon>());
        m_ribbon->MakeWindow({0, 0, 10, RIBBON_HEIGHT}, m_hwnd);
        TellDots(m_hwnd); // before the ribbon's windows get their places
        MakeEditor(canvas);
        m_find = &canvas.Own(std::make_unique<GEdit>());
        m_sizes = &canvas.Own(std::make_unique<GComboBox>());
        AddHome();
        AddInsert();
        AddReview();
        AddView();
        m_ribbon->ShowTab(TAB_REVIEW, false);
        ApplyFont();
    }

    SIZE LeastSize() const override { return SMALL_ROOM; }

    void OnSize(SIZE size) override
    {
        const LONG cx = size.cx - 2 * MARGIN;
        m_pCanvas->Place(*m_ribbon, MARGIN, FIRST_BLOCK, cx, RIBBON_HEIGHT);
        m_pCanvas->Place(*m_editor, MARGIN, EDITOR_TOP, cx, size.cy - MARGIN - EDITOR_TOP);
        m_editor->WrapAnew();
    }

    void OnSchemeChange() override { m_ribbon->FollowScheme(); }

    LRESULT OnCommand(UINT uId, UINT uCode, HWND hwndFrom) override
    {
        if (uId == ID_SIZES && uCode == CBN_SELCHANGE) {
            m_nPoints = SIZES[m_sizes->GetSelected()];
            ApplyFont();
        } else if (uCode == EN_CONTEXTMENU && hwndFrom == m_editor->GetHwnd()) {
            OnContextMenu(hwndFrom, PlaceOfMenu(hwndFrom));
            return 1; // in the place of the field's own
        } else if (uCode == 0) {
            OnItem(uId, hwndFrom != nullptr);
        }
        return 0;
    }

    // At the pointer, if it is there.
    static POINT PlaceOfMenu(HWND hwnd)
    {
        RECT rc{};
        POINT pt{};
        GetWindowRect(hwnd, &rc);
        GetCursorPos(&pt);
        return PtInRect(&rc, pt) ? pt : POINT{-1, -1};
    }

    // The keyboard's menu stands in the text's corner.
    void OnContextMenu(HWND hwndFrom, POINT ptScreen) override
    {
        if (hwndFrom != m_editor->GetHwnd()) {
            return;
        }
        if (ptScreen.x == -1 && ptScreen.y == -1) {
            ptScreen = {GAP, GAP};
            ClientToScreen(hwndFrom, &ptScreen);
        }
        constexpr LPCWSTR VALUES[] = {L"Cut", L"Copy", L"Paste", L"Select all", L"Today's date"};
        constexpr UINT COMMANDS[] = {ID_CUT, ID_COPY, ID_PASTE, ID_SELECT_ALL, ID_DATE};
        const UINT nChoice = GRightClickMenu::Track(m_hwnd, ptScreen.x, ptScreen.y, VALUES,
                                                    static_cast<UINT>(std::size(VALUES)), RIBBON_NONE);
        if (nChoice != RIBBON_NONE) {
            OnItem(COMMANDS[nChoice], false);
        }
    }

    std::vector<Part> Parts() const override
    {
        std::vector<Part> parts;
        m_ribbon->AddParts(parts);
        return parts;
    }

private:
    void MakeEditor(Canvas& canvas)
    {
        m_editor = &canvas.Own(std::make_unique<EditorField>());
        m_editor->Create(0, 0, 10, 10, m_hwnd, ID_EDITOR, nullptr,
                         FIELD_STYLE | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN, 0);
        m_editor->SetText(FIRST_TEXT);
    }

    HWND MakeFindField()
    {
        const HWND hwnd =
            m_find->Create(0, 0, 110, 24, *m_ribbon, ID_FIND_FIELD, nullptr, FIELD_STYLE | ES_AUTOHSCROLL, 0);
        m_find->SetFont(g_hDefaultFont);
        return hwnd;
    }

    HWND MakeSizeBox()
    {
        const HWND hwnd =
            m_sizes->Create(0, 0, 90, 24, *m_ribbon, ID_SIZES, WS_CHILD | WS_TABSTOP | GCBS_DROPDOWNLIST, 0);
        for (const int nPoints : SIZES) {
            const std::wstring text = std::to_wstring(nPoints) + L" points";
            m_sizes->InsertItem(m_sizes->GetItemCount(), 0, text.c_str(), 0, nullptr);
        }
        m_sizes->SetSelected(0);
        return hwnd;
    }

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
        page.Host(MakeSizeBox(), 0);
        page.Group(L"Editing");
        page.Button(ID_UNDO, RIS_LARGE, IMAGE_UNDO, L"Undo");
        page.Button(ID_SELECT_ALL, RIS_LARGE, IMAGE_NONE, L"Select everything");
        page.Group(L"Search for", 122);
        page.Host(MakeFindField(), 0);
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
        page.CheckBox(ID_LOCKED, false, L"Locked");
        page.CheckBox(ID_FIXED_PITCH, false, L"Fixed pitch");
        page.Group(L"Tabs");
        page.CheckBox(ID_REVIEW_TAB, false, L"Show the tab Review");
    }

    // A click on an item of the ribbon.
    void OnItem(UINT uId, bool fChecked)
    {
        if (!IsWindowEnabled(*m_editor) && IsEditing(uId)) {
            return;
        }
        switch (uId) {
        case ID_NEW: return m_editor->StartAnew();
        case ID_CUT: return m_editor->Cut();
        case ID_COPY: return m_editor->Copy();
        case ID_PASTE: return m_editor->Paste();
        case ID_CLEAR: return m_editor->Clear();
        case ID_UNDO: return m_editor->Undo();
        case ID_SELECT_ALL: return m_editor->SelectAll();
        case ID_TOP: return m_editor->SelectStart();
        case ID_BOTTOM: return m_editor->SelectEnd();
        case ID_FIND_NEXT: return m_editor->FindNext(TextOf(*m_find));
        case ID_BOLD: return Toggle(m_fBold);
        case ID_ITALIC: return Toggle(m_fItalic);
        case ID_UNDERLINE: return Toggle(m_fUnderline);
        case ID_FIXED_PITCH: return Toggle(m_fFixedPitch);
        case ID_DATE: return m_editor->Type(Today());
        case ID_CHARACTER: return m_editor->Type(L"\x2013");
        case ID_UPPER_CASE: return m_editor->ReplaceCharacters(&std::towupper);
        case ID_LOWER_CASE: return m_editor->ReplaceCharacters(&std::towlower);
        case ID_LOCKED: return Lock(fChecked);
        case ID_REVIEW_TAB: return m_ribbon->ShowTab(TAB_REVIEW, fChecked);
        default: break;
        }
    }

    static bool IsEditing(UINT uId)
    {
        return std::find(std::begin(EDITING_COMMANDS), std::end(EDITING_COMMANDS), uId) !=
               std::end(EDITING_COMMANDS);
    }

    void Lock(bool fLocked)
    {
        if (GetFocus() == m_editor->GetHwnd()) {
            SetFocus(m_hwnd); // a disabled window would keep the keys to itself
        }
        EnableWindow(*m_editor, !fLocked);
        for (const UINT uId : EDITING_COMMANDS) {
            m_ribbon->SetDisabledLook(uId, fLocked);
        }
        m_ribbon->Invalidate(0);
    }

    void Toggle(bool& fStyle)
    {
        fStyle = !fStyle;
        ApplyFont();
    }

    void ApplyFont()
    {
        const int nHeight = -MulDiv(m_nPoints, DotsOfFonts(), 72);
        const HFONT hFormer = m_hFont;
        m_hFont = CreateFontW(nHeight, 0, 0, 0, m_fBold ? FW_BOLD : FW_NORMAL, m_fItalic, m_fUnderline, 0, 0,
                              0, 0, 0, 0, m_fFixedPitch ? L"DejaVu Sans Mono" : L"Segoe UI");
        m_editor->ChangeFont(m_hFont);
        DeleteObject(hFormer);
    }

    Canvas* m_pCanvas = nullptr;
    HWND m_hwnd = nullptr;
    // The canvas's.
    EditorRibbon* m_ribbon = nullptr;
    EditorField* m_editor = nullptr;
    GEdit* m_find = nullptr;
    GComboBox* m_sizes = nullptr;
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
