#include <bench/Bench.h>

#include <algorithm>
#include <string>
#include <vector>

namespace bench {
namespace {

constexpr int CX = 400;
constexpr int CY = 480;
constexpr UINT BRANCH = 100; // children of each top item
constexpr int HITS = 10'000;
constexpr int PAINTS = 10;
constexpr int TOGGLES = 20;
constexpr int FEW_ROUNDS = 3;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;

// The same names for both trees: nItems of them, of which every 101st is a top item's.
class Names
{
public:
    explicit Names(UINT nItems)
    {
        for (UINT i = 0; i < nItems; i++) {
            m_names.push_back((IsTop(i) ? L"Folder " : L"Document number ") +
                              std::to_wstring(i * 7919 % 100'003));
        }
    }

    static bool IsTop(UINT i) { return i % (BRANCH + 1) == 0; }
    UINT Count() const { return static_cast<UINT>(m_names.size()); }
    LPCWSTR At(UINT i) const { return m_names[i].c_str(); }

private:
    std::vector<std::wstring> m_names;
};

class OwnTree : public GTree
{
public:
    explicit OwnTree(HWND hwndHost)
    {
        Create(0, 0, CX, CY, hwndHost, 1, 0, CHILD | WS_HSCROLL | WS_VSCROLL);
        SetFont(g_hDefaultFont);
    }
    ~OwnTree() override { DestroyWindow(m_hWnd); }

    void Fill(const Names& names)
    {
        RemoveAllItems();
        m_tops.clear();
        void* hTop = nullptr;
        for (UINT i = 0; i < names.Count(); i++) {
            const bool fTop = Names::IsTop(i);
            void* hItem = InsertItem(fTop ? nullptr : hTop, nullptr, names.At(i), 0, 0, nullptr);
            if (fTop) {
                m_tops.push_back(hTop = hItem);
            }
        }
    }
    void ExpandAll()
    {
        for (void* hTop : m_tops) {
            Expand(hTop);
        }
    }
    void CollapseAll()
    {
        for (void* hTop : m_tops) {
            Collapse(hTop);
        }
    }
    void CollapseFirst() { Collapse(m_tops[0]); }
    void ToggleFirst()
    {
        Expand(m_tops[0]);
        Collapse(m_tops[0]);
    }
    int HitAt(int x, int y) const
    {
        HitTestInfo info{};
        info.pt = {static_cast<SHORT>(x), static_cast<SHORT>(y)};
        HitTest(&info);
        return static_cast<int>(info.nItem);
    }

private:
    std::vector<void*> m_tops;
};

class PlatformTree
{
public:
    explicit PlatformTree(HWND hwndHost)
        : m_hwnd(CreateWindowExW(0, L"SysTreeView32", L"",
                                 CHILD | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT, 0, 0, CX, CY,
                                 hwndHost, nullptr, GetModuleHandleW(nullptr), nullptr))
    {
        SendMessageW(m_hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
        SendMessageW(m_hwnd, TVM_SETITEMHEIGHT, 20, 0);
    }
    ~PlatformTree() { DestroyWindow(m_hwnd); }
    PlatformTree(const PlatformTree&) = delete;
    PlatformTree& operator=(const PlatformTree&) = delete;
    operator HWND() const { return m_hwnd; }

    void Fill(const Names& names)
    {
        SendMessageW(m_hwnd, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
        m_tops.clear();
        for (UINT i = 0; i < names.Count(); i++) {
            const bool fTop = Names::IsTop(i);
            TVINSERTSTRUCTW record{};
            record.hParent = fTop ? TVI_ROOT : m_tops.back();
            record.hInsertAfter = TVI_LAST;
            record.item.mask = TVIF_TEXT;
            record.item.pszText = const_cast<LPWSTR>(names.At(i));
            const auto hItem = reinterpret_cast<HTREEITEM>(
                SendMessageW(m_hwnd, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&record)));
            if (fTop) {
                m_tops.push_back(hItem);
            }
        }
    }
    void ExpandAll() { ForTops(TVE_EXPAND); }
    void CollapseAll() { ForTops(TVE_COLLAPSE); }
    void CollapseFirst() { Run(m_tops[0], TVE_COLLAPSE); }
    void ToggleFirst()
    {
        Run(m_tops[0], TVE_EXPAND);
        Run(m_tops[0], TVE_COLLAPSE);
    }
    int HitAt(int x, int y) const
    {
        TVHITTESTINFO info{};
        info.pt = {x, y};
        return SendMessageW(m_hwnd, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info)) != 0;
    }

private:
    void ForTops(WPARAM wAction) const
    {
        for (const HTREEITEM hTop : m_tops) {
            Run(hTop, wAction);
        }
    }
    void Run(HTREEITEM hItem, WPARAM wAction) const
    {
        SendMessageW(m_hwnd, TVM_EXPAND, wAction, reinterpret_cast<LPARAM>(hItem));
    }

    HWND m_hwnd;
    std::vector<HTREEITEM> m_tops;
};

void Repeat(int n, const Work& work)
{
    for (int i = 0; i < n; i++) {
        work();
    }
}

void Paint(HWND hwnd)
{
    InvalidateRect(hwnd, nullptr, TRUE);
    UpdateWindow(hwnd);
}

void PageDownOrUp(HWND hwnd)
{
    for (const WPARAM wCode : std::initializer_list<WPARAM>{SB_PAGEDOWN, SB_PAGEUP}) {
        SendMessageW(hwnd, WM_VSCROLL, wCode, 0);
        UpdateWindow(hwnd);
    }
}

template <class TREE> void HitAll(const TREE& tree)
{
    for (int i = 0; i < HITS; i++) {
        tree.HitAt(i % CX, i % CY);
    }
}

void MeasureView(Bench& bench, OwnTree& own, PlatformTree& platform)
{
    bench.Measure(
        "  full paint", PAINTS, [&] { Repeat(PAINTS, [&] { Paint(own); }); },
        [&] { Repeat(PAINTS, [&] { Paint(platform); }); });
    bench.Measure(
        "  page scroll with paint", 2 * PAINTS, [&] { Repeat(PAINTS, [&] { PageDownOrUp(own); }); },
        [&] { Repeat(PAINTS, [&] { PageDownOrUp(platform); }); });
    bench.Measure(
        "  hit test", HITS, [&] { HitAll(own); }, [&] { HitAll(platform); });
}

// One branch of 100 items, opened and closed again, with all others open or closed.
void MeasureOneBranch(Bench& bench, const char* pszName, OwnTree& own, PlatformTree& platform)
{
    bench.Measure(
        pszName, TOGGLES, [&] { Repeat(TOGGLES, [&] { own.ToggleFirst(); }); },
        [&] { Repeat(TOGGLES, [&] { platform.ToggleFirst(); }); });
}

// What takes all items: the platform needs seconds for it. At the end all is open.
void MeasureWhole(Bench& bench, OwnTree& own, PlatformTree& platform, const Names& names)
{
    const auto nItems = static_cast<int>(names.Count());
    const auto nTops = static_cast<int>(names.Count() / (BRANCH + 1) + 1);
    long long nOwnBytes = 0; // the most that any round took
    long long nPlatformBytes = 0;
    const auto fill = [&](auto& tree, long long& nBytes) {
        return Timed([&] {
            const long long before = BytesHeld();
            tree.Fill(names);
            nBytes = std::max(nBytes, BytesHeld() - before);
        });
    };
    const auto expand = [](auto& tree) { return Timed([&] { tree.ExpandAll(); }); };
    const auto expandAgain = [](auto& tree) {
        return Timed([&] {
            tree.CollapseAll();
            tree.ExpandAll();
        });
    };
    bench.MeasureCourse(
        {{"  insert, an item", nItems, fill(own, nOwnBytes), fill(platform, nPlatformBytes)},
         {"  expand all, a branch, texts never measured before", nTops, expand(own), expand(platform)},
         {"  collapse and expand all, a branch", nTops, expandAgain(own), expandAgain(platform)}});
    bench.Print("  bytes per item", nOwnBytes / nItems, nPlatformBytes / nItems);
}

void MeasureTrees(UINT nItems, int nRounds)
{
    const Host host(CX, CY);
    OwnTree own(host);
    PlatformTree platform(host);
    Bench whole(nRounds);
    whole.Family("Tree of " + std::to_string(nItems) + " items, all of them in " + std::to_string(nRounds) +
                 (nRounds > 1 ? " rounds" : " round"));
    MeasureWhole(whole, own, platform, Names(nItems));
    Bench bench(FEW_ROUNDS);
    own.CollapseFirst();
    platform.CollapseFirst();
    MeasureOneBranch(bench, "  open and close one branch, the others open", own, platform);
    MeasureView(bench, own, platform);
    own.CollapseAll();
    platform.CollapseAll();
    MeasureOneBranch(bench, "  open and close one branch, the others closed", own, platform);
}

// --- A folder of which only the number of children is known

LRESULT CALLBACK AnswerProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    static std::wstring s_name;
    auto* pNotify = reinterpret_cast<GLISTNOTIFY*>(lParam);
    if (uMsg == WM_NOTIFY && pNotify->hdr.code == TVN_GETDISPINFOW) {
        s_name = L"Document number " + std::to_wstring(pNotify->iItem);
        pNotify->pDispInfo->text = s_name.c_str();
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

class CountedTree : public OwnTree
{
public:
    CountedTree(HWND hwndHost, UINT nChildren)
        : OwnTree(hwndHost), m_hFolder(InsertItem(nullptr, nullptr, L"Folder", 0, 0, nullptr)),
          m_nChildren(nChildren)
    {}

    // Of what was shown before nothing is left.
    void CountAndOpen()
    {
        GTree::Collapse(m_hFolder);
        SetChildCount(m_hFolder, m_nChildren);
        OpenAgain();
    }
    void OpenAgain()
    {
        GTree::Expand(m_hFolder);
        UpdateWindow(m_hWnd);
    }
    void Close()
    {
        GTree::Collapse(m_hFolder);
        UpdateWindow(m_hWnd);
    }
    void GoToEnd()
    {
        SendMessageW(m_hWnd, WM_KEYDOWN, VK_END, 1);
        UpdateWindow(m_hWnd);
    }
    long long BytesOfShowing()
    {
        const long long before = BytesHeld();
        CountAndOpen();
        GoToEnd();
        return BytesHeld() - before;
    }

private:
    void* m_hFolder;
    UINT m_nChildren;
};

// Each with its paint. The second column is the same tree with 1,000 children.
void MeasureFolder(UINT nChildren)
{
    const Host host(2 * CX, CY);
    SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AnswerProc));
    CountedTree many(host, nChildren);
    CountedTree few(host, 1'000);
    Bench bench(4 * FEW_ROUNDS);
    bench.Family("Tree, a folder of " + std::to_string(nChildren) +
                 " children that are only counted, beside one of 1000 of them");
    const auto step = [&](const char* pszName, void (CountedTree::*act)()) {
        return Step{pszName, 1, Timed([&many, act] { (many.*act)(); }), Timed([&few, act] { (few.*act)(); })};
    };
    bench.MeasureCourse({step("  count and open", &CountedTree::CountAndOpen),
                         step("  End", &CountedTree::GoToEnd), step("  collapse", &CountedTree::Close),
                         step("  open again", &CountedTree::OpenAgain)});
    bench.Print("  bytes of what has shown", many.BytesOfShowing(), few.BytesOfShowing());
}

} // namespace

void MeasureTree(Bench&)
{
    INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_TREEVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    MeasureTrees(20'000, FEW_ROUNDS);
    MeasureTrees(100'000, 1);
    MeasureFolder(1'000'000);
}

} // namespace bench
