// A combo box's window, its items and the selection.

#include <gesso/containers/Check.h>
#include <gesso/edit/ComboSearch.h>
#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GComboBoxModern.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/FirstFont.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/WindowClass.h>

#include <algorithm>
#include <new>
#include <utility>

using gesso::Frame;

constinit ATOM GComboBox::s_aClass = 0;
constinit HCURSOR GComboBox::s_hIbeam = nullptr;

namespace {

constexpr GComboBox::HitTestInfo NO_HIT{{}, gesso::COMBO_OUTSIDE, 0};

} // namespace

void gesso::DeleteComboList(GComboBoxList* pList)
{
    delete pList;
}

// --- The object and its window

// Where a host's compiler has put what derived classes know by name.
struct GComboBox::Layout
{
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
    static_assert(offsetof(GComboBox, m_hTheme) == 24);
    static_assert(offsetof(GComboBox, m_hFont) == 40);
    static_assert(offsetof(GComboBox, m_nTextLimit) == 48);
    static_assert(offsetof(GComboBox, m_nDropdownHeight) == 52);
    static_assert(offsetof(GComboBox, m_strText) == 56);
    static_assert(offsetof(GComboBox, m_aItems) == 64);
    static_assert(offsetof(GComboBox, m_pList) == 88);
    static_assert(offsetof(GComboBox, m_hitDown) == 104);
    static_assert(offsetof(GComboBox, m_hitMove) == 116);
    static_assert(offsetof(GComboBox, m_nCaret) == 128);
    static_assert(offsetof(GComboBox, m_nAnchor) == 132);
    static_assert(offsetof(GComboBox, m_bCaret) == 136);
    static_assert(sizeof(GComboBox) <= 144);
#pragma GCC diagnostic pop
};

GComboBox::GComboBox()
    : m_nTextLimit(gesso::FIRST_TEXT_LIMIT), m_pList(new GComboBoxList), m_inside(new Inside),
      m_hitDown(NO_HIT), m_hitMove(NO_HIT)
{
    gesso::MakeOnce(s_hIbeam, gesso::LoadIBeam);
    m_pList->m_pOwner = this;
    m_pList->m_pItems = &m_aItems;
}

GComboBox::GComboBox(const GComboBox& other)
    : GWnd(other), m_hTheme(other.m_hTheme), m_hFont(other.m_hFont), m_nTextLimit(other.m_nTextLimit),
      m_nDropdownHeight(other.m_nDropdownHeight), m_strText(other.m_strText), m_aItems(other.m_aItems),
      m_pList(other.m_pList), m_inside(other.m_inside), m_hitDown(other.m_hitDown),
      m_hitMove(other.m_hitMove), m_nCaret(other.m_nCaret), m_nAnchor(other.m_nAnchor),
      m_bCaret(other.m_bCaret), m_fOwner(false)
{}

GComboBox& GComboBox::operator=(const GComboBox& other)
{
    if (this == &other) {
        return *this;
    }
    // From a copy of its own: what both share stays, the items among it, of which some may have gone since.
    const bool fShared = m_inside == other.m_inside;
    if (!fShared) {
        ReleaseAll();
        m_fOwner = false;
        m_aItems = other.m_aItems;
    }
    GWnd::operator=(other);
    m_hTheme = other.m_hTheme;
    m_hFont = other.m_hFont;
    m_nTextLimit = other.m_nTextLimit;
    m_nDropdownHeight = other.m_nDropdownHeight;
    m_strText = other.m_strText;
    m_pList = other.m_pList;
    m_inside = other.m_inside;
    m_hitDown = other.m_hitDown;
    m_hitMove = other.m_hitMove;
    m_nCaret = other.m_nCaret;
    m_nAnchor = other.m_nAnchor;
    m_bCaret = other.m_bCaret;
    if (fShared && ShowText()) {
        Invalidate(0);
    }
    return *this;
}

GComboBox::~GComboBox()
{
    ReleaseAll();
}

void GComboBox::ReleaseAll()
{
    if (m_fOwner) {
        m_inside->fTells = false;
        m_inside->pModern.reset();
    }
    if (m_fOwner && IsDropped()) {
        ChangeExpansion(false);
    }
    ReleaseItems();
    if (m_fOwner) {
        gesso::DeleteComboList(m_pList);
        delete m_inside;
    }
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
    SetText(pCreateData ? static_cast<LPCWSTR>(pCreateData) + 1 : nullptr);
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
    if (Modern* pModern = ModernPart()) {
        pModern->OnFont();
    }
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
    m_inside->fFirstHeight = false;
}

// Of a window that has just been made.
void GComboBox::Inside::TakeFirstHeight(GComboBox& combo)
{
    if (!gesso::WillHave(gesso::Quirk::ComboListFixed)) {
        if (std::exchange(fFirstHeight, false)) {
            combo.m_nDropdownHeight = 0;
        }
    } else if (!combo.m_nDropdownHeight || (fFirstHeight && gesso::GetScaling() != gesso::Scaling::None)) {
        RECT rc{0, 0, 0, gesso::Metrics::COMBO_DROPDOWN_HEIGHT};
        const bool fMapped = MapDialogRect(combo.GetParent(), &rc); // by the font that the dialog has now
        nFirstHeight = static_cast<UINT>(rc.bottom);
        nFirstDpi = fMapped ? gesso::DpiOf(combo) : UINT{USER_DEFAULT_SCREEN_DPI};
        fFirstHeight = true;
        ScaleFirstHeight(combo);
    }
}

void GComboBox::Inside::ScaleFirstHeight(GComboBox& combo) const
{
    if (!fFirstHeight) {
        return;
    }
    const bool fScaled = gesso::GetScaling() != gesso::Scaling::None;
    combo.m_nDropdownHeight =
        static_cast<UINT>(fScaled ? MulDiv(static_cast<int>(nFirstHeight),
                                           static_cast<int>(gesso::DpiOf(combo)), static_cast<int>(nFirstDpi))
                                  : static_cast<int>(nFirstHeight));
}

// An open list follows, and is placed anew.
void GComboBox::OnScaling()
{
    if (gesso::IsDefaultFont(m_hFont)) {
        OnMessage(WM_SETFONT, reinterpret_cast<WPARAM>(gesso::DefaultFontOf(m_hWnd)), 0);
    }
    m_inside->ScaleFirstHeight(*this);
    if (IsDropped()) {
        gesso::TakeDpi(m_pList->GetHwnd(), m_hWnd);
        m_pList->OnScaling();
    }
}

LRESULT GComboBox::OnCreate(const CREATESTRUCTW*)
{
    Frame::SetState(*this, Frame::FirstState(*this));
    m_hTheme.Open(m_hWnd, L"COMBOBOX");
    gesso::TakeFirstFont(*this, m_hFont);
    m_hitDown = NO_HIT;
    m_hitMove = NO_HIT;
    m_bCaret = 0;
    StartModern();
    m_inside->TakeFirstHeight(*this);
    m_inside->StartTelling(*this);
    return 0;
}

LRESULT GComboBox::OnDestroy()
{
    m_inside->fTells = false;
    m_inside->pModern.reset(); // tells nobody of a list that goes with its control
    if (IsDropped()) {
        ChangeExpansion(false);
    }
    m_bCaret = 0;
    m_hTheme.Reset();
    return Frame::Detach(*this);
}

// --- Text

int GComboBox::SetText(LPCWSTR pszText)
{
    const Inside::Telling telling(*this);
    if (ModernPart() && !ModernPart()->HasField()) {
        return 0; // the text is the selected item's
    }
    const bool fSet = ChangeText([&](gesso::TextField& field) {
        const bool fStarted = field.Lines().Start(gesso::TextOrEmpty(pszText));
        field.MoveTo(ModernPart() ? gesso::Place{} : field.Lines().End(), false);
        return fStarted;
    });
    if (fSet) {
        if (Modern* pModern = ModernPart()) {
            pModern->OnSelected();
        }
        UpdateCursorPos();
        Invalidate(0);
    }
    return fSet;
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

bool gesso::CheckItems(const OArray<ComboItem*, ComboItem*>& aItems)
{
    const auto isSound = [&](ComboItem* const& pItem) {
        const auto isTwin = [&](const ComboItem* pOther) {
            return pOther == pItem || pOther->pszText == pItem->pszText;
        };
        return pItem && pItem->pszText && std::none_of(aItems.begin(), &pItem, isTwin);
    };
    return gesso::Check(aItems) && std::all_of(aItems.begin(), aItems.end(), isSound);
}

// A copy leaves the items to the control that it was made from.
void GComboBox::Release(ComboItem* pItem) const
{
    if (m_fOwner) {
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
    const LPWSTR pszCopy = gesso::CopyText(pszText);
    ComboItem* pItem = nullptr;
    if (pszCopy && m_aItems.AllocExtra(m_aItems.GetLength() + 1)) {
        pItem = new (std::nothrow) ComboItem{nFlags, pszCopy, nImage, pData};
    }
    if (!pItem) {
        gesso::FreeText(pszCopy);
        return gesso::NO_INDEX;
    }
    const bool fSorted = nIndex == gesso::NO_INDEX && ModernPart() && (Frame::Style(*this) & GCBS_SORT);
    const UINT nAt = fSorted ? gesso::SortedPlace(m_aItems, pszCopy) : std::min(nIndex, m_aItems.GetLength());
    const Inside::Telling telling(*this);
    m_aItems.InsertAt(nAt, pItem);
    ++m_inside->nItemChanges;
    FollowItem(nAt, 1);
    return nAt;
}

UINT GComboBox::RemoveItem(UINT nIndex)
{
    ComboItem* pItem = ItemAt(nIndex);
    if (!pItem) {
        return gesso::NO_INDEX;
    }
    const Inside::Telling telling(*this);
    m_aItems.RemoveAt(nIndex, 1);
    Release(pItem);
    ++m_inside->nItemChanges;
    FollowItem(nIndex, -1);
    return m_aItems.GetLength();
}

void GComboBox::RemoveAllItems()
{
    const Inside::Telling telling(*this);
    m_inside->nItemChanges += m_aItems.GetLength() ? 1 : 0;
    ReleaseItems();
    ChangeSelection(gesso::NO_INDEX);
    if (Modern* pModern = ModernPart()) {
        pModern->ShowItem();
        pModern->OnSelected();
        pModern->OnItemsChanged(gesso::NO_INDEX, 0);
    }
}

// The selection goes with its item, which has one place more or less in front of it or is gone.
void GComboBox::FollowItem(UINT nIndex, int nDelta)
{
    if (Has(*this, gesso::Quirk::ComboIndexStays)) {
        return;
    }
    const UINT nSelected = Selected();
    const bool fGone = nDelta < 0 && nSelected == nIndex;
    if (fGone) {
        ChangeSelection(gesso::NO_INDEX);
        Invalidate(0);
    } else if (nSelected != gesso::NO_INDEX && nSelected >= nIndex) {
        Field::Mark(*this, nSelected + static_cast<UINT>(nDelta)); // its text is what it was
    }
    if (Modern* pModern = ModernPart()) {
        if (fGone) {
            pModern->ShowItem();
        }
        pModern->OnItemsChanged(nIndex, nDelta);
    }
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
    const Inside::Telling telling(*this);
    if (ComboItem* pItem = CheckedItem(nIndex, "GComboBox::SetItemText: the index")) {
        m_inside->nItemChanges += wcscmp(pItem->pszText, gesso::TextOrEmpty(pszText)) ? 1 : 0;
        if (const LPWSTR pszCopy = gesso::CopyText(pszText)) {
            gesso::FreeText(std::exchange(pItem->pszText, pszCopy));
        }
        if (Modern* pModern = ModernPart()) {
            if (nIndex == Selected()) {
                pModern->ShowItem();
            }
            pModern->OnItemsChanged(gesso::NO_INDEX, 0);
        }
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
    return m_inside->nSelected;
}

bool GComboBox::ChangeSelection(UINT nIndex)
{
    // False, with nothing changed, where the text to be shown would have no room.
    const ComboItem* pItem = ItemAt(nIndex);
    if (pItem && !m_strText.GetBuffer(static_cast<UINT>(wcslen(pItem->pszText)) + 1)) {
        return false;
    }
    Field::Mark(*this, nIndex);
    return true;
}

// Fixed behaviour: the list has the selected item in a field of its own, also while it is closed; a class
// derived from the list would read a former one there.
void GComboBox::Field::Mark(GComboBox& combo, UINT nIndex)
{
    combo.m_inside->nSelected = nIndex;
    combo.m_pList->m_nSelected = nIndex;
}

UINT GComboBox::SetSelected(UINT nIndex)
{
    const Inside::Telling telling(*this);
    const UINT nNew = nIndex < m_aItems.GetLength() ? nIndex : gesso::NO_INDEX;
    if (!Field::Select(*this, nNew)) {
        return gesso::NO_INDEX;
    }
    if (Modern* pModern = ModernPart()) {
        pModern->OnSelected();
    }
    return nNew;
}

UINT GComboBox::GetSelected() const
{
    return Selected();
}

void GComboBox::Callback(UINT nIndex)
{
    const Inside::Telling telling(*this);
    if (!Field::Select(*this, nIndex)) {
        return;
    }
    if (Modern* pModern = ModernPart()) {
        pModern->OnSelected();
    }
}

void GComboBox::SetAutoComplete(bool bComplete)
{
    m_inside->fCompletes = bComplete;
}

bool GComboBox::Field::ShowItem(GComboBox& combo)
{
    const ComboItem* pItem = combo.ItemAt(combo.Selected());
    const bool fEdited = combo.Kind() == GCBS_DROPDOWN;
    const bool fShown = combo.ChangeText([&](gesso::TextField& field) {
        const bool fStarted = field.Lines().Start(pItem ? pItem->pszText : L"");
        if (fEdited) {
            field.SelectAll();
        }
        return fStarted;
    });
    if (fEdited) {
        combo.UpdateCursorPos();
    }
    combo.Invalidate(0);
    return fShown;
}

bool GComboBox::Field::Select(GComboBox& combo, UINT nIndex)
{
    const UINT nFormer = combo.Selected();
    if (!combo.ChangeSelection(nIndex)) {
        return false;
    }
    const bool fShown = ShowItem(combo);
    if (!fShown) {
        Mark(combo, nFormer);
    }
    return fShown;
}

void GComboBox::Update(bool bNotify)
{
    Field::ShowItem(*this);
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
    const LRESULT lAnswer = gesso::ReplyGetText(*this, m_strText, nCapacity, pszBuffer);
    const bool fCut = nCapacity > 0 && lAnswer == static_cast<LRESULT>(nCapacity);
    return ModernPart() && fCut ? lAnswer - 1 : lAnswer; // what was copied
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
    return Frame::Route<GComboBox>(hwnd, uMsg, wParam, lParam);
}

LRESULT GComboBox::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const Inside::Telling telling(*this);
    LRESULT lAnswer = 0;
    Modern* pModern = ModernPart();
    if (pModern && pModern->OnMessage(uMsg, wParam, lParam, &lAnswer)) {
        return lAnswer;
    }
    switch (uMsg) {
    case WM_DESTROY: return OnDestroy();
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_ENABLE: return OnEnable(wParam != 0);
    case WM_SETTEXT: return OnSetText(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return OnGetTextLength();
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_ERASEBKGND: return 1;
    case WM_SETFONT: return OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return OnGetFont();
    case WM_STYLECHANGED: return OnStyleChanged();
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(*this, wParam, lParam);
    case WM_GETDLGCODE: return OnGetDlgCode();
    case WM_SETCURSOR: return OnSetCursor(wParam, lParam);
    case WM_KEYDOWN: return OnKeyDown(static_cast<UINT>(wParam), lParam);
    case WM_CHAR: return OnChar(static_cast<wchar_t>(wParam), lParam);
    case WM_KEYUP:
    case WM_DEADCHAR: return 0;
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return OnLButtonUp(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONDBLCLK: return OnLButtonDblClk(wParam, gesso::PointOf(lParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_MOUSEWHEEL: return OnMouseWheel(GET_WHEEL_DELTA_WPARAM(wParam));
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_CAPTURECHANGED: return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    default: return OnComboMessage(uMsg, wParam, lParam);
    }
}
