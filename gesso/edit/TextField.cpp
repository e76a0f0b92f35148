#include <gesso/edit/ClipboardText.h>
#include <gesso/edit/TextField.h>

#include <utility>

namespace gesso {

void TextField::Select(const Place& anchor, const Place& caret)
{
    m_anchor = anchor;
    m_caret = caret;
}

void TextField::MoveTo(const Place& caret, bool fExtend)
{
    Select(fExtend ? Anchor() : caret, caret);
}

void TextField::RemoveSelection()
{
    if (HasSelection()) {
        const Place caret = m_lines.Remove(First(), Last());
        Select(caret, caret);
    }
}

bool TextField::Insert(LPCWSTR psz)
{
    LineText text(psz);
    if (!text || !m_lines.Reserve(text.str.GetLength(), text.aLines.GetLength())) {
        return false;
    }
    RemoveSelection();
    MoveTo(m_lines.Insert(Caret(), std::move(text)), false);
    return true;
}

bool TextField::Replace(LPCWSTR psz)
{
    LineText text(psz);
    if (text) {
        MoveTo(m_lines.Replace(std::move(text)), false);
        return true;
    }
    return false;
}

bool TextField::InsertBreak()
{
    if (!m_lines.Reserve(EditLines::BREAK_LENGTH, 1)) {
        return false;
    }
    RemoveSelection();
    MoveTo(m_lines.InsertBreak(Caret(), m_lines.OffsetOfLine(Caret().nLine)), false);
    return true;
}

bool TextField::RemoveBefore()
{
    if (HasSelection()) {
        RemoveSelection();
        return true;
    }
    const Place former = Caret();
    MoveTo(m_lines.RemoveBefore(former), false);
    return former != Place{0, 0};
}

bool TextField::RemoveBehind()
{
    if (HasSelection()) {
        RemoveSelection();
        return true;
    }
    Place caret = Caret();
    const bool fRemoved = m_lines.RemoveBehind(&caret);
    MoveTo(caret, false);
    return fRemoved;
}

bool TextField::Copy(const GWnd& wnd) const
{
    const UINT nStart = std::min(m_lines.OffsetOf(First()), m_lines.TextLength());
    const UINT nEnd = std::min(m_lines.OffsetOf(Last()), m_lines.TextLength());
    return nStart < nEnd && PutClipboardText(wnd, m_lines.TextAt(nStart), nEnd - nStart);
}

bool TextField::Offered(const GWnd& wnd, PastedAs as, OStringEx<wchar_t>* pstr)
{
    if (!GetClipboardText(wnd, pstr)) {
        return false;
    }
    if (as == PastedAs::OneLine) {
        pstr->Remove(L'\r');
        pstr->Replace(L'\n', L' ');
    }
    return true;
}

} // namespace gesso
