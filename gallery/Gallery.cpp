#include <gallery/Gallery.h>
#include <gallery/Layout.h>
#include <gallery/Picture.h>
#include <gallery/Report.h>
#include <gallery/Scale.h>
#include <gallery/Shades.h>

#include <cstdio>
#include <cwctype>

namespace gallery {
namespace {

constexpr LPCWSTR CLASS_NAME = L"GessoGallery";
constexpr LPCWSTR TITLE = L"Gesso gallery";
constexpr DWORD WINDOW_STYLE = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr DWORD WINDOW_EX_STYLE = WS_EX_CONTROLPARENT;

constexpr int REPORT_HEIGHT = 88;
constexpr SIZE CLIENT_SIZE = {PageList::WIDTH + 852, CommandBar::HEIGHT + 612 + REPORT_HEIGHT};

SIZE ClientSize(HWND hwnd)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    return {rc.right, rc.bottom};
}

ATOM RegisterMainClass(WNDPROC pfnWindowProc)
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = pfnWindowProc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.lpszClassName = CLASS_NAME;
    return RegisterClassW(&wc);
}

void HandleMessagesUntilIdle()
{
    MSG msg{};
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

// Ctrl+Tab leaves a field of many lines, which takes Tab itself from the dialog manager.
bool LeaveField(HWND hwndTop, const MSG& msg)
{
    if (msg.message != WM_KEYDOWN || msg.wParam != VK_TAB || GetKeyState(VK_CONTROL) >= 0) {
        return false;
    }
    SetFocus(GetNextDlgTabItem(hwndTop, msg.hwnd, GetKeyState(VK_SHIFT) < 0));
    return true;
}

// Until nothing waits to be painted.
void Settle(HWND hwnd)
{
    HandleMessagesUntilIdle();
    RedrawWindow(hwnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

// Says where a picture went. False where it could not be saved.
bool Tell(bool fSaved, const std::wstring& path)
{
    std::fprintf(fSaved ? stdout : stderr, "%s%s\n", fSaved ? "" : "could not save ", ToUtf8(path).c_str());
    return fSaved;
}

std::wstring PicturePath(const std::wstring& dir, LPCWSTR pszName)
{
    std::wstring path = dir + L"\\";
    for (LPCWSTR p = pszName; *p; p++) {
        path += *p == L' ' ? L'-' : static_cast<wchar_t>(std::towlower(*p));
    }
    return path + L".png";
}

// As large for so many dots an inch as a rectangle is for others, from the same corner.
RECT Resized(const RECT& rc, int nDots, int nFormer)
{
    return {rc.left, rc.top, rc.left + MulDiv(rc.right - rc.left, nDots, nFormer),
            rc.top + MulDiv(rc.bottom - rc.top, nDots, nFormer)};
}

// Where a rectangle has room on a window's screen, and no larger than that.
RECT OnScreenOf(HWND hwnd, const RECT& rc)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(hwnd, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& rcWork = monitor.rcWork;
    const LONG cx = std::min(rc.right - rc.left, rcWork.right - rcWork.left);
    const LONG cy = std::min(rc.bottom - rc.top, rcWork.bottom - rcWork.top);
    const LONG x = std::clamp(rc.left, rcWork.left, rcWork.right - cx);
    const LONG y = std::clamp(rc.top, rcWork.top, rcWork.bottom - cy);
    return {x, y, x + cx, y + cy};
}

void SetMirrored(HWND hwnd, bool fMirrored)
{
    const LONG lStyle = GetWindowLongW(hwnd, GWL_EXSTYLE) & ~WS_EX_LAYOUTRTL;
    SetWindowLongW(hwnd, GWL_EXSTYLE, lStyle | (fMirrored ? WS_EX_LAYOUTRTL : 0));
}

BOOL CALLBACK SetChildMirrored(HWND hwnd, LPARAM lParam)
{
    SetMirrored(hwnd, lParam != 0);
    return TRUE;
}

void TellOfDots(HWND hwnd, int nDots, const RECT& rc)
{
    const auto wDots = static_cast<WORD>(nDots);
    SendMessageW(hwnd, WM_DPICHANGED, MAKEWPARAM(wDots, wDots), reinterpret_cast<LPARAM>(&rc));
}

// For the hook, which knows no object.
Gallery* s_pGallery = nullptr;

} // namespace

Gallery::~Gallery()
{
    UnhookWindowsHookEx(m_hHook);
}

bool Gallery::Create()
{
    const DWORD dwExStyle = WINDOW_EX_STYLE | (m_options.fMirrored ? WS_EX_LAYOUTRTL : 0);
    RECT rc = Scaled(RECT{0, 0, CLIENT_SIZE.cx, CLIENT_SIZE.cy});
    AdjustWindowRectEx(&rc, WINDOW_STYLE, FALSE, WINDOW_EX_STYLE);
    m_hwnd = CreateWindowExW(dwExStyle, MAKEINTRESOURCEW(RegisterMainClass(&WindowProc)), TITLE, WINDOW_STYLE,
                             40, 40, rc.right - rc.left, rc.bottom - rc.top, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
    if (!m_hwnd || (!m_options.logFile.empty() && !m_report.OpenFile(m_options.logFile))) {
        return false;
    }
    SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_commands.Create(m_hwnd);
    m_pages.Create(m_hwnd);
    m_lastLines.Create(0, 0, 10, 10, m_hwnd, 0, L"What the controls report to their parent appears here.", 0,
                       WS_CHILD | WS_VISIBLE | GS_MULTILINE | GLS_NOPREFIX);
    m_lastLines.SetTextColor(ColorOf(Shade::Caption));
    TellDots(m_hwnd);
    s_pGallery = this;
    m_hHook = SetWindowsHookExW(WH_GETMESSAGE, &OnMessageTaken, nullptr, GetCurrentThreadId());
    OnSize();
    ShowPage(m_options.nPage);
    ShowWindow(m_hwnd, SW_SHOW);
    UpdateWindow(m_hwnd);
    WriteLayoutFile();
    return true;
}

RECT Gallery::PageRect() const
{
    const SIZE size = ClientSize(m_hwnd);
    const int nTop = Scaled(CommandBar::HEIGHT);
    const LONG nBottom = size.cy - (m_fReport ? Scaled(REPORT_HEIGHT) : 0);
    return {Scaled(PageList::WIDTH), nTop, size.cx, std::max<LONG>(nBottom, nTop)};
}

LRESULT Gallery::OnSize()
{
    const SIZE size = ClientSize(m_hwnd);
    const RECT rcPage = PageRect();
    m_commands.Place({0, 0, size.cx, rcPage.top});
    m_pages.Place({0, rcPage.top, rcPage.left, size.cy});
    m_lastLines.MoveWindow(rcPage.left + Scaled(MARGIN), rcPage.bottom + Scaled(8),
                           size.cx - rcPage.left - Scaled(2 * MARGIN), Scaled(REPORT_HEIGHT - 16));
    m_lastLines.SetVisible(m_fReport);
    if (m_page) {
        m_page->Place(rcPage);
        WriteLayoutFile();
    }
    return 0;
}

void Gallery::ShowPage(int nPage)
{
    m_nPage = nPage;
    m_pages.Select(nPage);
    m_page.reset();
    // Also for what the page makes later.
    gesso::SetBehavior(m_fClassic ? gesso::Behavior::Classic : gesso::Behavior::Modern);
    m_page = std::make_unique<PageWindow>(m_hwnd, PageRect(), PAGES[nPage].make(),
                                          [this](const std::wstring& line) { AddLine(line); });
    ShowCues();
    if (GetActiveWindow() == m_hwnd && !IsChild(m_hwnd, GetFocus())) {
        OnSetFocus(); // what had it has gone
    }
    UpdateWindow(m_hwnd);
    WriteLayoutFile();
}

std::vector<Part> Gallery::Parts() const
{
    std::vector<Part> parts = m_page->Content().Parts();
    m_commands.AddParts(parts);
    m_pages.AddParts(parts);
    return parts;
}

void Gallery::WriteLayoutFile() const
{
    if (!m_options.layoutFile.empty() && IsWindowVisible(m_hwnd)) {
        WriteLayout(m_hwnd, Parts(), m_options.layoutFile);
    }
}

void Gallery::AddLine(const std::wstring& line)
{
    m_report.Add(line);
    m_lastLines.SetText(m_report.LastLines().c_str());
}

int Gallery::Run()
{
    MSG msg{};
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        if (!IsForDialogs(msg)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
    }
    return static_cast<int>(msg.wParam);
}

// Tab goes round the page, and from the list of pages into it.
bool Gallery::IsForDialogs(MSG& msg) const
{
    return LeaveField(m_hwnd, msg) || IsDialogMessageW(m_page->Window(), &msg) ||
           IsDialogMessageW(m_hwnd, &msg);
}

// Sees the keys in every message loop, those of dialogs too.
LRESULT CALLBACK Gallery::OnMessageTaken(int nCode, WPARAM wParam, LPARAM lParam)
{
    const MSG& msg = *reinterpret_cast<const MSG*>(lParam);
    // Without a focus a key is one of the system's.
    if (nCode == HC_ACTION && wParam == PM_REMOVE &&
        (msg.message == WM_KEYDOWN || msg.message == WM_SYSKEYDOWN)) {
        s_pGallery->OnKeyDown(static_cast<UINT>(msg.wParam));
    }
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

void Gallery::OnKeyDown(UINT uKey)
{
    if (uKey == VK_F12) {
        WriteLayoutFile();
        AddLine(L"----"); // a place to find again
    } else if ((uKey == VK_NEXT || uKey == VK_PRIOR) && GetKeyState(VK_CONTROL) < 0 &&
               IsWindowEnabled(m_hwnd) && !IsOfPagesRibbon(GetFocus()))
    {
        OnRibbon(uKey == VK_NEXT ? ID_NEXT_PAGE : ID_PREVIOUS_PAGE, false);
    }
}

// A ribbon changes its own tabs by these keys.
bool Gallery::IsOfPagesRibbon(HWND hwnd) const
{
    return IsChild(m_page->Window(), hwnd) && ClassOf(hwnd) == L"GRibbon";
}

// Controls made in Modern do it by themselves once a key is typed; these are for those of a Classic page too.
void Gallery::ShowCues() const
{
    if (m_fCues) {
        gesso::ShowKeyboardCues(m_hwnd);
    }
}

bool Gallery::SavePictures()
{
    SetCaretBlinkTime(INFINITE); // a blinking caret would be there in every other picture
    bool fSaved = true;
    for (int i = 0; i < PAGE_COUNT; i++) {
        ShowPage(i);
        HandleMessagesUntilIdle();
        while (m_page->Content().IsBusy()) {
            WaitMessage();
            HandleMessagesUntilIdle();
        }
        Settle(m_hwnd);
        const std::wstring path = PicturePath(m_options.pictureDir, PAGES[i].pszName);
        fSaved = Tell(SavePicture(m_hwnd, path.c_str()), path) && fSaved;
        fSaved = SaveExhibits() && fSaved;
    }
    DestroyWindow(m_hwnd);
    return fSaved;
}

bool Gallery::SaveExhibits()
{
    bool fSaved = true;
    for (const Exhibit& exhibit : m_page->Content().Exhibits()) {
        const std::wstring path = PicturePath(m_options.pictureDir, exhibit.name.c_str());
        fSaved = Tell(SaveExhibit(m_hwnd, exhibit, path.c_str()), path) && fSaved;
    }
    return fSaved;
}

LRESULT CALLBACK Gallery::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pGallery = reinterpret_cast<Gallery*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    return pGallery ? pGallery->OnMessage(uMsg, wParam, lParam) : DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

LRESULT Gallery::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_ACTIVATE: return OnActivate(LOWORD(wParam) != WA_INACTIVE);
    case WM_SETFOCUS: return OnSetFocus();
    case WM_SIZE: return OnSize();
    case WM_ERASEBKGND: FillClient(m_hwnd, reinterpret_cast<HDC>(wParam), Shade::Side); return 1;
    case WM_COMMAND: return OnCommand(LOWORD(wParam), lParam);
    case WM_DPICHANGED: return OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
    case WM_ENTERIDLE: return OnDialogIdle(reinterpret_cast<HWND>(lParam));
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE: return OnSystemChange(uMsg, wParam, lParam);
    case WM_NOTIFY: return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(m_hwnd, uMsg, wParam, lParam);
    }
}

// The focus comes back to the control that had it.
LRESULT Gallery::OnActivate(bool fActive)
{
    if (fActive) {
        return OnSetFocus();
    }
    m_hwndLastFocus = GetFocus();
    return 0;
}

LRESULT Gallery::OnSetFocus()
{
    const bool fThere = m_hwndLastFocus && IsChild(m_hwnd, m_hwndLastFocus);
    const HWND hwndFirst = m_page ? GetNextDlgTabItem(m_page->Window(), nullptr, FALSE) : nullptr;
    SetFocus(fThere ? m_hwndLastFocus : hwndFirst ? hwndFirst : GetNextDlgTabItem(m_hwnd, nullptr, FALSE));
    return 0;
}

LRESULT Gallery::OnCommand(UINT uId, LPARAM lParam)
{
    if (uId >= FIRST_GALLERY_COMMAND && uId < END_OF_GALLERY_COMMANDS) {
        OnRibbon(uId, lParam != 0);
    }
    return 0;
}

void Gallery::OnRibbon(UINT uId, bool fChecked)
{
    switch (uId) {
    case ID_PREVIOUS_PAGE: ShowPage((m_nPage + PAGE_COUNT - 1) % PAGE_COUNT); break;
    case ID_NEXT_PAGE: ShowPage((m_nPage + 1) % PAGE_COUNT); break;
    case ID_SHOW_REPORT:
        m_fReport = fChecked;
        OnSize();
        break;
    case ID_SHOW_CUES:
        m_fCues = fChecked;
        ShowCues();
        break;
    case ID_CLASSIC:
        m_fClassic = fChecked;
        ShowPage(m_nPage);
        break;
    case ID_SMALL_WINDOW: SetSize(800, 600); break;
    case ID_LARGE_WINDOW: SetSize(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)); break;
    case ID_ABOUT:
        GTaskDialog::MessageBoxW(m_hwnd, L"Every control of Gesso at work, and what it reports.", TITLE,
                                 MB_OK | MB_ICONINFORMATION);
        break;
    default: OnLook(uId); break;
    }
}

void Gallery::OnLook(UINT uId)
{
    if (uId >= ID_FIRST_LANGUAGE) {
        gesso::SetLanguage(LANGUAGES[uId - ID_FIRST_LANGUAGE].value);
    } else if (uId >= ID_FIRST_DIRECTION) {
        SetDirection(DIRECTIONS[uId - ID_FIRST_DIRECTION].value);
    } else if (uId >= ID_FIRST_SIZE) {
        SetSizeOfAll(SIZES[uId - ID_FIRST_SIZE].value);
    } else {
        SetScheme(SCHEMES[uId - ID_FIRST_SCHEME].value);
    }
}

// The controls follow by themselves; what the gallery paints beside them is its own to change.
void Gallery::SetScheme(gesso::ColorScheme scheme)
{
    gesso::SetColorScheme(scheme);
    OnSchemeChange();
}

// As if the window had come to a screen with so many dots an inch. Until the user sizes it, it goes back to
// what it was, where the screen was too small in between.
void Gallery::SetSizeOfAll(int nDots)
{
    RECT rc{};
    GetWindowRect(m_hwnd, &rc);
    if (!EqualRect(&rc, &m_rcGiven)) {
        m_rcAtFirst = Resized(rc, USER_DEFAULT_SCREEN_DPI, Dots());
    }
    m_rcGiven = OnScreenOf(m_hwnd, Resized(m_rcAtFirst, nDots, USER_DEFAULT_SCREEN_DPI));
    gesso::SetScaling(gesso::Scaling::PerMonitor);
    TellOfDots(m_hwnd, nDots, m_rcGiven);
}

// Ribbon, pane and report follow in place. The page is made anew: what it gives its controls in pixels is its
// own to change.
LRESULT Gallery::OnDpiChanged(int nDots, const RECT& rc)
{
    SetDots(nDots);
    m_pages.FollowDots();
    TellDots(m_hwnd);
    MoveWindow(m_hwnd, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, TRUE);
    OnSize();
    ShowPage(m_nPage);
    return 0;
}

// A dialog opens where the gallery is, be the screen's own dots others.
LRESULT Gallery::OnDialogIdle(HWND hDlg)
{
    const auto nFormer = static_cast<int>(gesso::DpiOf(hDlg));
    if (gesso::GetScaling() == gesso::Scaling::PerMonitor && nFormer != Dots()) {
        RECT rc{};
        GetWindowRect(hDlg, &rc);
        TellOfDots(hDlg, Dots(), OnScreenOf(hDlg, Resized(rc, Dots(), nFormer)));
        TellDots(hDlg);
    }
    return 0;
}

// The page takes the window's direction as it is made anew.
void Gallery::SetDirection(bool fMirrored)
{
    m_page.reset();
    SetMirrored(m_hwnd, fMirrored);
    EnumChildWindows(m_hwnd, &SetChildMirrored, fMirrored);
    OnSize();
    ShowPage(m_nPage);
    RedrawWindow(m_hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

// The library may hear of it later; the next paint is what counts.
LRESULT Gallery::OnSystemChange(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (m_page) {
        gesso::SetColorScheme(gesso::GetColorScheme());
        OnSchemeChange();
    }
    return DefWindowProcW(m_hwnd, uMsg, wParam, lParam);
}

void Gallery::OnSchemeChange()
{
    m_lastLines.SetTextColor(ColorOf(Shade::Caption));
    m_commands.FollowScheme();
    m_pages.FollowScheme();
    m_page->Recolor();
    RedrawWindow(m_hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Gallery::SetSize(int cx, int cy) const
{
    SetWindowPos(m_hwnd, nullptr, 0, 0, cx, cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT Gallery::OnNotify(const NMHDR& header)
{
    const int nPage = m_pages.PageWanted(header);
    if (nPage >= 0 && nPage != m_nPage) {
        ShowPage(nPage);
    }
    return 0;
}

} // namespace gallery
