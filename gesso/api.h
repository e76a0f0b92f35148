// What every public header starts from: the platform's declarations and the mark of an exported symbol.
#pragma once

#include <gesso/platform/platform.h>

// Of fields and bases that are the library's own that compiler would tell in each host.
#if defined(_MSC_VER) && !defined(__clang__)
#pragma warning(disable : 4251 4275)
#endif

#if defined(_WIN32)
#if defined(GESSO_BUILDING)
#define GESSO_API __declspec(dllexport)
#else
#define GESSO_API __declspec(dllimport)
#endif
#else
#define GESSO_API
#endif

// Where an explicit instantiation says that it is exported: compilers with Microsoft's interface take that
// from the definition, the others from the declaration.
#if defined(_MSC_VER) && defined(GESSO_BUILDING)
#define GESSO_API_DECLARED
#define GESSO_API_DEFINED GESSO_API
#else
#define GESSO_API_DECLARED GESSO_API
#define GESSO_API_DEFINED
#endif

// Code of the headers is the host's, which may be built without exceptions.
#if defined(__cpp_exceptions)
#define GESSO_THROW(exception, otherwise) throw exception
#else
#define GESSO_THROW(exception, otherwise) otherwise
#endif
