#include <gesso/framework/DrawScope.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/text/RunFonts.h>
#include <gesso/text/TextArrays.h>

#include <atomic>
#include <memory>
#include <new>

namespace gesso {

// What tells one font from another: how it is asked for, but for the height that it then gets, and the
// measures that the base font has where it is used, which differ from one device to the next.
struct RunFontKey
{
    LOGFONTW log;
    LONG height;
    LONG ascent;
    LONG width;
    LONG aspectX;
    LONG aspectY;
    LONG generation; // a face may be another font since fonts were forgotten

    bool operator==(const RunFontKey& other) const { return std::memcmp(this, &other, sizeof(other)) == 0; }
};
static_assert(std::has_unique_object_representations_v<RunFontKey>);

class RunFont
{
public:
    explicit RunFont(const RunFontKey& key) : m_key(key) {}
    ~RunFont()
    {
        FreeCache(m_cache);
        if (m_hFont) {
            DeleteObject(m_hFont);
        }
    }
    RunFont(const RunFont&) = delete;
    RunFont& operator=(const RunFont&) = delete;

    Told Make(HDC hdc, const BaseFont& base);

    const RunFontKey m_key;
    std::atomic<int> m_nUsers = 1;
    RunFont* m_pNext = nullptr;

    SRWLOCK m_lock = SRWLOCK_INIT;
    HFONT m_hFont = nullptr;
    SCRIPT_CACHE m_cache = nullptr;
    int m_cyTop = 0; // from the base font's top, downwards
    int m_cyBottom = 0;
    WORD m_wDefault = 0;

private:
    bool MakeOfHeight(HDC hdc, LONG lHeight, TEXTMETRICW& metrics);
    bool ReadDefault(HDC hdc);
};

namespace {

// All that are in use, and those that were in use last.
constexpr size_t KEPT_UNUSED = 8;
constinit SRWLOCK s_lock = SRWLOCK_INIT;
constinit RunFont* s_pFirst = nullptr;
constinit std::atomic<LONG> s_nGeneration = 0;

RunFontKey KeyOf(const BaseFont& base, LPCWSTR pszFace)
{
    const TEXTMETRICW& tm = base.metrics;
    RunFontKey key{base.log,          tm.tmHeight,           tm.tmAscent,
                   tm.tmAveCharWidth, tm.tmDigitizedAspectX, tm.tmDigitizedAspectY,
                   s_nGeneration};
    key.log.lfCharSet = DEFAULT_CHARSET;
    key.log.lfPitchAndFamily = 0;
    std::memset(key.log.lfFaceName, 0, sizeof(key.log.lfFaceName));
    std::copy_n(pszFace, std::min<size_t>(wcslen(pszFace), LF_FACESIZE - 1), key.log.lfFaceName);
    return key;
}

RunFont* FindMade(const RunFontKey& key)
{
    RunFont* pFont = s_pFirst;
    while (pFont && !(pFont->m_key == key)) {
        pFont = pFont->m_pNext;
    }
    return pFont;
}

void Unlink(const RunFont* pFont)
{
    RunFont** ppNext = &s_pFirst;
    while (*ppNext != pFont) {
        ppNext = &(*ppNext)->m_pNext;
    }
    *ppNext = pFont->m_pNext;
}

// Of a font that nobody uses any more: it comes to the front, and the one that was used longest ago goes if
// there are too many, or itself where it was forgotten. Returns that.
RunFont* KeepUnused(RunFont* pFont)
{
    Unlink(pFont);
    if (pFont->m_key.generation != s_nGeneration) {
        return pFont;
    }
    pFont->m_pNext = std::exchange(s_pFirst, pFont);
    size_t nUnused = 0;
    RunFont* pLast = nullptr;
    for (RunFont* p = s_pFirst; p; p = p->m_pNext) {
        if (p->m_nUsers == 0) {
            ++nUnused;
            pLast = p;
        }
    }
    if (nUnused <= KEPT_UNUSED) {
        return nullptr;
    }
    Unlink(pLast);
    return pLast;
}

RunFont* TakeUnused()
{
    RunFont* pFont = s_pFirst;
    while (pFont && pFont->m_nUsers != 0) {
        pFont = pFont->m_pNext;
    }
    if (pFont) {
        Unlink(pFont);
    }
    return pFont;
}

bool Fits(const TEXTMETRICW& own, const TEXTMETRICW& line)
{
    return own.tmAscent <= line.tmAscent && own.tmDescent <= line.tmDescent;
}

// The next smaller em height to try, all of them negative: by what is too much of it, but a pixel may be
// there by rounding.
LONG Shrunk(LONG lHeight, const TEXTMETRICW& own, const TEXTMETRICW& line)
{
    const auto shrink = [lHeight](LONG lOwn, LONG lLine) {
        return lOwn > lLine + 1 ? MulDiv(lHeight, lLine + 1, lOwn) : lHeight + 1;
    };
    return std::max(
        {shrink(own.tmAscent, line.tmAscent), shrink(own.tmDescent, line.tmDescent), lHeight + 1});
}

bool GoesUp(HDC hdc)
{
    POINT points[] = {{0, 0}, {0, 0x1000}};
    const int nMode = GetMapMode(hdc);
    return nMode != 0 && nMode != MM_TEXT && LPtoDP(hdc, points, 2) && points[1].y < points[0].y;
}

} // namespace

bool BaseFont::Read(HDC hdc)
{
    log = {};
    const HGDIOBJ hFont = GetCurrentObject(hdc, OBJ_FONT);
    return hFont && GetObjectW(hFont, sizeof(log), &log) != 0 && GetTextMetricsW(hdc, &metrics) &&
           GetTextFaceW(hdc, LF_FACESIZE, szFace) > 0;
}

bool RunFont::MakeOfHeight(HDC hdc, LONG lHeight, TEXTMETRICW& metrics)
{
    LOGFONTW log = m_key.log;
    log.lfHeight = lHeight;
    if (m_hFont) {
        DeleteObject(m_hFont);
    }
    m_hFont = CreateFontIndirectW(&log);
    if (!m_hFont) {
        return false;
    }
    const SelectScope font(hdc, m_hFont);
    return GetCurrentObject(hdc, OBJ_FONT) == m_hFont && GetTextMetricsW(hdc, &metrics) &&
           metrics.tmHeight > 0;
}

// Of the em height of the base font, or so much less that the line has room for it.
Told RunFont::Make(HDC hdc, const BaseFont& base)
{
    constexpr int MOST_TRIES = 16;
    const TEXTMETRICW& line = base.metrics;
    LONG lHeight = base.log.lfHeight < 0 ? base.log.lfHeight : line.tmInternalLeading - line.tmHeight;
    for (int nTries = 0; nTries < MOST_TRIES && lHeight < 0; ++nTries) {
        TEXTMETRICW own{};
        if (!MakeOfHeight(hdc, lHeight, own)) {
            return Told::Nothing;
        }
        if (Fits(own, line)) {
            m_cyTop = line.tmAscent - own.tmAscent;
            m_cyBottom = own.tmDescent - line.tmDescent;
            return ReadDefault(hdc) ? Told::Yes : Told::Nothing;
        }
        lHeight = Shrunk(lHeight, own, line);
    }
    return Told::No;
}

bool RunFont::ReadDefault(HDC hdc)
{
    const SelectScope font(hdc, m_hFont);
    SCRIPT_FONTPROPERTIES properties{};
    properties.cBytes = sizeof(properties);
    if (GetCurrentObject(hdc, OBJ_FONT) != m_hFont ||
        FAILED(ScriptGetFontProperties(hdc, &m_cache, &properties))) {
        return false;
    }
    m_wDefault = properties.wgDefault;
    return true;
}

Told OpenRunFont(HDC hdc, const BaseFont& base, LPCWSTR pszFace, RunFontRef* pFont)
{
    const RunFontKey key = KeyOf(base, pszFace);
    const ScopedLock lock(s_lock);
    if (RunFont* const pMade = FindMade(key)) {
        ++pMade->m_nUsers;
        *pFont = RunFontRef(pMade);
        return Told::Yes;
    }
    std::unique_ptr<RunFont> made(new (std::nothrow) RunFont(key));
    const Told told = made ? made->Make(hdc, base) : Told::Nothing;
    if (told == Told::Yes) {
        made->m_pNext = std::exchange(s_pFirst, made.get());
        *pFont = RunFontRef(made.release());
    }
    return told;
}

void ForgetRunFonts()
{
    ++s_nGeneration;
    RunFont* pFont;
    do {
        {
            const ScopedLock lock(s_lock);
            pFont = TakeUnused();
        }
        delete pFont;
    } while (pFont);
}

LONG RunFontGeneration()
{
    return s_nGeneration;
}

RunFontRef::RunFontRef(const RunFontRef& other) : RunFontRef(Share(other.m_pFont)) {}

// Of a font that somebody has a share in; none in null.
RunFontRef RunFontRef::Share(RunFont* pFont)
{
    if (pFont) {
        ++pFont->m_nUsers;
    }
    return RunFontRef(pFont);
}

RunFontRef::~RunFontRef()
{
    if (!m_pFont) {
        return;
    }
    RunFont* pEnded = nullptr;
    {
        const ScopedLock lock(s_lock);
        if (--m_pFont->m_nUsers == 0) {
            pEnded = KeepUnused(m_pFont);
        }
    }
    delete pEnded;
}

RunFontScope::RunFontScope(HDC hdc, RunFont& font) : m_hdc(hdc), m_font(font)
{
    AcquireSRWLockExclusive(&font.m_lock);
    m_hFormer = SelectObject(hdc, font.m_hFont);
}

RunFontScope::~RunFontScope()
{
    if (m_hFormer) {
        SelectObject(m_hdc, m_hFormer);
    }
    ReleaseSRWLockExclusive(&m_font.m_lock);
}

SCRIPT_CACHE& RunFontScope::Cache() const
{
    return m_font.m_cache;
}

int RunFontScope::Drop() const
{
    constexpr UINT VERTICALLY = TA_TOP | TA_BOTTOM | TA_BASELINE;
    const UINT uAligned = GetTextAlign(m_hdc) & VERTICALLY;
    const int cy = uAligned == TA_BASELINE ? 0 : uAligned == TA_BOTTOM ? m_font.m_cyBottom : m_font.m_cyTop;
    return cy != 0 && GoesUp(m_hdc) ? -cy : cy;
}

WORD RunFontScope::DefaultGlyph() const
{
    return m_font.m_wDefault;
}

RunFont* FontOfItem(const stcDrawTextBuffer& buffer, UINT nItem)
{
    const std::span<RunFont* const> fonts = FontsOf(buffer);
    return nItem < fonts.size() ? fonts[nItem] : nullptr;
}

std::span<RunFont* const> FontsOf(const stcDrawTextBuffer& buffer)
{
    const UINT cbArrays = buffer.fOneBlock & FONTS_OFFSET;
    if (cbArrays == 0 || BlockSize(buffer) != cbArrays) {
        return {};
    }
    const auto* const pTable = reinterpret_cast<const std::byte*>(buffer.pItems) + cbArrays;
    return {reinterpret_cast<RunFont* const*>(pTable + sizeof(uint64_t)),
            static_cast<size_t>(*reinterpret_cast<const uint64_t*>(pTable))};
}

} // namespace gesso
