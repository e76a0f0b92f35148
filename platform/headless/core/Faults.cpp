#include "Faults.h"
#include "TableLock.h"

#include <cstdio>
#include <map>
#include <utility>

namespace gesso::headless {
namespace {

struct Fault
{
    int skip;
    int times;
    DWORD error;
    bool fired = false;
};

// By place in the table. Each thread orders its own.
std::map<size_t, Fault>& Faults()
{
    thread_local std::map<size_t, Fault> s_faults;
    return s_faults;
}

constinit thread_local Caller s_caller = Caller::Program;

} // namespace

std::span<const FallibleOperation> FallibleOperations()
{
    return FALLIBLE_OPERATIONS;
}

void Fail(std::string_view operation, int times, DWORD error, int skip)
{
    const size_t place = PlaceInTable(operation);
    if (place == FALLIBLE_COUNT) {
        std::fprintf(stderr,
                     "headless::Fail: '%.*s' is no operation that can fail here; see docs/headless.md\n",
                     static_cast<int>(operation.size()), operation.data());
        std::abort();
    }
    const TableLock lock;
    Faults()[place] = {skip, times, error};
}

std::vector<std::string> PendingFaults()
{
    const TableLock lock;
    std::vector<std::string> pending;
    for (const auto& [place, fault] : Faults()) {
        if (!fault.fired) {
            pending.emplace_back(FALLIBLE_OPERATIONS[place].name);
        }
    }
    return pending;
}

void ClearFaults()
{
    const TableLock lock;
    Faults().clear();
}

bool FaultFires(Operation operation)
{
    const TableLock lock;
    if (s_caller == Caller::Platform || Faults().empty()) {
        return false;
    }
    const auto found = Faults().find(operation.Place());
    if (found == Faults().end()) {
        return false;
    }
    Fault& fault = found->second;
    if (fault.skip > 0) {
        --fault.skip;
        return false;
    }
    fault.fired = true;
    SetLastError(fault.error);
    if (--fault.times <= 0) {
        Faults().erase(found);
    }
    return true;
}

HRESULT FaultResult()
{
    const DWORD error = GetLastError();
    return error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error);
}

CallsBy::CallsBy(Caller caller) : m_former(std::exchange(s_caller, caller)) {}

CallsBy::~CallsBy()
{
    s_caller = m_former;
}

} // namespace gesso::headless
