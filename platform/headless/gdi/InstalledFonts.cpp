#include "InstalledFonts.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "Context.h"

#include <algorithm>

namespace gesso::headless {
namespace {

using FontPointer = std::shared_ptr<const InstalledFont>;

std::vector<FontPointer>& Fonts()
{
    static std::vector<FontPointer> s_fonts;
    return s_fonts;
}

FontPointer SelectedFont(const Context& context)
{
    const auto* font = Find<Font>(context.state.font);
    return font ? FontShownFor(font->log) : nullptr;
}

// What is within the first 65,536 code points, as those of the platform's range records are.
std::vector<WCRANGE> RangesOf(const InstalledFont* font)
{
    constexpr char32_t LAST = 0xFFFF;
    std::vector<WCRANGE> ranges;
    for (const CodeRange& range : font ? font->characters : std::vector<CodeRange>{{0x20, LAST - 1}}) {
        if (range.first <= LAST) {
            const char32_t last = std::min(range.last, LAST);
            ranges.push_back({static_cast<WCHAR>(range.first), static_cast<USHORT>(last - range.first + 1)});
        }
    }
    return ranges;
}

// All of them for an empty name.
std::vector<WideText> FacesNamed(WideView name)
{
    const TableLock lock;
    std::vector<WideText> faces;
    for (const FontPointer& font : Fonts()) {
        if (name.empty() || font->IsNamed(name)) {
            faces.push_back(font->ownName);
        }
    }
    return Fonts().empty() ? std::vector<WideText>{u"Segoe UI", u"Tahoma"} : faces;
}

} // namespace

bool InstalledFont::Has(char32_t c) const
{
    return std::any_of(characters.begin(), characters.end(),
                       [c](const CodeRange& range) { return c >= range.first && c <= range.last; });
}

bool InstalledFont::IsNamed(WideView name) const
{
    return EqualIgnoringCase(face, name) || EqualIgnoringCase(ownName, name);
}

FontPointer FontShownFor(const LOGFONTW& font)
{
    const TableLock lock;
    const std::vector<FontPointer>& fonts = Fonts();
    const auto found = std::find_if(fonts.begin(), fonts.end(), [&](const FontPointer& installed) {
        return installed->IsNamed(View(font.lfFaceName));
    });
    return found != fonts.end() ? *found : fonts.empty() ? nullptr : fonts.front();
}

// Behind a bar stands the name that the font itself bears, if it is another: a program in the machine's
// language sees that one.
void InstallFont(std::string_view face, std::initializer_list<CodeRange> characters, FontShape shape)
{
    const TableLock lock;
    const size_t bar = face.find('|');
    const std::string_view own = bar == face.npos ? face : face.substr(bar + 1);
    Fonts().push_back(std::make_shared<InstalledFont>(
        InstalledFont{FromUtf8(face.substr(0, bar)), FromUtf8(own), characters, shape}));
}

void RemoveInstalledFonts()
{
    const TableLock lock;
    Fonts().clear();
}

} // namespace gesso::headless

using namespace gesso::headless;

INT WINAPI GetTextFaceW(HDC hdc, INT capacity, LPWSTR face)
{
    const Context* context = FaultFires("GetTextFaceW") ? nullptr : FindContext(hdc);
    const auto* font = context ? Find<Font>(context->state.font) : nullptr;
    if (!font) {
        return 0;
    }
    const FontPointer shown = FontShownFor(font->log);
    return CopyText(shown ? WideView(shown->ownName) : View(font->log.lfFaceName), face, capacity) + 1;
}

DWORD WINAPI GetFontUnicodeRanges(HDC hdc, LPGLYPHSET set)
{
    const Context* context = FaultFires("GetFontUnicodeRanges") ? nullptr : FindContext(hdc);
    if (!context) {
        return 0;
    }
    const std::vector<WCRANGE> ranges = RangesOf(SelectedFont(*context).get());
    const auto size = static_cast<DWORD>(offsetof(GLYPHSET, ranges) + ranges.size() * sizeof(WCRANGE));
    if (set) {
        set->cbThis = size;
        set->flAccel = 0;
        set->cGlyphsSupported = 0;
        set->cRanges = static_cast<DWORD>(ranges.size());
        std::copy(ranges.begin(), ranges.end(), set->ranges);
    }
    return size;
}

// All families, or the one of a name, without the styles of one. None bears the mark of fonts that have
// characters beyond the first 65,536, whatever it has.
INT WINAPI EnumFontFamiliesExW(HDC hdc, LPLOGFONTW asked, FONTENUMPROCW visit, LPARAM context, DWORD)
{
    if (FaultFires("EnumFontFamiliesExW") || !FindContext(hdc)) {
        return 0;
    }
    INT answer = 1;
    for (const WideText& face : FacesNamed(View(asked->lfFaceName))) {
        ENUMLOGFONTEXW font{};
        CopyText(face, font.elfLogFont.lfFaceName, LF_FACESIZE);
        font.elfLogFont.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
        NEWTEXTMETRICEXW metrics{};
        answer =
            visit(&font.elfLogFont, reinterpret_cast<TEXTMETRICW*>(&metrics), TRUETYPE_FONTTYPE, context);
        if (answer == 0) {
            break;
        }
    }
    return answer;
}
