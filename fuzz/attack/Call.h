// Makes an operation of a member function: its arguments are drawn by their types.
//
//     table.push_back(OP(GList, RemoveItem));
//
// What a call needs that a type does not say (a buffer and its length, say) is an operation written out.
#pragma once

#include "World.h"

#include <gesso/framework/GWndScroll.h>

#include <algorithm>
#include <tuple>

namespace attack {

// Draws and holds an argument of a type. A type that is missing here does not build.
template <class T> struct Argument;

template <class T> struct Value
{
    T value;
    operator T() { return value; }
};

template <> struct Argument<int> : Value<int>
{
    Argument(World&, Source& source) : Value{source.Integer()} {}
};
template <> struct Argument<UINT> : Value<UINT>
{
    Argument(World&, Source& source) : Value{source.NumberOrBits()} {}
};
#if defined(_WIN32) // where it is a type of its own, of styles mostly, and Wine wants children to stay
                    // children
template <> struct Argument<DWORD> : Value<DWORD>
{
    Argument(World&, Source& source) : Value{WS_CHILD | (source.NumberOrBits() & ~desk::STYLES_LEFT_OUT)} {}
};
#endif
template <> struct Argument<WORD> : Value<WORD>
{
    Argument(World&, Source& source) : Value{static_cast<WORD>(source.Number())} {}
};
template <> struct Argument<bool> : Value<bool>
{
    Argument(World&, Source& source) : Value{source.Flag()} {}
};
template <> struct Argument<POINT> : Value<POINT>
{
    Argument(World&, Source& source) : Value{{source.Integer(), source.Integer()}} {}
};
template <> struct Argument<LPCWSTR>
{
    Argument(World&, Source& source) : text(source.AnyText()) {}
    operator LPCWSTR() { return text; }
    Text text;
};
template <> struct Argument<HWND> : Value<HWND>
{
    Argument(World& world, Source& source) : Value{world.AnyWindow(source)} {}
};
template <> struct Argument<HFONT> : Value<HFONT>
{
    Argument(World& world, Source& source) : Value{world.AnyFont(source)} {}
};
template <> struct Argument<HBITMAP> : Value<HBITMAP>
{
    Argument(World& world, Source& source) : Value{world.AnyBitmap(source)} {}
};
template <> struct Argument<HICON> : Value<HICON>
{
    Argument(World& world, Source& source) : Value{world.AnyIcon(source)} {}
};
template <> struct Argument<HIMAGELIST> : Value<HIMAGELIST>
{
    Argument(World& world, Source& source) : Value{world.AnyImageList(source)} {}
};
template <> struct Argument<HDC> : Value<HDC>
{
    Argument(World& world, Source& source) : Value{world.AnyContext(source)} {}
};
template <> struct Argument<HINSTANCE> : Value<HINSTANCE>
{
    Argument(World&, Source& source) : Value{source.Flag() ? desk::HostModule() : nullptr} {}
};
template <> struct Argument<void*> : Value<void*>
{
    Argument(World& world, Source& source) : Value{world.AnyHandle(source)} {}
};
template <> struct Argument<RECT*>
{
    Argument(World&, Source& source) : rc(source.Rect()) {}
    operator RECT*() { return &rc; }
    RECT rc;
};
template <> struct Argument<const RECT*>
{
    Argument(World&, Source& source) : fNull(source.Chance(4)), rc(source.Rect()) {}
    operator const RECT*() { return fNull ? nullptr : &rc; }
    bool fNull;
    RECT rc;
};
template <> struct Argument<SCROLLINFO*>
{
    Argument(World&, Source& source) : si{}
    {
        si.cbSize = source.Chance(12) ? source.Number() : static_cast<UINT>(sizeof(SCROLLINFO));
        si.fMask = source.Chance(2) ? UINT{SIF_ALL} : source.Bits();
        for (int* pn : {&si.nMin, &si.nMax, &si.nPos, &si.nTrackPos}) {
            *pn = source.Integer();
        }
        si.nPage = source.Number();
    }
    operator SCROLLINFO*() { return &si; }
    SCROLLINFO si;
};
template <> struct Argument<const SCROLLINFO*> : Argument<SCROLLINFO*>
{
    using Argument<SCROLLINFO*>::Argument;
    operator const SCROLLINFO*() { return &si; }
};
template <class T> struct Argument<T*>
{
    Argument(World&, Source&) {}
    operator T*() { return &value; }
    T value{};
};

// What a call gave: a text is read to its end, a handle is used by later calls.
void Use(World& world, LPCWSTR psz);
inline void Use(World& world, void* handle)
{
    world.NoteHandle(handle);
}
template <class T> void Use(World&, const T&) {}

template <class OBJECT, class RESULT, class FUNCTION, class... ARGS>
void Invoke(World& world, Source& source, FUNCTION function)
{
    auto* pObject = static_cast<OBJECT*>(world.Object());
    if (!pObject) {
        return;
    }
    std::tuple<Argument<ARGS>...> arguments{Argument<ARGS>(world, source)...};
    const UINT nActed = world.Acted();
    // Drawing an argument may have made the host act.
    if (static_cast<OBJECT*>(world.Object()) != pObject) {
        return;
    }
    std::apply(
        [&](auto&... drawn) {
            if constexpr (std::is_void_v<RESULT>) {
                (pObject->*function)(drawn...);
            } else {
                const RESULT result = (pObject->*function)(drawn...);
                if (world.Acted() == nActed) {
                    Use(world, result);
                }
            }
        },
        arguments);
}

template <class OBJECT, class CLASS, class RESULT, class... ARGS>
Operation Call(const char* pszName, RESULT (CLASS::*function)(ARGS...))
{
    return {pszName, [function](World& world, Source& source) {
                Invoke<OBJECT, RESULT, decltype(function), ARGS...>(world, source, function);
            }};
}
template <class OBJECT, class CLASS, class RESULT, class... ARGS>
Operation Call(const char* pszName, RESULT (CLASS::*function)(ARGS...) const)
{
    return {pszName,
            [function](World& world, Source& source) {
                Invoke<OBJECT, RESULT, decltype(function), ARGS...>(world, source, function);
            },
            1, true};
}

// An operation that is written out; the object is there.
template <class OBJECT, class ACT> Operation Own(const char* pszName, ACT act, bool fOnCopy = false)
{
    return {pszName,
            [act](World& world, Source& source) {
                if (auto* pObject = static_cast<OBJECT*>(world.Object())) {
                    act(*pObject, world, source);
                }
            },
            1, fOnCopy};
}

inline Operation Often(UINT nWeight, Operation operation)
{
    operation.nWeight = nWeight;
    return operation;
}

// Of an operation that makes a window.
inline Operation Making(Operation operation)
{
    operation.act = [act = operation.act](World& world, Source& source) {
        world.TakeOver();
        act(world, source);
    };
    return operation;
}

inline void Add(Table& table, std::vector<Operation> operations)
{
    table.insert(table.end(), operations.begin(), operations.end());
}

#define OP(CLASS, NAME) ::attack::Call<CLASS>(#NAME, &CLASS::NAME)

// The text operations of all classes: a buffer, and its capacity where the length is to come.
template <class OBJECT, class FUNCTION> Operation GetTextOf(const char* pszName, FUNCTION function)
{
    return Own<OBJECT>(
        pszName,
        [function](const OBJECT& object, World&, Source& source) {
            std::vector<wchar_t> buffer(source.Count(200));
            int nLength = source.Chance(6) ? -1 : static_cast<int>(buffer.size());
            (object.*function)(source.Chance(8) ? nullptr : buffer.data(),
                               source.Chance(12) ? nullptr : &nLength);
        },
        true);
}

// What GWndScroll has.
template <class OBJECT> void AddScrolling(Table& table)
{
    using SetInfo = int (GWndScroll::*)(int, const SCROLLINFO*, int);
    using DrawBar = void (GWndScroll::*)(int);
    const SetInfo setInfo = &OBJECT::SetScrollInfo;
    const DrawBar drawBar = &OBJECT::DrawScrollBar;
    Add(table, {Often(2, Call<OBJECT>("SetScrollInfo", setInfo)), OP(OBJECT, SetScrollBarStyle),
                OP(OBJECT, GetScrollBarStyle), OP(OBJECT, SetScrollPos), OP(OBJECT, GetScrollInfo),
                OP(OBJECT, GetScrollPos), OP(OBJECT, ShowScrollBar), OP(OBJECT, EnableScrollBar),
                OP(OBJECT, GetClientRectNoScroll), OP(OBJECT, DrawHScrollBar), OP(OBJECT, DrawVScrollBar),
                Call<OBJECT>("DrawScrollBar", drawBar)});
}

} // namespace attack
