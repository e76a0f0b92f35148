// What the simulated visual style says about its classes, parts and states.
#pragma once

#include "../headless.h"

#include <optional>

namespace gesso::headless {

bool ThemesActive();
bool AreThemeHandlesShared();
bool IsThemeClassAvailable(const std::string& themeClass);
bool IsThemePartAvailable(const std::string& themeClass, int part);

// What was set for the state, else for state 0, else the style's own value, if it has one.
std::optional<MARGINS> FindThemeMargins(const std::string& themeClass, int part, int state, int property);
std::optional<SIZE> FindThemePartSize(const std::string& themeClass, int part, int state);
std::optional<COLORREF> FindThemeColor(const std::string& themeClass, int part, int state, int property);
std::optional<int> FindThemeInt(const std::string& themeClass, int part, int state, int property);
std::optional<LOGFONTW> FindThemeFont(const std::string& themeClass, int part, int state, int property);

// Puts the style back to its own values.
void ResetThemeData();

} // namespace gesso::headless
