// What a list that owns no rows has been told of its cells, and the texts prepared from it, of the last few
// screens: records like those of a list's own items, each of which goes once it was not looked at for long.
#pragma once

#include <gesso/list/ListRecords.h>

#include <unordered_map>

namespace gesso {

// Bits of a kept sub-item's state: what is known of it already.
constexpr UINT CELL_TEXT = 0x1;
constexpr UINT CELL_IMAGE = 0x2;
constexpr UINT CELL_STATE = 0x4;
constexpr UINT CELL_PREPARED = 0x8;        // in the text font
constexpr UINT CELL_TITLE_PREPARED = 0x10; // in the title font

class VirtualCells
{
public:
    using MAKE = ListItem* (*)(UINT subItems);
    using RELEASE = void (*)(ListItem*);

    VirtualCells(MAKE make, RELEASE release) : m_make(make), m_release(release) {}
    ~VirtualCells() { Forget(); }
    VirtualCells(const VirtualCells&) = delete;
    VirtualCells& operator=(const VirtualCells&) = delete;

    // At least so many records stay.
    void SetRoom(UINT rows) { m_room = rows; }
    // The record of an item, made where there is none; null without memory. Others may go.
    ListItem* Get(UINT item, UINT subItems);
    // The record that is kept, or null. None goes.
    ListItem* Find(UINT item) const;

    void Forget();
    // Both ends included.
    void Forget(UINT first, UINT last);
    // The records follow their items.
    void Insert(UINT first, UINT count);
    void Erase(UINT first, UINT count);

    // Whether each record is kept once, and is that of an item below the count.
    bool Check(UINT count) const;

private:
    using RECORDS = std::unordered_map<UINT, ListItem*>;

    bool Keep(UINT item, ListItem* record, RECORDS::node_type node);
    void Release(RECORDS& records);
    static bool Reserve(RECORDS& records, size_t count);
    template <class MOVE> void MoveAll(MOVE move);

    MAKE m_make;
    RELEASE m_release;
    UINT m_room = 256;
    RECORDS m_young; // looked at since the others were
    RECORDS m_old;
};

} // namespace gesso
