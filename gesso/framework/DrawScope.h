// Device contexts, and selections and modes of theirs, that last for a scope.
#pragma once

#include <gesso/api.h>

namespace gesso {

// A memory context like another; like the screen for a null one.
class MemoryContext
{
public:
    explicit MemoryContext(HDC hdcLike = nullptr) : m_hdc(CreateCompatibleDC(hdcLike)) {}
    ~MemoryContext() { DeleteDC(m_hdc); }
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    operator HDC() const { return m_hdc; }

private:
    HDC m_hdc;
};

// A window's context; the screen's for a null window.
class WindowContext
{
public:
    explicit WindowContext(HWND hwnd) : m_hWnd(hwnd), m_hdc(GetDC(hwnd)) {}
    ~WindowContext() { ReleaseDC(m_hWnd, m_hdc); }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    operator HDC() const { return m_hdc; }

private:
    HWND m_hWnd;
    HDC m_hdc;
};

// The context of a window's whole rectangle, its frame included.
class FrameContext
{
public:
    explicit FrameContext(HWND hwnd) : m_hWnd(hwnd), m_hdc(GetWindowDC(hwnd)) {}
    ~FrameContext() { ReleaseDC(m_hWnd, m_hdc); }
    FrameContext(const FrameContext&) = delete;
    FrameContext& operator=(const FrameContext&) = delete;
    operator HDC() const { return m_hdc; }

private:
    HWND m_hWnd;
    HDC m_hdc;
};

// What WM_PAINT draws into.
class PaintContext
{
public:
    explicit PaintContext(HWND hwnd) : m_hWnd(hwnd), m_hdc(BeginPaint(hwnd, &m_paint)) {}
    ~PaintContext() { EndPaint(m_hWnd, &m_paint); }
    PaintContext(const PaintContext&) = delete;
    PaintContext& operator=(const PaintContext&) = delete;
    operator HDC() const { return m_hdc; }

private:
    HWND m_hWnd;
    PAINTSTRUCT m_paint{};
    HDC m_hdc;
};

// A bitmap that goes with its scope. One that is selected is let go first: the context and the SelectScope
// come behind it, so that the context is gone by then even where it could not let go.
class BitmapScope
{
public:
    explicit BitmapScope(HBITMAP hBitmap) : m_hBitmap(hBitmap) {}
    ~BitmapScope()
    {
        if (m_hBitmap) {
            DeleteObject(m_hBitmap);
        }
    }
    BitmapScope(const BitmapScope&) = delete;
    BitmapScope& operator=(const BitmapScope&) = delete;
    operator HBITMAP() const { return m_hBitmap; }

private:
    HBITMAP m_hBitmap;
};

// Selects an object; a null one selects nothing.
class SelectScope
{
public:
    SelectScope(HDC hdc, HGDIOBJ hObject)
        : m_hdc(hdc), m_hFormer(hObject ? SelectObject(hdc, hObject) : nullptr)
    {}
    ~SelectScope()
    {
        if (m_hFormer) {
            SelectObject(m_hdc, m_hFormer);
        }
    }
    SelectScope(const SelectScope&) = delete;
    SelectScope& operator=(const SelectScope&) = delete;

private:
    HDC m_hdc;
    HGDIOBJ m_hFormer;
};

// Whatever is selected and set in a context meanwhile.
class StateScope
{
public:
    explicit StateScope(HDC hdc) : m_hdc(hdc), m_nSaved(SaveDC(hdc)) {}
    ~StateScope() { RestoreDC(m_hdc, m_nSaved); }
    StateScope(const StateScope&) = delete;
    StateScope& operator=(const StateScope&) = delete;

private:
    HDC m_hdc;
    int m_nSaved;
};

class TransparentScope
{
public:
    explicit TransparentScope(HDC hdc) : m_hdc(hdc), m_nFormer(SetBkMode(hdc, TRANSPARENT)) {}
    ~TransparentScope() { SetBkMode(m_hdc, m_nFormer); }
    TransparentScope(const TransparentScope&) = delete;
    TransparentScope& operator=(const TransparentScope&) = delete;

private:
    HDC m_hdc;
    int m_nFormer;
};

class TextColorScope
{
public:
    TextColorScope(HDC hdc, COLORREF cr) : m_hdc(hdc), m_crFormer(SetTextColor(hdc, cr)) {}
    ~TextColorScope() { SetTextColor(m_hdc, m_crFormer); }
    TextColorScope(const TextColorScope&) = delete;
    TextColorScope& operator=(const TextColorScope&) = delete;

private:
    HDC m_hdc;
    COLORREF m_crFormer;
};

} // namespace gesso
