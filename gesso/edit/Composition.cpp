#include <gesso/edit/Composition.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>

#include <algorithm>
#include <new>
#include <utility>

namespace gesso {

// The input method's context of a window; none where the platform has none.
class Composition::Context
{
public:
    explicit Context(HWND hwnd) : m_hwnd(hwnd), m_himc(hwnd ? ImmGetContext(hwnd) : nullptr) {}
    ~Context()
    {
        if (m_himc) {
            ImmReleaseContext(m_hwnd, m_himc);
        }
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    explicit operator bool() const { return m_himc != nullptr; }
    operator HIMC() const { return m_himc; }

    // False, with the array as it was, where the platform fails or memory runs out.
    template <class T> bool Read(DWORD dwIndex, std::vector<T>* pItems) const
    try {
        const LONG cb = m_himc ? ImmGetCompositionStringW(m_himc, dwIndex, nullptr, 0) : IMM_ERROR_GENERAL;
        if (cb < 0) {
            return false;
        }
        std::vector<T> items(static_cast<size_t>(cb) / sizeof(T));
        if (!items.empty()) {
            const auto cbRoom = static_cast<DWORD>(items.size() * sizeof(T));
            const LONG cbRead = ImmGetCompositionStringW(m_himc, dwIndex, items.data(), cbRoom);
            if (cbRead < 0) {
                return false;
            }
            items.resize(std::min<size_t>(items.size(), static_cast<size_t>(cbRead) / sizeof(T)));
        }
        *pItems = std::move(items);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }

private:
    HWND m_hwnd;
    HIMC m_himc;
};

bool Composition::IsTarget(UINT n) const
{
    return n < m_attributes.size() &&
           (m_attributes[n] == ATTR_TARGET_CONVERTED || m_attributes[n] == ATTR_TARGET_NOTCONVERTED);
}

bool Composition::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer)
{
    const GWnd& wnd = m_target.ComposedWindow();
    switch (uMsg) {
    case WM_IME_SETCONTEXT:
        // The input method shows no window for what is drawn in the field.
        *plAnswer = Frame::Default(wnd, uMsg, wParam, lParam & ~LPARAM{ISC_SHOWUICOMPOSITIONWINDOW});
        return true;
    case WM_IME_STARTCOMPOSITION:
        *plAnswer = 0;
        Start();
        return true;
    case WM_IME_COMPOSITION:
        *plAnswer = 0;
        if (!Compose(lParam)) {
            *plAnswer = TakeAsCharacters(wParam, lParam);
        }
        return true;
    case WM_IME_CHAR:
        *plAnswer = 0;
        if (m_fTyping) {
            m_target.AcceptCharacter(static_cast<wchar_t>(wParam));
        }
        return m_fTyping;
    case WM_IME_ENDCOMPOSITION:
        *plAnswer = 0;
        Forget();
        return true;
    case WM_IME_REQUEST: *plAnswer = 0; return Answer(wParam, lParam, plAnswer);
    case WM_GETDLGCODE: return WantsKey(reinterpret_cast<const MSG*>(lParam), plAnswer);
    case WM_KEYDOWN:
        if (wParam == VK_ESCAPE && IsActive()) {
            *plAnswer = 0;
            Cancel();
            return true;
        }
        return false;
    case WM_KILLFOCUS:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN: return !Finish();
    case EM_SETREADONLY: return wParam && IsActive() && !Cancel();
    default: return false;
    }
}

// Esc is the composition's before it is the dialog's.
bool Composition::WantsKey(const MSG* pMsg, LRESULT* plAnswer) const
{
    const bool fWants = IsActive() && pMsg && pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_ESCAPE;
    if (fWants) {
        *plAnswer = DLGC_WANTMESSAGE;
    }
    return fWants;
}

void Composition::Start()
{
    const Watch watch(m_target.ComposedWindow());
    Forget();
    if (watch && m_target.MayCompose()) {
        TellFont(Context(Frame::Handle(m_target.ComposedWindow())));
    }
    if (watch && m_target.MayCompose()) {
        Place();
    }
}

// False where what is accepted cannot be read, or there is no memory for it.
bool Composition::Compose(LPARAM lParam)
{
    if (!m_target.MayCompose()) {
        Cancel();
        return true;
    }
    const Context context(Frame::Handle(m_target.ComposedWindow()));
    if (lParam & GCS_RESULTSTR) {
        bool fAlive = true;
        const bool fAccepted = AcceptResult(context, &fAlive);
        if (!fAccepted || !fAlive) {
            return fAccepted;
        }
        if (!HasFocus()) { // what is composed now is another window's
            Forget();
            return true;
        }
    }
    // Without its flag there is none any more, but that a change of attributes alone comes with no flag.
    if ((lParam & GCS_COMPSTR) || !(lParam & GCS_RESULTSTR)) {
        ReadComposed(context);
    }
    return true;
}

bool Composition::AcceptResult(const Context& context, bool* pfAlive)
{
    std::vector<wchar_t> result;
    if (!context.Read(GCS_RESULTSTR, &result)) {
        return false;
    }
    const Watch watch(m_target.ComposedWindow());
    Forget();
    const bool fAccepted =
        !watch || result.empty() || m_target.Accept(result.data(), static_cast<UINT>(result.size()));
    *pfAlive = watch;
    return fAccepted;
}

// The platform sends what is accepted, one by one.
LRESULT Composition::TakeAsCharacters(WPARAM wParam, LPARAM lParam)
{
    const GWnd& wnd = m_target.ComposedWindow();
    const Watch watch(wnd);
    m_fTyping = true;
    m_target.HoldStep(true);
    const LRESULT lAnswer = Frame::Default(wnd, WM_IME_COMPOSITION, wParam, lParam);
    if (watch) {
        m_target.HoldStep(false);
        m_fTyping = false;
    }
    return lAnswer;
}

bool Composition::HasFocus() const
{
    return GetFocus() == Frame::Handle(m_target.ComposedWindow());
}

void Composition::ReadComposed(const Context& context)
{
    std::vector<wchar_t> text;
    if (!context.Read(GCS_COMPSTR, &text)) {
        return;
    }
    m_text = std::move(text);
    if (!context.Read(GCS_COMPATTR, &m_attributes)) {
        m_attributes.clear();
    }
    const LONG nCaret = ImmGetCompositionStringW(context, GCS_CURSORPOS, nullptr, 0);
    const auto nLength = static_cast<UINT>(m_text.size());
    m_nComposedCaret = nCaret < 0 ? nLength : std::min(static_cast<UINT>(nCaret), nLength);
    const Watch watch(m_target.ComposedWindow());
    m_target.ShowComposition();
    if (watch) {
        Place();
    }
}

void Composition::Forget()
{
    m_attributes.clear();
    m_nComposedCaret = 0;
    if (!std::exchange(m_text, {}).empty()) {
        m_target.ShowComposition();
    }
}

// False if the control is gone.
bool Composition::Cancel()
{
    const Watch watch(m_target.ComposedWindow());
    if (const Context context(Frame::Handle(m_target.ComposedWindow())); context) {
        ImmNotifyIME(context, NI_COMPOSITIONSTR, CPS_CANCEL, 0);
    }
    if (watch) {
        Forget();
    }
    return watch;
}

// Takes what is composed as it stands. The input method is not asked for it: where the focus goes, it would
// hand its result to the window that has it next. Without memory it stays composed. False if the control is
// gone.
bool Composition::Finish()
{
    if (!IsActive()) {
        return true;
    }
    const Watch watch(m_target.ComposedWindow());
    std::vector<wchar_t> text = std::exchange(m_text, {});
    Cancel();
    if (watch) {
        m_target.ShowComposition();
    }
    const auto nLength = static_cast<UINT>(text.size());
    if (watch && m_target.MayCompose() && !m_target.Accept(text.data(), nLength) && watch) {
        m_text = std::move(text);
        m_nComposedCaret = nLength;
        m_target.ShowComposition();
    }
    return watch;
}

// False if the control is gone.
bool Composition::FollowSecret()
{
    const HWND hwnd = Frame::Handle(m_target.ComposedWindow());
    if (!hwnd || m_target.IsSecret() == m_fSecret) {
        return true;
    }
    const Watch watch(m_target.ComposedWindow());
    m_fSecret = !m_fSecret;
    if (m_fSecret && (!IsActive() || Cancel())) {
        const HIMC himcFormer = ImmAssociateContext(hwnd, nullptr);
        if (watch) {
            m_himcFormer = himcFormer;
        }
    } else if (watch && m_himcFormer) {
        ImmAssociateContext(hwnd, std::exchange(m_himcFormer, nullptr));
    }
    return watch;
}

// --- The input method's windows

void Composition::Follow()
{
    if (IsActive()) {
        const RECT rc = m_target.ComposedRect();
        if (!EqualRect(&rc, &m_rcPlaced)) {
            Place();
        }
    }
}

void Composition::FollowFont()
{
    if (IsActive()) {
        const Watch watch(m_target.ComposedWindow());
        TellFont(Context(Frame::Handle(m_target.ComposedWindow())));
        if (watch) {
            Follow();
        }
    }
}

void Composition::Place()
{
    const Context context(Frame::Handle(m_target.ComposedWindow()));
    if (!context) {
        return;
    }
    const RECT rc = m_target.ComposedRect();
    m_rcPlaced = rc;
    COMPOSITIONFORM composition{CFS_POINT, {rc.left, rc.top}, {}};
    ImmSetCompositionWindow(context, &composition);
    CANDIDATEFORM candidates{0, CFS_EXCLUDE, {rc.left, rc.bottom}, rc};
    ImmSetCandidateWindow(context, &candidates);
}

void Composition::TellFont(const Context& context) const
{
    LOGFONTW font;
    if (context && GetObjectW(m_target.ComposedFont(), sizeof(font), &font)) {
        ImmSetCompositionFontW(context, &font);
    }
}

bool Composition::Answer(WPARAM wRequest, LPARAM lParam, LRESULT* plAnswer) const
{
    const RECT rc = m_target.ComposedRect();
    switch (wRequest) {
    case IMR_COMPOSITIONWINDOW:
        if (auto* const pForm = reinterpret_cast<COMPOSITIONFORM*>(lParam)) {
            *pForm = {CFS_POINT, {rc.left, rc.top}, {}};
            *plAnswer = 1;
        }
        return true;
    case IMR_CANDIDATEWINDOW:
        if (auto* const pForm = reinterpret_cast<CANDIDATEFORM*>(lParam)) {
            *pForm = {pForm->dwIndex, CFS_EXCLUDE, {rc.left, rc.bottom}, rc};
            *plAnswer = 1;
        }
        return true;
    case IMR_RECONVERTSTRING:
        *plAnswer = AnswerReconversion(reinterpret_cast<RECONVERTSTRING*>(lParam));
        return true;
    default: return false;
    }
}

// How many bytes it takes, with a record or without; 0 where there is nothing to convert or the record has
// too little room.
LRESULT Composition::AnswerReconversion(RECONVERTSTRING* pString) const
{
    const std::optional<TextRange> range = IsActive() ? std::nullopt : m_target.Reconvertible();
    if (!range || range->Length() == 0) {
        return 0;
    }
    const DWORD nLength = range->Length();
    const auto cb = static_cast<DWORD>(sizeof(RECONVERTSTRING) + (nLength + 1) * sizeof(wchar_t));
    if (!pString) {
        return cb;
    }
    if (pString->dwSize < cb) {
        return 0;
    }
    *pString = {cb, 0, nLength, sizeof(RECONVERTSTRING), nLength, 0, nLength, 0};
    auto* const pszTo = reinterpret_cast<wchar_t*>(pString + 1);
    pszTo[nLength] = 0;
    m_target.Reconvert(*range, pszTo);
    return cb;
}

} // namespace gesso
