// The pane at the left: the gallery's pages, by family.
#pragma once

#include <gallery/Page.h>

namespace gallery {

class PageList
{
public:
    static constexpr int WIDTH = 168;

    PageList() = default;
    PageList(const PageList&) = delete;
    PageList& operator=(const PageList&) = delete;

    void Create(HWND hwndParent);
    void Place(const RECT& rc);
    // After a change of the gallery's dots: the height of the rows is given in pixels.
    void FollowDots();
    // After a change of the scheme: the images are the gallery's.
    void FollowScheme();
    // Marks a page as the one that is shown.
    void Select(int nPage);
    // The page that a notification of the pane asks for, or -1.
    int PageWanted(const NMHDR& header) const;
    // The rows of the pages.
    void AddParts(std::vector<Part>& parts) const;

private:
    GNavigationBar m_bar;
    std::vector<void*> m_items; // of each page
};

} // namespace gallery
