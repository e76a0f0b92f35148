// The navigation pane; the platform has nothing to set beside it.
#include <bench/Floor.h>
#include <bench/Pairs.h>

#include <string>

namespace bench {
namespace {

constexpr SIZE PANE = {220, 480};
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_VSCROLL;
constexpr UINT PLACES = 3; // below each header
constexpr UINT HEADERS = 3;
constexpr int PAINTS = 50;

void Fill(GNavigationBar& pane)
{
    void* hLast = nullptr;
    const auto add = [&](LPCWSTR pszName, UINT uState) {
        hLast = pane.InsertItem(pane.GetRootItem(), hLast, pszName, 0, uState, nullptr);
    };
    for (UINT header = 0; header < HEADERS; header++) {
        add((L"Header " + std::to_wstring(header)).c_str(), NBIK_HEADER);
        for (UINT place = 0; place < PLACES; place++) {
            add((L"Place number " + std::to_wstring(place)).c_str(), NBIK_ITEM | NBIS_HASCHILDREN);
        }
        add(L"", NBIK_SEPARATOR);
    }
    pane.SetSelectedItem(pane.GetItemNextChild(pane.GetRootItem(), nullptr));
}

} // namespace

void MeasurePane(Bench& bench)
{
    bench.Family("Navigation pane");
    const HWND hwndParent = MakeParent(WS_VISIBLE);
    GNavigationBar pane;
    pane.Create(0, 0, PANE.cx, PANE.cy, hwndParent, 1, 0, CHILD);
    pane.SetFont(g_hDefaultFont);
    Fill(pane);
    HandleMessages();
    MeasureFloor(pane, PAINTS);
    DestroyWindow(hwndParent);
}

} // namespace bench
