// What a list asks its host for: the cells that are about to show, each once, before anything is drawn. The
// host may do anything in its answer, so that whatever was known of the list is looked up again behind it.

#include <gesso/containers/Index.h>
#include <gesso/containers/Memory.h>
#include <gesso/containers/Misuse.h>
#include <gesso/containers/StringText.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/list/ListInside.h>
#include <gesso/list/PreparedText.h>
#include <gesso/text/CDrawText.h>

#include <algorithm>
#include <new>
#include <utility>

using gesso::CELL_IMAGE;
using gesso::CELL_PREPARED;
using gesso::CELL_STATE;
using gesso::CELL_TEXT;
using gesso::CELL_TITLE_PREPARED;
using gesso::NO_INDEX;

namespace {

constexpr UINT LEAST_ROOM = 256; // records
constexpr UINT SCREENS = 4;
constexpr int ATTEMPTS = 2;
constexpr int MOST_NESTED = 4; // paints and the like, each within an answer to the one before

UINT QuestionOf(UINT bit)
{
    return bit == CELL_TEXT ? LGET_TEXT : bit == CELL_IMAGE ? LGET_IMAGE : LGET_STATE;
}

// What an element shows of its cell.
UINT BitsOf(int type)
{
    switch (type) {
    case LCT_TEXT:
    case LCT_ICONTEXT: return CELL_TEXT | CELL_PREPARED;
    case LCT_TITLE: return CELL_TEXT | CELL_TITLE_PREPARED;
    case LCT_IMAGE:
    case LCT_ICONIMAGE: return CELL_IMAGE;
    case LCT_IMAGETEXT: return CELL_IMAGE | CELL_TEXT | CELL_PREPARED;
    default: return 0;
    }
}

// A text that there is no memory for is asked for again.
void Store(ListSubItem& cell, UINT bit, LPCWSTR text, UINT number)
{
    if (bit == CELL_TEXT) {
        if (!gesso::ReplaceItemText(cell.text, text, nullptr)) {
            return;
        }
    } else if (bit == CELL_IMAGE) {
        cell.image = number;
    } else {
        cell.state |= number & LSIS_CHECKED;
    }
    cell.state |= bit;
}

// False without memory: what is left out shows nothing until it is asked for again.
template <class T> bool Append(std::vector<T>& list, const T& entry)
try {
    list.push_back(entry);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

} // namespace

namespace gesso {

// A question, for the time of its answer.
class ListInside::Question
{
public:
    Question(const GList& list, const PendingCell& cell)
        : m_life(list), m_list(list), m_cell(cell), m_itemChanges(list.m_inside->itemChanges),
          m_columnChanges(list.Virtual()->columnChanges)
    {
        m_cell.outer = std::exchange(list.Virtual()->pending, &m_cell);
    }
    ~Question()
    {
        if (IsOpen()) {
            m_list.Virtual()->pending = m_cell.outer;
        }
    }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

    // False where the list is gone, or its items are others altogether.
    bool IsOpen() const { return m_life && m_list.IsVirtual() && m_list.Virtual()->pending == &m_cell; }
    UINT Item() const { return m_cell.item; }
    bool HaveItemsMoved() const { return m_itemChanges != m_list.m_inside->itemChanges; }
    // What the answer is kept in; null where it is not.
    ListSubItem* Cell() const
    {
        VirtualList& rows = *m_list.Virtual();
        const bool fKeeps = rows.pass && rows.pass->fKeeps;
        const bool fOutdated = (m_cell.fOutdated || HaveItemsMoved()) && !fKeeps;
        if (m_cell.item == NO_INDEX || fOutdated || m_columnChanges != rows.columnChanges) {
            return nullptr;
        }
        ListItem* record = rows.cells.Get(m_cell.item, m_list.SubItemCount());
        return record ? record->SubItem(m_cell.column) : nullptr;
    }

private:
    const Lifeline m_life;
    const GList& m_list;
    PendingCell m_cell;
    UINT m_itemChanges;
    UINT m_columnChanges;
};

// A round of questions, which is repeated where the host has changed the list in its answers.
class ListInside::Pass
{
public:
    explicit Pass(GList& list)
        : m_life(list), m_list(list), m_hWnd(list.m_hWnd), m_paints(list.Virtual()->paints)
    {
        VirtualList& rows = *list.Virtual();
        if (!list.m_inside->fAsked) {
            rows.ForgetOutdated();
        }
        m_pass.outer = std::exchange(rows.pass, &m_pass);
        m_pass.fKeeps = m_pass.outer && m_pass.outer->fKeeps;
    }
    ~Pass()
    {
        if (IsOpen()) {
            m_list.Virtual()->pass = m_pass.outer;
        }
    }
    Pass(const Pass&) = delete;
    Pass& operator=(const Pass&) = delete;

    void AskForView();
    ListSubItem Answer(UINT item, UINT subItem, UINT bit);

private:
    bool IsOpen() const
    {
        return m_life && m_list.m_hWnd == m_hWnd && m_list.IsVirtual() && m_list.Virtual()->pass == &m_pass;
    }
    int Depth() const;
    bool IsViewKnown() const;
    bool IsRoundLast();
    void ShowAnswers();

    const Lifeline m_life;
    GList& m_list;
    const HWND m_hWnd;
    const UINT m_paints;
    AskingPass m_pass;
};

int ListInside::Pass::Depth() const
{
    int depth = 0;
    for (const AskingPass* pass = m_pass.outer; pass; pass = pass->outer) {
        ++depth;
    }
    return depth;
}

bool ListInside::Pass::IsViewKnown() const
{
    const CellNeeds needs = m_list.Needs();
    const ShownItems shown = m_list.ItemsInView();
    const auto isKnown = [&](UINT item) {
        return std::all_of(needs.cells.begin(), needs.cells.end(), [&](const CellNeed& need) {
            const ListSubItem* cell = m_list.KeptCell(item, need.column);
            const UINT bits = need.bits & (CELL_TEXT | CELL_IMAGE | CELL_STATE);
            return need.column >= m_list.SubItemCount() || (cell && (cell->state & bits) == bits);
        });
    };
    return std::all_of(shown.items.begin(), shown.items.end(), isKnown);
}

// Asks for what is not kept of what is in view. False where there is more to ask now.
bool ListInside::Pass::IsRoundLast()
{
    VirtualList& rows = *m_list.Virtual();
    const UINT asked = rows.questions;
    const ShownItems shown = m_list.ItemsInView();
    rows.cells.SetRoom(std::max(LEAST_ROOM, SCREENS * static_cast<UINT>(shown.items.size())));
    const bool fWhole = m_list.AskForItems(shown);
    return !IsOpen() || asked == rows.questions || (fWhole && IsViewKnown());
}

// What a paint within an answer has shown lacks the answer.
void ListInside::Pass::ShowAnswers()
{
    if (IsOpen() && m_list.Virtual()->paints != m_paints) {
        m_list.Invalidate(0);
    }
}

// A host that changes the list in each of its answers has them kept from the second round on, which ends
// with as many questions as it would take without.
void ListInside::Pass::AskForView()
{
    if (Depth() > MOST_NESTED) {
        return;
    }
    bool fLast = IsRoundLast();
    if (!fLast) {
        m_pass.fKeeps = true;
        const size_t cells = m_list.ItemsInView().items.size() * m_list.Needs().cells.size();
        const UINT end = m_list.Virtual()->questions + static_cast<UINT>(ATTEMPTS * cells);
        while (!fLast && m_list.Virtual()->questions < end) {
            fLast = IsRoundLast();
            if (!IsOpen()) {
                return;
            }
        }
    }
    if (!fLast) {
        const ShownItems shown = m_list.ItemsInView();
        m_list.PrepareCells(shown, m_list.Needs(), false);
        m_list.PrepareCells(shown, m_list.Needs(), true);
    }
    ShowAnswers();
}

// Of the item wherever it goes meanwhile.
ListSubItem ListInside::Pass::Answer(UINT item, UINT subItem, UINT bit)
{
    const Question question(m_list, {item, subItem, 0});
    for (int attempt = 0; attempt < ATTEMPTS && question.IsOpen() && question.Item() != NO_INDEX; ++attempt) {
        m_pass.fKeeps = m_pass.fKeeps || attempt > 0;
        m_list.Ask(question.Item(), subItem, bit);
        const ListSubItem* cell = question.IsOpen() ? m_list.KeptCell(question.Item(), subItem) : nullptr;
        if (cell && (cell->state & bit)) {
            const ListSubItem answer{cell->state & LSIS_CHECKED, cell->image, cell->text, nullptr};
            ShowAnswers();
            return answer;
        }
    }
    return {};
}

} // namespace gesso

UINT GList::SubItemCount() const
{
    return std::max(columns.GetLength(), 1U);
}

bool GList::ShowsImage(UINT column) const
{
    const auto shows = [column](const stcColumnDrawInfo& element) {
        return element.column == column && (BitsOf(element.type) & CELL_IMAGE);
    };
    const bool fColumn = column < columns.GetLength() && (BitsOf(columns[column]->type) & CELL_IMAGE);
    return fColumn || std::any_of(columnDraw.begin(), columnDraw.end(), shows);
}

// Null for a cell of which nothing is kept.
ListSubItem* GList::KeptCell(UINT item, UINT column) const
{
    ListItem* record = IsVirtual() ? Virtual()->cells.Find(item) : nullptr;
    return record ? record->SubItem(column) : nullptr;
}

void GList::ForgetCells()
{
    if (IsVirtual()) {
        Virtual()->cells.Forget();
        ++Virtual()->columnChanges;
    }
}

// --- Questions

// False where the items are not those of before, or the list is gone: what is asked must be looked up again.
bool GList::Ask(UINT item, UINT column, UINT bits) const
{
    for (const UINT bit : {CELL_TEXT, CELL_IMAGE, CELL_STATE}) {
        if ((bits & bit) && !AskOne(item, column, bit)) {
            return false;
        }
    }
    return true;
}

bool GList::AskOne(UINT item, UINT column, UINT bit) const
{
    ListItem* record = Virtual()->cells.Get(item, SubItemCount());
    ListSubItem* cell = record ? record->SubItem(column) : nullptr;
    if (!cell || (cell->state & bit) || Virtual()->IsPending(item, column, bit)) {
        return true;
    }
    cell->image = bit == CELL_IMAGE ? NO_INDEX : cell->image;
    const PFNLISTGET get = column < columns.GetLength() ? columns[column]->fktGet : nullptr;
    if (!get) {
        cell->state |= bit;
        return true;
    }
    const gesso::ListInside::Question question(*this, {item, column, bit});
    ++Virtual()->questions;
    LPCWSTR text = nullptr;
    UINT number = bit == CELL_IMAGE ? NO_INDEX : 0;
    get(const_cast<GList*>(this), item, column, QuestionOf(bit),
        bit == CELL_TEXT ? static_cast<void*>(&text) : &number);
    if (!question.IsOpen()) {
        return false;
    }
    if (ListSubItem* answered = question.Cell()) {
        Store(*answered, bit, text, number);
    }
    return !question.HaveItemsMoved();
}

// What the getters answer, with nothing prepared.
ListSubItem GList::Answered(UINT item, UINT subItem, UINT bit, const char* operation) const
{
    if (item >= ItemCount() || subItem >= SubItemCount()) {
        gesso::Misuse(operation);
        return {};
    }
    if ((bit == CELL_IMAGE && !ShowsImage(subItem)) || (bit == CELL_STATE && subItem > 0)) {
        return {};
    }
    return gesso::ListInside::Pass(*const_cast<GList*>(this)).Answer(item, subItem, bit);
}

// --- What is about to show

gesso::CellNeeds GList::Needs() const
{
    gesso::CellNeeds needs;
    for (const stcColumnDrawInfo& element : columnDraw) {
        if (BitsOf(element.type)) {
            Append(needs.cells, {element.column, BitsOf(element.type)});
        }
    }
    if (listStyle & GLS_CHECKBOXES) {
        Append(needs.cells, {0, CELL_STATE});
    }
    return needs;
}

gesso::ShownItems GList::ItemsInView() const
{
    gesso::ShownItems shown;
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const gesso::ListGeometry geometry = Geometry();
    const int64_t end = int64_t{m_siV.nPos} + rc.bottom - 1;
    for (UINT row = geometry.FirstRowReaching(int64_t{m_siV.nPos} + 1);
         row < geometry.RowCount() && !geometry.IsBelow(row, end); ++row)
    {
        if (geometry.Row(row).type == LET_ITEM) {
            Append(shown.items, geometry.Row(row).index);
        }
    }
    return shown;
}

// False as in Ask.
bool GList::AskForItems(const gesso::ShownItems& shown)
{
    const gesso::CellNeeds needs = Needs();
    for (const UINT item : shown.items) {
        for (const gesso::CellNeed& need : needs.cells) {
            if (!Ask(item, need.column, need.bits)) {
                return false;
            }
        }
    }
    PrepareCells(shown, needs, false);
    PrepareCells(shown, needs, true);
    return true;
}

// False where the list or its window is gone.
bool GList::AskForView()
{
    const gesso::Lifeline life(*this);
    const HWND hwnd = m_hWnd;
    if (IsVirtual()) {
        gesso::ListInside::Pass(*this).AskForView();
    }
    return life && m_hWnd == hwnd;
}

// In one of the two fonts, since to change the font of a context costs as much as to shape a text.
void GList::PrepareCells(const gesso::ShownItems& shown, const gesso::CellNeeds& needs, bool fTitle)
{
    const UINT bit = fTitle ? CELL_TITLE_PREPARED : CELL_PREPARED;
    std::vector<std::pair<ListSubItem*, UINT>> cells;
    for (const UINT item : shown.items) {
        for (const gesso::CellNeed& need : needs.cells) {
            ListSubItem* cell = need.bits & bit ? KeptCell(item, need.column) : nullptr;
            if (cell && (cell->state & CELL_TEXT) && !(cell->state & bit) &&
                Append(cells, {cell, FormatOf(need.column)})) {
                cell->state |= bit;
            }
        }
    }
    if (cells.empty()) {
        return;
    }
    const gesso::WindowContext context(m_hWnd);
    const gesso::SelectScope font(context, fTitle ? fontLabelTitle : fontLabelText);
    for (const auto& [cell, format] : cells) {
        if (cell->text) {
            cell->prepared = cell->prepared ? cell->prepared : gesso::MakePair();
            void*& hText = fTitle ? cell->prepared->second : cell->prepared->first;
            hText = gesso::PreparedBuffer(
                CDrawText::DrawText_Prepare(context, cell->text, -1, nullptr, format, lineHeight, nullptr));
            cell->state &= hText ? ~0U : ~bit; // without memory the next paint tries again
        }
    }
}

// Of a column's texts that are in view: of all others nothing is known.
int64_t GList::WidestInView(UINT column, bool fTitle)
{
    const gesso::Lifeline life(*this);
    int64_t widest = 0;
    if (!AskForView() || !life || !IsVirtual()) {
        return 0;
    }
    for (const UINT item : ItemsInView().items) {
        const ListSubItem* cell = KeptCell(item, column);
        if (cell && cell->prepared) {
            void* hText = fTitle ? cell->prepared->second : cell->prepared->first;
            widest = std::max(widest, int64_t{gesso::PreparedSize(hText).cx});
        }
    }
    return widest;
}
