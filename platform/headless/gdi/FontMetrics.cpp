#include "FontMetrics.h"

#include "../core/Faults.h"
#include "Context.h"
#include "InstalledFonts.h"

#include <algorithm>
#include <climits>

namespace gesso::headless {

FontMetrics MeasureFont(const LOGFONTW& font)
{
    constexpr int DEFAULT_EM = 12;
    constexpr LONG LARGEST = SHRT_MAX;
    const int asked = std::clamp(font.lfHeight, -LARGEST, LARGEST);
    const int em = asked < 0 ? -asked : asked > 0 ? asked * 4 / 5 : DEFAULT_EM;
    const auto installed = FontShownFor(font);
    const FontShape shape = installed ? installed->shape : FontShape{};
    const int height = asked > 0 ? asked : em * (shape.ascent + shape.descent) / 100;
    const int width =
        font.lfWidth != 0 ? abs(std::clamp(font.lfWidth, -LARGEST, LARGEST)) : std::max(em / 2, 1);
    return {em, height, std::min(em * shape.ascent / 100, height), width};
}

FontMetrics MeasureSelectedFont(HDC hdc)
{
    const auto* context = Find<Context>(hdc);
    const auto* font = context ? Find<Font>(context->state.font) : nullptr;
    return MeasureFont(font ? font->log : LOGFONTW{});
}

LOGFONTW UserInterfaceFont(int points, int weight)
{
    LOGFONTW font{};
    font.lfHeight = -MulDiv(points, static_cast<INT>(GetDpiForSystem()), 72);
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    wcscpy(font.lfFaceName, L"Segoe UI");
    return font;
}

} // namespace gesso::headless

using namespace gesso::headless;

BOOL WINAPI GetTextMetricsW(HDC hdc, LPTEXTMETRICW metrics)
{
    const Context* context = FaultFires("GetTextMetricsW") ? nullptr : FindContext(hdc);
    if (!context) {
        return FALSE;
    }
    const auto* font = Find<Font>(context->state.font);
    const FontMetrics measures = MeasureSelectedFont(hdc);
    *metrics = {};
    metrics->tmHeight = measures.height;
    metrics->tmAscent = measures.ascent;
    metrics->tmDescent = measures.height - measures.ascent;
    metrics->tmInternalLeading = measures.height - measures.em;
    metrics->tmAveCharWidth = measures.width;
    metrics->tmMaxCharWidth = measures.width;
    metrics->tmWeight = font && font->log.lfWeight ? font->log.lfWeight : FW_NORMAL;
    metrics->tmItalic = font ? font->log.lfItalic : FALSE;
    metrics->tmPitchAndFamily = FF_SWISS | TMPF_VECTOR | TMPF_TRUETYPE;
    metrics->tmCharSet = font ? font->log.lfCharSet : DEFAULT_CHARSET;
    metrics->tmFirstChar = L' ';
    metrics->tmLastChar = 0xFFFD;
    metrics->tmDefaultChar = L'?';
    metrics->tmBreakChar = L' ';
    return TRUE;
}

BOOL WINAPI GetTextExtentPoint32W(HDC hdc, LPCWSTR text, INT count, LPSIZE size)
{
    if (!FindContext(hdc) || count < 0 || (!text && count > 0)) {
        return FALSE;
    }
    const FontMetrics measures = MeasureSelectedFont(hdc);
    *size = {Saturated(int64_t{count} * measures.width), measures.height};
    return TRUE;
}

BOOL WINAPI GetTextExtentPointW(HDC hdc, LPCWSTR text, INT count, LPSIZE size)
{
    if (FaultFires("GetTextExtentPointW")) {
        return FALSE;
    }
    return GetTextExtentPoint32W(hdc, text, count, size);
}

BOOL WINAPI GetTextExtentExPointW(HDC hdc, LPCWSTR text, INT count, INT limit, LPINT fit, LPINT positions,
                                  LPSIZE size)
{
    if (FaultFires("GetTextExtentExPointW")) {
        return FALSE;
    }
    if (!GetTextExtentPoint32W(hdc, text, count, size)) {
        return FALSE;
    }
    const int width = MeasureSelectedFont(hdc).width;
    const int fitting = fit ? std::clamp(limit / width, 0, count) : count;
    if (fit) {
        *fit = fitting;
    }
    for (int i = 0; positions && i < fitting; ++i) {
        positions[i] = Saturated((int64_t{i} + 1) * width);
    }
    return TRUE;
}
