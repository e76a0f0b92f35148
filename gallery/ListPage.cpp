// The page of GList: a directory of this machine in all three views.

#include <gallery/Folder.h>
#include <gallery/Fonts.h>
#include <gallery/NameEdit.h>
#include <gallery/Pages.h>

#include <array>

namespace gallery {
namespace {

constexpr int LIST_TOP = FIRST_BLOCK + 78;
constexpr int LIST_WIDTH = 804;
constexpr int LIST_HEIGHT = 388;
constexpr int STATUS_TOP = LIST_TOP + LIST_HEIGHT + 8;
constexpr int ROW_HEIGHT = 26;
constexpr int OPTION_WIDTH = 112;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
constexpr UINT MANY = 100'000;
constexpr UINT END = static_cast<UINT>(-1);
constexpr UINT TILE_HEIGHT = 44;
constexpr UINT USUAL_HEIGHT = 22;
constexpr int CHECK_BOX_ROOM = 20; // left of a tile

enum Column : UINT
{
    NAME,
    SIZE_KB,
    TYPE,
    DATE,
    COLUMN_COUNT
};

const File& FileOf(void* customData)
{
    return *static_cast<const File*>(customData);
}

int BySize(void* a, void* b)
{
    return FileOf(a).size < FileOf(b).size ? -1 : FileOf(a).size > FileOf(b).size ? 1 : 0;
}

int ByDate(void* a, void* b)
{
    return FileOf(a).date < FileOf(b).date ? -1 : FileOf(a).date > FileOf(b).date ? 1 : 0;
}

struct ColumnKind
{
    LPCWSTR pszName;
    UINT cx;
    UINT uFormat;
    int type;
    PFNLISTSORT fktSort;
    UINT uTileFlags;
    RECT rcTile;
};

constexpr UINT LINE = DT_SINGLELINE | DT_VCENTER;
constexpr ColumnKind COLUMNS[COLUMN_COUNT] = {
    {L"Name", 280, LINE, LCT_IMAGETEXT, nullptr, LCF_TILELINE, {6, 4, 360, 38}},
    {L"Size", 110, LINE | DT_RIGHT, LCT_TEXT, BySize, LCF_TILECAPTION, {380, 2, 640, 22}},
    {L"Type", 140, LINE, LCT_TEXT, nullptr, LCF_TILECAPTION, {380, 22, 640, 42}},
    {L"Date modified", 150, LINE, LCT_TEXT, ByDate, 0, {0, 0, 0, 0}},
};

class ListPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        canvas.Title(L"List",
                     L"GList: columns, groups, images and three views. Click a header to sort; F2 or a "
                     L"double click renames, in the list alone.");
        m_folder = ReadSystemFolder();
        MakeOptions(canvas);
        m_pList = &canvas.Own(std::make_unique<GList>());
        m_pList->Create(MARGIN, LIST_TOP, LIST_WIDTH, LIST_HEIGHT, canvas.Window(), canvas.NextId(),
                        GLS_DETAILS, 0,
                        CHILD | WS_TABSTOP | WS_BORDER | WS_HSCROLL | WS_VSCROLL | WS_CLIPCHILDREN);
        m_pEdit = std::make_unique<NameEdit>(*m_pList);
        m_pStatus = &canvas.Text({MARGIN, STATUS_TOP, MARGIN + LIST_WIDTH, STATUS_TOP + 20}, L"",
                                 g_hDefaultFont, CAPTION_COLOR);
        m_options[HEADER]->SetCheck(BST_CHECKED);
        m_views[0]->SetCheck(BST_CHECKED);
        Show();
    }

    LRESULT OnCommand(UINT, UINT, HWND hwndFrom) override
    {
        if (hwndFrom == m_pMany->GetHwnd()) {
            ShowMany();
        } else if (hwndFrom == m_pFolder->GetHwnd()) {
            Show();
        } else if (ChooseView(hwndFrom) || ChooseOption(hwndFrom)) {
            Show();
        }
        return 0;
    }

    LRESULT OnNotify(const NMHDR& header) override
    {
        if (header.hwndFrom != m_pList->GetHwnd()) {
            return 0;
        }
        const auto& record = reinterpret_cast<const GLISTNOTIFY&>(header);
        switch (header.code) {
        case static_cast<UINT>(NM_DBLCLK): Rename(static_cast<UINT>(record.iItem)); break;
        case static_cast<UINT>(NM_KEYDOWN): OnKey(record.vKey); break;
        case static_cast<UINT>(LVN_FIRST): EndRename(); break;
        default: break;
        }
        ShowStatus();
        return 0;
    }

private:
    enum Option
    {
        HEADER,
        CHECKBOXES,
        GRIDLINES,
        GROUPS,
        OPTION_COUNT
    };

    void MakeOptions(Canvas& canvas)
    {
        constexpr LPCWSTR VIEWS[] = {L"&Details", L"&Tiles", L"&Icons"};
        constexpr LPCWSTR OPTIONS[OPTION_COUNT] = {L"&Header", L"&Check boxes", L"G&rid lines", L"&Groups"};
        constexpr int SECOND_ROW = FIRST_BLOCK + ROW_HEIGHT + 10;
        int x = MARGIN;
        for (int i = 0; i < VIEW_COUNT; i++) {
            m_views[i] = &Make<GRadioButton>(canvas, x, FIRST_BLOCK, VIEWS[i]);
            x += OPTION_WIDTH;
        }
        x = MARGIN;
        for (int i = 0; i < OPTION_COUNT; i++) {
            m_options[i] = &Make<GCheckBox>(canvas, x, SECOND_ROW, OPTIONS[i]);
            x += OPTION_WIDTH;
        }
        m_pFolder =
            &Make<GButton>(canvas, MARGIN + LIST_WIDTH - 2 * OPTION_WIDTH - GAP, SECOND_ROW, L"&Folder");
        m_pMany = &Make<GButton>(canvas, MARGIN + LIST_WIDTH - OPTION_WIDTH, SECOND_ROW, L"100,000 ro&ws");
    }

    template <class CONTROL> static CONTROL& Make(Canvas& canvas, int x, int y, LPCWSTR pszText)
    {
        auto& control = canvas.Own(std::make_unique<CONTROL>());
        const DWORD dwCenter = std::is_same_v<CONTROL, GButton> ? GS_CENTER : 0;
        control.Create(x, y, OPTION_WIDTH, ROW_HEIGHT, canvas.Window(), canvas.NextId(), pszText, 0,
                       CHILD | WS_TABSTOP | GS_VCENTER | dwCenter);
        return control;
    }

    bool ChooseView(HWND hwnd)
    {
        for (int i = 0; i < VIEW_COUNT; i++) {
            if (m_views[i]->GetHwnd() == hwnd) {
                m_nView = i;
                for (int other = 0; other < VIEW_COUNT; other++) {
                    m_views[other]->SetCheck(other == i ? BST_CHECKED : BST_UNCHECKED);
                }
                return true;
            }
        }
        return false;
    }

    bool ChooseOption(HWND hwnd)
    {
        for (GCheckBox* option : m_options) {
            if (option->GetHwnd() == hwnd) {
                option->SetCheck(option->GetCheck() == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED);
                return true;
            }
        }
        return false;
    }

    bool Is(Option option) const { return m_options[option]->GetCheck() == BST_CHECKED; }

    UINT ListStyle() const
    {
        constexpr UINT VIEWS[] = {GLS_DETAILS, GLS_TILES, GLS_ICONS};
        return VIEWS[m_nView] | (Is(HEADER) && m_nView == 0 ? GLS_HEADER : 0) |
               (Is(CHECKBOXES) ? GLS_CHECKBOXES : 0) | (Is(GRIDLINES) ? GLS_GRIDLINES : 0);
    }

    // The list from the start, since the places of the tiles and the margins of the cells are the columns'.
    void Show()
    {
        const UINT former = m_pList->GetFirstSelectedItemIndex();
        m_chosen = former < m_pList->GetItemCount() && m_pList->GetItemCustomData(former)
                       ? &FileOf(m_pList->GetItemCustomData(former))
                       : m_chosen;
        m_pList->RemoveAllItems();
        m_pList->RemoveAllGroups();
        m_pList->RemoveAllColumns();
        m_pList->SetListStyle(GLS_DETAILS); // without columns, so that icons show the first one, the name
        const UINT style = ListStyle();
        const UINT view = style & GLS_VIEWMASK;
        m_pList->SetImageList(view == GLS_DETAILS ? SmallFileImages() : LargeFileImages());
        m_pList->SetItemHeight(view == GLS_TILES ? TILE_HEIGHT : USUAL_HEIGHT);
        m_pList->SetListStyle(style);
        AddColumns(view == GLS_TILES);
        Fill(view);
        if (Is(GROUPS)) {
            m_pList->Group(TYPE, true);
        }
        m_pList->SetListStyle(style); // tells the keyboard where the rows are
        ShowStatus();
    }

    void AddColumns(bool fTiles)
    {
        for (const ColumnKind& c : COLUMNS) {
            const PFNLISTGROUP group = &c == &COLUMNS[TYPE] ? &GroupByType : nullptr;
            RECT rcTile = c.rcTile;
            OffsetRect(&rcTile, Is(CHECKBOXES) ? CHECK_BOX_ROOM : 0, 0);
            m_pList->InsertColumn(END, c.uTileFlags, fTiles ? LINE : c.uFormat, c.cx, 40, c.pszName, 0,
                                  c.type, fTiles ? &rcTile : nullptr, group, c.fktSort, nullptr);
        }
    }

    // In the icons view the icons of a group share one cell, so that one file is shown there.
    void Fill(UINT view)
    {
        s_pFolder = &m_folder;
        m_pList->BulkInsertOn();
        for (File& file : m_folder.files) {
            if (view != GLS_ICONS || &file == m_chosen || (!m_chosen && &file == &m_folder.files.front())) {
                AddFile(file);
            }
        }
        m_pList->BulkInsertOff();
    }

    void AddFile(File& file)
    {
        const UINT item = m_pList->InsertItem(END, 0, &file, 0, file.name.c_str(), file.image);
        m_pList->SetSubItem(item, SIZE_KB, 0, file.sizeText.c_str(), 0);
        m_pList->SetSubItem(item, TYPE, 0, file.type.c_str(), 0);
        m_pList->SetSubItem(item, DATE, 0, file.dateText.c_str(), 0);
    }

    static UINT GroupByType(GList* pList, void* customData)
    {
        const UINT type = customData ? FileOf(customData).typeIndex : 0;
        while (pList->GetGroupCount() <= type) {
            const UINT group = pList->GetGroupCount();
            pList->InsertGroup(LINE, s_pFolder->types[group].c_str(), 0, group);
        }
        return type;
    }

    void ShowMany()
    {
        const ULONGLONG start = GetTickCount64();
        m_pList->RemoveAllItems();
        m_pList->RemoveAllGroups();
        m_pList->BulkInsertOn();
        for (UINT i = 0; i < MANY; i++) {
            const std::wstring number = std::to_wstring(i);
            const UINT item = m_pList->InsertItem(END, 0, &m_folder.files[i % m_folder.files.size()], 0,
                                                  (L"Row " + number).c_str(), i % 3);
            m_pList->SetSubItem(item, SIZE_KB, 0, (number + L" KB").c_str(), 0);
            m_pList->SetSubItem(item, TYPE, 0, L"Row", 0);
            m_pList->SetSubItem(item, DATE, 0, L"now", 0);
        }
        m_pList->BulkInsertOff();
        m_pList->SetListStyle(m_pList->GetListStyle());
        m_lastWords = L"filled in " + std::to_wstring(GetTickCount64() - start) + L" ms";
        ShowStatus();
    }

    void OnKey(UINT vKey)
    {
        const UINT item = m_pList->GetFirstSelectedItemIndex();
        if (vKey == VK_F2 && item != END) {
            Rename(item);
        }
    }

    void Rename(UINT item)
    {
        if (!m_pEdit->IsActive() && (m_pList->GetListStyle() & GLS_VIEWMASK) == GLS_DETAILS) {
            m_pEdit->Begin(item, NAME);
        }
    }

    void EndRename()
    {
        const std::wstring name = m_pEdit->End();
        if (!name.empty()) {
            m_pList->SetItemText(m_pEdit->Item(), NAME, name.c_str());
            m_lastWords = L"renamed to " + name;
        }
    }

    void ShowStatus()
    {
        const UINT first = m_pList->GetFirstSelectedItemIndex();
        std::wstring text = m_folder.path + L": " + std::to_wstring(m_pList->GetSelectedCount()) + L" of " +
                            std::to_wstring(m_pList->GetItemCount()) + L" selected";
        if (first != END) {
            text += L", first " + std::wstring(m_pList->GetItemText(first, NAME));
        }
        m_pStatus->SetText((m_lastWords.empty() ? text : text + L"; " + m_lastWords).c_str());
    }

    static constexpr int VIEW_COUNT = 3;
    static inline Folder* s_pFolder = nullptr; // what the grouping callback goes by

    Folder m_folder;
    GList* m_pList = nullptr;
    GLabel* m_pStatus = nullptr;
    GButton* m_pFolder = nullptr;
    GButton* m_pMany = nullptr;
    std::array<GRadioButton*, VIEW_COUNT> m_views{};
    std::array<GCheckBox*, OPTION_COUNT> m_options{};
    std::unique_ptr<NameEdit> m_pEdit;
    int m_nView = 0;
    const File* m_chosen = nullptr;
    std::wstring m_lastWords;
};

} // namespace

std::unique_ptr<Page> MakeListPage()
{
    return std::make_unique<ListPage>();
}

} // namespace gallery
