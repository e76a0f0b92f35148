#include "Classes.h"

#include "ControlWorld.h"
#include "Plain.h"

namespace attack {

namespace {

template <class CONTROL> AttackedClass OfControl()
{
    return {NameOf<CONTROL>(), [](Source& source) -> std::unique_ptr<World> {
                return std::make_unique<ControlWorld<CONTROL>>(source);
            }};
}

template <class... CONTROLS> std::vector<AttackedClass> OfControls(test::ClassList<CONTROLS...>)
{
    return {OfControl<CONTROLS>()...};
}

} // namespace

const std::vector<AttackedClass>& Classes()
{
    static const std::vector<AttackedClass> CLASSES = [] {
        std::vector<AttackedClass> classes = OfControls(test::AllControls());
        AddBases(classes);
        AddDialogs(classes);
        AddContainers(classes);
        AddTexts(classes);
        AddFields(classes);
        return classes;
    }();
    return CLASSES;
}

// --- What all controls are made by

std::vector<wchar_t> AnyCreationData(Source& source)
{
    const Text first = source.ShortText();
    const Text second = source.ShortText();
    std::vector<wchar_t> data{static_cast<wchar_t>(2 * (first.Length() + second.Length() + 2))};
    data.insert(data.end(), static_cast<LPCWSTR>(first), first + first.Length() + 1);
    data.insert(data.end(), static_cast<LPCWSTR>(second), second + second.Length() + 1);
    return data;
}

std::vector<BYTE> AnyItemData(Source& source)
{
    constexpr size_t AS_A_TAGS_MARK = 0xFFFF; // bytes
    const std::vector<wchar_t> data = AnyCreationData(source);
    const auto* pBytes = reinterpret_cast<const BYTE*>(data.data() + 1);
    std::vector<BYTE> bytes;
    if (source.Flag()) {
        bytes.assign(pBytes, pBytes + (data.size() - 1) * sizeof(wchar_t));
    }
    if (source.Chance(50)) {
        bytes.resize(AS_A_TAGS_MARK);
    }
    return bytes;
}

namespace {

INT_PTR CALLBACK DialogProc(HWND hDlg, UINT uMsg, WPARAM, LPARAM)
{
    NoteHostMessage(hDlg, uMsg);
    return FALSE;
}

} // namespace

HWND MakeInDialog(World& world, LPCWSTR pszClass, Source& source)
{
    constexpr WORD ID = 900;
    test::DialogTemplate dialog(WS_POPUP | WS_VISIBLE | (source.Flag() ? DS_SETFONT : 0), 180, 90,
                                source.Flag());
    const DWORD dwStyle = WS_TABSTOP | (source.Bits() & ~desk::ITEM_STYLES_LEFT_OUT);
    test::DialogItem item{dwStyle, ID, pszClass, L"Title"};
    item.data = AnyItemData(source);
    dialog.Add(item);
    const HWND hDlg = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), dialog.Get(), world.Host(),
                                                 DialogProc, reinterpret_cast<LPARAM>(&world));
    return GetDlgItem(hDlg, ID);
}

} // namespace attack
