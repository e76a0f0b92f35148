#include "Registry.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../core/Text.h"

#include <map>

namespace gesso::headless {
namespace {

struct Value
{
    HKEY root;
    DWORD type;
    std::string bytes;
};

using ValueName = std::pair<WideText, WideText>; // the key below the root, and the value

struct IgnoringCase
{
    bool operator()(const ValueName& a, const ValueName& b) const
    {
        const int keys = _wcsicmp(Characters(a.first), Characters(b.first));
        return keys != 0 ? keys < 0 : _wcsicmp(Characters(a.second), Characters(b.second)) < 0;
    }
};

std::map<ValueName, Value, IgnoringCase>& Values()
{
    static std::map<ValueName, Value, IgnoringCase> s_values;
    return s_values;
}

} // namespace

void SetRegistryTexts(std::string_view key, std::string_view value, const std::vector<std::string>& texts)
{
    WideText all;
    for (const std::string& text : texts) {
        all += FromUtf8(text) + u'\0';
    }
    const TableLock lock;
    all += u'\0';
    Values()[{FromUtf8(key), FromUtf8(value)}] = {
        HKEY_LOCAL_MACHINE, REG_MULTI_SZ,
        std::string(reinterpret_cast<const char*>(all.data()), all.size() * sizeof(WCHAR))};
}

void SetRegistryNumber(std::string_view key, std::string_view value, DWORD number)
{
    const TableLock lock;
    Values()[{FromUtf8(key), FromUtf8(value)}] = {
        HKEY_CURRENT_USER, REG_DWORD, std::string(reinterpret_cast<const char*>(&number), sizeof(number))};
}

void ClearRegistry()
{
    const TableLock lock;
    Values().clear();
}

} // namespace gesso::headless

using namespace gesso::headless;

LSTATUS WINAPI RegGetValueW(HKEY key, LPCWSTR subKey, LPCWSTR value, DWORD flags, LPDWORD type, PVOID data,
                            LPDWORD size)
{
    if (FaultFires("RegGetValueW")) {
        return static_cast<LSTATUS>(GetLastError());
    }
    const TableLock lock;
    const auto found = Values().find({WideText(View(subKey)), WideText(View(value))});
    if (found == Values().end() || key != found->second.root) {
        return ERROR_FILE_NOT_FOUND;
    }
    if (!(flags & (found->second.type == REG_DWORD ? RRF_RT_REG_DWORD : RRF_RT_REG_MULTI_SZ))) {
        return ERROR_UNSUPPORTED_TYPE;
    }
    const auto needed = static_cast<DWORD>(found->second.bytes.size());
    const DWORD room = size ? *size : 0;
    if (type) {
        *type = found->second.type;
    }
    if (size) {
        *size = needed;
    }
    if (data && room < needed) {
        return ERROR_MORE_DATA;
    }
    if (data) {
        memcpy(data, found->second.bytes.data(), needed);
    }
    return ERROR_SUCCESS;
}
