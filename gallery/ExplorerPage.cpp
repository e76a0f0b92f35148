// A small program made of Gesso alone: a tree of folders, the files of one of them in a list, its path in a
// combo box. Files of the sample folder can be renamed and deleted; the rest of the machine is only looked
// at.

#include <gallery/FileList.h>
#include <gallery/FolderTree.h>
#include <gallery/Glyphs.h>
#include <gallery/Marks.h>
#include <gallery/Pages.h>
#include <gallery/SampleFolder.h>
#include <gallery/Slices.h>
#include <gallery/Splitter.h>

#include <algorithm>
#include <commctrl.h>

namespace gallery {
namespace {

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
constexpr int EDGE = 12;
constexpr int ROW_HEIGHT = 26;
constexpr int OPTIONS_TOP = EDGE + ROW_HEIGHT + 10;
constexpr int PANES_TOP = OPTIONS_TOP + ROW_HEIGHT + 10;
constexpr int STATUS_HEIGHT = 20;
constexpr int UP_WIDTH = 30;
constexpr int PATH_LEFT = EDGE + UP_WIDTH + 8;
constexpr int GO_WIDTH = 56;
constexpr int VIEWS_WIDTH = 110;
constexpr int GROUP_WIDTH = 150;
constexpr int PROGRESS_WIDTH = 180;
constexpr int LEAST_PANE = 80;
constexpr UINT NAME_WIDTH = 240;
constexpr UINT END = static_cast<UINT>(-1);

enum View : UINT
{
    DETAILS,
    TILES,
};

std::wstring ParentOf(const std::wstring& path)
{
    const size_t slash = path.rfind(L'\\');
    return slash == std::wstring::npos ? path : path.substr(0, slash);
}

std::wstring LastNameOf(const std::wstring& path)
{
    return path.substr(path.rfind(L'\\') + 1);
}

class ExplorerPage : public Page
{
public:
    SIZE LeastSize() const override { return {480, 300}; }

    void Build(Canvas& canvas) override
    {
        m_pCanvas = &canvas;
        m_hwnd = canvas.Window();
        MakeHead(canvas);
        MakePanes(canvas);
        m_pStatus = &canvas.Text({}, L"", g_hDefaultFont, Shade::Caption);
        m_pProgress = &canvas.Own(std::make_unique<GProgressBar>());
        m_pProgress->Create(0, 0, PROGRESS_WIDTH, 12, m_hwnd, 0, 0, WS_CHILD);
        const std::wstring sample = SampleFolder();
        m_pTree->AddTop(L"Sample files", sample);
        m_pTree->AddTop(L"C:", L"C:");
        Open(sample);
    }

    void OnSize(SIZE size) override
    {
        m_size = size;
        const int nRight = size.cx - EDGE;
        m_cxTree = std::clamp(m_cxTree, LEAST_PANE, nRight - EDGE - Splitter::WIDTH - LEAST_PANE);
        const int nBottom = size.cy - EDGE - STATUS_HEIGHT - 6;
        m_pCanvas->Place(*m_pUp, EDGE, EDGE, UP_WIDTH, ROW_HEIGHT);
        m_pCanvas->Place(*m_pPath, PATH_LEFT, EDGE, nRight - GO_WIDTH - 8 - PATH_LEFT, ROW_HEIGHT);
        m_pCanvas->Place(*m_pGo, nRight - GO_WIDTH, EDGE, GO_WIDTH, ROW_HEIGHT);
        m_pCanvas->Place(*m_pViews, PATH_LEFT, OPTIONS_TOP, VIEWS_WIDTH, ROW_HEIGHT);
        m_pCanvas->Place(*m_pGroup, PATH_LEFT + VIEWS_WIDTH + 16, OPTIONS_TOP, GROUP_WIDTH, ROW_HEIGHT);
        m_pCanvas->Place(*m_pTree, EDGE, PANES_TOP, m_cxTree, nBottom - PANES_TOP);
        const int xList = EDGE + m_cxTree + Splitter::WIDTH;
        m_splitter.Place(EDGE + m_cxTree, PANES_TOP, nBottom - PANES_TOP);
        m_pCanvas->Place(*m_pList, xList, PANES_TOP, nRight - xList, nBottom - PANES_TOP);
        m_pCanvas->Place(*m_pStatus, EDGE, nBottom + 8, nRight - PROGRESS_WIDTH - EDGE - EDGE, STATUS_HEIGHT);
        m_pCanvas->Place(*m_pProgress, nRight - PROGRESS_WIDTH, nBottom + 10, PROGRESS_WIDTH, 12);
    }

    LRESULT OnCommand(UINT, UINT uCode, HWND hwndFrom) override
    {
        if (hwndFrom == m_pUp->GetHwnd()) {
            Open(ParentOf(m_path));
        } else if (hwndFrom == m_pGo->GetHwnd()) {
            OnEnter();
        } else if (hwndFrom == m_pPath->GetHwnd() && uCode == CBN_SELCHANGE) {
            Open(m_pPath->GetItemText(m_pPath->GetSelected())); // the text follows a click later
        } else if (hwndFrom == m_pViews->GetHwnd() && uCode == CBN_SELCHANGE) {
            Show();
        } else if (hwndFrom == m_pGroup->GetHwnd()) {
            MarkAfterClick(*m_pGroup);
            Show();
        }
        return 0;
    }

    LRESULT OnNotify(const NMHDR& header) override
    {
        if (header.hwndFrom == m_pTree->GetHwnd()) {
            OnTreeNotify(reinterpret_cast<const GLISTNOTIFY&>(header));
        } else if (header.hwndFrom == m_pList->GetHwnd()) {
            return OnListNotify(reinterpret_cast<const GLISTNOTIFY&>(header));
        } else if (const auto x = m_splitter.DraggedTo(header)) {
            m_cxTree = *x - EDGE;
            OnSize(m_size);
        }
        return 1; // a double click in the tree toggles no row: it has opened its folder
    }

    void OnTimer() override { m_slices.OnTimer(); }
    bool IsBusy() const override { return m_slices.AreRunning(); }

    std::vector<Part> Parts() const override
    {
        std::vector<Part> parts;
        m_pList->AddParts(parts);
        return parts;
    }

private:
    void MakeHead(Canvas& canvas)
    {
        m_pUp = &canvas.Own(std::make_unique<GButton>());
        m_pUp->Create(0, 0, UP_WIDTH, ROW_HEIGHT, m_hwnd, canvas.NextId(), L"", 0,
                      CHILD | WS_TABSTOP | GS_CENTER | GS_VCENTER | GS_ICON);
        m_pUp->SetIcon(IconOf(Glyph::Up, 16));
        m_pPath = &canvas.Own(std::make_unique<GComboBox>());
        m_pPath->Create(0, 0, 10, ROW_HEIGHT, m_hwnd, canvas.NextId(), CHILD | WS_TABSTOP | GCBS_DROPDOWN, 0);
        m_pGo = &canvas.Own(std::make_unique<GButton>());
        m_pGo->Create(0, 0, GO_WIDTH, ROW_HEIGHT, m_hwnd, canvas.NextId(), L"Go", 0,
                      CHILD | WS_TABSTOP | GS_CENTER | GS_VCENTER | GBS_DEFAULT);
        m_pViews = &canvas.Own(std::make_unique<GComboBox>());
        m_pViews->Create(0, 0, VIEWS_WIDTH, ROW_HEIGHT, m_hwnd, canvas.NextId(),
                         CHILD | WS_TABSTOP | GCBS_DROPDOWNLIST, 0);
        m_pViews->InsertItem(END, 0, L"Details", 0, nullptr);
        m_pViews->InsertItem(END, 0, L"Tiles", 0, nullptr);
        m_pViews->SetSelected(DETAILS);
        m_pGroup = &canvas.Own(std::make_unique<GCheckBox>());
        m_pGroup->Create(0, 0, GROUP_WIDTH, ROW_HEIGHT, m_hwnd, canvas.NextId(), L"&Group by type", 0,
                         CHILD | WS_TABSTOP | GS_VCENTER | GBS_AUTO);
    }

    void MakePanes(Canvas& canvas)
    {
        constexpr DWORD PANE = CHILD | WS_TABSTOP | WS_BORDER | WS_HSCROLL | WS_VSCROLL | WS_CLIPCHILDREN;
        m_pTree = &canvas.Own(std::make_unique<FolderTree>());
        m_pTree->SetTreeStyle(GTS_IMAGES);
        m_pTree->SetImageList(SmallFileImages());
        m_pTree->Create(0, 0, LEAST_PANE, LEAST_PANE, m_hwnd, canvas.NextId(), 0, PANE);
        m_splitter.Create(canvas);
        m_pList = &canvas.Own(std::make_unique<FileList>(NAME_WIDTH));
        m_pList->Create(0, 0, 10, 10, m_hwnd, canvas.NextId(), GLS_DETAILS | GLS_HEADER, 0, PANE);
    }

    // --- The tree

    void OnTreeNotify(const GLISTNOTIFY& notify)
    {
        if (notify.hdr.code == TVN_ITEMEXPANDINGW && notify.uAction == TVE_EXPAND) {
            m_pTree->FillFolder(notify.pItem);
        } else if (notify.hdr.code == static_cast<UINT>(NM_CLICK) && notify.pItem) {
            Open(m_pTree->PathOf(notify.pItem));
        }
    }

    // The default button is what Enter comes to from the panes as well.
    void OnEnter()
    {
        if (GetFocus() == m_pList->GetHwnd()) {
            OpenItem(m_pList->GetFirstSelectedItemIndex());
        } else if (void* hFolder = m_pTree->GetSelectedItem(); hFolder && GetFocus() == m_pTree->GetHwnd()) {
            Open(m_pTree->PathOf(hFolder));
        } else {
            Open(PathTyped());
        }
    }

    // --- The folder shown

    std::wstring PathTyped() const
    {
        int nLength = m_pPath->GetTextLength() + 1;
        std::wstring path(static_cast<size_t>(nLength), L'\0');
        m_pPath->GetText(path.data(), &nLength);
        path.resize(static_cast<size_t>(nLength));
        while (!path.empty() && path.back() == L'\\') {
            path.pop_back();
        }
        return path;
    }

    // By value: what names the path may go with the folder that was shown.
    void Open(std::wstring path) // NOLINT(performance-unnecessary-value-param)
    {
        const DWORD dwAttributes = GetFileAttributesW((path + L"\\").c_str());
        if (dwAttributes == INVALID_FILE_ATTRIBUTES || !(dwAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
            GTaskDialog::MessageBoxW(GetAncestor(m_hwnd, GA_ROOT), (L"There is no folder " + path).c_str(),
                                     L"Explorer", MB_OK | MB_ICONWARNING);
            m_pPath->SetText(m_path.c_str());
            return;
        }
        m_pList->RemoveAllItems(); // they point into the folder that goes
        m_pList->RemoveAllGroups();
        m_left = ParentOf(m_path) == path ? LastNameOf(m_path) : L"";
        m_path = path;
        ShowPath();
        m_pTree->SelectFolder(path);
        m_pStatus->SetText(L"Reading...");
        m_reader = std::make_unique<FolderReader>(path);
        m_slices.Start(
            m_hwnd, *m_pProgress, [this] { return m_reader->ReadNext(); }, [this] { ShowRead(); });
    }

    void ShowRead()
    {
        m_shown = std::move(m_reader->Result());
        m_reader.reset();
        Show();
    }

    // The paths that were shown before are the combo box's items.
    void ShowPath()
    {
        UINT nFound = 0;
        while (nFound < m_pPath->GetItemCount() && m_path != m_pPath->GetItemText(nFound)) {
            nFound++;
        }
        if (nFound == m_pPath->GetItemCount()) {
            nFound = m_pPath->InsertItem(0, 0, m_path.c_str(), 0, nullptr);
        }
        m_pPath->SetSelected(nFound);
    }

    View ViewShown() const { return static_cast<View>(m_pViews->GetSelected()); }

    // While a folder is read the list stays empty. It keeps what it shows until the first slice, so that few
    // files change their look without a flicker.
    void Show()
    {
        if (!m_reader) {
            m_nAdded = 0;
            m_slices.Start(
                m_hwnd, *m_pProgress, [this] { return AddNext(); }, [this] { EndShow(); });
        }
    }

    UINT AddNext()
    {
        if (m_nAdded == 0) {
            const UINT uStyle = ViewShown() == TILES ? GLS_TILES : GLS_DETAILS | GLS_HEADER;
            m_pList->Begin(m_shown, {uStyle, true, m_pGroup->GetCheck() != BST_UNCHECKED, nullptr});
        }
        if (m_nAdded < m_shown.files.size()) {
            m_pList->Add(m_shown.files[m_nAdded++]);
        }
        return Slices::Share(m_nAdded, m_shown.files.size());
    }

    void EndShow()
    {
        m_pList->End();
        if (GetFocus() == m_pList->GetHwnd()) {
            m_pList->GoTo(m_left);
        }
        ShowStatus();
    }

    // --- The list

    LRESULT OnListNotify(const GLISTNOTIFY& notify)
    {
        switch (notify.hdr.code) {
        case static_cast<UINT>(NM_DBLCLK): OpenItem(static_cast<UINT>(notify.iItem)); return 0;
        case static_cast<UINT>(NM_KEYDOWN):
            OnListKey(notify.vKey, m_pList->GetFirstSelectedItemIndex());
            return 0;
        case static_cast<UINT>(LVN_BEGINLABELEDITW): return IsBusy() || !MayChange();
        case static_cast<UINT>(LVN_ENDLABELEDITW):
            return notify.pszText && Rename(static_cast<UINT>(notify.iItem), notify.pszText);
        default: ShowStatus(); return 0;
        }
    }

    void OnListKey(UINT uKey, UINT item)
    {
        switch (uKey) {
        case VK_BACK: Open(ParentOf(m_path)); break;
        case VK_F5: Open(m_path); break;
        case VK_DELETE: DeleteItem(item); break;
        default: ShowStatus(); break;
        }
    }

    std::wstring PathOf(const File& file) const { return m_path + L"\\" + file.name; }

    void OpenItem(UINT item)
    {
        const File* pFile = m_pList->FileAt(item);
        if (pFile && pFile->fFolder) {
            Open(PathOf(*pFile));
        }
    }

    bool MayChange()
    {
        if (!IsInSampleFolder(m_path)) {
            m_pStatus->SetText(L"Only the sample files may be changed here.");
        }
        return IsInSampleFolder(m_path);
    }

    // Whether the item is to show the name from now on.
    bool Rename(UINT item, const std::wstring& name)
    {
        File* pFile = m_pList->FileAt(item);
        if (!pFile || name.empty() || name == pFile->name) {
            return false;
        }
        const bool fRenamed = MoveFileW(PathOf(*pFile).c_str(), (m_path + L"\\" + name).c_str());
        m_pStatus->SetText(((fRenamed ? L"Renamed to " : L"This name does not go: ") + name).c_str());
        if (fRenamed) {
            pFile->name = name;
        }
        return fRenamed;
    }

    void DeleteItem(UINT item)
    {
        const File* pFile = m_pList->FileAt(item);
        if (!pFile || !MayChange()) {
            return;
        }
        const std::wstring path = PathOf(*pFile);
        const std::wstring question = L"Delete \"" + pFile->name + L"\" for good?";
        const UINT uAnswer = GTaskDialog::MessageBoxW(GetAncestor(m_hwnd, GA_ROOT), question.c_str(),
                                                      L"Explorer", MB_YESNO | MB_ICONWARNING);
        if (uAnswer == IDYES) {
            const BOOL fGone = pFile->fFolder ? RemoveDirectoryW(path.c_str()) : DeleteFileW(path.c_str());
            Open(m_path);
            m_lastWords = fGone ? L"deleted " + LastNameOf(path) : L"could not delete " + LastNameOf(path);
        }
        SetFocus(*m_pList);
    }

    void ShowStatus()
    {
        if (IsBusy()) {
            return;
        }
        std::wstring text = std::to_wstring(m_pList->GetItemCount()) + L" items, " +
                            std::to_wstring(m_pList->GetSelectedCount()) + L" selected";
        if (!m_lastWords.empty()) {
            text += L"; " + m_lastWords;
        }
        m_pStatus->SetText(text.c_str());
        m_lastWords.clear();
    }

    Canvas* m_pCanvas = nullptr;
    HWND m_hwnd = nullptr;
    SIZE m_size{};
    GButton* m_pUp = nullptr;
    GComboBox* m_pPath = nullptr;
    GButton* m_pGo = nullptr;
    GComboBox* m_pViews = nullptr;
    GCheckBox* m_pGroup = nullptr;
    FolderTree* m_pTree = nullptr;
    Splitter m_splitter;
    FileList* m_pList = nullptr;
    GLabel* m_pStatus = nullptr;
    GProgressBar* m_pProgress = nullptr;
    int m_cxTree = 210;
    std::wstring m_path;
    std::wstring m_left; // the folder in it that was shown before
    Slices m_slices;
    std::unique_ptr<FolderReader> m_reader; // while a folder is read
    Folder m_shown;
    size_t m_nAdded = 0; // of its files, to the list
    std::wstring m_lastWords;
};

} // namespace

std::unique_ptr<Page> MakeExplorerPage()
{
    return std::make_unique<ExplorerPage>();
}

} // namespace gallery
