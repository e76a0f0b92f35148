#include <bench/Bench.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>

namespace bench {
namespace {

constexpr int CX = 640;
constexpr int CY = 480;
constexpr UINT COLUMNS = 4;
constexpr UINT END = static_cast<UINT>(-1);
constexpr int COLUMN_WIDTH = 140;
constexpr int HITS = 10'000;
constexpr int PAINTS = 10;
constexpr int APPENDS = 200;
constexpr int FEW_ROUNDS = 3;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;

// The same texts for both lists: words and numbers, as a directory has them.
class Texts
{
public:
    explicit Texts(UINT nRows) : m_nRows(nRows)
    {
        std::mt19937 random(1);
        for (UINT row = 0; row < nRows; row++) {
            const std::wstring number = std::to_wstring(random() % 1'000'000);
            m_texts.push_back(L"File number " + number);
            m_texts.push_back(number + L" KB");
            m_texts.push_back(row % 3 ? L"Document" : L"Folder");
            m_texts.push_back(L"2024-03-" + std::to_wstring(10 + random() % 20));
        }
    }

    UINT Rows() const { return m_nRows; }
    LPCWSTR At(UINT row, UINT column) const { return m_texts[row * COLUMNS + column].c_str(); }

private:
    UINT m_nRows;
    std::vector<std::wstring> m_texts;
};

// GList as the benchmark fills it; its hit test and layout are in reach.
class OwnList : public GList
{
public:
    explicit OwnList(HWND hwndHost)
    {
        Create(0, 0, CX, CY, hwndHost, 1, GLS_DETAILS | GLS_HEADER, 0, CHILD | WS_HSCROLL | WS_VSCROLL);
        for (UINT column = 0; column < COLUMNS; column++) {
            InsertColumn(END, 0, DT_SINGLELINE, COLUMN_WIDTH, 10, L"Column", 0, LCT_TEXT, nullptr, nullptr,
                         nullptr, nullptr);
        }
    }
    ~OwnList() override { DestroyWindow(m_hWnd); }

    void FillInBulk(const Texts& texts)
    {
        RemoveAllItems();
        BulkInsertOn();
        Append(texts, texts.Rows());
        BulkInsertOff();
    }
    void Append(const Texts& texts, UINT nRows)
    {
        for (UINT row = 0; row < nRows; row++) {
            const UINT item = InsertItem(END, 0, nullptr, 0, texts.At(row, 0), 0);
            for (UINT column = 1; column < COLUMNS; column++) {
                SetSubItem(item, column, 0, texts.At(row, column), 0);
            }
        }
    }
    // Items with no text, all shown.
    void FillWithNothing(UINT nRows)
    {
        BulkInsertOn();
        for (UINT row = 0; row < nRows; row++) {
            InsertItem(END, 0, nullptr, 0, nullptr, 0);
        }
        BulkInsertOff();
    }
    void LayOut() { Calculate(); }
    UINT HitAt(int x, int y)
    {
        HitTestInfo info{};
        info.pt = {static_cast<SHORT>(x), static_cast<SHORT>(y)};
        HitTest(&info);
        return info.item;
    }
    void ScrollToEnd() { ScrollBy(m_siV.nMax); }
    void ScrollToTop() { ScrollBy(-m_siV.nMax); }
    void Page(bool fDown) { SendMessageW(m_hWnd, WM_VSCROLL, fDown ? SB_PAGEDOWN : SB_PAGEUP, 0); }

private:
    void ScrollBy(int n) { GWndScroll::SetScrollPos(SB_VERT, m_siV.nPos + n, TRUE); }
};

// The platform's list view with the same columns.
class PlatformList
{
public:
    explicit PlatformList(HWND hwndHost)
        : m_hwnd(CreateWindowExW(0, L"SysListView32", L"", CHILD | LVS_REPORT, 0, 0, CX, CY, hwndHost,
                                 nullptr, GetModuleHandleW(nullptr), nullptr))
    {
        SendMessageW(m_hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
        ListView_SetExtendedListViewStyle(m_hwnd, LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT);
        for (UINT column = 0; column < COLUMNS; column++) {
            LVCOLUMNW record{};
            record.mask = LVCF_TEXT | LVCF_WIDTH;
            record.cx = COLUMN_WIDTH;
            record.pszText = const_cast<LPWSTR>(L"Column");
            SendMessageW(m_hwnd, LVM_INSERTCOLUMNW, column, reinterpret_cast<LPARAM>(&record));
        }
    }
    ~PlatformList() { DestroyWindow(m_hwnd); }
    PlatformList(const PlatformList&) = delete;
    PlatformList& operator=(const PlatformList&) = delete;

    HWND Window() const { return m_hwnd; }

    void FillInBulk(const Texts& texts)
    {
        ListView_DeleteAllItems(m_hwnd);
        SendMessageW(m_hwnd, WM_SETREDRAW, FALSE, 0);
        SendMessageW(m_hwnd, LVM_SETITEMCOUNT, texts.Rows(), 0);
        Append(texts, texts.Rows());
        SendMessageW(m_hwnd, WM_SETREDRAW, TRUE, 0);
    }
    void Append(const Texts& texts, UINT nRows)
    {
        for (UINT row = 0; row < nRows; row++) {
            LVITEMW record{};
            record.mask = LVIF_TEXT | LVIF_PARAM;
            record.iItem = INT_MAX;
            record.pszText = const_cast<LPWSTR>(texts.At(row, 0));
            record.lParam = reinterpret_cast<LPARAM>(texts.At(row, 0));
            const auto item = static_cast<WPARAM>(
                SendMessageW(m_hwnd, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&record)));
            for (UINT column = 1; column < COLUMNS; column++) {
                record.iSubItem = static_cast<int>(column);
                record.pszText = const_cast<LPWSTR>(texts.At(row, column));
                SendMessageW(m_hwnd, LVM_SETITEMTEXTW, item, reinterpret_cast<LPARAM>(&record));
            }
        }
    }
    // By the items' lParams, which are their texts: the quickest that the platform offers.
    void Sort(bool fAscending)
    {
        SendMessageW(m_hwnd, LVM_SORTITEMS, fAscending, reinterpret_cast<LPARAM>(&Compare));
    }
    int HitAt(int x, int y)
    {
        LVHITTESTINFO info{};
        info.pt = {x, y};
        return static_cast<int>(SendMessageW(m_hwnd, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&info)));
    }
    void ScrollToEnd() { ListView_EnsureVisible(m_hwnd, ListView_GetItemCount(m_hwnd) - 1, FALSE); }
    void ScrollToTop() { ListView_EnsureVisible(m_hwnd, 0, FALSE); }
    void Page(bool fDown) { SendMessageW(m_hwnd, WM_VSCROLL, fDown ? SB_PAGEDOWN : SB_PAGEUP, 0); }

private:
    static int CALLBACK Compare(LPARAM a, LPARAM b, LPARAM fAscending)
    {
        const int order = _wcsicmp(reinterpret_cast<LPCWSTR>(a), reinterpret_cast<LPCWSTR>(b));
        return fAscending ? order : -order;
    }

    HWND m_hwnd;
};

void Paint(HWND hwnd)
{
    InvalidateRect(hwnd, nullptr, TRUE);
    UpdateWindow(hwnd);
}

template <class FILL> long long BytesPerItem(UINT nRows, const FILL& fill)
{
    const long long before = BytesHeld();
    fill();
    return (BytesHeld() - before) / nRows;
}

void MeasureView(Bench& bench, OwnList& own, PlatformList& platform)
{
    const auto paint = [&](const char* pszName) {
        bench.Measure(
            pszName, PAINTS,
            [&] {
                for (int i = 0; i < PAINTS; i++) {
                    Paint(own);
                }
            },
            [&] {
                for (int i = 0; i < PAINTS; i++) {
                    Paint(platform.Window());
                }
            });
    };
    own.ScrollToTop();
    platform.ScrollToTop();
    paint("  full paint at the top");
    own.ScrollToEnd();
    platform.ScrollToEnd();
    paint("  full paint at the end");
    const auto pages = [](auto& list, HWND hwnd) {
        for (int i = 0; i < PAINTS; i++) {
            list.Page(i % 2 != 0);
            UpdateWindow(hwnd);
        }
    };
    bench.Measure(
        "  page scroll with paint", PAINTS, [&] { pages(own, own); },
        [&] { pages(platform, platform.Window()); });
    own.ScrollToTop();
    platform.ScrollToTop();
    bench.Measure(
        "  hit test", HITS,
        [&] {
            for (int i = 0; i < HITS; i++) {
                own.HitAt(i % CX, i % CY);
            }
        },
        [&] {
            for (int i = 0; i < HITS; i++) {
                platform.HitAt(i % CX, i % CY);
            }
        });
}

// What shaping every text twice costs at the least: the bare script processor with one cache a font.
void ShapeBare(HDC hdc, const std::vector<HFONT>& fonts, const Texts& texts)
{
    constexpr int ROOM = 64;
    SCRIPT_ITEM items[ROOM];
    WORD glyphs[ROOM];
    WORD clusters[ROOM];
    SCRIPT_VISATTR attributes[ROOM];
    int advances[ROOM];
    GOFFSET offsets[ROOM];
    ABC abc;
    for (HFONT hFont : fonts) {
        SelectObject(hdc, hFont);
        SCRIPT_CACHE cache = nullptr;
        for (UINT i = 0; i < texts.Rows() * COLUMNS; i++) {
            const LPCWSTR pszText = texts.At(i / COLUMNS, i % COLUMNS);
            const int nLength = static_cast<int>(wcslen(pszText));
            int nItems = 0;
            int nGlyphs = 0;
            ScriptItemize(pszText, nLength, ROOM - 1, nullptr, nullptr, items, &nItems);
            for (int item = 0; item < nItems; item++) {
                const int nFirst = items[item].iCharPos;
                ScriptShape(hdc, &cache, pszText + nFirst, items[item + 1].iCharPos - nFirst, ROOM,
                            &items[item].a, glyphs, clusters, attributes, &nGlyphs);
                ScriptPlace(hdc, &cache, glyphs, nGlyphs, attributes, &items[item].a, advances, offsets,
                            &abc);
            }
        }
        ScriptFreeCache(&cache);
    }
}

void MeasureFloor(Bench& bench, OwnList& own, const Texts& texts)
{
    const HDC hdc = GetDC(own);
    const HGDIOBJ hFormer = GetCurrentObject(hdc, OBJ_FONT);
    const std::vector<HFONT> fonts{own.GetLabelTextFont(), own.GetLabelTitleFont()};
    bench.Measure(
        "  bulk fill / bare Script calls, an item", static_cast<int>(texts.Rows()),
        [&] { own.FillInBulk(texts); }, [&] { ShapeBare(hdc, fonts, texts); });
    SelectObject(hdc, hFormer);
    ReleaseDC(own, hdc);
}

void MeasureLists(UINT nRows)
{
    INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    Bench bench(FEW_ROUNDS);
    const Host host(CX, CY);
    OwnList own(host);
    PlatformList platform(host);
    const Texts texts(nRows);
    const auto nItems = static_cast<int>(nRows);
    bench.Family("List of " + std::to_string(nRows) + " x 4 texts, " + std::to_string(FEW_ROUNDS) +
                 " rounds");
    const long long nOwn = BytesPerItem(nRows, [&] { own.FillInBulk(texts); });
    bench.Print("  bytes per item", nOwn, BytesPerItem(nRows, [&] { platform.FillInBulk(texts); }));
    bench.Measure(
        "  bulk fill, an item", nItems, [&] { own.FillInBulk(texts); }, [&] { platform.FillInBulk(texts); });
    MeasureFloor(bench, own, texts);
    // Behind all the others: what an item costs there tells whether appending is linear.
    bench.Measure(
        "  single appends, an item", APPENDS, [&] { own.Append(texts, APPENDS); },
        [&] { platform.Append(texts, APPENDS); });
    bool fAscending = false;
    bench.Measure(
        "  sort by text, an item", nItems, [&] { own.Sort(0, fAscending = !fAscending); },
        [&] { platform.Sort(fAscending); });
    MeasureView(bench, own, platform);
}

void MeasureLayout()
{
    constexpr UINT ROWS = 1'000'000;
    Bench bench(FEW_ROUNDS);
    const Host host(CX, CY);
    OwnList own(host);
    own.FillWithNothing(ROWS);
    bench.Family("List of 1,000,000 items");
    bench.MeasureAlone("  layout, an item", static_cast<int>(ROWS), [&] { own.LayOut(); });
}

} // namespace

// The rows are long ones, so that these medians are of few rounds.
void MeasureList(Bench&)
{
    MeasureLists(20'000);
    MeasureLayout();
    MeasureVirtualList();
}

void MeasureLongList(Bench&)
{
    MeasureLists(100'000);
}

} // namespace bench
