#include <gallery/Layout.h>
#include <gallery/Report.h>

#include <cstdio>

namespace gallery {
namespace {

void WriteLine(FILE* file, const Part& part)
{
    const RECT& rc = part.rc;
    std::fprintf(file, "%s\t%u\t%s\t%ld\t%ld\t%ld\t%ld\n", ToUtf8(part.kind).c_str(), part.uId,
                 ToUtf8(OneLine(part.text)).c_str(), rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top);
}

BOOL CALLBACK WriteControl(HWND hwnd, LPARAM lParam)
{
    if (IsWindowVisible(hwnd)) {
        Part control{ClassOf(hwnd), static_cast<UINT>(GetDlgCtrlID(hwnd)), TextOf(hwnd), {}};
        GetWindowRect(hwnd, &control.rc);
        WriteLine(reinterpret_cast<FILE*>(lParam), control);
    }
    return TRUE;
}

// A dialog, with its controls.
BOOL CALLBACK WriteDialog(HWND hwnd, LPARAM lParam)
{
    if (ClassOf(hwnd) == L"#32770" && WriteControl(hwnd, lParam)) {
        EnumChildWindows(hwnd, &WriteControl, lParam);
    }
    return TRUE;
}

// What has the keyboard, and whether the gallery's window takes input.
void WriteState(HWND hwnd, FILE* file)
{
    WriteLine(file, {L"active", 0, TextOf(GetActiveWindow()), {}});
    WriteLine(file, {L"focus", static_cast<UINT>(GetDlgCtrlID(GetFocus())), TextOf(GetFocus()), {}});
    WriteLine(file, {L"owner", 0, IsWindowEnabled(hwnd) ? L"enabled" : L"disabled", {}});
}

} // namespace

void WriteLayout(HWND hwnd, const std::vector<Part>& parts, const std::wstring& path)
{
    const std::wstring draft = path + L".new";
    FILE* const file = _wfopen(draft.c_str(), L"wb");
    if (!file) {
        return;
    }
    EnumChildWindows(hwnd, &WriteControl, reinterpret_cast<LPARAM>(file));
    EnumThreadWindows(GetCurrentThreadId(), &WriteDialog, reinterpret_cast<LPARAM>(file));
    for (const Part& part : parts) {
        WriteLine(file, part);
    }
    WriteState(hwnd, file);
    std::fclose(file);
    MoveFileExW(draft.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING);
}

} // namespace gallery
