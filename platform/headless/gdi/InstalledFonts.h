// The fonts that a test has installed, with the characters that they have.
#pragma once

#include "../core/Text.h"

#include <memory>

namespace gesso::headless {

struct InstalledFont
{
    WideText face;
    WideText ownName; // in the language of the machine
    std::vector<CodeRange> characters;
    FontShape shape;

    bool Has(char32_t c) const;
    bool IsNamed(WideView name) const;
};

// The font that a face is shown in; null while none is installed, and each face has every character.
std::shared_ptr<const InstalledFont> FontShownFor(const LOGFONTW& font);
void RemoveInstalledFonts();

} // namespace gesso::headless
