// Prepared texts: each text is shaped once, when it enters the list, in the two fonts that it may be drawn
// in.

#include <gesso/framework/ControlText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/list/GList.h>
#include <gesso/text/CDrawText.h>

#include <utility>

using gesso::SelectScope;
using gesso::WindowContext;

namespace {

void CloseText(void* hText)
{
    if (hText) {
        CDrawText::DrawText_CloseHandle(hText);
    }
}

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
    auto* pair = new ListTextPair{};
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
    if (auto* texts = static_cast<ListTextPair*>(pair)) {
        CloseText(texts->first);
        CloseText(texts->second);
        delete texts;
    }
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

void GList::PrepareSubItem(HDC hdc, ListSubItem& sub, UINT column)
{
    if (sub.text) {
        ListTextPair* prepared = PrepareText(hdc, LTM_ITEM, sub.text, nullptr, FormatOf(column), lineHeight);
        FreeText(std::exchange(sub.prepared, prepared));
    }
}

void GList::PrepareSubItem(ListSubItem& sub, UINT column)
{
    if (sub.text) {
        PrepareSubItem(WindowContext(m_hWnd), sub, column);
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
    const WindowContext context(m_hWnd);
    PrepareItems(context, fontLabelText, &ListTextPair::first);
    PrepareItems(context, fontLabelTitle, &ListTextPair::second);
    Calculate();
}

// One part of all texts, since to change the font of a context costs as much as to shape a text.
void GList::PrepareItems(HDC hdc, HFONT hFont, void* ListTextPair::*part)
{
    const SelectScope font(hdc, hFont);
    for (UINT item = 0; item < items.GetLength(); ++item) {
        for (UINT subItem = 0; subItem < items[item]->subItemCount; ++subItem) {
            ListSubItem& sub = items[item]->SubItems()[subItem];
            if (sub.text) {
                sub.prepared = sub.prepared ? sub.prepared : new ListTextPair{};
                CloseText(std::exchange(sub.prepared->*part,
                                        CDrawText::DrawText_Prepare(hdc, sub.text, -1, nullptr,
                                                                    FormatOf(subItem), lineHeight, nullptr)));
            }
        }
    }
}
