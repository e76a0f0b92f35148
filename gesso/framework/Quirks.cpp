#include <gesso/framework/Behavior.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>

namespace gesso {

bool Has(const GWnd& wnd, Quirk)
{
    const HWND hwnd = Frame::Handle(wnd);
    const bool fAsNow = !hwnd || (GetBehavior() == Behavior::Modern && !IsWindow(hwnd));
    return fAsNow ? GetBehavior() == Behavior::Classic : !Frame::IsModern(hwnd);
}

bool WillHave(Quirk)
{
    return GetBehavior() == Behavior::Classic;
}

} // namespace gesso
