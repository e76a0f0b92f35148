#include <gesso/framework/DrawScope.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/text/FallbackFonts.h>
#include <gesso/text/FontCoverage.h>
#include <gesso/text/ScriptFaces.h>

#include <algorithm>
#include <map>
#include <memory>
#include <new>
#include <unordered_map>
#include <vector>

namespace gesso {
namespace {

using Places = std::vector<size_t>; // of faces, among those that are known

// All that has been found out. Everything in here is done by one thread at a time.
class KnownFonts
{
public:
    bool Find(const FontRequest& request, const AcceptFace& accept);

private:
    static constexpr size_t NOWHERE = static_cast<size_t>(-1);
    static constexpr size_t MOST_FOUND = 8192;

    bool Offer(size_t nFace, const FontRequest& request, const AcceptFace& accept);
    bool IsAccepted(size_t nFace, const AcceptFace& accept);
    size_t Search(const FontRequest& request, const AcceptFace& accept);
    const Places& LinkedTo(LPCWSTR pszFace);
    const Places& OfScript(char32_t c, HanStyle style);
    const Places& Installed(HDC hdc);
    size_t PlaceOf(LPCWSTR pszFace);
    Places PlacesOf(const std::vector<FaceName>& faces);

    std::vector<FontCoverage> m_fonts;
    std::map<size_t, Places> m_linked;
    std::map<size_t, Places> m_ofScript;
    Places m_installed;
    bool m_fEnumerated = false;
    bool m_fUntold = false; // the platform failed in this search
    std::unordered_map<uint64_t, size_t> m_found;
};

bool KnownFonts::Offer(size_t nFace, const FontRequest& request, const AcceptFace& accept)
{
    const auto isThere = [&](char32_t c) {
        const Told told = m_fonts[nFace].Has(request.hdc, c, request.analysis);
        m_fUntold = m_fUntold || told == Told::Nothing;
        return told == Told::Yes;
    };
    return std::all_of(request.characters.begin(), request.characters.end(), isThere) &&
           IsAccepted(nFace, accept);
}

bool KnownFonts::IsAccepted(size_t nFace, const AcceptFace& accept)
{
    const Told told = accept(m_fonts[nFace].Face());
    m_fUntold = m_fUntold || told == Told::Nothing;
    return told == Told::Yes;
}

bool KnownFonts::Find(const FontRequest& request, const AcceptFace& accept)
{
    if (request.characters.size() != 1) {
        return Search(request, accept) != NOWHERE;
    }
    constexpr int CHARACTER_BITS = 21;
    const bool fPlain = request.analysis.eScript == SCRIPT_UNDEFINED;
    const uint64_t font =
        PlaceOf(request.base.szFace) << 3 | uint64_t{fPlain} << 2 | static_cast<uint64_t>(request.style);
    const uint64_t key = font << CHARACTER_BITS | request.characters.front();
    const auto known = m_found.find(key);
    if (known != m_found.end() && (known->second == NOWHERE || IsAccepted(known->second, accept))) {
        return known->second != NOWHERE;
    }
    const size_t nFace = Search(request, accept);
    if (nFace != NOWHERE || !m_fUntold) {
        if (m_found.size() >= MOST_FOUND) {
            m_found.clear();
        }
        m_found[key] = nFace;
    }
    return nFace != NOWHERE;
}

// Lists of faces are fetched one after the other: most characters are found in the first two.
size_t KnownFonts::Search(const FontRequest& request, const AcceptFace& accept)
{
    m_fUntold = false;
    const auto find = [&](const Places& places) {
        const auto found = std::find_if(places.begin(), places.end(),
                                        [&](size_t nFace) { return Offer(nFace, request, accept); });
        return found == places.end() ? NOWHERE : *found;
    };
    size_t nFound = find(LinkedTo(request.base.szFace));
    if (nFound == NOWHERE) {
        nFound = find(OfScript(request.characters.front(), request.style));
    }
    return nFound == NOWHERE ? find(Installed(request.hdc)) : nFound;
}

const Places& KnownFonts::LinkedTo(LPCWSTR pszFace)
{
    const auto [entry, fNew] = m_linked.try_emplace(PlaceOf(pszFace));
    if (fNew) {
        entry->second = PlacesOf(LinkedFaces(pszFace));
    }
    return entry->second;
}

const Places& KnownFonts::OfScript(char32_t c, HanStyle style)
{
    const auto [entry, fNew] = m_ofScript.try_emplace(ScriptFacesRow(c, style));
    if (fNew) {
        entry->second = PlacesOf(ScriptFaces(entry->first));
    }
    return entry->second;
}

const Places& KnownFonts::Installed(HDC hdc)
{
    if (!m_fEnumerated) {
        std::vector<InstalledFace> faces;
        m_fEnumerated = EnumerateFaces(hdc, faces);
        m_fUntold = m_fUntold || !m_fEnumerated;
        for (const InstalledFace& face : faces) {
            m_installed.push_back(PlaceOf(face.name.data()));
            m_fonts[m_installed.back()].SetBeyond(face.fBeyond);
        }
    }
    return m_installed;
}

size_t KnownFonts::PlaceOf(LPCWSTR pszFace)
{
    const auto found = std::find_if(m_fonts.begin(), m_fonts.end(), [pszFace](const FontCoverage& font) {
        return _wcsicmp(font.Face(), pszFace) == 0;
    });
    const auto nPlace = static_cast<size_t>(found - m_fonts.begin());
    if (found == m_fonts.end()) {
        m_fonts.emplace_back(pszFace);
    }
    return nPlace;
}

Places KnownFonts::PlacesOf(const std::vector<FaceName>& faces)
{
    Places places;
    for (const FaceName& face : faces) {
        places.push_back(PlaceOf(face.data()));
    }
    return places;
}

constinit SRWLOCK s_lock = SRWLOCK_INIT;
constinit KnownFonts* s_pKnown = nullptr;

struct IgnorableRange
{
    char32_t first;
    char32_t last;
};
constexpr IgnorableRange IGNORABLE[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F},   {0x00AD, 0x00AD},   {0x034F, 0x034F},   {0x061C, 0x061C},
    {0x115F, 0x1160}, {0x17B4, 0x17B5},   {0x180B, 0x180F},   {0x200B, 0x200F},   {0x2028, 0x202E},
    {0x2060, 0x206F}, {0x3164, 0x3164},   {0xFE00, 0xFE0F},   {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0},
    {0xFFF0, 0xFFF8}, {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
};

} // namespace

HanStyle HanStyleOf(LPCWSTR pszText, UINT nChars)
{
    HanStyle style = HanStyle::Chinese;
    for (UINT n = 0; n < nChars; ++n) {
        const wchar_t c = pszText[n];
        if (c >= 0x3040 && c <= 0x30FF) {
            return HanStyle::Japanese;
        }
        if (c >= 0xAC00 && c <= 0xD7A3) {
            style = HanStyle::Korean;
        } else if (c >= 0x3100 && c <= 0x312F) {
            style = HanStyle::Taiwanese;
        }
    }
    return style;
}

bool FindFallbackFace(const FontRequest& request, const AcceptFace& accept)
{
    const ScopedLock lock(s_lock);
    if (!s_pKnown) {
        s_pKnown = new KnownFonts;
    }
    return s_pKnown->Find(request, accept);
}

void ForgetFallbackFonts()
{
    const ScopedLock lock(s_lock);
    delete std::exchange(s_pKnown, nullptr);
}

bool IsIgnorable(char32_t c)
{
    const auto* const found = std::lower_bound(
        std::begin(IGNORABLE), std::end(IGNORABLE), c,
        [](const IgnorableRange& range, char32_t character) { return range.last < character; });
    return found != std::end(IGNORABLE) && c >= found->first;
}

} // namespace gesso
