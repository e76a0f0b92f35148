// What an input method composes in a text field: its row as it shows, and what is accepted.

#include <gesso/edit/TextEditorInside.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Saturate.h>
#include <gesso/text/TextBoundary.h>

#include <algorithm>
#include <new>

namespace gesso {
namespace {

// Of a longer row so many characters on both sides of the composed text show.
constexpr UINT COMPOSED_AROUND = 1024;

} // namespace

// The composed text in the place of what is selected of its row.
TextEditor::Inside::ComposedRow::ComposedRow(Inside& own, HDC hdc)
{
    const UINT nRow = own.CaretRow();
    const TextRange row = own.model.RowText(nRow);
    const TextRange selected = own.model.Selection();
    const TextRange replaced{std::clamp(selected.nFrom, row.nFrom, row.nTo),
                             std::clamp(selected.nTo, row.nFrom, row.nTo)};
    const SplitText text = own.model.Text();
    const UINT nFrom = replaced.nFrom - row.nFrom > COMPOSED_AROUND
                           ? std::max(row.nFrom, SnapToCluster(text, replaced.nFrom - COMPOSED_AROUND))
                           : row.nFrom;
    const UINT nTo = row.nTo - replaced.nTo > COMPOSED_AROUND
                         ? std::max(replaced.nTo, SnapToCluster(text, replaced.nTo + COMPOSED_AROUND))
                         : row.nTo;
    const std::vector<wchar_t>& inserted = own.composition.Text();
    composed = {replaced.nFrom - nFrom, replaced.nFrom - nFrom + static_cast<UINT>(inserted.size())};
    characters.resize(composed.nTo + (nTo - replaced.nTo));
    text.Copy({nFrom, replaced.nFrom}, characters.data());
    std::copy(inserted.begin(), inserted.end(), characters.begin() + composed.nFrom);
    text.Copy({replaced.nTo, nTo}, characters.data() + composed.nTo);
    line.Prepare(Source(own, hdc), static_cast<UINT>(characters.size()));

    const RECT rc = own.Area();
    const LineSource rowSource = own.Source(hdc, nRow);
    const int xCut = nFrom > row.nFrom ? own.Line(hdc, nRow).XOf(rowSource, {nFrom - row.nFrom, false}) : 0;
    xLeft = Saturated(int64_t{rc.left} + own.LeftOf(line.Width()) + xCut - own.xScroll);
    // The caret is always in view, however narrow the field.
    const int xCaret = XOf(own, hdc, own.composition.Caret());
    xLeft += std::max<int>(rc.left, std::min<int>(xCaret, std::max(rc.left, rc.right - 1))) - xCaret;
    y = Saturated(rc.top + (int64_t{nRow} - own.nTop) * own.nRowHeight);
}

LineSource TextEditor::Inside::ComposedRow::Source(Inside& own, HDC hdc) const
{
    return {hdc, {characters.data(), static_cast<UINT>(characters.size())}, 0, own.style};
}

int TextEditor::Inside::ComposedRow::XOf(Inside& own, HDC hdc, UINT nComposed)
{
    return xLeft + line.XOf(Source(own, hdc), {composed.nFrom + nComposed, nComposed > 0});
}

// --- Drawing

void TextEditor::Inside::DrawComposedRow(HDC hdc, const RECT& rcArea)
{
    ComposedRow row(*this, hdc);
    const int nFrom = rcArea.left - row.xLeft;
    const int nTo = rcArea.right - row.xLeft;
    const LineSource source = row.Source(*this, hdc);
    row.line.Draw(source, {row.xLeft, row.y}, nFrom, nTo);
    const auto nLength = static_cast<UINT>(composition.Text().size());
    for (UINT n = 0; n < nLength;) {
        const bool fTarget = composition.IsTarget(n);
        UINT nEnd = n + 1;
        while (nEnd < nLength && composition.IsTarget(nEnd) == fTarget) {
            ++nEnd;
        }
        const TextRange part{row.composed.nFrom + n, row.composed.nFrom + nEnd};
        for (const PreparedLine::Stretch& stretch : row.line.Stretches(source, part, nFrom, nTo)) {
            const int yBelow = row.y + nRowHeight;
            Fill(hdc,
                 {row.xLeft + std::max(stretch.nLeft, nFrom), yBelow - (fTarget ? 2 : 1),
                  row.xLeft + std::min(stretch.nRight, nTo), yBelow},
                 ColorOf(Color::FieldText));
        }
        n = nEnd;
    }
}

// --- What the composition asks its field for

void TextEditor::Inside::ShowComposition()
try {
    ShowChange();
} catch (const std::bad_alloc&) {
    ForgetLines();
    fPlacing = false;
}

RECT TextEditor::Inside::ComposedRect()
{
    const RECT rc = Area();
    const EditContext hdc(Window(), site.Font());
    NeedStyle(hdc);
    if (composition.IsActive()) {
        ComposedRow row(*this, hdc);
        const int xStart = row.XOf(*this, hdc, 0);
        const int xCaret = row.XOf(*this, hdc, composition.Caret());
        return {std::min(xStart, xCaret), row.y, std::max(xStart, xCaret), row.y + nRowHeight};
    }
    const POINT pt = CaretPoint(hdc);
    const int x = Saturated(int64_t{rc.left} + pt.x - xScroll);
    const int y = Saturated(rc.top + int64_t{pt.y} - int64_t{nTop} * nRowHeight);
    return {x, y, x, y + nRowHeight};
}

bool TextEditor::Inside::Accept(LPCWSTR psz, UINT n)
try {
    const Watch watch(site.Window());
    if (!site.HasRoomFor(model.Length() + n)) {
        return false;
    }
    model.TakeRefusal();
    return Insert(psz, n, EditKind::Step, Origin::User) || !watch || !model.TakeRefusal();
} catch (const std::bad_alloc&) {
    return false;
}

void TextEditor::Inside::HoldStep(bool fHold)
{
    fHold ? model.BeginStep() : model.EndStep();
}

void TextEditor::Inside::AcceptCharacter(wchar_t ch)
{
    Type(ch);
}

std::optional<TextRange> TextEditor::Inside::Reconvertible() const
{
    if (!MayChange() || Mask()) {
        return std::nullopt;
    }
    return model.HasSelection() ? model.Selection() : WordAt(model.Text(), model.Caret());
}

void TextEditor::Inside::Reconvert(const TextRange& range, wchar_t* pszTo)
{
    model.Text().Copy(range, pszTo);
    if (range != model.Selection()) {
        Select(range.nFrom, range.nTo);
        ShowChange();
    }
}

} // namespace gesso
