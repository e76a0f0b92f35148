// A set of indices as ranges: as small as the ranges are few, whatever they hold. Works on numbers alone.
// Without memory for a range more, Add and Remove do nothing.
#pragma once

#include <gesso/containers/Index.h>

#include <map>

namespace gesso {

class IndexRanges
{
public:
    // Takes what another set has. False, and then it is empty, without memory.
    [[nodiscard]] bool Copy(const IndexRanges& other);

    // How many indices an operation has changed, and these as one number: each is taken in and out by the
    // exclusive or. Of one index it is that index.
    struct Change
    {
        UINT count = 0;
        UINT mixed = 0;

        void Note(UINT first, UINT end);
    };

    bool Has(UINT index) const;
    // The first one from `from` on; NO_INDEX for none.
    UINT Next(UINT from) const;
    UINT Count() const { return m_count; }
    // How many ranges they make.
    size_t Ranges() const { return m_ends.size(); }

    // Ends are not included.
    Change Add(UINT first, UINT end);
    Change Remove(UINT first, UINT end);

    // `count` indices that are not in the set come in at `first`, and move those behind them on. Without
    // memory those that were in one range with the one before are no more in the set.
    void Insert(UINT first, UINT count);
    // The indices of [first, end) go, and those behind them move up. Returns how many were in the set.
    UINT Erase(UINT first, UINT end);

    // What is different in another set.
    Change DifferenceTo(const IndexRanges& other) const;

    // Whether the ranges are in order, apart, and as many as counted.
    bool Check() const;

private:
    using RANGES = std::map<UINT, UINT>;

    UINT EndAt(UINT index) const;
    bool MakeSpares();
    RANGES::node_type TakeSpare() { return m_spares.extract(m_spares.begin()); }
    void Put(RANGES::node_type node, UINT first, UINT end);
    RANGES::iterator Move(RANGES::iterator range, RANGES::iterator behind, UINT first, UINT end);

    RANGES m_ends; // of each range, by its first index
    RANGES m_spares;
    UINT m_count = 0;
};

} // namespace gesso
