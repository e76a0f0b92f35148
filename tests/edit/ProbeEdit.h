// An edit field whose members a test may look at.
#pragma once

#include <gesso/gesso.h>

#include <string>
#include <vector>

namespace test {

// Opens the members that a test looks at.
class ProbeEdit : public GEdit
{
public:
    using GEdit::CalcHighliteOfLine;
    using GEdit::DeleteBreak;
    using GEdit::DeleteSelection;
    using GEdit::DoesFitHeight;
    using GEdit::DoesFitLine;
    using GEdit::InsertBreak;
    using GEdit::LeftWordBreak;
    using GEdit::LengthOfLine;
    using GEdit::OffsetOfLine;
    using GEdit::RecalculateLine;
    using GEdit::RightWordBreak;
    using GEdit::UpdateCursorPos;

    // The text with a bar behind each line and a slash for each line end: "aaaa |bb/|c|".
    std::string Lines() const;
    // "1,3", or "0,2-1,3" with a selection, whose anchor comes first.
    std::string Caret() const;
    void PutCaret(UINT nLine, UINT nChar);
    void Select(UINT nAnchorLine, UINT nAnchorChar, UINT nCaretLine, UINT nCaretChar);
    std::vector<UINT> Lengths() const { return {m_aLines.begin(), m_aLines.end()}; }
    const OStringEx<wchar_t>& Text() const { return m_strText; }
    DWORD State() const { return m_dwState; }
    // What is wrong with the text and its lines, or with the places of caret and anchor; empty if nothing is.
    std::string Fault();
    // By their places: the end of a wrapped line and the start of the next are two.
    bool IsSelected() const { return m_nCaretLine != m_nAnchorLine || m_nCaretChar != m_nAnchorChar; }
    UINT CaretOffset() const { return OffsetOfLine(m_nCaretLine) + m_nCaretChar; }
    UINT AnchorOffset() const { return OffsetOfLine(m_nAnchorLine) + m_nAnchorChar; }
    bool IsAtLineEnd() const { return m_nCaretChar == m_aLines[m_nCaretLine]; }
    bool IsAtHardEnd() const
    {
        return IsAtLineEnd() && LengthOfLine(m_nCaretLine, OffsetOfLine(m_nCaretLine)) > m_nCaretChar;
    }
    UINT CaretLine() const { return m_nCaretLine; }
    std::string HitAt(int x, int y) const;
};

} // namespace test
