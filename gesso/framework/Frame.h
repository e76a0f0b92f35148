// The frame that all controls share: how a window and its object find each other and part again, the common
// rows of the window procedures, and the notifications to the parent.
#pragma once

#include <gesso/framework/Access.h>
#include <gesso/framework/CreateTag.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/NonClientPaint.h>
#include <gesso/framework/ThemeHandle.h>
#include <gesso/framework/WindowDpi.h>

#include <utility>

namespace gesso {

// A mouse message's point: two signed halves.
constexpr POINTS PointOf(LPARAM lParam)
{
    return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

// A point of the client area as the screen counts. A press in a bar holds the capture, so that the bar's
// moves come as the client area's.
inline POINTS ToScreen(HWND hwnd, POINTS pt)
{
    POINT ptScreen{pt.x, pt.y};
    ClientToScreen(hwnd, &ptScreen);
    return {static_cast<SHORT>(ptScreen.x), static_cast<SHORT>(ptScreen.y)};
}

// What GWS_HIDEACCEL adds to a text format.
constexpr UINT PrefixFormat(DWORD dwState)
{
    return dwState & GWS_HIDEACCEL ? DT_HIDEPREFIX : 0;
}

// Where and how large a control is to be, and who its parent is.
struct Placement
{
    int x, y, cx, cy;
    HWND hwndParent;
};

class Frame
{
public:
    // The window's extra bytes: the object at 0, the ownership word at 8.
    static constexpr int OBJECT_WORD = 0;
    static constexpr int OWNER_WORD = 8;
    static constexpr int EXTRA_BYTES = 12;

    // What a control's state is once its window is made: no cues, but those that are shown around it already.
    static DWORD FirstState(const GWnd& wnd);

    // The property of windows that were made in Modern, which other windows cannot have by chance.
    static constexpr LPCWSTR MODERN_MARK = L"gesso.modern";

    // --- Coming to life and going

    // Makes the window for an object that the host made. A window that the object still had goes on without
    // it. Returns null, with the platform's last error, where the window could not be made.
    static HWND CreateTagged(GWnd& wnd, ATOM aClass, const Placement& place, int nId, DWORD dwExStyle,
                             DWORD dwStyle);

    // WM_CREATE, or WM_NCCREATE for the classes that need their object that early: finds the tagged object or
    // makes one that the window owns, and lets its OnCreate or OnNcCreate finish the attachment.
    template <class CONTROL> static LRESULT Attach(HWND hwnd, LPARAM lParam)
    {
        const auto* pcs = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* pControl = static_cast<CONTROL*>(TaggedObject(*pcs));
        const bool fOwned = !pControl;
        if (fOwned) {
            pControl = new CONTROL;
            if constexpr (requires { pControl->Init(pcs->lpCreateParams); }) {
                pControl->Init(pcs->lpCreateParams);
            }
        }
        constexpr bool NON_CLIENT = FirstMessage<CONTROL>() == WM_NCCREATE;
        if (!Bind(hwnd, *pControl, fOwned)) {
            if (fOwned) {
                delete pControl;
            }
            return NON_CLIENT ? FALSE : -1; // the window cannot be made
        }
        if constexpr (NON_CLIENT) {
            const HWND hwndOuter = std::exchange(s_hwndAttaching, hwnd);
            const LRESULT lAnswer = pControl->OnNcCreate(pcs);
            s_hwndAttaching = hwndOuter;
            return lAnswer;
        } else {
            return pControl->OnCreate(pcs);
        }
    }

    // Whether a control's window was made in Modern. Asked through Has, by the name of a rule.
    static bool IsModern(HWND hwnd);
    // Lets the window own its object. False where the two are not attached.
    static bool GiveToWindow(GWnd& wnd);

    // --- The road of every message

    // What a class's WindowProc is: attaches at the class's first message, finds the object, and calls the
    // class's switch, its OnMessage. A window without an object, before that and after detachment, is the
    // platform's.
    template <class CONTROL> static LRESULT Route(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        MessageTrace trace(hwnd, uMsg, wParam, lParam);
        if (CONTROL* pControl = ObjectOf<CONTROL>(hwnd)) {
            return trace.Returned(Answer(*pControl, uMsg, wParam, lParam));
        }
        return trace.Returned(uMsg == FirstMessage<CONTROL>() ? Attach<CONTROL>(hwnd, lParam)
                                                              : Default(hwnd, uMsg, wParam, lParam));
    }

    // The tail of every class's switch: what all controls answer alike, and then the platform's handling. The
    // second form is for a handler that cannot know whether the object is still there.
    static LRESULT Default(const GWnd& wnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        return Default(wnd.m_hWnd, uMsg, wParam, lParam);
    }
    static LRESULT Default(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

    // The same for a class of dialogs: finds the object, which the window takes at WM_INITDIALOG, and calls
    // the class's switch, its OnMessage, with the window first: one object may run several. UNBOUND answers
    // where there is no object.
    using DialogTail = INT_PTR (*)(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);
    template <class DIALOG, DialogTail UNBOUND>
    static INT_PTR RouteDialog(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        MessageTrace trace(hDlg, uMsg, wParam, lParam);
        KeepDialog(hDlg, uMsg);
        ChangeLookOf(hDlg, uMsg);
        if (auto* pDialog = static_cast<DIALOG*>(DIALOG::ObjectOf(hDlg, uMsg, lParam))) {
            if (AsksDialog(*pDialog, hDlg, uMsg, wParam, lParam)) {
                return trace.Returned(INT_PTR{TRUE});
            }
            if (IsScalingMessage(uMsg) && TakeScaling(hDlg, uMsg, wParam) != ScalingChange::None) {
                const RECT* prcWanted = RectForDpi(hDlg, uMsg, lParam);
                // Of several dialogs the object is laid out for the last.
                pDialog->m_hWnd == hDlg ? pDialog->OnScaling(prcWanted) : TakeRect(hDlg, prcWanted);
                return trace.Returned(INT_PTR{TRUE});
            }
            const INT_PTR nAnswer = pDialog->OnMessage(hDlg, uMsg, wParam, lParam);
            if (uMsg == WM_INITDIALOG) {
                TellAccess(hDlg, EVENT_SYSTEM_DIALOGSTART);
            }
            return trace.Returned(nAnswer);
        }
        return trace.Returned(UNBOUND(hDlg, uMsg, wParam, lParam));
    }

    // The tail of every dialog's switch: what all dialogs answer alike, and then the platform's handling.
    // Reads nothing of the object.
    static INT_PTR DialogDefault(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam);
    // The head of the same: a dialog looks as the scheme has it, and hears of a change of the system's.
    static void ChangeLookOf(HWND hDlg, UINT uMsg);

    // --- Coming to life and going

    // The end of every detachment: deletes the object if its window owns it. Touch nothing of it afterwards.
    static LRESULT Detach(GWnd& wnd);

    // Takes the object away from its window, if that is still attached to it.
    static void Abandon(GWnd& wnd);

    // The object that answers a window's messages: null before attachment and after detachment.
    template <class CONTROL> static CONTROL* ObjectOf(HWND hwnd)
    {
        return static_cast<CONTROL*>(Attached(hwnd));
    }

    // Whether the window is still there and still this object's, to be asked after anything that a parent may
    // have answered by destroying either. Reads nothing of the object. Where the object need not be the
    // window's, a copy for one, a Watch tells.
    static bool IsAlive(HWND hwnd, const GWnd* pWnd) { return Attached(hwnd) == pWnd; }

    // --- The state word (GWS_), which is changed here and nowhere else

    static void SetState(GWnd& wnd, DWORD dwState);
    static void AddState(GWnd& wnd, DWORD dwBits) { SetState(wnd, wnd.m_dwState | dwBits); }
    static void ClearState(GWnd& wnd, DWORD dwBits) { SetState(wnd, wnd.m_dwState & ~dwBits); }
    // Adds the bits, or clears them.
    static void ChangeState(GWnd& wnd, DWORD dwBits, bool fOn)
    {
        fOn ? AddState(wnd, dwBits) : ClearState(wnd, dwBits);
    }

    // --- Common rows

    // Whether the control may paint now: WM_SETREDRAW holds the painting of one that was made in Modern.
    static bool Redraws(HWND hwnd);

    static LRESULT OnSetFocus(GWnd& wnd);
    // What a click does; the control may be gone when it returns.
    using ClickFunction = void (*)(GWnd& wnd);
    // A held space key clicks on losing the focus, unless the mouse button is held as well.
    static LRESULT OnKillFocus(GWnd& wnd, ClickFunction pfnClick = SendClick);
    static LRESULT OnEnable(GWnd& wnd, BOOL fEnable);
    static LRESULT OnStyleChanged(GWnd& wnd);
    static LRESULT OnCaptureChanged(GWnd& wnd, HWND hwndNew);
    static LRESULT OnMouseLeave(GWnd& wnd);
    template <class FONT> static LRESULT OnSetFont(GWnd& wnd, FONT& font, HFONT hFont, UINT uRedraw)
    {
        font = hFont;
        if (uRedraw) {
            wnd.Invalidate(0);
        }
        return 0;
    }
    // Closes the theme and opens the class anew.
    static LRESULT OnThemeChanged(GWnd& wnd, ThemeHandle& theme, LPCWSTR pszClass);
    // The UI-state rule, and then the platform's own handling.
    static LRESULT OnUpdateUIState(GWnd& wnd, WPARAM wParam, LPARAM lParam);

    // The window style, whole; setting it sends WM_STYLECHANGED, which repaints.
    static DWORD Style(const GWnd& wnd);
    static DWORD SetStyle(const GWnd& wnd, DWORD dwStyle);

    // Asks once for WM_MOUSELEAVE until it comes.
    static void TrackLeave(GWnd& wnd);

    // The top of Draw for a control that shows its parent through: writes the client rectangle and draws the
    // parent's background there. False where the parent, which is sent messages for it, destroyed the window
    // or its object: then nothing of either may be touched.
    static bool DrawParentBackground(const GWnd& wnd, HDC hdc, RECT* prcClient);

    // WM_PRINTCLIENT: draws straight into the given context.
    template <class CONTROL> static LRESULT OnPrintClient(CONTROL& control, HDC hdc, LPARAM lParam)
    {
        if (lParam & PRF_CLIENT) {
            LayoutOverlay overlay(control.m_hWnd, hdc);
            control.Draw(hdc);
            overlay.Show();
        }
        return 0;
    }

    // The same for a control with a frame of its own, which its NcDraw draws: WM_NCPAINT, and WM_PRINTCLIENT
    // with PRF_NONCLIENT. The parent draws the corner between two bars, and may destroy the control there.
    template <class CONTROL> static LRESULT OnNcPaint(CONTROL& control, WPARAM wRegion)
    {
        const NonClientPaint paint(control.m_hWnd, wRegion);
        control.NcDraw(paint.Context(), paint.WindowRect());
        return 0;
    }
    template <class CONTROL> static LRESULT OnPrintWhole(CONTROL& control, HDC hdc, LPARAM lParam)
    {
        const Watch watch(control);
        if (lParam & PRF_NONCLIENT) {
            const NonClientPrint print(control.m_hWnd, hdc);
            control.NcDraw(print.Context(), print.WindowRect());
        }
        return watch ? OnPrintClient(control, hdc, lParam) : 0;
    }

    // --- Notifications; the control may be gone when they return

    static void SendClick(GWnd& wnd);
    // WM_COMMAND with a notification code.
    static void SendCommand(const GWnd& wnd, UINT uCode);
    static void SendNotify(const GWnd& wnd, UINT uCode);
    // The same with a record that starts with the header, which this fills in. Returns the parent's answer.
    static LRESULT SendNotify(const GWnd& wnd, UINT uCode, NMHDR* pRecord);

    // --- Access for the shared parts of the controls

    static HWND Handle(const GWnd& wnd) { return wnd.m_hWnd; }
    static DWORD State(const GWnd& wnd) { return wnd.m_dwState; }

private:
    // The message that a class is attached at: WM_NCCREATE if it has a handler for that.
    template <class CONTROL> static constexpr UINT FirstMessage()
    {
        return requires(CONTROL & control)
        {
            control.OnNcCreate(nullptr);
        }
        ? WM_NCCREATE : WM_CREATE;
    }

    template <class CONTROL> static LRESULT Answer(CONTROL& control, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        if (IsScalingMessage(uMsg) && !FollowsScaling(control, TakeScaling(control.m_hWnd, uMsg, wParam))) {
            return 0;
        }
        if (LRESULT lObject = 0; AsksForObject(control, uMsg, wParam, lParam, &lObject)) {
            return lObject;
        }
        if constexpr (requires { control.OpenBarTheme(); }) {
            if (uMsg == WM_THEMECHANGED) {
                return ChangeBarTheme(control, wParam, lParam);
            }
        }
        if constexpr (requires { control.AnswersContextMenu(lParam); }) {
            if (uMsg == WM_CONTEXTMENU && control.AnswersContextMenu(lParam)) {
                return 0;
            }
        }
        LRESULT lAnswer = 0;
        return AnswersAlike(control, uMsg, wParam, lParam, &lAnswer)
                   ? lAnswer
                   : control.OnMessage(uMsg, wParam, lParam);
    }

    // WM_GETOBJECT of a control that describes itself, and the answer.
    template <class CONTROL>
    static bool AsksForObject(CONTROL& control, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
    {
        if constexpr (requires { CONTROL::Describes(); }) {
            return uMsg == WM_GETOBJECT &&
                   AnswersGetObject(control, control.m_hWnd, CONTROL::Describes(), wParam, lParam, plAnswer);
        } else {
            return false;
        }
    }

    // The same of a dialog, which answers by its window's word.
    template <class DIALOG>
    static bool AsksDialog(DIALOG& dialog, HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        if constexpr (requires { DIALOG::Describes(); }) {
            LRESULT lAnswer = 0;
            if (uMsg != WM_GETOBJECT ||
                !AnswersGetObject(dialog, hDlg, DIALOG::Describes(), wParam, lParam, &lAnswer)) {
                return false;
            }
            SetWindowLongPtrW(hDlg, DWLP_MSGRESULT, lAnswer);
            return true;
        } else {
            return false;
        }
    }

    // The window's measures are others: fonts and measures that the library made come anew, the style is
    // opened for them, and the parent hears of other dots once where the control shows images. False where
    // the control is gone afterwards. What is a class's own is its OnScaling, before the style is opened.
    template <class CONTROL> static bool FollowsScaling(CONTROL& control, ScalingChange change)
    {
        if (change == ScalingChange::None) {
            return true;
        }
        const Watch watch(control);
        if constexpr (requires { control.OnScaling(); }) {
            control.OnScaling();
        } else if constexpr (requires { static_cast<HFONT>(control.m_hFont); }) {
            if (IsDefaultFont(control.m_hFont)) {
                control.OnMessage(WM_SETFONT, reinterpret_cast<WPARAM>(DefaultFontOf(control.m_hWnd)), 0);
            }
        }
        if (watch) {
            Answer(control, WM_THEMECHANGED, 0, 0);
        }
        if (watch) {
            EndScaling(control, change == ScalingChange::Dpi && ShowsImages(control));
        }
        return watch;
    }
    static void EndScaling(GWnd& wnd, bool fTellsParent);
    // A dialog is one of the library's windows from WM_INITDIALOG to its end.
    static void KeepDialog(HWND hDlg, UINT uMsg);
    // What WM_DPICHANGED wants a top-level window to be; null for any other.
    static const RECT* RectForDpi(HWND hDlg, UINT uMsg, LPARAM lParam);
    static void TakeRect(HWND hwnd, const RECT* prcWanted);
    template <class CONTROL> static bool ShowsImages(const CONTROL& control)
    {
        if constexpr (requires { control.HasImages(); }) {
            return control.HasImages();
        } else if constexpr (requires { control.GetImageList(); }) {
            return control.GetImageList() != nullptr;
        } else if constexpr (requires { control.m_hImage; }) {
            return control.m_hImage != nullptr;
        } else {
            return false;
        }
    }

    // What all controls made in Modern do alike, before their class's switch: whether that is all, and the
    // answer. The first three are of single messages.
    static bool AnswersRedraw(const GWnd& wnd, UINT uMsg, WPARAM wParam);
    static bool ShowsCues(GWnd& wnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static bool AsksForContextMenu(UINT uMsg, WPARAM wParam);
    static bool AnswersAlike(GWnd& wnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);

    // WM_THEMECHANGED of every control with bars: what the class does, between bars and a frame of the new
    // style.
    template <class CONTROL> static LRESULT ChangeBarTheme(CONTROL& control, WPARAM wParam, LPARAM lParam)
    {
        const HWND hwnd = control.m_hWnd;
        control.OpenBarTheme();
        const LRESULT lAnswer = control.OnMessage(WM_THEMECHANGED, wParam, lParam);
        if (IsAlive(hwnd, &control)) {
            RenewFrame(hwnd);
        }
        return lAnswer;
    }
    // The frame's size and picture anew; the window may be gone afterwards. Nothing in WM_NCCREATE, where a
    // control that chooses its style hears of it before it has a frame.
    static void RenewFrame(HWND hwnd);
    static constinit thread_local HWND s_hwndAttaching;

    static GWnd* TaggedObject(const CREATESTRUCTW& cs);
    static GWnd* Attached(HWND hwnd);
    // False where the platform does not keep the object with the window.
    static bool Bind(HWND hwnd, GWnd& wnd, bool fOwned);
};

} // namespace gesso
