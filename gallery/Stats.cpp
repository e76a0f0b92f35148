#include <gallery/Stats.h>

#include <gesso/gesso.h>

#include <winternl.h>

#include <cstddef>

namespace gallery {
namespace {

constexpr UINT PERIOD = 250;

FILE* s_file = nullptr;

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
constexpr int GDI_TABLE_ENTRIES = 0x10000;

DWORD CountGdiTable()
{
    PROCESS_BASIC_INFORMATION info{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &info, sizeof(info), nullptr);
    const auto* pBlock = reinterpret_cast<const BYTE*>(info.PebBaseAddress);
    const auto* pEntries = *reinterpret_cast<GdiHandleEntry* const*>(pBlock + GDI_TABLE_IN_PROCESS_BLOCK);
    DWORD nUsed = 0;
    for (int i = 0; pEntries && i < GDI_TABLE_ENTRIES; i++) {
        nUsed += pEntries[i].bType != 0;
    }
    return nUsed;
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

DWORD GdiObjects()
{
    const DWORD nCounted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return nCounted ? nCounted : CountGdiTable();
}

DWORD Windows()
{
    DWORD nWindows = 0;
    EnumThreadWindows(GetCurrentThreadId(), &CountWithChildren, reinterpret_cast<LPARAM>(&nWindows));
    return nWindows;
}

void CALLBACK Note(HWND, UINT, UINT_PTR, DWORD dwTime)
{
    std::fprintf(s_file, "%lu %lu %lu\n", dwTime, GdiObjects(), Windows());
    std::fflush(s_file);
}

} // namespace

bool Stats::Start(const std::wstring& path)
{
    m_file = _wfopen(path.c_str(), L"w");
    s_file = m_file;
    m_timer = m_file ? SetTimer(nullptr, 0, PERIOD, &Note) : 0;
    return m_timer != 0;
}

Stats::~Stats()
{
    KillTimer(nullptr, m_timer);
    if (m_file) {
        std::fclose(m_file);
    }
}

} // namespace gallery
