// The memory of a list's items: their records and texts. Those of a bulk fill lie in a pool.
#pragma once

#include <gesso/containers/BlockPool.h>
#include <gesso/list/ListRecords.h>

namespace gesso {

// Null without memory; null for no pool.
ListItem* MakeListItem(UINT subItemCount, BlockPool* pool);
// The record alone: its texts are released before, or are another's by now.
void FreeListItem(ListItem* item);

// Stores a copy of a text; none for null. False, with nothing done, without memory.
bool ReplaceItemText(LPWSTR& field, LPCWSTR text, BlockPool* pool);
void FreeItemText(LPWSTR text);

} // namespace gesso
