#include <gesso/list/GListNotify.h>

namespace gesso {
namespace {

constexpr SHORT KEY_DOWN = 0x80;

UINT FlagOf(int vKey, UINT uFlag)
{
    return GetKeyState(vKey) & KEY_DOWN ? uFlag : 0;
}

} // namespace

UINT ModifierFlags()
{
    return FlagOf(VK_MENU, LVKF_ALT) | FlagOf(VK_CONTROL, LVKF_CONTROL) | FlagOf(VK_SHIFT, LVKF_SHIFT);
}

} // namespace gesso
