// Any sequence of operations on an array of strings and an array of numbers, beside a std::vector and the
// rules of growth written out. Lengths, capacities and elements must agree after each. Elements and ranges
// that are passed in may lie in the arrays themselves.

#include <gesso/containers/Check.h>

#include <fuzzer/FuzzedDataProvider.h>

#include <optional>
#include <vector>

namespace {

void Check(bool fTrue)
{
    if (!fTrue) {
        std::abort();
    }
}

UINT Size(const auto& container)
{
    return static_cast<UINT>(container.size());
}

// What an element must be equal to; nothing for one that was never set.
using Value = std::optional<unsigned int>;

struct Numbers
{
    using Array = OArray<unsigned int, unsigned int const&>;

    static unsigned int Make(unsigned int n) { return n; }
    static bool Same(unsigned int element, Value value) { return !value || element == *value; }
};

struct Strings
{
    using Array = OArray<OString<wchar_t>, OString<wchar_t> const&>;

    static OString<wchar_t> Make(unsigned int n) { return OString<wchar_t>::Build(L"%u", n); }
    static bool Same(const OString<wchar_t>& element, Value value)
    {
        return value ? element == Make(*value) : element == L"";
    }
};

template <class KIND> class Machine
{
public:
    Machine(const uint8_t* pData, size_t nSize) : m_input(pData, nSize) {}

    void Run()
    {
        while (m_input.remaining_bytes() > 0) {
            Step();
            Compare();
        }
    }

private:
    using Element = std::remove_cvref_t<decltype(KIND::Make(0))>;

    void Step()
    {
        switch (m_input.ConsumeIntegralInRange(0, 12)) {
        case 0:
        case 1: Add(); break;
        case 2: AddSeveral(); break;
        case 3: InsertAt(); break;
        case 4: InsertSeveral(); break;
        case 5: RemoveAt(); break;
        case 6: SetAtGrow(); break;
        case 7: GetAtGrow(); break;
        case 8: SetLength(); break;
        case 9: AllocExtra(); break;
        case 10: FreeExtra(); break;
        case 11: CopyAndMove(); break;
        default: Copy(); break;
        }
    }

    void Compare()
    {
        Check(m_array.GetLength() == m_values.size());
        Check(m_array.GetBufferLength() == m_nCapacity);
        Check(gesso::Check(m_array));
        for (UINT i = 0; i < Size(m_values); i++) {
            Check(KIND::Same(m_array[i], m_values[i]));
        }
    }

    UINT Number() { return m_input.ConsumeIntegralInRange<UINT>(0, 60); }
    UINT Position() { return m_values.empty() ? 0 : Number() % Size(m_values); }
    int Step(bool fNegativeToo) { return m_input.ConsumeIntegralInRange(fNegativeToo ? -2 : 0, 20); }

    void Grow(UINT n) { GrowBy(n, std::max(std::clamp(Size(m_values) >> 3, 4u, 1024u), m_nGrowBy)); }

    void GrowBy(UINT n, UINT nStep)
    {
        if (n > m_nCapacity) {
            m_nCapacity = std::max(n, m_nCapacity + nStep);
        }
    }

    void Fill(UINT n)
    {
        while (m_values.size() < n) {
            m_values.push_back(std::nullopt);
        }
    }

    // A value that the array has, passed as its own element; or a new one.
    template <class USE> void WithElement(USE use)
    {
        const UINT i = Position();
        if (!m_values.empty() && m_values[i] && m_input.ConsumeBool()) {
            use(m_array[i], m_values[i]);
            return;
        }
        const unsigned int n = m_input.ConsumeIntegral<uint8_t>();
        const Element element = KIND::Make(n);
        use(element, Value(n));
    }

    // Likewise for a range.
    template <class USE> void WithRange(USE use)
    {
        const UINT iFirst = Position();
        const UINT n = std::min(Number(), Size(m_values) - iFirst);
        if (m_input.ConsumeBool()) {
            const std::vector<Value> values(m_values.begin() + iFirst, m_values.begin() + iFirst + n);
            use(m_array.GetData() + iFirst, values);
            return;
        }
        std::vector<Element> elements;
        std::vector<Value> values;
        for (UINT i = 0; i < n; i++) {
            values.emplace_back(i);
            elements.push_back(KIND::Make(i));
        }
        use(elements.data(), values);
    }

    void Add()
    {
        WithElement([this](const Element& element, Value value) {
            Grow(Size(m_values) + 1);
            Check(m_array.Add(element) == m_values.size());
            m_values.push_back(value);
        });
    }

    void AddSeveral()
    {
        WithRange([this](const Element* p, std::vector<Value> values) {
            Grow(Size(m_values) + Size(values));
            Check(m_array.Add(p, Size(values)) == m_values.size());
            m_values.insert(m_values.end(), values.begin(), values.end());
        });
    }

    void Insert(UINT i, const std::vector<Value>& values)
    {
        Grow(std::max(i, Size(m_values)) + Size(values));
        Fill(i);
        m_values.insert(m_values.begin() + i, values.begin(), values.end());
    }

    void InsertAt()
    {
        const UINT i = Number();
        WithElement([this, i](const Element& element, Value value) {
            Insert(i, {value});
            m_array.InsertAt(i, element);
        });
    }

    void InsertSeveral()
    {
        const UINT i = Number();
        WithRange([this, i](const Element* p, std::vector<Value> values) {
            Insert(i, values);
            Check(m_array.InsertAt(i, p, Size(values)) == values.size());
        });
    }

    void RemoveAt()
    {
        const UINT i = Position();
        const UINT n = std::min(Number(), Size(m_values) - i);
        m_values.erase(m_values.begin() + i, m_values.begin() + i + n);
        m_array.RemoveAt(i, n);
    }

    void SetAtGrow()
    {
        const UINT i = Number();
        WithElement([this, i](const Element& element, Value value) {
            if (i >= m_values.size()) {
                Grow(i + 1);
                Fill(i + 1);
            }
            m_values[i] = value;
            m_array.SetAtGrow(i, element);
        });
    }

    void GetAtGrow()
    {
        const UINT i = Number();
        if (i >= m_values.size()) {
            Grow(i + 1);
            Fill(i + 1);
        }
        Check(KIND::Same(m_array.GetAtGrow(i), m_values[i]));
    }

    void AllocExtra()
    {
        const UINT n = Number();
        Reserve(n, Step(true));
    }

    void Reserve(UINT n, int nGrowBy)
    {
        if (nGrowBy >= 0) {
            m_nGrowBy = static_cast<UINT>(nGrowBy);
            GrowBy(n, m_nGrowBy);
        } else {
            Grow(n);
        }
        m_array.AllocExtra(n, nGrowBy);
    }

    void SetLength()
    {
        const UINT n = Number();
        const int nGrowBy = Step(true);
        if (nGrowBy >= 0) {
            m_nGrowBy = static_cast<UINT>(nGrowBy);
            GrowBy(n, m_nGrowBy);
        } else {
            Grow(n);
        }
        m_array.SetLength(n, nGrowBy);
        m_values.resize(n, std::nullopt);
    }

    void FreeExtra()
    {
        const UINT nMin = Number();
        if (m_values.size() != m_nCapacity) {
            m_nCapacity = std::max(nMin, Size(m_values));
        }
        m_array.FreeExtra(nMin);
    }

    void Copy()
    {
        WithRange([this](const Element* p, std::vector<Value> values) {
            Grow(Size(values));
            m_array.Copy(p, Size(values));
            m_values = values;
        });
    }

    void CopyAndMove()
    {
        typename KIND::Array taken(std::move(m_array));
        Check(m_array.GetLength() == m_values.size() && m_array.GetBufferLength() == m_nCapacity);
        if (m_input.ConsumeBool()) {
            m_array = std::move(taken);
            return;
        }
        m_array = taken;
        m_nCapacity = 0;
        const std::vector<Value> values = std::exchange(m_values, {});
        Grow(Size(values));
        m_values = values;
    }

    FuzzedDataProvider m_input;
    typename KIND::Array m_array;
    std::vector<Value> m_values;
    UINT m_nCapacity = 0;
    UINT m_nGrowBy = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    if (nSize > 0 && (*pData & 1)) {
        Machine<Strings>(pData + 1, nSize - 1).Run();
    } else if (nSize > 0) {
        Machine<Numbers>(pData + 1, nSize - 1).Run();
    }
    return 0;
}
