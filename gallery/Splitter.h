// A separator between two panes: the page places both panes and this, and is told where the user drags it.
#pragma once

#include <gallery/Canvas.h>

#include <optional>

namespace gallery {

class Splitter
{
public:
    static constexpr int WIDTH = 8;

    void Create(Canvas& canvas);
    // At a left side, in the page.
    void Place(int x, int nTop, int nHeight);
    // Where the left side is to go, for a notification that tells of a drag; the place at which the pointer
    // took the separator stays under it.
    std::optional<int> DraggedTo(const NMHDR& header);

private:
    Canvas* m_pCanvas = nullptr;
    GSeparator* m_pSeparator = nullptr;
    int m_x = 0;
    int m_xGrip = 0;
};

} // namespace gallery
