#include <gesso/framework/FontChange.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/text/FallbackFonts.h>
#include <gesso/text/FontCoverage.h>
#include <gesso/text/ScriptFaces.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace gesso {
namespace {

using Places = std::vector<size_t>; // of faces, among those that are known

// All that has been found out of one device's fonts. Everything in here is done by one thread at a time.
class KnownFonts
{
public:
    bool Find(const FontRequest& request, const AcceptFace& accept);

private:
    using Key = std::u32string;
    static constexpr size_t NOWHERE = static_cast<size_t>(-1);
    static constexpr size_t MOST_FOUND = 8192;
    // A search ends after so many fonts that have the characters and yet do not show them.
    static constexpr int MOST_TRIED = 32;

    Key KeyOf(const FontRequest& request);
    bool Offer(size_t nFace, const FontRequest& request, const AcceptFace& accept);
    bool IsAccepted(size_t nFace, const AcceptFace& accept);
    size_t Search(const FontRequest& request, const AcceptFace& accept);
    void Remember(const Key& key, size_t nFace);
    Places LinkedTo(LPCWSTR pszFace);
    Places LinkedTo(const BaseFont& base);
    const Places& OfScript(char32_t c, HanStyle style);
    const Places& Installed(HDC hdc, bool fBeyond);
    void TakeInstalled(const std::vector<InstalledFace>& faces);
    size_t PlaceOf(LPCWSTR pszFace);
    Places PlacesOf(const std::vector<FaceName>& faces);

    std::vector<FontCoverage> m_fonts;
    std::map<size_t, Places> m_linked;
    std::map<size_t, Places> m_ofScript;
    Places m_installed;
    Places m_installedBeyond; // for characters beyond the first 65,536
    bool m_fEnumerated = false;
    bool m_fUntold = false; // the platform failed in this search
    int m_nTries = 0;
    std::unordered_map<Key, size_t> m_found;
};

bool KnownFonts::Offer(size_t nFace, const FontRequest& request, const AcceptFace& accept)
{
    const auto isThere = [&](char32_t c) {
        const Told told = m_fonts[nFace].Has(request.hdc, c);
        m_fUntold = m_fUntold || told == Told::Nothing;
        return told == Told::Yes;
    };
    return m_nTries > 0 && std::all_of(request.characters.begin(), request.characters.end(), isThere) &&
           IsAccepted(nFace, accept);
}

bool KnownFonts::IsAccepted(size_t nFace, const AcceptFace& accept)
{
    --m_nTries;
    const Told told = accept(m_fonts[nFace].Face());
    m_fUntold = m_fUntold || told == Told::Nothing;
    return told == Told::Yes;
}

// All that the answer depends on: also the script, whose tables a font may lack, the room in the line, which
// it may not fit, and what stands with the characters, which may keep a font from showing them.
KnownFonts::Key KnownFonts::KeyOf(const FontRequest& request)
{
    constexpr int STYLE_BITS = 2;
    const BaseFont& base = request.base;
    Key key{static_cast<char32_t>(PlaceOf(base.szFace)), static_cast<char32_t>(PlaceOf(base.log.lfFaceName)),
            static_cast<char32_t>(base.metrics.tmAscent), static_cast<char32_t>(base.metrics.tmDescent),
            static_cast<char32_t>(request.analysis.eScript << STYLE_BITS | static_cast<int>(request.style))};
    const std::span<const char32_t> told = request.unit.empty() ? request.characters : request.unit;
    return key.append(told.begin(), told.end());
}

bool KnownFonts::Find(const FontRequest& request, const AcceptFace& accept)
{
    m_fUntold = false;
    m_nTries = MOST_TRIED;
    const Key key = KeyOf(request);
    const bool fWhole = !request.unit.empty();
    const auto known = m_found.find(key);
    if (known != m_found.end()) {
        if (known->second == NOWHERE ? fWhole : IsAccepted(known->second, accept)) {
            return known->second != NOWHERE;
        }
    }
    const size_t nFace = Search(request, accept);
    if (nFace != NOWHERE || (fWhole && !m_fUntold)) {
        Remember(key, nFace);
    }
    return nFace != NOWHERE;
}

void KnownFonts::Remember(const Key& key, size_t nFace)
{
    if (m_found.size() >= MOST_FOUND) {
        m_found.clear();
    }
    m_found[key] = nFace;
}

// Lists of faces are fetched one after the other: most characters are found in the first two.
size_t KnownFonts::Search(const FontRequest& request, const AcceptFace& accept)
{
    constexpr char32_t BEYOND = 0x10000;
    const auto find = [&](const Places& places) {
        const auto found = std::find_if(places.begin(), places.end(),
                                        [&](size_t nFace) { return Offer(nFace, request, accept); });
        return found == places.end() ? NOWHERE : *found;
    };
    const char32_t c = request.characters.front();
    size_t nFound = find(LinkedTo(request.base));
    if (nFound == NOWHERE) {
        nFound = find(OfScript(c, request.style));
    }
    return nFound == NOWHERE ? find(Installed(request.hdc, c >= BEYOND)) : nFound;
}

Places KnownFonts::LinkedTo(LPCWSTR pszFace)
{
    const size_t nPlace = PlaceOf(pszFace);
    const auto known = m_linked.find(nPlace);
    if (known != m_linked.end()) {
        return known->second;
    }
    std::vector<FaceName> faces;
    if (!LinkedFaces(pszFace, faces)) {
        m_fUntold = true;
        return {};
    }
    return m_linked.emplace(nPlace, PlacesOf(faces)).first->second;
}

// The registry may have either of a font's names: that it bears, and that it was asked for by.
Places KnownFonts::LinkedTo(const BaseFont& base)
{
    Places places = LinkedTo(base.szFace);
    return places.empty() && *base.log.lfFaceName ? LinkedTo(base.log.lfFaceName) : places;
}

const Places& KnownFonts::OfScript(char32_t c, HanStyle style)
{
    const size_t nRow = ScriptFacesRow(c, style);
    const auto known = m_ofScript.find(nRow);
    return known != m_ofScript.end() ? known->second
                                     : m_ofScript.emplace(nRow, PlacesOf(ScriptFaces(nRow))).first->second;
}

const Places& KnownFonts::Installed(HDC hdc, bool fBeyond)
{
    if (!m_fEnumerated) {
        std::vector<InstalledFace> faces;
        if (EnumerateFaces(hdc, faces)) {
            TakeInstalled(faces);
        } else {
            m_fUntold = true;
        }
    }
    return fBeyond ? m_installedBeyond : m_installed;
}

// Beyond the first 65,536 characters each block of a font is shaped to find out what it has: the fonts that
// bear the mark are asked first, and of the others a few.
void KnownFonts::TakeInstalled(const std::vector<InstalledFace>& faces)
{
    constexpr size_t MOST_UNMARKED = 64;
    Places all;
    Places marked;
    Places unmarked;
    for (const InstalledFace& face : faces) {
        all.push_back(PlaceOf(face.name.data()));
        (face.fBeyond ? marked : unmarked).push_back(all.back());
    }
    unmarked.resize(std::min(unmarked.size(), MOST_UNMARKED));
    marked.insert(marked.end(), unmarked.begin(), unmarked.end());
    m_installed.swap(all);
    m_installedBeyond.swap(marked);
    m_fEnumerated = true;
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

// A printer has other fonts than the screen, some of them under the same names.
using Device = std::array<int, 3>;

Device DeviceOf(HDC hdc)
{
    return {GetDeviceCaps(hdc, TECHNOLOGY), GetDeviceCaps(hdc, LOGPIXELSX),
            GetDeviceCaps(hdc, PHYSICALWIDTH)};
}

constinit SRWLOCK s_lock = SRWLOCK_INIT;
constinit std::map<Device, KnownFonts>* s_pKnown = nullptr;

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
        s_pKnown = new std::map<Device, KnownFonts>;
        g_pfnForgetFonts = ForgetFallbackFonts;
    }
    return (*s_pKnown)[DeviceOf(request.hdc)].Find(request, accept);
}

void ForgetFallbackFonts()
{
    {
        const ScopedLock lock(s_lock);
        delete std::exchange(s_pKnown, nullptr);
    }
    ForgetRunFonts();
}

bool IsIgnorable(char32_t c)
{
    const auto* const found = std::lower_bound(
        std::begin(IGNORABLE), std::end(IGNORABLE), c,
        [](const IgnorableRange& range, char32_t character) { return range.last < character; });
    return found != std::end(IGNORABLE) && c >= found->first;
}

} // namespace gesso
