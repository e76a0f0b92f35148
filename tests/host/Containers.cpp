// Arrays and strings whose blocks one side makes and the other copies, grows and releases.
#include "Checks.h"

namespace {

template <class TYPE> TYPE Sample(UINT n)
{
    return reinterpret_cast<TYPE>(static_cast<UINT_PTR>(n + 1) * 16);
}
template <> UINT Sample<UINT>(UINT n)
{
    return n + 1;
}
template <> OString<wchar_t> Sample<OString<wchar_t>>(UINT n)
{
    return OString<wchar_t>::Build(L"text %u", n);
}
template <> stcElementPosition Sample<stcElementPosition>(UINT n)
{
    return {LET_ITEM, n, {0, 0, 1, 1}};
}
template <> stcColumnDrawInfo Sample<stcColumnDrawInfo>(UINT n)
{
    return {LCT_TEXT, n, 0, 0, {}};
}

template <class TYPE> bool Equal(const TYPE& a, const TYPE& b)
{
    return a == b;
}
bool Equal(const stcElementPosition& a, const stcElementPosition& b)
{
    return a.index == b.index && a.type == b.type;
}
bool Equal(const stcColumnDrawInfo& a, const stcColumnDrawInfo& b)
{
    return a.column == b.column && a.type == b.type;
}

template <class TYPE, class ARG> bool Holds(const OArray<TYPE, ARG>& array, UINT n)
{
    if (array.GetLength() != n) {
        return false;
    }
    for (UINT i = 0; i < n; ++i) {
        if (!Equal(array[i], Sample<TYPE>(i))) {
            return false;
        }
    }
    return true;
}

template <class TYPE, class ARG> void CheckArray(const char* pszName)
{
    constexpr UINT COUNT = 100;
    Group(pszName);
    OArray<TYPE, ARG> array;
    for (UINT i = 0; i < COUNT; ++i) {
        array.Add(Sample<TYPE>(i));
    }
    Check(Holds(array, COUNT), "it is filled one by one");
    OArray<TYPE, ARG> copy(array), moved;
    array.RemoveAll();
    Check(Holds(copy, COUNT), "a copy has a block of its own");
    moved = static_cast<OArray<TYPE, ARG>&&>(copy);
    Check(Holds(moved, COUNT), "it is moved");
    moved.RemoveAt(COUNT / 2, COUNT - COUNT / 2);
    moved.FreeExtra(0);
    for (UINT i = COUNT / 2; i < COUNT; ++i) {
        moved.InsertAt(i, Sample<TYPE>(i));
    }
    Check(Holds(moved, COUNT), "it shrinks and grows again");
}

struct HostsRecord
{
    int a;
    char b[40];
};

// An array of a type that the library does not know: its code is the host's, its memory is not.
void CheckOwnArray()
{
    Group("an array of the host's own type");
    OArray<HostsRecord, HostsRecord const&> array;
    for (int i = 0; i < 50; ++i) {
        array.Add({i, "x"});
    }
    OArray<HostsRecord, HostsRecord const&> other;
    other.Copy(array);
    other.SetAtGrow(80, {80, "y"});
    Same(other.GetLength(), 81, "it grows");
    Check(other[49].a == 49 && other[80].b[0] == 'y', "it keeps what it has");
}

void CheckStrings()
{
    Group("OString and OStringEx");
    OStringEx<wchar_t> str;
    Same(str, L"", "an empty one");
    str = L"  One, two, three  ";
    Same(str, L"  One, two, three  ", "a text is assigned");
    str.Trim();
    Same(str, L"One, two, three", "trimmed");
    Same(str.GetLength(), 15, "its length");
    Same(str.Find(L"two", 0), 5, "found");
    Same(str.Replace(L"two", L"twenty-two"), 1, "replaced");
    Same(str, L"One, twenty-two, three", "with a longer text");
    OStringEx<wchar_t> copy = str;
    copy.MakeUpper();
    Same(copy, L"ONE, TWENTY-TWO, THREE", "a copy is changed");
    Same(str, L"One, twenty-two, three", "and its source is not");
    Check(copy != str && copy.CompareNoCase(str) == 0, "compared");
    str.Format(L"%d of %s: %c", 7, L"nine", L'x');
    Same(str, L"7 of nine: x", "formatted");
    str.AppendFormat(L" %u", 3000000000u);
    Same(str, L"7 of nine: x 3000000000", "and more behind it");
    const OString<wchar_t> part = str.Mid(2, 7, 0);
    Same(part, L"of nine", "a part, made by the library, released by the host");
    wchar_t* pBuffer = str.GetBuffer(200);
    for (int i = 0; i < 150; ++i) {
        pBuffer[i] = L'a';
    }
    str.ReleaseBuffer(150);
    Same(str.GetLength(), 150, "the host writes the buffer");
    str.FreeEmpty(0);
    str.Insert(150, L"end", 3);
    Same(str.Right(5, 0), L"aaend", "and the library makes it larger");
    OString<wchar_t> moved(static_cast<OString<wchar_t>&&>(copy));
    Same(moved, L"ONE, TWENTY-TWO, THREE", "moved");
    OString<wchar_t> wrapped;
    GLabel::WrapText(wrapped, moved);
    Check(wrapped.GetLength() > 0, "a string of the host's is written by the library");
    Same(OString<wchar_t>(40, GetModuleHandleW(nullptr)), L"From the host's resources", "loaded");
}

} // namespace

void CheckContainers()
{
    CheckStrings();
    CheckArray<void*, void* const&>("OArray of void*");
    CheckArray<UINT, UINT const&>("OArray of UINT");
    CheckArray<HWND, HWND const&>("OArray of HWND");
    CheckArray<HFONT, HFONT>("OArray of HFONT");
    CheckArray<HICON, HICON>("OArray of HICON");
    CheckArray<ListItem*, ListItem*>("OArray of ListItem*");
    CheckArray<ListColumn*, ListColumn*>("OArray of ListColumn*");
    CheckArray<ListGroup*, ListGroup*>("OArray of ListGroup*");
    CheckArray<TreeItem*, TreeItem*>("OArray of TreeItem*");
    CheckArray<NavigationBarItem*, NavigationBarItem*>("OArray of NavigationBarItem*");
    CheckArray<ComboItem*, ComboItem*>("OArray of ComboItem*");
    CheckArray<stcDrawItem*, stcDrawItem*>("OArray of stcDrawItem*");
    CheckArray<stcPage*, stcPage*>("OArray of stcPage*");
    CheckArray<GRibbonPage*, GRibbonPage*>("OArray of GRibbonPage*");
    CheckArray<OString<wchar_t>, OString<wchar_t> const&>("OArray of OString");
    CheckArray<stcElementPosition, stcElementPosition const&>("OArray of stcElementPosition");
    CheckArray<stcColumnDrawInfo, stcColumnDrawInfo const&>("OArray of stcColumnDrawInfo");
    CheckOwnArray();
}
