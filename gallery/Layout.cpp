#include <gallery/Layout.h>
#include <gallery/Report.h>

#include <algorithm>
#include <cstdio>

namespace gallery {
namespace {

// A text on one line, without what parts the fields.
std::string FieldOf(std::wstring text)
{
    std::replace_if(
        text.begin(), text.end(), [](wchar_t c) { return c < L' '; }, L' ');
    return ToUtf8(text);
}

BOOL CALLBACK WriteControl(HWND hwnd, LPARAM lParam)
{
    if (!IsWindowVisible(hwnd)) {
        return TRUE;
    }
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    std::fprintf(reinterpret_cast<FILE*>(lParam), "%s\t%d\t%s\t%ld\t%ld\t%ld\t%ld\n",
                 ToUtf8(ClassOf(hwnd)).c_str(), GetDlgCtrlID(hwnd), FieldOf(TextOf(hwnd)).c_str(), rc.left,
                 rc.top, rc.right - rc.left, rc.bottom - rc.top);
    return TRUE;
}

} // namespace

void WriteLayout(HWND hwnd, const std::wstring& path)
{
    const std::wstring draft = path + L".new";
    FILE* const file = _wfopen(draft.c_str(), L"wb");
    if (!file) {
        return;
    }
    EnumChildWindows(hwnd, &WriteControl, reinterpret_cast<LPARAM>(file));
    std::fclose(file);
    MoveFileExW(draft.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING);
}

} // namespace gallery
