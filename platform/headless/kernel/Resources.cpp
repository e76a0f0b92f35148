#include "Resources.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../core/Text.h"

#include <algorithm>
#include <array>
#include <compare>
#include <map>
#include <vector>

using namespace gesso::headless;

namespace {

constexpr UINT TABLE_SIZE = 16;
const LPCWSTR STRING_TABLE = MAKEINTRESOURCEW(6);

// A type or name: a number, or a text of which case does not count.
struct ResourceName
{
    uintptr_t id = 0;
    std::vector<wchar_t> text;

    auto operator<=>(const ResourceName&) const = default;
};

struct ResourceKey
{
    HMODULE module;
    ResourceName type;
    ResourceName name;

    auto operator<=>(const ResourceKey&) const = default;
};

using Bytes = std::vector<std::byte>;

std::map<ResourceKey, Bytes>& Store()
{
    static std::map<ResourceKey, Bytes> s_store;
    return s_store;
}

ResourceName NameOf(LPCWSTR name)
{
    if (IS_INTRESOURCE(name)) {
        return {reinterpret_cast<uintptr_t>(name), {}};
    }
    if (*name == L'#') {
        return {static_cast<uintptr_t>(_wtoi(name + 1)), {}};
    }
    std::vector<wchar_t> text(name, name + wcslen(name) + 1);
    _wcsupr(text.data());
    return {0, text};
}

ResourceKey KeyOf(HMODULE module, LPCWSTR type, LPCWSTR name)
{
    return {module ? module : HostModule(), NameOf(type), NameOf(name)};
}

// Says what is missing: the type, or only the name.
DWORD ErrorOf(const ResourceKey& missing)
{
    const TableLock lock;
    const auto next = Store().lower_bound({missing.module, missing.type, {}});
    const bool hasType =
        next != Store().end() && next->first.module == missing.module && next->first.type == missing.type;
    return hasType ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND;
}

using StringTable = std::array<std::vector<wchar_t>, TABLE_SIZE>;

// A table holds, for each of its texts, a count and that many units.
StringTable ReadTable(const Bytes& bytes)
{
    StringTable table;
    const auto* unit = reinterpret_cast<const wchar_t*>(bytes.data());
    const auto* end = unit + bytes.size() / sizeof(wchar_t);
    for (auto& text : table) {
        if (unit < end) {
            text.assign(unit + 1, unit + 1 + *unit);
            unit += 1 + *unit;
        }
    }
    return table;
}

Bytes WriteTable(const StringTable& table)
{
    std::vector<wchar_t> units;
    for (const auto& text : table) {
        units.push_back(static_cast<wchar_t>(text.size()));
        units.insert(units.end(), text.begin(), text.end());
    }
    const auto bytes = std::as_bytes(std::span(units));
    return {bytes.begin(), bytes.end()};
}

} // namespace

namespace gesso::headless {

void AddResource(HMODULE module, LPCWSTR type, LPCWSTR name, std::span<const std::byte> bytes)
{
    const TableLock lock;
    Store()[KeyOf(module, type, name)] = Bytes(bytes.begin(), bytes.end());
}

void AddString(HMODULE module, UINT id, std::string_view text)
{
    const TableLock lock;
    Bytes& bytes = Store()[KeyOf(module, STRING_TABLE, MAKEINTRESOURCEW(id / TABLE_SIZE + 1))];
    StringTable table = ReadTable(bytes);
    const WideText wide = FromUtf8(text);
    table[id % TABLE_SIZE].assign(wide.begin(), wide.end());
    bytes = WriteTable(table);
}

void RemoveResources(HMODULE module)
{
    const TableLock lock;
    std::erase_if(Store(), [module](const auto& entry) { return entry.first.module == module; });
    if (module == LibraryModule()) {
        AddLibraryResources();
    }
}

} // namespace gesso::headless

HRSRC WINAPI FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type)
{
    const TableLock lock;
    if (FaultFires("FindResourceW")) {
        return nullptr;
    }
    const ResourceKey key = KeyOf(module, type, name);
    const auto found = Store().find(key);
    if (found == Store().end()) {
        SetLastError(ErrorOf(key));
        return nullptr;
    }
    return reinterpret_cast<HRSRC>(&found->second);
}

HGLOBAL WINAPI LoadResource(HMODULE, HRSRC resource)
{
    if (FaultFires("LoadResource")) {
        return nullptr;
    }
    return resource ? reinterpret_cast<Bytes*>(resource)->data() : nullptr;
}

LPVOID WINAPI LockResource(HGLOBAL data)
{
    if (FaultFires("LockResource")) {
        return nullptr;
    }
    return data;
}

DWORD WINAPI SizeofResource(HMODULE, HRSRC resource)
{
    if (FaultFires("SizeofResource")) {
        return 0;
    }
    return resource ? static_cast<DWORD>(reinterpret_cast<Bytes*>(resource)->size()) : 0;
}

INT WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR to, INT size)
{
    if (FaultFires("LoadStringW")) {
        return 0;
    }
    const CallsBy platform(Caller::Platform);
    const HRSRC table = FindResourceW(module, MAKEINTRESOURCEW(id / TABLE_SIZE + 1), STRING_TABLE);
    if (!table || size <= 0) {
        return 0;
    }
    const auto text = ReadTable(*reinterpret_cast<Bytes*>(table))[id % TABLE_SIZE];
    const size_t length = std::min(text.size(), static_cast<size_t>(size) - 1);
    std::copy_n(text.begin(), length, to);
    to[length] = 0;
    return static_cast<INT>(length);
}
