// Counts what holds and what does not. No test framework: the program has to be built by any compiler with
// nothing but the package.
#pragma once

#include <gesso/gesso.h>

// One check. `what` names it, within the group that is open.
bool Check(bool fHolds, const char* pszWhat);
// The same, telling both numbers where they differ.
bool Same(long long nFound, long long nExpected, const char* pszWhat);
// Of texts; null counts as empty.
bool Same(LPCWSTR pszFound, LPCWSTR pszExpected, const char* pszWhat);

// A size or a place, which the two C++ interfaces may have different: of a class whose base ends in padding,
// one puts the first field there, and Microsoft's does not.
bool SameForBoth(size_t nFound, size_t nGnu, size_t nMicrosoft, const char* pszWhat);

// What the checks that follow are about.
void Group(const char* pszName);
// Prints `N passed, N failed`; returns the program's exit status.
int Conclude();

// A window of the host's own class, which counts what its controls report.
struct HostWindow
{
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND hwnd = nullptr;
    int nCommands = 0;
    UINT uLastId = 0;
    UINT uLastCode = 0; // of WM_COMMAND
    int nNotifies = 0;
    UINT uSearched = 0; // a code of WM_NOTIFY to count
    int nFound = 0;
};

void CheckClasses();
void CheckContainers();
void CheckDialogs();
void CheckExchange();
void CheckOwnMemory();
void CheckPlaces();
void CheckSizes();
void CheckStandard();
