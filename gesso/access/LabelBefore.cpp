// The label that names a control.
#include <gesso/access/AccessibleThing.h>
#include <gesso/access/WindowText.h>

namespace gesso {
namespace {

constexpr LPCWSTR PLATFORM_LABEL = L"Static";
constexpr int LONGEST_CLASS = 256;

bool IsPlatformLabel(HWND hwnd)
{
    wchar_t szClass[LONGEST_CLASS]{};
    if (!GetClassNameW(hwnd, szClass, LONGEST_CLASS) || _wcsicmp(szClass, PLATFORM_LABEL) != 0) {
        return false;
    }
    const DWORD dwKind = static_cast<DWORD>(GetWindowLongW(hwnd, GWL_STYLE)) & SS_TYPEMASK;
    return dwKind <= SS_RIGHT || dwKind == SS_SIMPLE || dwKind == SS_LEFTNOWORDWRAP;
}

LabelWords WordsOfPlatformLabel(HWND hwnd)
{
    const AccessString strText = TextOfWindow(hwnd);
    if (GetWindowLongW(hwnd, GWL_STYLE) & SS_NOPREFIX) {
        return {strText, {}};
    }
    return {WithoutMnemonic(strText), ShortcutOfMnemonic(strText)};
}

LabelWords WordsOf(HWND hwnd)
{
    if (const auto thing = FindThing(hwnd); thing && thing->Check() == S_OK) {
        LabelWords words;
        if (thing->GetRole() == Role::StaticText) {
            words.name = thing->Name();
            words.shortcut = thing->Check() == S_OK ? thing->Shortcut() : AccessString();
        }
        return words;
    }
    return IsPlatformLabel(hwnd) ? WordsOfPlatformLabel(hwnd) : LabelWords{};
}

} // namespace

LabelWords LabelBefore(HWND hwnd)
{
    const HWND hwndLabel = GetWindow(hwnd, GW_HWNDPREV);
    const bool fChild = GetWindowLongW(hwnd, GWL_STYLE) & WS_CHILD;
    if (!fChild || !hwndLabel) {
        return {};
    }
    LabelWords words = WordsOf(hwndLabel);
    const UINT nLength = words.name.GetLength();
    if (nLength && words.name[nLength - 1] == L':') {
        words.name = words.name.Left(nLength - 1);
    }
    return words;
}

} // namespace gesso
