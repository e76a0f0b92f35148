// The platform's operations for interfaces and their texts, looked up when somebody first asks for a
// control's description: a program that nobody asks loads none of their libraries.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Null members are there in no platform that has the others; all is null where the libraries cannot be had.
struct OleApi
{
    decltype(&::LresultFromObject) pfnLresultFromObject;
    decltype(&::AccessibleObjectFromWindow) pfnObjectFromWindow;
    decltype(&::WindowFromAccessibleObject) pfnWindowFromObject;
    decltype(&::AccessibleChildren) pfnChildren;
    decltype(&::SysAllocStringLen) pfnAllocString;
    decltype(&::SysFreeString) pfnFreeString;
    decltype(&::VariantClear) pfnClearVariant;
    decltype(&::LoadRegTypeLib) pfnLoadTypeLibrary;
    decltype(&::CoDisconnectObject) pfnDisconnect;
};

// Null where the platform lacks any of it.
const OleApi* FindOleApi();
// The same, but only where somebody has asked before.
const OleApi* LoadedOleApi();

// The platform's interfaces by their numbers: of the libraries that have them some give a jump in their
// place.
inline constexpr GUID ID_UNKNOWN{0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID ID_DISPATCH{0x00020400, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID ID_ENUM_VARIANT{0x00020404, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID ID_OLE_WINDOW{0x00000114, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID ID_ACCESSIBLE{
    0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
inline constexpr GUID ID_ACCESSIBILITY_LIBRARY{
    0x1EA4DBF0, 0x3C3B, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};

bool IsSameId(const GUID& a, const GUID& b);

} // namespace gesso
