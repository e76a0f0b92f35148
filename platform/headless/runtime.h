// The C runtime's wide operations for 16-bit characters, under the platform's names.
//
// The Linux runtime reads wide characters as 32 bits. Each operation that the library uses is therefore defined
// here, and its name redirected, so that sources read as on Windows.
#pragma once

size_t gesso_wcslen(const wchar_t* s);

#undef wcslen
#define wcslen gesso_wcslen
