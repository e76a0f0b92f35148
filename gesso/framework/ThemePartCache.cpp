#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/PictureCache.h>
#include <gesso/framework/ThemePartCache.h>
#include <gesso/framework/Wrapped.h>

#include <algorithm>
#include <array>

namespace gesso {
namespace {

class CacheablePart final : public CacheableDrawing
{
public:
    CacheablePart(HTHEME hTheme, int nPart, int nState) : m_hTheme(hTheme), m_nPart(nPart), m_nState(nState)
    {}

    PictureKey Key() const override
    {
        return {m_hTheme, {static_cast<DWORD>(m_nPart), static_cast<DWORD>(m_nState)}};
    }
    bool IsWorthwhile() const override
    {
        int nKind = 0;
        return SUCCEEDED(GetThemeEnumValue(m_hTheme, m_nPart, m_nState, TMT_BGTYPE, &nKind)) &&
               nKind == BT_IMAGEFILE;
    }
    bool Draw(HDC hdc, const RECT& rc) const override
    {
        return SUCCEEDED(DrawThemeBackground(m_hTheme, hdc, m_nPart, m_nState, &rc, nullptr));
    }

private:
    HTHEME m_hTheme;
    int m_nPart;
    int m_nState;
};

struct PartQuestion
{
    HTHEME hTheme; // null for a free place
    int nPart;
    int nState;
    LONG cx, cy; // of the rectangle; 0 for none

    bool operator==(const PartQuestion&) const = default;
};

struct PartSize
{
    PartQuestion question;
    SIZE size;
};

constexpr size_t MOST_SIZES = 16;
constinit std::array<PartSize, MOST_SIZES> s_sizes{};
constinit size_t s_nNext = 0; // the place that comes next
constinit SRWLOCK s_lock = SRWLOCK_INIT;

HRESULT AskSize(const PartQuestion& question, HDC hdc, const RECT* prc, SIZE* pSize)
{
    RECT rc = prc ? *prc : RECT{};
    return GetThemePartSize(question.hTheme, hdc, question.nPart, question.nState, prc ? &rc : nullptr,
                            TS_TRUE, pSize);
}

// One that the service does not know is not cached.
HRESULT FindOrAskSize(const PartQuestion& question, HDC hdc, const RECT* prc, SIZE* pSize)
{
    const auto found = std::find_if(s_sizes.begin(), s_sizes.end(),
                                    [&](const PartSize& known) { return known.question == question; });
    if (found != s_sizes.end()) {
        *pSize = found->size;
        return S_OK;
    }
    const HRESULT hr = AskSize(question, hdc, prc, pSize);
    if (SUCCEEDED(hr)) {
        s_sizes[s_nNext] = {question, *pSize};
        s_nNext = (s_nNext + 1) % MOST_SIZES;
    }
    return hr;
}

} // namespace

bool DrawCachedPart(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT& rc)
{
    return hTheme && DrawCached(CacheablePart(hTheme, nPart, nState), hdc, rc);
}

void DropCachedParts(HTHEME hTheme)
{
    if (hTheme) {
        DropPictures(hTheme);
    }
}

HRESULT CachedPartSize(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT* prc, SIZE* pSize)
{
    const PartQuestion question{hTheme, nPart, nState, prc ? Wrapped(int64_t{prc->right} - prc->left) : 0,
                                prc ? Wrapped(int64_t{prc->bottom} - prc->top) : 0};
    if (!hTheme) {
        return AskSize(question, hdc, prc, pSize);
    }
    const ScopedLock lock(s_lock);
    return FindOrAskSize(question, hdc, prc, pSize);
}

void ForgetPartSizes()
{
    const ScopedLock lock(s_lock);
    s_sizes = {};
}

} // namespace gesso
