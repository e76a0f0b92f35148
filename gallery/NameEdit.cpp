#include <gallery/NameEdit.h>

#include <commctrl.h>
#include <utility>

namespace gallery {
namespace {

constexpr int TEXT_LEFT = 22; // behind the image

} // namespace

void NameEdit::Begin(UINT item, UINT subItem)
{
    RECT rc{};
    m_list.GetItemRect(&rc, item, subItem);
    OffsetRect(&rc, -m_list.GetScrollPos(SB_HORZ), -m_list.GetScrollPos(SB_VERT));
    m_item = item;
    m_fAccept = true;
    m_hwnd = m_field.Create(rc.left + TEXT_LEFT, rc.top, rc.right - rc.left - TEXT_LEFT, rc.bottom - rc.top,
                            m_list, 1, L"", WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, 0);
    m_field.SetText(m_list.GetItemText(item, subItem));
    SetWindowSubclass(m_hwnd, &KeyProc, 0, reinterpret_cast<DWORD_PTR>(this));
    m_list.BeginEdit(1, &m_hwnd);
    m_field.SetSel(0, -1);
    SetFocus(m_hwnd);
}

std::wstring NameEdit::End()
{
    std::wstring name(static_cast<size_t>(GetWindowTextLengthW(m_hwnd)), L' ');
    GetWindowTextW(m_hwnd, name.data(), static_cast<int>(name.size()) + 1);
    m_list.EndEdit();
    DestroyWindow(std::exchange(m_hwnd, nullptr));
    return m_fAccept ? name : std::wstring();
}

LRESULT CALLBACK NameEdit::KeyProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                   DWORD_PTR data)
{
    auto& edit = *reinterpret_cast<NameEdit*>(data);
    if (uMsg == WM_GETDLGCODE) {
        return DLGC_WANTALLKEYS;
    }
    if (uMsg == WM_KEYDOWN && (wParam == VK_RETURN || wParam == VK_ESCAPE)) {
        edit.m_fAccept = wParam == VK_RETURN;
        SetFocus(edit.m_list);
        return 0;
    }
    return DefSubclassProc(hwnd, uMsg, wParam, lParam);
}

} // namespace gallery
