// A page of the gallery: it makes its controls on a canvas, and may act on what they report.
#pragma once

#include <gallery/Canvas.h>
#include <gallery/Exhibit.h>

#include <string>
#include <vector>

namespace gallery {

// What a control shows that is no window of its own: a tab, an item.
struct Part
{
    std::wstring kind;
    UINT uId;
    std::wstring text;
    RECT rc; // on the screen
};

// What a page has in a window of 800 x 600, without scroll bars.
constexpr SIZE SMALL_ROOM = {616, 340};

// What two columns of blocks take.
constexpr SIZE TWO_COLUMNS = {RIGHT_BLOCK + BLOCK_WIDTH + MARGIN, 612};

class Page
{
public:
    virtual ~Page() = default;

    virtual void Build(Canvas& canvas) = 0;

    // A control's WM_COMMAND and WM_NOTIFY, once they stand in the log; the result goes back to the control.
    virtual LRESULT OnCommand(UINT /*uId*/, UINT /*uCode*/, HWND /*hwndFrom*/) { return 0; }
    virtual LRESULT OnNotify(const NMHDR& /*header*/) { return 0; }
    // WM_CONTEXTMENU of a control, made in Modern; (-1, -1) where the keyboard asks for it.
    virtual void OnContextMenu(HWND /*hwndFrom*/, POINT /*ptScreen*/) {}
    // The same for WM_VSCROLL; and WM_TIMER, for a page that sets a timer in its canvas's window.
    virtual void OnScroll(WORD /*wCode*/, WORD /*wPos*/, HWND /*hwndFrom*/) {}
    virtual void OnTimer() {}
    // What the page gave its controls for the former scheme.
    virtual void OnSchemeChange() {}
    // Whether something goes on that will still change what the page shows, for its picture.
    virtual bool IsBusy() const { return false; }

    // The room that the page needs, in pixels: where it has less, it scrolls, and two columns are stacked.
    virtual SIZE LeastSize() const { return TWO_COLUMNS; }
    // The room that it has, for a page that lays itself out by that.
    virtual void OnSize(SIZE /*size*/) {}

    // The parts in sight, for tests that drive the gallery with a real pointer.
    virtual std::vector<Part> Parts() const { return {}; }
    // The dialogs that the page opens, for their pictures.
    virtual std::vector<Exhibit> Exhibits() { return {}; }
};

} // namespace gallery
