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

} // namespace

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
    if (!cell || (cell->state & bit)) {
        return true;
    }
    cell->state |= bit; // before the question, in which the host may ask for the cell itself
    cell->image = bit == CELL_IMAGE ? NO_INDEX : cell->image;
    const PFNLISTGET get = column < columns.GetLength() ? columns[column]->fktGet : nullptr;
    if (!get) {
        return true;
    }
    const gesso::Lifeline life(*this);
    const UINT changes = m_inside->itemChanges;
    LPCWSTR text = nullptr;
    UINT number = bit == CELL_IMAGE ? NO_INDEX : 0;
    get(const_cast<GList*>(this), item, column, QuestionOf(bit),
        bit == CELL_TEXT ? static_cast<void*>(&text) : &number);
    if (!life || !IsVirtual()) {
        return false;
    }
    if (changes != m_inside->itemChanges) {
        Virtual()->cells.Forget();
        return false;
    }
    cell = KeptCell(item, column);
    if (!cell) {
        return true;
    }
    if (bit == CELL_TEXT) {
        gesso::FreeText(std::exchange(cell->text, text ? gesso::CopyText(text) : nullptr));
    } else if (bit == CELL_IMAGE) {
        cell->image = number;
    } else {
        cell->state |= number & LSIS_CHECKED;
    }
    return true;
}

// What the getters answer, with nothing prepared.
ListSubItem GList::Answered(UINT item, UINT subItem, UINT bit, const char* operation) const
{
    if (item >= ItemCount() || subItem >= SubItemCount()) {
        gesso::Misuse(operation);
        return {};
    }
    const bool fHasNone = (bit == CELL_IMAGE && !ShowsImage(subItem)) || (bit == CELL_STATE && subItem > 0);
    if (fHasNone || !Ask(item, subItem, bit)) {
        return {};
    }
    const ListSubItem* cell = KeptCell(item, subItem);
    return cell ? ListSubItem{cell->state & LSIS_CHECKED, cell->image, cell->text, nullptr} : ListSubItem{};
}

// --- What is about to show

gesso::CellNeeds GList::Needs() const
{
    gesso::CellNeeds needs;
    for (const stcColumnDrawInfo& element : columnDraw) {
        if (BitsOf(element.type)) {
            needs.cells.push_back({element.column, BitsOf(element.type)});
        }
    }
    if (listStyle & GLS_CHECKBOXES) {
        needs.cells.push_back({0, CELL_STATE});
    }
    return needs;
}

gesso::ShownItems GList::ItemsInView() const
{
    gesso::ShownItems shown;
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const gesso::ListGeometry geometry = Geometry();
    const int64_t end = int64_t{m_siV.nPos} + rc.bottom;
    for (UINT row = geometry.FirstRowReaching(int64_t{m_siV.nPos} + 1);
         row < geometry.RowCount() && !geometry.IsBelow(row, end); ++row)
    {
        if (geometry.Row(row).type == LET_ITEM) {
            shown.items.push_back(geometry.Row(row).index);
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

// False where the list or its window is gone. A host that changes its items each time it is asked sees what
// is kept.
bool GList::AskForView()
{
    const gesso::Lifeline life(*this);
    const HWND hwnd = m_hWnd;
    for (int attempt = 0; attempt < ATTEMPTS && life && m_hWnd == hwnd && IsVirtual(); ++attempt) {
        const gesso::ShownItems shown = ItemsInView();
        Virtual()->cells.SetRoom(std::max(LEAST_ROOM, SCREENS * static_cast<UINT>(shown.items.size())));
        if (AskForItems(shown)) {
            return true;
        }
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
            if (cell && !(cell->state & bit)) {
                cell->state |= bit;
                cells.emplace_back(cell, FormatOf(need.column));
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
            cell->prepared = cell->prepared ? cell->prepared : new ListTextPair{};
            (fTitle ? cell->prepared->second : cell->prepared->first) =
                CDrawText::DrawText_Prepare(context, cell->text, -1, nullptr, format, lineHeight, nullptr);
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
