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

// Where classes that were derived from GList in other programs find its fields, and where its own end. The
// first of them lies in the padding at the end of GWndScroll, but with Microsoft's interface behind it, so
// that all stand 8 further on there.
struct ListInside::FieldPlaces
{
    static constexpr bool IN_PADDING = offsetof(GList, listStyle) < sizeof(GWndScroll);
    static constexpr size_t MORE = IN_PADDING ? 0 : 8;
    static_assert(sizeof(GWndScroll) == 160);
    static_assert(offsetof(GList, listStyle) == 156 + MORE / 2);
    static_assert(offsetof(GList, themeList) == 160 + MORE);
    static_assert(offsetof(GList, themeHeader) == 200 + MORE);
    static_assert(offsetof(GList, themeButton) == 216 + MORE);
    static_assert(offsetof(GList, fontLabelTitle) == 232 + MORE);
    static_assert(offsetof(GList, fontLabelHeader) == 240 + MORE);
    static_assert(offsetof(GList, fontLabelText) == 248 + MORE);
    static_assert(offsetof(GList, fontGroupTitle) == 256 + MORE);
    static_assert(offsetof(GList, headerArea) == 264 + MORE);
    static_assert(offsetof(GList, headerHeight) == 268 + MORE);
    static_assert(offsetof(GList, headerItemSpacing) == 272 + MORE);
    static_assert(offsetof(GList, groupHeight) == 276 + MORE);
    static_assert(offsetof(GList, itemWidth) == 280 + MORE);
    static_assert(offsetof(GList, itemWidthBase) == 284 + MORE);
    static_assert(offsetof(GList, itemHeight) == 288 + MORE);
    static_assert(offsetof(GList, itemHeightBase) == 292 + MORE);
    static_assert(offsetof(GList, lineHeight) == 296 + MORE);
    static_assert(offsetof(GList, itemSpacingX) == 300 + MORE);
    static_assert(offsetof(GList, itemSpacingY) == 304 + MORE);
    static_assert(offsetof(GList, imageList) == 312 + MORE);
    static_assert(offsetof(GList, columns) == 320 + MORE);
    static_assert(offsetof(GList, groups) == 344 + MORE);
    static_assert(offsetof(GList, items) == 368 + MORE);
    static_assert(offsetof(GList, hitPress) == 392 + MORE);
    static_assert(offsetof(GList, hitHot) == 408 + MORE);
    static_assert(offsetof(GList, columnCxAtPress) == 424 + MORE);
    static_assert(offsetof(GList, cursorItem) == 428 + MORE);
    static_assert(offsetof(GList, shiftAnchor) == 432 + MORE);
    static_assert(offsetof(GList, keyMods) == 436 + MORE);
    static_assert(offsetof(GList, lastItem) == 440 + MORE);
    static_assert(offsetof(GList, sortColumn) == 444 + MORE);
    static_assert(offsetof(GList, sortAscending) == 448 + MORE);
    static_assert(offsetof(GList, elements) == 456 + MORE);
    static_assert(offsetof(GList, columnDraw) == 480 + MORE);
    static_assert(offsetof(GList, rcGroupFormat) == 504 + MORE);
    static_assert(offsetof(GList, contentCx) == 520 + MORE);
    static_assert(offsetof(GList, contentCy) == 524 + MORE);
    static_assert(offsetof(GList, editWindows) == 528 + MORE);
    static_assert(offsetof(GList, editProcs) == 536 + MORE);
    static_assert(offsetof(GList, bulkInsert) == 544 + MORE);
    static_assert(offsetof(GList, frameRecord) == 545 + MORE);
    static_assert(offsetof(GList, frameReplay) == 546 + MORE);
    static_assert(offsetof(GList, frameIndex) == 548 + MORE);
    static_assert(offsetof(GList, frames) == 552 + MORE);
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
