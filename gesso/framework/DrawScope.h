// Device contexts, and selections and modes of theirs, that last for a scope.
#pragma once

#include <gesso/api.h>

namespace gesso {

// A memory context like the screen.
class MemoryContext
{
public:
    MemoryContext() : m_hdc(CreateCompatibleDC(nullptr)) {}
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
