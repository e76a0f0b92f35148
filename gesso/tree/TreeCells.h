// Where the cells of a tree's row lie. Painting and hit-testing have measures of their own that do not agree,
// and only painting moves with the horizontal position: hosts know the tree so.
#pragma once

#include <gesso/tree/GTree.h>

namespace gesso {

struct TreeMeasures
{
    int nLevelStep;
    int nCell; // the width of each cell in front of the label
};

constexpr TreeMeasures PAINTED{15, 20};
constexpr TreeMeasures HIT{15, 15};

// The left ends of a row's cells, in pixels. A cell that is not there is as wide as nothing.
struct TreeCells
{
    int nExpander, nCheckBox, nImage, nLabel;
};

constexpr TreeCells LayOutCells(const TreeMeasures& measures, int nLevel, UINT uTreeStyle)
{
    const int nExpander = nLevel * measures.nLevelStep;
    const int nCheckBox = nExpander + measures.nCell;
    const int nImage = nCheckBox + (uTreeStyle & GTS_CHECKBOXES ? measures.nCell : 0);
    const int nLabel = nImage + (uTreeStyle & GTS_IMAGES ? measures.nCell : 0);
    return {nExpander, nCheckBox, nImage, nLabel};
}

} // namespace gesso
