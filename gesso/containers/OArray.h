// OArray<TYPE, ARG_TYPE>: a contiguous array with a length, a capacity and a step of growth.
//
// TYPE is the element, ARG_TYPE the way in which one is passed in. Plain elements are treated as bits: new
// ones are not initialised and nothing runs when they go, so that what pointers point at is never freed here.
// Elements of a class are constructed, copied and destroyed, but moved to another place as bits (see
// IsRelocatable).
//
//     OArray<HWND, HWND const&> aWindows;
//     aWindows.Add(hWnd);
//     for (UINT i = 0; i < aWindows.GetLength(); ++i) ShowWindow(aWindows[i], SW_SHOW);
//
// Indices, lengths and capacities are in elements. An element or a range that is passed in may lie in the
// array itself. Pointers and references to elements hold until the capacity changes, or elements in front of
// them come or go. An array that was moved from keeps its length and capacity but has no elements: it may be
// destroyed or assigned to, and any other operation that changes it starts from empty.
//
// Where there is no memory for what an operation would put in, it changes nothing and answers as it says
// below; an assignment leaves the array as it was, and a constructor leaves it empty.
#pragma once

#include <gesso/api.h>
#include <gesso/containers/Index.h>
#include <gesso/containers/Memory.h>
#include <gesso/containers/Misuse.h>
#include <gesso/containers/OString.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

namespace gesso {

// Whether a value stays valid when its bytes are copied to another place and the old place is forgotten.
// Every plain type is so; a class that holds no pointer into itself may say so by a constant RELOCATABLE.
template <class TYPE> inline constexpr bool IsRelocatable = std::is_trivially_copyable_v<TYPE> || requires
{
    TYPE::RELOCATABLE;
};
template <> inline constexpr bool IsRelocatable<OString<wchar_t>> = true;

} // namespace gesso

template <class TYPE, class ARG_TYPE> class OArray
{
public:
    // Empty, with no block.
    OArray();
    OArray(const TYPE* p, UINT n);
    // A copy of the elements; capacity and step are not copied.
    OArray(const OArray& a);
    OArray(OArray&& a) noexcept;
    ~OArray();
    OArray& operator=(const OArray& a);
    OArray& operator=(OArray&& a) noexcept;

    UINT GetLength() const;
    UINT GetBufferLength() const;
    // Null while the array has no block.
    TYPE* GetData();
    const TYPE* GetData() const;

    // For loops over the elements.
    TYPE* begin();
    TYPE* end();
    const TYPE* begin() const;
    const TYPE* end() const;

    // An index beyond the length is a mistake that only debug builds look for.
    TYPE& GetAt(UINT i);
    const TYPE& GetAt(UINT i) const;
    TYPE& operator[](UINT i);
    const TYPE& operator[](UINT i) const;
    void SetAt(UINT i, ARG_TYPE v);
    // The same for any index: the array is first lengthened to i + 1 elements. Without memory GetAtGrow ends
    // the program, since it has no element to answer with, and SetAtGrow returns false.
    TYPE& GetAtGrow(UINT i);
    bool SetAtGrow(UINT i, ARG_TYPE v);

    // Appends; returns the index of the (first) new element, or gesso::NO_INDEX without memory.
    UINT Add(ARG_TYPE v);
    UINT Add(const TYPE* p, UINT n);
    UINT Add(const OArray& a);
    // Makes the elements those given; false without memory. Spare capacity stays.
    bool Copy(const TYPE* p, UINT n);
    bool Copy(const OArray& a);
    // Puts elements in front of element `i`; an `i` beyond the length first lengthens the array up to there.
    // The form for one returns whether it is stored, those for several the number stored: 0 without memory.
    bool InsertAt(UINT i, ARG_TYPE v);
    UINT InsertAt(UINT i, const TYPE* p, UINT n);
    UINT InsertAt(UINT i, const OArray& a);
    // Removes `n` elements from `i` on. A range beyond the length is a mistake and is clipped.
    void RemoveAt(UINT i, UINT n);
    // Leaves length 0 and the block.
    void RemoveAll();

    // Sets the length, and the step if it is 0 or more; false, with the length as it was, without memory.
    // Never gives capacity up.
    bool SetLength(UINT n, int nGrowBy);
    // Makes room for `n` elements in all; false without memory. Capacity grows by at least an eighth of the
    // length (4 to 1024 elements), or by the array's step if that is more. With a step of 0 or more given,
    // that is kept and is the growth.
    bool AllocExtra(UINT n);
    bool AllocExtra(UINT n, int nGrowBy);
    // Sets the capacity to `nMin`, or to the length if that is more; does nothing if the array is full.
    void FreeExtra(UINT nMin);

protected:
    TYPE* m_pData;
    UINT m_nLength;
    UINT m_nBufferLength;
    int m_nGrowBy;

private:
    static constexpr bool PLAIN = std::is_trivially_copyable_v<TYPE>;

    void Check(UINT i) const;
    UINT Count() const;
    bool Owns(const TYPE* p) const;
    void StartAnew();
    UINT AdaptiveStep() const;
    bool Reserve(size_t n);
    bool Grow(size_t n, UINT nStep);
    void Lengthen(UINT n);
    bool OpenGap(UINT i, UINT n);
    void Construct(UINT i, TYPE&& v);
    void Construct(UINT i, const TYPE* p, UINT n);
    void Destroy(UINT iFirst, UINT iEnd);
    void Release();
    static size_t Bytes(size_t n);
    static void Relocate(TYPE* pTo, const TYPE* pFrom, UINT n);
};

// Outside of the class, since only then the DLL exports what hosts and the library may also inline.
template <class TYPE, class ARG_TYPE>
OArray<TYPE, ARG_TYPE>::OArray() : m_pData(nullptr), m_nLength(0), m_nBufferLength(0), m_nGrowBy(0)
{}

template <class TYPE, class ARG_TYPE> OArray<TYPE, ARG_TYPE>::OArray(const TYPE* p, UINT n) : OArray()
{
    Copy(p, n);
}

template <class TYPE, class ARG_TYPE> OArray<TYPE, ARG_TYPE>::OArray(const OArray& a) : OArray()
{
    Copy(a);
}

template <class TYPE, class ARG_TYPE>
OArray<TYPE, ARG_TYPE>::OArray(OArray&& a) noexcept
    : m_pData(a.m_pData), m_nLength(a.m_nLength), m_nBufferLength(a.m_nBufferLength), m_nGrowBy(a.m_nGrowBy)
{
    a.m_pData = nullptr;
}

template <class TYPE, class ARG_TYPE> OArray<TYPE, ARG_TYPE>::~OArray()
{
    static_assert(gesso::IsRelocatable<TYPE>, "elements are moved as bits");
    Release();
}

template <class TYPE, class ARG_TYPE>
OArray<TYPE, ARG_TYPE>& OArray<TYPE, ARG_TYPE>::operator=(const OArray& a)
{
    if (this != &a) {
        Copy(a);
    }
    return *this;
}

template <class TYPE, class ARG_TYPE>
OArray<TYPE, ARG_TYPE>& OArray<TYPE, ARG_TYPE>::operator=(OArray&& a) noexcept
{
    if (this != &a) {
        Release();
        m_pData = a.m_pData;
        m_nLength = a.m_nLength;
        m_nBufferLength = a.m_nBufferLength;
        m_nGrowBy = a.m_nGrowBy;
        a.m_pData = nullptr;
    }
    return *this;
}

template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::GetLength() const
{
    return m_nLength;
}

template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::GetBufferLength() const
{
    return m_nBufferLength;
}

template <class TYPE, class ARG_TYPE> TYPE* OArray<TYPE, ARG_TYPE>::GetData()
{
    return m_pData;
}

template <class TYPE, class ARG_TYPE> const TYPE* OArray<TYPE, ARG_TYPE>::GetData() const
{
    return m_pData;
}

template <class TYPE, class ARG_TYPE> TYPE& OArray<TYPE, ARG_TYPE>::GetAt(UINT i)
{
    Check(i);
    return m_pData[i];
}

template <class TYPE, class ARG_TYPE> const TYPE& OArray<TYPE, ARG_TYPE>::GetAt(UINT i) const
{
    Check(i);
    return m_pData[i];
}

template <class TYPE, class ARG_TYPE> TYPE& OArray<TYPE, ARG_TYPE>::operator[](UINT i)
{
    return GetAt(i);
}

template <class TYPE, class ARG_TYPE> const TYPE& OArray<TYPE, ARG_TYPE>::operator[](UINT i) const
{
    return GetAt(i);
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::SetAt(UINT i, ARG_TYPE v)
{
    GetAt(i) = v;
}

template <class TYPE, class ARG_TYPE> TYPE* OArray<TYPE, ARG_TYPE>::begin()
{
    return m_pData;
}

template <class TYPE, class ARG_TYPE> TYPE* OArray<TYPE, ARG_TYPE>::end()
{
    return m_pData + Count();
}

template <class TYPE, class ARG_TYPE> const TYPE* OArray<TYPE, ARG_TYPE>::begin() const
{
    return m_pData;
}

template <class TYPE, class ARG_TYPE> const TYPE* OArray<TYPE, ARG_TYPE>::end() const
{
    return m_pData + Count();
}

template <class TYPE, class ARG_TYPE> TYPE& OArray<TYPE, ARG_TYPE>::GetAtGrow(UINT i)
{
    StartAnew();
    if (i >= m_nLength) {
        if (!Reserve(size_t{i} + 1)) {
            gesso::OutOfMemory();
        }
        Lengthen(i + 1);
    }
    return m_pData[i];
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::SetAtGrow(UINT i, ARG_TYPE v)
{
    StartAnew();
    if (i >= m_nLength) {
        return InsertAt(i, v);
    }
    m_pData[i] = v;
    return true;
}

template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::Add(ARG_TYPE v)
{
    StartAnew();
    TYPE copy(v);
    if (!Reserve(size_t{m_nLength} + 1)) {
        return gesso::NO_INDEX;
    }
    Construct(m_nLength, std::move(copy));
    return m_nLength++;
}

template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::Add(const TYPE* p, UINT n)
{
    StartAnew();
    const UINT iFirst = m_nLength;
    return InsertAt(iFirst, p, n) == n ? iFirst : gesso::NO_INDEX;
}

template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::Add(const OArray& a)
{
    return Add(a.m_pData, a.Count());
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::Copy(const TYPE* p, UINT n)
{
    if (!m_pData) {
        m_nLength = m_nBufferLength = 0;
    }
    if (Owns(p)) {
        const OArray copy(p, n);
        return copy.m_nLength == n && Copy(copy);
    }
    if (!Reserve(n)) {
        return false;
    }
    const UINT nAssigned = (std::min)(n, m_nLength);
    std::copy_n(p, nAssigned, m_pData);
    Construct(nAssigned, p + nAssigned, n - nAssigned);
    Destroy(n, m_nLength);
    m_nLength = n;
    return true;
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::Copy(const OArray& a)
{
    return Copy(a.m_pData, a.Count());
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::InsertAt(UINT i, ARG_TYPE v)
{
    StartAnew();
    TYPE copy(v);
    if (!OpenGap(i, 1)) {
        return false;
    }
    Construct(i, std::move(copy));
    return true;
}

template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::InsertAt(UINT i, const TYPE* p, UINT n)
{
    StartAnew();
    if (Owns(p)) {
        const OArray copy(p, n);
        return copy.m_nLength == n ? InsertAt(i, copy) : 0;
    }
    if (!OpenGap(i, n)) {
        return 0;
    }
    Construct(i, p, n);
    return n;
}

template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::InsertAt(UINT i, const OArray& a)
{
    return InsertAt(i, a.m_pData, a.Count());
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::RemoveAt(UINT i, UINT n)
{
    StartAnew();
    const UINT iFirst = (std::min)(i, m_nLength);
    const UINT nRemoved = (std::min)(n, m_nLength - iFirst);
    if (nRemoved < n) {
        gesso::Misuse("OArray::RemoveAt: a range beyond the length");
    }
    Destroy(iFirst, iFirst + nRemoved);
    Relocate(m_pData + iFirst, m_pData + iFirst + nRemoved, m_nLength - iFirst - nRemoved);
    m_nLength -= nRemoved;
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::RemoveAll()
{
    StartAnew();
    Destroy(0, m_nLength);
    m_nLength = 0;
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::SetLength(UINT n, int nGrowBy)
{
    if (!AllocExtra(n, nGrowBy)) {
        return false;
    }
    if (n > m_nLength) {
        Lengthen(n);
    }
    Destroy(n, m_nLength);
    m_nLength = n;
    return true;
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::AllocExtra(UINT n)
{
    StartAnew();
    return Reserve(n);
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::AllocExtra(UINT n, int nGrowBy)
{
    StartAnew();
    if (nGrowBy < 0) {
        return Reserve(n);
    }
    m_nGrowBy = nGrowBy;
    return n <= m_nBufferLength || Grow(n, static_cast<UINT>(nGrowBy));
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::FreeExtra(UINT nMin)
{
    StartAnew();
    if (m_nLength == m_nBufferLength) {
        return;
    }
    const UINT nCapacity = (std::max)(nMin, m_nLength);
    if (nCapacity == 0) {
        gesso::Free(m_pData);
        m_pData = nullptr;
    } else if (void* pData = gesso::TryReallocate(m_pData, Bytes(nCapacity))) {
        m_pData = static_cast<TYPE*>(pData);
    } else {
        return;
    }
    m_nBufferLength = nCapacity;
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::Check(UINT i) const
{
    if (i >= Count()) {
        gesso::Misuse("OArray: an index beyond the length");
    }
}

// The elements that are there: those of an array that was moved from are not.
template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::Count() const
{
    return m_pData ? m_nLength : 0;
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::Owns(const TYPE* p) const
{
    const auto nPlace = reinterpret_cast<uintptr_t>(p);
    return reinterpret_cast<uintptr_t>(m_pData) <= nPlace &&
           nPlace < reinterpret_cast<uintptr_t>(m_pData + m_nBufferLength);
}

// Makes an array that was moved from an empty one.
template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::StartAnew()
{
    if (!m_pData && m_nBufferLength > 0) {
        gesso::Misuse("OArray: an array that was moved from");
        m_nLength = m_nBufferLength = 0;
    }
}

template <class TYPE, class ARG_TYPE> UINT OArray<TYPE, ARG_TYPE>::AdaptiveStep() const
{
    const UINT nStep = std::clamp(m_nLength >> 3, 4u, 1024u);
    return (std::max)(nStep, static_cast<UINT>((std::max)(m_nGrowBy, 0)));
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::Reserve(size_t n)
{
    return n <= m_nBufferLength || Grow(n, AdaptiveStep());
}

template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::Grow(size_t n, UINT nStep)
{
    if (n > UINT_MAX) {
        return false;
    }
    const size_t nCapacity = (std::max)(n, std::min<size_t>(size_t{m_nBufferLength} + nStep, UINT_MAX));
    auto* pData = static_cast<TYPE*>(gesso::TryAllocate(Bytes(nCapacity)));
    if (!pData) {
        return false;
    }
    Relocate(pData, m_pData, m_nLength);
    gesso::Free(m_pData);
    m_pData = pData;
    m_nBufferLength = static_cast<UINT>(nCapacity);
    return true;
}

// Within the capacity.
template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::Lengthen(UINT n)
{
    if constexpr (!PLAIN) {
        for (UINT i = m_nLength; i < n; ++i) {
            new (m_pData + i) TYPE();
        }
    }
    m_nLength = n;
}

// Leaves the places of `n` elements at `i` to be constructed.
template <class TYPE, class ARG_TYPE> bool OArray<TYPE, ARG_TYPE>::OpenGap(UINT i, UINT n)
{
    if (!Reserve(std::max<size_t>(i, m_nLength) + n)) {
        return false;
    }
    if (i < m_nLength) {
        Relocate(m_pData + i + n, m_pData + i, m_nLength - i);
        m_nLength += n;
    } else {
        Lengthen(i);
        m_nLength = i + n;
    }
    return true;
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::Construct(UINT i, TYPE&& v)
{
    new (m_pData + i) TYPE(std::move(v));
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::Construct(UINT i, const TYPE* p, UINT n)
{
    if constexpr (PLAIN) {
        Relocate(m_pData + i, p, n);
    } else {
        for (UINT k = 0; k < n; ++k) {
            new (m_pData + i + k) TYPE(p[k]);
        }
    }
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::Destroy(UINT iFirst, UINT iEnd)
{
    if constexpr (!PLAIN) {
        for (UINT i = iFirst; i < iEnd; ++i) {
            m_pData[i].~TYPE();
        }
    }
}

template <class TYPE, class ARG_TYPE> void OArray<TYPE, ARG_TYPE>::Release()
{
    Destroy(0, Count());
    gesso::Free(m_pData);
}

template <class TYPE, class ARG_TYPE> size_t OArray<TYPE, ARG_TYPE>::Bytes(size_t n)
{
    // For pointers it is the pointer's own size that is meant.
    return n * sizeof(TYPE); // NOLINT(bugprone-sizeof-expression)
}

template <class TYPE, class ARG_TYPE>
void OArray<TYPE, ARG_TYPE>::Relocate(TYPE* pTo, const TYPE* pFrom, UINT n)
{
    if (n > 0) {
        std::memmove(static_cast<void*>(pTo), static_cast<const void*>(pFrom), Bytes(n));
    }
}

// The records of the controls, known here by name only.
struct ListItem;
struct ListColumn;
struct ListGroup;
struct TreeItem;
struct NavigationBarItem;
struct ComboItem;
struct stcDrawItem;
struct stcPage;
class GRibbonPage;

// The instantiations that the library exports. One of a record that is held by value joins in the record's
// own header, by GESSO_DECLARE_ARRAY, and in its source, by GESSO_DEFINE_ARRAY.
#define GESSO_EXPORTED_ARRAYS(USE)                                                                           \
    USE(void*, void* const&)                                                                                 \
    USE(unsigned int, unsigned int const&)                                                                   \
    USE(HWND, HWND const&)                                                                                   \
    USE(HFONT, HFONT)                                                                                        \
    USE(HICON, HICON)                                                                                        \
    USE(ListItem*, ListItem*)                                                                                \
    USE(ListColumn*, ListColumn*)                                                                            \
    USE(ListGroup*, ListGroup*)                                                                              \
    USE(TreeItem*, TreeItem*)                                                                                \
    USE(NavigationBarItem*, NavigationBarItem*)                                                              \
    USE(ComboItem*, ComboItem*)                                                                              \
    USE(stcDrawItem*, stcDrawItem*)                                                                          \
    USE(stcPage*, stcPage*)                                                                                  \
    USE(GRibbonPage*, GRibbonPage*)                                                                          \
    USE(OString<wchar_t>, OString<wchar_t> const&)

#define GESSO_DECLARE_ARRAY(TYPE, ARG_TYPE) extern template class GESSO_API_DECLARED OArray<TYPE, ARG_TYPE>;
#define GESSO_DEFINE_ARRAY(TYPE, ARG_TYPE) template class GESSO_API_DEFINED OArray<TYPE, ARG_TYPE>;

GESSO_EXPORTED_ARRAYS(GESSO_DECLARE_ARRAY)
