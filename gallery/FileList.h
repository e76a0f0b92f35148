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
    // The same in parts, for a host that goes on meanwhile: the emptied list, a file, and another, and at
    // last their order. It takes longer in all, since each file is laid out at once.
    void Begin(Folder& folder, const Look& look);
    void Add(File& file);
    void End();
    // Takes all rows away, and all columns but that of the names, for rows of the host's own.
    void ShowNamesOnly(UINT uStyle);
    // So many rows that are computed from their number, in groups, if any, of so many and of all others.
    void ShowNumbers(UINT uStyle, UINT nCount, UINT nFirstGroup);
    // Puts them in the order that a header click asks for: by their numbers alone, and without groups. False
    // where that is another one.
    bool OrderNumbers();
    // Null where there is no such item.
    File* FileAt(UINT item) const;
    // Selects a file and has the keys go on from there: the one of that name, or else the first.
    void GoTo(const std::wstring& name);

    // The items in sight.
    void AddParts(std::vector<Part>& parts);

private:
    void Restart(UINT uStyle, UINT nColumns);
    void AddColumn(Column column, UINT uStyle);
    static UINT GroupByType(GList* pList, void* customData);
    static void GetOfNumber(GList* pList, UINT item, UINT column, UINT what, void* answer);
    UINT NumberOf(UINT item) const;
    UINT FirstInView();

    UINT m_cxName;
    const Folder* m_pFolder = nullptr;
    Look m_look{};
    bool m_fDescending = false; // of the numbers
};

} // namespace gallery
