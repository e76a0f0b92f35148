// The page of GTree and GNavigationBar: the directories of this machine, and a navigation pane that switches
// what a list beside it shows.

#include <gallery/FolderTree.h>
#include <gallery/Fonts.h>
#include <gallery/Marks.h>
#include <gallery/Pages.h>
#include <gallery/Scale.h>
#include <gallery/Splitter.h>

#include <algorithm>
#include <deque>
#include <utility>

namespace gallery {
namespace {

constexpr int ROW_HEIGHT = 26;
constexpr int OPTION_WIDTH = 112;
constexpr int BLOCK_TOP = FIRST_BLOCK + ROW_HEIGHT + GAP;
constexpr int STATUS_ROOM = 58; // below the blocks
constexpr LONG LEAST_PLACES = 90;
constexpr LONG LEAST_LIST = 130;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
constexpr UINT END = static_cast<UINT>(-1);

std::wstring WindowsFolder()
{
    wchar_t szPath[MAX_PATH] = L"";
    GetWindowsDirectoryW(szPath, MAX_PATH);
    return szPath;
}

std::wstring DriveOf(const std::wstring& path)
{
    return path.substr(0, path.find(L'\\'));
}

// Places on this machine, with the folders in them as compact rows below.
class Places : public GNavigationBar
{
public:
    void Fill(const std::wstring& windows)
    {
        const std::wstring drive = DriveOf(windows);
        AddRow(L"This machine", L"", NBIK_HEADER);
        m_hFirst = AddRow(L"Windows", windows, NBIK_ITEM | NBIS_HASCHILDREN);
        AddRow(L"Drive " + drive, drive, NBIK_ITEM | NBIS_HASCHILDREN);
        AddRow(L"", L"", NBIK_SEPARATOR);
        AddRow(L"Often used", L"", NBIK_HEADER);
        AddRow(L"System", windows + L"\\system32", NBIK_ITEM);
        AddRow(L"Fonts", windows + L"\\Fonts", NBIK_ITEM);
        AddRow(L"", L"", NBIK_SPACER);
        AddRow(L"Programs", drive + L"\\Program Files", NBIK_ITEM | NBIS_HASCHILDREN);
        SetSelectedItem(m_hFirst);
    }

    void FillPlace(void* hPlace)
    {
        if (GetItemChildCount(hPlace) > 0) {
            return;
        }
        void* hAfter = nullptr;
        for (const Subfolder& subfolder : SubfoldersOf(PathOf(hPlace))) {
            hAfter =
                AddRow(subfolder.name, PathOf(hPlace) + L"\\" + subfolder.name, NBIK_SUBITEM, hPlace, hAfter);
        }
    }

    const std::wstring& PathOf(void* hPlace) const
    {
        return *static_cast<std::wstring*>(GetItemCustomData(hPlace));
    }
    void* First() const { return m_hFirst; }

private:
    // At the end of the top, or behind a child of a place.
    void* AddRow(const std::wstring& name, const std::wstring& path, UINT uState, void* hPlace = nullptr,
                 void* hAfter = nullptr)
    {
        m_paths.push_back(path);
        void* hRow = InsertItem(hPlace ? hPlace : GetRootItem(), hPlace ? hAfter : m_hLast, name.c_str(),
                                FolderImage(), uState, &m_paths.back());
        m_hLast = hPlace ? m_hLast : hRow;
        return hRow;
    }

    std::deque<std::wstring> m_paths;
    void* m_hFirst = nullptr;
    void* m_hLast = nullptr;
};

// The list of a place's files, the pane that chooses the place, and the strip between them.
class Browser
{
public:
    void Build(Canvas& canvas)
    {
        m_pCanvas = &canvas;
        m_pPlaces = &canvas.Own(std::make_unique<Places>());
        m_pPlaces->Create(0, 0, 0, 0, canvas.Window(), canvas.NextId(), 0,
                          CHILD | WS_TABSTOP | WS_VSCROLL | GNS_SINGLEEXPAND);
        m_pPlaces->SetImageList(SmallFileImages());
        m_pPlaces->SetItemHeight(static_cast<UINT>(Scaled(34)));
        m_splitter.Create(canvas);
        m_pList = &canvas.Own(std::make_unique<GList>());
        m_pList->Create(0, 0, 0, 0, canvas.Window(), canvas.NextId(), GLS_DETAILS | GLS_HEADER, 0,
                        CHILD | WS_TABSTOP | WS_BORDER | WS_HSCROLL | WS_VSCROLL);
        m_pList->SetImageList(SmallFileImages());
        AddColumn(L"Name", 130, DT_SINGLELINE | DT_VCENTER, LCT_IMAGETEXT);
        AddColumn(L"Size", 62, DT_SINGLELINE | DT_VCENTER | DT_RIGHT, LCT_TEXT);
        m_pFrame = &canvas.Frame({});
        m_pPlaces->Fill(WindowsFolder());
        Show(m_pPlaces->First());
    }

    // The list takes what the pane leaves.
    void Place(const RECT& rc)
    {
        *m_pFrame = rc;
        const LONG nMost = rc.right - rc.left - Splitter::WIDTH - LEAST_LIST;
        const LONG xSplitter = rc.left + std::clamp(m_cxPlaces, LEAST_PLACES, nMost);
        const LONG xList = xSplitter + Splitter::WIDTH;
        const LONG nHeight = rc.bottom - rc.top;
        m_pCanvas->Place(*m_pPlaces, rc.left + 1, rc.top + 1, xSplitter - rc.left - 1, nHeight - 2);
        m_splitter.Place(xSplitter, rc.top + 1, nHeight - 2);
        m_pCanvas->Place(*m_pList, xList, rc.top, rc.right - xList, nHeight);
    }

    void OnNotify(const NMHDR& header)
    {
        if (header.hwndFrom == m_pPlaces->GetHwnd()) {
            OnPlaces(reinterpret_cast<const GNAVNOTIFY&>(header));
        } else if (const auto x = m_splitter.DraggedTo(header)) {
            m_cxPlaces = *x - m_pFrame->left;
            Place(*m_pFrame);
        }
    }

private:
    void AddColumn(LPCWSTR pszName, UINT cx, UINT uFormat, int type)
    {
        m_pList->InsertColumn(END, 0, uFormat, static_cast<UINT>(Scaled(static_cast<int>(cx))), 40, pszName,
                              0, type, nullptr, nullptr, nullptr, nullptr);
    }

    void OnPlaces(const GNAVNOTIFY& record)
    {
        if (record.hdr.code == static_cast<UINT>(NM_CLICK)) {
            Show(record.pItem);
        } else if (record.hdr.code == TVN_ITEMEXPANDINGW && record.uAction == TVE_EXPAND) {
            m_pPlaces->FillPlace(record.pItem);
        }
    }

    void Show(void* hPlace)
    {
        m_folder = ReadFolder(m_pPlaces->PathOf(hPlace));
        m_pList->RemoveAllItems();
        m_pList->BulkInsertOn();
        for (File& file : m_folder.files) {
            const UINT item = m_pList->InsertItem(END, 0, &file, 0, file.name.c_str(), file.image);
            m_pList->SetSubItem(item, 1, 0, file.sizeText.c_str(), 0);
        }
        m_pList->BulkInsertOff();
    }

    Canvas* m_pCanvas = nullptr;
    Places* m_pPlaces = nullptr;
    Splitter m_splitter;
    GList* m_pList = nullptr;
    RECT* m_pFrame = nullptr; // the canvas's
    Folder m_folder;
    LONG m_cxPlaces = 168; // as the user wants it
};

class TreesPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        m_pCanvas = &canvas;
        canvas.Title(L"Trees",
                     L"GTree: the directories of this machine. GNavigationBar: places that fill a list.");
        m_pImages = &MakeOption(canvas, MARGIN, L"&Images");
        m_pChecks = &MakeOption(canvas, MARGIN + OPTION_WIDTH, L"&Check boxes");
        m_pMillion = &MakeOption(canvas, MARGIN + 2 * OPTION_WIDTH, L"A &million");
        m_pImages->SetCheck(BST_CHECKED);
        m_pTree = &canvas.Own(std::make_unique<FolderTree>());
        m_pTree->Create(0, 0, 10, 10, canvas.Window(), canvas.NextId(), 0,
                        CHILD | WS_TABSTOP | WS_BORDER | WS_HSCROLL | WS_VSCROLL);
        m_pTree->SetImageList(SmallFileImages());
        m_pTree->SetTreeStyle(TreeStyle());
        m_pStatus = &canvas.Text({}, L"", g_hDefaultFont, Shade::Caption);
        m_browser.Build(canvas);
        OpenDrive(DriveOf(WindowsFolder()));
        ShowStatus();
    }

    SIZE LeastSize() const override { return SMALL_ROOM; }

    // The tree and the browser have half of the room each.
    void OnSize(SIZE size) override
    {
        const LONG cx = (size.cx - 3 * MARGIN) / 2;
        const LONG nBottom = size.cy - STATUS_ROOM;
        m_pCanvas->Place(*m_pTree, MARGIN, BLOCK_TOP, cx, nBottom - BLOCK_TOP);
        m_pCanvas->Place(*m_pStatus, MARGIN, nBottom + 8, cx, 20);
        m_browser.Place({size.cx - MARGIN - cx, BLOCK_TOP, size.cx - MARGIN, nBottom});
    }

    LRESULT OnCommand(UINT, UINT, HWND hwndFrom) override
    {
        for (GCheckBox* pOption : {m_pImages, m_pChecks}) {
            if (pOption->GetHwnd() == hwndFrom) {
                MarkAfterClick(*pOption);
                m_pTree->SetTreeStyle(TreeStyle());
                m_pTree->Invalidate(0);
            }
        }
        if (m_pMillion->GetHwnd() == hwndFrom) {
            MarkAfterClick(*m_pMillion);
            ShowMillion(m_pMillion->GetCheck() == BST_CHECKED);
        }
        return 0;
    }

    LRESULT OnNotify(const NMHDR& header) override
    {
        m_browser.OnNotify(header);
        return header.hwndFrom == m_pTree->GetHwnd() ? OnTree(reinterpret_cast<const GLISTNOTIFY&>(header))
                                                     : 0;
    }

    std::vector<Part> Parts() const override
    {
        std::vector<Part> parts;
        m_pTree->AddParts(parts);
        return parts;
    }

private:
    static GCheckBox& MakeOption(Canvas& canvas, int x, LPCWSTR pszText)
    {
        auto& box = canvas.Own(std::make_unique<GCheckBox>());
        box.Create(x, FIRST_BLOCK, OPTION_WIDTH, ROW_HEIGHT, canvas.Window(), canvas.NextId(), pszText, 0,
                   CHILD | WS_TABSTOP | GS_VCENTER | GBS_AUTO);
        return box;
    }

    void OpenDrive(const std::wstring& drive)
    {
        void* hDrive = m_pTree->AddTop(drive.c_str(), drive);
        m_pTree->Expand(hDrive);
        if (void* hWindows = m_pTree->ChildNamed(hDrive, L"windows")) {
            m_pTree->Expand(hWindows);
            m_pTree->SetSelectedItem(hWindows);
        }
    }

    // A folder of so many entries, none of which is made before it shows.
    void ShowMillion(bool fShow)
    {
        if (fShow && !m_hMillion) {
            m_hMillion = m_pTree->AddCounted(L"A million entries", 1'000'000);
            m_pTree->Expand(m_hMillion);
            m_pTree->SetSelectedItem(m_hMillion);
            m_pTree->EnsureVisible(m_hMillion);
        } else if (!fShow && m_hMillion) {
            HideMillion();
        }
        ShowStatus();
    }

    // In Classic a row of it would stay.
    void HideMillion()
    {
        void* hMillion = std::exchange(m_hMillion, nullptr);
        if (gesso::BehaviorOf(*m_pTree) == gesso::Behavior::Modern) {
            return m_pTree->RemoveTop(hMillion);
        }
        m_pTree->RemoveTops();
        OpenDrive(DriveOf(WindowsFolder()));
    }

    UINT TreeStyle() const
    {
        return (m_pImages->GetCheck() == BST_CHECKED ? GTS_IMAGES : 0) |
               (m_pChecks->GetCheck() == BST_CHECKED ? GTS_CHECKBOXES : 0);
    }

    // The directories of this machine keep their names.
    LRESULT OnTree(const GLISTNOTIFY& record)
    {
        if (record.hdr.code == TVN_GETDISPINFOW) {
            m_pTree->NameEntry(record);
        } else if (record.hdr.code == TVN_ITEMEXPANDINGW && record.uAction == TVE_EXPAND) {
            m_pTree->FillFolder(record.pItem);
        } else {
            ShowStatus();
        }
        return 0;
    }

    void ShowStatus()
    {
        void* hSelected = m_pTree->GetSelectedItem();
        m_pStatus->SetText(hSelected ? m_pTree->PathOf(hSelected).c_str() : L"Nothing is selected");
    }

    FolderTree* m_pTree = nullptr;
    GCheckBox* m_pImages = nullptr;
    GCheckBox* m_pChecks = nullptr;
    GCheckBox* m_pMillion = nullptr;
    void* m_hMillion = nullptr;
    Canvas* m_pCanvas = nullptr;
    GLabel* m_pStatus = nullptr;
    Browser m_browser;
};

} // namespace

std::unique_ptr<Page> MakeTreesPage()
{
    return std::make_unique<TreesPage>();
}

} // namespace gallery
