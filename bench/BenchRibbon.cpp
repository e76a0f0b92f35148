#include <bench/Floor.h>

#include <gesso/ribbon/GRibbonPage.h>

#include <string>

namespace bench {
namespace {

constexpr int CX = 900;
constexpr int CY = 120;
constexpr int PAINTS = 100;
constexpr int HIT_TESTS = 10000;
constexpr int TABS = 6;
constexpr int GROUPS = 5;
constexpr int ITEMS = 40;
constexpr DWORD FIRST_PAGE = 1;

void Insert(GRibbonPage& page, DWORD dwGroup, UINT nId, WORD wSize, LPCWSTR pszText)
{
    const UINT uSize = static_cast<UINT>(wSize) << 16;
    GRibbonPage::ItemInfo info{};
    info.uType = RIT_BUTTON;
    info.nId = nId;
    info.nOptions = 1;
    info.puOptions = &uSize;
    info.nImage = -1;
    info.pszText = pszText;
    page.InsertItem(dwGroup, 0, &info);
}

void Fill(GRibbon& ribbon)
{
    for (DWORD dwPage = FIRST_PAGE; dwPage <= TABS; dwPage++) {
        ribbon.AddPage(nullptr, dwPage, (L"Page " + std::to_wstring(dwPage)).c_str());
    }
    GRibbonPage& page = *ribbon.GetPage(FIRST_PAGE);
    for (UINT i = 0; i < ITEMS; i++) {
        const DWORD dwGroup = i % GROUPS + 1;
        if (i < GROUPS) {
            page.InsertGroup(dwGroup - 1, dwGroup, L"Group", 0);
        }
        Insert(page, dwGroup, i, i % 8 < 5 ? RIS_LARGE : RIS_MEDIUM, L"Paste");
    }
}

void Repaint(HWND hwnd)
{
    for (int i = 0; i < PAINTS; i++) {
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
}

// A bitmap of the ribbon's size that copies itself to the window.
class Copier
{
public:
    explicit Copier(HWND hwnd)
        : m_hwnd(hwnd), m_hdcWindow(GetDC(hwnd)), m_hdc(CreateCompatibleDC(m_hdcWindow))
    {
        m_hFormer = SelectObject(m_hdc, CreateCompatibleBitmap(m_hdcWindow, CX, CY));
    }
    ~Copier()
    {
        DeleteObject(SelectObject(m_hdc, m_hFormer));
        DeleteDC(m_hdc);
        ReleaseDC(m_hwnd, m_hdcWindow);
    }
    Copier(const Copier&) = delete;
    Copier& operator=(const Copier&) = delete;

    void Copy() const { BitBlt(m_hdcWindow, 0, 0, CX, CY, m_hdc, 0, 0, SRCCOPY); }

private:
    HWND m_hwnd;
    HDC m_hdcWindow;
    HDC m_hdc;
    HGDIOBJ m_hFormer;
};

void MeasurePainting(Bench& bench, GRibbon& ribbon)
{
    const HWND hwnd = ribbon;
    const Copier copier(hwnd);
    const auto repeat = [](auto work) {
        for (int i = 0; i < PAINTS; i++) {
            work();
        }
    };
    bench.Measure(
        "paint 6 tabs, 40 items; beside one bitmap copy", PAINTS, [&] { Repaint(hwnd); },
        [&] { repeat([&] { copier.Copy(); }); });
    MeasureFloor(hwnd, PAINTS);
}

void MeasureHitTests(Bench& bench, GRibbon& ribbon)
{
    const GRibbonPage& page = *ribbon.GetPage(FIRST_PAGE);
    bench.MeasureAlone("hit test among 40 items", HIT_TESTS, [&] {
        GRibbonPage::HitTestInfo info{};
        for (int i = 0; i < HIT_TESTS; i++) {
            info.pt = {static_cast<SHORT>(i % CX), 60};
            page.HitTest(&info);
        }
    });
}

void MeasureInserting(Bench& bench, GRibbon& ribbon, UINT nItems)
{
    GRibbonPage& page = *ribbon.GetPage(FIRST_PAGE);
    bench.MeasureAlone("insert one of " + std::to_string(nItems) + " items in one group",
                       static_cast<int>(nItems), [&] {
                           page.InsertGroup(0, 100, L"Group", 0);
                           for (UINT nId = 1; nId <= nItems; nId++) {
                               Insert(page, 100, nId, RIS_SMALL, nullptr);
                           }
                           page.RemoveGroup(100);
                       });
}

} // namespace

void MeasureRibbon(Bench& bench)
{
    bench.Family("Ribbon");
    const HWND hwndParent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, CX, CY, nullptr,
                                            nullptr, nullptr, nullptr);
    GRibbon ribbon;
    ribbon.Create(0, 0, CX, CY, hwndParent, nullptr);
    Fill(ribbon);
    HandleMessages();
    MeasurePainting(bench, ribbon);
    MeasureHitTests(bench, ribbon);
    for (const UINT nItems : {100u, 1000u, 4000u}) {
        MeasureInserting(bench, ribbon, nItems);
    }
    ribbon.Destroy();
    DestroyWindow(hwndParent);
}

} // namespace bench
