#include <gesso/framework/ControlTable.h>
#include <gesso/framework/FontChange.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Module.h>
#include <gesso/framework/SystemAppearance.h>
#include <gesso/framework/WindowDpi.h>

constinit HMODULE g_hModule = nullptr;
constinit HFONT g_hDefaultFont = nullptr;
constinit std::atomic<void (*)()> gesso::g_pfnForgetFonts = nullptr;

namespace {

HFONT MakeDefaultFont()
{
    return CreateFontW(gesso::ScreenFontHeight(gesso::Metrics::DEFAULT_FONT_POINTS), 0, 0, 0, FW_NORMAL, 0, 0,
                       0, 0, 0, 0, 0, 0, L"Segoe UI");
}

} // namespace

void InitControls()
{
    gesso::MakeOnce(g_hDefaultFont, MakeDefaultFont);
    for (const gesso::RegisterClassFunction pfnRegister : gesso::StartupClasses()) {
        pfnRegister();
    }
}

void* CreateControl(int nKind)
{
    const auto kinds = gesso::ControlKinds();
    if (nKind < 1 || static_cast<size_t>(nKind) > kinds.size()) {
        return nullptr;
    }
    return kinds[static_cast<size_t>(nKind) - 1]();
}

extern "C" BOOL WINAPI DllMain(HINSTANCE hModule, DWORD dwReason, void* pProcessEnds)
{
    if (dwReason == DLL_PROCESS_ATTACH) {
        g_hModule = hModule;
    } else if (dwReason == DLL_PROCESS_DETACH && !pProcessEnds) {
        gesso::LeaveListener();
        gesso::ForgetFonts();
        gesso::ReleaseSharedFonts();
    }
    return TRUE;
}
