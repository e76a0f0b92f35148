#include <bench/Pairs.h>

#include <string>

namespace bench {
namespace {

constexpr SIZE FIELD = {420, 300};
constexpr DWORD STYLE = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL;
constexpr int FEW_ROUNDS = 5;
constexpr int KEYS = 20;
constexpr size_t MEGABYTE = 1024 * 1024;

// Lines of 20 to 70 characters, which fit into the field's width or wrap once.
std::wstring MakeText(size_t nLines)
{
    constexpr std::wstring_view WORDS =
        L"the quick brown fox jumps over the lazy dog and goes on to the next field ";
    std::wstring text;
    for (size_t i = 0; i < nLines; i++) {
        text += WORDS.substr(0, 20 + i * 7 % 50);
        text += L"\r\n";
    }
    return text;
}

// The selection of several lines has no plain way in.
class BenchEdit : public GEdit
{
public:
    void PutCaretInLine(UINT nLine)
    {
        m_nCaretLine = m_nAnchorLine = nLine;
        m_nCaretChar = m_nAnchorChar = m_aLines[nLine] / 2;
    }
    UINT LineCount() const { return m_aLines.GetLength(); }
};

// The two fields in one window.
class Fields
{
public:
    Fields() : m_hwndParent(MakeParent(WS_VISIBLE))
    {
        gesso.Create(0, 0, FIELD.cx, FIELD.cy, m_hwndParent, 1, L"", STYLE, 0);
        platform = CreateWindowExW(0, L"EDIT", L"", STYLE, 0, 0, FIELD.cx, FIELD.cy, m_hwndParent, nullptr,
                                   nullptr, nullptr);
        SendMessageW(platform, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
        SendMessageW(platform, EM_LIMITTEXT, 0, 0);
        HandleMessages();
    }
    ~Fields() { DestroyWindow(m_hwndParent); }
    Fields(const Fields&) = delete;
    Fields& operator=(const Fields&) = delete;

    static void Set(HWND hwnd, const std::wstring& text)
    {
        SendMessageW(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void SetBoth(const std::wstring& text) const
    {
        Set(gesso, text);
        Set(platform, text);
    }
    void PutCaretsInTheMiddle() { PutCaretsInLine(gesso.LineCount() / 2); }
    void PutCaretsInLine(UINT nLine)
    {
        gesso.PutCaretInLine(nLine);
        const LRESULT nAt = SendMessageW(platform, EM_LINEINDEX, nLine, 0) + 10;
        SendMessageW(platform, EM_SETSEL, static_cast<WPARAM>(nAt), nAt);
    }

    BenchEdit gesso;
    HWND platform;

private:
    HWND m_hwndParent;
};

void Type(HWND hwnd)
{
    for (const WPARAM wChar : {WPARAM{'x'}, WPARAM{VK_BACK}}) {
        for (int i = 0; i < KEYS; i++) {
            SendMessageW(hwnd, WM_CHAR, wChar, 1);
        }
    }
}

void PasteIntoGesso(HWND hwnd)
{
    BYTE states[256]{};
    states[VK_CONTROL] = 0x80;
    SetKeyboardState(states);
    SendMessageW(hwnd, WM_KEYDOWN, 'V', 1);
    states[VK_CONTROL] = 0;
    SetKeyboardState(states);
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

void MeasureLines(Bench& bench, size_t nLines)
{
    Fields fields;
    const std::wstring text = MakeText(nLines);
    const std::string lines = std::to_string(nLines / 1000) + ",000 lines";
    bench.Measure(
        "set " + lines, 1, [&] { Fields::Set(fields.gesso, text); },
        [&] { Fields::Set(fields.platform, text); });
    fields.SetBoth(text);
    fields.PutCaretsInTheMiddle();
    bench.Measure(
        "type a character in the middle of " + lines, 2 * KEYS, [&] { Type(fields.gesso); },
        [&] { Type(fields.platform); });
    bench.Measure(
        "select all of " + lines, 1, [&] { SendMessageW(fields.gesso, WM_LBUTTONDBLCLK, 0, 0); },
        [&] { SendMessageW(fields.platform, EM_SETSEL, 0, -1); });
}

void MeasurePaste(Bench& bench)
{
    Fields fields;
    std::wstring text = MakeText(MEGABYTE / sizeof(wchar_t) / 40);
    text.resize(MEGABYTE / sizeof(wchar_t), L'x');
    PutOnClipboard(text);
    bench.Measure(
        "paste 1 MB", 1,
        [&] {
            Fields::Set(fields.gesso, L"");
            PasteIntoGesso(fields.gesso);
        },
        [&] {
            Fields::Set(fields.platform, L"");
            SendMessageW(fields.platform, WM_PASTE, 0, 0);
        });
}

} // namespace

void MeasureEdits(Bench& bench)
{
    bench.Family("Edit field of many lines");
    {
        Fields fields;
        fields.SetBoth(MakeText(2000));
        MeasurePainting(bench, fields.gesso, fields.platform);
        fields.PutCaretsInLine(2);
        bench.Measure(
            "type a character in view, and paint", 2 * KEYS, [&] { TypeAndPaint(fields.gesso, KEYS); },
            [&] { TypeAndPaint(fields.platform, KEYS); });
    }
    MeasureLines(bench, 2000);
    Bench few(FEW_ROUNDS);
    MeasureLines(few, 20'000);
    MeasurePaste(few);
}

} // namespace bench
