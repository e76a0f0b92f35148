// How a list comes to life and goes, and its messages.

#include <gesso/containers/Index.h>
#include <gesso/edit/LabelEdit.h>
#include <gesso/framework/ExplorerStyle.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Module.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/list/ListInside.h>

#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Pixels;
using gesso::Quirk;
namespace Metrics = gesso::Metrics;

constinit ATOM GList::s_aClass = 0;
constinit HCURSOR GList::s_hColumnSizing = nullptr;

namespace {

constexpr WORD SIZING_CURSOR = 140;

constexpr GList::HitTestInfo NO_HIT{{0, 0}, NO_INDEX, NO_INDEX, 0xFFFF, 0xFFFF};

// Of a list that has no window yet.
UINT Usual(gesso::Measure measure)
{
    return static_cast<UINT>(Pixels(nullptr, measure));
}

// Takes a font as the list's own in the place of another.
void TakeFont(HFONT& hField, HFONT hFont)
{
    const HFONT hFormer = std::exchange(hField, hFont);
    if (hFormer && hFormer != hFont) {
        DeleteObject(hFormer);
    }
}

} // namespace

HFONT GList::MakeFont(int nCharacterHeight, int nWeight)
{
    return CreateFontW(-nCharacterHeight, 0, 0, 0, nWeight, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
}

GList::GList()
    : headerHeight(Usual(Metrics::LIST_HEADER_HEIGHT)), headerItemSpacing(Usual(Metrics::LIST_HEADER_GAP)),
      groupHeight(Usual(Metrics::LIST_GROUP_HEIGHT)), itemWidth(Usual(Metrics::LIST_ITEM_WIDTH)),
      itemWidthBase(itemWidth), itemHeight(Usual(Metrics::LIST_ITEM_HEIGHT)), itemHeightBase(itemHeight),
      lineHeight(Pixels(nullptr, Metrics::LIST_LINE_HEIGHT)), hitPress(NO_HIT), hitHot(NO_HIT),
      contentCx(Usual(Metrics::LIST_EMPTY_WIDTH))
{
    m_inside->fOwner = true;
    items.AllocExtra(0, 64);
    gesso::MakeOnce(s_hColumnSizing, [] { return LoadCursorW(g_hModule, MAKEINTRESOURCEW(SIZING_CURSOR)); });
}

// Of what the window has not released already, the object releases what it made itself.
GList::~GList()
{
    if (m_inside->fEdits) {
        GList::EndEdit();
    }
    if (!m_inside->fOwner) {
        return;
    }
    ReleaseItems();
    ReleaseColumns();
    ReleaseGroups();
    ReleaseFrames();
    ReleaseFonts();
}

ATOM GList::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GList", WindowProc, gesso::CLASS_SCROLLING);
}

HWND GList::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, UINT style, DWORD dwExStyle,
                   DWORD dwStyle)
{
    listStyle = style;
    ForgetLayout();
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

int GList::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GList::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GList::GetStyle() const
{
    return Frame::Style(*this);
}

void GList::Init(void*) {}

void GList::CalculateGroup(UINT) {}

void GList::CalculateItem(UINT) {}

// --- Images and fonts

void GList::SetImageList(HIMAGELIST hImageList)
{
    imageList = hImageList;
    gesso::TakeNewImages(m_hWnd);
}

HIMAGELIST GList::GetImageList() const
{
    return imageList;
}

// A field in which the user renames an item has the new font before the former one goes.
void GList::SetLabelTitleFont(HFONT hFont)
{
    gesso::LabelEdit::ReplaceFont(m_inside->renaming.hwnd, fontLabelTitle, hFont);
    TakeFont(fontLabelTitle, hFont);
    NoteGiven(gesso::LIST_TITLE_FONT_GIVEN);
    ForgetCells();
    RefreshLayout();
}

void GList::SetLabelHeaderFont(HFONT hFont)
{
    TakeFont(fontLabelHeader, hFont);
    NoteGiven(gesso::LIST_HEADER_FONT_GIVEN);
    RefreshLayout();
}

// A font that the host has lent by OnSetFont stays the host's.
void GList::SetLabelTextFont(HFONT hFont)
{
    gesso::LabelEdit::ReplaceFont(m_inside->renaming.hwnd, fontLabelText, hFont);
    if (listStyle & GLS_OWNFONT) {
        listStyle &= ~GLS_OWNFONT;
        fontLabelText = nullptr;
    }
    TakeFont(fontLabelText, hFont);
    NoteGiven(gesso::LIST_TEXT_FONT_GIVEN);
    ForgetCells();
    RefreshLayout();
}

void GList::SetGroupTitleFont(HFONT hFont)
{
    TakeFont(fontGroupTitle, hFont);
    NoteGiven(gesso::LIST_GROUP_FONT_GIVEN);
    RefreshLayout();
}

HFONT GList::GetLabelTitleFont() const
{
    return fontLabelTitle;
}

HFONT GList::GetLabelHeaderFont() const
{
    return fontLabelHeader;
}

HFONT GList::GetLabelTextFont() const
{
    return fontLabelText;
}

HFONT GList::GetGroupTitleFont() const
{
    return fontGroupTitle;
}

void GList::ReleaseFonts()
{
    if (listStyle & GLS_OWNFONT) {
        fontLabelText = nullptr;
    }
    TakeFont(fontLabelTitle, nullptr);
    TakeFont(fontLabelHeader, nullptr);
    TakeFont(fontLabelText, nullptr);
    TakeFont(fontGroupTitle, nullptr);
    m_inside->given &= ~gesso::LIST_FONTS_GIVEN;
}

LRESULT GList::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(fontLabelText);
}

LRESULT GList::OnSetFont(HFONT hFont, UINT uRedraw)
{
    gesso::LabelEdit::ReplaceFont(m_inside->renaming.hwnd, fontLabelText, hFont);
    if (!(listStyle & GLS_OWNFONT)) {
        TakeFont(fontLabelText, nullptr);
    }
    listStyle |= GLS_OWNFONT;
    ForgetCells();
    return Frame::OnSetFont(*this, fontLabelText, hFont, uRedraw);
}

// --- The header

UINT GList::GetHeaderHeight() const
{
    return headerHeight;
}

void GList::SetHeaderHeight(UINT height)
{
    headerHeight = height;
    NoteGiven(gesso::LIST_HEADER_HEIGHT_GIVEN);
    RefreshLayout();
}

UINT GList::GetHeaderItemSpacing() const
{
    return headerItemSpacing;
}

void GList::SetHeaderItemSpacing(UINT spacing)
{
    headerItemSpacing = spacing;
    NoteGiven(gesso::LIST_HEADER_GAP_GIVEN);
    RefreshLayout();
}

// --- Attachment and detachment

LRESULT GList::OnNcCreate(const CREATESTRUCTW* pcs)
{
    gesso::TakeExplorerStyle(m_hWnd);
    GWndScroll::OnNcCreate(pcs);
    Frame::SetState(*this, Frame::FirstState(*this));
    StartAnew();
    themeList.Open(m_hWnd, L"LISTVIEW");
    if (gesso::GetScaling() != gesso::Scaling::None) {
        TakeMeasures();
    }
    return 1;
}

// Of what a former window's user had made.
void GList::StartAnew()
{
    ChangeCursor(NO_INDEX, NO_INDEX);
    shiftAnchor = NO_INDEX;
    ForgetLayout();
    const bool fAgain = std::exchange(m_inside->fHadWindow, true);
    if (fAgain && !Has(*this, Quirk::StateOutlivesWindow)) {
        SelectNone();
        m_inside->selection = {};
        m_inside->band = {};
        hitPress = NO_HIT;
        ChangeHot(NO_HIT);
    }
}

LRESULT GList::OnCreate(const CREATESTRUCTW*)
{
    OpenCellThemes();
    if (!Has(*this, Quirk::ListGoesWithWindow)) {
        m_inside->fFontsMissing = true;
        MakeMissingFonts();
        if (columns.GetLength() > 0) {
            SetListStyle(listStyle);
        }
        return 0;
    }
    const int nTitle = Pixels(m_hWnd, Metrics::LIST_TITLE_FONT);
    const int nText = Pixels(m_hWnd, Metrics::LIST_FONT);
    m_inside->given &= ~gesso::LIST_FONTS_GIVEN;
    TakeFont(fontLabelTitle, MakeFont(nTitle, 0));
    TakeFont(fontLabelHeader, MakeFont(nText, 0));
    TakeFont(fontLabelText, MakeFont(nText, FW_NORMAL));
    TakeFont(fontGroupTitle, MakeFont(nTitle, FW_BOLD));
    m_inside->fFontsMissing = !fontLabelTitle || !fontLabelHeader || !fontLabelText || !fontGroupTitle;
    return 0;
}

// A null font that the host has set stays.
void GList::MakeMissingFonts()
{
    if (!std::exchange(m_inside->fFontsMissing, false)) {
        return;
    }
    const int nTitle = Pixels(m_hWnd, Metrics::LIST_TITLE_FONT);
    const int nText = Pixels(m_hWnd, Metrics::LIST_FONT);
    const auto makeMissing = [](HFONT& hField, int nCharacterHeight, int nWeight) {
        hField = hField ? hField : MakeFont(nCharacterHeight, nWeight);
    };
    makeMissing(fontLabelTitle, nTitle, 0);
    makeMissing(fontLabelHeader, nText, 0);
    if (!(listStyle & GLS_OWNFONT)) {
        makeMissing(fontLabelText, nText, FW_NORMAL);
    }
    makeMissing(fontGroupTitle, nTitle, FW_BOLD);
    m_inside->fFontsMissing = !fontLabelTitle || !fontLabelHeader || !fontLabelText || !fontGroupTitle;
}

void GList::OpenCellThemes()
{
    themeHeader.Open(m_hWnd, L"HEADER");
    themeButton.Open(m_hWnd, L"BUTTON");
}

// The groups stay: they go with the object. So do, in Modern, columns and fonts, which a next window has
// then.
LRESULT GList::OnDestroy()
{
    ForgetRenaming();
    const gesso::Watch watch(*this);
    m_inside->fEnding = true;
    RemoveAllItems();
    if (!watch) {
        return 0;
    }
    DropVirtualItems();
    m_inside->fEnding = false;
    if (Has(*this, Quirk::ListGoesWithWindow)) {
        RemoveAllColumns();
        ReleaseFonts();
    } else {
        ReleaseItems(); // what the parent has put in meanwhile
        if (listStyle & GLS_OWNFONT) {
            fontLabelText = nullptr;
        }
    }
    themeHeader.Reset();
    themeButton.Reset();
    return 0;
}

LRESULT GList::OnNcDestroy()
{
    if (editWindows) {
        EndEdit();
    }
    ForgetLayout();
    GWndScroll::OnNcDestroy();
    themeList.Close();
    return Frame::Detach(*this);
}

LRESULT GList::OnThemeChanged()
{
    if (gesso::MendExplorerStyle(m_hWnd)) {
        return 0;
    }
    themeList.Open(m_hWnd, L"LISTVIEW");
    OpenCellThemes();
    MakeMissingFonts();
    Invalidate(0);
    return 0;
}

// --- Focus and state

LRESULT GList::OnEnable(BOOL fEnable)
{
    if (!fEnable) {
        Frame::ClearState(*this, GWS_HOT | GWS_PRESSED | GWS_LISTDRAG);
    }
    return Frame::OnEnable(*this, true);
}

LRESULT GList::OnSetFocus(HWND)
{
    if (!Has(*this, Quirk::ListFirstFocusSelects)) {
        if (GetCursorItem() == NO_INDEX && ItemCount() > 0) {
            PutCursor(StartOfKeys());
        }
    } else if (lastItem == NO_INDEX && ItemCount() > 0) {
        ChangeCursor(cursorItem, 0);
        Select(0);
    }
    const gesso::Watch watch(*this);
    Invalidate(0);
    m_inside->untold.cursor = GetCursorItem();
    gesso::TellItemFocus(m_hWnd, gesso::ListInside::ChildOf(GetCursorItem()));
    if (watch && TellSelection()) {
        Frame::SendNotify(*this, static_cast<UINT>(NM_SETFOCUS));
    }
    return 0;
}

LRESULT GList::OnKillFocus(HWND)
{
    const HWND hwnd = m_hWnd;
    Invalidate(0);
    if (editWindows && !IsFocusInside()) {
        Frame::SendNotify(*this, static_cast<UINT>(LVN_FIRST));
    }
    if (Frame::IsAlive(hwnd, this)) {
        Frame::SendNotify(*this, static_cast<UINT>(NM_KILLFOCUS));
    }
    return 0;
}

// Tab is left to the dialog.
LRESULT GList::OnGetDlgCode(const MSG* pMessage) const
{
    const bool fTab = pMessage && pMessage->message == WM_KEYDOWN && pMessage->wParam == VK_TAB;
    const bool fLeft = fTab || LeavesToDialog(pMessage);
    return DLGC_WANTCHARS | DLGC_WANTARROWS | (fLeft ? 0 : DLGC_WANTALLKEYS);
}

// Enter and Esc, but for an edit in progress.
bool GList::LeavesToDialog(const MSG* pMessage) const
{
    const bool fKey = pMessage && pMessage->message == WM_KEYDOWN &&
                      (pMessage->wParam == VK_RETURN || pMessage->wParam == VK_ESCAPE);
    return fKey && !editWindows && !Has(*this, Quirk::ListTakesAllKeys);
}

LRESULT CALLBACK GList::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GList>(hwnd, uMsg, wParam, lParam);
}

LRESULT GList::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const auto uHit = static_cast<UINT>(wParam);
    const POINTS pt = gesso::PointOf(lParam);
    switch (uMsg) {
    case WM_CREATE: return OnCreate(reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_DESTROY: return OnDestroy();
    case WM_NCDESTROY: return OnNcDestroy();
    case WM_NCCALCSIZE: return OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
    case WM_NCHITTEST: return OnNcHitTest(pt);
    case WM_NCPAINT: return OnNcPaint(wParam);
    case WM_NCMOUSEMOVE: return OnNcMouseMove(uHit, pt);
    case WM_NCMOUSELEAVE: return OnNcMouseLeave();
    case WM_NCLBUTTONDOWN: return OnNcLButtonDown(uHit, pt);
    case WM_NCLBUTTONDBLCLK: return OnNcLButtonDblClk(uHit, pt);
    case WM_NCLBUTTONUP: return OnNcLButtonUp(uHit, pt);
    case WM_PAINT: return OnPaint();
    case WM_PRINTCLIENT: return OnPrintClient(reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_STYLECHANGED: return Frame::OnStyleChanged(*this);
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(*this, wParam, lParam);
    case WM_ENABLE: return OnEnable(wParam != 0);
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_GETDLGCODE: return OnGetDlgCode(reinterpret_cast<const MSG*>(lParam));
    case WM_KEYDOWN: return OnKeyDown(static_cast<UINT>(wParam), lParam, HIWORD(lParam));
    case WM_KEYUP: return OnKeyUp(static_cast<UINT>(wParam));
    case WM_CHAR: return OnTyped(static_cast<wchar_t>(wParam));
    case WM_DEADCHAR: return OnChar(static_cast<UINT>(wParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, pt);
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, pt);
    case WM_LBUTTONUP: return OnLButtonUp(wParam, pt);
    case WM_LBUTTONDBLCLK: return OnLButtonDblClk(wParam, pt);
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK: return OnRightButton(uMsg, wParam, lParam);
    case WM_CAPTURECHANGED: return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_SIZE: return OnSize(wParam, lParam);
    case WM_SETCURSOR: return OnSetCursor(reinterpret_cast<HWND>(wParam), lParam);
    case WM_MOUSEWHEEL: return OnMouseWheel(LOWORD(wParam), GET_WHEEL_DELTA_WPARAM(wParam), pt);
    case WM_VSCROLL: return OnVScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_HSCROLL: return OnHScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_NOTIFY: return OnNotify(static_cast<UINT>(wParam), reinterpret_cast<const NMHDR*>(lParam));
    case WM_MOUSEHWHEEL: return OnMouseHWheel(GET_WHEEL_DELTA_WPARAM(wParam));
    case WM_CONTEXTMENU: return 0;
    case WM_TIMER: return TakesTimer(wParam) ? 0 : Frame::Default(*this, uMsg, wParam, lParam);
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
