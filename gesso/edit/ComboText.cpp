#include <gesso/edit/ComboText.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Saturate.h>
#include <gesso/text/TextArrays.h>

#include <new>
#include <utility>

namespace gesso {
namespace {

constexpr int MOST_WIDTH = 1 << 24; // a prepared text ends with a whole character, and this one in it

// So many texts, and as many that were drawn in front of them, are kept.
constexpr size_t KEPT = 128;

bool IsPrepared(void* hText)
{
    return IsBuffer(static_cast<stcDrawTextBuffer*>(hText));
}

} // namespace

void ComboTexts::Release(Texts& texts)
{
    for (const auto& [key, hText] : texts) {
        CDrawText::DrawText_CloseHandle(hText);
    }
    texts.clear();
}

void ComboTexts::Forget()
{
    Release(m_young);
    Release(m_old);
}

// The prepared text; the invalid handle where it cannot be prepared. Throws std::bad_alloc.
void* ComboTexts::Get(HDC hdc, LPCWSTR psz, UINT uFormat)
{
    std::u16string key(1, static_cast<char16_t>(uFormat));
    key += reinterpret_cast<const char16_t*>(psz);
    if (const auto found = m_young.find(key); found != m_young.end()) {
        return found->second;
    }
    if (m_young.size() >= KEPT) {
        Release(m_old);
        m_old.swap(m_young);
    }
    const auto place = m_young.try_emplace(std::move(key), nullptr).first;
    if (auto former = m_old.extract(place->first)) {
        place->second = former.mapped();
    } else {
        RECT rcLine{0, 0, MOST_WIDTH, MOST_WIDTH};
        place->second =
            CDrawText::DrawText_Prepare(hdc, psz, -1, &rcLine, DT_SINGLELINE | uFormat, 1, nullptr);
    }
    void* const hText = place->second;
    if (!IsPrepared(hText)) {
        m_young.erase(place); // there may be memory for it the next time
    }
    return hText;
}

void ComboTexts::Draw(HDC hdc, LPCWSTR psz, const RECT& rc, COLORREF cr, UINT uFormat)
try {
    void* const hText = psz[0] ? Get(hdc, psz, uFormat) : nullptr;
    if (!IsPrepared(hText)) {
        return;
    }
    const StateScope state(hdc);
    IntersectClipRect(hdc, rc.left, rc.top, rc.right, rc.bottom);
    SetTextColor(hdc, cr);
    SetBkMode(hdc, TRANSPARENT);
    CDrawText::DrawTextW(hdc, hText, {rc.left, rc.top, Saturated(LONGLONG{rc.left} + MOST_WIDTH), rc.bottom});
} catch (const std::bad_alloc&) {
}

int ComboTextWidth(HDC hdc, LPCWSTR psz)
{
    if (!psz[0]) {
        return 0;
    }
    RECT rc{};
    CDrawText::DrawText_Prepare(hdc, psz, -1, &rc, DT_SINGLELINE | DT_CALCRECT, 1, nullptr);
    return rc.right;
}

} // namespace gesso
