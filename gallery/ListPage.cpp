// The page of GList: a directory of this machine in all three views.

#include <gallery/FileList.h>
#include <gallery/Fonts.h>
#include <gallery/Marks.h>
#include <gallery/Pages.h>
#include <gallery/Scale.h>
#include <gallery/Slices.h>

namespace gallery {
namespace {

constexpr int LIST_TOP = FIRST_BLOCK + 78;
constexpr int STATUS_ROOM = 58; // below the list
constexpr int ROW_HEIGHT = 26;
constexpr int OPTION_WIDTH = 112;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
constexpr UINT MANY = 100'000;
constexpr UINT NUMBERS = 100'000'000;
constexpr UINT NUMBERS_IN_GROUP = 1'000; // the first one
constexpr UINT END = static_cast<UINT>(-1);
constexpr UINT NAME_WIDTH = 360;
constexpr int PROGRESS_WIDTH = 180;

class ListPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        m_pCanvas = &canvas;
        canvas.Title(L"List",
                     L"GList: columns, groups, images, three views. A header sorts; F2 or a double click "
                     L"renames.");
        m_folder = ReadSystemFolder();
        MakeOptions(canvas);
        m_pList = &canvas.Own(std::make_unique<FileList>(NAME_WIDTH));
        m_pList->Create(0, 0, 10, 10, canvas.Window(), canvas.NextId(), GLS_DETAILS, 0,
                        CHILD | WS_TABSTOP | WS_BORDER | WS_HSCROLL | WS_VSCROLL | WS_CLIPCHILDREN);
        m_pStatus = &canvas.Text({}, L"", g_hDefaultFont, Shade::Caption);
        m_pProgress = &canvas.Own(std::make_unique<GProgressBar>());
        m_pProgress->Create(0, 0, PROGRESS_WIDTH, 12, canvas.Window(), 0, 0, WS_CHILD);
        m_options[HEADER]->SetCheck(BST_CHECKED);
        m_views[DETAILS]->SetCheck(BST_CHECKED);
        Show();
    }

    SIZE LeastSize() const override { return SMALL_ROOM; }

    void OnSize(SIZE size) override
    {
        const int nRight = size.cx - MARGIN;
        const int nBottom = size.cy - STATUS_ROOM;
        m_pCanvas->Place(*m_pMany, nRight - OPTION_WIDTH, FIRST_BLOCK, OPTION_WIDTH, ROW_HEIGHT);
        m_pCanvas->Place(*m_pFolder, nRight - 2 * OPTION_WIDTH - GAP, FIRST_BLOCK, OPTION_WIDTH, ROW_HEIGHT);
        m_pCanvas->Place(*m_pNumbers, nRight - OPTION_WIDTH, FIRST_BLOCK + ROW_HEIGHT + 10, OPTION_WIDTH,
                         ROW_HEIGHT);
        m_pCanvas->Place(*m_pList, MARGIN, LIST_TOP, nRight - MARGIN, nBottom - LIST_TOP);
        m_pCanvas->Place(*m_pStatus, MARGIN, nBottom + 8, nRight - PROGRESS_WIDTH - GAP - MARGIN, 20);
        m_pCanvas->Place(*m_pProgress, nRight - PROGRESS_WIDTH, nBottom + 12, PROGRESS_WIDTH, 12);
    }

    LRESULT OnCommand(UINT, UINT, HWND hwndFrom) override
    {
        if (hwndFrom == m_pMany->GetHwnd()) {
            ShowMany();
        } else if (hwndFrom == m_pNumbers->GetHwnd()) {
            ShowNumbers();
        } else if (hwndFrom == m_pFolder->GetHwnd()) {
            Show();
        } else if (ChooseView(hwndFrom) || ChooseOption(hwndFrom)) {
            m_pList->IsVirtual() ? ShowNumbers() : Show();
        }
        return 0;
    }

    LRESULT OnNotify(const NMHDR& header) override
    {
        if (header.hwndFrom != m_pList->GetHwnd()) {
            return 0;
        }
        const auto& record = reinterpret_cast<const GLISTNOTIFY&>(header);
        const bool fNumbers = m_pList->IsVirtual();
        switch (header.code) {
        case static_cast<UINT>(LVN_COLUMNCLICK): return fNumbers && !m_pList->OrderNumbers();
        case static_cast<UINT>(LVN_BEGINLABELEDITW): return fNumbers; // a number is what it is
        case static_cast<UINT>(NM_DBLCLK): m_pList->EditItem(static_cast<UINT>(record.iItem)); break;
        case static_cast<UINT>(LVN_ENDLABELEDITW): Rename(record); break;
        default: break;
        }
        ShowStatus();
        return 0;
    }

    void OnTimer() override { m_slices.OnTimer(); }
    bool IsBusy() const override { return m_slices.AreRunning(); }

    std::vector<Part> Parts() const override
    {
        std::vector<Part> parts;
        m_pList->AddParts(parts);
        return parts;
    }

    std::vector<Exhibit> Exhibits() override
    {
        RECT rcPart{};
        GetWindowRect(*m_pList, &rcPart);
        InflateRect(&rcPart, Scaled(GAP), Scaled(GAP));
        rcPart.top -= Scaled(LIST_TOP - FIRST_BLOCK);
        const auto options = [this](View view, bool fGroups) {
            ChooseView(*m_views[view]);
            m_options[GROUPS]->SetCheck(fGroups ? BST_CHECKED : BST_UNCHECKED);
            m_options[CHECKBOXES]->SetCheck(fGroups ? BST_CHECKED : BST_UNCHECKED);
            Show();
        };
        return {{L"list-groups", [=] { options(DETAILS, true); }, {}, rcPart},
                {L"list-tiles", [=] { options(TILES, false); }, {}, rcPart},
                {L"list-icons", [=] { options(ICONS, false); }, {}, rcPart}};
    }

private:
    enum View
    {
        DETAILS,
        TILES,
        ICONS,
        VIEW_COUNT
    };
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
            m_views[i] = &Make<GRadioButton>(canvas, x, FIRST_BLOCK, VIEWS[i], i ? 0 : WS_GROUP);
            x += OPTION_WIDTH;
        }
        x = MARGIN;
        for (int i = 0; i < OPTION_COUNT; i++) {
            m_options[i] = &Make<GCheckBox>(canvas, x, SECOND_ROW, OPTIONS[i], WS_GROUP);
            x += OPTION_WIDTH;
        }
        m_pFolder = &Make<GButton>(canvas, 0, FIRST_BLOCK, L"&Folder", GS_CENTER);
        m_pMany = &Make<GButton>(canvas, 0, FIRST_BLOCK, L"100,000 ro&ws", GS_CENTER);
        m_pNumbers = &Make<GButton>(canvas, 0, SECOND_ROW, L"100 m&illion", GS_CENTER);
    }

    template <class CONTROL>
    static CONTROL& Make(Canvas& canvas, int x, int y, LPCWSTR pszText, DWORD dwStyle)
    {
        constexpr DWORD AUTO = std::is_same_v<CONTROL, GButton> ? 0 : GBS_AUTO;
        auto& control = canvas.Own(std::make_unique<CONTROL>());
        control.Create(x, y, OPTION_WIDTH, ROW_HEIGHT, canvas.Window(), canvas.NextId(), pszText, 0,
                       CHILD | WS_TABSTOP | GS_VCENTER | AUTO | dwStyle);
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
                MarkAfterClick(*option);
                return true;
            }
        }
        return false;
    }

    bool Is(Option option) const { return m_options[option]->GetCheck() == BST_CHECKED; }

    UINT ListStyle() const
    {
        constexpr UINT VIEWS[] = {GLS_DETAILS, GLS_TILES, GLS_ICONS};
        return VIEWS[m_nView] | (Is(HEADER) && m_nView == DETAILS ? GLS_HEADER : 0) |
               (Is(CHECKBOXES) ? GLS_CHECKBOXES : 0) | (Is(GRIDLINES) ? GLS_GRIDLINES : 0);
    }

    // In Classic all icons share one cell, so that one file is shown there.
    void Show()
    {
        m_slices.Stop();
        const File* pFormer = m_pList->FileAt(m_pList->GetFirstSelectedItemIndex());
        m_pChosen = pFormer ? pFormer : m_pChosen;
        const File* pOnly = m_pChosen || m_folder.files.empty() ? m_pChosen : &m_folder.files.front();
        m_pList->ShowFiles(m_folder,
                           {ListStyle(), Is(GROUPS), Is(GROUPS), SharesOneCell() ? pOnly : nullptr});
        ShowStatus();
    }

    bool SharesOneCell() const
    {
        return m_nView == ICONS && gesso::BehaviorOf(*m_pList) == gesso::Behavior::Classic;
    }

    void ShowMany()
    {
        if (SharesOneCell()) {
            ChooseView(*m_views[DETAILS]);
        }
        m_pList->ShowNamesOnly(ListStyle());
        m_nManyStart = GetTickCount64();
        m_lastWords.clear();
        m_slices.Start(
            GetParent(*m_pList), *m_pProgress, [this] { return AddRow(); }, [this] { EndMany(); });
    }

    // Rows that are not filled in: each is computed from its number when it shows.
    void ShowNumbers()
    {
        m_slices.Stop();
        m_pList->ShowNumbers(ListStyle(), NUMBERS, Is(GROUPS) ? NUMBERS_IN_GROUP : 0);
        m_lastWords.clear();
        ShowStatus();
    }

    UINT AddRow()
    {
        const UINT row = m_pList->GetItemCount();
        File& file = m_folder.files[row % m_folder.files.size()];
        m_pList->InsertItem(END, 0, &file, 0, (L"Row " + std::to_wstring(row)).c_str(), file.image);
        return Slices::Share(row + 1, MANY);
    }

    void EndMany()
    {
        m_lastWords = L"filled in " + std::to_wstring(GetTickCount64() - m_nManyStart) + L" ms";
        ShowStatus();
    }

    // F2 has begun it in Modern, or a double click. The text is set here, so that the status shows it at
    // once.
    void Rename(const GLISTNOTIFY& record)
    {
        if (record.pszText && *record.pszText) {
            m_lastWords = L"renamed to " + std::wstring(record.pszText);
            m_pList->SetItemText(static_cast<UINT>(record.iItem), FileList::NAME, record.pszText);
        }
    }

    void ShowStatus()
    {
        const UINT first = m_pList->GetFirstSelectedItemIndex();
        const std::wstring source = m_pList->IsVirtual() ? L"Rows by their numbers" : m_folder.path;
        std::wstring text = source + L": " + std::to_wstring(m_pList->GetSelectedCount()) + L" of " +
                            std::to_wstring(m_pList->GetItemCount()) + L" selected";
        if (first != END) {
            text += L", first " + std::wstring(m_pList->GetItemText(first, FileList::NAME));
        }
        m_pStatus->SetText((m_lastWords.empty() ? text : text + L"; " + m_lastWords).c_str());
    }

    Folder m_folder;
    Canvas* m_pCanvas = nullptr;
    FileList* m_pList = nullptr;
    GLabel* m_pStatus = nullptr;
    GProgressBar* m_pProgress = nullptr;
    GButton* m_pFolder = nullptr;
    GButton* m_pMany = nullptr;
    GButton* m_pNumbers = nullptr;
    GRadioButton* m_views[VIEW_COUNT]{};
    GCheckBox* m_options[OPTION_COUNT]{};
    Slices m_slices; // while many rows are added
    ULONGLONG m_nManyStart = 0;
    int m_nView = DETAILS;
    const File* m_pChosen = nullptr;
    std::wstring m_lastWords;
};

} // namespace

std::unique_ptr<Page> MakeListPage()
{
    return std::make_unique<ListPage>();
}

} // namespace gallery
