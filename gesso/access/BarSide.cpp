#include <gesso/access/BarParts.h>
#include <gesso/access/BarSide.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/GWndScroll.h>

using gesso::AccessibleAction;
using gesso::AccessibleId;
using gesso::AccessString;
using gesso::BarPart;
using gesso::BARS;
using gesso::Frame;
using gesso::Role;

namespace {

constexpr UINT BAR = 1;
constexpr UINT PART = 2; // of the bar that nOuter tells

int BarNumber(AccessibleId id)
{
    return static_cast<int>(id.nKind == BAR ? id.nIndex : id.nOuter);
}

BarPart PartOf(AccessibleId id)
{
    return static_cast<BarPart>(id.nIndex);
}

// A rectangle of the window, in the client area's coordinates.
RECT FromWindow(HWND hwnd, RECT rc)
{
    RECT rcWindow{};
    GetWindowRect(hwnd, &rcWindow);
    if (gesso::IsMirrored(hwnd)) {
        rc = {rcWindow.right - rc.right, rcWindow.top + rc.top, rcWindow.right - rc.left,
              rcWindow.top + rc.bottom};
    } else {
        OffsetRect(&rc, rcWindow.left, rcWindow.top);
    }
    MapWindowPoints(nullptr, hwnd, reinterpret_cast<POINT*>(&rc), 2);
    return rc;
}

} // namespace

class GWndScroll::BarAccess final : public gesso::SideOf<GWndScroll>
{
public:
    bool Has(const GWnd&, AccessibleId id) const override
    {
        return (id.nKind == BAR || id.nKind == PART) && BarNumber(id) <= SB_VERT &&
               (id.nKind == BAR || PartOf(id) < BarPart::Count);
    }

    Role RoleOf(const GWnd&, AccessibleId id) const override
    {
        return id.nKind == BAR ? Role::ScrollBar : RoleOfPart(PartOf(id));
    }

    AccessString NameOf(const GWnd&, AccessibleId id) const override
    {
        const bool fVertical = BarNumber(id) == SB_VERT;
        return AccessString::Build(L"%s", id.nKind == PART ? NameOfPart(BARS[BarNumber(id)], PartOf(id))
                                          : fVertical      ? L"Vertical"
                                                           : L"Horizontal");
    }

    AccessString ValueOf(const GWnd& wnd, AccessibleId id) const override
    {
        if (id.nKind != BAR) {
            return {};
        }
        const SCROLLINFO si = InfoOf(wnd, id);
        return gesso::PercentOf(LONGLONG{si.nPos} - si.nMin,
                                LONGLONG{si.nMax} - si.nMin - si.nPage + (si.nPage ? 1 : 0));
    }

    bool HasValue(const GWnd&, AccessibleId id) const override { return id.nKind == BAR; }

    UINT StateOf(const GWnd& wnd, AccessibleId id) const override
    {
        const DWORD dwFlags = Of(wnd).GetScrollBarStyle(BarNumber(id));
        UINT uState = StateOfWindow(Frame::Handle(wnd), false) & ~UINT{STATE_SYSTEM_OFFSCREEN};
        if (!Of(wnd).Shows(BARS[BarNumber(id)], dwFlags)) {
            uState |= STATE_SYSTEM_INVISIBLE;
        }
        return dwFlags & GSB_DISABLED ? uState | STATE_SYSTEM_UNAVAILABLE : uState;
    }

    RECT RectOf(const GWnd& wnd, AccessibleId id) const override
    {
        const gesso::BarTraits& traits = BARS[BarNumber(id)];
        if (!Of(wnd).Shows(traits, Of(wnd).GetScrollBarStyle(BarNumber(id)))) {
            return {};
        }
        const HWND hwnd = Frame::Handle(wnd);
        const RECT& rcBar = Of(wnd).RectOf(BarNumber(id));
        return FromWindow(
            hwnd, id.nKind == BAR
                      ? rcBar
                      : RectOfPart(traits, rcBar, StopsOf(hwnd, traits, rcBar, InfoOf(wnd, id)), PartOf(id)));
    }

    UINT CountOf(const GWnd&, AccessibleId id) const override
    {
        return id.nKind == BAR ? static_cast<UINT>(BarPart::Count) : 0;
    }

    AccessibleId ChildOf(const GWnd&, AccessibleId id, UINT nIndex) const override
    {
        return {PART, nIndex, id.nIndex};
    }

    AccessibleId ParentOf(const GWnd&, AccessibleId id) const override
    {
        return id.nKind == PART ? AccessibleId{BAR, id.nOuter, 0} : gesso::WHOLE;
    }

    bool IsObject(const GWnd&, AccessibleId) const override { return true; }

    AccessibleId HitTest(const GWnd& wnd, POINT pt) const override
    {
        for (const UINT nBar : {UINT{SB_HORZ}, UINT{SB_VERT}}) {
            for (UINT n = 0; n < static_cast<UINT>(BarPart::Count); ++n) {
                const RECT rc = RectOf(wnd, {PART, n, nBar});
                if (PtInRect(&rc, pt)) {
                    return {PART, n, nBar};
                }
            }
        }
        return gesso::WHOLE;
    }

    AccessibleAction ActionOf(const GWnd&, AccessibleId id) const override
    {
        return id.nKind == PART && PartOf(id) != BarPart::Thumb ? AccessibleAction::Press
                                                                : AccessibleAction::None;
    }

    bool Act(GWnd& wnd, AccessibleId id) const override
    {
        const gesso::Watch watch(wnd);
        const UINT uMessage = BARS[BarNumber(id)].uMessage;
        Of(wnd).SendScroll(uMessage, gesso::ScrollCodeOf(PartOf(id)));
        if (watch) {
            Of(wnd).SendScroll(uMessage, SB_ENDSCROLL);
        }
        return true;
    }

private:
    static SCROLLINFO InfoOf(const GWnd& wnd, AccessibleId id)
    {
        return BarNumber(id) == SB_VERT ? Of(wnd).m_siV : Of(wnd).m_siH;
    }
};

namespace gesso {

const AccessibleSide* BarSideOf(const GWnd& wnd)
{
    static constexpr GWndScroll::BarAccess SIDE;
    return dynamic_cast<const GWndScroll*>(&wnd) ? &SIDE : nullptr;
}

AccessibleId BarId(int nBar)
{
    return {BAR, static_cast<UINT>(nBar), 0};
}

} // namespace gesso
