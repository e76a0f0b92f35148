#include <gesso/containers/Index.h>
#include <gesso/edit/ComboSearch.h>
#include <gesso/framework/FoldCase.h>

#include <algorithm>

namespace gesso {

UINT FindItem(const ComboItems& aItems, UINT nStart, LPCWSTR psz, ComboMatch match)
{
    const UINT nCount = aItems.GetLength();
    if (!psz[0]) {
        return NO_INDEX;
    }
    const UINT nFirst = nStart < nCount ? nStart + 1 : 0;
    for (UINT i = 0; i < nCount; ++i) {
        const UINT nItem = nFirst + i < nCount ? nFirst + i : nFirst + i - nCount;
        const LPCWSTR pszRest = BehindStart(aItems[nItem]->pszText, psz);
        if (pszRest && (match == ComboMatch::Start || !*pszRest)) {
            return nItem;
        }
    }
    return NO_INDEX;
}

UINT SortedPlace(const ComboItems& aItems, LPCWSTR psz)
{
    const auto isBefore = [](LPCWSTR pszNew, const ComboItem* pItem) {
        return lstrcmpiW(pszNew, pItem->pszText) < 0;
    };
    return static_cast<UINT>(std::upper_bound(aItems.begin(), aItems.end(), psz, isBefore) - aItems.begin());
}

} // namespace gesso
