// bench [FAMILY...]: prints the table of the named families, or of all.
#include <bench/Bench.h>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

constexpr int ROUNDS = 11;

struct FamilyEntry
{
    std::string_view name;
    void (*measure)(bench::Bench&);
};

// clang-format off
constexpr FamilyEntry FAMILIES[] = {
    {"buttons", &bench::MeasureButtons},
    {"checkboxes", &bench::MeasureCheckBoxes},
    {"edits", &bench::MeasureEdits},
    {"fields", &bench::MeasureFields},
    {"combos", &bench::MeasureCombos},
    {"progressbars", &bench::MeasureProgressBars},
    {"ribbon", &bench::MeasureRibbon},
    {"scrollbars", &bench::MeasureScrollbars},
    {"text", &bench::MeasureText},
    {"list", &bench::MeasureList},
    {"longlist", &bench::MeasureLongList},
    {"keys", &bench::MeasureKeys},
    {"dialogs", &bench::MeasureDialogs},
    {"tree", &bench::MeasureTree},
};
// clang-format on

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string_view> wanted(argv + 1, argv + argc);
    const auto isWanted = [&](std::string_view name) {
        return wanted.empty() || std::find(wanted.begin(), wanted.end(), name) != wanted.end();
    };
    InitControls();
    std::printf(
        "Medians of %d rounds, Gesso and the platform by turns; a ratio below 1 is in Gesso's favour.\n",
        ROUNDS);
    bench::Bench table(ROUNDS);
    for (const FamilyEntry& family : FAMILIES) {
        if (isWanted(family.name)) {
            family.measure(table);
        }
    }
    return 0;
}
