// Any sequence of operations on an OString and an OStringEx, beside a std::u16string that does the same in
// the plainest way. Texts, results and capacities must agree after each. Arguments are new texts as well as
// pieces of the strings themselves.

#include <gesso/containers/Check.h>

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <string>

namespace {

using Text = std::u16string;

void Check(bool fTrue)
{
    if (!fTrue) {
        std::abort();
    }
}

UINT Size(const Text& text)
{
    return static_cast<UINT>(text.size());
}

// The plain ways

UINT Replace(Text& text, const Text& what, const Text& with)
{
    UINT nCount = 0;
    if (what.empty()) {
        return nCount;
    }
    for (size_t at = text.find(what); at != Text::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
        nCount++;
    }
    return nCount;
}

void Trim(Text& text, const Text& set, bool fLeft, bool fRight)
{
    const auto inSet = [&](char16_t c) { return set.find(c) != Text::npos; };
    while (fRight && !text.empty() && inSet(text.back())) {
        text.pop_back();
    }
    while (fLeft && !text.empty() && inSet(text.front())) {
        text.erase(0, 1);
    }
}

int Index(size_t at)
{
    return at == Text::npos ? -1 : static_cast<int>(at);
}

class Machine
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
    // An argument for the strings, with a copy for the plain text.
    struct Argument
    {
        Text text;
        LPCWSTR pszPlain;
        LPCWSTR pszEx;
        Text copy; // what the pointers of a new text point at
    };

    void Step()
    {
        switch (m_input.ConsumeIntegralInRange(0, 15)) {
        case 0: Delete(); break;
        case 1: RemoveCharacter(); break;
        case 2: Remove(); break;
        case 3: ReplaceCharacter(); break;
        case 4: Replace(); break;
        case 5: Trim(); break;
        case 6: Insert(); break;
        case 7: Append(); break;
        case 8: Format(); break;
        case 9: Part(); break;
        case 10: Buffer(); break;
        case 11: FreeEmpty(); break;
        case 12: Assign(); break;
        case 13: CopyAndMove(); break;
        case 14: FindForward(); break;
        default: FindBackward(); break;
        }
    }

    void Compare()
    {
        const auto same = [this](const OString<wchar_t>& str) {
            const wchar_t* psz = str;
            return str.GetLength() == m_text.size() && psz[m_text.size()] == 0 &&
                   std::equal(m_text.begin(), m_text.end(), psz);
        };
        Check(same(m_str) && same(m_strEx) && m_str == m_strEx);
        Check(gesso::Check(m_str) && gesso::Check(m_strEx));
        Check(m_strEx.GetBufferLength() == m_nCapacity);
    }

    UINT Number()
    {
        const auto n = m_input.ConsumeIntegral<uint8_t>();
        return n < 250 ? n % 40u : 0xFFFFFFFFu - (n - 250u);
    }

    char16_t Character() { return u"ab -"[m_input.ConsumeIntegralInRange(0, 3)]; }

    void Take(Argument& argument)
    {
        if (m_input.ConsumeBool()) {
            const size_t nFrom = Number() % (m_text.size() + 1);
            argument = {m_text.substr(nFrom),
                        m_str + static_cast<ptrdiff_t>(nFrom),
                        m_strEx + static_cast<ptrdiff_t>(nFrom),
                        {}};
            return;
        }
        argument.copy.clear();
        for (auto n = m_input.ConsumeIntegralInRange(0, 6); n > 0; n--) {
            argument.copy += Character();
        }
        argument.text = argument.copy;
        argument.pszPlain = argument.pszEx = reinterpret_cast<LPCWSTR>(argument.copy.c_str());
    }

    // The rule of what edits in place: a block that is too small is replaced by one that fits exactly.
    void GrowToFit() { m_nCapacity = std::max(m_nCapacity, Size(m_text) + 1); }
    // Keeps the plain text short enough for the fuzzer.
    bool TooLong() const { return m_text.size() > 2000; }

    void Delete()
    {
        const UINT nPos = Number();
        const UINT nCount = Number();
        if (nPos < m_text.size()) {
            m_text.erase(nPos, nCount);
        }
        Check(m_str.Delete(nPos, nCount) == m_text.size());
        Check(m_strEx.Delete(nPos, nCount) == m_text.size());
    }

    void RemoveCharacter()
    {
        const char16_t c = Character();
        const auto nCount = static_cast<UINT>(std::erase(m_text, c));
        Check(m_str.Remove(static_cast<wchar_t>(c)) == nCount);
        Check(m_strEx.Remove(static_cast<wchar_t>(c)) == nCount);
    }

    // As it is described: matches are shifted away one by one.
    void Remove()
    {
        Argument what;
        Take(what);
        UINT nCount = 0;
        for (size_t i = 0; i < m_text.size() && !what.text.empty();) {
            if (m_text.compare(i, what.text.size(), what.text) == 0) {
                m_text.erase(i, what.text.size());
                nCount++;
            } else {
                i++;
            }
        }
        Check(m_str.Remove(what.pszPlain) == nCount);
        Check(m_strEx.Remove(what.pszEx) == nCount);
    }

    void ReplaceCharacter()
    {
        const char16_t cOld = Character();
        const char16_t cNew = Character();
        const auto nCount = cOld == cNew ? 0 : std::count(m_text.begin(), m_text.end(), cOld);
        std::replace(m_text.begin(), m_text.end(), cOld, cNew);
        const auto of = [](char16_t c) { return static_cast<wchar_t>(c); };
        Check(m_str.Replace(of(cOld), of(cNew)) == static_cast<UINT>(nCount));
        Check(m_strEx.Replace(of(cOld), of(cNew)) == static_cast<UINT>(nCount));
    }

    void Replace()
    {
        Argument what;
        Argument with;
        Take(what);
        Take(with);
        if (TooLong() && with.text.size() > what.text.size()) {
            return;
        }
        const UINT nCount = ::Replace(m_text, what.text, with.text);
        Check(m_str.Replace(what.pszPlain, with.pszPlain) == nCount);
        Check(m_strEx.Replace(what.pszEx, with.pszEx) == nCount);
        GrowToFit();
    }

    void Trim()
    {
        Argument set;
        Take(set);
        switch (m_input.ConsumeIntegralInRange(0, 2)) {
        case 0:
            ::Trim(m_text, set.text, true, true);
            m_str.Trim(set.pszPlain);
            m_strEx.Trim(set.pszEx);
            break;
        case 1:
            ::Trim(m_text, set.text, true, false);
            m_str.TrimLeft(set.pszPlain);
            m_strEx.TrimLeft(set.pszEx);
            break;
        default:
            ::Trim(m_text, set.text, false, true);
            m_str.TrimRight(set.pszPlain);
            m_strEx.TrimRight(set.pszEx);
            break;
        }
    }

    void Insert()
    {
        Argument argument;
        Take(argument);
        const UINT nPos = Number();
        const UINT nMax = Number();
        if (TooLong()) {
            return;
        }
        int nExpected = -1;
        if (nPos <= m_text.size()) {
            argument.text.resize(std::min<size_t>(argument.text.size(), nMax));
            m_text.insert(nPos, argument.text);
            nExpected = static_cast<int>(argument.text.size());
        }
        Check(m_strEx.Insert(nPos, argument.pszEx, nMax) == nExpected);
        m_str = m_strEx;
        GrowToFit();
    }

    void Append()
    {
        Argument argument;
        Take(argument);
        if (TooLong()) {
            return;
        }
        m_text += argument.text + u"|";
        m_str.AppendFormat(L"%s|", argument.pszPlain);
        m_strEx.AppendFormat(L"%s|", argument.pszEx);
        GrowToFit();
    }

    void Format()
    {
        Argument first;
        Argument second;
        Take(first);
        Take(second);
        if (TooLong()) {
            return;
        }
        m_text = first.text + u"-" + second.text;
        m_str.Format(L"%s-%s", first.pszPlain, second.pszPlain);
        m_strEx.Format(L"%s-%s", first.pszEx, second.pszEx);
        GrowToFit();
    }

    void Part()
    {
        const UINT nStart = Number();
        const UINT nCount = Number();
        const UINT nCapacity = Number() % 100;
        const Text middle = m_text.substr(std::min<size_t>(nStart, m_text.size()), nCount);
        const size_t nRight = std::min<size_t>(nCount, m_text.size());
        switch (m_input.ConsumeIntegralInRange(0, 2)) {
        case 0:
            m_text = middle;
            m_str = m_str.Mid(nStart, nCount);
            m_strEx = m_strEx.Mid(nStart, nCount, nCapacity);
            break;
        case 1:
            m_text.resize(nRight);
            m_str = m_str.Left(nCount);
            m_strEx = m_strEx.Left(nCount, nCapacity);
            break;
        default:
            m_text.erase(0, m_text.size() - nRight);
            m_str = m_str.Right(nCount);
            m_strEx = m_strEx.Right(nCount, nCapacity);
            break;
        }
        m_nCapacity = std::max(nCapacity, Size(m_text) + 1);
    }

    void Buffer()
    {
        const UINT nWanted = Number() % 300;
        const UINT nLength = nWanted / 2;
        wchar_t* psz = m_strEx.GetBuffer(nWanted);
        m_nCapacity = std::max(m_nCapacity, nWanted);
        if (nLength < nWanted) {
            std::fill_n(psz, nLength, L'b');
            psz[nLength] = 0;
            m_strEx.ReleaseBuffer(m_input.ConsumeBool() ? nLength : 0xFFFFFFFF);
            m_text.assign(nLength, u'b');
            m_str = m_strEx;
        }
    }

    void FreeEmpty()
    {
        const UINT nMin = Number() % 100;
        m_strEx.FreeEmpty(nMin);
        if (m_nCapacity != m_text.size() + 1) {
            m_nCapacity = std::max(nMin, Size(m_text) + 1);
        }
    }

    void Assign()
    {
        Argument argument;
        Take(argument);
        m_text = argument.text;
        m_strEx = argument.pszEx;
        m_str = m_strEx;
        GrowToFit();
    }

    void CopyAndMove()
    {
        OStringEx<wchar_t> strEx(m_strEx);
        m_strEx = std::move(strEx);
        OString<wchar_t> str(std::move(m_str));
        m_str = str;
    }

    void FindForward()
    {
        Argument what;
        Take(what);
        const UINT nStart = Number();
        const char16_t c = Character();
        const size_t at = what.text.empty() ? Text::npos : m_text.find(what.text, nStart);
        Check(m_str.Find(what.pszPlain, nStart) == Index(at));
        Check(m_str.Find(static_cast<wchar_t>(c), nStart) == Index(m_text.find(c, nStart)));
        Check(m_str.FindOneOf(what.pszPlain, nStart) == Index(m_text.find_first_of(what.text, nStart)));
    }

    void FindBackward()
    {
        Argument what;
        Take(what);
        const UINT nStart = Number();
        const char16_t c = Character();
        size_t at = m_text.rfind(what.text, nStart);
        if (what.text.empty()) {
            at = nStart >= m_text.size() ? m_text.size() : Text::npos;
        }
        Check(m_str.FindReverse(what.pszPlain, nStart) == Index(at));
        Check(m_str.FindReverse(static_cast<wchar_t>(c), nStart) == Index(m_text.rfind(c, nStart)));
        Check(m_str.FindOneOfReverse(what.pszPlain, nStart) == Index(m_text.find_last_of(what.text, nStart)));
    }

    FuzzedDataProvider m_input;
    Text m_text;
    UINT m_nCapacity = 1;
    OString<wchar_t> m_str;
    OStringEx<wchar_t> m_strEx;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    Machine(pData, nSize).Run();
    return 0;
}
