// The benchmark's harness: it runs the same work with Gesso's controls and with the platform's, turn by turn,
// and prints the medians side by side.
#pragma once

#include <gesso/gesso.h>

#include <functional>
#include <string>
#include <vector>

namespace bench {

using Work = std::function<void()>;
// Work that takes its own time, in microseconds.
using TimedWork = std::function<double()>;
TimedWork Timed(Work work);

// One row of the table: the time of one operation, of which each call of the work does nOperations.
struct Step
{
    std::string name;
    int nOperations;
    TimedWork gesso;
    TimedWork platform;
};

class Bench
{
public:
    // Where there are several rounds, one goes before them that is not counted: it pays for what is made
    // once.
    explicit Bench(int nRounds) : m_nRounds(nRounds) {}

    // Begins a family's block of the table.
    void Family(const std::string& name);
    // Measures both and prints their row: the time of one operation, of which each call of the work does
    // nOperations. The two take turns in going first, so that neither always finds the caches warm.
    void Measure(const std::string& name, int nOperations, const Work& gesso, const Work& platform);
    // The same for work that stops the clock before it returns.
    void MeasureTimed(const std::string& name, const TimedWork& gesso, const TimedWork& platform);
    // The same for steps of which each goes on where the last one ended: every round takes all of them.
    void MeasureCourse(const std::vector<Step>& steps);
    // Measures work that the platform has nothing to set beside.
    void MeasureAlone(const std::string& name, int nOperations, const Work& gesso);
    // Prints a figure that is no time: a count, or a size in bytes.
    void Print(const std::string& name, long long nGesso, long long nPlatform);
    void PrintAlone(const std::string& name, long long nGesso);

private:
    void PrintRow(const std::string& name, const std::string& gesso, const std::string& platform,
                  const std::string& ratio) const;

    int m_nRounds;
};

// A visible window at the corner of the screen that holds what is measured.
class Host
{
public:
    Host(int cx, int cy)
        : m_hwnd(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, cx, cy, nullptr, nullptr,
                                 GetModuleHandleW(nullptr), nullptr))
    {}
    ~Host() { DestroyWindow(m_hwnd); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    operator HWND() const { return m_hwnd; }

private:
    HWND m_hwnd;
};

// Dispatches what is pending.
void HandleMessages();
// What the process holds of memory: the one size that every platform tells.
long long BytesHeld();

// A family's rows stand in a source file of its own.
void MeasureButtons(Bench& bench);
void MeasureCheckBoxes(Bench& bench);
void MeasureEdits(Bench& bench);
void MeasureFields(Bench& bench);
void MeasureCombos(Bench& bench);
void MeasurePane(Bench& bench);
void MeasureProgressBars(Bench& bench);
void MeasureRibbon(Bench& bench);
void MeasureScrollbars(Bench& bench);
void MeasureText(Bench& bench);
void MeasureDark(Bench& bench);
void MeasureScale(Bench& bench);
void MeasureMirrored(Bench& bench);
void MeasureUnstyled(Bench& bench);
void MeasureDialogs(Bench& bench);
void MeasureList(Bench& bench);
void MeasureLongList(Bench& bench);
void MeasureVirtualList(Bench& bench);
void MeasureKeys(Bench& bench);
void MeasureTree(Bench& bench);
void MeasureTreeFolder(Bench& bench);
void MeasureTreeItems(Bench& bench);

} // namespace bench
