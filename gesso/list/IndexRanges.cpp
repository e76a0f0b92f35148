#include <gesso/list/IndexRanges.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace gesso {
namespace {

// Of all numbers below `end`.
UINT MixedBelow(UINT end)
{
    switch (end % 4) {
    case 0: return 0;
    case 1: return end - 1;
    case 2: return 1;
    default: return end;
    }
}

} // namespace

void IndexRanges::Change::Note(UINT first, UINT end)
{
    count += end - first;
    mixed ^= MixedBelow(first) ^ MixedBelow(end);
}

bool IndexRanges::Copy(const IndexRanges& other)
try {
    m_ends = other.m_ends;
    m_count = other.m_count;
    return true;
} catch (const std::bad_alloc&) {
    m_ends.clear();
    m_count = 0;
    return false;
}

// An operation makes two ranges more at the most: it begins with what it needs for them, or not at all.
bool IndexRanges::MakeSpares()
try {
    m_spares.try_emplace(0);
    m_spares.try_emplace(1);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

void IndexRanges::Put(RANGES::node_type node, UINT first, UINT end)
{
    node.key() = first;
    node.mapped() = end;
    m_ends.insert(std::move(node));
}

// Where the range ends that holds the index; the index itself without one.
UINT IndexRanges::EndAt(UINT index) const
{
    const auto behind = m_ends.upper_bound(index);
    return behind == m_ends.begin() ? index : std::max(index, std::prev(behind)->second);
}

bool IndexRanges::Has(UINT index) const
{
    return EndAt(index) != index;
}

UINT IndexRanges::Next(UINT from) const
{
    if (Has(from)) {
        return from;
    }
    const auto behind = m_ends.upper_bound(from);
    return behind == m_ends.end() ? NO_INDEX : behind->first;
}

IndexRanges::Change IndexRanges::Add(UINT first, UINT end)
{
    if (first >= end || !MakeSpares()) {
        return {};
    }
    const Change held = Remove(first, end);
    Change change;
    change.Note(first, end);
    change = {change.count - held.count, change.mixed ^ held.mixed};
    auto behind = m_ends.upper_bound(first);
    UINT start = first;
    UINT last = end;
    if (behind != m_ends.end() && behind->first == end) {
        last = behind->second;
        behind = m_ends.erase(behind);
    }
    if (behind != m_ends.begin() && std::prev(behind)->second == first) {
        start = std::prev(behind)->first;
    }
    if (start < first) {
        m_ends[start] = last;
    } else {
        Put(TakeSpare(), start, last);
    }
    m_count += end - first;
    return change;
}

IndexRanges::Change IndexRanges::Remove(UINT first, UINT end)
{
    Change change;
    if (first >= end || !MakeSpares()) {
        return change;
    }
    auto range = m_ends.upper_bound(first);
    if (range != m_ends.begin() && std::prev(range)->second > first) {
        --range;
    }
    while (range != m_ends.end() && range->first < end) {
        const auto [from, to] = *range;
        const UINT cut = std::max(from, first);
        const UINT cutEnd = std::min(to, end);
        change.Note(cut, cutEnd);
        range = m_ends.erase(range);
        if (from < cut) {
            Put(TakeSpare(), from, cut);
        }
        if (to > cutEnd) {
            Put(TakeSpare(), cutEnd, to);
        }
    }
    m_count -= change.count;
    return change;
}

// Gives a range other ends, which leave it in front of `behind`.
IndexRanges::RANGES::iterator IndexRanges::Move(RANGES::iterator range, RANGES::iterator behind, UINT first,
                                                UINT end)
{
    RANGES::node_type node = m_ends.extract(range);
    node.key() = first;
    node.mapped() = end;
    return m_ends.insert(behind, std::move(node));
}

// From the end on, so that each has room where it goes; those in front are not looked at.
void IndexRanges::Insert(UINT first, UINT count)
{
    auto behind = m_ends.end();
    while (behind != m_ends.begin() && std::prev(behind)->first >= first) {
        const auto range = std::prev(behind);
        behind = Move(range, behind, range->first + count, range->second + count);
    }
    if (count == 0 || behind == m_ends.begin() || std::prev(behind)->second <= first) {
        return;
    }
    const UINT end = std::exchange(std::prev(behind)->second, first);
    if (MakeSpares()) {
        Put(TakeSpare(), first + count, end + count);
    } else {
        m_count -= end - first;
    }
}

UINT IndexRanges::Erase(UINT first, UINT end)
{
    const auto moved = [=](UINT index) {
        return index < first ? index : index < end ? first : index - (end - first);
    };
    UINT gone = 0;
    auto range = m_ends.upper_bound(first);
    if (range != m_ends.begin() && std::prev(range)->second > first) {
        --range;
    }
    while (range != m_ends.end() && first < end) {
        const auto next = std::next(range);
        const UINT from = moved(range->first);
        const UINT to = moved(range->second);
        gone += range->second - range->first - (to - from);
        const bool fTouches = range != m_ends.begin() && std::prev(range)->second == from;
        if (from < to && !fTouches) {
            Move(range, next, from, to);
        } else {
            if (fTouches) {
                std::prev(range)->second = to;
            }
            m_ends.erase(range);
        }
        range = next;
    }
    m_count -= gone;
    return gone;
}

bool IndexRanges::Check() const
{
    UINT count = 0;
    UINT end = 0;
    for (const auto& [from, to] : m_ends) {
        if (from >= to || (from <= end && count > 0)) {
            return false;
        }
        count += to - from;
        end = to;
    }
    return count == m_count;
}

IndexRanges::Change IndexRanges::DifferenceTo(const IndexRanges& other) const
{
    Change change;
    auto a = m_ends.begin();
    auto b = other.m_ends.begin();
    UINT at = 0;
    while (a != m_ends.end() || b != other.m_ends.end()) {
        const bool fA = a != m_ends.end() && a->first <= at;
        const bool fB = b != other.m_ends.end() && b->first <= at;
        UINT next = NO_INDEX;
        next = a == m_ends.end() ? next : std::min(next, fA ? a->second : a->first);
        next = b == other.m_ends.end() ? next : std::min(next, fB ? b->second : b->first);
        if (fA != fB && next > at) {
            change.Note(at, next);
        }
        at = next;
        a = fA && a->second == at ? std::next(a) : a;
        b = fB && b->second == at ? std::next(b) : b;
    }
    return change;
}

} // namespace gesso
