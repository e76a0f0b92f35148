#include <gesso/framework/Behavior.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>

namespace gesso {

bool Has(const GWnd& wnd, Quirk)
{
    const HWND hwnd = Frame::Handle(wnd);
    return hwnd ? !Frame::IsModern(hwnd) : GetBehavior() == Behavior::Classic;
}

bool WillHave(Quirk)
{
    return GetBehavior() == Behavior::Classic;
}

} // namespace gesso
