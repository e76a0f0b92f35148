#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/FlatMenu.h>
#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/FoldCase.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/KeyboardCues.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/WindowClass.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr DWORD EX_STYLE = WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
constexpr UINT TEXT_FORMAT = DT_SINGLELINE | DT_VCENTER;
constexpr int NO_BACKGROUND = 0;

constinit ATOM s_aMenuClass = 0;

// The character behind the first single ampersand, 0 for none.
wchar_t MnemonicOf(LPCWSTR psz)
{
    for (; *psz; ++psz) {
        if (*psz == L'&' && *++psz != L'&') {
            return FoldCase(*psz);
        }
    }
    return 0;
}

} // namespace

FlatMenu::FlatMenu(std::span<const CommandEntry> entries, bool fShowsMnemonics)
    : m_entries(entries), m_fShowsMnemonics(fShowsMnemonics)
{
    for (const CommandEntry& entry : entries) {
        const UINT n = m_aTexts.Add(OString<wchar_t>());
        if (n == NO_INDEX) {
            return;
        }
        m_aTexts[n].Format(L"%s", entry.pszText ? entry.pszText : L"");
    }
}

LPCWSTR FlatMenu::TextOf(UINT nEntry) const
{
    return nEntry < m_aTexts.GetLength() ? static_cast<LPCWSTR>(m_aTexts[nEntry]) : L"";
}

UINT FlatMenu::Run(HWND hwndOwner, POINT ptScreen)
{
    m_ptPlace = ptScreen;
    m_fShowsMnemonics = m_fShowsMnemonics || (CuesShownAround(hwndOwner) & UISF_HIDEACCEL);
    RunLoop(hwndOwner);
    if (Frame::ObjectOf<FlatMenu>(m_hWnd) == this) {
        DestroyWindow(m_hWnd);
    }
    return m_uChoice;
}

bool FlatMenu::ShowMenu(HWND hwndOwner)
{
    m_hFont = DefaultFontOf(hwndOwner);
    const bool fMirrored = IsMirrored(hwndOwner); // which a window that it owns does not take by itself
    const RECT rc = PlaceMenu(m_ptPlace, SizeIn(hwndOwner), fMirrored);
    const Placement place{static_cast<int>(rc.left), static_cast<int>(rc.top),
                          static_cast<int>(rc.right - rc.left), static_cast<int>(rc.bottom - rc.top),
                          hwndOwner};
    const ATOM aClass =
        RegisterControlClass(s_aMenuClass, L"GCommandMenu", WindowProc, CS_DROPSHADOW, NO_BACKGROUND);
    const DWORD dwExStyle = EX_STYLE | (fMirrored ? WS_EX_LAYOUTRTL : 0);
    if (!Frame::CreateTagged(*this, aClass, place, 0, dwExStyle, WS_POPUP)) {
        return false;
    }
    TakeDpi(m_hWnd, hwndOwner);
    ShowWindow(m_hWnd, SW_SHOWNOACTIVATE);
    return IsWindow(m_hWnd);
}

// --- Places

int FlatMenu::HeightOf(HWND hwnd, UINT nEntry) const
{
    return Pixels(hwnd, m_entries[nEntry].uCommand ? Metrics::MENU_ENTRY_HEIGHT : Metrics::MENU_LINE_HEIGHT);
}

SIZE FlatMenu::SizeIn(HWND hwnd) const
{
    const MemoryContext context;
    const SelectScope font(context, m_hFont);
    int cxText = 0, cy = 0;
    for (UINT n = 0; n < Count(); ++n) {
        RECT rcText{};
        if (IsCommand(n)) {
            DrawTextW(context, TextOf(n), -1, &rcText, DT_CALCRECT | TEXT_FORMAT);
        }
        cxText = std::max<int>(cxText, rcText.right);
        cy += HeightOf(hwnd, n);
    }
    const int nMargin = Pixels(hwnd, Metrics::MENU_MARGIN);
    return {cxText + 2 * (Pixels(hwnd, Metrics::MENU_TEXT) + nMargin), cy + 2 * nMargin};
}

RECT FlatMenu::RectOf(UINT nEntry) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const int nMargin = Pixels(m_hWnd, Metrics::MENU_MARGIN);
    rc = {nMargin, nMargin, rc.right - nMargin, nMargin};
    for (UINT n = 0; n < nEntry; ++n) {
        rc.top += HeightOf(m_hWnd, n);
    }
    rc.bottom = rc.top + HeightOf(m_hWnd, nEntry);
    return rc;
}

// The command at a point of the client area; NO_INDEX for none, and for a line.
UINT FlatMenu::EntryAt(POINTS pt) const
{
    for (UINT n = 0; n < Count(); ++n) {
        const RECT rc = RectOf(n);
        if (IsCommand(n) && PtInRect(&rc, {pt.x, pt.y})) {
            return n;
        }
    }
    return NO_INDEX;
}

// --- Choosing

void FlatMenu::Mark(UINT nEntry)
{
    if (m_nMarked != nEntry) {
        m_nMarked = nEntry;
        Invalidate(0);
    }
}

// The first command behind a place or before it; from one end it goes on at the other. What is disabled can
// be marked, as in the platform's menus, so that it is found.
void FlatMenu::MarkNext(UINT nFrom, bool fDown)
{
    const UINT nCount = Count();
    UINT n = nFrom;
    for (UINT nSteps = 0; nSteps < nCount; ++nSteps) {
        if (fDown) {
            n = n + 1 < nCount ? n + 1 : 0;
        } else {
            n = n - 1 < nCount ? n - 1 : nCount - 1;
        }
        if (IsCommand(n)) {
            return Mark(n);
        }
    }
}

void FlatMenu::Choose(UINT nEntry)
{
    if (IsCommand(nEntry) && m_entries[nEntry].fEnabled) {
        m_uChoice = m_entries[nEntry].uCommand;
        End();
    }
}

bool FlatMenu::OnMenuKey(WPARAM wKey)
{
    switch (wKey) {
    case VK_DOWN: MarkNext(m_nMarked, true); break;
    case VK_UP: MarkNext(m_nMarked, false); break;
    case VK_HOME: MarkNext(NO_INDEX, true); break;
    case VK_END: MarkNext(NO_INDEX, false); break;
    case VK_RETURN: Choose(m_nMarked); break;
    case VK_ESCAPE: End(); break;
    case VK_PROCESSKEY: break; // an input method would begin a composition in the field
    default: return true;
    }
    return false;
}

void FlatMenu::OnMenuCharacter(wchar_t ch)
{
    const UINT nCount = Count();
    UINT nFound = NO_INDEX, nFits = 0;
    for (UINT nStep = 1; nStep <= nCount; ++nStep) {
        const UINT n = (m_nMarked + nStep) % nCount; // from none on: the first
        if (IsCommand(n) && MnemonicOf(TextOf(n)) == FoldCase(ch)) {
            nFound = nFits++ ? nFound : n;
        }
    }
    if (nFits > 0) {
        Mark(nFound);
    }
    if (nFits == 1) {
        Choose(nFound);
    }
}

void FlatMenu::OnPointer(POINTS pt)
{
    Frame::TrackLeave(*this);
    if (HasMovedTo(ToScreen(m_hWnd, pt))) {
        Mark(EntryAt(pt));
    }
}

void FlatMenu::OnRelease(POINTS pt)
{
    if (CountsReleaseAt(ToScreen(m_hWnd, pt))) {
        Choose(EntryAt(pt));
    }
}

// --- Drawing

void FlatMenu::Draw(HDC hdc)
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    FillColor(hdc, rc, ColorOf(Color::ValueMenuFill));
    FrameColor(hdc, rc, ColorOf(ColorRole::Border), Pixels(m_hWnd, Metrics::THIN_LINE));
    const TransparentScope mode(hdc);
    const SelectScope font(hdc, m_hFont);
    for (UINT n = 0; n < Count(); ++n) {
        DrawEntry(hdc, n);
    }
}

void FlatMenu::DrawEntry(HDC hdc, UINT nEntry) const
{
    const RECT rc = RectOf(nEntry);
    LayoutOverlay::Add(hdc, rc);
    if (IsCommand(nEntry)) {
        return DrawCaption(hdc, nEntry, rc);
    }
    const int nLine = Pixels(m_hWnd, Metrics::THIN_LINE);
    const LONG y = (rc.top + rc.bottom - nLine) / 2;
    FillColor(hdc, {rc.left, y, rc.right, y + nLine}, ColorOf(ColorRole::Line));
}

void FlatMenu::DrawCaption(HDC hdc, UINT nEntry, const RECT& rc) const
{
    const bool fEnabled = m_entries[nEntry].fEnabled, fMarked = nEntry == m_nMarked;
    if (fMarked) {
        FillColor(hdc, rc, fEnabled ? ColorOf(Color::ValueMenuHotFill) : ColorOf(ColorRole::HotRow));
    }
    const TextColorScope color(hdc, !fEnabled ? ColorOf(ColorRole::DisabledText)
                                    : fMarked ? ColorOf(Color::ValueMenuHotText)
                                              : ColorOf(ColorRole::WindowText));
    RECT rcText = rc;
    InflateRect(&rcText, -Pixels(m_hWnd, Metrics::MENU_TEXT), 0);
    DrawTextW(hdc, TextOf(nEntry), -1, &rcText, TEXT_FORMAT | (m_fShowsMnemonics ? 0 : DT_HIDEPREFIX));
}

// --- Messages

LRESULT FlatMenu::OnCreate(const CREATESTRUCTW*)
{
    Frame::SetState(*this, Frame::FirstState(*this));
    return 0;
}

// It was made as large as its texts were.
void FlatMenu::OnScaling()
{
    End();
}

LRESULT CALLBACK FlatMenu::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<FlatMenu>(hwnd, uMsg, wParam, lParam);
}

LRESULT FlatMenu::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: return PaintControl(*this, m_hWnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_MOUSEMOVE: OnPointer(PointOf(lParam)); return 0;
    case WM_MOUSELEAVE:
        Frame::OnMouseLeave(*this);
        Mark(NO_INDEX);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN: NotePress(); return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP: OnRelease(PointOf(lParam)); return 0;
    case WM_ACTIVATEAPP: SeeEnd(uMsg, wParam); break;
    case WM_DESTROY: SeeEnd(uMsg, wParam); return Frame::Detach(*this);
    default: break;
    }
    return Frame::Default(*this, uMsg, wParam, lParam);
}

} // namespace gesso
