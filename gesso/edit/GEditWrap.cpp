// How the lines wrap at the width of the client area.

#include <gesso/edit/GEditInside.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Frame.h>

using gesso::EditLines;
using gesso::Frame;
using gesso::Misuse;
using gesso::Place;
using gesso::TextField;

// Measures lines in the window's font against the width of its client area.
class GEdit::ClientMeasure final : public gesso::LineMeasure
{
public:
    explicit ClientMeasure(const GEdit& edit) : m_measure(edit.m_hWnd, edit.m_hFont, edit.IsMasked())
    {
        RECT rc{};
        GetClientRect(edit.m_hWnd, &rc);
        m_cx = rc.right;
    }

    int LineHeight() const { return m_measure->LineHeight(); }
    int Width() const override { return m_cx; }
    int Compare(LPCWSTR psz, UINT nLength) const override
    {
        return m_measure->CompareWidth(psz, nLength, m_cx);
    }
    UINT CountFitting(LPCWSTR psz, UINT nLength) const override
    {
        return m_measure->CountFitting(psz, nLength, m_cx);
    }

private:
    gesso::WindowMeasure m_measure;
    int m_cx;
};

bool GEdit::IsMasked() const
{
    return Frame::Style(*this) & ES_PASSWORD;
}

// A popup's lines end where the text says so, and so do those of a field for a label.
bool GEdit::KeepsLines() const
{
    return !m_hWnd || Own().fOneLine || (Frame::Style(*this) & WS_POPUP);
}

void GEdit::Repair(TextField& field) const
{
    if (!KeepsLines()) {
        field.PutCaret(field.Lines().Repair(ClientMeasure(*this), field.Caret()));
    }
}

void GEdit::WrapAll(TextField& field) const
{
    if (!KeepsLines()) {
        field.PutCaret(field.Lines().WrapAll(ClientMeasure(*this), field.Caret()));
    }
}

int GEdit::DoesFitLine(UINT nLine) const
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::DoesFitLine: no such line");
        return 0;
    }
    const EditLines& lines = Own().lines;
    const UINT nOffset = lines.OffsetOfLine(nLine);
    return ClientMeasure(*this).Compare(lines.TextAt(nOffset), lines.LengthWithin(nLine, nOffset)) < 0;
}

int GEdit::DoesFitHeight() const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    return LONGLONG{ClientMeasure(*this).LineHeight()} * m_aLines.GetLength() < rc.bottom;
}

int GEdit::LeftWordBreak(UINT nLine, UINT nOffset) const
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::LeftWordBreak: no such line");
        return 0;
    }
    const UINT nLength = m_aLines[nLine];
    return -static_cast<int>(nLength - Own().lines.ShorterByWord(nOffset, nLength));
}

int GEdit::RightWordBreak(UINT nLine, UINT nOffset) const
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::RightWordBreak: no such line");
        return 0;
    }
    const EditLines& lines = Own().lines;
    const UINT nLength = m_aLines[nLine];
    UINT i = lines.LongerByWord(nOffset, nLength);
    // Fixed behaviour: a line end is no space here, though wrapping stops at it; a derived class would be
    // given a shorter step.
    while (lines.CharAt(nOffset + i) != 0 && lines.CharAt(nOffset + i - 1) != L' ') {
        ++i;
    }
    return static_cast<int>(i - nLength);
}

int GEdit::RecalculateLine(UINT nLine)
{
    if (nLine >= m_aLines.GetLength()) {
        Misuse("GEdit::RecalculateLine: no such line");
        return 0;
    }
    if (KeepsLines()) {
        return 0;
    }
    TextField field = Field();
    Place caret = field.Caret();
    const int nChanged = field.Lines().Refit(ClientMeasure(*this), nLine, &caret);
    field.PutCaret(caret);
    ChangeSelection(field);
    return nChanged;
}
