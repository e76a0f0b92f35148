// Prepared texts: each text is shaped once, when it enters the list, in the two fonts that it may be drawn
// in.

#include <gesso/framework/ControlText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/list/ListInside.h>
#include <gesso/text/CDrawText.h>

#include <utility>

using gesso::ListTextPass;
using gesso::SelectScope;

namespace {

void* PrepareIn(HDC hdc, HFONT hFont, LPCWSTR text, RECT* rc, UINT format, int lineHeight)
{
    const SelectScope font(hdc, hFont);
    return CDrawText::DrawText_Prepare(hdc, text, -1, rc, format, lineHeight, nullptr);
}

void DrawIn(HDC hdc, HFONT hFont, void* hText, const RECT& rc)
{
    if (hText) {
        const SelectScope font(hdc, hFont);
        CDrawText::DrawTextW(hdc, hText, rc);
    }
}

} // namespace

ListTextPair* GList::PrepareText(HDC hdc, UINT mode, LPCWSTR text, RECT* rc, UINT format, int nLineHeight)
{
    ListTextPair* pair = gesso::MakePair();
    const auto prepare = [&](HFONT hFont, LPCWSTR psz) {
        return PrepareIn(hdc, hFont, psz, rc, format, nLineHeight);
    };
    switch (mode) {
    case LTM_COLUMN:
    case LTM_CAPTION:
        pair->first = prepare(fontLabelText, text);
        pair->second = prepare(fontLabelHeader, OString<wchar_t>::Build(L"%s:", gesso::TextOrEmpty(text)));
        break;
    case LTM_GROUP: pair->second = prepare(fontGroupTitle, text); break;
    case LTM_ITEM:
    case LTM_TITLE:
        pair->first = prepare(fontLabelText, text);
        pair->second = prepare(fontLabelTitle, text);
        break;
    default: break;
    }
    return pair;
}

void GList::FreeText(void* pair)
{
    gesso::ReleasePair(static_cast<ListTextPair*>(pair));
}

void GList::TextOutW(HDC hdc, UINT mode, void* pair, RECT rc)
{
    const auto* texts = static_cast<const ListTextPair*>(pair);
    if (!texts) {
        return;
    }
    switch (mode) {
    case LTM_COLUMN:
    case LTM_ITEM: DrawIn(hdc, fontLabelText, texts->first, rc); break;
    case LTM_CAPTION: DrawIn(hdc, fontLabelHeader, texts->second, rc); break;
    case LTM_GROUP: DrawIn(hdc, fontGroupTitle, texts->second, rc); break;
    case LTM_TITLE: DrawIn(hdc, fontLabelTitle, texts->second, rc); break;
    default: break;
    }
}

UINT GList::FormatOf(UINT column) const
{
    return column < columns.GetLength() ? columns[column]->format : 0;
}

void GList::PrepareSubItem(ListTextPass& pass, ListSubItem& sub, UINT column)
{
    if (sub.text) {
        ListTextPair* prepared = pass.Prepare(sub.text, FormatOf(column));
        FreeText(std::exchange(sub.prepared, prepared));
    }
}

void GList::PrepareSubItem(ListSubItem& sub, UINT column)
{
    if (sub.text) {
        ListTextPass pass(m_inside->texts, m_hWnd, fontLabelText, fontLabelTitle, lineHeight,
                          ListTextPass::Extent::One);
        PrepareSubItem(pass, sub, column);
    }
}

// Those that have been prepared before.
void GList::PrepareColumn(UINT column)
{
    ListTextPass pass(m_inside->texts, m_hWnd, fontLabelText, fontLabelTitle, lineHeight,
                      ListTextPass::Extent::Many);
    for (ListItem* item : items) {
        ListSubItem* sub = item->SubItem(column);
        if (sub && sub->prepared) {
            PrepareSubItem(pass, *sub, column);
        }
    }
}

// --- Bulk fill

void GList::BulkInsertOn()
{
    bulkInsert = bulkInsert || (items.GetLength() == 0 && !IsVirtual());
}

void GList::BulkInsertOff()
{
    if (!std::exchange(bulkInsert, false)) {
        return;
    }
    {
        ListTextPass pass(m_inside->texts, m_hWnd, fontLabelText, fontLabelTitle, lineHeight,
                          ListTextPass::Extent::Many);
        for (ListItem* item : items) {
            for (UINT subItem = 0; subItem < item->subItemCount; ++subItem) {
                PrepareSubItem(pass, item->SubItems()[subItem], subItem);
            }
        }
    }
    m_inside->fillPool.Close();
    const gesso::Watch watch(*this);
    Calculate();
    if (watch && items.GetLength()) {
        m_inside->untold.Note(EVENT_OBJECT_REORDER);
        gesso::ListInside::TellChanges(*this);
    }
}
