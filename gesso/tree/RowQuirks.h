// The fixed rules about rows and the selection that a tree has, or not, by what it was made with.
#pragma once

#include <gesso/framework/Quirks.h>

namespace gesso {

struct RowQuirks
{
    bool fRowsStay = true;
    bool fSelectsByNumber = true;
};

inline RowQuirks RowQuirksOf(const GWnd& tree)
{
    return {Has(tree, Quirk::TreeRowsStay), Has(tree, Quirk::TreeSelectsByNumber)};
}

} // namespace gesso
