// Controls made while this lives have the given behaviour.
#pragma once

#include <gesso/framework/Behavior.h>

namespace test {

class WithBehavior
{
public:
    explicit WithBehavior(gesso::Behavior behavior) : m_former(gesso::GetBehavior())
    {
        gesso::SetBehavior(behavior);
    }
    ~WithBehavior() { gesso::SetBehavior(m_former); }
    WithBehavior(const WithBehavior&) = delete;
    WithBehavior& operator=(const WithBehavior&) = delete;

private:
    gesso::Behavior m_former;
};

class Modern : public WithBehavior
{
public:
    Modern() : WithBehavior(gesso::Behavior::Modern) {}
};

} // namespace test
