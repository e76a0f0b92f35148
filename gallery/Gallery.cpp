#include <gallery/Fonts.h>
#include <gallery/Gallery.h>
#include <gallery/Layout.h>
#include <gallery/Mnemonics.h>
#include <gallery/Picture.h>

#include <cstdio>
#include <cwctype>

namespace gallery {
namespace {

constexpr LPCWSTR CLASS_NAME = L"GessoGallery";
constexpr LPCWSTR TITLE = L"Gesso gallery";
constexpr COLORREF SIDE_COLOR = RGB(243, 245, 248);
constexpr DWORD WINDOW_STYLE = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;

constexpr int CLIENT_WIDTH = 1004;
constexpr int CLIENT_HEIGHT = 700;
constexpr int SIDE_WIDTH = 152;
constexpr int REPORT_HEIGHT = 88;
constexpr int PAGE_BUTTON_HEIGHT = 30;
constexpr int FIRST_PAGE_BUTTON = 1000; // well away from IDOK and IDCANCEL, which the dialog manager sends

constexpr RECT PAGE_RECT = {SIDE_WIDTH, 0, CLIENT_WIDTH, CLIENT_HEIGHT - REPORT_HEIGHT};
constexpr RECT REPORT_RECT = {SIDE_WIDTH + MARGIN, CLIENT_HEIGHT - REPORT_HEIGHT + 8, CLIENT_WIDTH - MARGIN,
                              CLIENT_HEIGHT - 8};

ATOM RegisterMainClass(WNDPROC pfnWindowProc)
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = pfnWindowProc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.hbrBackground = CreateSolidBrush(SIDE_COLOR); // the class's from now on
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

BOOL CALLBACK ShowCuesOf(HWND hwnd, LPARAM)
{
    SendMessageW(hwnd, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
    return TRUE;
}

BOOL CALLBACK ShowCuesIn(HWND hwnd, LPARAM lParam)
{
    EnumChildWindows(hwnd, &ShowCuesOf, lParam);
    return TRUE;
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

// For the hook, which knows no object.
Gallery* s_pGallery = nullptr;

} // namespace

bool Gallery::Create()
{
    RECT rc{0, 0, CLIENT_WIDTH, CLIENT_HEIGHT};
    AdjustWindowRectEx(&rc, WINDOW_STYLE, FALSE, WS_EX_CONTROLPARENT);
    m_hwnd = CreateWindowExW(WS_EX_CONTROLPARENT, MAKEINTRESOURCEW(RegisterMainClass(&WindowProc)), TITLE,
                             WINDOW_STYLE, 40, 40, rc.right - rc.left, rc.bottom - rc.top, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
    if (!m_hwnd || (!m_options.logFile.empty() && !m_report.OpenFile(m_options.logFile))) {
        return false;
    }
    SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    MakePageButtons();
    m_lastLines.Create(REPORT_RECT.left, REPORT_RECT.top, REPORT_RECT.right - REPORT_RECT.left,
                       REPORT_RECT.bottom - REPORT_RECT.top, m_hwnd, 0,
                       L"What the controls report to their parent appears here.", 0,
                       WS_CHILD | WS_VISIBLE | GS_MULTILINE | GLS_NOPREFIX);
    m_lastLines.SetTextColor(CAPTION_COLOR);
    s_pGallery = this;
    SetWindowsHookExW(WH_GETMESSAGE, &OnMessageTaken, nullptr, GetCurrentThreadId());
    ShowWindow(m_hwnd, SW_SHOW);
    ShowPage(m_options.nPage);
    return true;
}

void Gallery::MakePageButtons()
{
    int y = 16;
    for (int i = 0; i < PAGE_COUNT; i++) {
        m_pageButtons[i].Create(12, y, SIDE_WIDTH - 24, PAGE_BUTTON_HEIGHT, m_hwnd, FIRST_PAGE_BUTTON + i,
                                PAGES[i].pszName, 0,
                                WS_CHILD | WS_VISIBLE | WS_TABSTOP | GS_CENTER | GS_VCENTER);
        y += PAGE_BUTTON_HEIGHT + 6;
    }
}

void Gallery::ShowPage(int nPage)
{
    for (int i = 0; i < PAGE_COUNT; i++) {
        m_pageButtons[i].SetFont(i == nPage ? HeadingFont() : g_hDefaultFont);
        m_pageButtons[i].Invalidate(0);
    }
    m_page.reset();
    m_page = std::make_unique<PageWindow>(m_hwnd, PAGE_RECT, PAGES[nPage].make(),
                                          [this](const std::wstring& line) { AddLine(line); });
    ShowKeyboardCues();
    UpdateWindow(m_hwnd);
    WriteLayoutFile();
}

void Gallery::WriteLayoutFile() const
{
    if (!m_options.layoutFile.empty()) {
        WriteLayout(m_hwnd, m_page->Content().Parts(), m_options.layoutFile);
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
        if (!PressMnemonic(m_hwnd, msg) && !IsDialogMessageW(m_hwnd, &msg)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
    }
    return static_cast<int>(msg.wParam);
}

// Sees the keys in every message loop, those of dialogs too.
LRESULT CALLBACK Gallery::OnMessageTaken(int nCode, WPARAM wParam, LPARAM lParam)
{
    const MSG& msg = *reinterpret_cast<const MSG*>(lParam);
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
    } else if (uKey == VK_TAB || uKey == VK_MENU) {
        m_fKeyboardCues = true;
        ShowKeyboardCues();
    }
}

// Focus rectangles and underlines, once the keyboard is in use. Windows does this by itself, Wine does not.
void Gallery::ShowKeyboardCues() const
{
    if (m_fKeyboardCues) {
        EnumThreadWindows(GetCurrentThreadId(), &ShowCuesIn, 0);
    }
}

bool Gallery::SavePictures()
{
    bool fSaved = true;
    for (int i = 0; i < PAGE_COUNT; i++) {
        ShowPage(i);
        HandleMessagesUntilIdle();
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
    case WM_COMMAND: return OnCommand(LOWORD(wParam), lParam);
    case DM_GETDEFID: return OnGetDefaultId();
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
    SetFocus(fThere ? m_hwndLastFocus : GetNextDlgTabItem(m_hwnd, nullptr, FALSE));
    return 0;
}

// A page's button, or what the dialog manager sends for Enter: that is for the page.
LRESULT Gallery::OnCommand(UINT uId, LPARAM lParam)
{
    if (uId >= FIRST_PAGE_BUTTON && uId < FIRST_PAGE_BUTTON + PAGE_COUNT) {
        ShowPage(static_cast<int>(uId) - FIRST_PAGE_BUTTON);
        return 0;
    }
    const HWND hwnd = lParam ? reinterpret_cast<HWND>(lParam) : m_page->DefaultButton();
    if (hwnd && static_cast<UINT>(GetDlgCtrlID(hwnd)) == uId) {
        SendMessageW(m_page->Window(), WM_COMMAND, uId, reinterpret_cast<LPARAM>(hwnd));
    }
    return 0;
}

LRESULT Gallery::OnGetDefaultId() const
{
    const HWND hwnd = m_page ? m_page->DefaultButton() : nullptr;
    return hwnd ? MAKELONG(GetDlgCtrlID(hwnd), DC_HASDEFID) : 0;
}

} // namespace gallery
