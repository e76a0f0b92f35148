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

std::vector<WideText> Faces()
{
    const TableLock lock;
    std::vector<WideText> faces;
    for (const FontPointer& font : Fonts()) {
        faces.push_back(font->face);
    }
    return faces.empty() ? std::vector<WideText>{u"Segoe UI", u"Tahoma"} : faces;
}

} // namespace

bool InstalledFont::Has(char32_t c) const
{
    return std::any_of(characters.begin(), characters.end(),
                       [c](const CodeRange& range) { return c >= range.first && c <= range.last; });
}

FontPointer FontShownFor(const LOGFONTW& font)
{
    const TableLock lock;
    const std::vector<FontPointer>& fonts = Fonts();
    const auto found = std::find_if(fonts.begin(), fonts.end(), [&](const FontPointer& installed) {
        return EqualIgnoringCase(installed->face, View(font.lfFaceName));
    });
    return found != fonts.end() ? *found : fonts.empty() ? nullptr : fonts.front();
}

void InstallFont(std::string_view face, std::initializer_list<CodeRange> characters, FontShape shape)
{
    const TableLock lock;
    Fonts().push_back(std::make_shared<InstalledFont>(InstalledFont{FromUtf8(face), characters, shape}));
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
    return CopyText(shown ? WideView(shown->face) : View(font->log.lfFaceName), face, capacity) + 1;
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
        memcpy(set->ranges, ranges.data(), ranges.size() * sizeof(WCRANGE));
    }
    return size;
}

// All families, without the styles of one.
INT WINAPI EnumFontFamiliesExW(HDC hdc, LPLOGFONTW, FONTENUMPROCW visit, LPARAM context, DWORD)
{
    if (FaultFires("EnumFontFamiliesExW") || !FindContext(hdc)) {
        return 0;
    }
    INT answer = 1;
    for (const WideText& face : Faces()) {
        ENUMLOGFONTEXW font{};
        CopyText(face, font.elfLogFont.lfFaceName, LF_FACESIZE);
        font.elfLogFont.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
        NEWTEXTMETRICEXW metrics{};
        metrics.ntmFontSig.fsUsb[1] = 1U << 25; // bit 57: there may be characters beyond the first 65,536
        answer =
            visit(&font.elfLogFont, reinterpret_cast<TEXTMETRICW*>(&metrics), TRUETYPE_FONTTYPE, context);
        if (answer == 0) {
            break;
        }
    }
    return answer;
}
