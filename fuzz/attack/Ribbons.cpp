// The ribbon with its pages. A page belongs to its ribbon, or to the host where it was taken out.

#include "Call.h"
#include "ControlTables.h"

namespace attack {

namespace {

GRibbonPage* AnyPage(GRibbon& ribbon, Source& source)
{
    return ribbon.GetPage(1 + source.Below(5));
}

void AddPageOfOwn(GRibbon& ribbon, World&, Source& source)
{
    const Text title = source.AnyText();
    const UINT nId = source.Below(6);
    const bool fGiven = source.Flag();
    ribbon.AddPage(fGiven ? new GRibbonPage(nId, title) : nullptr, nId, title);
}

void RemovePage(GRibbon& ribbon, World&, Source& source)
{
    GRibbonPage* const pPage = AnyPage(ribbon, source);
    ribbon.RemovePage(pPage);
    if (pPage) {
        pPage->Delete(pPage);
    }
}

void MakePage(GRibbon& ribbon, World&, Source& source)
{
    const Text title = source.AnyText();
    if (GRibbonPage* const pPage = ribbon.MakePage(source.Below(6), title)) {
        pPage->Delete(pPage);
    }
}

void RenamePage(GRibbon& ribbon, World&, Source& source)
{
    if (GRibbonPage* const pPage = AnyPage(ribbon, source)) {
        ribbon.RenamePage(pPage, source.AnyText());
    }
}

void GetDrawInfo(GRibbon& ribbon, World&, Source& source)
{
    HBRUSH hBrush = nullptr;
    HPEN hPen = nullptr;
    HFONT hFont = nullptr;
    ribbon.GetPageDrawInfo(source.Flag() ? &hBrush : nullptr, &hPen, &hFont);
}

// --- Of a page

struct AnyItem
{
    explicit AnyItem(Source& source) : text(source.AnyText())
    {
        for (UINT& uOption : options) {
            uOption = source.Below(5) << 16;
        }
        info.uType = source.Chance(8) ? source.Number() : source.Flag() ? RIT_BUTTON : RIT_CHECKBOX;
        info.nId = source.Below(9);
        info.nImage = source.Integer();
        if (info.uType == RIT_CHECKBOX) {
            info.bChecked = static_cast<BYTE>(source.Below(3));
            info.pszCheckText = text;
        } else {
            info.nOptions = static_cast<int>(source.Below(4));
            info.puOptions = options;
            info.pszText = text;
        }
    }

    Text text;
    UINT options[4];
    GRibbonPage::ItemInfo info{};
};

void InsertItem(GRibbonPage& page, World&, Source& source)
{
    AnyItem item(source);
    page.InsertItem(source.Below(5), source.Below(9), &item.info);
}

void SetItem(GRibbonPage& page, World&, Source& source)
{
    AnyItem item(source);
    page.SetItemInfo(source.Below(5), source.Below(9), &item.info);
}

void GetItem(GRibbonPage& page, World&, Source& source)
{
    GRibbonPage::ItemInfo info{};
    info.uType = source.Flag() ? RIT_BUTTON : RIT_CHECKBOX;
    page.GetItemInfo(source.Below(5), source.Below(9), &info);
}

void InsertGroup(GRibbonPage& page, World&, Source& source)
{
    const Text title = source.AnyText();
    page.InsertGroup(source.Below(5), source.Below(5), title, source.Chance(3) ? source.Number() : 0);
}

void AddHostWindow(GRibbonPage& page, World& world, Source& source)
{
    HWND windows[2] = {world.AnyWindow(source), world.AnyWindow(source)};
    source.Flag() ? page.AddWindow(source.Below(5), windows[0]) : page.AddWindow(source.Below(5), windows, 2);
}

void CopyPage(GRibbonPage& page, World& world, Source& source)
{
    GRibbonPage copy(page);
    copy.Draw(world.AnyContext(source));
    GRibbonPage::HitTestInfo hit{{20, 40}, 0, 0};
    copy.HitTest(&hit);
}

// Records of the host's own.
void Measure(GRibbonPage& page, World& world, Source& source)
{
    const Text text = source.AnyText();
    UINT options[] = {source.Number(), source.Number()};
    GRibbonPage::Item item{};
    item.uType = source.Chance(8) ? source.Number() : source.Below(4);
    item.wSize = static_cast<WORD>(source.Below(4));
    item.wOptions = static_cast<WORD>(source.Below(3));
    item.puOptions = options;
    item.nImage = source.Integer();
    item.pszText = source.Flag() ? const_cast<LPWSTR>(static_cast<LPCWSTR>(text)) : nullptr;
    item.nTop = source.Integer();
    page.CalculateItemSize(world.AnyContext(source), &item);
    GRibbonPage::Group group{};
    group.uFixedWidth = source.Chance(3) ? source.Number() : 0;
    group.aItems.Add(item);
    page.CalculateGroupSize(&group);
}

void HitPage(GRibbonPage& page, World&, Source& source)
{
    GRibbonPage::HitTestInfo hit{
        {static_cast<SHORT>(source.Integer()), static_cast<SHORT>(source.Integer())}, 0, 0};
    page.HitTest(&hit);
}

template <class ACT> Operation OnPage(const char* pszName, ACT act)
{
    return Own<GRibbon>(pszName, [act](GRibbon& ribbon, World& world, Source& source) {
        if (GRibbonPage* const pPage = AnyPage(ribbon, source)) {
            act(*pPage, world, source);
        }
    });
}

void AddPages(Table& table)
{
    Add(table,
        {Often(4, OnPage("InsertGroup", InsertGroup)), Often(10, OnPage("InsertItem", InsertItem)),
         Often(3, OnPage("SetItemInfo", SetItem)), OnPage("GetItemInfo", GetItem),
         OnPage("AddWindow", AddHostWindow), OnPage("CopyPage", CopyPage), OnPage("HitTest", HitPage),
         OnPage("CalculateSizes", Measure),
         OnPage("SetTitle",
                [](GRibbonPage& page, World&, Source& source) { page.SetTitle(source.AnyText()); }),
         OnPage("SetGroupName", [](GRibbonPage& page, World&,
                                   Source& source) { page.SetGroupName(source.Below(5), source.AnyText()); }),
         OnPage("RemoveGroup",
                [](GRibbonPage& page, World&, Source& source) { page.RemoveGroup(source.Below(5)); }),
         OnPage("RemoveItem", [](GRibbonPage& page, World&,
                                 Source& source) { page.RemoveItem(source.Below(5), source.Below(9)); }),
         OnPage("RecalcWidth", [](GRibbonPage& page, World&, Source&) { page.RecalcWidth(); }),
         OnPage("DrawPage", [](GRibbonPage& page, World& world, Source& source) {
             page.Draw(world.AnyContext(source));
         })});
}

} // namespace

template <> void AddOperations<GRibbon>(Table& table)
{
    AddPages(table);
    Add(table,
        {Making(OP(GRibbon, Create)), OP(GRibbon, Destroy), Often(3, OP(GRibbon, SetActive)),
         Often(2, OP(GRibbon, SetStatus)), OP(GRibbon, SetImageLists), Own<GRibbon>("AddPage", AddPageOfOwn),
         Own<GRibbon>("MakePage", MakePage), Own<GRibbon>("RemovePage", RemovePage),
         Own<GRibbon>("RenamePage", RenamePage), Own<GRibbon>("GetPageDrawInfo", GetDrawInfo)});
}

} // namespace attack
