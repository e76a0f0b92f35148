#include "Scripts.h"

namespace gesso::headless {
namespace {

struct Range
{
    unsigned first;
    unsigned last;
    Script script;
};

// In ascending order; what stands in no range is Latin.
constexpr Range RANGES[] = {
    {0x0000, 0x001F, Script::Control},    {0x0020, 0x0040, Script::Neutral},
    {0x005B, 0x0060, Script::Neutral},    {0x007B, 0x007E, Script::Neutral},
    {0x007F, 0x009F, Script::Control},    {0x00A0, 0x00BF, Script::Neutral},
    {0x00D7, 0x00D7, Script::Neutral},    {0x00F7, 0x00F7, Script::Neutral},
    {0x0300, 0x036F, Script::Neutral},    {0x0370, 0x03FF, Script::Greek},
    {0x0400, 0x052F, Script::Cyrillic},   {0x0530, 0x058F, Script::Armenian},
    {0x0590, 0x05FF, Script::Hebrew},     {0x0600, 0x06FF, Script::Arabic},
    {0x0750, 0x077F, Script::Arabic},     {0x08A0, 0x08FF, Script::Arabic},
    {0x0900, 0x097F, Script::Devanagari}, {0x0E00, 0x0E7F, Script::Thai},
    {0x1100, 0x11FF, Script::Hangul},     {0x1F00, 0x1FFF, Script::Greek},
    {0x2000, 0x2BFF, Script::Neutral},    {0x3000, 0x303F, Script::Neutral},
    {0x3040, 0x30FF, Script::Kana},       {0x3400, 0x9FFF, Script::Han},
    {0xAC00, 0xD7AF, Script::Hangul},     {0xD800, 0xDFFF, Script::Surrogate},
    {0xF900, 0xFAFF, Script::Han},        {0xFB1D, 0xFB4F, Script::Hebrew},
    {0xFB50, 0xFDFF, Script::Arabic},     {0xFE00, 0xFE6F, Script::Neutral},
    {0xFE70, 0xFEFE, Script::Arabic},     {0xFF00, 0xFF20, Script::Neutral},
};

constexpr const char* NAMES[] = {"neutral",  "control", "latin",  "greek",      "cyrillic",
                                 "armenian", "hebrew",  "arabic", "devanagari", "thai",
                                 "hangul",   "kana",    "han",    "surrogate"};
static_assert(std::size(NAMES) == static_cast<size_t>(Script::Surrogate) + 1);

bool IsIdeograph(wchar_t c)
{
    const Script script = ScriptOf(c);
    return script == Script::Han || script == Script::Kana;
}

} // namespace

Script ScriptOf(wchar_t c)
{
    for (const Range& range : RANGES) {
        if (c <= range.last) {
            return c >= range.first ? range.script : Script::Latin;
        }
    }
    return Script::Latin;
}

const char* ScriptName(Script script)
{
    const auto index = static_cast<size_t>(script);
    return index < std::size(NAMES) ? NAMES[index] : "unknown";
}

bool IsRightToLeft(Script script)
{
    return script == Script::Hebrew || script == Script::Arabic;
}

// As in the script processors of the platform, control characters are no white space.
bool IsWhiteSpace(wchar_t c)
{
    return c == L' ' || c == 0x3000;
}

bool MayBreakBetween(wchar_t before, wchar_t after)
{
    if (IsWhiteSpace(after)) {
        return false;
    }
    return IsWhiteSpace(before) || before == L'-' || IsIdeograph(after);
}

} // namespace gesso::headless
