// What a page builds on: its window, the controls made on it, and the gallery's look. A page makes a title
// and some grids; a grid is a heading over equal cells, filled row by row, each a control above its caption.
//
// The canvas owns every control object made through it, until the page is left.
#pragma once

#include <gallery/Shades.h>

#include <deque>
#include <memory>
#include <vector>

namespace gallery {

constexpr int MARGIN = 24; // around a page's content, and between its blocks
constexpr int GAP = 12;    // between cells
constexpr int LEFT_BLOCK = MARGIN;
constexpr int RIGHT_BLOCK = MARGIN + 414; // where a page has two columns of blocks
constexpr int BLOCK_WIDTH = 390;          // of each of the two
constexpr int FIRST_BLOCK = 88;           // the first block's top, below the title

class Canvas
{
public:
    explicit Canvas(HWND hwnd) : m_hwnd(hwnd) {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HWND Window() const { return m_hwnd; }
    // A fresh control id, from 100 up in the order of making.
    int NextId() { return m_nNextId++; }

    template <class CONTROL> CONTROL& Own(std::unique_ptr<CONTROL> control)
    {
        CONTROL& result = *control;
        m_controls.push_back(std::move(control));
        return result;
    }

    // What the page has made is there: brings it to the gallery's dots.
    void Finish();
    // Moves a control on the page, which may be scrolled and stacked by now.
    void Place(GWnd& control, int x, int y, int cx, int cy) const;
    // Puts the right column of blocks below the left one, or back, while the page is not scrolled.
    void Stack(bool fStacked);
    // The room that all controls take as they stand.
    SIZE Extent() const;

    // The page's title and a sentence about it, at the top.
    void Title(LPCWSTR pszTitle, LPCWSTR pszAbout);
    GLabel& Text(const RECT& rc, LPCWSTR pszText, HFONT hFont, Shade shade, DWORD dwStyle = 0);
    // Gives a label a shade, which it keeps as the scheme changes.
    void SetShade(GLabel& label, Shade shade);
    // After a change of the scheme: plain texts follow by themselves.
    void Recolor();

    // A thin frame around a rectangle, drawn with the page's background. A page that lays itself out anew
    // moves it by the result.
    RECT& Frame(const RECT& rc) { return m_frames.emplace_back(rc); }
    void PaintFrames(HDC hdc) const;

private:
    bool IsRight(const RECT& rc) const;
    LONG LeftBottom() const;

    HWND m_hwnd;
    bool m_fFinished = false;
    bool m_fStacked = false;
    POINT m_ptStack{}; // how far the right column is moved to be stacked
    int m_nNextId = 100;
    std::vector<std::unique_ptr<GWnd>> m_controls;
    std::deque<RECT> m_frames; // which stay where they are
    std::vector<std::pair<GLabel*, Shade>> m_shaded;
};

class Grid
{
public:
    static constexpr int HEADING_HEIGHT = 28;
    static constexpr int CAPTION_HEIGHT = 18;

    Grid(Canvas& canvas, POINT ptOrigin, LPCWSTR pszHeading, int nColumns, SIZE cell);

    // Draws a frame around each cell from here on, for controls that do not show their own edges.
    void SetFramed(bool fFramed) { m_fFramed = fFramed; }
    // The next cell, with its caption written below.
    RECT NextCell(LPCWSTR pszCaption);
    // The caption below the last cell, for a page that changes it.
    GLabel& Caption() const { return *m_pCaption; }

    // Makes a control that fills the next cell. dwStyle is its own bits: the window's are added.
    template <class CONTROL> CONTROL& Add(LPCWSTR pszCaption, LPCWSTR pszText, DWORD dwStyle)
    {
        return Add(m_canvas.Own(std::make_unique<CONTROL>()), pszCaption, pszText, dwStyle);
    }

    // The same for an object that is there already.
    template <class CONTROL>
    CONTROL& Add(CONTROL& control, LPCWSTR pszCaption, LPCWSTR pszText, DWORD dwStyle)
    {
        const RECT rc = NextCell(pszCaption);
        control.Create(rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, m_canvas.Window(),
                       m_canvas.NextId(), pszText, 0, WS_CHILD | WS_VISIBLE | dwStyle);
        return control;
    }

    // Makes a dialog of the gallery's resources the content of the next cell.
    HWND AddTemplate(LPCWSTR pszCaption, int nTemplate);

    // Where the next block below starts.
    int Bottom() const;

private:
    Canvas& m_canvas;
    POINT m_ptOrigin;
    int m_nColumns;
    SIZE m_cell;
    int m_nCells = 0;
    GLabel* m_pCaption = nullptr;
    bool m_fFramed = false;
};

} // namespace gallery
