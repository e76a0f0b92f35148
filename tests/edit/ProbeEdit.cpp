#include "ProbeEdit.h"

#include "../support/Host.h"

#include <gesso/edit/TextField.h>

#include <algorithm>

namespace test {

std::string ProbeEdit::Lines() const
{
    OStringEx<wchar_t> shown(m_strText.GetLength() + 3 * m_aLines.GetLength() + 1);
    UINT nOffset = 0;
    const auto add = [&](LPCWSTR psz, UINT n) { shown.Insert(shown.GetLength(), psz, n); };
    for (UINT i = 0; i < m_aLines.GetLength(); ++i) {
        const UINT nStart = std::min(nOffset, m_strText.GetLength());
        add(static_cast<LPCWSTR>(m_strText) + nStart, std::min(m_aLines[i], m_strText.GetLength() - nStart));
        if (LengthOfLine(i, nOffset) > m_aLines[i]) {
            add(L"/", 1);
        }
        add(L"|", 1);
        nOffset += LengthOfLine(i, nOffset);
    }
    return Narrow(shown);
}

std::string ProbeEdit::Caret() const
{
    const auto place = [](UINT nLine, UINT nChar) {
        return std::to_string(nLine) + "," + std::to_string(static_cast<int>(nChar));
    };
    const std::string caret = place(m_nCaretLine, m_nCaretChar);
    const std::string anchor = place(m_nAnchorLine, m_nAnchorChar);
    return caret == anchor ? caret : anchor + "-" + caret;
}

void ProbeEdit::PutCaret(UINT nLine, UINT nChar)
{
    Select(nLine, nChar, nLine, nChar);
}

void ProbeEdit::Select(UINT nAnchorLine, UINT nAnchorChar, UINT nCaretLine, UINT nCaretChar)
{
    m_nAnchorLine = nAnchorLine;
    m_nAnchorChar = nAnchorChar;
    m_nCaretLine = nCaretLine;
    m_nCaretChar = nCaretChar;
    UpdateCursorPos();
}

std::string ProbeEdit::Fault()
{
    gesso::EditLines lines(m_strText, m_aLines);
    const gesso::TextField field(lines, {m_nCaretLine, m_nCaretChar}, {m_nAnchorLine, m_nAnchorChar});
    return field.Check() ? "" : "lines that are not the text, or a place outside of them: " + Caret();
}

std::string ProbeEdit::HitAt(int x, int y) const
{
    HitTestInfo info{{static_cast<SHORT>(x), static_cast<SHORT>(y)}, 0, 0};
    HitTest(&info);
    return std::to_string(info.nLine) + "," + std::to_string(info.nChar);
}

} // namespace test
