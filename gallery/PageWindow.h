// The window of the page shown: it holds the page and its canvas, paints their background, scrolls them where
// it is too small, and hands what the controls report to the gallery. To the dialog manager it is a dialog
// box.
#pragma once

#include <gallery/Page.h>
#include <gallery/Report.h>

#include <functional>
#include <memory>

namespace gallery {

class PageWindow
{
public:
    using ReportLine = std::function<void(const std::wstring&)>;

    PageWindow(HWND hwndParent, const RECT& rc, std::unique_ptr<Page> page, ReportLine report);
    ~PageWindow();
    PageWindow(const PageWindow&) = delete;
    PageWindow& operator=(const PageWindow&) = delete;

    HWND Window() const { return m_hwnd; }
    // In the parent's client area.
    void Place(const RECT& rc);
    Page& Content() const { return *m_page; }
    // After a change of the scheme.
    void Recolor();

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDefaultId() const;
    LRESULT OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT OnNotify(LPARAM lParam);
    LRESULT OnContextMenu(HWND hwndFrom, POINT ptScreen);
    LRESULT OnScroll(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnWheel(short nDelta);
    LRESULT OnSize();
    LRESULT OnTimer();
    LRESULT OnColorEdit(HDC hdc, LPARAM lParam) const;
    LRESULT OnEraseBackground(HDC hdc) const;

    void Arrange();
    SIZE NeededIn(SIZE room);
    void SetRange(int nBar, int nLeast, int nRoom) const;
    void ScrollTo(POINT pt);
    void BringIntoView(HWND hwnd);

    HWND m_hwnd = nullptr;
    POINT m_ptScrolled{};
    bool m_fArranging = false;
    std::unique_ptr<Page> m_page;
    std::unique_ptr<Canvas> m_canvas;
    HWND m_hwndDefault = nullptr; // what Enter presses, unless another button has the focus
    ReportLine m_report;
};

} // namespace gallery
