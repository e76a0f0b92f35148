// Text fields of Modern beside the platform's, on the same texts.
#include <bench/Pairs.h>

#include <string>

namespace bench {
namespace {

constexpr SIZE FIELD = {420, 300};
constexpr DWORD STYLE = WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_NOHIDESEL;
constexpr DWORD NO_WRAP = ES_AUTOHSCROLL;
constexpr int FEW_ROUNDS = 5;
constexpr int KEYS = 10;
constexpr int PAGES = 20;
constexpr int DRAG_STEPS = 40;
constexpr size_t MEGABYTE = 1024 * 1024;
constexpr size_t OCCURRENCES = 10'000;

class Modern
{
public:
    Modern() : m_former(gesso::GetBehavior()) { gesso::SetBehavior(gesso::Behavior::Modern); }
    ~Modern() { gesso::SetBehavior(m_former); }
    Modern(const Modern&) = delete;
    Modern& operator=(const Modern&) = delete;

private:
    gesso::Behavior m_former;
};

// The two fields in one window.
class ModernFields
{
public:
    explicit ModernFields(DWORD dwMore) : m_hwndParent(MakeParent(WS_VISIBLE))
    {
        const Modern modern;
        gesso.Create(0, 0, FIELD.cx, FIELD.cy, m_hwndParent, 1, L"", STYLE | dwMore, 0);
        platform = CreateWindowExW(0, L"EDIT", L"", STYLE | dwMore, 0, 0, FIELD.cx, FIELD.cy, m_hwndParent,
                                   nullptr, nullptr, nullptr);
        SendMessageW(platform, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
        SendMessageW(platform, EM_LIMITTEXT, 0, 0);
        HandleMessages();
    }
    ~ModernFields() { DestroyWindow(m_hwndParent); }
    ModernFields(const ModernFields&) = delete;
    ModernFields& operator=(const ModernFields&) = delete;

    // The same work for either of them.
    void Measure(Bench& bench, const std::string& name, int nOperations,
                 const std::function<void(HWND)>& work) const
    {
        bench.Measure(
            name, nOperations, [&] { work(gesso); }, [&] { work(platform); });
    }
    void SetBoth(const std::wstring& text) const;

    GEdit gesso;
    HWND platform;

private:
    HWND m_hwndParent;
};

void Set(HWND hwnd, const std::wstring& text)
{
    SendMessageW(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void SelectIn(HWND hwnd, size_t nFrom, size_t nTo)
{
    SendMessageW(hwnd, EM_SETSEL, nFrom, static_cast<LPARAM>(nTo));
}

void ModernFields::SetBoth(const std::wstring& text) const
{
    Set(gesso, text);
    Set(platform, text);
}

std::wstring Repeated(std::wstring_view line, size_t nTimes)
{
    std::wstring text;
    text.reserve(line.size() * nTimes);
    for (size_t i = 0; i < nTimes; i++) {
        text += line;
    }
    return text;
}

// 40 bytes each.
std::wstring Lines(size_t nLines)
{
    return Repeated(L"the fox jumps over\r\n", nLines);
}

std::wstring Words(size_t nChars)
{
    std::wstring text = Repeated(L"the quick brown fox ", nChars / 20 + 1);
    text.resize(nChars);
    return text;
}

void PutCaretAt(HWND hwnd, size_t n)
{
    SelectIn(hwnd, n, n);
    SendMessageW(hwnd, EM_SCROLLCARET, 0, 0);
    UpdateWindow(hwnd);
}

void PageDownAndUp(HWND hwnd)
{
    for (const WPARAM wKey : {WPARAM{VK_NEXT}, WPARAM{VK_PRIOR}}) {
        for (int i = 0; i < PAGES; i++) {
            SendMessageW(hwnd, WM_KEYDOWN, wKey, 1);
            UpdateWindow(hwnd);
        }
    }
}

// From no selection: a press on selected text would drag it away.
void DragOverPage(HWND hwnd)
{
    SelectIn(hwnd, 0, 0);
    SendMessageW(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    UpdateWindow(hwnd);
    for (int i = 1; i <= DRAG_STEPS; i++) {
        const LPARAM point = MAKELPARAM(2 + i * 9, 2 + i * (FIELD.cy - 10) / DRAG_STEPS);
        SendMessageW(hwnd, WM_MOUSEMOVE, MK_LBUTTON, point);
        UpdateWindow(hwnd);
    }
    SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
}

void SelectAllAndNothing(HWND hwnd)
{
    for (const LPARAM nEnd : {LPARAM{-1}, LPARAM{0}}) {
        SendMessageW(hwnd, EM_SETSEL, 0, nEnd);
        UpdateWindow(hwnd);
    }
}

void MeasureView(Bench& bench)
{
    const ModernFields fields(NO_WRAP);
    fields.SetBoth(Lines(2000));
    fields.Measure(bench, "page down or up, and paint", 2 * PAGES, PageDownAndUp);
    fields.SetBoth(Lines(2000));
    fields.Measure(bench, "drag the selection over a page, a step, and paint", DRAG_STEPS, DragOverPage);
    fields.Measure(bench, "select all of 2,000 lines, or nothing, and paint", 2, SelectAllAndNothing);
}

void MeasureTyping(Bench& bench, size_t nLines, const std::string& lines)
{
    const ModernFields fields(NO_WRAP);
    const std::wstring text = Lines(nLines);
    fields.Measure(bench, "open " + lines, 1, [&](HWND hwnd) { Set(hwnd, text); });
    for (const HWND hwnd : {fields.gesso.GetHwnd(), fields.platform}) {
        PutCaretAt(hwnd, text.size() / 2 + 10);
    }
    fields.Measure(bench, "type in the middle of " + lines + ", and paint", 2 * KEYS,
                   [](HWND hwnd) { TypeAndPaint(hwnd, KEYS); });
}

void MeasureWrapping(Bench& bench)
{
    const ModernFields fields(0);
    const std::wstring text = Repeated(Words(150) + L"\r\n", 20'000);
    fields.Measure(bench, "open 20,000 lines that wrap, and paint", 1, [&](HWND hwnd) {
        Set(hwnd, text);
        UpdateWindow(hwnd);
    });
    constexpr size_t PARAGRAPH = 100'000;
    fields.SetBoth(Words(PARAGRAPH));
    for (const HWND hwnd : {fields.gesso.GetHwnd(), fields.platform}) {
        PutCaretAt(hwnd, PARAGRAPH / 2);
    }
    fields.Measure(bench, "type in a paragraph of 100,000 that wraps, and paint", 2 * KEYS,
                   [](HWND hwnd) { TypeAndPaint(hwnd, KEYS); });
}

void MeasureLongLine(Bench& bench)
{
    constexpr size_t LONG = 1'000'000;
    const ModernFields fields(NO_WRAP);
    const ModernFields shorter(NO_WRAP);
    fields.SetBoth(Words(LONG));
    shorter.SetBoth(Words(LONG / 100));
    for (const HWND hwnd : {fields.gesso.GetHwnd(), fields.platform}) {
        PutCaretAt(hwnd, LONG / 2);
    }
    PutCaretAt(shorter.gesso, LONG / 200);
    bench.Measure(
        "type in a line of 1,000,000 / of 10,000, and paint", 2 * KEYS,
        [&] { TypeAndPaint(fields.gesso, KEYS); }, [&] { TypeAndPaint(shorter.gesso, KEYS); });
    Bench once(1);
    fields.Measure(once, "type in a line of 1,000,000, and paint", 2 * KEYS,
                   [](HWND hwnd) { TypeAndPaint(hwnd, KEYS); });
}

void PutOnClipboard(const std::wstring& text)
{
    const size_t nSize = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL hBlock = GlobalAlloc(GMEM_MOVEABLE, nSize);
    std::memcpy(GlobalLock(hBlock), text.c_str(), nSize);
    GlobalUnlock(hBlock);
    OpenClipboard(GetActiveWindow());
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, hBlock);
    CloseClipboard();
}

void MeasurePaste(Bench& bench)
{
    const ModernFields fields(NO_WRAP);
    PutOnClipboard(Lines(MEGABYTE / 40));
    const auto paste = [](HWND hwnd) { SendMessageW(hwnd, WM_PASTE, 0, 0); };
    const auto undo = [](HWND hwnd) { SendMessageW(hwnd, EM_UNDO, 0, 0); };
    const HWND hwnd = fields.gesso;
    fields.Measure(bench, "paste 1 MB and take it back", 1, [&](HWND hwndEither) {
        Set(hwndEither, L"");
        paste(hwndEither);
        undo(hwndEither);
    });
    Set(hwnd, L"");
    bench.MeasureTimed(
        "take a paste of 1 MB back / paste it",
        [&] {
            paste(hwnd);
            return Timed([&] { undo(hwnd); })();
        },
        [&] {
            const double time = Timed([&] { paste(hwnd); })();
            undo(hwnd);
            return time;
        });
}

constexpr std::wstring_view LINE_TO_CHANGE = L"the fox jumps over\r\n";
constexpr size_t AT = 4;

// Puts three other letters in the place of those in each line, and paints once.
double ReplaceInAll(size_t nLines, HWND hwnd, const std::function<void()>& replace)
{
    Set(hwnd, Repeated(LINE_TO_CHANGE, nLines));
    return Timed([&] {
               for (size_t i = 0; i < nLines; i++) {
                   const size_t n = i * LINE_TO_CHANGE.size() + AT;
                   SelectIn(hwnd, n, n + 3);
                   replace();
               }
               UpdateWindow(hwnd);
           })() /
           static_cast<double>(nLines);
}

void MeasureReplacing(Bench& bench)
{
    ModernFields fields(NO_WRAP);
    const auto ofGesso = [&](size_t nLines) {
        return ReplaceInAll(nLines, fields.gesso, [&] { fields.gesso.ReplaceSel(L"cat", true); });
    };
    bench.MeasureTimed(
        "replace one of 10,000 by ReplaceSel / of 1,000", [&] { return ofGesso(OCCURRENCES); },
        [&] { return ofGesso(OCCURRENCES / 10); });
    Bench once(1);
    once.MeasureTimed(
        "replace one of 10,000 by ReplaceSel", [&] { return ofGesso(OCCURRENCES); },
        [&] {
            return ReplaceInAll(OCCURRENCES, fields.platform, [&] {
                SendMessageW(fields.platform, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"cat"));
            });
        });
}

long long BytesTaken(HWND hwnd, const std::wstring& text)
{
    const long long nBefore = BytesHeld();
    Set(hwnd, text);
    return BytesHeld() - nBefore;
}

// The million lines take the platform's field long: one round of each.
void MeasureMillion()
{
    constexpr size_t MANY = 1'000'000;
    Bench once(1);
    MeasureTyping(once, MANY, "1,000,000 lines");
    const ModernFields fields(NO_WRAP);
    const std::wstring text = Lines(MANY);
    const long long nGesso = BytesTaken(fields.gesso, text);
    once.Print("  bytes for " + std::to_string(text.size() * sizeof(wchar_t)) + " of text", nGesso,
               BytesTaken(fields.platform, text));
}

} // namespace

void MeasureFields(Bench& bench)
{
    bench.Family("Text field of Modern");
    MeasureView(bench);
    Bench few(FEW_ROUNDS);
    MeasureTyping(few, 20'000, "20,000 lines");
    MeasureWrapping(few);
    MeasurePaste(few);
    MeasureReplacing(few);
    MeasureLongLine(few);
    MeasureMillion();
}

} // namespace bench
