// The user who finds things by what they are: Press, Fill, Choose, Expect.
#include "Things.h"

#include "../core/Faults.h"
#include "../windows/Queue.h"
#include "../windows/Timer.h"

#include <algorithm>
#include <cstdio>

namespace gesso::headless {
namespace {

constexpr DWORD PATIENCE = 5000;

void Settle()
{
    const TableLock lock;
    DispatchPending();
}

std::vector<HWND> VisibleTopLevels()
{
    const TableLock lock;
    std::vector<HWND> tops = OwnTopLevels();
    std::erase_if(tops, [](HWND top) { return !Peek(top)->Has(WS_VISIBLE); });
    return tops;
}

Things AllThings()
{
    Things all;
    for (const HWND top : VisibleTopLevels()) {
        if (IsWindow(top)) { // what the others say may end it
            Things things = ThingsIn(top);
            all.insert(all.end(), std::make_move_iterator(things.begin()),
                       std::make_move_iterator(things.end()));
        }
    }
    return all;
}

Things Matching(Things things, Role role, std::string_view name)
{
    std::erase_if(things, [&](const Thing& thing) {
        return thing.role != static_cast<DWORD>(role) || thing.name != name;
    });
    return things;
}

Things Search(Role role, std::string_view name)
{
    const HWND active = GetActiveWindow();
    Things found;
    if (active && IsWindowVisible(active) && IsWindowEnabled(active)) {
        found = Matching(ThingsIn(active), role, name);
    }
    return found.empty() ? Matching(AllThings(), role, name) : found;
}

// Moves the clock on to the next timer, if it is due by then.
bool Wait(ULONGLONG end)
{
    std::optional<uint64_t> due;
    {
        const TableLock lock;
        due = NextDue(TheDesktop());
    }
    if (!due || *due > end) {
        return false;
    }
    Advance(static_cast<DWORD>(std::max(*due, Now()) - Now()));
    return true;
}

bool Refuse(const char* operation, const std::string& reason)
{
    std::fprintf(stderr, "headless::%s: %s\n", operation, reason.c_str());
    return false;
}

// The only such thing, once there is one.
std::optional<Thing> Only(const char* operation, Role role, std::string_view name)
{
    const ULONGLONG end = Now() + PATIENCE;
    Settle();
    Things found = Search(role, name);
    while (found.empty() && Wait(end)) {
        found = Search(role, name);
    }
    if (found.size() == 1) {
        return std::move(found.front());
    }
    const std::string what = Described(static_cast<DWORD>(role), name);
    const std::string count = found.empty() ? "there is no " : "there is more than one ";
    Refuse(operation, count + what + "; what can be seen is\n" + Described(AllThings()));
    return std::nullopt;
}

bool IsAble(const Thing& thing)
{
    if (StateNow(thing) & STATE_SYSTEM_UNAVAILABLE) {
        return false;
    }
    const TableLock lock;
    const WindowRef window = Peek(thing.hwnd);
    return !window || IsUsable(*window);
}

// The only such thing, if the user can act on it.
std::optional<Thing> Target(const char* operation, Role role, std::string_view name)
{
    std::optional<Thing> thing = Only(operation, role, name);
    if (thing && !IsAble(*thing)) {
        Refuse(operation, Described(thing->role, thing->name) + " is unavailable");
        return std::nullopt;
    }
    return thing;
}

bool Act(const Thing& thing)
{
    return thing.object->accDoDefaultAction(thing.Id()) == S_OK;
}

bool Select(const Thing& thing)
{
    return thing.object->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, thing.Id()) == S_OK;
}

bool IsItem(const Thing& thing)
{
    switch (thing.role) {
    case ROLE_SYSTEM_LISTITEM:
    case ROLE_SYSTEM_OUTLINEITEM:
    case ROLE_SYSTEM_MENUITEM:
    case ROLE_SYSTEM_PAGETAB:
    case ROLE_SYSTEM_RADIOBUTTON: return true;
    default: return false;
    }
}

Things Items(Things things, std::string_view name)
{
    std::erase_if(things, [&](const Thing& thing) { return !IsItem(thing) || thing.name != name; });
    return things;
}

// The list of an open combo box may be elsewhere on the screen.
Things ItemsOf(const Thing& container, std::string_view name)
{
    Things items = Items(ThingsBelow(container), name);
    const bool elsewhere = items.empty() && container.role == ROLE_SYSTEM_COMBOBOX;
    return elsewhere ? Items(AllThings(), name) : items;
}

bool IsSelectedInPlace(const Thing& container)
{
    return container.role == ROLE_SYSTEM_LIST || container.role == ROLE_SYSTEM_OUTLINE;
}

// Chooses the item of a list that lies open.
bool Pick(const Thing& container, std::string_view name)
{
    const Things items = ItemsOf(container, name);
    const std::string within = Described(container.role, container.name);
    if (items.size() != 1) {
        return Refuse("Choose", within + (items.empty() ? " has no item \"" : " has more than one item \"") +
                                    std::string(name) + "\"; it has\n" + Described(ThingsBelow(container)));
    }
    const Thing& item = items.front();
    if (!IsAble(item)) {
        return Refuse("Choose", Described(item.role, item.name) + " is unavailable");
    }
    const bool done = IsSelectedInPlace(container) ? Select(item) || Act(item) : Act(item) || Select(item);
    return done || Refuse("Choose", Described(item.role, item.name) + " cannot be chosen");
}

bool PickAndClose(const Thing& container, std::string_view name)
{
    const bool picked = Pick(container, name);
    if (StateNow(container) & STATE_SYSTEM_EXPANDED) {
        Act(container);
    }
    return picked;
}

// Opens a combo box to choose from it. What opens may run a loop of its own: the choice is made there, before
// anything that the test wants done when nothing else is to be done.
bool OpenAndPick(const Thing& container, std::string_view name)
{
    std::optional<bool> picked;
    const auto pick = [&] { picked = PickAndClose(container, name); };
    {
        const TableLock lock;
        TheDesktop().idleActions.emplace_front(pick);
    }
    const bool opened = Act(container);
    Settle();
    if (!picked) {
        {
            const TableLock lock;
            TheDesktop().idleActions.pop_front();
        }
        opened ? pick()
               : void(Refuse("Choose", Described(container.role, container.name) + " does not open"));
    }
    return picked.value_or(false);
}

BSTR MakeString(std::string_view text)
{
    const CallsBy platform(Caller::Platform);
    const WideText wide = FromUtf8(text);
    return SysAllocStringLen(Characters(wide), static_cast<UINT>(wide.size()));
}

} // namespace

bool Press(Role role, std::string_view name)
{
    const auto thing = Target("Press", role, name);
    if (!thing) {
        return false;
    }
    const bool done = Act(*thing);
    Settle();
    return done || Refuse("Press", Described(thing->role, name) + " does nothing when it is pressed");
}

bool Fill(Role role, std::string_view name, std::string_view text)
{
    const auto thing = Target("Fill", role, name);
    if (!thing) {
        return false;
    }
    thing->object->accSelect(SELFLAG_TAKEFOCUS, thing->Id());
    const BSTR value = MakeString(text);
    const bool done = thing->object->put_accValue(thing->Id(), value) == S_OK;
    SysFreeString(value);
    Settle();
    return done || Refuse("Fill", Described(thing->role, name) + " takes no text");
}

bool Choose(Role role, std::string_view name, std::string_view item)
{
    const auto thing = Target("Choose", role, name);
    if (!thing) {
        return false;
    }
    const bool done =
        thing->state & STATE_SYSTEM_COLLAPSED ? OpenAndPick(*thing, item) : PickAndClose(*thing, item);
    Settle();
    return done;
}

bool Expect(Role role, std::string_view name)
{
    return Only("Expect", role, name).has_value();
}

} // namespace gesso::headless
