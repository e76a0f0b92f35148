// A host that checks what crosses the DLL's border; prints `N passed, N failed`.
#include "Checks.h"

int main(int, char**)
{
    InitControls();
    CheckSizes();
    CheckPlaces();
    CheckContainers();
    CheckClasses();
    CheckExchange();
    CheckDialogs();
    CheckStandard();
    CheckOwnMemory();
    return Conclude();
}
