#include <gallery/FolderTree.h>

#include <algorithm>
#include <sstream>

namespace gallery {

void* FolderTree::AddTop(LPCWSTR pszName, const std::wstring& path)
{
    void* hTop = InsertItem(nullptr, nullptr, pszName, FolderImage(), TIS_HASCHILDREN, nullptr);
    m_topPaths[hTop] = path;
    return hTop;
}

void* FolderTree::AddCounted(LPCWSTR pszName, UINT nEntries)
{
    void* hTop = InsertItem(nullptr, nullptr, pszName, FolderImage(), 0, nullptr);
    m_topPaths[hTop] = pszName;
    SetChildCount(hTop, nEntries);
    return hTop;
}

void FolderTree::RemoveTop(void* hTop)
{
    m_topPaths.erase(hTop);
    RemoveItem(hTop);
}

void FolderTree::RemoveTops()
{
    m_topPaths.clear();
    RemoveAllItems();
}

void FolderTree::NameEntry(const GLISTNOTIFY& record)
{
    m_entry = L"Entry " + std::to_wstring(record.iItem + 1);
    record.pDispInfo->text = m_entry.c_str();
    record.pDispInfo->image = FolderImage();
}

void FolderTree::FillFolder(void* hFolder)
{
    if (GetItemChildCount(hFolder) > 0) {
        return;
    }
    for (const Subfolder& subfolder : SubfoldersOf(PathOf(hFolder))) {
        InsertItem(hFolder, nullptr, subfolder.name.c_str(), FolderImage(),
                   subfolder.fHasSubfolders ? TIS_HASCHILDREN : 0, nullptr);
    }
    if (GetItemChildCount(hFolder) == 0) {
        SetItemState(hFolder, 0, TIS_HASCHILDREN);
    }
}

void* FolderTree::ChildNamed(void* hParent, LPCWSTR pszName) const
{
    void* const hNone = reinterpret_cast<void*>(-1);
    for (void* h = GetItemNextChild(hParent, nullptr); h != hNone; h = GetItemNextChild(hParent, h)) {
        if (lstrcmpiW(GetItemName(h), pszName) == 0) {
            return h;
        }
    }
    return nullptr;
}

std::wstring FolderTree::PathOf(void* hFolder) const
{
    const auto top = m_topPaths.find(hFolder);
    if (top != m_topPaths.end()) {
        return top->second;
    }
    void* hParent = hFolder ? GetItemParent(hFolder) : nullptr;
    return hParent ? PathOf(hParent) + L"\\" + GetItemName(hFolder) : L"";
}

// The nearest one, since a top may lie in another.
void* FolderTree::TopAbove(const std::wstring& path) const
{
    void* hNearest = nullptr;
    size_t nNearest = 0;
    for (const auto& [hTop, top] : m_topPaths) {
        if (top.size() > nNearest &&
            lstrcmpiW((path + L"\\").substr(0, top.size() + 1).c_str(), (top + L"\\").c_str()) == 0)
        {
            hNearest = hTop;
            nNearest = top.size();
        }
    }
    return hNearest;
}

void FolderTree::SelectFolder(const std::wstring& path)
{
    void* hFolder = TopAbove(path);
    std::wistringstream rest(hFolder ? path.substr(std::min(path.size(), m_topPaths[hFolder].size() + 1))
                                     : L"");
    for (std::wstring name; hFolder && std::getline(rest, name, L'\\');) {
        Expand(hFolder);
        hFolder = ChildNamed(hFolder, name.c_str());
    }
    SetSelectedItem(hFolder);
    if (hFolder) {
        EnsureVisible(hFolder);
    }
    Invalidate(0);
}

void FolderTree::AddParts(std::vector<Part>& parts) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const int nHeight = static_cast<int>(m_nItemHeight);
    const int nFirst = (m_siV.nPos + nHeight - 1) / nHeight;
    int y = nFirst * nHeight - m_siV.nPos;
    for (UINT row = static_cast<UINT>(nFirst); y + nHeight <= rc.bottom; ++row, y += nHeight) {
        const TreeItem* pItem = m_aVisible[row];
        if (!pItem) {
            break;
        }
        RECT rcRow{0, y, rc.right, y + nHeight};
        MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(&rcRow), 2);
        const std::wstring mark = row == m_nSelected ? L"*" : L"";
        parts.push_back(
            {L"row", static_cast<UINT>(pItem->nLevel), mark + static_cast<LPCWSTR>(pItem->strName), rcRow});
    }
}

} // namespace gallery
