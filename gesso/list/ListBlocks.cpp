#include <gesso/containers/StringText.h>
#include <gesso/list/ListBlocks.h>

#include <algorithm>
#include <new>
#include <utility>

namespace gesso {
namespace {

LPWSTR CopyItemText(TextSpan text, BlockPool* pool)
{
    auto* const copy = static_cast<LPWSTR>(BlockPool::TryAllocate(pool, text.size_bytes() + sizeof(wchar_t)));
    if (copy) {
        *std::copy(text.begin(), text.end(), copy) = L'\0';
    }
    return copy;
}

} // namespace

ListItem* MakeListItem(UINT subItemCount, BlockPool* pool)
{
    void* const block = BlockPool::TryAllocate(pool, sizeof(ListItem) + subItemCount * sizeof(ListSubItem));
    if (!block) {
        return nullptr;
    }
    auto* item = new (block) ListItem();
    std::fill_n(item->SubItems(), subItemCount, ListSubItem());
    item->subItemCount = subItemCount;
    return item;
}

void FreeListItem(ListItem* item)
{
    BlockPool::Free(item);
}

bool ReplaceItemText(LPWSTR& field, LPCWSTR text, BlockPool* pool)
{
    const LPWSTR copy = text ? CopyItemText(SpanOf(text), pool) : nullptr;
    if (text && !copy) {
        return false;
    }
    FreeItemText(std::exchange(field, copy));
    return true;
}

void FreeItemText(LPWSTR text)
{
    BlockPool::Free(text);
}

} // namespace gesso
