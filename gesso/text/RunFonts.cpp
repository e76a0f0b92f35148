#include <gesso/framework/DrawScope.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/text/RunFonts.h>
#include <gesso/text/TextArrays.h>

#include <atomic>
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

    bool Make(HDC hdc, const BaseFont& base);

    const RunFontKey m_key;
    std::atomic<int> m_nUsers = 1;
    RunFont* m_pNext = nullptr;

    SRWLOCK m_lock = SRWLOCK_INIT;
    HFONT m_hFont = nullptr;
    SCRIPT_CACHE m_cache = nullptr;
    int m_cyDrop = 0;
    WORD m_wDefault = 0;

private:
    bool MakeOfHeight(HDC hdc, LONG lHeight, TEXTMETRICW& metrics);
};

namespace {

// All that are in use.
constinit SRWLOCK s_lock = SRWLOCK_INIT;
constinit RunFont* s_pFirst = nullptr;

RunFontKey KeyOf(const BaseFont& base, LPCWSTR pszFace)
{
    const TEXTMETRICW& tm = base.metrics;
    RunFontKey key{base.log,          tm.tmHeight,           tm.tmAscent,
                   tm.tmAveCharWidth, tm.tmDigitizedAspectX, tm.tmDigitizedAspectY};
    key.log.lfCharSet = DEFAULT_CHARSET;
    key.log.lfPitchAndFamily = 0;
    std::memset(key.log.lfFaceName, 0, sizeof(key.log.lfFaceName));
    std::copy_n(pszFace, std::min<size_t>(wcslen(pszFace), LF_FACESIZE - 1), key.log.lfFaceName);
    return key;
}

RunFont* FindInUse(const RunFontKey& key)
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
    return GetTextMetricsW(hdc, &metrics) && metrics.tmHeight > 0;
}

// Of the em height of the base font, or so much less that the line has room for it.
bool RunFont::Make(HDC hdc, const BaseFont& base)
{
    constexpr int ROUNDED_TWICE = 3;
    const TEXTMETRICW& line = base.metrics;
    LONG lHeight = base.log.lfHeight != 0 ? base.log.lfHeight : line.tmInternalLeading - line.tmHeight;
    TEXTMETRICW own{};
    if (!MakeOfHeight(hdc, lHeight, own)) {
        return false;
    }
    for (int nTries = 0; own.tmHeight > line.tmHeight && nTries < ROUNDED_TWICE; ++nTries) {
        const LONG lLess = MulDiv(lHeight, line.tmHeight, own.tmHeight);
        lHeight = lLess != lHeight ? lLess : lHeight < 0 ? lHeight + 1 : lHeight - 1;
        if (lHeight == 0 || !MakeOfHeight(hdc, lHeight, own)) {
            return false;
        }
    }
    m_cyDrop = line.tmAscent - own.tmAscent;
    const SelectScope font(hdc, m_hFont);
    SCRIPT_FONTPROPERTIES properties{};
    properties.cBytes = sizeof(properties);
    if (SUCCEEDED(ScriptGetFontProperties(hdc, &m_cache, &properties))) {
        m_wDefault = properties.wgDefault;
    }
    return true;
}

RunFontRef OpenRunFont(HDC hdc, const BaseFont& base, LPCWSTR pszFace)
{
    const RunFontKey key = KeyOf(base, pszFace);
    const ScopedLock lock(s_lock);
    if (RunFont* const pFont = FindInUse(key)) {
        ++pFont->m_nUsers;
        return RunFontRef(pFont);
    }
    auto* const pFont = new (std::nothrow) RunFont(key);
    if (!pFont || !pFont->Make(hdc, base)) {
        delete pFont;
        return {};
    }
    pFont->m_pNext = std::exchange(s_pFirst, pFont);
    return RunFontRef(pFont);
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
    {
        const ScopedLock lock(s_lock);
        if (--m_pFont->m_nUsers != 0) {
            return;
        }
        Unlink(m_pFont);
    }
    delete m_pFont;
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
    return m_font.m_cyDrop;
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
    if (cbArrays == 0 || !buffer.pItems) {
        return {};
    }
    const auto* const pTable = reinterpret_cast<const std::byte*>(buffer.pItems) + cbArrays;
    return {reinterpret_cast<RunFont* const*>(pTable + sizeof(uint64_t)),
            static_cast<size_t>(*reinterpret_cast<const uint64_t*>(pTable))};
}

} // namespace gesso
