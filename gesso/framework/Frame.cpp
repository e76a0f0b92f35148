#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/Behavior.h>
#include <gesso/framework/BehaviorMark.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/FontChange.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/KeyboardCues.h>
#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Ownership.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/SystemAppearance.h>
#include <gesso/framework/WindowDpi.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace gesso {
namespace {

constexpr WORD TAG_MARK = 0xFFFF;

// Bits of the ownership word. All but the first are ours. Behind DETACHED the pointer beside the word stays
// as it is, but is followed no more.
constexpr LONG WINDOW_OWNS = 1;
constexpr LONG DETACHED = 2;
constexpr LONG MODERN = 4;
constexpr LONG HOLDS_PAINT = 8;
constexpr LONG GIVEN = 16;

LONG WordOf(HWND hwnd)
{
    return GetWindowLongW(hwnd, Frame::OWNER_WORD);
}

// Asking costs nothing beside setting.
bool SetWord(HWND hwnd, LONG nWord)
{
    if (WordOf(hwnd) == nWord) {
        return true;
    }
    SetWindowLongW(hwnd, Frame::OWNER_WORD, nWord);
    return WordOf(hwnd) == nWord;
}

// Of the state word: what a window and its user make, and no host.
constexpr DWORD OF_THE_USER = 0xFFFF & ~(GWS_HIDEFOCUS | GWS_HIDEACCEL);

// The menu key's release asks for a menu. Where the platform does so as well, as it does for real input, its
// message waits already.
void AskForContextMenu(HWND hwnd)
{
    constexpr LPARAM BY_THE_KEYBOARD = -1; // -1 and -1
    MSG msg{};
    const bool fWaits = PeekMessageW(&msg, hwnd, WM_CONTEXTMENU, WM_CONTEXTMENU, PM_NOREMOVE) &&
                        msg.message == WM_CONTEXTMENU; // and not that the program is to end
    if (!fWaits) {
        SendMessageW(hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hwnd), BY_THE_KEYBOARD);
    }
}

// The tag that CreateTagged hands over; nobody else's creation data lies there.
constinit thread_local const stcCreateTag* s_pOwnTag = nullptr;

// Whether a window is one of a dialog template's: its dialog has a procedure already, and the dialog manager
// has every control's parent hear nothing. What such a window is made with lies in the template and is no
// tag, though its size may be the tag's mark.
bool IsOfTemplate(const CREATESTRUCTW& cs)
{
    return cs.lpCreateParams != s_pOwnTag && (cs.dwExStyle & WS_EX_NOPARENTNOTIFY) && cs.hwndParent &&
           GetWindowLongPtrW(cs.hwndParent, DWLP_DLGPROC);
}

// Windows whose object has gone, where the platform let neither word be written. None, as long as it keeps
// what is its own.
thread_local std::vector<HWND> s_forsaken;

// With the last of them nobody is left who would follow the system.
void Forget(HWND hwnd)
{
    EndAccess(hwnd);
    ForgetWindow(hwnd);
    if (!HasLibraryWindows()) {
        StopFollowing();
    }
}

void MarkDetached(HWND hwnd)
{
    const LONG nWord = WordOf(hwnd);
    if (!(nWord & DETACHED)) {
        if (!SetWord(hwnd, nWord | DETACHED)) {
            SetWindowLongPtrW(hwnd, Frame::OBJECT_WORD, 0); // rather than be followed once the object is gone
            if (GWnd::FromHwnd(hwnd)) {
                s_forsaken.push_back(hwnd);
            }
        }
        Forget(hwnd);
    }
}

} // namespace

bool IsGivenToWindow(HWND hwnd)
{
    return WordOf(hwnd) & GIVEN;
}

HWND Frame::CreateTagged(GWnd& wnd, ATOM aClass, const Placement& place, int nId, DWORD dwExStyle,
                         DWORD dwStyle)
{
    Abandon(wnd);
    wnd.m_hWnd = nullptr;
    stcCreateTag tag{TAG_MARK, &wnd};
    const stcCreateTag* pFormerTag = std::exchange(s_pOwnTag, &tag);
    const Lifeline life(wnd);
    const HWND hwnd = IsolationAwareCreateWindowExW(
        dwExStyle, MAKEINTRESOURCEW(aClass), nullptr, dwStyle, place.x, place.y, place.cx, place.cy,
        place.hwndParent, reinterpret_cast<HMENU>(static_cast<LONG_PTR>(nId)), nullptr, &tag);
    s_pOwnTag = pFormerTag;
    // The parent is told of a new child, and may have deleted the object, or given it another window.
    if (life && !(wnd.m_hWnd && IsAlive(wnd.m_hWnd, &wnd))) {
        wnd.m_hWnd = hwnd;
    }
    return hwnd;
}

GWnd* Frame::TaggedObject(const CREATESTRUCTW& cs)
{
    stcCreateTag tag{};
    if (!cs.lpCreateParams || IsOfTemplate(cs)) {
        return nullptr;
    }
    std::memcpy(&tag.wMark, cs.lpCreateParams, sizeof(tag.wMark));
    if (tag.wMark != TAG_MARK) {
        return nullptr;
    }
    std::memcpy(&tag, cs.lpCreateParams, sizeof(tag));
    return static_cast<GWnd*>(tag.pObject);
}

GWnd* Frame::Attached(HWND hwnd)
{
    GWnd* pWnd = GWnd::FromHwnd(hwnd);
    if (!s_forsaken.empty() && std::ranges::find(s_forsaken, hwnd) != s_forsaken.end()) {
        return nullptr;
    }
    return pWnd && !(WordOf(hwnd) & DETACHED) ? pWnd : nullptr;
}

bool Frame::Bind(HWND hwnd, GWnd& wnd, bool fOwned)
{
    // A host that makes the windows itself may tag two with one object. The former would go on with an object
    // that answers for the other window, and its paints would never end.
    Abandon(wnd);
    std::erase(s_forsaken, hwnd); // of a former window with this handle
    EndAccess(hwnd);              // the same: a thread's end leaves what was given out of its windows
    const bool fModern = GetBehavior() == Behavior::Modern;
    if (fModern && !SetPropW(hwnd, MODERN_MARK, reinterpret_cast<HANDLE>(1))) {
        return false;
    }
    if (!SetWord(hwnd, (fOwned ? WINDOW_OWNS : 0) | (fModern ? MODERN : 0))) {
        return false;
    }
    if (!KeepWindow(hwnd)) {
        return false;
    }
    SetWindowLongPtrW(hwnd, OBJECT_WORD, reinterpret_cast<LONG_PTR>(&wnd));
    if (GWnd::FromHwnd(hwnd) != &wnd) {
        SetWindowLongPtrW(hwnd, OBJECT_WORD, 0);
        ForgetWindow(hwnd);
        return false;
    }
    wnd.m_hWnd = hwnd;
    if (!Has(wnd, Quirk::StateOutlivesWindow)) {
        wnd.m_dwState &= ~OF_THE_USER;
    }
    FollowSystem();
    return true;
}

LRESULT Frame::Detach(GWnd& wnd)
{
    const HWND hwnd = wnd.m_hWnd;
    const bool fOwned = WordOf(hwnd) & WINDOW_OWNS;
    MarkDetached(hwnd);
    if (fOwned) {
        delete &wnd;
    }
    return 0;
}

void Frame::Abandon(GWnd& wnd)
{
    if (wnd.m_hWnd && GWnd::FromHwnd(wnd.m_hWnd) == &wnd) {
        MarkDetached(wnd.m_hWnd);
    }
}

bool Frame::IsModern(HWND hwnd)
{
    return WordOf(hwnd) & MODERN;
}

bool TakeBehavior(HWND hwnd, HWND hwndOwner)
{
    TakeDpi(hwnd, hwndOwner);
    const bool fModern = Frame::IsModern(hwndOwner);
    const LONG nWord = WordOf(hwnd);
    if (fModern == ((nWord & MODERN) != 0)) {
        return true;
    }
    if (!SetPropW(hwnd, Frame::MODERN_MARK, reinterpret_cast<HANDLE>(INT_PTR{fModern}))) {
        return false;
    }
    return SetWord(hwnd, fModern ? nWord | MODERN : nWord & ~MODERN);
}

bool Frame::GiveToWindow(GWnd& wnd)
{
    const HWND hwnd = wnd.m_hWnd;
    return hwnd && Attached(hwnd) == &wnd && SetWord(hwnd, WordOf(hwnd) | WINDOW_OWNS | GIVEN);
}

bool Frame::Redraws(HWND hwnd)
{
    return !(WordOf(hwnd) & HOLDS_PAINT);
}

DWORD Frame::FirstState(const GWnd& wnd)
{
    constexpr DWORD HIDDEN = GWS_HIDEFOCUS | GWS_HIDEACCEL;
    if (Has(wnd, Quirk::CuesStayHidden)) {
        return HIDDEN;
    }
    return HIDDEN & ~StateOfCues(CuesShownAround(wnd.m_hWnd));
}

bool Frame::ShowsCues(GWnd& wnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (!(wnd.m_dwState & (GWS_HIDEFOCUS | GWS_HIDEACCEL)) || Has(wnd, Quirk::CuesStayHidden)) {
        return false;
    }
    const WORD wCues = CuesOfMessage(uMsg, wParam, lParam);
    if (!(StateOfCues(wCues) & wnd.m_dwState)) {
        return false;
    }
    const HWND hwnd = wnd.m_hWnd;
    ShowCues(GetAncestor(hwnd, GA_ROOT), wCues);
    return !IsAlive(hwnd, &wnd);
}

bool Frame::AsksForContextMenu(UINT uMsg, WPARAM wParam)
{
    return uMsg == WM_CONTEXTMENU || (uMsg == WM_KEYUP && wParam == VK_APPS);
}

bool Frame::AnswersAlike(GWnd& wnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    if (uMsg == WM_FONTCHANGE) {
        ForgetFonts();
    } else if (uMsg == WM_SYSCOLORCHANGE) {
        TakeSystemColorsFor(wnd.m_hWnd);
    } else if (uMsg == WM_PAINT) {
        FollowSystem();
    }
    if (AsksForContextMenu(uMsg, wParam) && !Has(wnd, Quirk::ContextMenuEnds)) {
        if (uMsg == WM_KEYUP) {
            AskForContextMenu(wnd.m_hWnd);
        } else {
            *plAnswer = Default(wnd, uMsg, wParam, lParam);
        }
        return true;
    }
    if (uMsg == WM_UPDATEUISTATE && !Has(wnd, Quirk::CuesStayHidden)) {
        *plAnswer = OnUpdateUIState(wnd, wParam, lParam); // also of those that have no cues in Classic
        return true;
    }
    return AnswersRedraw(wnd, uMsg, wParam) || ShowsCues(wnd, uMsg, wParam, lParam);
}

bool Frame::AnswersRedraw(const GWnd& wnd, UINT uMsg, WPARAM wParam)
{
    const HWND hwnd = wnd.m_hWnd;
    switch (uMsg) {
    case WM_SETREDRAW:
        if (Has(wnd, Quirk::RedrawShows)) {
            return false;
        }
        SetWord(hwnd, wParam ? WordOf(hwnd) & ~HOLDS_PAINT : WordOf(hwnd) | HOLDS_PAINT);
        if (wParam) {
            RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        }
        return true;
    case WM_PAINT:
        if (Redraws(hwnd)) {
            return false;
        }
        Default(hwnd, WM_PAINT, 0, 0); // counts as painted
        return true;
    case WM_NCPAINT: return !Redraws(hwnd);
    default: return false;
    }
}

LRESULT Frame::OnSetFocus(GWnd& wnd)
{
    wnd.Invalidate(0);
    SendNotify(wnd, static_cast<UINT>(NM_SETFOCUS));
    return 0;
}

LRESULT Frame::OnKillFocus(GWnd& wnd, ClickFunction pfnClick)
{
    const HWND hwnd = wnd.m_hWnd;
    wnd.Invalidate(0);
    if (wnd.m_dwState & GWS_KEYDOWN) {
        ClearState(wnd, GWS_KEYDOWN);
        if (!(wnd.m_dwState & GWS_PRESSED)) {
            pfnClick(wnd);
        }
    }
    if (IsAlive(hwnd, &wnd)) {
        SendNotify(wnd, static_cast<UINT>(NM_KILLFOCUS));
    }
    return 0;
}

LRESULT Frame::OnEnable(GWnd& wnd, BOOL fEnable)
{
    if (!fEnable) {
        ClearState(wnd, GWS_HOT | GWS_PRESSED | GWS_KEYDOWN);
    }
    const HWND hwnd = wnd.m_hWnd;
    wnd.Invalidate(0);
    if (hwnd && IsDrawnFlat()) { // edges tell whether it is enabled
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    }
    TellAccess(hwnd, EVENT_OBJECT_STATECHANGE);
    return 0;
}

LRESULT Frame::OnStyleChanged(GWnd& wnd)
{
    wnd.Invalidate(0);
    return 0;
}

LRESULT Frame::OnCaptureChanged(GWnd& wnd, HWND hwndNew)
{
    if (hwndNew != wnd.m_hWnd) {
        ClearState(wnd, GWS_PRESSED);
    }
    return 0;
}

LRESULT Frame::OnMouseLeave(GWnd& wnd)
{
    ClearState(wnd, GWS_HOT | GWS_TRACKING);
    wnd.Invalidate(0);
    return 0;
}

LRESULT Frame::OnThemeChanged(GWnd& wnd, ThemeHandle& theme, LPCWSTR pszClass)
{
    theme.Open(wnd.m_hWnd, pszClass);
    wnd.Invalidate(0);
    return 0;
}

void Frame::KeepDialog(HWND hDlg, UINT uMsg)
{
    if (uMsg == WM_INITDIALOG) {
        EndAccess(hDlg);  // of a former window with this handle
        KeepWindow(hDlg); // without memory it does not hear of SetScaling
    } else if (uMsg == WM_DESTROY) {
        TellAccess(hDlg, EVENT_SYSTEM_DIALOGEND);
    } else if (uMsg == WM_NCDESTROY) {
        Forget(hDlg);
    }
}

const RECT* Frame::RectForDpi(HWND hDlg, UINT uMsg, LPARAM lParam)
{
    const bool fChild = GetWindowLongW(hDlg, GWL_STYLE) & WS_CHILD;
    return uMsg == WM_DPICHANGED && !fChild ? reinterpret_cast<const RECT*>(lParam) : nullptr;
}

void Frame::TakeRect(HWND hwnd, const RECT* prcWanted)
{
    if (prcWanted) {
        SetWindowPos(hwnd, nullptr, prcWanted->left, prcWanted->top, prcWanted->right - prcWanted->left,
                     prcWanted->bottom - prcWanted->top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void Frame::EndScaling(GWnd& wnd, bool fTellsParent)
{
    wnd.Invalidate(0);
    if (fTellsParent) {
        SendNotify(wnd, GN_DPICHANGED);
    }
}

constinit thread_local HWND Frame::s_hwndAttaching = nullptr;

void Frame::RenewFrame(HWND hwnd)
{
    if (hwnd == s_hwndAttaching) {
        return;
    }
    SetWindowPos(hwnd, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

LRESULT Frame::OnUpdateUIState(GWnd& wnd, WPARAM wParam, LPARAM lParam)
{
    const HWND hwnd = wnd.m_hWnd;
    wnd.OnUpdateUIState(LOWORD(wParam), HIWORD(wParam));
    return Default(hwnd, WM_UPDATEUISTATE, wParam, lParam);
}

LRESULT Frame::Default(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

INT_PTR Frame::DialogDefault(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

void Frame::ChangeLookOf(HWND hDlg, UINT uMsg)
{
    FitCaption(hDlg, uMsg);
    if (uMsg == WM_SETTINGCHANGE || uMsg == WM_SYSCOLORCHANGE || uMsg == WM_THEMECHANGED) {
        TakeSystemColors();
    }
}

void Frame::SetState(GWnd& wnd, DWORD dwState)
{
    wnd.m_dwState = dwState;
}

DWORD Frame::Style(const GWnd& wnd)
{
    return static_cast<DWORD>(GetWindowLongW(wnd.m_hWnd, GWL_STYLE));
}

DWORD Frame::SetStyle(const GWnd& wnd, DWORD dwStyle)
{
    return static_cast<DWORD>(SetWindowLongA(wnd.m_hWnd, GWL_STYLE, static_cast<LONG>(dwStyle)));
}

void Frame::TrackLeave(GWnd& wnd)
{
    if (wnd.m_dwState & GWS_TRACKING) {
        return;
    }
    TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_LEAVE, wnd.m_hWnd, 0};
    ChangeState(wnd, GWS_TRACKING, TrackMouseEvent(&track)); // the next move asks again
}

bool Frame::DrawParentBackground(const GWnd& wnd, HDC hdc, RECT* prcClient)
{
    const Watch watch(wnd);
    GetClientRect(wnd.m_hWnd, prcClient);
    const HWND hwndParent = IsMirrored(wnd.m_hWnd) ? GetAncestor(wnd.m_hWnd, GA_PARENT) : nullptr;
    if (!hwndParent || IsMirrored(hwndParent)) {
        DrawThemeParentBackground(wnd.m_hWnd, hdc, prcClient);
        return watch;
    }
    // The control alone is mirrored: its parent draws from the left.
    const UprightScope upright(hdc, 0, prcClient->right);
    OffsetViewportOrgEx(hdc, upright.Left(), 0, nullptr);
    DrawThemeParentBackground(wnd.m_hWnd, hdc, prcClient);
    return watch;
}

void Frame::SendClick(GWnd& wnd)
{
    SendCommand(wnd, BN_CLICKED);
}

void Frame::SendCommand(const GWnd& wnd, UINT uCode)
{
    SendMessageW(wnd.GetParent(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(wnd.m_hWnd), uCode),
                 reinterpret_cast<LPARAM>(wnd.m_hWnd));
}

void Frame::SendNotify(const GWnd& wnd, UINT uCode)
{
    NMHDR header{};
    SendNotify(wnd, uCode, &header);
}

LRESULT Frame::SendNotify(const GWnd& wnd, UINT uCode, NMHDR* pRecord)
{
    *pRecord = {wnd.m_hWnd, static_cast<UINT_PTR>(GetDlgCtrlID(wnd.m_hWnd)), uCode};
    return SendMessageW(wnd.GetParent(), WM_NOTIFY, pRecord->idFrom, reinterpret_cast<LPARAM>(pRecord));
}

} // namespace gesso
