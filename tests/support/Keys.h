// Keys that are held, as messages that are sent see them.
#pragma once

#include <platform/platform.h>

#include <initializer_list>

namespace test {

// Lets GetKeyState answer that just these keys are down, until it is told otherwise. 0 is none.
inline void HoldKeys(std::initializer_list<int> keys)
{
    constexpr BYTE DOWN = 0x80;
    BYTE states[256]{};
    for (const int nKey : keys) {
        states[nKey] = nKey ? DOWN : BYTE{0};
    }
    SetKeyboardState(states);
}

// The same while it lives.
class HeldKeys
{
public:
    explicit HeldKeys(std::initializer_list<int> keys) { HoldKeys(keys); }
    ~HeldKeys() { HoldKeys({}); }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
};

} // namespace test
