// The library's own module: the source of its resources. Stored by the entry point.
#pragma once

#include <gesso/api.h>

extern HMODULE g_hModule;
