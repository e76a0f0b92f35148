// Memory that runs out: while one of these stands, the library gets no block of more than a limit.
#pragma once

#include <cstddef>

namespace test {

class MemoryLimit
{
public:
    static constexpr size_t LARGEST = 64 * 1024;

    // The first nGranted larger ones are given all the same.
    explicit MemoryLimit(size_t cbLargest = LARGEST, size_t nGranted = 0);
    ~MemoryLimit();
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

    // How many blocks were refused since it stands.
    size_t Refused() const;

private:
    size_t m_cbFormer;
    size_t m_nFormerGranted;
    size_t m_nRefusedBefore;
};

} // namespace test
