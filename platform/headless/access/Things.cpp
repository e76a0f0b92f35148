#include "Things.h"

#include "../core/Faults.h"

#include <algorithm>
#include <iterator>

namespace gesso::headless {
namespace {

constexpr LONG MOST_CHILDREN = 10000;
constexpr int DEEPEST = 32; // should a thing be below itself
constexpr size_t MOST_LINES = 200;

enum class Look
{
    Visible, // at what is visible, window by window
    All
};

VARIANT IdOf(LONG child)
{
    VARIANT id{};
    V_VT(&id) = VT_I4;
    V_I4(&id) = child;
    return id;
}

AccessibleRef Held(IAccessible* object)
{
    const auto release = [](IAccessible* held) {
        if (held) {
            held->Release();
        }
    };
    return {object, release};
}

AccessibleRef Held(IUnknown* object)
{
    void* found = nullptr;
    if (object) {
        object->QueryInterface(IID_IAccessible, &found);
    }
    return Held(static_cast<IAccessible*>(found));
}

AccessibleRef PartOf(HWND hwnd, LONG part)
{
    const CallsBy platform(Caller::Platform);
    void* found = nullptr;
    AccessibleObjectFromWindow(hwnd, static_cast<DWORD>(part), IID_IAccessible, &found);
    return Held(static_cast<IAccessible*>(found));
}

HWND WindowOf(IAccessible& object)
{
    HWND hwnd = nullptr;
    WindowFromAccessibleObject(&object, &hwnd);
    return hwnd;
}

DWORD NumberIn(VARIANT value)
{
    const DWORD number = V_VT(&value) == VT_I4 ? static_cast<DWORD>(V_I4(&value)) : 0;
    VariantClear(&value);
    return number;
}

std::string NameOf(const Thing& thing)
{
    BSTR text = nullptr;
    thing.object->get_accName(thing.Id(), &text);
    std::string name = ToUtf8(View(text));
    SysFreeString(text);
    return name;
}

Thing Read(const AccessibleRef& object, LONG child, HWND hwnd, int depth)
{
    Thing thing{object, child, hwnd, depth, 0, 0, {}};
    VARIANT role{};
    object->get_accRole(thing.Id(), &role);
    thing.role = NumberIn(role);
    thing.state = StateNow(thing);
    thing.name = NameOf(thing);
    return thing;
}

std::vector<VARIANT> ChildrenOf(IAccessible& object)
{
    LONG count = 0;
    object.get_accChildCount(&count);
    std::vector<VARIANT> children(static_cast<size_t>(std::clamp(count, LONG{0}, MOST_CHILDREN)));
    LONG got = 0;
    if (!children.empty()) {
        const CallsBy platform(Caller::Platform);
        AccessibleChildren(&object, 0, static_cast<LONG>(children.size()), children.data(), &got);
    }
    children.resize(static_cast<size_t>(got));
    return children;
}

void Collect(const Thing& thing, Look look, Things& things);

void CollectBelow(const Thing& thing, Look look, Things& things)
{
    if (thing.child != CHILDID_SELF || thing.depth >= DEEPEST) {
        return;
    }
    for (VARIANT& child : ChildrenOf(*thing.object)) {
        const AccessibleRef object = V_VT(&child) == VT_DISPATCH ? Held(V_UNKNOWN(&child)) : nullptr;
        const LONG id = V_VT(&child) == VT_I4 ? V_I4(&child) : CHILDID_SELF;
        VariantClear(&child);
        const HWND hwnd = object ? WindowOf(*object) : thing.hwnd;
        const bool elsewhere = hwnd != thing.hwnd && look == Look::Visible; // looked at with its window
        if (object && !elsewhere) {
            Collect(Read(object, CHILDID_SELF, hwnd, thing.depth + 1), look, things);
        } else if (id != CHILDID_SELF) {
            Collect(Read(thing.object, id, hwnd, thing.depth + 1), look, things);
        }
    }
}

void Collect(const Thing& thing, Look look, Things& things)
{
    if (look == Look::All || !(thing.state & STATE_SYSTEM_INVISIBLE)) {
        things.push_back(thing);
        CollectBelow(thing, look, things);
    }
}

void CollectPart(HWND hwnd, LONG part, int depth, Things& things)
{
    if (const AccessibleRef object = PartOf(hwnd, part)) {
        Collect(Read(object, CHILDID_SELF, hwnd, depth), Look::Visible, things);
    }
}

std::vector<HWND> VisibleChildrenOf(HWND hwnd)
{
    const TableLock lock;
    std::vector<HWND> children;
    if (const WindowRef window = Peek(hwnd)) {
        for (const Window* child : window->children) {
            if (child->Has(WS_VISIBLE)) {
                children.push_back(child->handle);
            }
        }
    }
    return children;
}

void CollectWindow(HWND hwnd, int depth, Things& things)
{
    CollectPart(hwnd, OBJID_CLIENT, depth, things);
    CollectPart(hwnd, OBJID_VSCROLL, depth + 1, things);
    CollectPart(hwnd, OBJID_HSCROLL, depth + 1, things);
    for (const HWND child : VisibleChildrenOf(hwnd)) {
        CollectWindow(child, depth + 1, things);
    }
}

struct Word
{
    DWORD role;
    const char* word;
};

constexpr Word ROLES[] = {
    {ROLE_SYSTEM_TITLEBAR, "title bar"},
    {ROLE_SYSTEM_MENUBAR, "menu bar"},
    {ROLE_SYSTEM_SCROLLBAR, "scroll bar"},
    {ROLE_SYSTEM_GRIP, "grip"},
    {ROLE_SYSTEM_CARET, "caret"},
    {ROLE_SYSTEM_ALERT, "alert"},
    {ROLE_SYSTEM_WINDOW, "window"},
    {ROLE_SYSTEM_CLIENT, "client"},
    {ROLE_SYSTEM_MENUPOPUP, "menu popup"},
    {ROLE_SYSTEM_MENUITEM, "menu item"},
    {ROLE_SYSTEM_TOOLTIP, "tool tip"},
    {ROLE_SYSTEM_PANE, "pane"},
    {ROLE_SYSTEM_DIALOG, "dialog"},
    {ROLE_SYSTEM_GROUPING, "grouping"},
    {ROLE_SYSTEM_SEPARATOR, "separator"},
    {ROLE_SYSTEM_TOOLBAR, "tool bar"},
    {ROLE_SYSTEM_STATUSBAR, "status bar"},
    {ROLE_SYSTEM_TABLE, "table"},
    {ROLE_SYSTEM_COLUMNHEADER, "column header"},
    {ROLE_SYSTEM_ROW, "row"},
    {ROLE_SYSTEM_CELL, "cell"},
    {ROLE_SYSTEM_LINK, "link"},
    {ROLE_SYSTEM_LIST, "list"},
    {ROLE_SYSTEM_LISTITEM, "list item"},
    {ROLE_SYSTEM_OUTLINE, "outline"},
    {ROLE_SYSTEM_OUTLINEITEM, "outline item"},
    {ROLE_SYSTEM_PAGETAB, "page tab"},
    {ROLE_SYSTEM_PROPERTYPAGE, "property page"},
    {ROLE_SYSTEM_INDICATOR, "indicator"},
    {ROLE_SYSTEM_GRAPHIC, "graphic"},
    {ROLE_SYSTEM_STATICTEXT, "static text"},
    {ROLE_SYSTEM_TEXT, "text"},
    {ROLE_SYSTEM_PUSHBUTTON, "push button"},
    {ROLE_SYSTEM_CHECKBUTTON, "check button"},
    {ROLE_SYSTEM_RADIOBUTTON, "radio button"},
    {ROLE_SYSTEM_COMBOBOX, "combo box"},
    {ROLE_SYSTEM_DROPLIST, "drop list"},
    {ROLE_SYSTEM_PROGRESSBAR, "progress bar"},
    {ROLE_SYSTEM_SLIDER, "slider"},
    {ROLE_SYSTEM_SPINBUTTON, "spin button"},
    {ROLE_SYSTEM_PAGETABLIST, "page tab list"},
};

std::string WordOf(DWORD role)
{
    const auto found =
        std::find_if(std::begin(ROLES), std::end(ROLES), [&](const Word& word) { return word.role == role; });
    return found == std::end(ROLES) ? "role " + std::to_string(role) : found->word;
}

} // namespace

VARIANT Thing::Id() const
{
    return IdOf(child);
}

DWORD StateNow(const Thing& thing)
{
    VARIANT state{};
    thing.object->get_accState(thing.Id(), &state);
    return NumberIn(state);
}

// A window whose client area says nothing of itself but what it is called is looked at as a window.
Things ThingsIn(HWND top)
{
    Things things;
    CollectWindow(top, 0, things);
    if (!things.empty() && things[0].role == ROLE_SYSTEM_CLIENT) {
        if (const AccessibleRef window = PartOf(top, OBJID_WINDOW)) {
            things[0] = Read(window, CHILDID_SELF, top, 0);
        }
    }
    return things;
}

Things ThingsBelow(const Thing& thing)
{
    Things things;
    CollectBelow(thing, Look::All, things);
    return things;
}

std::string Described(DWORD role, std::string_view name)
{
    return WordOf(role) + " \"" + std::string(name) + '"';
}

std::string Described(const Things& things)
{
    std::string text;
    for (const Thing& thing : std::span(things).first(std::min(things.size(), MOST_LINES))) {
        text +=
            std::string(static_cast<size_t>(thing.depth + 1) * 2, ' ') + Described(thing.role, thing.name);
        text += thing.state & STATE_SYSTEM_UNAVAILABLE ? " (unavailable)\n" : "\n";
    }
    return things.size() > MOST_LINES ? text + "  ...\n" : text;
}

} // namespace gesso::headless
