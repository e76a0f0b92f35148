// A list whose items are the host's, beside the platform's owner-data list, on the same texts: both are told
// how many items there are, and ask for what shows.

#include <bench/Lists.h>

#include <random>
#include <string>

namespace bench {
namespace {

constexpr int ROUNDS = 9;
constexpr int THUMBS = 1000;
constexpr int CLICKS = 1000;
constexpr UINT FEW = 1'000;
constexpr UINT MANY = 100'000'000;

long long g_nTexts = 0;
long long g_nImages = 0;
long long g_nStates = 0;

// A cell's text from its number, in a buffer that lives until the next one.
LPCWSTR TextOf(UINT row, UINT column)
{
    static wchar_t text[32];
    constexpr LPCWSTR LEADS[COLUMNS] = {L"File number ", L"", L"2024-03-", L"Type "};
    wchar_t* to = text;
    for (LPCWSTR from = LEADS[column]; *from; ++from) {
        *to++ = *from;
    }
    wchar_t digits[12];
    int n = 0;
    UINT value = column == 0 ? row : row % (column == 1 ? 100'000 : 28);
    do {
        digits[n++] = static_cast<wchar_t>(L'0' + value % 10);
        value /= 10;
    } while (value);
    while (n > 0) {
        *to++ = digits[--n];
    }
    *to = 0;
    return text;
}

void Answer(GList*, UINT item, UINT column, UINT what, void* answer)
{
    if (what == LGET_TEXT) {
        ++g_nTexts;
        *static_cast<LPCWSTR*>(answer) = TextOf(item, column);
    } else if (what == LGET_IMAGE) {
        ++g_nImages;
        *static_cast<UINT*>(answer) = 0;
    } else if (what == LGET_STATE) {
        ++g_nStates;
        *static_cast<UINT*>(answer) = item % 2 ? LSIS_CHECKED : 0;
    }
}

LRESULT CALLBACK AnswerPlatform(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (uMsg == WM_NOTIFY &&
        reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(LVN_GETDISPINFOW)) {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        if (item.mask & LVIF_TEXT) {
            item.pszText =
                const_cast<LPWSTR>(TextOf(static_cast<UINT>(item.iItem), static_cast<UINT>(item.iSubItem)));
        }
        return 0;
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

// The key is held as long as this lives.
class CtrlHeld
{
public:
    CtrlHeld() { Set(0x80); }
    ~CtrlHeld() { Set(0); }
    CtrlHeld(const CtrlHeld&) = delete;
    CtrlHeld& operator=(const CtrlHeld&) = delete;

private:
    static void Set(BYTE state)
    {
        BYTE keys[256]{};
        keys[VK_CONTROL] = state;
        SetKeyboardState(keys);
    }
};

class OwnList : public OwnListView
{
public:
    explicit OwnList(HWND hwndHost, UINT style = GLS_DETAILS | GLS_HEADER)
        : OwnListView(hwndHost, style, Answer)
    {}

    void SetCount(UINT count) { SetVirtualItems(count); }
    void ScrollToRow(UINT row) { EnsureVisible(row); }
    long long RowsInView()
    {
        long long nRows = 0;
        RECT rcClient{};
        GetClientRect(m_hWnd, &rcClient);
        RECT rc{};
        for (UINT row = 0; GetItemRect(&rc, row, 0), rc.top < rcClient.bottom; row++) {
            nRows++;
        }
        return nRows;
    }
    void ThumbTo(double share)
    {
        m_siV.nTrackPos = static_cast<int>(share * (m_siV.nMax - static_cast<int>(m_siV.nPage)));
        SendMessageW(m_hWnd, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, LOWORD(m_siV.nTrackPos)), 0);
    }
    // As the mouse does it with Ctrl held; the row must be in view.
    void CtrlClick(UINT row)
    {
        RECT rc{};
        GetItemRect(&rc, row, 0);
        const LPARAM at = MAKELPARAM(rc.left + 10, rc.top - GetScrollPos(SB_VERT) + 5);
        SendMessageW(m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON | MK_CONTROL, at);
        SendMessageW(m_hWnd, WM_LBUTTONUP, MK_CONTROL, at);
    }

    void SelectAll() { SendMessageW(m_hWnd, WM_KEYDOWN, 'A', 1); }
};

class PlatformList : public PlatformListView
{
public:
    explicit PlatformList(HWND hwndHost) : PlatformListView(hwndHost, LVS_OWNERDATA) {}

    void SetCount(UINT count)
    {
        m_nCount = count;
        SendMessageW(m_hwnd, LVM_SETITEMCOUNT, count, 0);
    }
    void ThumbTo(double share) { ScrollToRow(static_cast<UINT>(share * (m_nCount - 1))); }

private:
    UINT m_nCount = 0;
};

template <class LIST> void ShowCount(LIST& list, UINT count)
{
    list.SetCount(count);
    Paint(list.Window());
}

template <class LIST> void Thumbs(LIST& list)
{
    std::mt19937 random(1);
    for (int i = 0; i < THUMBS; i++) {
        list.ThumbTo(static_cast<double>(random()) / 4294967296.0);
        UpdateWindow(list.Window());
    }
}

// Beside the platform's list, on the same callbacks.
void MeasurePlatform(Bench& bench, OwnList& own, PlatformList& platform)
{
    for (const UINT count : {FEW, MANY}) {
        bench.Measure(
            "  set " + std::to_string(count) + " items, first paint", 1, [&] { ShowCount(own, count); },
            [&] { ShowCount(platform, count); });
    }
    for (const UINT row : {0U, MANY / 2, MANY - 1}) {
        own.ScrollToRow(row);
        platform.ScrollToRow(row);
        const std::string place = " at row " + std::to_string(row);
        bench.Measure(
            "  full paint" + place, PAINTS, [&] { PaintOften(own); }, [&] { PaintOften(platform); });
        bench.Measure(
            "  page scroll with paint" + place, 2 * PAGES, [&] { PageAwayAndBack(own, row != MANY - 1); },
            [&] { PageAwayAndBack(platform, row != MANY - 1); });
    }
    bench.Measure(
        "  random thumb position, painted", THUMBS, [&] { Thumbs(own); }, [&] { Thumbs(platform); });
}

void MeasureSelection(Bench& bench, OwnList& many, OwnList& few)
{
    const CtrlHeld held;
    const auto selectAll = [](OwnList& list) {
        return [&list] {
            list.ClearSelection();
            return Timed([&list] { list.SelectAll(); })();
        };
    };
    bench.MeasureTimed("  select all", selectAll(many), selectAll(few));
    const auto click = [](OwnList& list, UINT count) {
        for (UINT i = 0; i < CLICKS; i++) {
            const UINT row = i * (count / CLICKS);
            list.ScrollToRow(row);
            list.CtrlClick(row);
        }
    };
    // The round before those that count selects them, the next one takes that back. With the focus, which the
    // first click gives it, a list selects its first row.
    many.ClearSelection();
    few.ClearSelection();
    bench.Measure(
        "  bring a row into view and click it with Ctrl", CLICKS, [&] { click(many, MANY); },
        [&] { click(few, FEW); });
    click(many, MANY);
    click(few, FEW);
    bench.Print("  rows selected then", many.GetSelectedCount(), few.GetSelectedCount());
}

// Both lists at two places: what is far down costs no more.
void MeasurePlaces(Bench& bench, OwnList& there, OwnList& atTop)
{
    atTop.ScrollToRow(0);
    for (const UINT row : {MANY / 2, MANY - 1}) {
        there.ScrollToRow(row);
        const std::string place = " at row " + std::to_string(row) + " / at row 0";
        bench.Measure(
            "  full paint" + place, PAINTS, [&] { PaintOften(there); }, [&] { PaintOften(atTop); });
        bench.Measure(
            "  page scroll with paint" + place, 2 * PAGES, [&] { PageAwayAndBack(there, row != MANY - 1); },
            [&] { PageAwayAndBack(atTop, true); });
    }
}

long long BytesOf(UINT count, HWND hwndHost)
{
    const long long before = BytesHeld();
    OwnList own(hwndHost);
    ShowCount(own, count);
    Thumbs(own);
    return BytesHeld() - before;
}

void MeasureFewAndMany(Bench& bench, OwnList& many, HWND hwndHost)
{
    OwnList few(hwndHost);
    bench.Measure(
        "  set the items, first paint", 1, [&] { ShowCount(many, MANY); }, [&] { ShowCount(few, FEW); });
    MeasureSelection(bench, many, few);
    few.SetCount(MANY);
    MeasurePlaces(bench, many, few);
    BytesOf(FEW, hwndHost); // what is made once
    const long long nMany = BytesOf(MANY, hwndHost);
    bench.Print("  bytes, 1,000 places painted", nMany, BytesOf(FEW, hwndHost));
}

// What the host is asked by a paint, by the next one without a change, and how many cells that is.
void CountQuestions(Bench& bench, HWND hwndHost)
{
    OwnList own(hwndHost, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    own.InsertColumn(END, 0, 0, 30, 10, L"I", 0, LCT_IMAGE, nullptr, nullptr, nullptr, Answer);
    own.SetCount(MANY);
    const long long nRows = own.RowsInView();
    for (const char* pszName : {"  questions of a first paint", "  questions of a second paint"}) {
        g_nTexts = g_nImages = g_nStates = 0;
        Paint(own);
        bench.Print(std::string(pszName) + ": texts / cells", g_nTexts, nRows * COLUMNS);
        bench.Print(std::string(pszName) + ": images / cells", g_nImages, nRows);
        bench.Print(std::string(pszName) + ": states / cells", g_nStates, nRows);
    }
}

} // namespace

void MeasureVirtualList(Bench&)
{
    Bench bench(ROUNDS);
    const Host host(LIST_CX, LIST_CY);
    SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AnswerPlatform));
    OwnList own(host);
    PlatformList platform(host);
    const std::string rounds = ", " + std::to_string(ROUNDS) + " rounds";
    bench.Family("Virtual list beside the platform's owner-data list" + rounds);
    MeasurePlatform(bench, own, platform);
    bench.Family("Virtual list of 100,000,000 rows beside one of 1,000" + rounds);
    MeasureFewAndMany(bench, own, host);
    CountQuestions(bench, host);
}

} // namespace bench
