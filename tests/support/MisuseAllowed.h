// Lets a test look at the safe answers to calls that break a contract.
#pragma once

#include <gesso/containers/Misuse.h>

// Answers misuse safely instead of stopping, while it lives.
class MisuseAllowed
{
public:
    MisuseAllowed() : m_fFormer(gesso::SetMisuseStops(false)) {}
    ~MisuseAllowed() { gesso::SetMisuseStops(m_fFormer); }
    MisuseAllowed(const MisuseAllowed&) = delete;
    MisuseAllowed& operator=(const MisuseAllowed&) = delete;

private:
    bool m_fFormer;
};
