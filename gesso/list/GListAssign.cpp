// What a list that is assigned another lets go, and what it takes over.

#include <gesso/list/ListInside.h>

#include <algorithm>
#include <functional>

using gesso::ListIndices;

namespace {

// Returns whether the two have an entry in common, which stays. Without memory for the entries in order the
// search takes longer.
template <class ENTRIES, class RELEASE>
bool ReleaseOthers(const ENTRIES& entries, const ENTRIES& kept, const RELEASE& release)
{
    ENTRIES sorted(kept);
    const bool fSorted = sorted.GetLength() == kept.GetLength();
    std::sort(sorted.begin(), sorted.end(), std::less<>());
    bool fCommon = false;
    for (const auto& entry : entries) {
        if (fSorted ? std::binary_search(sorted.begin(), sorted.end(), entry, std::less<>())
                    : std::find(kept.begin(), kept.end(), entry) != kept.end())
        {
            fCommon = true;
        } else {
            release(entry);
        }
    }
    return fCommon;
}

// What was there may be released: without memory for what comes in its place there is none.
template <class ENTRIES> void Take(ENTRIES& entries, const ENTRIES& others)
{
    if (!entries.Copy(others)) {
        entries.RemoveAll();
    }
}

void ReleaseOther(HFONT hFont, HFONT hKept)
{
    if (hFont && hFont != hKept) {
        DeleteObject(hFont);
    }
}

} // namespace

GList& GList::operator=(const GList& other)
{
    if (this == &other) {
        return *this;
    }
    const bool fEdits = m_inside->fEdits && editWindows == other.editWindows;
    if (m_inside->fEdits && !fEdits) {
        GList::EndEdit();
    }
    const bool fOwner = m_inside->fOwner && ReleaseAllBut(other);
    const UINT itemChanges = m_inside->itemChanges;
    TakeFields(other);
    m_inside->itemChanges = itemChanges + 1; // so that a sort in progress finds other items
    m_inside->fOwner = fOwner;
    m_inside->fEdits = fEdits;
    if (other.IsVirtual()) {
        ListIndices none;
        none.fill(gesso::NO_INDEX);
        SetIndices(none);
    }
    return *this;
}

// Of what the list owns. What a copy of it still has stays, and stays the list's: true where that is so.
bool GList::ReleaseAllBut(const GList& other)
{
    const bool fItems = ReleaseOthers(items, other.items, ReleaseItem);
    const bool fColumns = ReleaseOthers(columns, other.columns, ReleaseColumn);
    const bool fGroups = ReleaseOthers(groups, other.groups, ReleaseGroup);
    ReleaseOthers(frames, other.frames, [](stcDrawItem* frame) { DeleteObject(frame); });
    ReleaseOther(fontLabelTitle, other.fontLabelTitle);
    ReleaseOther(fontLabelHeader, other.fontLabelHeader);
    ReleaseOther(listStyle & GLS_OWNFONT ? nullptr : fontLabelText, other.fontLabelText);
    ReleaseOther(fontGroupTitle, other.fontGroupTitle);
    return fItems || fColumns || fGroups || (fontLabelTitle && fontLabelTitle == other.fontLabelTitle);
}

void GList::TakeFields(const GList& other)
{
    GWndScroll::operator=(other);
    listStyle = other.listStyle;
    themeList = other.themeList;
    themeHeader = other.themeHeader;
    themeButton = other.themeButton;
    fontLabelTitle = other.fontLabelTitle;
    fontLabelHeader = other.fontLabelHeader;
    fontLabelText = other.fontLabelText;
    fontGroupTitle = other.fontGroupTitle;
    headerArea = other.headerArea;
    headerHeight = other.headerHeight;
    headerItemSpacing = other.headerItemSpacing;
    groupHeight = other.groupHeight;
    itemWidth = other.itemWidth;
    itemWidthBase = other.itemWidthBase;
    itemHeight = other.itemHeight;
    itemHeightBase = other.itemHeightBase;
    lineHeight = other.lineHeight;
    itemSpacingX = other.itemSpacingX;
    itemSpacingY = other.itemSpacingY;
    imageList = other.imageList;
    Take(columns, other.columns);
    Take(groups, other.groups);
    Take(items, other.items);
    hitPress = other.hitPress;
    hitHot = other.hitHot;
    columnCxAtPress = other.columnCxAtPress;
    cursorItem = other.cursorItem;
    shiftAnchor = other.shiftAnchor;
    keyMods = other.keyMods;
    lastItem = other.lastItem;
    sortColumn = other.sortColumn;
    sortAscending = other.sortAscending;
    Take(elements, other.elements);
    Take(columnDraw, other.columnDraw);
    rcGroupFormat = other.rcGroupFormat;
    contentCx = other.contentCx;
    contentCy = other.contentCy;
    editWindows = other.editWindows;
    editProcs = other.editProcs;
    bulkInsert = other.bulkInsert;
    frameRecord = other.frameRecord;
    frameReplay = other.frameReplay;
    frameIndex = other.frameIndex;
    Take(frames, other.frames);
    m_inside = other.m_inside;
}
