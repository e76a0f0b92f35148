// Dialogs and ribbons from resources.

#include "../Call.h"
#include "../Dialogs.h"

#include <platform/headless/headless.h>
#include <tests/support/RibbonTemplate.h>

namespace attack {

namespace {

namespace simulated = gesso::headless;

// A template that is being read stays, whatever runs within: each has a number of its own.
UINT s_nDepth = 0;

void RunFromResource(World& world, Source& source)
{
    const test::DialogTemplate dialog = AnyTemplate(source);
    const UINT nId = 700 + s_nDepth++;
    simulated::AddResource(simulated::HostModule(), L"RT_DLG", MAKEINTRESOURCEW(nId), dialog.Bytes());
    HostDialog modal(nId);
    modal.DoModal(world.AnyParent(source), simulated::HostModule());
    --s_nDepth;
}

// A ribbon's images, of which some bytes are others.
void MakeRibbon(World& world, Source& source)
{
    std::vector<BYTE> bytes =
        test::LayOutTemplate(test::Strip::Numbered(64, 32, 0), test::Strip::Numbered(32, 16, 5000));
    for (UINT n = source.Below(6); n > 0; --n) {
        bytes[source.Below(source.Flag() ? 80 : static_cast<UINT>(bytes.size()))] =
            static_cast<BYTE>(source.Next());
    }
    bytes.resize(source.Chance(3) ? source.Below(static_cast<UINT>(bytes.size())) : bytes.size());
    const UINT nId = 700 + s_nDepth++;
    simulated::AddResource(simulated::HostModule(), L"RT_DLG", MAKEINTRESOURCEW(nId),
                           std::as_bytes(std::span(bytes)));
    GRibbon ribbon(nId);
    const HWND hwnd = ribbon.Create(0, 0, source.Size(), 120, world.Host(), simulated::HostModule());
    desk::Pump();
    DestroyWindow(hwnd);
    --s_nDepth;
}

} // namespace

void AddFromResources(Table& table)
{
    Add(table, {{"DoModal", RunFromResource, 4}, {"MakeRibbon", MakeRibbon, 4}});
}

} // namespace attack
