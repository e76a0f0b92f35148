// Items that come and go in a tree and in a navigation bar, one by one and all at once.

#include <bench/Trees.h>

#include <string>

namespace bench {
namespace {

constexpr UINT ITEMS = 100'000;
constexpr int INSERTIONS = 1000;
constexpr int REMOVALS = 200;
constexpr int ROUNDS = 5;

// The time of one item, of the last step of some: what comes before it is not counted.
template <class PREPARE> TimedWork PerItem(int nItems, PREPARE prepare, Work work)
{
    return [=, timed = Timed(std::move(work))] {
        prepare();
        return timed() / nItems;
    };
}

template <class TREE> TimedWork FillTime(TREE& tree, const Names& names)
{
    return PerItem(
        ITEMS, [&tree] { tree.Empty(); }, [&tree, &names] { tree.Fill(names); });
}

// With its folders closed, and with all of them open.
template <class TREE> TimedWork EmptyTime(TREE& tree, const Names& names, bool fOpen)
{
    return PerItem(
        ITEMS,
        [&tree, &names, fOpen] {
            tree.Fill(names);
            if (fOpen) {
                tree.ExpandAll();
            }
        },
        [&tree] { tree.Empty(); });
}

template <class TREE> TimedWork FolderTime(TREE& tree, const Names& names)
{
    return PerItem(
        ITEMS, [&tree, &names] { tree.FillFolder(names); }, [&tree] { tree.RemoveItem(tree.Top(0)); });
}

TimedWork InsertTime(const Work& insertOne)
{
    return PerItem(
        INSERTIONS, [] {},
        [insertOne] {
            for (int i = 0; i < INSERTIONS; i++) {
                insertOne();
            }
        });
}

// Beside what an item costs while a tree is filled, with its folders closed. Nothing is painted; but of a
// change in view the platform is told, which takes a request to another process under Wine.
template <class TREE> void MeasureInsertions(Bench& bench, TREE& tree, TREE& filled, const Names& names)
{
    const auto measure = [&](const char* pszPlace, const Work& insertOne) {
        bench.MeasureTimed(std::string("  insert one in view, ") + pszPlace + " / fill",
                           InsertTime(insertOne), FillTime(filled, names));
    };
    const LPCWSTR pszName = L"Document number 1";
    tree.Fill(names);
    tree.ExpandAll();
    const size_t nTops = tree.TopCount();
    const Work insertAtEnd = [&] { tree.InsertBehind(tree.GetRootItem(), tree.Top(nTops - 1), pszName); };
    measure("at the end", insertAtEnd);
    measure("in the middle", [&] { tree.InsertFirst(tree.Top(nTops / 2), pszName); });
    measure("at the top", [&] { tree.InsertFirst(tree.GetRootItem(), pszName); });
    bench.MeasureTimed(
        "  insert one in view, at the end / bare RedrawWindow", InsertTime(insertAtEnd),
        InsertTime([&] { RedrawWindow(tree.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME); }));
    SendMessageW(tree.Window(), WM_SETREDRAW, FALSE, 0);
    measure("held by WM_SETREDRAW", insertAtEnd);
    SendMessageW(tree.Window(), WM_SETREDRAW, TRUE, 0);
    tree.FillFolder(names);
    tree.ExpandAll();
    measure("before 100,000 siblings", [&] { tree.InsertFirst(tree.Top(0), pszName); });
    measure("behind 100,000 rows", [&] { tree.InsertBehind(tree.GetRootItem(), tree.Top(0), pszName); });
}

// One by one, in a folder that is open.
template <class TREE> void MeasureRemovals(Bench& bench, TREE& tree, const Names& names)
{
    const auto measure = [&](const char* pszName, const auto& indexOf) {
        tree.FillFolder(names);
        tree.ExpandAll();
        UINT n = 0;
        bench.MeasureAlone(pszName, REMOVALS, [&] {
            for (int i = 0; i < REMOVALS; i++) {
                tree.RemoveItem(tree.Child(indexOf(n++)));
            }
        });
    };
    measure("  remove one in view, the first of 100,000", [](UINT n) { return n; });
    measure("  remove one in view, the last of 100,000", [](UINT n) { return ITEMS - 1 - n; });
}

template <class TREE> void MeasureOwn(Bench& bench, HWND hwndHost, const Names& names)
{
    TREE tree(hwndHost);
    TREE filled(hwndHost);
    MeasureInsertions(bench, tree, filled, names);
    bench.MeasureTimed("  remove all, closed, an item / fill", EmptyTime(tree, names, false),
                       FillTime(filled, names));
    bench.MeasureTimed("  remove all, open, an item / fill", EmptyTime(tree, names, true),
                       FillTime(filled, names));
    bench.MeasureTimed("  remove a folder of 100,000, an item / fill", FolderTime(tree, names),
                       FillTime(filled, names));
    MeasureRemovals(bench, tree, names);
}

template <class TREE> long long BytesPerItem(TREE& tree, const Names& names)
{
    const long long nBefore = BytesHeld();
    tree.Fill(names);
    return (BytesHeld() - nBefore) / ITEMS;
}

// All of them stay, so that none gets memory that another one has given back.
void MeasureBytes(Bench& bench, HWND hwndHost, const Names& names)
{
    PlatformTree platform(hwndHost);
    OwnItems<GTree> tree(hwndHost);
    OwnItems<GNavigationBar> bar(hwndHost);
    const long long nPlatform = BytesPerItem(platform, names);
    bench.Print("  bytes per item", BytesPerItem(tree, names), nPlatform);
    bench.Print("  bytes per item of a navigation bar", BytesPerItem(bar, names), nPlatform);
}

void MeasurePlatform(Bench& bench, HWND hwndHost, const Names& names)
{
    OwnItems<GTree> own(hwndHost);
    PlatformTree platform(hwndHost);
    bench.MeasureTimed("  remove all, an item", EmptyTime(own, names, false),
                       EmptyTime(platform, names, false));
    bench.MeasureTimed("  remove a folder of 100,000, an item", FolderTime(own, names),
                       FolderTime(platform, names));
    own.Fill(names);
    own.ExpandAll();
    platform.Fill(names);
    platform.ExpandAll();
    void* const hLast = own.Top(own.TopCount() - 1);
    bench.MeasureTimed("  insert one in view, at the end",
                       InsertTime([&] { own.InsertBehind(own.GetRootItem(), hLast, L"Document number 1"); }),
                       InsertTime([&] { platform.InsertLast(TVI_ROOT, L"Document number 1"); }));
}

} // namespace

void MeasureTreeItems(Bench&)
{
    const Host host(TREE_CX, TREE_CY);
    const Names names(ITEMS);
    Bench bench(ROUNDS);
    bench.Family("Tree of 100,000 items: what comes and goes, beside the platform's");
    MeasureBytes(bench, host, names);
    MeasurePlatform(bench, host, names);
    bench.Family("Tree of 100,000 items: what comes and goes, beside its own fill");
    MeasureOwn<OwnItems<GTree>>(bench, host, names);
    bench.Family("Navigation bar of 100,000 items: what comes and goes, beside its own fill");
    MeasureOwn<OwnItems<GNavigationBar>>(bench, host, names);
}

} // namespace bench
