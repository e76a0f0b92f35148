// Activation contexts: those made from a module's manifest, and the stack of what is active.
#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../core/Text.h"

#include <algorithm>
#include <memory>
#include <unordered_map>

using namespace gesso::headless;

namespace {

struct Context
{
    std::string manifest;
    int references = 1;
};

struct Activation
{
    ULONG_PTR cookie;
    HANDLE context; // null is the process's own context
};

std::unordered_map<HANDLE, std::unique_ptr<Context>>& Contexts()
{
    static std::unordered_map<HANDLE, std::unique_ptr<Context>> s_contexts;
    return s_contexts;
}

std::vector<Activation>& Activations()
{
    static thread_local std::vector<Activation> s_activations;
    return s_activations;
}

constinit thread_local ULONG_PTR s_lastCookie = 0;

BOOL FailWith(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

// A manifest that names the common controls redirects their module.
bool RedirectsCommonControls(HANDLE context)
{
    const TableLock lock;
    const auto found = Contexts().find(context);
    return found != Contexts().end() &&
           found->second->manifest.find("Microsoft.Windows.Common-Controls") != std::string::npos;
}

} // namespace

namespace gesso::headless {

int ActivationDepth()
{
    return static_cast<int>(Activations().size());
}

} // namespace gesso::headless

BOOL WINAPI QueryActCtxW(DWORD, HANDLE, PVOID, ULONG info, PVOID buffer, SIZE_T size, SIZE_T* written)
{
    if (FaultFires("QueryActCtxW")) {
        return FALSE;
    }
    if (info != ActivationContextBasicInformation || size < sizeof(ACTIVATION_CONTEXT_BASIC_INFORMATION)) {
        return FailWith(ERROR_INVALID_PARAMETER);
    }
    // No module of the simulated process was loaded with a context of its own.
    *static_cast<ACTIVATION_CONTEXT_BASIC_INFORMATION*>(buffer) = {nullptr, 0};
    if (written) {
        *written = sizeof(ACTIVATION_CONTEXT_BASIC_INFORMATION);
    }
    return TRUE;
}

HANDLE WINAPI CreateActCtxW(PCACTCTXW source)
{
    const TableLock lock;
    constexpr DWORD NEEDED = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    if (FaultFires("CreateActCtxW")) {
        return INVALID_HANDLE_VALUE;
    }
    if (source->cbSize != sizeof(ACTCTXW) || (source->dwFlags & NEEDED) != NEEDED) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    const CallsBy platform(Caller::Platform);
    const HRSRC resource = FindResourceW(source->hModule, source->lpResourceName, MAKEINTRESOURCEW(24));
    if (!resource) {
        return INVALID_HANDLE_VALUE;
    }
    auto context = std::make_unique<Context>();
    const auto* bytes = static_cast<const char*>(LockResource(LoadResource(source->hModule, resource)));
    context->manifest.assign(bytes, SizeofResource(source->hModule, resource));
    const HANDLE handle = context.get();
    Track(Kind::ActivationContext, handle);
    Contexts().emplace(handle, std::move(context));
    return handle;
}

void WINAPI AddRefActCtx(HANDLE context)
{
    const TableLock lock;
    const auto found = Contexts().find(context);
    if (found != Contexts().end()) {
        ++found->second->references;
    }
}

void WINAPI ReleaseActCtx(HANDLE context)
{
    const TableLock lock;
    const auto found = Contexts().find(context);
    if (found != Contexts().end() && --found->second->references == 0) {
        Untrack(Kind::ActivationContext, context);
        Contexts().erase(found);
    }
}

BOOL WINAPI ActivateActCtx(HANDLE context, ULONG_PTR* cookie)
{
    if (FaultFires("ActivateActCtx")) {
        return FALSE;
    }
    if (context && !IsLive(Kind::ActivationContext, context)) {
        return FailWith(ERROR_INVALID_HANDLE);
    }
    AddRefActCtx(context);
    Activations().push_back({++s_lastCookie, context});
    *cookie = s_lastCookie;
    return TRUE;
}

BOOL WINAPI DeactivateActCtx(DWORD, ULONG_PTR cookie)
{
    if (FaultFires("DeactivateActCtx")) {
        return FALSE;
    }
    auto& stack = Activations();
    const auto found = std::find_if(stack.begin(), stack.end(),
                                    [cookie](const Activation& a) { return a.cookie == cookie; });
    if (found == stack.end()) {
        return FailWith(ERROR_INVALID_PARAMETER);
    }
    // What was activated above it goes with it.
    while (ActivationDepth() > 0 && stack.back().cookie >= cookie) {
        const HANDLE context = stack.back().context;
        stack.pop_back();
        ReleaseActCtx(context);
    }
    return TRUE;
}

BOOL WINAPI FindActCtxSectionStringW(DWORD, const GUID*, ULONG section, LPCWSTR text,
                                     PACTCTX_SECTION_KEYED_DATA data)
{
    if (FaultFires("FindActCtxSectionStringW")) {
        return FALSE;
    }
    if (!data || data->cbSize < sizeof(ACTCTX_SECTION_KEYED_DATA_2600)) {
        return FailWith(ERROR_INVALID_PARAMETER);
    }
    const auto& stack = Activations();
    const bool found = section == ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION && !stack.empty() &&
                       EqualIgnoringCase(View(text), u"comctl32.dll") &&
                       RedirectsCommonControls(stack.back().context);
    return found ? TRUE : FailWith(ERROR_SXS_KEY_NOT_FOUND);
}
