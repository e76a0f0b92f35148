#include "Accounting.h"
#include "TableLock.h"

#include <ostream>
#include <unordered_set>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define GESSO_ADDRESS_SANITIZER
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define GESSO_ADDRESS_SANITIZER
#endif
#if defined(GESSO_ADDRESS_SANITIZER)
#include <sanitizer/lsan_interface.h>
#endif

namespace gesso::headless {
namespace {

constexpr const char* NAMES[] = {"windows",
                                 "device contexts",
                                 "bitmaps",
                                 "fonts",
                                 "pens",
                                 "brushes",
                                 "themes",
                                 "regions",
                                 "timers",
                                 "hooks",
                                 "script caches",
                                 "image lists",
                                 "icons",
                                 "menus",
                                 "activation contexts",
                                 "global memory",
                                 "accessible objects",
                                 "basic strings",
                                 "event hooks"};
static_assert(std::size(NAMES) == static_cast<size_t>(Kind::Count));

using Objects = std::unordered_set<const void*>;

Objects& ObjectsOf(Kind kind)
{
    // Never destroyed: what a program has not given back at its end is the census's to tell, not the heap's.
    static auto& s_objects = *new std::array<Objects, static_cast<size_t>(Kind::Count)>;
    return s_objects[static_cast<size_t>(kind)];
}

} // namespace

void Track(Kind kind, const void* object)
{
    const TableLock lock;
    ObjectsOf(kind).insert(object);
}

bool Untrack(Kind kind, const void* object)
{
    const TableLock lock;
    return ObjectsOf(kind).erase(object) != 0;
}

bool IsLive(Kind kind, const void* object)
{
    const TableLock lock;
    return ObjectsOf(kind).contains(object);
}

Census Live()
{
    const TableLock lock;
    Census census;
    for (size_t i = 0; i < census.counts.size(); ++i) {
        census.counts[i] = static_cast<int>(ObjectsOf(static_cast<Kind>(i)).size());
    }
    return census;
}

std::ostream& operator<<(std::ostream& out, const Census& census)
{
    const char* separator = "";
    for (size_t i = 0; i < census.counts.size(); ++i) {
        if (census.counts[i] != 0) {
            out << separator << census.counts[i] << ' ' << NAMES[i];
            separator = ", ";
        }
    }
    return *separator ? out : out << "nothing";
}

bool HeapIsClean()
{
#if defined(GESSO_ADDRESS_SANITIZER)
    return __lsan_do_recoverable_leak_check() == 0;
#else
    return true;
#endif
}

} // namespace gesso::headless
