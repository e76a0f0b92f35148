#include <gesso/access/BarParts.h>

namespace gesso {
namespace {

constexpr LPCWSTR STANDING[] = {L"line up", L"page up", L"thumb", L"page down", L"line down"};
constexpr LPCWSTR LYING[] = {L"line left", L"page left", L"thumb", L"page right", L"line right"};

} // namespace

Role RoleOfPart(BarPart part)
{
    return part == BarPart::Thumb ? Role::Indicator : Role::PushButton;
}

LPCWSTR NameOfPart(const BarTraits& traits, BarPart part)
{
    return (IsVertical(traits) ? STANDING : LYING)[static_cast<UINT>(part)];
}

WORD ScrollCodeOf(BarPart part)
{
    switch (part) {
    case BarPart::LineFirst: return SB_LINEUP;
    case BarPart::PageFirst: return SB_PAGEUP;
    case BarPart::PageLast: return SB_PAGEDOWN;
    case BarPart::LineLast: return SB_LINEDOWN;
    default: return NO_SCROLL_CODE;
    }
}

RECT RectOfPart(const BarTraits& traits, const RECT& rcBar, const BarStops& stops, BarPart part)
{
    const BarLayout layout = LayOutBar(traits, rcBar, stops);
    const bool fVertical = IsVertical(traits);
    RECT rc = rcBar;
    LONG& nStart = fVertical ? rc.top : rc.left;
    LONG& nEnd = fVertical ? rc.bottom : rc.right;
    switch (part) {
    case BarPart::LineFirst: return layout.rcFirst;
    case BarPart::LineLast: return layout.rcLast;
    case BarPart::Thumb: return layout.rcThumb;
    case BarPart::PageFirst:
        nStart = fVertical ? layout.rcFirst.bottom : layout.rcFirst.right;
        nEnd = fVertical ? layout.rcThumb.top : layout.rcThumb.left;
        break;
    default:
        nStart = fVertical ? layout.rcThumb.bottom : layout.rcThumb.right;
        nEnd = fVertical ? layout.rcLast.top : layout.rcLast.left;
        break;
    }
    return nStart < nEnd ? rc : RECT{};
}

AccessString PercentOf(LONGLONG nDone, LONGLONG nAll)
{
    const LONGLONG nPercent = nAll > 0 ? (nDone * 100 + nAll / 2) / nAll : 0;
    return AccessString::Build(L"%d%%", static_cast<int>(nPercent));
}

} // namespace gesso
