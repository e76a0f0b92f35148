// bench [FAMILY...]: prints the table of the named families, or of all. A family's name stands for its parts
// too: "list" for "list.virtual".
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
    {"pane", &bench::MeasurePane},
    {"ribbon", &bench::MeasureRibbon},
    {"scrollbars", &bench::MeasureScrollbars},
    {"text", &bench::MeasureText},
    {"list", &bench::MeasureList},
    {"list.virtual", &bench::MeasureVirtualList},
    {"longlist", &bench::MeasureLongList},
    {"keys", &bench::MeasureKeys},
    {"dark", &bench::MeasureDark},
    {"scale", &bench::MeasureScale},
    {"mirrored", &bench::MeasureMirrored},
    {"unstyled", &bench::MeasureUnstyled},
    {"dialogs", &bench::MeasureDialogs},
    {"tree", &bench::MeasureTree},
    {"tree.folder", &bench::MeasureTreeFolder},
    {"tree.items", &bench::MeasureTreeItems},
};
// clang-format on

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string_view> wanted(argv + 1, argv + argc);
    const auto isWanted = [&](std::string_view name) {
        const auto isNamed = [&](std::string_view family) {
            return name.starts_with(family) && (name.size() == family.size() || name[family.size()] == '.');
        };
        return wanted.empty() || std::any_of(wanted.begin(), wanted.end(), isNamed);
    };
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES};
    InitCommonControlsEx(&classes);
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
