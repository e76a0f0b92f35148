// The members that every control with GetStyle and SetStyle has alike. Included where the class is named
// `Control`.
//
// The interface gives each class members of its own, straight behind GWnd, so that no base class can hold
// those that several have word for word alike. They are written once in the *Members.inl files instead, each
// of which brings those that it builds on.

#include <gesso/framework/Frame.h>

int Control::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD Control::SetStyle(DWORD dwStyle)
{
    return gesso::Frame::SetStyle(*this, dwStyle);
}

DWORD Control::GetStyle() const
{
    return gesso::Frame::Style(*this);
}
