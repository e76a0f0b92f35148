// Faults that a test has ordered, looked up by the operations that can fail.
#pragma once

#include "FaultTable.h"

namespace gesso::headless {

inline constexpr size_t FALLIBLE_COUNT = std::size(FALLIBLE_OPERATIONS);

// The place of an operation in the table; FALLIBLE_COUNT for a name that is not in it.
constexpr size_t PlaceInTable(std::string_view name)
{
    size_t place = 0;
    while (place < FALLIBLE_COUNT && FALLIBLE_OPERATIONS[place].name != name) {
        ++place;
    }
    return place;
}

// An operation that can fail, by its name; one that is not in the table does not compile.
class Operation
{
public:
    consteval Operation(const char* name) : m_place(PlaceInTable(name))
    {
        if (m_place == FALLIBLE_COUNT) {
            throw "not in the table of operations that can fail";
        }
    }

    size_t Place() const { return m_place; }
    std::string_view Name() const { return FALLIBLE_OPERATIONS[m_place].name; }

private:
    size_t m_place;
};

// True if this call of the operation is to fail; the last error is then set, and the operation returns its
// failure value without doing anything.
bool FaultFires(Operation operation);

// What an operation that answers by HRESULT returns where its fault has fired. A fault without an error fails
// all the same.
HRESULT FaultResult();

// Whose code runs. Only the program's calls fail: what the platform asks of itself on the way goes through.
enum class Caller
{
    Program,
    Platform
};

class CallsBy
{
public:
    explicit CallsBy(Caller caller);
    ~CallsBy();
    CallsBy(const CallsBy&) = delete;
    CallsBy& operator=(const CallsBy&) = delete;

private:
    Caller m_former;
};

} // namespace gesso::headless
