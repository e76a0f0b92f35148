// The texts and values that interfaces hand over: BSTR and VARIANT.
#include "../core/Accounting.h"
#include "../core/Faults.h"

#include <cstdlib>

using namespace gesso::headless;

namespace {

// In front of the characters stands how many bytes they are, without the terminator. Programs see the four
// bytes before the text; those before them only keep it aligned.
struct Header
{
    uint32_t unused;
    uint32_t bytes;
};

Header* HeaderOf(BSTR text)
{
    return reinterpret_cast<Header*>(text) - 1;
}

BSTR Make(LPCWSTR characters, UINT length)
{
    const size_t bytes = size_t{length} * sizeof(WCHAR);
    auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + bytes + sizeof(WCHAR)));
    if (!header) {
        return nullptr;
    }
    *header = {0, static_cast<uint32_t>(bytes)};
    const auto text = reinterpret_cast<BSTR>(header + 1);
    if (characters) {
        std::memcpy(text, characters, bytes);
    }
    text[length] = 0;
    Track(Kind::BasicString, text);
    return text;
}

bool HoldsInterface(const VARIANT& value)
{
    return V_VT(&value) == VT_DISPATCH || V_VT(&value) == VT_UNKNOWN;
}

// Those that interfaces of accessibility use: no arrays, no references.
bool IsKnown(const VARIANT& value)
{
    switch (V_VT(&value)) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_I2:
    case VT_I4:
    case VT_BOOL:
    case VT_ERROR:
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN: return true;
    default: return false;
    }
}

} // namespace

extern "C" {

BSTR WINAPI SysAllocString(LPCOLESTR text)
{
    if (FaultFires("SysAllocString") || !text) {
        return nullptr;
    }
    return Make(text, static_cast<UINT>(wcslen(text)));
}

// Without a text the characters are the caller's to fill in.
BSTR WINAPI SysAllocStringLen(const OLECHAR* text, UINT length)
{
    constexpr UINT MOST = 0x3FFFFFFF;
    return FaultFires("SysAllocStringLen") || length > MOST ? nullptr : Make(text, length);
}

void WINAPI SysFreeString(BSTR text)
{
    if (text) {
        Untrack(Kind::BasicString, text);
        std::free(HeaderOf(text)); // which finds one that is freed twice
    }
}

UINT WINAPI SysStringLen(BSTR text)
{
    return text ? HeaderOf(text)->bytes / UINT{sizeof(WCHAR)} : 0;
}

void WINAPI VariantInit(VARIANTARG* value)
{
    V_VT(value) = VT_EMPTY;
}

HRESULT WINAPI VariantClear(VARIANTARG* value)
{
    if (!IsKnown(*value)) {
        return DISP_E_BADVARTYPE;
    }
    if (V_VT(value) == VT_BSTR) {
        SysFreeString(V_BSTR(value));
    } else if (HoldsInterface(*value) && V_UNKNOWN(value)) {
        V_UNKNOWN(value)->Release();
    }
    V_VT(value) = VT_EMPTY;
    return S_OK;
}

HRESULT WINAPI VariantCopy(VARIANTARG* to, const VARIANTARG* from)
{
    if (FaultFires("VariantCopy")) {
        return FaultResult();
    }
    if (to == from) {
        return S_OK;
    }
    if (!IsKnown(*from)) {
        return DISP_E_BADVARTYPE;
    }
    const HRESULT cleared = VariantClear(to);
    if (FAILED(cleared)) {
        return cleared;
    }
    VARIANT copy = *from;
    if (V_VT(from) == VT_BSTR && V_BSTR(from)) {
        V_BSTR(&copy) = Make(V_BSTR(from), SysStringLen(V_BSTR(from)));
        if (!V_BSTR(&copy)) {
            return E_OUTOFMEMORY;
        }
    } else if (HoldsInterface(*from) && V_UNKNOWN(from)) {
        V_UNKNOWN(from)->AddRef();
    }
    *to = copy;
    return S_OK;
}
}
