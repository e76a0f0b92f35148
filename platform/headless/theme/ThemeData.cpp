#include "ThemeData.h"

#include "../core/TableLock.h"
#include "../core/Text.h"
#include "../gdi/FontMetrics.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace gesso::headless {
namespace {

// A class under its plain name: without the application's prefix ("Explorer::TREEVIEW"), in capitals.
std::string PlainName(std::string_view themeClass)
{
    std::string name(themeClass);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    const size_t prefix = name.find("::");
    return prefix == std::string::npos || name == "COMPOSITEDWINDOW::WINDOW" ? name : name.substr(prefix + 2);
}

using PropertyKey = std::tuple<std::string, int, int, int>; // class, part, state, property

template <typename VALUE> using Properties = std::map<PropertyKey, VALUE>;

struct Style
{
    bool active = true;
    bool shared = false;
    std::set<std::string> hiddenClasses;
    std::set<std::pair<std::string, int>> hiddenParts;
    Properties<MARGINS> margins;
    Properties<SIZE> sizes;
    Properties<COLORREF> colors;
    Properties<int> ints;
    Properties<LOGFONTW> fonts;
};

Style& Current()
{
    static Style s_style;
    return s_style;
}

template <typename VALUE>
std::optional<VALUE> FindSet(const Properties<VALUE>& properties, const std::string& themeClass, int part,
                             int state, int property)
{
    auto found = properties.find({themeClass, part, state, property});
    if (found == properties.end()) {
        found = properties.find({themeClass, part, 0, property});
    }
    return found != properties.end() ? std::optional(found->second) : std::nullopt;
}

constexpr std::string_view CLASSES[] = {
    "AEROWIZARD", "BUTTON",      "COMBOBOX",   "COMPOSITEDWINDOW::WINDOW",
    "EDIT",       "EXPLORERBAR", "HEADER",     "LISTBOX",
    "LISTVIEW",   "MENU",        "NAVIGATION", "PROGRESS",
    "REBAR",      "SCROLLBAR",   "SPIN",       "STATUS",
    "TAB",        "TASKDIALOG",  "TEXTSTYLE",  "TOOLBAR",
    "TOOLTIP",    "TRACKBAR",    "TREEVIEW",   "WINDOW",
};

struct PartMargins
{
    std::string_view themeClass;
    int part;
    MARGINS margins; // left, right, top, bottom
};

constexpr PartMargins STYLE_MARGINS[] = {
    {"BUTTON", BP_PUSHBUTTON, {3, 3, 3, 3}}, {"BUTTON", BP_COMMANDLINK, {6, 6, 6, 6}},
    {"COMBOBOX", 0, {2, 2, 2, 2}},           {"EDIT", 0, {2, 2, 1, 1}},
    {"EDIT", EP_EDITTEXT, {2, 2, 1, 1}},     {"EDIT", 6, {2, 2, 1, 1}},
    {"PROGRESS", PP_BAR, {1, 1, 1, 1}},      {"HEADER", HP_HEADERITEM, {4, 4, 2, 2}},
    {"TASKDIALOG", 8, {10, 10, 10, 10}},
};

struct PartSize
{
    std::string_view themeClass;
    int part;
    SIZE size;
};

constexpr PartSize STYLE_SIZES[] = {
    {"BUTTON", BP_RADIOBUTTON, {13, 13}},
    {"BUTTON", BP_CHECKBOX, {13, 13}},
    {"BUTTON", 7, {16, 16}},
    {"COMBOBOX", CP_DROPDOWNBUTTON, {17, 17}},
    {"HEADER", HP_HEADERSORTARROW, {9, 5}},
    {"LISTVIEW", 8, {16, 16}},
    {"LISTVIEW", 9, {16, 16}},
    {"NAVIGATION", 1, {30, 30}},
    {"SCROLLBAR", SBP_ARROWBTN, {17, 17}},
    {"TREEVIEW", TVP_GLYPH, {9, 9}},
    {"TREEVIEW", 4, {9, 9}},
};

constexpr COLORREF TITLE_BLUE = RGB(0, 51, 153);

bool HasTitleColor(std::string_view themeClass, int part)
{
    constexpr int MAIN_INSTRUCTION = 1;
    constexpr int TASK_DIALOG_INSTRUCTION = 2;
    return (themeClass == "TEXTSTYLE" && part == MAIN_INSTRUCTION) ||
           (themeClass == "TASKDIALOG" && part == TASK_DIALOG_INSTRUCTION) ||
           (themeClass == "LISTVIEW" && part == 7);
}

std::optional<LOGFONTW> OwnFont(std::string_view themeClass, int part, int property)
{
    constexpr int BODY_TEXT = 4;
    const bool commandLink = themeClass == "BUTTON" && part == BP_COMMANDLINK;
    if (property == TMT_BODYFONT && commandLink) {
        return UserInterfaceFont(9);
    }
    if (property != TMT_FONT) {
        return std::nullopt;
    }
    if (commandLink || HasTitleColor(themeClass, part)) {
        return UserInterfaceFont(12);
    }
    if ((themeClass == "TEXTSTYLE" || themeClass == "TASKDIALOG") && part <= BODY_TEXT) {
        return UserInterfaceFont(9);
    }
    return std::nullopt;
}

} // namespace

bool ThemesActive()
{
    const TableLock lock;
    return Current().active;
}

bool AreThemeHandlesShared()
{
    const TableLock lock;
    return Current().shared;
}

bool IsThemeClassAvailable(const std::string& themeClass)
{
    const TableLock lock;
    const std::string name = PlainName(themeClass);
    return std::find(std::begin(CLASSES), std::end(CLASSES), name) != std::end(CLASSES) &&
           !Current().hiddenClasses.contains(name);
}

bool IsThemePartAvailable(const std::string& themeClass, int part)
{
    const TableLock lock;
    return !Current().hiddenParts.contains({PlainName(themeClass), part});
}

std::optional<MARGINS> FindThemeMargins(const std::string& themeClass, int part, int state, int property)
{
    const TableLock lock;
    const std::string name = PlainName(themeClass);
    if (const auto set = FindSet(Current().margins, name, part, state, property)) {
        return set;
    }
    const auto* own =
        std::find_if(std::begin(STYLE_MARGINS), std::end(STYLE_MARGINS),
                     [&](const PartMargins& m) { return m.themeClass == name && m.part == part; });
    return own != std::end(STYLE_MARGINS) && property == TMT_CONTENTMARGINS ? own->margins : MARGINS{};
}

std::optional<SIZE> FindThemePartSize(const std::string& themeClass, int part, int state)
{
    const TableLock lock;
    const std::string name = PlainName(themeClass);
    if (const auto set = FindSet(Current().sizes, name, part, state, 0)) {
        return set;
    }
    const auto* own = std::find_if(std::begin(STYLE_SIZES), std::end(STYLE_SIZES),
                                   [&](const PartSize& s) { return s.themeClass == name && s.part == part; });
    return own != std::end(STYLE_SIZES) ? own->size : SIZE{};
}

std::optional<COLORREF> FindThemeColor(const std::string& themeClass, int part, int state, int property)
{
    const TableLock lock;
    const std::string name = PlainName(themeClass);
    if (const auto set = FindSet(Current().colors, name, part, state, property)) {
        return set;
    }
    switch (property) {
    case TMT_TEXTCOLOR: return HasTitleColor(name, part) ? TITLE_BLUE : RGB(0, 0, 0);
    case TMT_EDGEFILLCOLOR: return RGB(240, 240, 240);
    case TMT_BORDERCOLOR: return RGB(130, 135, 144);
    case TMT_FILLCOLOR: return RGB(255, 255, 255);
    default: return std::nullopt;
    }
}

std::optional<int> FindThemeInt(const std::string& themeClass, int part, int state, int property)
{
    const TableLock lock;
    if (const auto set = FindSet(Current().ints, PlainName(themeClass), part, state, property)) {
        return set;
    }
    return property == TMT_BORDERSIZE ? std::optional(1) : std::nullopt;
}

std::optional<LOGFONTW> FindThemeFont(const std::string& themeClass, int part, int state, int property)
{
    const TableLock lock;
    const std::string name = PlainName(themeClass);
    const auto set = FindSet(Current().fonts, name, part, state, property);
    return set ? set : OwnFont(name, part, property);
}

void ResetThemeData()
{
    const TableLock lock;
    Current() = {};
}

void SetThemed(bool themed)
{
    const TableLock lock;
    Current().active = themed;
}

void ShareThemeHandles(bool shared)
{
    const TableLock lock;
    Current().shared = shared;
}

void SetThemeClassAvailable(std::string_view themeClass, bool available)
{
    const TableLock lock;
    const std::string name = PlainName(themeClass);
    if (available) {
        Current().hiddenClasses.erase(name);
    } else {
        Current().hiddenClasses.insert(name);
    }
}

void SetThemePartAvailable(std::string_view themeClass, int part, bool available)
{
    const TableLock lock;
    const std::pair key{PlainName(themeClass), part};
    if (available) {
        Current().hiddenParts.erase(key);
    } else {
        Current().hiddenParts.insert(key);
    }
}

void SetThemeMargins(std::string_view themeClass, int part, int state, int property, MARGINS margins)
{
    const TableLock lock;
    Current().margins[{PlainName(themeClass), part, state, property}] = margins;
}

void SetThemePartSize(std::string_view themeClass, int part, int state, SIZE size)
{
    const TableLock lock;
    Current().sizes[{PlainName(themeClass), part, state, 0}] = size;
}

void SetThemeColor(std::string_view themeClass, int part, int state, int property, COLORREF color)
{
    const TableLock lock;
    Current().colors[{PlainName(themeClass), part, state, property}] = color;
}

void SetThemeInt(std::string_view themeClass, int part, int state, int property, int value)
{
    const TableLock lock;
    Current().ints[{PlainName(themeClass), part, state, property}] = value;
}

void SetThemeFont(std::string_view themeClass, int part, int state, int property, const LOGFONTW& font)
{
    const TableLock lock;
    Current().fonts[{PlainName(themeClass), part, state, property}] = font;
}

} // namespace gesso::headless
