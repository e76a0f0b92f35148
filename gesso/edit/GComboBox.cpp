// A combo box's window, its items and the selection.

#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GComboBoxList.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/WindowClass.h>

#include <algorithm>

using gesso::Frame;

constinit ATOM GComboBox::s_aClass = 0;
constinit HCURSOR GComboBox::s_hIbeam = nullptr;

namespace {

constexpr int FIRST_TEXT_LIMIT = 30000;
constexpr int DROPDOWN_DIALOG_UNITS = 150;
constexpr UINT NONE = static_cast<UINT>(-1);
constexpr GComboBox::HitTestInfo NO_HIT{{}, -1, 0};

UINT FirstDropdownHeight(HWND hwndParent)
{
    RECT rc{0, 0, 0, DROPDOWN_DIALOG_UNITS};
    MapDialogRect(hwndParent, &rc); // leaves the units as pixels where the parent is no dialog
    return static_cast<UINT>(rc.bottom);
}

} // namespace

void gesso::DeleteComboList(GComboBoxList* pList)
{
    delete pList;
}

// --- The object and its window

GComboBox::GComboBox() : m_nTextLimit(FIRST_TEXT_LIMIT), m_hitDown(NO_HIT), m_hitMove(NO_HIT)
{
    if (!s_hIbeam) {
        s_hIbeam = gesso::LoadIBeam();
    }
    m_pList.Reset(new GComboBoxList);
    m_pList->m_pOwner = this;
    m_pList->m_pItems = &m_aItems;
}

GComboBox::GComboBox(const GComboBox& other)
    : GWnd(other), m_hTheme(other.m_hTheme), m_hFont(other.m_hFont), m_nTextLimit(other.m_nTextLimit),
      m_nDropdownHeight(other.m_nDropdownHeight), m_strText(other.m_strText), m_aItems(other.m_aItems),
      m_pList(other.m_pList), m_hitDown(other.m_hitDown), m_hitMove(other.m_hitMove),
      m_nCaret(other.m_nCaret), m_nAnchor(other.m_nAnchor), m_bCaret(other.m_bCaret), m_fOwnsItems(false)
{}

GComboBox& GComboBox::operator=(const GComboBox& other)
{
    if (this == &other) {
        return *this;
    }
    ReleaseItems();
    GWnd::operator=(other);
    m_hTheme = other.m_hTheme;
    m_hFont = other.m_hFont;
    m_nTextLimit = other.m_nTextLimit;
    m_nDropdownHeight = other.m_nDropdownHeight;
    m_strText = other.m_strText;
    m_aItems = other.m_aItems;
    m_pList = other.m_pList;
    m_hitDown = other.m_hitDown;
    m_hitMove = other.m_hitMove;
    m_nCaret = other.m_nCaret;
    m_nAnchor = other.m_nAnchor;
    m_bCaret = other.m_bCaret;
    m_fOwnsItems = false;
    return *this;
}

GComboBox::~GComboBox()
{
    if (m_fOwnsItems && IsDropped()) {
        m_pList->Close();
    }
    ReleaseItems();
}

ATOM GComboBox::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GComboBox", WindowProc, gesso::CLASS_TEXT_ENTRY);
}

HWND GComboBox::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwStyle, DWORD dwExStyle)
{
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GComboBox::Init(void* pCreateData)
{
    gesso::ControlText text;
    text.Reset(gesso::CopyCreationText(pCreateData));
    SetText(text);
}

int GComboBox::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GComboBox::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GComboBox::GetStyle() const
{
    return Frame::Style(*this);
}

DWORD GComboBox::Kind() const
{
    return Frame::Style(*this) & GCBS_KIND;
}

void GComboBox::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

HFONT GComboBox::GetFont() const
{
    return m_hFont;
}

UINT GComboBox::SetDropdownHeight()
{
    return m_nDropdownHeight;
}

void GComboBox::SetDropdownHeight(UINT nHeight)
{
    m_nDropdownHeight = nHeight;
}

LRESULT GComboBox::OnCreate(const CREATESTRUCTW*)
{
    m_dwState = Frame::FIRST_STATE;
    m_hTheme.Reset(OpenThemeData(m_hWnd, L"COMBOBOX"));
    m_hFont = g_hDefaultFont;
    m_hitDown = NO_HIT;
    m_hitMove = NO_HIT;
    m_bCaret = 0;
    if (!m_nDropdownHeight) {
        m_nDropdownHeight = FirstDropdownHeight(GetParent());
    }
    return 0;
}

LRESULT GComboBox::OnDestroy()
{
    if (IsDropped()) {
        m_pList->Close();
    }
    m_bCaret = 0;
    m_hTheme.Reset();
    return Frame::Detach(*this);
}

// --- Text

int GComboBox::SetText(LPCWSTR pszText)
{
    m_strText = gesso::TextOrEmpty(pszText);
    SetCaret(m_strText.GetLength(), m_strText.GetLength());
    UpdateCursorPos();
    Invalidate(0);
    return 1;
}

int GComboBox::GetTextLength() const
{
    return static_cast<int>(m_strText.GetLength());
}

int GComboBox::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_strText, pszBuffer, pnLength);
}

// --- Items

// A copy leaves the items to the control that it was made from.
void GComboBox::Release(ComboItem* pItem) const
{
    if (m_fOwnsItems) {
        gesso::FreeText(pItem->pszText);
        delete pItem;
    }
}

void GComboBox::ReleaseItems()
{
    for (ComboItem* pItem : m_aItems) {
        Release(pItem);
    }
    m_aItems.RemoveAll();
}

ComboItem* GComboBox::ItemAt(UINT nIndex) const
{
    return nIndex < m_aItems.GetLength() ? m_aItems[nIndex] : nullptr;
}

ComboItem* GComboBox::CheckedItem(UINT nIndex, const char* pszOperation) const
{
    ComboItem* pItem = ItemAt(nIndex);
    if (!pItem) {
        gesso::Misuse(pszOperation);
    }
    return pItem;
}

UINT GComboBox::InsertItem(UINT nIndex, UINT nFlags, LPCWSTR pszText, UINT nImage, void* pData)
{
    const UINT nAt = std::min(nIndex, m_aItems.GetLength());
    m_aItems.InsertAt(nAt, new ComboItem{nFlags, gesso::CopyText(pszText), nImage, pData});
    return nAt;
}

UINT GComboBox::RemoveItem(UINT nIndex)
{
    ComboItem* pItem = ItemAt(nIndex);
    if (!pItem) {
        return NONE;
    }
    m_aItems.RemoveAt(nIndex, 1);
    Release(pItem);
    return m_aItems.GetLength();
}

void GComboBox::RemoveAllItems()
{
    ReleaseItems();
    m_pList->m_nSelected = NONE;
}

UINT GComboBox::GetItemCount() const
{
    return m_aItems.GetLength();
}

UINT GComboBox::GetItemFlags(UINT nIndex) const
{
    const ComboItem* pItem = CheckedItem(nIndex, "GComboBox::GetItemFlags: the index");
    return pItem ? pItem->nFlags : 0;
}

LPCWSTR GComboBox::GetItemText(UINT nIndex) const
{
    const ComboItem* pItem = CheckedItem(nIndex, "GComboBox::GetItemText: the index");
    return pItem ? pItem->pszText : nullptr;
}

UINT GComboBox::GetItemImage(UINT nIndex) const
{
    const ComboItem* pItem = CheckedItem(nIndex, "GComboBox::GetItemImage: the index");
    return pItem ? pItem->nImage : 0;
}

void* GComboBox::GetItemCustomData(UINT nIndex) const
{
    const ComboItem* pItem = CheckedItem(nIndex, "GComboBox::GetItemCustomData: the index");
    return pItem ? pItem->pData : nullptr;
}

void GComboBox::SetItemFlags(UINT nIndex, UINT nFlags)
{
    if (ComboItem* pItem = CheckedItem(nIndex, "GComboBox::SetItemFlags: the index")) {
        pItem->nFlags = nFlags;
    }
}

void GComboBox::SetItemText(UINT nIndex, LPCWSTR pszText)
{
    if (ComboItem* pItem = CheckedItem(nIndex, "GComboBox::SetItemText: the index")) {
        const LPWSTR pszFormer = pItem->pszText;
        pItem->pszText = gesso::CopyText(pszText);
        gesso::FreeText(pszFormer);
    }
}

void GComboBox::SetItemImage(UINT nIndex, UINT nImage)
{
    if (ComboItem* pItem = CheckedItem(nIndex, "GComboBox::SetItemImage: the index")) {
        pItem->nImage = nImage;
    }
}

void GComboBox::SetItemCustomData(UINT nIndex, void* pData)
{
    if (ComboItem* pItem = CheckedItem(nIndex, "GComboBox::SetItemCustomData: the index")) {
        pItem->pData = pData;
    }
}

// --- Selection

UINT GComboBox::Selected() const
{
    return m_pList->m_nSelected;
}

UINT GComboBox::SetSelected(UINT nIndex)
{
    const UINT nNew = nIndex < m_aItems.GetLength() ? nIndex : NONE;
    Callback(nNew);
    return nNew;
}

UINT GComboBox::GetSelected() const
{
    return Selected();
}

void GComboBox::Callback(UINT nIndex)
{
    m_pList->m_nSelected = nIndex;
    Update(false);
}

void GComboBox::Update(bool bNotify)
{
    const ComboItem* pItem = ItemAt(Selected());
    m_strText = pItem ? pItem->pszText : L"";
    if (Kind() == GCBS_DROPDOWN) {
        SetCaret(m_strText.GetLength(), 0);
        UpdateCursorPos();
    } else {
        LimitSelection();
    }
    Invalidate(0);
    if (bNotify) {
        Frame::SendCommand(*this, CBN_SELCHANGE);
    }
}

// --- Messages

LRESULT GComboBox::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GComboBox::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

LRESULT GComboBox::OnThemeChanged()
{
    return Frame::OnThemeChanged(*this, m_hTheme, L"COMBOBOX");
}

LRESULT GComboBox::OnStyleChanged()
{
    return Frame::OnStyleChanged(*this);
}

LRESULT GComboBox::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT GComboBox::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GComboBox::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT GComboBox::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_strText, nCapacity, pszBuffer);
}

LRESULT GComboBox::OnGetTextLength() const
{
    return GetTextLength();
}

LRESULT GComboBox::OnGetDlgCode() const
{
    return DLGC_WANTCHARS | DLGC_WANTARROWS;
}

LRESULT CALLBACK GComboBox::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pCombo = Frame::ObjectOf<GComboBox>(hwnd);
    if (!pCombo) {
        return uMsg == WM_CREATE ? Frame::Attach<GComboBox>(hwnd, lParam)
                                 : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    GComboBox& combo = *pCombo;
    switch (uMsg) {
    case WM_DESTROY: return combo.OnDestroy();
    case WM_SETFOCUS: return combo.OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return combo.OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_ENABLE: return combo.OnEnable(wParam != 0);
    case WM_SETTEXT: return combo.OnSetText(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return combo.OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return combo.OnGetTextLength();
    case WM_PAINT: return gesso::PaintControl(combo, hwnd);
    case WM_ERASEBKGND: return 1;
    case WM_SETFONT: return combo.OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return combo.OnGetFont();
    case WM_STYLECHANGED: return combo.OnStyleChanged();
    case WM_PRINTCLIENT: return Frame::OnPrintClient(combo, reinterpret_cast<HDC>(wParam), lParam);
    case WM_THEMECHANGED: return combo.OnThemeChanged();
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(combo, wParam, lParam);
    case WM_GETDLGCODE: return combo.OnGetDlgCode();
    case WM_SETCURSOR: return combo.OnSetCursor(wParam, lParam);
    case WM_KEYDOWN: return combo.OnKeyDown(static_cast<UINT>(wParam), lParam);
    case WM_CHAR: return combo.OnChar(static_cast<wchar_t>(wParam), lParam);
    case WM_KEYUP:
    case WM_DEADCHAR: return 0;
    case WM_LBUTTONDOWN: return combo.OnLButtonDown(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return combo.OnLButtonUp(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONDBLCLK: return combo.OnLButtonDblClk(wParam, gesso::PointOf(lParam));
    case WM_MOUSEMOVE: return combo.OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_MOUSEWHEEL: return combo.OnMouseWheel(GET_WHEEL_DELTA_WPARAM(wParam));
    case WM_MOUSELEAVE: return combo.OnMouseLeave();
    case WM_CAPTURECHANGED: return combo.OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    default: return combo.OnComboMessage(uMsg, wParam, lParam);
    }
}
