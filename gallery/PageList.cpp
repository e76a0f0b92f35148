#include <gallery/ImageStrip.h>
#include <gallery/PageList.h>
#include <gallery/Pages.h>
#include <gallery/Scale.h>

namespace gallery {
namespace {

constexpr int PAGE_LIST_ID = 990;

int RowHeight()
{
    return Scaled(30);
}

} // namespace

void PageList::Create(HWND hwndParent)
{
    m_bar.SetItemHeight(static_cast<UINT>(RowHeight()));
    FollowScheme();
    m_bar.Create(0, 0, WIDTH, 10, hwndParent, PAGE_LIST_ID, 0, WS_CHILD | WS_VISIBLE | WS_VSCROLL);
    void* hRoot = m_bar.GetRootItem();
    void* hLast = nullptr;
    for (const PageEntry& page : PAGES) {
        if (page.pszFamily) {
            hLast = m_bar.InsertItem(hRoot, hLast, page.pszFamily, 0, NBIK_HEADER, nullptr);
        }
        hLast = m_bar.InsertItem(hRoot, hLast, page.pszName, page.image, NBIK_ITEM, nullptr);
        m_items.push_back(hLast);
    }
}

void PageList::FollowScheme()
{
    m_bar.SetImageList(ImagesOfScheme().hSmall);
}

void PageList::Place(const RECT& rc)
{
    m_bar.MoveWindow(rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top);
}

void PageList::FollowDots()
{
    m_bar.SetItemHeight(static_cast<UINT>(RowHeight()));
}

void PageList::Select(int nPage)
{
    m_bar.SetSelectedItem(m_items[static_cast<size_t>(nPage)]);
}

int PageList::PageWanted(const NMHDR& header) const
{
    if (header.hwndFrom != m_bar.GetHwnd() || header.code != static_cast<UINT>(NM_CLICK)) {
        return -1;
    }
    const auto& notify = reinterpret_cast<const GNAVNOTIFY&>(header);
    const auto found = std::find(m_items.begin(), m_items.end(), notify.pItem);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

void PageList::AddParts(std::vector<Part>& parts) const
{
    RECT rc{};
    GetClientRect(m_bar.GetHwnd(), &rc);
    MapWindowPoints(m_bar.GetHwnd(), nullptr, reinterpret_cast<POINT*>(&rc), 2);
    const int nBottom = rc.bottom;
    rc.top -= m_bar.GetScrollPos(SB_VERT);
    for (int i = 0; i < PAGE_COUNT; i++) {
        rc.top += PAGES[i].pszFamily ? RowHeight() : 0;
        rc.bottom = rc.top + RowHeight();
        if (rc.bottom <= nBottom) {
            parts.push_back({L"page", static_cast<UINT>(i), PAGES[i].pszName, rc});
        }
        rc.top = rc.bottom;
    }
}

} // namespace gallery
