#include <gesso/framework/MakeOnce.h>

namespace gesso {

constinit SRWLOCK g_makeOnceLock = SRWLOCK_INIT;

} // namespace gesso
