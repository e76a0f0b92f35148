#include <gallery/Held.h>

#include <winternl.h>

#include <cstddef>
#include <numeric>

namespace gallery {
namespace {

// The process's table of GDI handles, for platforms that do not count: Wine's GetGuiResources answers 0.
struct GdiHandleEntry
{
    void* pObject;
    DWORD dwOwner;
    WORD wUnique;
    BYTE bType; // 0 in a free entry
    BYTE bFlags;
    void* pUser;
};
static_assert(sizeof(GdiHandleEntry) == 24 && offsetof(GdiHandleEntry, bType) == 14);

constexpr size_t GDI_TABLE_IN_PROCESS_BLOCK = 0xF8;
constexpr DWORD GDI_TABLE_ENTRIES = 0x10000;

// Types of entries.
constexpr BYTE CONTEXT = 1;
constexpr BYTE REGION = 4;
constexpr BYTE SURFACE = 5;

// A window's context that was released. Wine keeps up to 64 of them for the next windows, each with a region
// and a surface.
bool IsKept(DWORD nIndex, const GdiHandleEntry& entry)
{
    const auto hObject = reinterpret_cast<HGDIOBJ>(UINT_PTR{nIndex | DWORD{entry.wUnique} << 16});
    return entry.bType == CONTEXT && GetObjectType(hObject) == OBJ_DC &&
           !WindowFromDC(static_cast<HDC>(hObject));
}

std::vector<int> CountGdiTable()
{
    PROCESS_BASIC_INFORMATION info{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &info, sizeof(info), nullptr);
    const auto* pBlock = reinterpret_cast<const BYTE*>(info.PebBaseAddress);
    const auto* pEntries = *reinterpret_cast<GdiHandleEntry* const*>(pBlock + GDI_TABLE_IN_PROCESS_BLOCK);
    std::vector<int> used(0x100);
    for (DWORD i = 0; pEntries && i < GDI_TABLE_ENTRIES; i++) {
        ++used[pEntries[i].bType];
        if (IsKept(i, pEntries[i])) {
            --used[CONTEXT];
            --used[REGION];
            --used[SURFACE];
        }
    }
    used[0] = 0;
    return used;
}

BOOL CALLBACK CountWindow(HWND, LPARAM lParam)
{
    ++*reinterpret_cast<DWORD*>(lParam);
    return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND hwnd, LPARAM lParam)
{
    EnumChildWindows(hwnd, &CountWindow, lParam);
    return CountWindow(hwnd, lParam);
}

} // namespace

DWORD GdiObjects()
{
    const std::vector<int> objects = GdiObjectsByType();
    return static_cast<DWORD>(std::accumulate(objects.begin(), objects.end(), 0));
}

std::vector<int> GdiObjectsByType()
{
    const DWORD nCounted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return nCounted ? std::vector<int>{static_cast<int>(nCounted)} : CountGdiTable();
}

DWORD Windows(DWORD dwThread)
{
    DWORD nWindows = 0;
    EnumThreadWindows(dwThread, &CountWithChildren, reinterpret_cast<LPARAM>(&nWindows));
    return nWindows;
}

} // namespace gallery
