#include <bench/Floor.h>
#include <bench/Trees.h>

#include <algorithm>
#include <string>
#include <vector>

namespace bench {
namespace {

constexpr int HITS = 10'000;
constexpr int PAINTS = 10;
constexpr int TOGGLES = 20;
constexpr int FEW_ROUNDS = 3;

class OwnTree : public OwnItems<GTree>
{
public:
    using OwnItems::OwnItems;

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
        tree.HitAt(i % TREE_CX, i % TREE_CY);
    }
}

void MeasureView(Bench& bench, OwnTree& own, PlatformTree& platform)
{
    bench.Measure(
        "  full paint", PAINTS, [&] { Repeat(PAINTS, [&] { Paint(own); }); },
        [&] { Repeat(PAINTS, [&] { Paint(platform); }); });
    MeasureFloor(own, PAINTS);
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
    const Host host(TREE_CX, TREE_CY);
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

long long g_nQuestions = 0;

LRESULT CALLBACK AnswerProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    static std::wstring s_name;
    auto* pNotify = reinterpret_cast<GLISTNOTIFY*>(lParam);
    if (uMsg == WM_NOTIFY && pNotify->hdr.code == TVN_GETDISPINFOW) {
        ++g_nQuestions;
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
    long long RowsInView() const
    {
        RECT rc{};
        GetClientRect(m_hWnd, &rc);
        return (rc.bottom + GetItemHeight() - 1) / GetItemHeight();
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

// What the host is asked by the paint that first shows a place, and by the next one; the second column is the
// rows in view.
void CountQuestions(Bench& bench, CountedTree& tree)
{
    tree.CountAndOpen();
    const auto count = [&](const char* pszName, const Work& work) {
        g_nQuestions = 0;
        work();
        bench.Print(pszName, g_nQuestions, tree.RowsInView());
    };
    count("  questions of the first paint of the end / rows", [&] { tree.GoToEnd(); });
    count("  questions of a second paint / rows", [&] { Paint(tree); });
}

// Each with its paint. The second column is the same tree with 1,000 children.
void MeasureFolder(UINT nChildren)
{
    const Host host(2 * TREE_CX, TREE_CY);
    SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AnswerProc));
    const auto bytes = [&host](UINT n) {
        CountedTree fresh(host, n);
        return fresh.BytesOfShowing();
    };
    const long long nMany = bytes(nChildren);
    const long long nFew = bytes(1'000);
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
    bench.Print("  bytes of what has shown", nMany, nFew);
    CountQuestions(bench, many);
}

} // namespace

void MeasureTree(Bench&)
{
    MeasureTrees(20'000, FEW_ROUNDS);
    MeasureTrees(100'000, 1);
}

void MeasureTreeFolder(Bench&)
{
    MeasureFolder(1'000'000);
}

} // namespace bench
