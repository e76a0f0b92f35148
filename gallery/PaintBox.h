// A child window whose content a page draws itself, without flicker.
#pragma once

#include <gesso/gesso.h>

#include <functional>

namespace gallery {

class PaintBox
{
public:
    using Painter = std::function<void(HDC hdc, const RECT& rc)>;

    PaintBox(HWND hwndParent, const RECT& rc, Painter painter);
    virtual ~PaintBox();
    PaintBox(const PaintBox&) = delete;
    PaintBox& operator=(const PaintBox&) = delete;

protected:
    PaintBox(HWND hwndParent, const RECT& rc) : PaintBox(hwndParent, rc, {}) {}

    HWND Window() const { return m_hwnd; }
    SIZE Size() const;
    virtual void Draw(HDC hdc, const RECT& rc) { m_painter(hdc, rc); }
    virtual LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnPaint();

    HWND m_hwnd;
    Painter m_painter;
};

} // namespace gallery
