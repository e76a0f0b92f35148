// The host's new and delete are not the DLL's, as a debug build's are not: its blocks bear a mark, and a
// block without one that is to be freed here is told. All other checks run over it, too.
#include "Checks.h"

#include <stdlib.h>

namespace {

struct BlockHead
{
    size_t uMark;
    size_t uPadding; // blocks are aligned to 16 bytes
};

constexpr size_t MARK = 0x686F73742773206Fu;
int s_nLive = 0;
int s_nForeign = 0;

void* MakeBlock(size_t cb)
{
    auto* pHead = static_cast<BlockHead*>(malloc(cb + sizeof(BlockHead)));
    if (!pHead) {
        throw std::bad_alloc();
    }
    pHead->uMark = MARK;
    ++s_nLive;
    return pHead + 1;
}

void FreeBlock(void* p) noexcept
{
    if (!p) {
        return;
    }
    BlockHead* pHead = static_cast<BlockHead*>(p) - 1;
    if (pHead->uMark != MARK) {
        ++s_nForeign;
        return;
    }
    pHead->uMark = 0;
    --s_nLive;
    free(pHead);
}

class HostsField : public GEdit
{};

// More than any allocator gives without being asked.
class alignas(128) HostsWide : public GButton
{
public:
    explicit HostsWide(bool fFails = false)
    {
        if (fFails) {
            throw s_nLive;
        }
    }
    float aColumns[32]{};
};

bool IsAligned(const void* p)
{
    return reinterpret_cast<size_t>(p) % alignof(HostsWide) == 0;
}

void CheckAligned()
{
    Group("memory of a class that is aligned to more");
    const int nBefore = s_nLive;
    auto* pWide = new HostsWide;
    Check(IsAligned(pWide), "made by new");
    GWnd* pWnd = pWide;
    pWnd->Delete(pWnd);
    pWide = new (std::nothrow) HostsWide;
    Check(IsAligned(pWide), "made by new without exceptions");
    delete static_cast<GWnd*>(pWide);
    auto* const pSeveral = new HostsWide[3];
    Check(IsAligned(pSeveral) && IsAligned(pSeveral + 2), "several");
    delete[] pSeveral;
    alignas(HostsWide) char place[sizeof(HostsWide)];
    pWide = new (place) HostsWide;
    Check(static_cast<void*>(pWide) == place, "in a place of the host's");
    pWide->~HostsWide();
    bool fThrown = false;
    try {
        delete new HostsWide(true);
    } catch (int) {
        fThrown = true;
    }
    Check(fThrown, "one whose constructor throws");
    Same(s_nLive, nBefore, "none of the host's blocks is used");
}

// As the host and as the library delete it.
template <class CLASS, class... ARGS> void CheckClass(const char* pszName, ARGS... args)
{
    Group(pszName);
    const int nBefore = s_nLive;
    auto* pObject = new CLASS(args...);
    delete pObject;
    pObject = new CLASS(args...);
    pObject->Delete(pObject);
    pObject = new (std::nothrow) CLASS(args...);
    Check(pObject != nullptr, "made by new without exceptions");
    delete pObject;
    delete[] new CLASS[2]{CLASS(args...), CLASS(args...)};
    Same(s_nLive, nBefore, "none of the host's blocks is used");
}

void CheckTooMuch()
{
    Group("no memory");
    const size_t nTooMany = static_cast<size_t>(-1) / sizeof(GButton) / 4;
    bool fThrown = false;
    try {
        volatile size_t nAsked = nTooMany;
        delete[] new GButton[nAsked];
    } catch (const std::bad_alloc&) {
        fThrown = true;
    }
    Check(fThrown, "new throws what it always does");
}

} // namespace

void* operator new(size_t cb)
{
    return MakeBlock(cb);
}

void* operator new[](size_t cb)
{
    return MakeBlock(cb);
}

void operator delete(void* p) noexcept
{
    FreeBlock(p);
}

void operator delete(void* p, size_t) noexcept
{
    FreeBlock(p);
}

void operator delete[](void* p) noexcept
{
    FreeBlock(p);
}

void operator delete[](void* p, size_t) noexcept
{
    FreeBlock(p);
}

void CheckOwnMemory()
{
    CheckClass<GButton>("memory of a button");
    CheckClass<HostsField>("memory of a field that the host derives");
    CheckClass<GTree>("memory of a tree");
    CheckClass<GRibbonPage>("memory of a ribbon page", 1u, L"Page");
    CheckAligned();
    CheckTooMuch();
    Group("memory of controls by kind");
    delete static_cast<GList*>(CreateControl(GCK_LIST));
    Same(s_nForeign, 0, "no block of the library's was freed by the host");
}
