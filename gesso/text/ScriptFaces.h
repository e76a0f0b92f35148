// Where the faces come from that may show what a font lacks: the registry, the platform's fonts for scripts,
// and what is installed.
#pragma once

#include <gesso/text/FallbackFonts.h>

#include <array>
#include <vector>

namespace gesso {

using FaceName = std::array<WCHAR, LF_FACESIZE>;

struct InstalledFace
{
    FaceName name;
    bool fBeyond; // bears the mark of fonts with characters beyond the first 65,536
};

// Those that FontLink\SystemLink names for a face, in its order; none if it names none. False if the platform
// does not tell.
bool LinkedFaces(LPCWSTR pszFace, std::vector<FaceName>& faces);

// The platform's fonts for a character, by the row of a table that it is in.
size_t ScriptFacesRow(char32_t c, HanStyle style);
std::vector<FaceName> ScriptFaces(size_t nRow);

// All that are installed, each once, those for plain reading first. False if the platform does not tell.
bool EnumerateFaces(HDC hdc, std::vector<InstalledFace>& faces);

} // namespace gesso
