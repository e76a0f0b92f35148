// A text in each of several scripts, and fonts that have it.
#pragma once

#include <gesso/gesso.h>

#include <vector>

namespace gallery {

struct TextSample
{
    LPCWSTR pszScript;
    LPCWSTR pszText;
    std::vector<LPCWSTR> faces; // the first one that has all of the text is taken, or else the last
};

const std::vector<TextSample>& TextSamples();

// Makes a font for a sample; the caller deletes it.
HFONT MakeSampleFont(HDC hdc, const TextSample& sample);

} // namespace gallery
