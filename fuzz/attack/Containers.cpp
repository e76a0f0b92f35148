// Arrays and strings, on two objects of a kind, so that each may be given to the other. What an operation
// would answer by ending the program, an element that is not there, is the caller's mistake and left out.

#include "Plain.h"

#include <gesso/containers/Check.h>

namespace attack {

namespace {

constexpr UINT LONGEST = 20000; // elements or characters

// --- Arrays

template <class ELEMENT> struct Elements;
template <> struct Elements<UINT>
{
    using Array = OArray<UINT, UINT const&>;
    static UINT Any(Source& source) { return source.Number(); }
};
template <> struct Elements<OString<wchar_t>>
{
    using Array = OArray<OString<wchar_t>, OString<wchar_t> const&>;
    static OString<wchar_t> Any(Source& source)
    {
        OStringEx<wchar_t> str;
        str = source.AnyText();
        return str;
    }
};

template <class ELEMENT> class ArrayWorld : public World
{
public:
    using Array = typename Elements<ELEMENT>::Array;

    explicit ArrayWorld(Source& source) : World(Operations(), source) {}
    void* Object() override { return this; }
    std::string Check() override
    {
        return gesso::Check(m_array) && gesso::Check(m_other) ? "" : "an array that does not hold";
    }

private:
    static const Table& Operations();

    // A place, mostly within the array.
    UINT Place(Source& source) const { return source.Below(m_array.GetLength() + 4); }
    UINT Length(Source& source) const { return source.Count(LONGEST); }
    // As many as there are from a place on, or fewer.
    UINT Range(UINT nFrom, Source& source) const
    {
        const UINT nLength = m_array.GetLength();
        return nFrom < nLength ? source.Below(nLength - nFrom + 1) : 0;
    }
    void KeepShort()
    {
        if (m_array.GetLength() > LONGEST) {
            m_array.SetLength(100, -1);
        }
    }
    void InsertOwn(Source& source)
    {
        const UINT nFrom = Place(source);
        const UINT nCount = Range(nFrom, source);
        m_array.InsertAt(Place(source), m_array.GetData() + (nCount ? nFrom : 0), nCount);
        KeepShort();
    }
    void Move(Source& source)
    {
        Array moved(std::move(m_array));
        source.Flag() ? m_array = std::move(moved) : m_array = moved;
    }

    Array m_array;
    Array m_other;
};

template <class ELEMENT> const Table& ArrayWorld<ELEMENT>::Operations()
{
    using Self = ArrayWorld;
    const auto any = [](Source& source) { return Elements<ELEMENT>::Any(source); };
    static const Table TABLE = {
        Often(6, Plain<Self>("Add", [any](Self& self, Source& source) { self.m_array.Add(any(source)); })),
        Plain<Self>("AddOther",
                    [](Self& self, Source&) {
                        self.m_array.Add(self.m_other);
                        self.KeepShort();
                    }),
        Plain<Self>("AddItself",
                    [](Self& self, Source&) {
                        self.m_array.Add(self.m_array);
                        self.KeepShort();
                    }),
        Plain<Self>("CopyOther", [](Self& self, Source&) { self.m_array.Copy(self.m_other); }),
        Often(3, Plain<Self>("InsertAt",
                             [any](Self& self, Source& source) {
                                 self.m_array.InsertAt(self.Place(source), any(source));
                             })),
        Plain<Self>("InsertOwn", [](Self& self, Source& source) { self.InsertOwn(source); }),
        Plain<Self>(
            "InsertFar",
            [any](Self& self, Source& source) { self.m_array.InsertAt(self.Length(source), any(source)); }),
        Often(2, Plain<Self>("RemoveAt",
                             [](Self& self, Source& source) {
                                 self.m_array.RemoveAt(self.Place(source), source.Number());
                             })),
        Plain<Self>("RemoveAll", [](Self& self, Source&) { self.m_array.RemoveAll(); }),
        Plain<Self>(
            "SetAtGrow",
            [any](Self& self, Source& source) { self.m_array.SetAtGrow(self.Place(source), any(source)); }),
        Plain<Self>("GetAtGrow",
                    [](Self& self, Source& source) { self.m_array.GetAtGrow(self.Place(source)); }),
        Plain<Self>("SetLength",
                    [](Self& self, Source& source) {
                        self.m_array.SetLength(self.Length(source), static_cast<int>(source.Below(30)) - 2);
                    }),
        Plain<Self>("AllocExtra",
                    [](Self& self, Source& source) {
                        self.m_array.AllocExtra(self.Length(source), static_cast<int>(source.Below(30)) - 2);
                    }),
        Plain<Self>("FreeExtra",
                    [](Self& self, Source& source) { self.m_array.FreeExtra(self.Length(source)); }),
        Plain<Self>("Swap", [](Self& self, Source&) { std::swap(self.m_array, self.m_other); }),
        Plain<Self>("Move", [](Self& self, Source& source) { self.Move(source); }),
        Plain<Self>("AssignItself",
                    [](Self& self, Source&) {
                        const Array& array = self.m_array;
                        self.m_array = array;
                    }),
    };
    return TABLE;
}

// --- Strings

// What both strings have; the other may be the string itself or a piece of it.
template <class STRING> class StringWorld : public World
{
public:
    explicit StringWorld(Source& source) : World(Operations(), source) {}
    void* Object() override { return this; }
    std::string Check() override
    {
        return gesso::Check(m_str) && gesso::Check(m_other) ? "" : "a string that does not hold";
    }

private:
    static const Table& Operations();
    static void AddChanges(Table& table);
    static void AddReading(Table& table);

    LPCWSTR Piece(Source& source) const
    {
        return static_cast<LPCWSTR>(m_str) + source.Below(m_str.GetLength() + 1);
    }
    void KeepShort()
    {
        if (m_str.GetLength() > 10 * LONGEST) {
            m_str = m_str.Left(100, 0);
        }
    }
    void Replace(Source& source)
    {
        const Text what = source.ShortText();
        switch (source.Below(4)) {
        case 0: m_str.Replace(what, source.AnyText()); break;
        case 1: m_str.Replace(Piece(source), what); break;
        case 2: m_str.Replace(m_str, m_other); break;
        default:
            m_str.Replace(static_cast<wchar_t>(L'a' + source.Below(26)),
                          static_cast<wchar_t>(source.Number()));
            break;
        }
        KeepShort();
    }
    void Remove(Source& source)
    {
        switch (source.Below(3)) {
        case 0: m_str.Remove(static_cast<wchar_t>(source.Number())); break;
        case 1: m_str.Remove(Piece(source)); break;
        default: m_str.Remove(m_other); break;
        }
    }
    void Trim(Source& source)
    {
        const Text set = source.AnyText();
        switch (source.Below(6)) {
        case 0: m_str.Trim(); break;
        case 1: m_str.TrimLeft(set); break;
        case 2: m_str.TrimRight(set); break;
        case 3: m_str.Trim(static_cast<wchar_t>(source.Number())); break;
        case 4: m_str.Trim(set); break;
        default: m_str.TrimLeft(Piece(source)); break;
        }
    }
    void Format(Source& source)
    {
        const Text text = source.ShortText();
        switch (source.Below(4)) {
        case 0:
            m_str.Format(L"%s %d %u", static_cast<LPCWSTR>(text), source.Integer(), source.Number());
            break;
        case 1:
            m_str.AppendFormat(L"%-20s|%5d|%08x", static_cast<LPCWSTR>(m_str), source.Integer(),
                               source.Bits());
            break;
        case 2: m_str.Format(L"%.*s", static_cast<int>(source.Below(50)), static_cast<LPCWSTR>(m_str)); break;
        default: m_str.AppendFormat(L"%c%%", static_cast<int>(L'a' + source.Below(26))); break;
        }
        KeepShort();
    }
    void Find(Source& source) const
    {
        const Text text = source.ShortText();
        const UINT nStart = source.Number();
        m_str.Find(text, nStart);
        m_str.FindReverse(text, nStart);
        m_str.FindReverse(m_other, nStart);
        m_str.Find(static_cast<wchar_t>(source.Number()), nStart);
        m_str.FindOneOf(text, nStart);
        m_str.FindOneOfReverse(text, nStart);
    }
    void Compare(Source& source) const
    {
        const Text text = source.AnyText();
        const UINT nCount = source.Number();
        m_str.Compare(text);
        m_str.Compare(text, nCount);
        m_str.CompareNoCase(m_other, nCount);
        m_str.Collate(text);
        m_str.CollateNoCase(m_other);
    }
    void Cut(Source& source)
    {
        const UINT nStart = source.Number();
        switch (source.Below(3)) {
        case 0: m_other = m_str.Mid(nStart, source.Number(), 0); break;
        case 1: m_other = m_str.Left(nStart, source.Count(500)); break;
        default: m_other = m_str.Right(nStart, 0); break;
        }
    }
    void Write(Source& source)
    {
        const UINT n = source.Count(2000) + 1;
        wchar_t* const psz = m_str.GetBuffer(n);
        for (UINT i = 0; i + 1 < n; ++i) {
            psz[i] = static_cast<wchar_t>(L'a' + i % 26);
        }
        psz[n - 1] = 0;
        m_str.ReleaseBuffer(source.Flag() ? 0xFFFFFFFF : n - 1);
    }
    void Insert(Source& source)
    {
        const UINT nPos = source.Below(m_str.GetLength() + 3);
        if (source.Flag()) {
            m_str.Insert(nPos, source.Flag() ? m_str : m_other);
        } else {
            m_str.Insert(nPos, source.AnyText(), source.Number());
        }
        KeepShort();
    }
    void Move(Source& source)
    {
        STRING moved(std::move(m_str));
        source.Flag() ? m_str = std::move(moved) : m_str = moved;
    }

    STRING m_str;
    STRING m_other;
};

template <class STRING> void StringWorld<STRING>::AddChanges(Table& table)
{
    using Self = StringWorld;
    Add(table,
        {Often(3, Plain<Self>("Replace", [](Self& self, Source& source) { self.Replace(source); })),
         Plain<Self>("Remove", [](Self& self, Source& source) { self.Remove(source); }),
         Plain<Self>("Trim", [](Self& self, Source& source) { self.Trim(source); }),
         Often(3, Plain<Self>("Format", [](Self& self, Source& source) { self.Format(source); })),
         Often(4, Plain<Self>("Insert", [](Self& self, Source& source) { self.Insert(source); })),
         Plain<Self>("Delete",
                     [](Self& self, Source& source) { self.m_str.Delete(source.Number(), source.Number()); }),
         Plain<Self>("Case",
                     [](Self& self, Source& source) {
                         source.Flag() ? self.m_str.MakeLower() : self.m_str.MakeUpper();
                     }),
         Plain<Self>("Reverse", [](Self& self, Source&) { self.m_str.MakeReverse(); }),
         Plain<Self>("Write", [](Self& self, Source& source) { self.Write(source); }),
         Plain<Self>("FreeEmpty",
                     [](Self& self, Source& source) { self.m_str.FreeEmpty(source.Count(3000)); }),
         Plain<Self>("Load", [](Self& self, Source& source) {
             self.m_str.LoadStringW(source.Number(), desk::LibraryModule());
         })});
}

template <class STRING> void StringWorld<STRING>::AddReading(Table& table)
{
    using Self = StringWorld;
    Add(table,
        {Plain<Self>("Find", [](Self& self, Source& source) { self.Find(source); }),
         Plain<Self>("Compare", [](Self& self, Source& source) { self.Compare(source); }),
         Plain<Self>("Cut", [](Self& self, Source& source) { self.Cut(source); }),
         Often(3, Plain<Self>("Assign", [](Self& self, Source& source) { self.m_str = source.AnyText(); })),
         Plain<Self>("AssignPiece", [](Self& self, Source& source) { self.m_str = self.Piece(source); }),
         Plain<Self>("Swap", [](Self& self, Source&) { std::swap(self.m_str, self.m_other); }),
         Plain<Self>("Move", [](Self& self, Source& source) { self.Move(source); })});
}

template <class STRING> const Table& StringWorld<STRING>::Operations()
{
    static const Table TABLE = [] {
        Table table;
        AddChanges(table);
        AddReading(table);
        return table;
    }();
    return TABLE;
}

} // namespace

void AddContainers(std::vector<AttackedClass>& classes)
{
    classes.push_back(OfWorld<ArrayWorld<UINT>>("OArray"));
    classes.push_back(OfWorld<ArrayWorld<OString<wchar_t>>>("OArray-of-OString"));
    classes.push_back(OfWorld<StringWorld<OStringEx<wchar_t>>>("OStringEx"));
}

} // namespace attack
