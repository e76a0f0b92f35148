#include <gallery/Scale.h>
#include <gallery/Splitter.h>

namespace gallery {

void Splitter::Create(Canvas& canvas)
{
    m_pCanvas = &canvas;
    m_pSeparator = &canvas.Own(std::make_unique<GSeparator>());
    m_pSeparator->Create(0, 0, WIDTH, 10, canvas.Window(), canvas.NextId(), WS_EX_TRANSPARENT,
                         WS_CHILD | WS_VISIBLE);
}

void Splitter::Place(int x, int nTop, int nHeight)
{
    m_x = x;
    m_pCanvas->Place(*m_pSeparator, x, nTop, WIDTH, nHeight);
}

std::optional<int> Splitter::DraggedTo(const NMHDR& header)
{
    if (header.hwndFrom != m_pSeparator->GetHwnd() ||
        (header.code != GSN_BEGINDRAG && header.code != GSN_DRAG)) {
        return {};
    }
    const int x = Unscaled(reinterpret_cast<const stcSeparatorNotify&>(header).pt.x);
    if (header.code == GSN_BEGINDRAG) {
        m_xGrip = x;
        return {};
    }
    return m_x + x - m_xGrip;
}

} // namespace gallery
