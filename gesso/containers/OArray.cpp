#include <gesso/containers/OArray.h>

static_assert(sizeof(OArray<void*, void* const&>) == 24, "a pointer and three words");

GESSO_EXPORTED_ARRAYS(GESSO_DEFINE_ARRAY)
