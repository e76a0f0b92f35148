// What a navigation bar says of itself to those who do not see it.
#include <gesso/framework/Frame.h>
#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/NavigationRows.h>
#include <gesso/tree/TreeSide.h>

using gesso::Frame;
using gesso::Role;
using gesso::TreeActions;

class GNavigationBar::Access final : public gesso::TreeInput::Side<GNavigationBar>
{
    Role RoleOfItem(const NavigationBarItem& item) const override
    {
        switch (gesso::KindOf(item)) {
        case NBIK_HEADER: return Role::Grouping;
        case NBIK_SEPARATOR: return Role::Separator;
        default: return Role::OutlineItem;
        }
    }
    gesso::RowPlace PlaceOf(const GNavigationBar& bar, UINT row) const override
    {
        return bar.Rows().PlaceOf(row);
    }
    UINT RowAt(const GNavigationBar& bar, int y) const override
    {
        return bar.Rows().Reaching(int64_t{bar.m_siV.nPos} + y).row;
    }
    // With the glyph at the right, a click on a row may open it first.
    void Click(GNavigationBar& bar, UINT row, POINTS pt) const override
    {
        NavigationBarItem* item = bar.m_aVisible[row];
        const auto hold = bar.Items().Hold(item);
        const bool fToggles = !bar.HasGlyphAtLeft(*item) && (Frame::Style(bar) & GNS_CLICKEXPAND);
        if (!fToggles || bar.ToggleByClick(row, false)) {
            bar.ClickItem(item, pt);
        }
    }
    // By a click on the glyph.
    void Toggle(GNavigationBar& bar, UINT row) const override
    {
        if (bar.HasGlyphAtLeft(*bar.m_aVisible[row])) {
            TreeActions::Toggle(bar, row);
        } else {
            bar.ToggleByClick(row, true);
        }
    }
};

const gesso::AccessibleSide& GNavigationBar::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
