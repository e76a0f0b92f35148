#include <bench/DrawRecord.h>

#include <commctrl.h>
#include <usp10.h>
#include <uxtheme.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

namespace bench {
namespace {

// --- The record while it is made

struct Entry
{
    HDC hdc;
    DrawCall call;
};

struct Recording
{
    DrawRecord record;
    std::vector<Entry> entries;
    std::map<HDC, int> saved;                                // how many states each context has saved
    std::map<HGDIOBJ, std::shared_ptr<SCRIPT_CACHE>> caches; // by font
};

Recording* s_pRecording = nullptr;

void Add(HDC hdc, DrawCall call)
{
    s_pRecording->entries.push_back({hdc, std::move(call)});
}

void KeepObject(HGDIOBJ hObject)
{
    s_pRecording->record.objects.emplace_back(hObject, [](void* h) { DeleteObject(h); });
}

// --- Arguments that are kept

class KeptRect
{
public:
    explicit KeptRect(const RECT* prc) : m_fGiven(prc), m_rc(prc ? *prc : RECT{}) {}
    // A copy, since some calls change it.
    operator RECT*() const
    {
        m_rcGiven = m_rc;
        return m_fGiven ? &m_rcGiven : nullptr;
    }

private:
    bool m_fGiven;
    RECT m_rc;
    mutable RECT m_rcGiven{};
};

template <class T> T Kept(T value)
{
    return value;
}

KeptRect Kept(const RECT* prc)
{
    return KeptRect(prc);
}

KeptRect Kept(RECT* prc)
{
    return KeptRect(prc);
}

// Where a call puts what was before.
POINT* Kept(POINT*)
{
    return nullptr;
}

template <class T> std::vector<T> Copied(const T* p, size_t n)
{
    return p ? std::vector<T>(p, p + n) : std::vector<T>();
}

template <class T> const T* DataOf(const std::vector<T>& values)
{
    return values.empty() ? nullptr : values.data();
}

std::wstring TextOf(LPCWSTR psz, int nLength)
{
    return nLength < 0 ? std::wstring(psz) : std::wstring(psz, static_cast<size_t>(nLength));
}

// --- Hooks: each records the call and makes it

template <auto REAL> struct Hook;

template <class R, class... ARGS, R(WINAPI* REAL)(HDC, ARGS...)> struct Hook<REAL>
{
    static R WINAPI Call(HDC hdc, ARGS... args)
    {
        Add(hdc, [... kept = Kept(args)](HDC to) { REAL(to, kept...); });
        return REAL(hdc, args...);
    }
};

template <class R, class FIRST, class... ARGS, R(WINAPI* REAL)(FIRST, HDC, ARGS...)> struct Hook<REAL>
{
    static R WINAPI Call(FIRST first, HDC hdc, ARGS... args)
    {
        Add(hdc, [first, ... kept = Kept(args)](HDC to) { REAL(first, to, kept...); });
        return REAL(first, hdc, args...);
    }
};

// Bitmaps are the memory contexts' own.
HGDIOBJ WINAPI SelectAndRecord(HDC hdc, HGDIOBJ hObject)
{
    const DWORD dwType = GetObjectType(hObject);
    if (dwType == OBJ_FONT || dwType == OBJ_BRUSH || dwType == OBJ_PEN) {
        Add(hdc, [hObject](HDC to) { SelectObject(to, hObject); });
    }
    return SelectObject(hdc, hObject);
}

BOOL WINAPI DeleteLater(HGDIOBJ hObject)
{
    KeepObject(hObject);
    return TRUE;
}

int WINAPI SaveAndRecord(HDC hdc)
{
    Add(hdc, [](HDC to) { SaveDC(to); });
    return s_pRecording->saved[hdc] = SaveDC(hdc);
}

// Counted from the last state, since the replay may have saved fewer.
BOOL WINAPI RestoreAndRecord(HDC hdc, int nSaved)
{
    int& nStates = s_pRecording->saved[hdc];
    const int nRelative = nSaved > 0 ? nSaved - nStates - 1 : nSaved;
    nStates += nRelative;
    Add(hdc, [nRelative](HDC to) { RestoreDC(to, nRelative); });
    return RestoreDC(hdc, nSaved);
}

// A picture that the paint copies from is kept as it is now.
class KeptPicture
{
public:
    KeptPicture(HDC hdc, int x, int y, int cx, int cy)
        : m_hdc(CreateCompatibleDC(hdc)), m_hBitmap(CreateCompatibleBitmap(hdc, cx, cy)),
          m_hFormer(SelectObject(m_hdc, m_hBitmap))
    {
        BitBlt(m_hdc, 0, 0, cx, cy, hdc, x, y, SRCCOPY);
    }
    ~KeptPicture()
    {
        SelectObject(m_hdc, m_hFormer);
        DeleteDC(m_hdc);
        DeleteObject(m_hBitmap);
    }
    KeptPicture(const KeptPicture&) = delete;
    KeptPicture& operator=(const KeptPicture&) = delete;
    HDC Context() const { return m_hdc; }

private:
    HDC m_hdc;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hFormer;
};

// The calls into what is copied to the window are the record.
void TakeRecord(HDC hdcFrom, SIZE size)
{
    DrawRecord& record = s_pRecording->record;
    ++record.nCopies;
    record.size = size;
    record.picture = PixelBuffer(size).Read(hdcFrom);
    record.calls.clear();
    for (const Entry& entry : s_pRecording->entries) {
        if (entry.hdc == hdcFrom) {
            record.calls.push_back(entry.call);
        }
    }
}

BOOL WINAPI CopyAndRecord(HDC hdc, int x, int y, int cx, int cy, HDC hdcFrom, int xFrom, int yFrom,
                          DWORD dwOperation)
{
    if (GetObjectType(hdc) == OBJ_DC) {
        TakeRecord(hdcFrom, {cx, cy});
    } else {
        const auto picture = std::make_shared<KeptPicture>(hdcFrom, xFrom, yFrom, cx, cy);
        Add(hdc, [=](HDC to) { BitBlt(to, x, y, cx, cy, picture->Context(), 0, 0, dwOperation); });
    }
    return BitBlt(hdc, x, y, cx, cy, hdcFrom, xFrom, yFrom, dwOperation);
}

BOOL WINAPI BlendAndRecord(HDC hdc, int x, int y, int cx, int cy, HDC hdcFrom, int xFrom, int yFrom,
                           int cxFrom, int cyFrom, BLENDFUNCTION blend)
{
    const auto picture = std::make_shared<KeptPicture>(hdcFrom, xFrom, yFrom, cxFrom, cyFrom);
    Add(hdc,
        [=](HDC to) { GdiAlphaBlend(to, x, y, cx, cy, picture->Context(), 0, 0, cxFrom, cyFrom, blend); });
    return GdiAlphaBlend(hdc, x, y, cx, cy, hdcFrom, xFrom, yFrom, cxFrom, cyFrom, blend);
}

int WINAPI SetPixelsAndRecord(HDC hdc, int x, int y, DWORD cx, DWORD cy, int xFrom, int yFrom, UINT uStart,
                              UINT nLines, const void* pPixels, const BITMAPINFO* pInfo, UINT uColors)
{
    const BITMAPINFO info = *pInfo;
    const auto nPixels = static_cast<size_t>(info.bmiHeader.biWidth) * nLines;
    const auto pixels = Copied(static_cast<const DWORD*>(pPixels), nPixels);
    Add(hdc, [=](HDC to) {
        SetDIBitsToDevice(to, x, y, cx, cy, xFrom, yFrom, uStart, nLines, pixels.data(), &info, uColors);
    });
    return SetDIBitsToDevice(hdc, x, y, cx, cy, xFrom, yFrom, uStart, nLines, pPixels, pInfo, uColors);
}

void AddText(HDC hdc, LPCWSTR psz, int nLength, const RECT& rc, UINT uFormat)
{
    Add(hdc, [text = TextOf(psz, nLength), rc, uFormat](HDC to) {
        RECT rcText = rc;
        DrawTextW(to, text.c_str(), static_cast<int>(text.size()), &rcText, uFormat);
    });
}

int WINAPI DrawTextAndRecord(HDC hdc, LPCWSTR psz, int nLength, RECT* prc, UINT uFormat)
{
    if (!(uFormat & DT_CALCRECT)) {
        AddText(hdc, psz, nLength, *prc, uFormat);
    }
    return DrawTextW(hdc, psz, nLength, prc, uFormat);
}

// As the text that the theme service makes of it.
HRESULT WINAPI DrawThemeTextAndRecord(HTHEME hTheme, HDC hdc, int nPart, int nState, LPCWSTR psz, int nLength,
                                      DWORD dwFormat, DWORD dwMore, const RECT* prc)
{
    COLORREF cr = 0;
    LOGFONTW font{};
    if (SUCCEEDED(GetThemeColor(hTheme, nPart, nState, TMT_TEXTCOLOR, &cr))) {
        Add(hdc, [cr](HDC to) { SetTextColor(to, cr); });
    }
    if (SUCCEEDED(GetThemeFont(hTheme, hdc, nPart, nState, TMT_FONT, &font))) {
        const HFONT hFont = CreateFontIndirectW(&font);
        KeepObject(hFont);
        Add(hdc, [hFont](HDC to) { SelectObject(to, hFont); });
    }
    Add(hdc, [](HDC to) { SetBkMode(to, TRANSPARENT); });
    AddText(hdc, psz, nLength, *prc, dwFormat);
    return DrawThemeText(hTheme, hdc, nPart, nState, psz, nLength, dwFormat, dwMore, prc);
}

struct KeptGlyphs
{
    std::shared_ptr<SCRIPT_CACHE> cache;
    SCRIPT_ANALYSIS analysis;
    std::vector<WORD> glyphs;
    std::vector<int> advances;
    std::vector<int> justified;
    std::vector<GOFFSET> offsets;
};

// A cache that has shaped nothing yet takes glyphs for characters.
void ShapeSomething(HDC hdc, SCRIPT_CACHE& cache)
{
    SCRIPT_ANALYSIS analysis{};
    SCRIPT_VISATTR attributes[2];
    WORD glyphs[2];
    WORD cluster = 0;
    int nGlyphs = 0;
    ScriptShape(hdc, &cache, L"x", 1, 2, &analysis, glyphs, &cluster, attributes, &nGlyphs);
}

// Of the context's font.
std::shared_ptr<SCRIPT_CACHE> CacheOf(HDC hdc)
{
    auto& cache = s_pRecording->caches[GetCurrentObject(hdc, OBJ_FONT)];
    if (!cache) {
        cache = {new SCRIPT_CACHE(nullptr), [](SCRIPT_CACHE* p) {
                     ScriptFreeCache(p);
                     delete p;
                 }};
        ShapeSomething(hdc, *cache);
    }
    return cache;
}

HRESULT WINAPI DrawGlyphsAndRecord(const HDC hdc, SCRIPT_CACHE* pCache, int x, int y, UINT uOptions,
                                   const RECT* prc, const SCRIPT_ANALYSIS* pAnalysis, const WCHAR* pReserved,
                                   int nReserved, const WORD* pGlyphs, int nGlyphs, const int* pAdvances,
                                   const int* pJustified, const GOFFSET* pOffsets)
{
    const auto n = static_cast<size_t>(nGlyphs);
    Add(hdc, [=, rc = KeptRect(prc),
              kept = KeptGlyphs{CacheOf(hdc), *pAnalysis, Copied(pGlyphs, n), Copied(pAdvances, n),
                                Copied(pJustified, n), Copied(pOffsets, n)}](HDC to) {
        ScriptTextOut(to, kept.cache.get(), x, y, uOptions, rc, &kept.analysis, nullptr, 0,
                      DataOf(kept.glyphs), nGlyphs, DataOf(kept.advances), DataOf(kept.justified),
                      DataOf(kept.offsets));
    });
    return ScriptTextOut(hdc, pCache, x, y, uOptions, prc, pAnalysis, pReserved, nReserved, pGlyphs, nGlyphs,
                         pAdvances, pJustified, pOffsets);
}

// --- The import table

struct HookEntry
{
    std::string_view name;
    void* pHook;
};

template <class FUNCTION> void* Address(FUNCTION* pFunction)
{
    return reinterpret_cast<void*>(pFunction);
}

template <auto REAL> void* HookOf()
{
    return Address(&Hook<REAL>::Call);
}

std::vector<HookEntry> Hooks()
{
    return {
        {"BitBlt", Address(&CopyAndRecord)},
        {"DeleteObject", Address(&DeleteLater)},
        {"DrawEdge", HookOf<&DrawEdge>()},
        {"DrawFocusRect", HookOf<&DrawFocusRect>()},
        {"DrawFrameControl", HookOf<&DrawFrameControl>()},
        {"DrawIconEx", HookOf<&DrawIconEx>()},
        {"DrawStateW", HookOf<&DrawStateW>()},
        {"DrawTextW", Address(&DrawTextAndRecord)},
        {"DrawThemeBackground", HookOf<&DrawThemeBackground>()},
        {"DrawThemeParentBackground", HookOf<&DrawThemeParentBackground>()},
        {"DrawThemeText", Address(&DrawThemeTextAndRecord)},
        {"ExcludeClipRect", HookOf<&ExcludeClipRect>()},
        {"FillRect", HookOf<&FillRect>()},
        {"FrameRect", HookOf<&FrameRect>()},
        {"GdiAlphaBlend", Address(&BlendAndRecord)},
        {"IntersectClipRect", HookOf<&IntersectClipRect>()},
        {"LineTo", HookOf<&LineTo>()},
        {"MoveToEx", HookOf<&MoveToEx>()},
        {"OffsetViewportOrgEx", HookOf<&OffsetViewportOrgEx>()},
        {"PatBlt", HookOf<&PatBlt>()},
        {"RestoreDC", Address(&RestoreAndRecord)},
        {"SaveDC", Address(&SaveAndRecord)},
        {"ScriptTextOut", Address(&DrawGlyphsAndRecord)},
        {"SelectClipRgn", HookOf<&SelectClipRgn>()},
        {"SelectObject", Address(&SelectAndRecord)},
        {"SetBkMode", HookOf<&SetBkMode>()},
        {"SetDIBitsToDevice", Address(&SetPixelsAndRecord)},
        {"SetTextColor", HookOf<&SetTextColor>()},
        {"SetViewportOrgEx", HookOf<&SetViewportOrgEx>()},
        {"SetWindowOrgEx", HookOf<&SetWindowOrgEx>()},
    };
}

// An address in a module, from the distance that its headers give.
template <class T> T* At(BYTE* pModule, ULONGLONG nOffset)
{
    return reinterpret_cast<T*>(pModule + nOffset);
}

// Puts the hooks into the library's import table, and takes them out at the end.
class HookScope
{
public:
    HookScope()
    {
        auto* pModule = reinterpret_cast<BYTE*>(GetModuleHandleW(L"gesso.dll"));
        const auto* pHeaders = At<IMAGE_NT_HEADERS>(pModule, At<IMAGE_DOS_HEADER>(pModule, 0)->e_lfanew);
        const auto& directory = pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
        for (auto* pImport = At<IMAGE_IMPORT_DESCRIPTOR>(pModule, directory.VirtualAddress); pImport->Name;
             ++pImport) {
            HookAll(pModule, *pImport);
        }
    }
    ~HookScope()
    {
        for (const auto& [pSlot, pFormer] : m_formers) {
            Put(pSlot, pFormer);
        }
    }
    HookScope(const HookScope&) = delete;
    HookScope& operator=(const HookScope&) = delete;

private:
    void HookAll(BYTE* pModule, const IMAGE_IMPORT_DESCRIPTOR& import)
    {
        const auto* pName = At<IMAGE_THUNK_DATA>(pModule, import.OriginalFirstThunk);
        auto** pSlot = At<void*>(pModule, import.FirstThunk);
        for (; pName->u1.AddressOfData; ++pName, ++pSlot) {
            if (!IMAGE_SNAP_BY_ORDINAL(pName->u1.Ordinal)) {
                HookOne(At<IMAGE_IMPORT_BY_NAME>(pModule, pName->u1.AddressOfData)->Name, pSlot);
            }
        }
    }
    void HookOne(const char* pszName, void** pSlot)
    {
        const auto found = std::find_if(m_hooks.begin(), m_hooks.end(),
                                        [&](const HookEntry& hook) { return hook.name == pszName; });
        if (found != m_hooks.end()) {
            m_formers.emplace_back(pSlot, *pSlot);
            Put(pSlot, found->pHook);
        }
    }
    static void Put(void** pSlot, void* pFunction)
    {
        DWORD dwFormer = 0;
        VirtualProtect(pSlot, sizeof(*pSlot), PAGE_READWRITE, &dwFormer);
        *pSlot = pFunction;
        VirtualProtect(pSlot, sizeof(*pSlot), dwFormer, &dwFormer);
    }

    const std::vector<HookEntry> m_hooks = Hooks();
    std::vector<std::pair<void**, void*>> m_formers;
};

} // namespace

DrawRecord RecordPaint(HWND hwnd)
{
    Recording recording;
    s_pRecording = &recording;
    {
        const HookScope hooks;
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
    s_pRecording = nullptr;
    return std::move(recording.record);
}

PixelBuffer::PixelBuffer(SIZE size) : m_size(size), m_hdc(CreateCompatibleDC(nullptr))
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pPixels = nullptr;
    m_hBitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pPixels, nullptr, 0);
    m_pPixels = static_cast<DWORD*>(pPixels);
    m_hFormer = SelectObject(m_hdc, m_hBitmap);
}

PixelBuffer::~PixelBuffer()
{
    SelectObject(m_hdc, m_hFormer);
    DeleteDC(m_hdc);
    DeleteObject(m_hBitmap);
}

std::vector<DWORD> PixelBuffer::Read(HDC hdc) const
{
    constexpr DWORD SHOWN = 0xFFFFFF;
    BitBlt(m_hdc, 0, 0, m_size.cx, m_size.cy, hdc, 0, 0, SRCCOPY);
    GdiFlush();
    std::vector<DWORD> pixels(m_pPixels, m_pPixels + m_size.cx * m_size.cy);
    for (DWORD& pixel : pixels) {
        pixel &= SHOWN;
    }
    return pixels;
}

void PixelBuffer::Write(HDC hdc, const std::vector<DWORD>& pixels) const
{
    GdiFlush();
    std::copy(pixels.begin(), pixels.end(), m_pPixels);
    BitBlt(hdc, 0, 0, m_size.cx, m_size.cy, m_hdc, 0, 0, SRCCOPY);
}

} // namespace bench
