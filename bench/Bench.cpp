#include <bench/Bench.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace bench {
namespace {

constexpr int NAME_WIDTH = 52;
constexpr int FIGURE_WIDTH = 12;

double Microseconds()
{
    LARGE_INTEGER frequency;
    LARGE_INTEGER count;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    return static_cast<double>(count.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

using Times = std::vector<double>;

double TimeOf(const Work& work)
{
    const double start = Microseconds();
    work();
    return Microseconds() - start;
}

// One side's turn in a round.
void TakeSteps(const std::vector<Step>& steps, TimedWork Step::*pSide, std::vector<Times>& times)
{
    for (size_t i = 0; i < steps.size(); i++) {
        times[i].push_back((steps[i].*pSide)());
    }
}

double MedianOf(Times times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

// Three digits that count, in the unit that suits.
std::string InWords(double microseconds)
{
    const bool fMillis = microseconds >= 1000;
    const bool fNanos = microseconds < 1;
    const double value = fMillis ? microseconds / 1000 : fNanos ? microseconds * 1000 : microseconds;
    char sz[32];
    std::snprintf(sz, sizeof(sz), "%.*f %s",
                  value >= 100  ? 0
                  : value >= 10 ? 1
                                : 2,
                  value,
                  fMillis  ? "ms"
                  : fNanos ? "ns"
                           : "us");
    return sz;
}

std::string RatioOf(double gesso, double platform)
{
    char sz[32];
    std::snprintf(sz, sizeof(sz), "%.2f", platform > 0 ? gesso / platform : 0.0);
    return sz;
}

} // namespace

TimedWork Timed(Work work)
{
    return [work = std::move(work)] { return TimeOf(work); };
}

void Bench::PrintRow(const std::string& name, const std::string& gesso, const std::string& platform,
                     const std::string& ratio) const
{
    std::printf("%-*s %*s %*s %*s\n", NAME_WIDTH, name.c_str(), FIGURE_WIDTH, gesso.c_str(), FIGURE_WIDTH,
                platform.c_str(), FIGURE_WIDTH, ratio.c_str());
    std::fflush(stdout);
}

void Bench::Family(const std::string& name)
{
    std::printf("\n");
    PrintRow(name, "Gesso", "platform", "ratio");
    std::printf("%s\n", std::string(NAME_WIDTH + 3 * (FIGURE_WIDTH + 1), '-').c_str());
}

void Bench::Measure(const std::string& name, int nOperations, const Work& gesso, const Work& platform)
{
    MeasureCourse({{name, nOperations, Timed(gesso), Timed(platform)}});
}

void Bench::MeasureTimed(const std::string& name, const TimedWork& gesso, const TimedWork& platform)
{
    MeasureCourse({{name, 1, gesso, platform}});
}

void Bench::MeasureCourse(const std::vector<Step>& steps)
{
    std::vector<Times> gesso(steps.size());
    std::vector<Times> platform(steps.size());
    const auto takeTurn = [&](bool fGesso) {
        TakeSteps(steps, fGesso ? &Step::gesso : &Step::platform, fGesso ? gesso : platform);
    };
    if (m_nRounds > 1) {
        takeTurn(true);
        takeTurn(false);
        gesso.assign(steps.size(), {});
        platform.assign(steps.size(), {});
    }
    for (int i = 0; i < m_nRounds; i++) {
        takeTurn(i % 2 == 0);
        takeTurn(i % 2 != 0);
    }
    for (size_t i = 0; i < steps.size(); i++) {
        const double gessoTime = MedianOf(gesso[i]) / steps[i].nOperations;
        const double platformTime = MedianOf(platform[i]) / steps[i].nOperations;
        PrintRow(steps[i].name, InWords(gessoTime), InWords(platformTime), RatioOf(gessoTime, platformTime));
    }
}

void Bench::MeasureAlone(const std::string& name, int nOperations, const Work& gesso)
{
    std::vector<double> times;
    gesso();
    for (int i = 0; i < m_nRounds; i++) {
        times.push_back(TimeOf(gesso));
    }
    PrintRow(name, InWords(MedianOf(times) / nOperations), "", "");
}

void Bench::Print(const std::string& name, long long nGesso, long long nPlatform)
{
    PrintRow(name, std::to_string(nGesso), std::to_string(nPlatform), "");
}

void Bench::PrintAlone(const std::string& name, long long nGesso)
{
    PrintRow(name, std::to_string(nGesso), "", "");
}

void HandleMessages()
{
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

long long BytesHeld()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return static_cast<long long>(counters.WorkingSetSize);
}

} // namespace bench
