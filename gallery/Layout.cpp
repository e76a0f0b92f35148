#include <gallery/Layout.h>
#include <gallery/Report.h>

#include <cstdio>

namespace gallery {
namespace {

BOOL CALLBACK WriteControl(HWND hwnd, LPARAM lParam)
{
    if (!IsWindowVisible(hwnd)) {
        return TRUE;
    }
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    std::fprintf(reinterpret_cast<FILE*>(lParam), "%s\t%d\t%s\t%ld\t%ld\t%ld\t%ld\n",
                 ToUtf8(ClassOf(hwnd)).c_str(), GetDlgCtrlID(hwnd), ToUtf8(TextOf(hwnd)).c_str(), rc.left,
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
