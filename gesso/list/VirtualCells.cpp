#include <gesso/containers/Index.h>
#include <gesso/list/VirtualCells.h>

#include <algorithm>
#include <new>
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
    RECORDS::node_type node = m_old.extract(item);
    ListItem* const record = node ? node.mapped() : m_make(subItems);
    if (m_young.size() >= m_room) {
        Release(m_old);
        std::swap(m_old, m_young);
    }
    return record && Keep(item, record, std::move(node)) ? record : nullptr;
}

// False, with the record released, without memory.
bool VirtualCells::Keep(UINT item, ListItem* record, RECORDS::node_type node)
try {
    node ? void(m_young.insert(std::move(node))) : void(m_young.emplace(item, record));
    return true;
} catch (const std::bad_alloc&) {
    m_release(record);
    return false;
}

void VirtualCells::Release(RECORDS& records)
{
    for (const auto& [item, record] : records) {
        m_release(record);
    }
    records.clear();
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

// NO_INDEX for a record that goes. Without memory for another order all of them go, to be asked for anew.
template <class MOVE> void VirtualCells::MoveAll(MOVE move)
{
    for (RECORDS* records : {&m_young, &m_old}) {
        RECORDS moved;
        if (!Reserve(moved, records->size())) {
            Release(*records);
        }
        while (!records->empty()) {
            RECORDS::node_type node = records->extract(records->begin());
            node.key() = move(node.key());
            if (node.key() == NO_INDEX) {
                m_release(node.mapped());
            } else {
                moved.insert(std::move(node));
            }
        }
        std::swap(*records, moved);
    }
}

bool VirtualCells::Reserve(RECORDS& records, size_t count)
try {
    records.reserve(count);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

bool VirtualCells::Check(UINT count) const
{
    const auto isItem = [count](const auto& kept) { return kept.first < count && kept.second; };
    const auto isTwice = [this](const auto& kept) { return m_old.count(kept.first) != 0; };
    return std::all_of(m_young.begin(), m_young.end(), isItem) &&
           std::all_of(m_old.begin(), m_old.end(), isItem) &&
           std::none_of(m_young.begin(), m_young.end(), isTwice);
}

} // namespace gesso
