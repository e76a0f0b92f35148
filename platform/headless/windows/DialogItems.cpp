#include "DialogItems.h"
#include "Send.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

bool IsUsableControl(const Window& control)
{
    return control.Has(WS_VISIBLE) && !control.Has(WS_DISABLED);
}

// The controls in tab order. A window with WS_EX_CONTROLPARENT stands for those in it.
void CollectControls(const Window& parent, std::vector<Window*>& out)
{
    for (Window* child : parent.children) {
        if ((child->exStyle & WS_EX_CONTROLPARENT) && !child->children.empty()) {
            if (IsUsableControl(*child)) {
                CollectControls(*child, out);
            }
        } else {
            out.push_back(child);
        }
    }
}

std::vector<Window*> ControlsOf(const Window& dialog)
{
    std::vector<Window*> controls;
    CollectControls(dialog, controls);
    return controls;
}

// The place of a window, or of the control that it lies in; the number of controls if it is in none.
size_t PlaceOf(const std::vector<Window*>& controls, HWND hwnd)
{
    const WindowRef window = Peek(hwnd);
    for (size_t i = 0; window && i < controls.size(); ++i) {
        if (IsWithin(*window, *controls[i])) {
            return i;
        }
    }
    return controls.size();
}

// Goes round the controls of [first, last) from the one behind `from`, which comes last itself. With no
// control to start from it begins at an end.
template <typename WANTED>
HWND NextOf(const std::vector<Window*>& controls, size_t first, size_t last, size_t from, bool previous,
            WANTED wanted)
{
    const size_t count = last - first;
    const bool fresh = from >= last;
    const size_t start = fresh ? (previous ? 0 : count - 1) : from - first;
    for (size_t step = 1; step <= count; ++step) {
        const size_t at = first + (start + (previous ? count - step : step)) % count;
        if (wanted(*controls[at])) {
            return controls[at]->handle;
        }
    }
    return nullptr;
}

std::pair<size_t, size_t> GroupAround(const std::vector<Window*>& controls, size_t at)
{
    size_t first = at;
    while (first > 0 && !controls[first]->Has(WS_GROUP)) {
        --first;
    }
    size_t last = at + 1;
    while (last < controls.size() && !controls[last]->Has(WS_GROUP)) {
        ++last;
    }
    return {first, last};
}

// Every window of the dialog that can be seen and used, in order.
void CollectUsable(const Window& parent, std::vector<HWND>& out)
{
    for (const Window* child : parent.children) {
        if (IsUsableControl(*child)) {
            out.push_back(child->handle);
            CollectUsable(*child, out);
        }
    }
}

WPARAM Capital(WPARAM character)
{
    return character >= 'a' && character <= 'z' ? character - ('a' - 'A') : character;
}

bool HasMnemonic(HWND control, WPARAM character)
{
    wchar_t buffer[256];
    const int length = GetWindowTextW(control, buffer, static_cast<int>(std::size(buffer)));
    const WideView text = View(buffer).substr(0, static_cast<size_t>(std::max(length, 0)));
    for (size_t at = text.find(u'&'); at + 1 < text.size(); at = text.find(u'&', at + 2)) {
        if (text[at + 1] != u'&') {
            return Capital(text[at + 1]) == Capital(character);
        }
    }
    return false;
}

// A label passes its mnemonic on to the control behind it.
void CarryOut(HWND dialog, HWND control, LRESULT code)
{
    if (code & DLGC_STATIC) {
        const HWND next = GetNextDlgTabItem(dialog, control, FALSE);
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
    } else {
        SendMessageW(control, BM_CLICK, 0, 0);
    }
}

bool IsPushButton(HWND control)
{
    return control && (DialogCode(control) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON));
}

void MoveDefaultStyle(HWND dialog, HWND former, HWND next)
{
    if (!former || !(DialogCode(former) & DLGC_DEFPUSHBUTTON)) {
        former = FindDefaultButton(dialog);
    }
    if (former && former != next) {
        SendMessageW(former, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    }
    if (next && (DialogCode(next) & DLGC_UNDEFPUSHBUTTON)) {
        SendMessageW(next, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    }
}

} // namespace

LRESULT DialogCode(HWND control)
{
    return SendMessageW(control, WM_GETDLGCODE, 0, 0);
}

HWND FindDefaultButton(HWND dialog)
{
    const WindowRef window = Peek(dialog);
    if (!window) {
        return nullptr;
    }
    std::vector<HWND> handles;
    for (const Window* control : ControlsOf(*window)) {
        handles.push_back(control->handle);
    }
    // A control that is asked may destroy any.
    const auto found = std::find_if(handles.begin(), handles.end(), [](HWND handle) {
        const WindowRef control = Peek(handle);
        return control && !control->Has(WS_DISABLED) && (DialogCode(handle) & DLGC_DEFPUSHBUTTON);
    });
    return found != handles.end() ? *found : nullptr;
}

void SetDefaultId(Window& dialog, UINT id)
{
    const HWND former = dialog.dialog->defaultId
                            ? GetDlgItem(dialog.handle, static_cast<int>(dialog.dialog->defaultId))
                            : nullptr;
    const HWND next = GetDlgItem(dialog.handle, static_cast<int>(id));
    dialog.dialog->defaultId = id;
    if (!next || IsPushButton(next)) {
        MoveDefaultStyle(dialog.handle, former, next);
    }
}

void ShowDefaultFor(HWND hwnd, HWND focus)
{
    const WindowRef dialog = Peek(hwnd);
    if (!dialog || !dialog->dialog) {
        return;
    }
    const UINT id = dialog->dialog->defaultId;
    const HWND real = id ? GetDlgItem(hwnd, static_cast<int>(id)) : nullptr;
    MoveDefaultStyle(hwnd, real, IsPushButton(focus) ? focus : real);
}

void FocusControl(HWND control)
{
    if (DialogCode(control) & DLGC_HASSETSEL) {
        SendMessageW(control, EM_SETSEL, 0, -1);
    }
    SetFocus(control);
}

bool PressMnemonic(HWND hwnd, HWND from, WPARAM character)
{
    const WindowRef dialog = Peek(hwnd);
    if (!dialog) {
        return false;
    }
    std::vector<HWND> controls;
    CollectUsable(*dialog, controls);
    const auto start = std::find(controls.begin(), controls.end(), from);
    if (start != controls.end()) {
        std::rotate(controls.begin(), start, controls.end());
    }
    for (const HWND control : controls) {
        const LRESULT code = DialogCode(control);
        if ((code & (DLGC_BUTTON | DLGC_STATIC)) && HasMnemonic(control, character)) {
            CarryOut(hwnd, control, code);
            return true;
        }
    }
    return false;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

HWND WINAPI GetDlgItem(HWND hwnd, int id)
{
    const TableLock lock;
    if (FaultFires("GetDlgItem")) {
        return nullptr;
    }
    const WindowRef dialog = Find(hwnd);
    if (!dialog) {
        return nullptr;
    }
    for (const Window* child : dialog->children) {
        if (static_cast<int>(child->id) == id) {
            return child->handle;
        }
    }
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

HWND WINAPI GetNextDlgTabItem(HWND hwnd, HWND control, BOOL previous)
{
    const TableLock lock;
    if (FaultFires("GetNextDlgTabItem")) {
        return nullptr;
    }
    const WindowRef dialog = Find(hwnd);
    if (!dialog) {
        return nullptr;
    }
    const auto controls = ControlsOf(*dialog);
    if (controls.empty()) {
        return nullptr;
    }
    const auto takesTab = [](const Window& c) { return c.Has(WS_TABSTOP) && IsUsableControl(c); };
    return NextOf(controls, 0, controls.size(), PlaceOf(controls, control), previous, takesTab);
}

HWND WINAPI GetNextDlgGroupItem(HWND hwnd, HWND control, BOOL previous)
{
    const TableLock lock;
    const WindowRef dialog = Find(hwnd);
    if (!dialog) {
        return nullptr;
    }
    const auto controls = ControlsOf(*dialog);
    if (controls.empty()) {
        return nullptr;
    }
    const size_t at = PlaceOf(controls, control);
    const auto [first, last] = GroupAround(controls, at < controls.size() ? at : 0);
    const HWND next = NextOf(controls, first, last, at, previous, IsUsableControl);
    return next ? next : control;
}

LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    const CallsBy platform(Caller::Platform);
    const HWND control = GetDlgItem(dialog, id);
    return control ? SendMessageW(control, message, wParam, lParam) : 0;
}

BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text)
{
    return static_cast<BOOL>(SendDlgItemMessageW(dialog, id, WM_SETTEXT, 0, Pointer(text)));
}

UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int capacity)
{
    const CallsBy platform(Caller::Platform);
    const HWND control = GetDlgItem(dialog, id);
    return control ? static_cast<UINT>(GetWindowTextW(control, buffer, capacity)) : 0;
}

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id)
{
    return static_cast<UINT>(SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check)
{
    SendDlgItemMessageW(dialog, id, BM_SETCHECK, check, 0);
    return TRUE;
}

BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int checked)
{
    for (int id = first; id <= last; ++id) {
        CheckDlgButton(dialog, id, id == checked ? BST_CHECKED : BST_UNCHECKED);
    }
    return TRUE;
}
}
