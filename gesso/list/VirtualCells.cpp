#include <gesso/containers/Index.h>
#include <gesso/list/VirtualCells.h>

#include <utility>

namespace gesso {

ListItem* VirtualCells::Find(UINT item) const
{
    const auto young = m_young.find(item);
    if (young != m_young.end()) {
        return young->second;
    }
    const auto old = m_old.find(item);
    return old != m_old.end() ? old->second : nullptr;
}

ListItem* VirtualCells::Get(UINT item, UINT subItems)
{
    const auto young = m_young.find(item);
    if (young != m_young.end()) {
        return young->second;
    }
    const auto old = m_old.find(item);
    ListItem* record = old != m_old.end() ? old->second : m_make(subItems);
    if (record) {
        m_old.erase(item);
        Keep(item, record);
    }
    return record;
}

void VirtualCells::Keep(UINT item, ListItem* record)
{
    if (m_young.size() >= m_room) {
        Release(m_old);
        std::swap(m_old, m_young);
    }
    m_young.emplace(item, record);
}

void VirtualCells::Release(RECORDS& records)
{
    for (const auto& [item, record] : std::exchange(records, {})) {
        m_release(record);
    }
}

void VirtualCells::Forget()
{
    Release(m_young);
    Release(m_old);
}

void VirtualCells::Forget(UINT first, UINT last)
{
    MoveAll([=](UINT item) { return item >= first && item <= last ? NO_INDEX : item; });
}

void VirtualCells::Insert(UINT first, UINT count)
{
    MoveAll([=](UINT item) { return item >= first ? item + count : item; });
}

void VirtualCells::Erase(UINT first, UINT count)
{
    MoveAll([=](UINT item) { return item < first ? item : item - first < count ? NO_INDEX : item - count; });
}

// NO_INDEX for a record that goes.
template <class MOVE> void VirtualCells::MoveAll(MOVE move)
{
    for (RECORDS* records : {&m_young, &m_old}) {
        RECORDS moved;
        for (const auto& [item, record] : std::exchange(*records, {})) {
            const UINT to = move(item);
            if (to == NO_INDEX) {
                m_release(record);
            } else {
                moved.emplace(to, record);
            }
        }
        *records = std::move(moved);
    }
}

} // namespace gesso
