// What a text field paints: over the background that its control has drawn, row by row.

#include <gesso/edit/TextEditorInside.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/framework/Saturate.h>

#include <algorithm>
#include <optional>

namespace gesso {

namespace {

struct SelectionLook
{
    COLORREF crFill, crText;
};

// Without the focus a selection that stays stands back; in Light it looks the same.
SelectionLook LookOfSelection(bool fFocus)
{
    if (!fFocus && IsDrawnFlat()) {
        return {ColorOf(ColorRole::InactiveSelection), ColorOf(ColorRole::InactiveSelectionText)};
    }
    return {ColorOf(Color::FieldSelection), ColorOf(Color::FieldSelectedText)};
}

// In Light selected text keeps its colour, unless the host has set one.
bool SelectedTextDiffers(const SelectionLook& look)
{
    return IsDrawnAs(ColorRole::SelectionText) && look.crText != ColorOf(Color::FieldText);
}

template <class DRAW> void DrawSelectedText(HDC hdc, const RECT& rc, COLORREF crText, const DRAW& draw)
{
    const StateScope state(hdc);
    IntersectClipRect(hdc, rc.left, rc.top, rc.right, rc.bottom);
    SetTextColor(hdc, crText);
    draw();
}

} // namespace

void TextEditor::Inside::Fill(HDC hdc, const RECT& rc, COLORREF cr)
{
    BrushHandle brush;
    brush.Reset(CreateSolidBrush(cr));
    FillRect(hdc, &rc, brush);
}

void TextEditor::Draw(HDC hdc, const RECT& rcShown)
{
    const TransparentScope mode(hdc);
    const SelectScope font(hdc, m_inside->site.Font());
    const TextColorScope color(hdc,
                               ColorOf(m_inside->IsEnabled() ? Color::FieldText : Color::FieldDisabledText));
    const StateScope state(hdc);
    const RECT rc = m_inside->Area();
    IntersectClipRect(hdc, rc.left, rc.top, rc.right, rc.bottom);
    try {
        m_inside->NeedStyle(hdc);
        m_inside->WrapInView(hdc);
        m_inside->DrawRows(hdc, rcShown);
        m_inside->DrawCue(hdc);
        m_inside->DrawDropMark(hdc);
    } catch (const std::bad_alloc&) {
        m_inside->ForgetLines(); // the rest shows when there is memory again
    }
}

// The rows that touch rcShown.
void TextEditor::Inside::DrawRows(HDC hdc, const RECT& rcShown)
{
    const RECT rc = Area();
    int64_t y = rc.top;
    for (UINT nRow = nTop; nRow < model.Rows().Count() && y < rc.bottom; ++nRow, y += nRowHeight) {
        if (y < rcShown.bottom && y + nRowHeight > rcShown.top) {
            DrawRow(hdc, nRow, static_cast<int>(y), rc);
        }
    }
}

void TextEditor::Inside::DrawRow(HDC hdc, UINT nRow, int y, const RECT& rcArea)
{
    LayoutOverlay::Add(hdc, {rcArea.left, y, rcArea.right, y + nRowHeight});
    if (composition.IsActive() && nRow == CaretRow()) {
        DrawComposedRow(hdc, rcArea);
        return;
    }
    PreparedLine& line = Line(hdc, nRow);
    const LineSource source = Source(hdc, nRow);
    const int nLeft = rcArea.left + LeftOf(hdc, nRow) - xScroll;
    const int nFrom = rcArea.left - nLeft;
    const int nTo = rcArea.right - nLeft;
    const UINT nStart = source.nStart;
    const TextRange selected = model.Selection();
    const UINT nEnd = nStart + line.Length();
    std::vector<PreparedLine::Stretch> stretches;
    if (selected.nFrom < nEnd && selected.nTo > nStart && ShowsSelection()) {
        const TextRange part{std::max(selected.nFrom, nStart) - nStart,
                             std::min(selected.nTo, nEnd) - nStart};
        stretches = line.Stretches(source, part, nFrom, nTo);
    }
    const auto placeOf = [&](const PreparedLine::Stretch& stretch) {
        return RECT{nLeft + std::max(stretch.nLeft, nFrom), y, nLeft + std::min(stretch.nRight, nTo),
                    y + nRowHeight};
    };
    const SelectionLook look = LookOfSelection(HasFocus());
    for (const PreparedLine::Stretch& stretch : stretches) {
        Fill(hdc, placeOf(stretch), look.crFill);
    }
    std::optional<StateScope> state;
    if (!stretches.empty() && SelectedTextDiffers(look)) {
        state.emplace(hdc);
        for (const PreparedLine::Stretch& stretch : stretches) {
            const RECT rc = placeOf(stretch);
            DrawSelectedText(hdc, rc, look.crText, [&] { line.Draw(source, {nLeft, y}, nFrom, nTo); });
            ExcludeClipRect(hdc, rc.left, rc.top, rc.right, rc.bottom);
        }
    }
    line.Draw(source, {nLeft, y}, nFrom, nTo);
}

bool TextEditor::Inside::ShowsSelection() const
{
    return model.HasSelection() && (HasFocus() || (Style() & ES_NOHIDESEL));
}

bool TextEditor::Inside::ShowsCue() const
{
    return model.Length() == 0 && !composition.IsActive() && cue.size() > 1 && (fCueWithFocus || !HasFocus());
}

void TextEditor::Inside::DrawCue(HDC hdc)
{
    if (!ShowsCue()) {
        return;
    }
    const TextColorScope color(hdc, ColorOf(Color::FieldCue));
    const RECT rc = Area();
    UINT uFormat = Style() & ES_CENTER ? DT_CENTER : Style() & ES_RIGHT ? DT_RIGHT : DT_LEFT;
    if (!IsMultiLine()) {
        RECT rcText{0, 0, rc.right - rc.left, 1};
        CDrawText::DrawText_Prepare(hdc, cue.data(), -1, &rcText, DT_SINGLELINE | DT_CALCRECT, 1, nullptr);
        // What is too wide shows its beginning.
        uFormat = DT_SINGLELINE | (rcText.right <= rc.right - rc.left ? uFormat : DT_LEFT);
    }
    CDrawText::DrawTextW(hdc, cue.data(), -1, rc, uFormat, nRowHeight, nullptr);
}

// Where what is dragged would go.
void TextEditor::Inside::DrawDropMark(HDC hdc)
{
    if (!dropAt || *dropAt > model.Length()) {
        return;
    }
    const UINT nRow = model.Rows().RowOf(*dropAt);
    const CaretPlace place{*dropAt - model.Rows().Start(nRow), false};
    const RECT rc = Area();
    const int x = rc.left + LeftOf(hdc, nRow) + Line(hdc, nRow).XOf(Source(hdc, nRow), place) - xScroll;
    const int y = Saturated(rc.top + (int64_t{nRow} - nTop) * nRowHeight);
    Fill(hdc, {x, y, x + 1, Saturated(int64_t{y} + nRowHeight)}, ColorOf(Color::FieldText));
}

} // namespace gesso
