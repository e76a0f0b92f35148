// The nine places that a text may take in its control.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

struct Alignment
{
    LPCWSTR pszCaption;
    DWORD dwStyle;
};

inline constexpr Alignment ALIGNMENTS[] = {
    {L"left, top", 0},
    {L"centre, top", GS_CENTER},
    {L"right, top", GS_RIGHT},
    {L"left, middle", GS_VCENTER},
    {L"centre, middle", GS_CENTER | GS_VCENTER},
    {L"right, middle", GS_RIGHT | GS_VCENTER},
    {L"left, bottom", GS_BOTTOM},
    {L"centre, bottom", GS_CENTER | GS_BOTTOM},
    {L"right, bottom", GS_RIGHT | GS_BOTTOM},
};

} // namespace gallery
