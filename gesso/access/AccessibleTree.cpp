// The tree as text, and the words of roles and states.
#include <gesso/access/NodeText.h>
#include <gesso/access/NodeWalk.h>

#include <algorithm>

namespace gesso {
namespace {

struct StateWord
{
    UINT uBit;
    LPCWSTR pszWord;
};
// From the lowest bit to the highest.
constexpr StateWord STATES[] = {
    {STATE_SYSTEM_UNAVAILABLE, L"unavailable"}, {STATE_SYSTEM_SELECTED, L"selected"},
    {STATE_SYSTEM_FOCUSED, L"focused"},         {STATE_SYSTEM_PRESSED, L"pressed"},
    {STATE_SYSTEM_CHECKED, L"checked"},         {STATE_SYSTEM_MIXED, L"mixed"},
    {STATE_SYSTEM_READONLY, L"read only"},      {STATE_SYSTEM_HOTTRACKED, L"hot"},
    {STATE_SYSTEM_DEFAULT, L"default"},         {STATE_SYSTEM_EXPANDED, L"expanded"},
    {STATE_SYSTEM_COLLAPSED, L"collapsed"},     {STATE_SYSTEM_INVISIBLE, L"invisible"},
    {STATE_SYSTEM_OFFSCREEN, L"offscreen"},     {STATE_SYSTEM_FOCUSABLE, L"focusable"},
    {STATE_SYSTEM_SELECTABLE, L"selectable"},   {STATE_SYSTEM_MULTISELECTABLE, L"multi selectable"},
    {STATE_SYSTEM_PROTECTED, L"protected"},
};
static_assert(std::ranges::is_sorted(STATES, {}, &StateWord::uBit));

// By their numbers, from 0.
constexpr LPCWSTR ROLES[] = {L"none",
                             L"title bar",
                             L"menu bar",
                             L"scroll bar",
                             L"grip",
                             L"sound",
                             L"cursor",
                             L"caret",
                             L"alert",
                             L"window",
                             L"client",
                             L"menu popup",
                             L"menu item",
                             L"tool tip",
                             L"application",
                             L"document",
                             L"pane",
                             L"chart",
                             L"dialog",
                             L"border",
                             L"grouping",
                             L"separator",
                             L"tool bar",
                             L"status bar",
                             L"table",
                             L"column header",
                             L"row header",
                             L"column",
                             L"row",
                             L"cell",
                             L"link",
                             L"help balloon",
                             L"character",
                             L"list",
                             L"list item",
                             L"outline",
                             L"outline item",
                             L"page tab",
                             L"property page",
                             L"indicator",
                             L"graphic",
                             L"static text",
                             L"text",
                             L"push button",
                             L"check button",
                             L"radio button",
                             L"combo box",
                             L"drop list",
                             L"progress bar",
                             L"dial",
                             L"hotkey field",
                             L"slider",
                             L"spin button",
                             L"diagram",
                             L"animation",
                             L"equation",
                             L"button drop down",
                             L"button menu",
                             L"button drop down grid",
                             L"white space",
                             L"page tab list",
                             L"clock",
                             L"split button",
                             L"ip address",
                             L"outline button"};
static_assert(std::size(ROLES) == ROLE_SYSTEM_OUTLINEBUTTON + 1);

void PutQuoted(TextSink& sink, const AccessString& str)
{
    sink.Put(L'"');
    for (LPCWSTR p = str; *p; ++p) {
        switch (*p) {
        case L'\r': sink.Put(L"\\r"); break;
        case L'\n': sink.Put(L"\\n"); break;
        case L'"':
        case L'\\': sink.Put(L'\\'); [[fallthrough]];
        default: sink.Put(*p); break;
        }
    }
    sink.Put(L'"');
}

void PutStates(TextSink& sink, UINT uState)
{
    LPCWSTR pszBetween = L"";
    sink.Put(L" [");
    for (const StateWord& state : STATES) {
        if (uState & state.uBit) {
            sink.Put(pszBetween);
            sink.Put(state.pszWord);
            pszBetween = L", ";
        }
    }
    sink.Put(L']');
}

} // namespace

void TextSink::Put(wchar_t ch)
{
    if (m_nLength + 1 < m_nCapacity) {
        m_pszBuffer[m_nLength] = ch;
    }
    ++m_nLength;
}

void TextSink::Put(LPCWSTR psz)
{
    while (*psz) {
        Put(*psz++);
    }
}

UINT TextSink::End()
{
    if (m_nCapacity) {
        m_pszBuffer[std::min(m_nLength, m_nCapacity - 1)] = 0;
    }
    return m_nLength;
}

LPCWSTR WordOf(Role role)
{
    const auto nRole = static_cast<size_t>(role);
    return nRole < std::size(ROLES) ? ROLES[nRole] : L"unknown";
}

void PutNode(TextSink& sink, const AccessibleNode& node)
{
    const NodeBody& body = *node.Body();
    sink.Put(WordOf(body.GetRole()));
    sink.Put(L' ');
    PutQuoted(sink, body.Name());
    if (const AccessString strValue = body.Value(); strValue.GetLength()) {
        sink.Put(L" = ");
        PutQuoted(sink, strValue);
    }
    if (const AccessString strDescription = body.Description(); strDescription.GetLength()) {
        sink.Put(L" description ");
        PutQuoted(sink, strDescription);
    }
    PutStates(sink, body.State());
}

UINT AccessibleTree(HWND root, LPWSTR text, UINT capacity)
{
    TextSink sink(text, text ? capacity : 0);
    WalkWindow(root, 0, [&](const AccessibleNode& node, UINT nLevel) {
        for (UINT n = 0; n < nLevel; ++n) {
            sink.Put(L"  ");
        }
        PutNode(sink, node);
        sink.Put(L'\n');
        return true;
    });
    return sink.End();
}

} // namespace gesso
