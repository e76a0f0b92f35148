// Calls with bad arguments are answered, not stopped, while this lives.
#pragma once

#include <gesso/containers/Misuse.h>

namespace test {

class AllowMisuse
{
public:
    AllowMisuse() : m_fFormer(gesso::SetMisuseStops(false)) {}
    ~AllowMisuse() { gesso::SetMisuseStops(m_fFormer); }
    AllowMisuse(const AllowMisuse&) = delete;
    AllowMisuse& operator=(const AllowMisuse&) = delete;

private:
    bool m_fFormer;
};

} // namespace test
