#include <gallery/Stats.h>

#include <gesso/gesso.h>

#include <winternl.h>

#include <cstddef>

namespace gallery {
namespace {

constexpr DWORD PERIOD = 250; // milliseconds

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

DWORD Windows(DWORD dwThread)
{
    DWORD nWindows = 0;
    EnumThreadWindows(dwThread, &CountWithChildren, reinterpret_cast<LPARAM>(&nWindows));
    return nWindows;
}

} // namespace

bool Stats::Start(const std::wstring& path, HWND hwnd)
{
    m_file = _wfopen(path.c_str(), L"w");
    if (m_file) {
        m_thread = std::thread([this, hwnd, dwThread = GetCurrentThreadId()] { Run(hwnd, dwThread); });
    }
    return m_file != nullptr;
}

void Stats::Run(HWND hwnd, DWORD dwThread)
{
    while (!m_fEnd) {
        SendMessageW(hwnd, WM_NULL, 0, 0);
        std::fprintf(m_file, "%lu %lu %lu\n", GetTickCount(), GdiObjects(), Windows(dwThread));
        std::fflush(m_file);
        Sleep(PERIOD);
    }
}

Stats::~Stats()
{
    m_fEnd = true;
    if (m_thread.joinable()) {
        m_thread.join();
    }
    if (m_file) {
        std::fclose(m_file);
    }
}

} // namespace gallery
