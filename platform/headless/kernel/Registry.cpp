#include "Registry.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../core/Text.h"

#include <map>

namespace gesso::headless {
namespace {

using ValueName = std::pair<WideText, WideText>; // the key below HKEY_LOCAL_MACHINE, and the value

struct IgnoringCase
{
    bool operator()(const ValueName& a, const ValueName& b) const
    {
        const int keys = _wcsicmp(Characters(a.first), Characters(b.first));
        return keys != 0 ? keys < 0 : _wcsicmp(Characters(a.second), Characters(b.second)) < 0;
    }
};

std::map<ValueName, WideText, IgnoringCase>& Values()
{
    static std::map<ValueName, WideText, IgnoringCase> s_values;
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
    Values()[{FromUtf8(key), FromUtf8(value)}] = all + u'\0';
}

void ClearRegistry()
{
    const TableLock lock;
    Values().clear();
}

} // namespace gesso::headless

using namespace gesso::headless;

// Values of several texts, which are all that there are.
LSTATUS WINAPI RegGetValueW(HKEY key, LPCWSTR subKey, LPCWSTR value, DWORD, LPDWORD type, PVOID data,
                            LPDWORD size)
{
    if (FaultFires("RegGetValueW")) {
        return static_cast<LSTATUS>(GetLastError());
    }
    const TableLock lock;
    const auto found = Values().find({WideText(View(subKey)), WideText(View(value))});
    if (key != HKEY_LOCAL_MACHINE || found == Values().end()) {
        return ERROR_FILE_NOT_FOUND;
    }
    const auto needed = static_cast<DWORD>(found->second.size() * sizeof(WCHAR));
    const DWORD room = size ? *size : 0;
    if (type) {
        *type = REG_MULTI_SZ;
    }
    if (size) {
        *size = needed;
    }
    if (data && room < needed) {
        return ERROR_MORE_DATA;
    }
    if (data) {
        memcpy(data, found->second.data(), needed);
    }
    return ERROR_SUCCESS;
}
