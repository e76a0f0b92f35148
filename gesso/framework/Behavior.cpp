#include <gesso/containers/Misuse.h>
#include <gesso/framework/Behavior.h>
#include <gesso/framework/Frame.h>

#include <atomic>

namespace gesso {
namespace {

constinit std::atomic<Behavior> s_behavior = Behavior::Classic;

} // namespace

void SetBehavior(Behavior behavior)
{
    if (behavior == Behavior::Classic || behavior == Behavior::Modern) {
        s_behavior = behavior;
    } else {
        Misuse("SetBehavior: no such behaviour");
    }
}

Behavior GetBehavior()
{
    return s_behavior;
}

Behavior BehaviorOf(HWND hwnd)
{
    return hwnd && GetPropW(hwnd, Frame::MODERN_MARK) ? Behavior::Modern : Behavior::Classic;
}

void OwnByWindow(GWnd* pObject)
{
    if (!pObject || !Frame::GiveToWindow(*pObject)) {
        Misuse("OwnByWindow: an object that has no window");
    }
}

} // namespace gesso
