#include <gesso/access/NodeText.h>
#include <gesso/access/NodeWalk.h>

namespace gesso {
namespace {

// What was looked for, and what has been met of it.
class Search
{
public:
    Search(Role role, LPCWSTR pszName) : m_role(role), m_pszName(pszName) {}

    void Meet(const AccessibleNode& node)
    {
        if (node.role() != m_role || (m_pszName && !(node.Body()->Name() == m_pszName))) {
            return;
        }
        Match& match = node.GetState() & STATE_SYSTEM_INVISIBLE ? m_hidden : m_shown;
        // An item of a group comes twice.
        if (!match.node || !match.node.Body()->IsSame(*node.Body())) {
            match.node = node;
            ++match.nCount;
        }
    }

    UINT Count() const { return Best().nCount; }
    AccessibleNode Found() const { return Count() == 1 ? Best().node : AccessibleNode(); }

private:
    struct Match
    {
        AccessibleNode node;
        UINT nCount = 0;
    };
    const Match& Best() const { return m_shown.nCount ? m_shown : m_hidden; }

    Role m_role;
    LPCWSTR m_pszName;
    Match m_shown, m_hidden;
};

void TellWhy(HWND root, Role role, LPCWSTR pszName, UINT nCount)
{
    const AccessString strWhat = AccessString::Build(L"FindAccessible: %u of %s \"%s\", in\n", nCount,
                                                     WordOf(role), pszName ? pszName : L"");
    OutputDebugStringA((ToUtf8(strWhat) + AccessibleTree(root)).c_str());
}

} // namespace

AccessibleNode FindAccessible(HWND root, Role role, LPCWSTR name)
{
    Search search(role, name);
    WalkWindow(root, 0, [&](const AccessibleNode& node, UINT) {
        search.Meet(node);
        return true;
    });
    if (search.Count() != 1) {
        TellWhy(root, role, name, search.Count());
    }
    return search.Found();
}

} // namespace gesso
