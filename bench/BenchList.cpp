#include <bench/Floor.h>
#include <bench/Lists.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>

namespace bench {
namespace {

constexpr int HITS = 10'000;
constexpr int APPENDS = 200;
constexpr int FEW_ROUNDS = 3;

// Whether the third and the fourth column repeat what others have.
enum class Mix
{
    HalfRepeats,
    AllDiffer
};

std::wstring Word(std::mt19937& random)
{
    constexpr int LENGTH = 7;
    std::wstring word;
    for (int i = 0; i < LENGTH; i++) {
        word += static_cast<wchar_t>(L'a' + random() % 26);
    }
    return word;
}

// The same texts for both lists: words and numbers, as a directory has them. Those that differ are as long
// as those that repeat.
class Texts
{
public:
    explicit Texts(UINT nRows, Mix mix = Mix::HalfRepeats) : m_nRows(nRows)
    {
        std::mt19937 random(1);
        const auto twoDigits = [&random](unsigned from, unsigned count) {
            return std::to_wstring(from + random() % count);
        };
        for (UINT row = 0; row < nRows; row++) {
            const std::wstring number = std::to_wstring(random() % 1'000'000);
            m_texts.push_back(L"File number " + number);
            m_texts.push_back(number + L" KB");
            if (mix == Mix::HalfRepeats) {
                m_texts.push_back(row % 3 ? L"Document" : L"Folder");
                m_texts.push_back(L"2024-03-" + twoDigits(10, 20));
            } else {
                m_texts.push_back(Word(random));
                m_texts.push_back(std::to_wstring(1000 + random() % 9000) + L"-" + twoDigits(10, 3) + L"-" +
                                  twoDigits(10, 20));
            }
        }
    }

    UINT Rows() const { return m_nRows; }
    LPCWSTR At(UINT row, UINT column) const { return m_texts[row * COLUMNS + column].c_str(); }

private:
    UINT m_nRows;
    std::vector<std::wstring> m_texts;
};

// GList as the benchmark fills it; its hit test and layout are in reach.
class OwnList : public OwnListView
{
public:
    explicit OwnList(HWND hwndHost) : OwnListView(hwndHost, GLS_DETAILS | GLS_HEADER, nullptr) {}

    void FillInBulk(const Texts& texts)
    {
        RemoveAllItems();
        BulkInsertOn();
        Append(texts, texts.Rows());
        BulkInsertOff();
    }
    void Empty() { RemoveAllItems(); }
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

private:
    void ScrollBy(int n) { GWndScroll::SetScrollPos(SB_VERT, m_siV.nPos + n, TRUE); }
};

// The platform's list view with the same columns.
class PlatformList : public PlatformListView
{
public:
    explicit PlatformList(HWND hwndHost) : PlatformListView(hwndHost, 0) {}

    void FillInBulk(const Texts& texts)
    {
        ListView_DeleteAllItems(m_hwnd);
        SendMessageW(m_hwnd, WM_SETREDRAW, FALSE, 0);
        SendMessageW(m_hwnd, LVM_SETITEMCOUNT, texts.Rows(), 0);
        Append(texts, texts.Rows());
        SendMessageW(m_hwnd, WM_SETREDRAW, TRUE, 0);
    }
    void Empty() { ListView_DeleteAllItems(m_hwnd); }
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
    void ScrollToEnd() { ScrollToRow(static_cast<UINT>(ListView_GetItemCount(m_hwnd)) - 1); }
    void ScrollToTop() { ScrollToRow(0); }

private:
    static int CALLBACK Compare(LPARAM a, LPARAM b, LPARAM fAscending)
    {
        const int order = _wcsicmp(reinterpret_cast<LPCWSTR>(a), reinterpret_cast<LPCWSTR>(b));
        return fAscending ? order : -order;
    }
};

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
            pszName, PAINTS, [&] { PaintOften(own); }, [&] { PaintOften(platform); });
    };
    own.ScrollToTop();
    platform.ScrollToTop();
    paint("  full paint at the top");
    MeasureFloor(own, PAINTS);
    own.ScrollToEnd();
    platform.ScrollToEnd();
    paint("  full paint at the end");
    MeasureFloor(own, PAINTS);
    bench.Measure(
        "  page scroll with paint", 2 * PAGES, [&] { PageAwayAndBack(own, false); },
        [&] { PageAwayAndBack(platform, false); });
    own.ScrollToTop();
    platform.ScrollToTop();
    bench.Measure(
        "  hit test", HITS,
        [&] {
            for (int i = 0; i < HITS; i++) {
                own.HitAt(i % LIST_CX, i % LIST_CY);
            }
        },
        [&] {
            for (int i = 0; i < HITS; i++) {
                platform.HitAt(i % LIST_CX, i % LIST_CY);
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

void MeasureFill(Bench& bench, OwnList& own, const Texts& texts, const char* pszName)
{
    const HDC hdc = GetDC(own);
    const HGDIOBJ hFormer = GetCurrentObject(hdc, OBJ_FONT);
    const std::vector<HFONT> fonts{own.GetLabelTextFont(), own.GetLabelTitleFont()};
    bench.Measure(
        pszName, static_cast<int>(texts.Rows()), [&] { own.FillInBulk(texts); },
        [&] { ShapeBare(hdc, fonts, texts); });
    SelectObject(hdc, hFormer);
    ReleaseDC(own, hdc);
}

// Beside those whose half repeats, which stay meanwhile, so that nothing of theirs is used again.
void MeasureDifferent(Bench& bench, HWND hwndHost, UINT nRows)
{
    OwnList own(hwndHost);
    PlatformList platform(hwndHost);
    const Texts texts(nRows, Mix::AllDiffer);
    const long long nOwn = BytesPerItem(nRows, [&] { own.FillInBulk(texts); });
    bench.Print("  bytes per item, all texts different", nOwn,
                BytesPerItem(nRows, [&] { platform.FillInBulk(texts); }));
    MeasureFill(bench, own, texts, "  bulk fill / bare Script calls, all different");
}

// Of lists that are filled anew each time, and are full again in the end.
void MeasureRemoval(Bench& bench, OwnList& own, PlatformList& platform, const Texts& texts)
{
    const auto removal = [&texts](auto& list) {
        return [&] {
            list.FillInBulk(texts);
            return Timed([&] { list.Empty(); })() / texts.Rows();
        };
    };
    bench.MeasureTimed("  removal of all, an item", removal(own), removal(platform));
    own.FillInBulk(texts);
    platform.FillInBulk(texts);
}

// Behind all the others: what an item costs there tells whether appending is linear.
void MeasureAppends(Bench& bench, OwnList& own, PlatformList& platform, const Texts& texts)
{
    bench.Measure(
        "  single appends, an item", APPENDS, [&] { own.Append(texts, APPENDS); },
        [&] { platform.Append(texts, APPENDS); });
    const TimedWork append = Timed([&] { own.Append(texts, APPENDS); });
    const TimedWork fill = Timed([&] { own.FillInBulk(texts); });
    bench.MeasureTimed(
        "  single appends / bulk fill, an item", [&] { return append() / APPENDS; },
        [&] { return fill() / texts.Rows(); });
}

void MeasureLists(UINT nRows)
{
    Bench bench(FEW_ROUNDS);
    const Host host(LIST_CX, LIST_CY);
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
    MeasureFill(bench, own, texts, "  bulk fill / bare Script calls, an item");
    MeasureDifferent(bench, host, nRows);
    MeasureRemoval(bench, own, platform, texts);
    MeasureAppends(bench, own, platform, texts);
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
    const Host host(LIST_CX, LIST_CY);
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
}

void MeasureLongList(Bench&)
{
    MeasureLists(100'000);
}

} // namespace bench
