// A tree of the folders of this machine, each filled when it is first expanded.
#pragma once

#include <gallery/Folder.h>
#include <gallery/Page.h>

#include <map>

namespace gallery {

class FolderTree : public GTree
{
public:
    // A folder at the top, under a name of its own. Returns its item.
    void* AddTop(LPCWSTR pszName, const std::wstring& path);
    // A folder at the top of which only the number of entries is known, and that without it again.
    void* AddCounted(LPCWSTR pszName, UINT nEntries);
    void RemoveTop(void* hTop);
    void RemoveTops();
    // For the host's TVN_GETDISPINFO: an entry is named by its number.
    void NameEntry(const GLISTNOTIFY& record);
    // For the host's TVN_ITEMEXPANDING: once filled, a folder stays as it is.
    void FillFolder(void* hFolder);
    // Null where there is none.
    void* ChildNamed(void* hParent, LPCWSTR pszName) const;
    // Empty of what is no folder in the tree, such as the row that a removed one leaves in Classic.
    std::wstring PathOf(void* hFolder) const;
    // Selects a folder and brings it into view, its parents expanded; where it is in none of the tops,
    // nothing is selected.
    void SelectFolder(const std::wstring& path);

    // The rows in sight; each is as wide as the client area, and the selected one's text begins with a star.
    void AddParts(std::vector<Part>& parts) const;

private:
    void* TopAbove(const std::wstring& path) const;

    std::map<void*, std::wstring> m_topPaths;
    std::wstring m_entry;
};

} // namespace gallery
