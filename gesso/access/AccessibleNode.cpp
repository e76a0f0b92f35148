#include <gesso/access/NodeBody.h>

#include <algorithm>
#include <new>
#include <utility>

namespace gesso {
namespace {

class OwnBody final : public NodeBody
{
public:
    explicit OwnBody(const AccessibleThing& thing) : m_thing(thing) {}

    HWND Window() const override { return m_thing.Window(); }
    bool IsSame(const NodeBody& other) const override
    {
        const auto* pOwn = dynamic_cast<const OwnBody*>(&other);
        return pOwn && pOwn->m_thing == m_thing;
    }
    bool IsThere() const override { return m_thing.Check() == S_OK; }
    Role GetRole() const override { return IsThere() ? m_thing.GetRole() : Role::None; }
    AccessString Name() const override { return IsThere() ? m_thing.Name() : AccessString(); }
    AccessString Value() const override
    {
        const bool fTold = IsThere() && !(m_thing.State() & STATE_SYSTEM_PROTECTED);
        return fTold && IsThere() ? m_thing.Value() : AccessString();
    }
    AccessString Description() const override { return IsThere() ? m_thing.Description() : AccessString(); }
    UINT State() const override { return IsThere() ? m_thing.State() : 0; }
    RECT Rect() const override { return IsThere() ? m_thing.Rect() : RECT{}; }
    UINT Count() const override { return IsThere() ? m_thing.Count() : 0; }
    AccessibleNode Child(UINT nIndex) const override
    {
        return nIndex < Count() ? NodeOf(m_thing.Child(nIndex)) : AccessibleNode();
    }
    bool Act() const override { return IsThere() && m_thing.Act(); }
    bool Select() const override { return IsThere() && m_thing.Choose(AccessibleChoice::Only); }
    bool Open(bool fOpen) const override { return IsThere() && m_thing.Open(fOpen); }
    bool Show() const override { return IsThere() && m_thing.Show(); }
    bool SetValue(LPCWSTR pszValue) const override { return IsThere() && m_thing.SetValue(pszValue); }

private:
    AccessibleThing m_thing;
};

UINT CopyText(const AccessString& str, LPWSTR pszBuffer, UINT nCapacity)
{
    if (pszBuffer && nCapacity) {
        const UINT nCopied = std::min(str.GetLength(), nCapacity - 1);
        std::memcpy(pszBuffer, static_cast<LPCWSTR>(str), nCopied * sizeof(wchar_t));
        pszBuffer[nCopied] = 0;
    }
    return str.GetLength();
}

} // namespace

AccessibleNode NodeOf(const AccessibleThing& thing)
{
    return AccessibleNode(new (std::nothrow) OwnBody(thing));
}

AccessibleNode NodeOfWindow(HWND hwnd)
{
    if (!IsWindow(hwnd)) {
        return {};
    }
    const auto thing = FindThing(hwnd);
    return thing ? NodeOf(*thing) : NodeOfPlatform(hwnd);
}

AccessibleNode::AccessibleNode(const AccessibleNode& other) noexcept : m_pBody(other.m_pBody)
{
    if (m_pBody) {
        m_pBody->AddRef();
    }
}

AccessibleNode& AccessibleNode::operator=(const AccessibleNode& other) noexcept
{
    AccessibleNode copy(other);
    std::swap(m_pBody, copy.m_pBody);
    return *this;
}

AccessibleNode::~AccessibleNode()
{
    if (m_pBody) {
        m_pBody->Release();
    }
}

Role AccessibleNode::role() const
{
    return m_pBody ? m_pBody->GetRole() : Role::None;
}

UINT AccessibleNode::GetName(LPWSTR buffer, UINT capacity) const
{
    return CopyText(m_pBody ? m_pBody->Name() : AccessString(), buffer, capacity);
}

UINT AccessibleNode::GetValue(LPWSTR buffer, UINT capacity) const
{
    return CopyText(m_pBody ? m_pBody->Value() : AccessString(), buffer, capacity);
}

UINT AccessibleNode::GetDescription(LPWSTR buffer, UINT capacity) const
{
    return CopyText(m_pBody ? m_pBody->Description() : AccessString(), buffer, capacity);
}

UINT AccessibleNode::GetState() const
{
    return m_pBody ? m_pBody->State() : 0;
}

RECT AccessibleNode::GetRect() const
{
    return m_pBody ? m_pBody->Rect() : RECT{};
}

UINT AccessibleNode::GetChildCount() const
{
    return m_pBody ? m_pBody->Count() : 0;
}

AccessibleNode AccessibleNode::GetChild(UINT index) const
{
    return m_pBody ? m_pBody->Child(index) : AccessibleNode();
}

bool AccessibleNode::Press() const
{
    return m_pBody && m_pBody->Act();
}

bool AccessibleNode::Select() const
{
    return m_pBody && m_pBody->Select();
}

bool AccessibleNode::Expand() const
{
    return m_pBody && m_pBody->Open(true);
}

bool AccessibleNode::Collapse() const
{
    return m_pBody && m_pBody->Open(false);
}

bool AccessibleNode::ScrollIntoView() const
{
    return m_pBody && m_pBody->Show();
}

bool AccessibleNode::SetValue(LPCWSTR value) const
{
    return m_pBody && m_pBody->SetValue(value);
}

} // namespace gesso
