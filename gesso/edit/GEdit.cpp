// Coming to life, and the window procedure.

#include <gesso/edit/FieldInput.h>
#include <gesso/edit/GEditModern.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/FirstFont.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/WindowClass.h>

#include <utility>

using gesso::Frame;

constinit ATOM GEdit::s_aClass = 0;
constinit HCURSOR GEdit::s_hIbeam = nullptr;

namespace {

constexpr LPCWSTR THEME_CLASS = L"EDIT";

UINT RepeatOf(LPARAM lParam)
{
    return LOWORD(lParam);
}

UINT FlagsOf(LPARAM lParam)
{
    return HIWORD(lParam);
}

// The lower half of its address: it must fit where the values were.
UINT MarkOf(const GEdit& edit)
{
    return static_cast<UINT>(reinterpret_cast<UINT_PTR>(&edit));
}

} // namespace

ATOM GEdit::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GEdit", WindowProc, gesso::CLASS_TEXT_ENTRY);
}

// Where a host's compiler has put what derived classes know by name.
struct GEdit::Layout
{
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
    static_assert(sizeof(GWndScroll) == 160);
    static_assert(offsetof(GEdit, m_hTheme) == 160);
    static_assert(offsetof(GEdit, m_hFont) == 176);
    static_assert(offsetof(GEdit, m_nMargin) == 184);
    static_assert(offsetof(GEdit, m_strText) == 192);
    static_assert(offsetof(GEdit, m_aLines) == 200);
    static_assert(offsetof(GEdit, m_hitDown) == 224);
    static_assert(offsetof(GEdit, m_hitMove) == 236);
    static_assert(offsetof(GEdit, m_nCaretLine) == 248);
    static_assert(offsetof(GEdit, m_nCaretChar) == 252);
    static_assert(offsetof(GEdit, m_nAnchorLine) == 256);
    static_assert(offsetof(GEdit, m_nAnchorChar) == 260);
    static_assert(offsetof(GEdit, m_inside) == 264 && offsetof(GEdit, m_nInsideMark) == 272);
    static_assert(sizeof(GEdit) == 280);
#pragma GCC diagnostic pop
};

GEdit::GEdit() : m_strText(gesso::EditLines::FIRST_CAPACITY)
{
    m_aLines.GetAtGrow(0) = 0;
    gesso::MakeOnce(s_hIbeam, gesso::LoadIBeam);
}

GEdit::GEdit(const GEdit& other)
    : GWndScroll(other), m_hTheme(other.m_hTheme), m_hFont(other.m_hFont), m_nMargin(other.m_nMargin),
      m_strText(gesso::EditLines::FIRST_CAPACITY), m_hitDown(other.m_hitDown), m_hitMove(other.m_hitMove)
{
    m_aLines.GetAtGrow(0) = 0;
    CopyTextOf(other);
    Own().fCaret = other.Own().fCaret;
    Own().chRefused = other.Own().chRefused;
}

GEdit& GEdit::operator=(const GEdit& other)
{
    if (this == &other) {
        return *this;
    }
    // From a copy of its own: its window goes on as it is, with the copy's text.
    const bool fStays = m_hWnd && m_hWnd == other.m_hWnd && AsModern();
    GWndScroll::operator=(other);
    m_hTheme = other.m_hTheme;
    m_hFont = other.m_hFont;
    m_nMargin = other.m_nMargin;
    m_hitDown = other.m_hitDown;
    m_hitMove = other.m_hitMove;
    if (CopyTextOf(other)) {
        if (fStays) {
            AsModern()->editor.SetText(m_strText);
            StartText(L"");
        } else {
            LeaveModern();
        }
    }
    Own().lines.ForgetWrapping();
    Own().fCaret = other.Own().fCaret;
    Own().chRefused = other.Own().chRefused;
    return *this;
}

GEdit::~GEdit()
{
    if (HasOwn()) {
        delete m_inside;
    }
}

bool GEdit::HasOwn() const
{
    return m_inside && m_nInsideMark == MarkOf(*this);
}

GEdit::Inside& GEdit::Own() const
{
    if (!HasOwn()) {
        m_inside = new Inside(const_cast<GEdit&>(*this)); // which changes nothing of it until it is asked to
        m_nInsideMark = MarkOf(*this);
    }
    return *m_inside;
}

GEdit::Inside::~Inside()
{
    delete pModern;
}

GEdit::Modern* GEdit::AsModern() const
{
    return HasOwn() ? m_inside->pModern : nullptr;
}

// What was edited belongs to the window that the object had.
void GEdit::LeaveModern()
{
    delete std::exchange(Own().pModern, nullptr);
}

// The text goes to where it is edited.
bool GEdit::BeModern(DWORD dwStyle)
{
    Own().pModern = new Modern(*this, dwStyle);
    const bool fTaken = Own().pModern->StartText(m_strText);
    StartText(L"");
    return fTaken;
}

HWND GEdit::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText, DWORD dwStyle,
                   DWORD dwExStyle)
{
    if (!StartText(gesso::TextOrEmpty(pszText))) {
        return nullptr;
    }
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GEdit::Init(void* pCreateData)
{
    StartText(pCreateData ? static_cast<LPCWSTR>(pCreateData) + 1 : L"");
}

int GEdit::Destroy()
{
    return DestroyWindow(m_hWnd);
}

void GEdit::SetFont(HFONT hFont)
{
    m_hFont = hFont;
    Own().lines.ForgetWrapping();
    if (Modern* modern = AsModern()) {
        modern->editor.Reflow();
    }
}

HFONT GEdit::GetFont() const
{
    return m_hFont;
}

int GEdit::GetTextLength() const
{
    const Modern* modern = AsModern();
    return static_cast<int>(modern ? modern->editor.Text().Length() : m_strText.GetLength());
}

int GEdit::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    if (const Modern* modern = AsModern()) {
        return modern->editor.GetText(pszBuffer, pnLength);
    }
    return gesso::ReadText(m_strText, pszBuffer, pnLength);
}

// --- Messages

LRESULT GEdit::OnNcCreate(const CREATESTRUCTW* pcs)
{
    Frame::SetState(*this, Frame::FirstState(*this));
    m_hTheme.Open(m_hWnd, THEME_CLASS);
    return GWndScroll::OnNcCreate(pcs);
}

LRESULT GEdit::OnCreate(const CREATESTRUCTW* pcs)
{
    LeaveModern();
    gesso::TakeFirstFont(*this, m_hFont);
    // The window has just been made with the behaviour of now.
    if (!gesso::WillHave(gesso::Quirk::EditIsPlain)) {
        const bool fTaken = BeModern(static_cast<DWORD>(pcs->style));
        Own().StartTelling(*this);
        return fTaken ? 0 : -1;
    }
    Own().lines.BeOneLine();
    ChangeSelection({Own().lines, {}, {}});
    Own().StartTelling(*this);
    return 0;
}

LRESULT GEdit::OnNcDestroy()
{
    GWndScroll::OnNcDestroy();
    m_hTheme.Reset();
    LeaveModern();
    StartText(L"");
    Own().fTells = false;
    return Frame::Detach(*this);
}

LRESULT GEdit::OnSetFocus(HWND)
{
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    gesso::CreateTextCaret(m_hWnd, m_hFont);
    Own().fCaret = true;
    UpdateCursorPos();
    ShowCaret(m_hWnd);
    Frame::SendNotify(*this, static_cast<UINT>(NM_SETFOCUS));
    return 0;
}

LRESULT GEdit::OnKillFocus(HWND)
{
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    Own().fCaret = false;
    DestroyCaret();
    Frame::SendNotify(*this, static_cast<UINT>(NM_KILLFOCUS));
    return 0;
}

LRESULT GEdit::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GEdit::OnSetText(LPCWSTR pszText)
{
    Modern* modern = AsModern();
    return modern ? modern->SetTextAndTell(pszText) : SetText(pszText);
}

LRESULT GEdit::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    if (const Modern* modern = AsModern()) {
        return modern->editor.CopyText(nCapacity, pszBuffer);
    }
    return gesso::ReplyGetText(*this, m_strText, nCapacity, pszBuffer);
}

LRESULT GEdit::OnGetTextLength() const
{
    return GetTextLength();
}

LRESULT GEdit::OnSetFont(HFONT hFont, UINT uRedraw)
{
    Own().lines.ForgetWrapping();
    const LRESULT lAnswer = Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
    if (Modern* modern = AsModern()) {
        modern->editor.Reflow();
    }
    return lAnswer;
}

LRESULT GEdit::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GEdit::OnStyleChanged()
{
    Own().lines.ForgetWrapping();
    return Frame::OnStyleChanged(*this);
}

LRESULT GEdit::OnThemeChanged()
{
    Frame::OnThemeChanged(*this, m_hTheme, THEME_CLASS);
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    return 0;
}

LRESULT GEdit::OnSetCursor() const
{
    SetCursor(s_hIbeam);
    return 1;
}

LRESULT GEdit::OnGetDlgCode(const MSG* pMsg) const
{
    constexpr LRESULT CODE = DLGC_WANTCHARS | DLGC_WANTARROWS;
    if (pMsg && pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_ESCAPE) {
        return CODE;
    }
    return Frame::Style(*this) & ES_WANTRETURN ? CODE | DLGC_WANTALLKEYS : CODE;
}

LRESULT GEdit::OnSetSel(int nStart, int nEnd)
{
    SetSel(nStart, nEnd);
    return 0;
}

LRESULT CALLBACK GEdit::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GEdit>(hwnd, uMsg, wParam, lParam);
}

LRESULT GEdit::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const Inside::Telling telling(*this);
    Modern* const modern = AsModern();
    LRESULT lAnswer = 0;
    if (modern && modern->OnMessage(uMsg, wParam, lParam, &lAnswer)) {
        return lAnswer;
    }
    return OnClassicMessage(uMsg, wParam, lParam);
}

// Its own menu, where it has one. The control may be gone afterwards.
bool GEdit::AnswersContextMenu(LPARAM lParam)
{
    const Inside::Telling telling(*this);
    Modern* const modern = AsModern();
    LRESULT lAnswer = 0;
    return modern && modern->OnMessage(WM_CONTEXTMENU, 0, lParam, &lAnswer);
}

LRESULT GEdit::OnClassicMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const POINTS pt = gesso::PointOf(lParam);
    const auto uHit = static_cast<UINT>(wParam);
    switch (uMsg) {
    case WM_CREATE: return OnCreate(reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_NCDESTROY: return OnNcDestroy();
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_ENABLE: return OnEnable(wParam != 0);
    case WM_SETTEXT: return OnSetText(reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT: return OnGetText(static_cast<UINT>(wParam), reinterpret_cast<LPWSTR>(lParam));
    case WM_GETTEXTLENGTH: return OnGetTextLength();
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_PRINTCLIENT: return OnPrintClient(reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_SETCURSOR: return OnSetCursor();
    case WM_SETFONT: return OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<UINT>(lParam));
    case WM_GETFONT: return OnGetFont();
    case WM_STYLECHANGED: return OnStyleChanged();
    case WM_VSCROLL: Invalidate(0); return 0;
    case WM_NCCALCSIZE: return OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
    case WM_NCHITTEST: return OnNcHitTest(pt);
    case WM_NCPAINT: return OnNcPaint(wParam);
    case WM_GETDLGCODE: return OnGetDlgCode(reinterpret_cast<const MSG*>(lParam));
    case WM_NCMOUSEMOVE: return OnNcMouseMove(uHit, pt);
    case WM_NCLBUTTONDOWN: return OnNcLButtonDown(uHit, pt);
    case WM_NCLBUTTONDBLCLK: return OnNcLButtonDblClk(uHit, pt);
    case WM_NCLBUTTONUP: return OnNcLButtonUp(uHit, pt);
    case WM_NCMOUSELEAVE: return OnNcMouseLeave();
    case EM_SETSEL: return OnSetSel(static_cast<int>(wParam), static_cast<int>(lParam));
    case WM_KEYDOWN: return OnKeyDown(static_cast<UINT>(wParam), RepeatOf(lParam), FlagsOf(lParam));
    case WM_CHAR: return OnChar(static_cast<UINT>(wParam), RepeatOf(lParam), FlagsOf(lParam));
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, pt);
    case WM_LBUTTONDBLCLK: return OnLButtonDblClk(wParam, pt);
    case WM_LBUTTONUP: return OnLButtonUp(wParam, pt);
    case WM_MOUSEMOVE: return OnMouseMove(wParam, pt);
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_CAPTURECHANGED: return OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_THEMECHANGED: return OnThemeChanged();
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(*this, wParam, lParam);
    case WM_DESTROY:
    case WM_WINDOWPOSCHANGED:
    case WM_NOTIFY:
    case WM_CONTEXTMENU:
    case WM_NCACTIVATE:
    case WM_KEYUP:
    case WM_DEADCHAR:
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
    case WM_APPCOMMAND: return 0;
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
