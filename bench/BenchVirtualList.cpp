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

class OwnList : public OwnListView
{
public:
    explicit OwnList(HWND hwndHost, UINT style = GLS_DETAILS | GLS_HEADER)
        : OwnListView(hwndHost, style, Answer)
    {}

    void SetCount(UINT count) { SetVirtualItems(count); }
    void ScrollToRow(UINT row) { EnsureVisible(row); }
    void ThumbTo(double share)
    {
        m_siV.nTrackPos = static_cast<int>(share * (m_siV.nMax - static_cast<int>(m_siV.nPage)));
        SendMessageW(m_hWnd, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, LOWORD(m_siV.nTrackPos)), 0);
    }
    void Invert(UINT item) { SetSelected(item, !GetSelected(item)); }

    // As Ctrl+A does.
    void SelectAll()
    {
        BYTE keys[256]{};
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        SendMessageW(m_hWnd, WM_KEYDOWN, 'A', 1);
        keys[VK_CONTROL] = 0;
        SetKeyboardState(keys);
    }
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

void MeasureMemory(Bench& bench, HWND hwndHost)
{
    for (const UINT count : {FEW, MANY}) {
        const long long before = BytesHeld();
        OwnList own(hwndHost);
        ShowCount(own, count);
        bench.PrintAlone("  bytes of a list of " + std::to_string(count) + ", painted", BytesHeld() - before);
    }
}

// What the host is asked by a paint, by the next one without a change, and how many cells that is.
void CountQuestions(Bench& bench, HWND hwndHost)
{
    OwnList own(hwndHost, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES);
    own.InsertColumn(END, 0, 0, 30, 10, L"I", 0, LCT_IMAGE, nullptr, nullptr, nullptr, Answer);
    own.SetCount(MANY);
    for (const char* pszName : {"  questions of a first paint", "  questions of a second paint"}) {
        g_nTexts = g_nImages = g_nStates = 0;
        Paint(own);
        bench.PrintAlone(std::string(pszName) + ": texts", g_nTexts);
        bench.PrintAlone(std::string(pszName) + ": images", g_nImages);
        bench.PrintAlone(std::string(pszName) + ": states", g_nStates);
    }
}

void MeasureSelection(Bench& bench, OwnList& own)
{
    for (const UINT count : {FEW, MANY}) {
        own.SetCount(count);
        const std::string rows = " of " + std::to_string(count);
        bench.MeasureAlone("  select all" + rows, 1, [&] { own.SelectAll(); });
        own.ClearSelection();
        bench.MeasureAlone("  1,000 single selections" + rows, CLICKS, [&] {
            for (UINT i = 0; i < CLICKS; i++) {
                own.Invert(static_cast<UINT>(UINT64{i} * (count - 1) / CLICKS));
            }
        });
        own.ClearSelection();
    }
}

} // namespace

void MeasureVirtualList()
{
    Bench bench(ROUNDS);
    const Host host(LIST_CX, LIST_CY);
    SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AnswerPlatform));
    OwnList own(host);
    PlatformList platform(host);
    bench.Family("Virtual list beside the platform's owner-data list, " + std::to_string(ROUNDS) + " rounds");
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
            "  page scroll with paint" + place, PAINTS, [&] { PageOften(own); },
            [&] { PageOften(platform); });
    }
    bench.Measure(
        "  random thumb position, painted", THUMBS, [&] { Thumbs(own); }, [&] { Thumbs(platform); });
    MeasureSelection(bench, own);
    CountQuestions(bench, host);
    MeasureMemory(bench, host);
}

} // namespace bench
