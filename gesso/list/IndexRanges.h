// A set of indices as ranges: as small as the ranges are few, whatever they hold. Works on numbers alone.
#pragma once

#include <gesso/containers/Index.h>

#include <map>

namespace gesso {

class IndexRanges
{
public:
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

    // `count` indices that are not in the set come in at `first`, and move those behind them on.
    void Insert(UINT first, UINT count);
    // The indices of [first, end) go, and those behind them move up. Returns how many were in the set.
    UINT Erase(UINT first, UINT end);

    // What is different in another set.
    Change DifferenceTo(const IndexRanges& other) const;

private:
    UINT EndAt(UINT index) const;
    void Append(UINT first, UINT end);

    std::map<UINT, UINT> m_ends; // of each range, by its first index
    UINT m_count = 0;
};

} // namespace gesso
