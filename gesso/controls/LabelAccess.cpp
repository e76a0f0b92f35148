// What the controls that are not pressed say of themselves to those who do not see them.
#include <gesso/access/BarParts.h>
#include <gesso/controls/GLabel.h>
#include <gesso/controls/GProgressBar.h>
#include <gesso/controls/GScrollbar.h>
#include <gesso/controls/GSeparator.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>

#include <algorithm>

using gesso::AccessibleAction;
using gesso::AccessibleId;
using gesso::AccessString;
using gesso::BarPart;
using gesso::Frame;
using gesso::Role;

class GLabel::Access final : public gesso::SideOf<GLabel>
{
public:
    Role RoleOf(const GWnd& wnd, AccessibleId) const override
    {
        const DWORD dwStyle = Frame::Style(wnd);
        if (dwStyle & (GLS_ETCHEDHORZ | GLS_ETCHEDVERT)) {
            return Role::Separator;
        }
        return dwStyle & (GS_ICON | GS_BITMAP) ? Role::Graphic : Role::StaticText;
    }
    AccessString NameOf(const GWnd& wnd, AccessibleId) const override
    {
        const LPCWSTR pszText = gesso::TextOrEmpty(Of(wnd).m_pszText);
        return HasMnemonic(wnd) ? gesso::WithoutMnemonic(pszText) : AccessString::Build(L"%s", pszText);
    }
    AccessString ShortcutOf(const GWnd& wnd, AccessibleId) const override
    {
        return HasMnemonic(wnd) ? gesso::ShortcutOfMnemonic(Of(wnd).m_pszText) : AccessString();
    }
    UINT StateOf(const GWnd& wnd, AccessibleId) const override
    {
        return StateOfWindow(Frame::Handle(wnd), false) | STATE_SYSTEM_READONLY;
    }

private:
    static bool HasMnemonic(const GWnd& wnd) { return !(Frame::Style(wnd) & GLS_NOPREFIX); }
};

const gesso::AccessibleSide& GLabel::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

class GProgressBar::Access final : public gesso::SideOf<GProgressBar>
{
public:
    Role RoleOf(const GWnd&, AccessibleId) const override { return Role::ProgressBar; }
    AccessString ValueOf(const GWnd& wnd, AccessibleId) const override
    {
        constexpr UINT WHOLE_BAR = 1000;
        return gesso::PercentOf((std::min)(Of(wnd).m_nProgress, WHOLE_BAR), WHOLE_BAR);
    }
    bool HasValue(const GWnd&, AccessibleId) const override { return true; }
    bool TakesLabel() const override { return true; }
};

const gesso::AccessibleSide& GProgressBar::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

class GSeparator::Access final : public gesso::SideOf<GSeparator>
{
public:
    Role RoleOf(const GWnd&, AccessibleId) const override { return Role::Grip; }
    bool TakesLabel() const override { return true; }
};

const gesso::AccessibleSide& GSeparator::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

// A bar that is a window: the window is the bar.
class GScrollbar::Access final : public gesso::SideOf<GScrollbar>
{
public:
    bool Has(const GWnd&, AccessibleId id) const override
    {
        return id == gesso::WHOLE || (id.nKind == PART && PartOf(id) < BarPart::Count);
    }
    Role RoleOf(const GWnd&, AccessibleId id) const override
    {
        return id == gesso::WHOLE ? Role::ScrollBar : gesso::RoleOfPart(PartOf(id));
    }
    AccessString NameOf(const GWnd&, AccessibleId id) const override
    {
        return AccessString::Build(L"%s", id == gesso::WHOLE ? L"Vertical"
                                                             : gesso::NameOfPart(Traits(), PartOf(id)));
    }
    AccessString ValueOf(const GWnd& wnd, AccessibleId id) const override
    {
        return id == gesso::WHOLE ? gesso::PercentOf(Of(wnd).m_nPos, Of(wnd).LastPos()) : AccessString();
    }
    bool HasValue(const GWnd&, AccessibleId id) const override { return id == gesso::WHOLE; }
    UINT StateOf(const GWnd& wnd, AccessibleId id) const override
    {
        const UINT uState = StateOfWindow(Frame::Handle(wnd), false);
        const bool fPressed = !(id == gesso::WHOLE) && Of(wnd).m_hitDown.wHit == HitOf(PartOf(id));
        return fPressed ? uState | STATE_SYSTEM_PRESSED : uState;
    }
    RECT RectOf(const GWnd& wnd, AccessibleId id) const override
    {
        const GScrollbar& bar = Of(wnd);
        RECT rc{};
        GetClientRect(bar.m_hWnd, &rc);
        return gesso::RectOfPart(Traits(), rc, bar.StopsAt(bar.PaintedThumbOffset()), PartOf(id));
    }
    UINT CountOf(const GWnd&, AccessibleId id) const override
    {
        return id == gesso::WHOLE ? static_cast<UINT>(BarPart::Count) : 0;
    }
    AccessibleId ChildOf(const GWnd&, AccessibleId, UINT nIndex) const override { return {PART, nIndex, 0}; }
    bool IsObject(const GWnd&, AccessibleId) const override { return true; }
    AccessibleId HitTest(const GWnd& wnd, POINT pt) const override
    {
        for (UINT n = 0; n < static_cast<UINT>(BarPart::Count); ++n) {
            const RECT rc = RectOf(wnd, {PART, n, 0});
            if (PtInRect(&rc, pt)) {
                return {PART, n, 0};
            }
        }
        return gesso::WHOLE;
    }
    AccessibleAction ActionOf(const GWnd&, AccessibleId id) const override
    {
        const bool fButton = id.nKind == PART && PartOf(id) != BarPart::Thumb;
        return fButton ? AccessibleAction::Press : AccessibleAction::None;
    }
    bool Act(GWnd& wnd, AccessibleId id) const override
    {
        Of(wnd).SendScroll(gesso::ScrollCodeOf(PartOf(id)));
        return true;
    }

private:
    static constexpr UINT PART = 1;
    static BarPart PartOf(AccessibleId id) { return static_cast<BarPart>(id.nIndex); }
    static const gesso::BarTraits& Traits() { return gesso::BARS[SB_VERT]; }
    static WORD HitOf(BarPart part)
    {
        constexpr WORD HITS[] = {SBH_UP, SBH_ABOVE, SBH_VTHUMB, SBH_BELOW, SBH_DOWN};
        return HITS[static_cast<UINT>(part)];
    }
};

const gesso::AccessibleSide& GScrollbar::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
