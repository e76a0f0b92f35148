#include <gesso/list/ListInside.h>
#include <gesso/list/ListLayout.h>

namespace gesso {

ListInsideHold& ListInsideHold::operator=(const ListInsideHold& other) noexcept
{
    if (this != &other) {
        Release();
    }
    return *this;
}

ListInsideHold::~ListInsideHold()
{
    Release();
}

void ListInsideHold::Release() noexcept
{
    if (m_word & OWN) {
        delete &**this;
    }
    m_word = 0;
}

ListInside& ListInsideHold::operator*() const
{
    if (!(m_word & OWN)) {
        m_word = reinterpret_cast<UINT_PTR>(new ListInside) | OWN;
    }
    return *reinterpret_cast<ListInside*>(m_word & ~OWN);
}

// Of a class with a base, offsetof is the compiler's to support: all of ours do.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

// Where classes that were derived from GList in other programs find its fields, and where its own end.
struct ListInside::FieldPlaces
{
    static_assert(offsetof(GList, listStyle) == 156);
    static_assert(offsetof(GList, themeList) == 160);
    static_assert(offsetof(GList, themeHeader) == 200);
    static_assert(offsetof(GList, themeButton) == 216);
    static_assert(offsetof(GList, fontLabelTitle) == 232);
    static_assert(offsetof(GList, fontLabelHeader) == 240);
    static_assert(offsetof(GList, fontLabelText) == 248);
    static_assert(offsetof(GList, fontGroupTitle) == 256);
    static_assert(offsetof(GList, headerArea) == 264);
    static_assert(offsetof(GList, headerHeight) == 268);
    static_assert(offsetof(GList, headerItemSpacing) == 272);
    static_assert(offsetof(GList, groupHeight) == 276);
    static_assert(offsetof(GList, itemWidth) == 280);
    static_assert(offsetof(GList, itemWidthBase) == 284);
    static_assert(offsetof(GList, itemHeight) == 288);
    static_assert(offsetof(GList, itemHeightBase) == 292);
    static_assert(offsetof(GList, lineHeight) == 296);
    static_assert(offsetof(GList, itemSpacingX) == 300);
    static_assert(offsetof(GList, itemSpacingY) == 304);
    static_assert(offsetof(GList, imageList) == 312);
    static_assert(offsetof(GList, columns) == 320);
    static_assert(offsetof(GList, groups) == 344);
    static_assert(offsetof(GList, items) == 368);
    static_assert(offsetof(GList, hitPress) == 392);
    static_assert(offsetof(GList, hitHot) == 408);
    static_assert(offsetof(GList, columnCxAtPress) == 424);
    static_assert(offsetof(GList, cursorItem) == 428);
    static_assert(offsetof(GList, shiftAnchor) == 432);
    static_assert(offsetof(GList, keyMods) == 436);
    static_assert(offsetof(GList, lastItem) == 440);
    static_assert(offsetof(GList, sortColumn) == 444);
    static_assert(offsetof(GList, sortAscending) == 448);
    static_assert(offsetof(GList, elements) == 456);
    static_assert(offsetof(GList, columnDraw) == 480);
    static_assert(offsetof(GList, rcGroupFormat) == 504);
    static_assert(offsetof(GList, contentCx) == 520);
    static_assert(offsetof(GList, contentCy) == 524);
    static_assert(offsetof(GList, editWindows) == 528);
    static_assert(offsetof(GList, editProcs) == 536);
    static_assert(offsetof(GList, bulkInsert) == 544);
    static_assert(offsetof(GList, frameRecord) == 545);
    static_assert(offsetof(GList, frameReplay) == 546);
    static_assert(offsetof(GList, frameIndex) == 548);
    static_assert(offsetof(GList, frames) == 552);
    static_assert(sizeof(GList) <= 592);
};

#pragma GCC diagnostic pop

ListItemTrack ListItemTracks::Follow(const TrackedItem& item)
{
    std::erase_if(m_tracks, [](const auto& track) { return track.expired(); });
    ListItemTrack track = std::make_shared<TrackedItem>(item);
    m_tracks.push_back(track);
    return track;
}

void ListItemTracks::Replace(const ListItem* former, const ListItem* item)
{
    for (const auto& known : m_tracks) {
        const ListItemTrack track = known.lock();
        if (track && track->item == former) {
            track->item = item;
        }
    }
}

void ListItemTracks::ForgetLost(const OArray<ListItem*, ListItem*>& items)
{
    for (const auto& known : m_tracks) {
        const ListItemTrack track = known.lock();
        if (track && std::find(items.begin(), items.end(), track->item) == items.end()) {
            track->item = nullptr;
        }
    }
}

bool ListInside::CheckLayout(const GList& list)
{
    if (list.IsVirtual()) {
        return list.Virtual()->Check();
    }
    ListRows rows(list.elements);
    RowOrder order = list.m_inside->rowOrder;
    return ListLayout(list.Measures(), list.items, list.groups, list.columnDraw, rows, order).Check();
}

} // namespace gesso
