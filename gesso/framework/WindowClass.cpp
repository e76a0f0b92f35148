#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/WindowClass.h>

namespace gesso {
namespace {

constexpr WORD ARROW_CURSOR = 32512; // IDC_ARROW, whose macro depends on how the narrow names are mapped

} // namespace

ATOM RegisterControlClass(ATOM& aClass, LPCWSTR pszName, WNDPROC pfnWindow, UINT uStyle, int nBackground)
{
    return MakeOnce(aClass, [=] {
        WNDCLASSEXW record{};
        record.cbSize = sizeof(record);
        record.style = uStyle;
        record.lpfnWndProc = pfnWindow;
        record.cbWndExtra = Frame::EXTRA_BYTES;
        // The host's program, not this library: windows are made with a null instance and find the class
        // there.
        record.hInstance = GetModuleHandleW(nullptr);
        record.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(ARROW_CURSOR));
        record.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<LONG_PTR>(nBackground));
        record.lpszClassName = pszName;
        return IsolationAwareRegisterClassExW(&record);
    });
}

} // namespace gesso
