// What a host's own window says of itself.
#include <gesso/access/AccessibleSide.h>
#include <gesso/access/WindowText.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/GWindow2.h>

class GWindow2::Access final : public gesso::SideOf<GWindow2>
{
public:
    gesso::Role RoleOf(const GWnd&, gesso::AccessibleId) const override { return gesso::Role::Window; }
    gesso::AccessString NameOf(const GWnd& wnd, gesso::AccessibleId) const override
    {
        return gesso::TextOfWindow(gesso::Frame::Handle(wnd));
    }
    UINT StateOf(const GWnd& wnd, gesso::AccessibleId) const override
    {
        return StateOfWindow(gesso::Frame::Handle(wnd), true);
    }
};

const gesso::AccessibleSide& GWindow2::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
