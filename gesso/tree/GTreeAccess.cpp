// What a tree says of itself to those who do not see it.
#include <gesso/framework/Frame.h>
#include <gesso/tree/GTree.h>
#include <gesso/tree/TreeSide.h>

using gesso::TreeActions;

class GTree::Access final : public gesso::TreeInput::Side<GTree>
{
    UINT MarksOf(const GTree& tree, const TreeItem& item) const override
    {
        const bool fChecked = (tree.m_uTreeStyle & GTS_CHECKBOXES) && (item.uState & TIS_CHECKED);
        return fChecked ? STATE_SYSTEM_CHECKED : 0;
    }
    gesso::RowPlace PlaceOf(const GTree& tree, UINT row) const override { return tree.PlaceOf(row); }
    UINT RowAt(const GTree& tree, int y) const override { return tree.RowAt(y); }
    void Click(GTree& tree, UINT row, POINTS pt) const override { tree.ClickRow(row, THT_LABEL, pt); }
    void Toggle(GTree& tree, UINT row) const override { TreeActions::Toggle(tree, row); }
};

const gesso::AccessibleSide& GTree::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
