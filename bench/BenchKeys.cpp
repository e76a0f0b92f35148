// Keys in long lists and trees, with a parent that listens: it takes down what each step leads to.
#include <bench/Bench.h>

#include <string>
#include <utility>
#include <vector>

namespace bench {
namespace {

constexpr int CX = 400;
constexpr int CY = 480;
constexpr UINT ROWS = 100'000;
constexpr int KEYS = 10'000;
constexpr UINT BRANCH = 101; // rows of a top item and what stands below it
constexpr int ROUNDS = 1;    // the platform's scrolling takes minutes
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr LPCWSTR CLASS_NAME = L"GessoBenchListener";

std::wstring NameOf(UINT row)
{
    return L"Row number " + std::to_wstring(row);
}

// A window that reads the text of what its child says was selected.
class Listener
{
public:
    // The control's text of what a notification tells; none where it tells of nothing that is selected now.
    using ReadText = std::function<std::wstring(const NMHDR& header)>;

    Listener()
    {
        WNDCLASSW wc{};
        wc.lpfnWndProc = &WindowProc;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.lpszClassName = CLASS_NAME;
        RegisterClassW(&wc); // harmless where it is registered already
        m_hwnd = CreateWindowExW(0, CLASS_NAME, L"", WS_POPUP | WS_VISIBLE, 0, 0, CX, CY, nullptr, nullptr,
                                 wc.hInstance, nullptr);
        SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~Listener() { DestroyWindow(m_hwnd); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    operator HWND() const { return m_hwnd; }
    void Read(ReadText read) { m_read = std::move(read); }
    const std::wstring& Last() const { return m_last; }

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        auto* pSelf = reinterpret_cast<Listener*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
        if (uMsg == WM_NOTIFY && pSelf && pSelf->m_read) {
            std::wstring text = pSelf->m_read(*reinterpret_cast<const NMHDR*>(lParam));
            if (!text.empty()) {
                pSelf->m_last = std::move(text);
            }
            return 0;
        }
        return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }

    HWND m_hwnd = nullptr;
    ReadText m_read;
    std::wstring m_last;
};

// The keys, from the top; the row that they have led to is painted and has been told. In microseconds, or -1
// where another one was told.
double TypeDown(HWND hwnd, const Listener& listener, const Work& goToTop)
{
    goToTop();
    const double time = Timed([&] {
        for (int i = 0; i < KEYS; i++) {
            SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 0);
        }
        UpdateWindow(hwnd);
    })();
    return listener.Last() == NameOf(KEYS) ? time : -1;
}

void MeasureBoth(const std::string& name, const Listener& own, HWND hwndOwn, const Work& ownToTop,
                 const Listener& platform, HWND hwndPlatform, const Work& platformToTop)
{
    Bench bench(ROUNDS);
    bench.Family(name + " of 100,000 rows, 10,000 Down keys, the parent listening, 1 round");
    bench.MeasureCourse({{"  a key", KEYS, [&] { return TypeDown(hwndOwn, own, ownToTop); },
                          [&] { return TypeDown(hwndPlatform, platform, platformToTop); }}});
}

void MeasureListKeys()
{
    Listener ownHost;
    GList list;
    list.Create(0, 0, CX, CY, ownHost, 1, GLS_DETAILS, 0, CHILD | WS_VSCROLL);
    list.InsertColumn(0, 0, DT_SINGLELINE, CX, 10, L"", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    list.BulkInsertOn();
    for (UINT row = 0; row < ROWS; row++) {
        list.InsertItem(UINT(-1), 0, nullptr, 0, NameOf(row).c_str(), 0);
    }
    list.BulkInsertOff();
    ownHost.Read([&](const NMHDR& header) -> std::wstring {
        const bool fChanged = header.code == static_cast<UINT>(LVN_ITEMCHANGED);
        return fChanged && list.GetFirstSelectedItemIndex() < ROWS
                   ? list.GetItemText(list.GetFirstSelectedItemIndex(), 0)
                   : L"";
    });

    Listener platformHost;
    const HWND hwnd = CreateWindowExW(0, L"SysListView32", L"", CHILD | LVS_REPORT | LVS_NOCOLUMNHEADER, 0, 0,
                                      CX, CY, platformHost, nullptr, GetModuleHandleW(nullptr), nullptr);
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    column.cx = CX;
    SendMessageW(hwnd, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    SendMessageW(hwnd, LVM_SETITEMCOUNT, ROWS, 0);
    SendMessageW(hwnd, WM_SETREDRAW, FALSE, 0);
    for (UINT row = 0; row < ROWS; row++) {
        std::wstring text = NameOf(row);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = static_cast<int>(row);
        item.pszText = text.data();
        SendMessageW(hwnd, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    SendMessageW(hwnd, WM_SETREDRAW, TRUE, 0);
    platformHost.Read([hwnd](const NMHDR& header) -> std::wstring {
        const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
        if (header.code != static_cast<UINT>(LVN_ITEMCHANGED) || !(change.uNewState & LVIS_SELECTED)) {
            return L"";
        }
        wchar_t szText[64] = L"";
        LVITEMW item{};
        item.pszText = szText;
        item.cchTextMax = 64;
        SendMessageW(hwnd, LVM_GETITEMTEXTW, static_cast<WPARAM>(change.iItem),
                     reinterpret_cast<LPARAM>(&item));
        return szText;
    });
    MeasureBoth(
        "List", ownHost, list,
        [&] {
            list.SetFirstSelectedItemIndex(0);
            list.EnsureVisible(0);
        },
        platformHost, hwnd,
        [hwnd] {
            ListView_SetItemState(hwnd, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
            ListView_SetItemState(hwnd, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
            ListView_EnsureVisible(hwnd, 0, FALSE);
        });
    DestroyWindow(list);
}

void MeasureTreeKeys()
{
    Listener ownHost;
    GTree tree;
    tree.Create(0, 0, CX, CY, ownHost, 1, 0, CHILD | WS_VSCROLL);
    std::vector<void*> tops;
    for (UINT row = 0; row < ROWS; row++) {
        const bool fTop = row % BRANCH == 0;
        void* hItem =
            tree.InsertItem(fTop ? nullptr : tops.back(), nullptr, NameOf(row).c_str(), 0, 0, nullptr);
        if (fTop) {
            tops.push_back(hItem);
        }
    }
    for (void* hTop : tops) {
        tree.Expand(hTop);
    }
    SendMessageW(tree, WM_SETREDRAW, TRUE, 0);
    ownHost.Read([&](const NMHDR& header) -> std::wstring {
        void* hItem = reinterpret_cast<const GLISTNOTIFY&>(header).pItem;
        return header.code == TVN_SELCHANGEDW && hItem ? tree.GetItemName(hItem) : L"";
    });

    Listener platformHost;
    const HWND hwnd = CreateWindowExW(0, L"SysTreeView32", L"", CHILD, 0, 0, CX, CY, platformHost, nullptr,
                                      GetModuleHandleW(nullptr), nullptr);
    SendMessageW(hwnd, WM_SETREDRAW, FALSE, 0);
    std::vector<HTREEITEM> platformTops;
    for (UINT row = 0; row < ROWS; row++) {
        const bool fTop = row % BRANCH == 0;
        std::wstring text = NameOf(row);
        TVINSERTSTRUCTW record{};
        record.hParent = fTop ? TVI_ROOT : platformTops.back();
        record.hInsertAfter = TVI_LAST;
        record.item.mask = TVIF_TEXT;
        record.item.pszText = text.data();
        const auto hItem = reinterpret_cast<HTREEITEM>(
            SendMessageW(hwnd, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&record)));
        if (fTop) {
            platformTops.push_back(hItem);
        }
    }
    for (const HTREEITEM hTop : platformTops) {
        SendMessageW(hwnd, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(hTop));
    }
    SendMessageW(hwnd, WM_SETREDRAW, TRUE, 0);
    platformHost.Read([hwnd](const NMHDR& header) -> std::wstring {
        if (header.code != TVN_SELCHANGEDW) {
            return L"";
        }
        wchar_t szText[64] = L"";
        TVITEMW item{};
        item.mask = TVIF_TEXT;
        item.hItem = reinterpret_cast<const NMTREEVIEWW&>(header).itemNew.hItem;
        item.pszText = szText;
        item.cchTextMax = 64;
        SendMessageW(hwnd, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return szText;
    });
    MeasureBoth(
        "Tree", ownHost, tree,
        [&] {
            tree.SetSelectedItem(tops[0]);
            tree.EnsureVisible(tops[0]);
        },
        platformHost, hwnd,
        [&] { SendMessageW(hwnd, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(platformTops[0])); });
    DestroyWindow(tree);
}

} // namespace

void MeasureKeys(Bench&)
{
    gesso::SetBehavior(gesso::Behavior::Modern);
    MeasureListKeys();
    MeasureTreeKeys();
    gesso::SetBehavior(gesso::Behavior::Classic);
}

} // namespace bench
