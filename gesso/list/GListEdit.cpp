// In-place editing: the host's edit windows run on the list's procedure meanwhile, which tells the list when
// one of them loses the focus.

#include <gesso/containers/Memory.h>
#include <gesso/containers/Misuse.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::Quirk;

namespace {

WNDPROC ProcOf(HWND hwnd)
{
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hwnd, GWLP_WNDPROC));
}

WNDPROC SetProc(HWND hwnd, WNDPROC pfn)
{
    return reinterpret_cast<WNDPROC>(SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pfn)));
}

// A block of null entries, one more than `count`. Null without memory.
template <class ENTRY> ENTRY* MakeTable(size_t count)
{
    // It is the pointers' own size that is meant.
    const size_t size = (count + 1) * sizeof(ENTRY); // NOLINT(bugprone-sizeof-expression)
    auto* first = static_cast<ENTRY*>(gesso::TryAllocate(size));
    if (first) {
        std::fill_n(first, count + 1, nullptr);
    }
    return first;
}

} // namespace

void GList::BeginEdit(UINT count, HWND* windows)
{
    auto* entries = MakeTable<HWND>(count);
    auto* procs = MakeTable<WNDPROC>(count);
    if (!entries || !procs) {
        gesso::Free(entries);
        gesso::Free(procs);
        return;
    }
    if (editWindows) {
        EndEdit();
    }
    editWindows = entries;
    editProcs = procs;
    m_inside->fEdits = true;
    UINT taken = 0;
    for (UINT i = 0; windows && i < count && windows[i]; ++i) {
        if (::GetParent(windows[i]) != m_hWnd || EditProcOf(windows[i])) {
            gesso::Misuse("GList::BeginEdit: a window that is no child of the list, or named twice");
            continue;
        }
        if (const WNDPROC pfn = SetProc(windows[i], ListEditProc)) {
            editProcs[taken] = pfn;
            editWindows[taken++] = windows[i];
        }
    }
}

void GList::EndEdit()
{
    if (!editWindows) {
        gesso::Misuse("GList::EndEdit: no edit in progress");
        return;
    }
    GList* editor = Editor();
    HWND* windows = std::exchange(editWindows, nullptr);
    WNDPROC* procs = std::exchange(editProcs, nullptr);
    if (editor != this) {
        return editor ? editor->EndEdit() : void();
    }
    m_inside->fEdits = false;
    for (UINT i = 0; windows[i]; ++i) {
        if (IsWindow(windows[i])) {
            SetProc(windows[i], procs[i]);
        }
    }
    gesso::Free(windows);
    gesso::Free(procs);
}

// The list whose edit this is, which a copy has taken over: the window's own. Null where it is over.
GList* GList::Editor() const
{
    auto* editor = m_inside->fEdits ? const_cast<GList*>(this) : Frame::ObjectOf<GList>(m_hWnd);
    return editor && editor->m_inside->fEdits && editor->editWindows == editWindows ? editor : nullptr;
}

// The window's own procedure; null for a window that is none of the edit's.
WNDPROC GList::EditProcOf(HWND hwnd) const
{
    for (UINT i = 0; editWindows && Editor() && editWindows[i]; ++i) {
        if (editWindows[i] == hwnd) {
            return editProcs[i];
        }
    }
    return nullptr;
}

bool GList::IsFocusInside() const
{
    const HWND hwndFocus = GetFocus();
    return hwndFocus && (hwndFocus == m_hWnd || EditProcOf(hwndFocus));
}

LRESULT CALLBACK GList::ListEditProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const HWND hwndList = ::GetParent(hwnd);
    if (uMsg == WM_KILLFOCUS) {
        NMHDR header{hwnd, static_cast<UINT_PTR>(GetDlgCtrlID(hwnd)), static_cast<UINT>(NM_KILLFOCUS)};
        SendMessageW(hwndList, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
        if (!IsWindow(hwnd)) {
            return 0;
        }
    }
    // The host may have ended the edit in the notification, or begun another, or destroyed any of the two
    // windows.
    const auto* list = Frame::ObjectOf<GList>(hwndList);
    const WNDPROC pfnSaved = list ? list->EditProcOf(hwnd) : nullptr;
    const WNDPROC pfn = pfnSaved ? pfnSaved : ProcOf(hwnd);
    if (!pfn || pfn == ListEditProc) {
        return Frame::Default(hwnd, uMsg, wParam, lParam);
    }
    const bool fTakesAll = pfnSaved && list->TakesForEdit(uMsg, reinterpret_cast<const MSG*>(lParam));
    return CallWindowProcW(pfn, hwnd, uMsg, wParam, lParam) | (fTakesAll ? DLGC_WANTALLKEYS : 0);
}

// Whether a dialog asks for Enter or Esc, which end an edit in progress rather than the dialog.
bool GList::TakesForEdit(UINT uMsg, const MSG* pMessage) const
{
    const bool fKey = uMsg == WM_GETDLGCODE && pMessage && pMessage->message == WM_KEYDOWN &&
                      (pMessage->wParam == VK_RETURN || pMessage->wParam == VK_ESCAPE);
    return fKey && !Has(*this, Quirk::ListTakesAllKeys);
}

// Fixed behaviour: a child's loss of the focus is the end of its edit to the parent, also where the focus
// goes to another of the edit's windows. A host that takes each field's text as it is left would else lose
// some.
LRESULT GList::OnNotify(UINT, const NMHDR* pHeader)
{
    if (pHeader && pHeader->code == static_cast<UINT>(NM_KILLFOCUS)) {
        Frame::SendNotify(*this, static_cast<UINT>(LVN_FIRST));
    }
    return 0;
}
