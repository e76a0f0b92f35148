// What an edit field says of itself to those who do not see it, and what it tells them.
#include <gesso/access/AccessibleSide.h>
#include <gesso/containers/OStringEx.h>
#include <gesso/edit/GEditModern.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>

using gesso::AccessibleId;
using gesso::AccessString;
using gesso::Frame;
using gesso::Role;

namespace {

constexpr DWORD TEXT_SELECTION_CHANGED =
    0x8014; // EVENT_OBJECT_TEXTSELECTIONCHANGED, which not all headers have

} // namespace

class GEdit::Access final : public gesso::SideOf<GEdit>
{
public:
    Role RoleOf(const GWnd&, AccessibleId) const override { return Role::Text; }
    AccessString ValueOf(const GWnd& wnd, AccessibleId) const override
    {
        const GEdit& edit = Of(wnd);
        OStringEx<wchar_t> strText;
        int nLength = edit.GetTextLength() + 1;
        wchar_t* const psz = Inside::IsSecret(edit) ? nullptr : strText.GetBuffer(static_cast<UINT>(nLength));
        if (psz && edit.GetText(psz, &nLength)) {
            strText.ReleaseBuffer(static_cast<UINT>(nLength));
        }
        return strText;
    }
    bool HasValue(const GWnd&, AccessibleId) const override { return true; }
    // In Classic nothing keeps the user from editing.
    UINT StateOf(const GWnd& wnd, AccessibleId) const override
    {
        const bool fReadOnly = Of(wnd).AsModern() && (Frame::Style(wnd) & ES_READONLY);
        return StateOfWindow(Frame::Handle(wnd), true) | (fReadOnly ? STATE_SYSTEM_READONLY : 0U) |
               (Inside::IsSecret(Of(wnd)) ? STATE_SYSTEM_PROTECTED : 0U);
    }
    bool TakesLabel() const override { return true; }
    bool SetValue(GWnd& wnd, AccessibleId id, LPCWSTR pszValue) const override
    {
        return !(StateOf(wnd, id) & STATE_SYSTEM_READONLY) && Inside::TypeOver(Of(wnd), pszValue);
    }
};

const gesso::AccessibleSide& GEdit::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

// In Modern a field of several lines shows what is in it.
bool GEdit::Inside::IsSecret(const GEdit& edit)
{
    return edit.IsMasked() && !(edit.AsModern() && (Frame::Style(edit) & ES_MULTILINE));
}

bool GEdit::Inside::Shows(const GEdit& edit, LPCWSTR pszText)
{
    const LPCWSTR psz = pszText ? pszText : L"";
    const Modern* modern = edit.AsModern();
    const gesso::SplitText text =
        modern ? modern->editor.Text() : gesso::SplitText(edit.m_strText, edit.m_strText.GetLength());
    UINT n = 0;
    while (n < text.Length() && psz[n] && text.At(n) == psz[n]) {
        ++n;
    }
    return n == text.Length() && !psz[n];
}

// --- What is told

GEdit::Inside::Marks GEdit::Inside::MarksOf(const GEdit& edit)
{
    if (const Modern* modern = edit.AsModern()) {
        return {0, modern->editor.Caret(), 0, modern->editor.Anchor()};
    }
    return {edit.m_nCaretLine, edit.m_nCaretChar, edit.m_nAnchorLine, edit.m_nAnchorChar};
}

void GEdit::Inside::StartTelling(const GEdit& edit)
{
    fTells = true;
    nTextTold = nTextChanges;
    marksTold = MarksOf(edit);
}

void GEdit::Inside::Tell(GEdit& edit)
{
    Inside& own = edit.Own();
    const Marks marks = MarksOf(edit);
    const bool fText = std::exchange(own.nTextTold, own.nTextChanges) != own.nTextChanges;
    const bool fMarks = std::exchange(own.marksTold, marks) != marks;
    if (!own.fTells || (!fText && !fMarks)) {
        return;
    }
    const gesso::Watch watch(edit);
    const HWND hwnd = edit.m_hWnd;
    if (fText) {
        gesso::TellAccess(hwnd, EVENT_OBJECT_VALUECHANGE);
    }
    if (fMarks && watch) {
        gesso::TellAccess(hwnd, TEXT_SELECTION_CHANGED);
    }
}
