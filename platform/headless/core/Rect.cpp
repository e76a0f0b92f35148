// The platform's rectangle arithmetic.
#include "Arithmetic.h"

using gesso::headless::Wrapped;

extern "C" {

BOOL WINAPI SetRect(LPRECT r, int left, int top, int right, int bottom)
{
    *r = {left, top, right, bottom};
    return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT r)
{
    *r = {};
    return TRUE;
}

BOOL WINAPI CopyRect(RECT* to, const RECT* from)
{
    *to = *from;
    return TRUE;
}

BOOL WINAPI EqualRect(const RECT* a, const RECT* b)
{
    return a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL WINAPI IsRectEmpty(const RECT* r)
{
    return r->left >= r->right || r->top >= r->bottom;
}

BOOL WINAPI PtInRect(const RECT* r, POINT p)
{
    return p.x >= r->left && p.x < r->right && p.y >= r->top && p.y < r->bottom;
}

BOOL WINAPI InflateRect(LPRECT r, int dx, int dy)
{
    *r = {Wrapped(int64_t{r->left} - dx), Wrapped(int64_t{r->top} - dy), Wrapped(int64_t{r->right} + dx),
          Wrapped(int64_t{r->bottom} + dy)};
    return TRUE;
}

BOOL WINAPI OffsetRect(LPRECT r, int dx, int dy)
{
    *r = {Wrapped(int64_t{r->left} + dx), Wrapped(int64_t{r->top} + dy), Wrapped(int64_t{r->right} + dx),
          Wrapped(int64_t{r->bottom} + dy)};
    return TRUE;
}

BOOL WINAPI IntersectRect(LPRECT out, const RECT* a, const RECT* b)
{
    const RECT both = {std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
                       std::min(a->bottom, b->bottom)};
    *out = IsRectEmpty(&both) ? RECT{} : both;
    return !IsRectEmpty(&both);
}

BOOL WINAPI UnionRect(LPRECT out, const RECT* a, const RECT* b)
{
    if (IsRectEmpty(a) || IsRectEmpty(b)) {
        *out = !IsRectEmpty(a) ? *a : !IsRectEmpty(b) ? *b : RECT{};
    } else {
        *out = {std::min(a->left, b->left), std::min(a->top, b->top), std::max(a->right, b->right),
                std::max(a->bottom, b->bottom)};
    }
    return !IsRectEmpty(out);
}

BOOL WINAPI SubtractRect(LPRECT out, const RECT* from, const RECT* hole)
{
    RECT rest = *from;
    RECT cut;
    if (IntersectRect(&cut, from, hole)) {
        const bool acrossX = cut.left == from->left && cut.right == from->right;
        const bool acrossY = cut.top == from->top && cut.bottom == from->bottom;
        // Only a cut from side to side leaves one rectangle.
        if (acrossY) {
            rest.left = cut.left == from->left ? cut.right : from->left;
            rest.right = cut.left == from->left || cut.right != from->right ? from->right : cut.left;
        } else if (acrossX) {
            rest.top = cut.top == from->top ? cut.bottom : from->top;
            rest.bottom = cut.top == from->top || cut.bottom != from->bottom ? from->bottom : cut.top;
        }
    }
    *out = IsRectEmpty(&rest) ? RECT{} : rest;
    return !IsRectEmpty(out);
}
}
