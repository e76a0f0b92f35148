#include "Faults.h"

#include <map>

namespace gesso::headless {
namespace {

struct Fault
{
    int skip;
    int times;
    DWORD error;
};

std::map<std::string, Fault, std::less<>>& Faults()
{
    static std::map<std::string, Fault, std::less<>> s_faults;
    return s_faults;
}

} // namespace

void Fail(std::string_view operation, int times, DWORD error, int skip)
{
    Faults()[std::string(operation)] = {skip, times, error};
}

void ClearFaults()
{
    Faults().clear();
}

bool FaultFires(const char* operation)
{
    const auto found = Faults().find(std::string_view(operation));
    if (found == Faults().end()) {
        return false;
    }
    Fault& fault = found->second;
    if (fault.skip > 0) {
        --fault.skip;
        return false;
    }
    SetLastError(fault.error);
    if (--fault.times <= 0) {
        Faults().erase(found);
    }
    return true;
}

} // namespace gesso::headless
