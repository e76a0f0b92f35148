// A list view of files: their columns, order and groups, in each of the three views.
#pragma once

#include <gallery/Folder.h>
#include <gallery/Page.h>

namespace gallery {

class FileList : public GList
{
public:
    enum Column : UINT
    {
        NAME,
        SIZE_KB,
        TYPE,
        DATE,
        COLUMN_COUNT
    };

    // How a folder is shown.
    struct Look
    {
        UINT uStyle; // GLS_...
        bool fSorted = false;
        bool fGrouped = false;       // by type
        const File* pOnly = nullptr; // the one file to show, or null for all
    };

    // The width of the column of names, in pixels: the others go by their content.
    explicit FileList(UINT cxName) : m_cxName(cxName) {}

    // Fills the list anew. The folder must live as long as its files are shown.
    void ShowFiles(Folder& folder, const Look& look);
    // Takes all rows away, and all columns but that of the names, for rows of the host's own.
    void ShowNamesOnly(UINT uStyle);
    // Null where there is no such item.
    File* FileAt(UINT item) const;

    // The items in sight.
    void AddParts(std::vector<Part>& parts);

private:
    void Restart(UINT uStyle, UINT nColumns);
    void AddColumn(Column column, UINT uStyle);
    void AddFile(File& file);
    static UINT GroupByType(GList* pList, void* customData);

    UINT m_cxName;
    const Folder* m_pFolder = nullptr;
};

} // namespace gallery
