// What every public header starts from: the platform's declarations and the mark of an exported symbol.
#pragma once

#include <gesso/platform/platform.h>

#if defined(_WIN32)
#if defined(GESSO_BUILDING)
#define GESSO_API __declspec(dllexport)
#else
#define GESSO_API __declspec(dllimport)
#endif
#else
#define GESSO_API
#endif
