#include "../headless.h"

#include <cstdio>

namespace gesso::headless {

std::string MessageName(UINT message)
{
    if (const char* name = NameOfMessage(message)) {
        return name;
    }
    char number[16];
    std::snprintf(number, sizeof(number), "0x%04X", message);
    return number;
}

} // namespace gesso::headless
