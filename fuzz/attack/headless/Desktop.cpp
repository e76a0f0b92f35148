// The desktop's other side: the simulated desktop's driver.
#include "../Desktop.h"

#include <gesso/text/FallbackFonts.h>
#include <platform/headless/headless.h>

#include <sanitizer/common_interface_defs.h>

#include <algorithm>
#include <csignal>
#include <sstream>
#include <unistd.h>

namespace attack::desk {

namespace simulated = gesso::headless;

void Reset()
{
    simulated::RemoveResources(simulated::HostModule());
    simulated::Reset();
    gesso::ForgetFallbackFonts(); // of a run before
}

std::vector<HWND> TopLevelWindows()
{
    return simulated::TopLevelWindows();
}

HMODULE HostModule()
{
    return simulated::HostModule();
}

HMODULE LibraryModule()
{
    return simulated::LibraryModule();
}

std::string MessageName(UINT uMsg)
{
    return simulated::MessageName(uMsg);
}

// --- A user, and the time

void PressButton(Button button)
{
    simulated::PressButton(static_cast<simulated::Button>(button));
}

void ReleaseButton(Button button)
{
    simulated::ReleaseButton(static_cast<simulated::Button>(button));
}

void SwitchAway()
{
    simulated::SwitchAway();
}

void SetClipboardText(std::string_view text)
{
    simulated::SetClipboardText(text);
}

void Pump()
{
    simulated::Pump();
}

void LetPass(DWORD dwMilliseconds)
{
    simulated::Advance(dwMilliseconds);
}

bool IsHostFree()
{
    return true;
}

void WhenIdle(void (*pfn)())
{
    simulated::WhenIdle(pfn);
}

// --- The style, and faults

void SetThemed(HWND, bool fThemed)
{
    simulated::SetThemed(fThemed);
}

void ClearFaults()
{
    simulated::ClearFaults();
}

// --- What the process holds

Census Live()
{
    const simulated::Census census = simulated::Live();
    return {{census.counts.begin(), census.counts.end()}};
}

bool Grew(const Census& before, const Census& after)
{
    return before.counts != after.counts;
}

std::string Told(const Census& census)
{
    simulated::Census told;
    std::copy(census.counts.begin(), census.counts.end(), told.counts.begin());
    std::ostringstream out;
    out << told;
    return out.str();
}

bool HeapIsClean()
{
    return simulated::HeapIsClean();
}

// --- Its end

namespace {

void (*s_pfnTell)() = nullptr;

extern "C" void OnAbort(int)
{
    s_pfnTell();
    _exit(1);
}

extern "C" void OnAlarm(int)
{
    static constexpr char LINE[] = "attack: the operation does not end\n";
    static_cast<void>(!write(2, LINE, sizeof(LINE) - 1));
    std::abort();
}

} // namespace

void AtBadEnd(void (*pfnTell)())
{
    s_pfnTell = pfnTell;
    std::signal(SIGABRT, OnAbort);
    std::signal(SIGALRM, OnAlarm);
    __sanitizer_set_death_callback(pfnTell);
}

void EndAfter(unsigned nSeconds)
{
    alarm(nSeconds);
}

} // namespace attack::desk
