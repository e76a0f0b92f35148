// Where the cells of a tree's row lie.
//
// Fixed behaviour, but for TreeHitsByOwnSteps: painting and hit-testing have measures of their own that do
// not agree, and only painting moves with the horizontal position; a click on the same pixel would tick,
// toggle or select where it did not before.
#pragma once

#include <gesso/framework/Metrics.h>
#include <gesso/tree/GTree.h>

namespace gesso {

struct TreeMeasures
{
    int nLevelStep;
    int nCell; // the width of each cell in front of the label
};

inline TreeMeasures PaintedMeasures(HWND hwnd)
{
    return {Pixels(hwnd, Metrics::TREE_LEVEL_STEP), Pixels(hwnd, Metrics::TREE_CELL)};
}

inline TreeMeasures HitMeasures(HWND hwnd)
{
    return {Pixels(hwnd, Metrics::TREE_LEVEL_STEP), Pixels(hwnd, Metrics::TREE_HIT_CELL)};
}

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
