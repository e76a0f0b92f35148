#include <gallery/Fonts.h>
#include <gallery/Glyphs.h>
#include <gallery/Marks.h>
#include <gallery/Pages.h>
#include <gallery/Scale.h>
#include <gallery/Splitter.h>
#include <gallery/resource.h>

#include <algorithm>

namespace gallery {
namespace {

constexpr SIZE CELL = {122, 24};
constexpr SIZE LINK_CELL = {189, 64};
constexpr int BLOCK_HEIGHT = 100; // of the two blocks at the bottom, without their headings
constexpr DWORD MIDDLE = GS_VCENTER | WS_TABSTOP;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
constexpr int BACK_SIZE = 30;
constexpr UINT TICK_MILLISECONDS = 40;

constexpr LPCWSTR MARKS[] = {L"unchecked", L"checked", L"mixed"};

// The heading of a block that is no grid; returns the room below it.
RECT BlockBelow(Canvas& canvas, POINT pt, LPCWSTR pszHeading)
{
    const RECT rc{pt.x, pt.y, pt.x + BLOCK_WIDTH, pt.y + Grid::HEADING_HEIGHT};
    canvas.Text(rc, pszHeading, HeadingFont(), Shade::Text);
    return {rc.left, rc.bottom, rc.right, rc.bottom + BLOCK_HEIGHT};
}

// Two pictures and a separator between them: the separator tells of the drag, and this moves all three.
class Panes
{
public:
    void Build(Canvas& canvas, POINT pt)
    {
        m_pCanvas = &canvas;
        m_rc = BlockBelow(canvas, pt, L"A separator between two panes");
        m_pLeft = &MakePane(canvas, LandscapeBitmap(BLOCK_WIDTH, BLOCK_HEIGHT));
        m_pRight = &MakePane(canvas, SketchBitmap(BLOCK_WIDTH, BLOCK_HEIGHT));
        m_splitter.Create(canvas);
        MoveTo((m_rc.left + m_rc.right) / 2);
    }

    void OnNotify(const NMHDR& header)
    {
        if (const auto x = m_splitter.DraggedTo(header)) {
            MoveTo(*x);
        }
    }

private:
    static constexpr int SMALLEST_PANE = 40;

    GLabel& MakePane(Canvas& canvas, HBITMAP hbm) const
    {
        GLabel& pane = canvas.Text(m_rc, L"", g_hDefaultFont, Shade::Text, GS_BITMAP);
        pane.SetBitmap(hbm);
        return pane;
    }

    void MoveTo(LONG x)
    {
        x = std::clamp(x, m_rc.left + SMALLEST_PANE, m_rc.right - SMALLEST_PANE - Splitter::WIDTH);
        const int xRight = x + Splitter::WIDTH;
        m_pCanvas->Place(*m_pLeft, m_rc.left, m_rc.top, x - m_rc.left, BLOCK_HEIGHT);
        m_splitter.Place(x, m_rc.top, BLOCK_HEIGHT);
        m_pCanvas->Place(*m_pRight, xRight, m_rc.top, m_rc.right - xRight, BLOCK_HEIGHT);
    }

    Canvas* m_pCanvas = nullptr;
    RECT m_rc{};
    GLabel* m_pLeft = nullptr;
    GLabel* m_pRight = nullptr;
    Splitter m_splitter;
};

// A picture higher than its room, moved by a scroll bar beside it.
class ScrolledPicture
{
public:
    void Build(Canvas& canvas, POINT pt)
    {
        const RECT rc = BlockBelow(canvas, pt, L"A scroll bar that moves a picture");
        const int cx = BLOCK_WIDTH - BAR_WIDTH;
        const RECT rcView{rc.left, rc.top, rc.left + cx, rc.bottom};
        GLabel& view = canvas.Text(rcView, L"", g_hDefaultFont, Shade::Text, GLS_EMPTY | WS_CLIPCHILDREN);
        m_pPicture = &canvas.Own(std::make_unique<GLabel>());
        m_pPicture->Create(0, 0, Scaled(cx), PICTURE_HEIGHT, view, 0, L"", 0, CHILD | GS_BITMAP);
        m_pPicture->SetBitmap(LandscapeBitmap(cx, PICTURE_HEIGHT));
        m_pBar = &canvas.Own(std::make_unique<GScrollbar>());
        m_pBar->Create(rcView.right, rc.top, BAR_WIDTH, BLOCK_HEIGHT, canvas.Window(), canvas.NextId(), 0,
                       CHILD);
        m_pBar->InitScrollBar(PICTURE_HEIGHT);
        m_pBar->ScrSetTotalHeight(PICTURE_HEIGHT);
        MoveTo(PICTURE_HEIGHT / 4);
    }

    void OnScroll(WORD wCode, WORD wPos)
    {
        const auto nPos = static_cast<int>(m_pBar->GetScrollPos());
        switch (wCode) {
        case SB_LINEUP: MoveTo(nPos - LINE); break;
        case SB_LINEDOWN: MoveTo(nPos + LINE); break;
        case SB_PAGEUP: MoveTo(nPos - BLOCK_HEIGHT); break;
        case SB_PAGEDOWN: MoveTo(nPos + BLOCK_HEIGHT); break;
        case SB_THUMBTRACK: MoveTo(wPos); break;
        default: break;
        }
    }

private:
    static constexpr int BAR_WIDTH = 17;
    static constexpr int PICTURE_HEIGHT = 420;
    static constexpr int LINE = 16;

    void MoveTo(int nPos)
    {
        m_pBar->SetScrollPos(static_cast<UINT>(nPos));
        m_pBar->Invalidate(0);
        m_pPicture->MoveWindow(0, -static_cast<int>(m_pBar->GetScrollPos()), Scaled(BLOCK_WIDTH - BAR_WIDTH),
                               PICTURE_HEIGHT);
    }

    GLabel* m_pPicture = nullptr;
    GScrollbar* m_pBar = nullptr;
};

class ChoicesPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        canvas.Title(L"Choices", L"Check boxes, radio buttons, command links and their small companions.");
        const int nRadios = MakeBoxes(canvas, {LEFT_BLOCK, FIRST_BLOCK});
        const int nProgress = MakeRadios(canvas, {LEFT_BLOCK, nRadios});
        m_picture.Build(canvas, {LEFT_BLOCK, MakeProgress(canvas, {LEFT_BLOCK, nProgress})});
        m_panes.Build(canvas, {RIGHT_BLOCK, MakeLinks(canvas, {RIGHT_BLOCK, FIRST_BLOCK})});
        SetTimer(canvas.Window(), 1, TICK_MILLISECONDS, nullptr);
    }

    LRESULT OnCommand(UINT, UINT, HWND hwndFrom) override
    {
        for (const Box& box : m_boxes) {
            if (box.pControl->GetHwnd() == hwndFrom) {
                GoOn(box);
            }
        }
        const bool fRadio = std::any_of(m_radios.begin(), m_radios.end(),
                                        [&](GRadioButton* p) { return p->GetHwnd() == hwndFrom; });
        if (fRadio) {
            Choose(hwndFrom);
        }
        return 0;
    }

    LRESULT OnNotify(const NMHDR& header) override
    {
        m_panes.OnNotify(header);
        return 0;
    }

    void OnScroll(WORD wCode, WORD wPos, HWND) override { m_picture.OnScroll(wCode, wPos); }

    void OnTimer() override
    {
        m_nProgress = m_nProgress < 1000 ? m_nProgress + 2 : 0;
        m_pProgress->SetProgress(m_nProgress);
    }

private:
    // A check box; its caption, if that is to name its mark.
    struct Box
    {
        GCheckBox* pControl;
        GLabel* pCaption;
    };

    int MakeBoxes(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Check boxes: a click goes on to the next mark", 3, CELL);
        const auto box = [&](LPCWSTR pszCaption, LPCWSTR pszText, int nCheck, DWORD dwStyle) -> GCheckBox& {
            GCheckBox& control = grid.Add<GCheckBox>(pszCaption ? pszCaption : MARKS[nCheck], pszText,
                                                     MIDDLE | GBS_AUTO | GBS_3STATE | dwStyle);
            control.SetCheck(nCheck);
            m_boxes.push_back({&control, pszCaption ? nullptr : &grid.Caption()});
            return control;
        };
        box(nullptr, L"&Apples", BST_UNCHECKED, 0);
        box(nullptr, L"&Bread", BST_CHECKED, 0);
        box(nullptr, L"&Cheese", BST_INDETERMINATE, 0);
        box(L"box to the right", L"To the right", BST_CHECKED, GCS_BOXRIGHT);
        box(L"icon", L"Icon", BST_CHECKED, GS_ICON).SetIcon(IconOf(Glyph::Info, 16));
        box(L"bitmap, box right", L"Picture", BST_CHECKED, GS_BITMAP | GCS_BOXRIGHT)
            .SetBitmap(LandscapeBitmap(20, 14));
        box(L"disabled", L"Not now", BST_CHECKED, WS_DISABLED);
        box(L"text to the right", L"Right", BST_INDETERMINATE, GS_RIGHT);
        box(L"image to the right", L"Next", BST_UNCHECKED, GS_ICON | GS_CENTER | GCS_IMAGERIGHT)
            .SetIcon(IconOf(Glyph::Add, 16));
        return grid.Bottom();
    }

    static void GoOn(const Box& box)
    {
        const int nCheck = MarkAfterClick(*box.pControl, static_cast<int>(std::size(MARKS)));
        if (box.pCaption) {
            box.pCaption->SetText(MARKS[nCheck]);
        }
    }

    int MakeRadios(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Radio buttons of one group", 3, CELL);
        for (LPCWSTR pszText : {L"&North", L"&East", L"&South"}) {
            const DWORD dwGroup = m_radios.empty() ? WS_GROUP : 0;
            m_radios.push_back(
                &grid.Add<GRadioButton>(MARKS[BST_UNCHECKED], pszText, MIDDLE | GBS_AUTO | dwGroup));
            m_radioCaptions.push_back(&grid.Caption());
        }
        Choose(m_radios[1]->GetHwnd());
        return grid.Bottom();
    }

    // Turns the chosen button on and the others off, as Modern has done already.
    void Choose(HWND hwnd)
    {
        for (size_t i = 0; i < m_radios.size(); i++) {
            const int nCheck = m_radios[i]->GetHwnd() == hwnd ? BST_CHECKED : BST_UNCHECKED;
            m_radios[i]->SetCheck(nCheck);
            m_radioCaptions[i]->SetText(MARKS[nCheck]);
        }
    }

    int MakeProgress(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Back button and progress bar", 3, CELL);
        const RECT rcBack = grid.NextCell(L"back");
        canvas.Own(std::make_unique<GNavigationButton>())
            .Create(rcBack.left + (CELL.cx - BACK_SIZE) / 2, rcBack.top - 3, BACK_SIZE, BACK_SIZE,
                    canvas.Window(), canvas.NextId(), 0, CHILD | WS_TABSTOP | WS_GROUP);
        const RECT rcBar = grid.NextCell(L"on a timer");
        m_pProgress = &canvas.Own(std::make_unique<GProgressBar>());
        m_pProgress->Create(rcBar.left, rcBar.top + 4, CELL.cx, 16, canvas.Window(), 0, 0, CHILD);
        m_pProgress->SetProgress(m_nProgress);
        const RECT rcFull = grid.NextCell(L"full");
        GProgressBar& full = canvas.Own(std::make_unique<GProgressBar>());
        full.Create(rcFull.left, rcFull.top + 4, CELL.cx, 16, canvas.Window(), 0, 0, CHILD);
        full.SetProgress(1000);
        return grid.Bottom();
    }

    static int MakeLinks(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Command links", 2, LINK_CELL);
        const auto link = [&](LPCWSTR pszCaption, LPCWSTR pszText, LPCWSTR pszNote,
                              DWORD dwStyle) -> GCommandButton& {
            const RECT rc = grid.NextCell(pszCaption);
            GCommandButton& control = canvas.Own(std::make_unique<GCommandButton>());
            control.Create(rc.left, rc.top, LINK_CELL.cx, LINK_CELL.cy, canvas.Window(), canvas.NextId(),
                           pszText, pszNote, 0, CHILD | WS_TABSTOP | dwStyle);
            return control;
        };
        link(L"with a note", L"&Keep both files", L"Under a new name", 0);
        link(L"default, without a note", L"&Replace", nullptr, GBS_DEFAULT);
        link(L"icon", L"&Add a place", L"To those on the left", GS_ICON).SetIcon(IconOf(Glyph::Add, 20));
        link(L"bitmap", L"&View", L"The picture in full", GS_BITMAP).SetBitmap(LandscapeBitmap(20, 20));
        link(L"shield, disabled", L"For all users", L"Not now", GCBS_SHIELD | WS_DISABLED);
        grid.AddTemplate(L"dialog template", IDD_CHOICES);
        return grid.Bottom();
    }

    std::vector<Box> m_boxes;
    std::vector<GRadioButton*> m_radios;
    std::vector<GLabel*> m_radioCaptions;
    GProgressBar* m_pProgress = nullptr;
    UINT m_nProgress = 620;
    Panes m_panes;
    ScrolledPicture m_picture;
};

} // namespace

std::unique_ptr<Page> MakeChoicesPage()
{
    return std::make_unique<ChoicesPage>();
}

} // namespace gallery
