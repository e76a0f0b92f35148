// What the simulated script processor knows of characters: their script, direction and line breaks.
#pragma once

#include "../headless.h"

namespace gesso::headless {

enum class Script : WORD
{
    Neutral, // spaces, digits, punctuation and combining marks, which go with their neighbours
    Control,
    Latin,
    Greek,
    Cyrillic,
    Armenian,
    Hebrew,
    Arabic,
    Devanagari,
    Thai,
    Hangul,
    Kana,
    Han,
    Surrogate
};

Script ScriptOf(wchar_t c);
const char* ScriptName(Script script);
bool IsRightToLeft(Script script);

bool IsWhiteSpace(wchar_t c);
// True if a line may break between the two, apart from white space that stays on the line.
bool MayBreakBetween(wchar_t before, wchar_t after);

} // namespace gesso::headless
