#include <gallery/Held.h>
#include <gallery/Stats.h>

namespace gallery {
namespace {

constexpr DWORD PERIOD = 250; // milliseconds

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
