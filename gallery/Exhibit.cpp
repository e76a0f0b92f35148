#include <gallery/Exhibit.h>
#include <gallery/Picture.h>

#include <utility>

namespace gallery {
namespace {

constexpr UINT_PTR TIMER = 77;

// The picture that is to be taken of the dialog over an owner.
struct Order
{
    const Exhibit& exhibit;
    LPCWSTR pszPath;
    HWND hwndOwner;
    bool fPainted = false; // what a part of the screen shows
    bool fDone = false;
    bool fSaved = false;
};

// One at a time.
Order* s_pOrder = nullptr;

void SaveDialog(HWND hDlg)
{
    // The timer may be ahead of it, in which the owner brings the dialog to its dots.
    SendMessageW(s_pOrder->hwndOwner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(hDlg));
    if (s_pOrder->exhibit.prepare) {
        s_pOrder->exhibit.prepare(hDlg);
    }
    RedrawWindow(hDlg, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    s_pOrder->fSaved = SaveWholePicture(hDlg, s_pOrder->pszPath);
    EndDialog(hDlg, IDCANCEL);
}

BOOL CALLBACK PaintNow(HWND hwnd, LPARAM)
{
    RedrawWindow(hwnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return TRUE;
}

// Escape closes the list of a combo box.
void SavePart()
{
    s_pOrder->fSaved = SaveScreenPicture(s_pOrder->exhibit.rcPart, s_pOrder->pszPath);
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
}

void CALLBACK TakePicture(HWND hwnd, UINT, UINT_PTR uTimer, DWORD)
{
    const HWND hDlg = GetLastActivePopup(s_pOrder->hwndOwner);
    const bool fPart = !IsRectEmpty(&s_pOrder->exhibit.rcPart);
    // A busy machine lets the timer come before the dialog, which is shown when nothing waits any more.
    if (!fPart && (hDlg == s_pOrder->hwndOwner || !IsWindowVisible(hDlg))) {
        return;
    }
    // What has been painted is on the screen when nothing waits again.
    if (fPart && !std::exchange(s_pOrder->fPainted, true)) {
        EnumThreadWindows(GetCurrentThreadId(), &PaintNow, 0);
        GdiFlush();
        return;
    }
    KillTimer(hwnd, uTimer);
    s_pOrder->fDone = true;
    fPart ? SavePart() : SaveDialog(hDlg);
}

} // namespace

bool SaveExhibit(HWND hwndOwner, const Exhibit& exhibit, LPCWSTR pszPath)
{
    Order order{exhibit, pszPath, hwndOwner};
    s_pOrder = &order;
    SetTimer(hwndOwner, TIMER, USER_TIMER_MINIMUM, &TakePicture);
    exhibit.open();
    MSG msg{};
    while (!order.fDone && !IsRectEmpty(&exhibit.rcPart) && GetMessageW(&msg, nullptr, 0, 0) > 0) {
        DispatchMessageW(&msg);
    }
    KillTimer(hwndOwner, TIMER);
    s_pOrder = nullptr;
    return order.fSaved;
}

} // namespace gallery
