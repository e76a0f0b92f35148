#include <gallery/Report.h>

#include <algorithm>

namespace gallery {
namespace {

struct CodeName
{
    UINT uCode;
    LPCWSTR pszName;
};

// A code that several controls use for different things stays a number.
constexpr CodeName NOTIFY_NAMES[] = {
    {static_cast<UINT>(NM_CLICK), L"NM_CLICK"},         {static_cast<UINT>(NM_DBLCLK), L"NM_DBLCLK"},
    {static_cast<UINT>(NM_RCLICK), L"NM_RCLICK"},       {static_cast<UINT>(NM_RDBLCLK), L"NM_RDBLCLK"},
    {static_cast<UINT>(NM_RETURN), L"NM_RETURN"},       {static_cast<UINT>(NM_SETFOCUS), L"NM_SETFOCUS"},
    {static_cast<UINT>(NM_KILLFOCUS), L"NM_KILLFOCUS"},
};

std::wstring NameOfNotify(UINT uCode)
{
    for (const CodeName& entry : NOTIFY_NAMES) {
        if (entry.uCode == uCode) {
            return entry.pszName;
        }
    }
    return std::to_wstring(static_cast<int>(uCode));
}

} // namespace

std::wstring ClassOf(HWND hwnd)
{
    wchar_t szClass[64] = L"";
    GetClassNameW(hwnd, szClass, static_cast<int>(std::size(szClass)));
    return szClass;
}

std::wstring TextOf(HWND hwnd)
{
    wchar_t szText[256] = L"";
    GetWindowTextW(hwnd, szText, static_cast<int>(std::size(szText)));
    return szText;
}

std::wstring DescribeWindow(HWND hwnd)
{
    return ClassOf(hwnd) + L" '" + OneLine(TextOf(hwnd)) + L"'";
}

std::wstring DescribeCommand(UINT uId, UINT uCode, HWND hwndFrom)
{
    const auto nValue = reinterpret_cast<LONG_PTR>(hwndFrom);
    return L"WM_COMMAND id " + std::to_wstring(uId) + L" code " + std::to_wstring(uCode) +
           (IsWindow(hwndFrom) ? L" from " + DescribeWindow(hwndFrom) : L" value " + std::to_wstring(nValue));
}

std::wstring DescribeNotify(const NMHDR& header)
{
    return L"WM_NOTIFY id " + std::to_wstring(header.idFrom) + L" code " + NameOfNotify(header.code) +
           L" from " + DescribeWindow(header.hwndFrom);
}

std::wstring DescribeContextMenu(HWND hwndFrom, POINT ptScreen)
{
    std::wstring place = L"by the keyboard";
    if (ptScreen.x != -1 || ptScreen.y != -1) {
        ScreenToClient(hwndFrom, &ptScreen);
        place = L"at " + std::to_wstring(ptScreen.x) + L", " + std::to_wstring(ptScreen.y);
    }
    return L"WM_CONTEXTMENU " + place + L" from " + DescribeWindow(hwndFrom);
}

std::wstring DescribeScroll(UINT uCode, UINT uPos, HWND hwndFrom)
{
    const std::wstring code = std::to_wstring(uCode) + L" position " + std::to_wstring(uPos);
    return L"WM_VSCROLL code " + code + L" from " + DescribeWindow(hwndFrom);
}

std::wstring OneLine(std::wstring text)
{
    std::replace_if(
        text.begin(), text.end(), [](wchar_t c) { return c < L' '; }, L' ');
    return text;
}

std::string ToUtf8(const std::wstring& text)
{
    const int nLength = static_cast<int>(text.size());
    const int nBytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), nLength, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<size_t>(nBytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), nLength, result.data(), nBytes, nullptr, nullptr);
    return result;
}

Report::~Report()
{
    if (m_file) {
        std::fclose(m_file);
    }
}

bool Report::OpenFile(const std::wstring& path)
{
    m_file = _wfopen(path.c_str(), L"wb");
    return m_file != nullptr;
}

void Report::Add(const std::wstring& line)
{
    m_nCount++;
    m_last.push_back(std::to_wstring(m_nCount) + L"   " + line);
    if (m_last.size() > LINES_SHOWN) {
        m_last.pop_front();
    }
    if (m_file) {
        std::fprintf(m_file, "%s\n", ToUtf8(line).c_str());
        std::fflush(m_file);
    }
}

std::wstring Report::LastLines() const
{
    std::wstring text;
    for (const std::wstring& line : m_last) {
        text += line + L"\r\n";
    }
    return text;
}

} // namespace gallery
