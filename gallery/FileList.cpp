#include <gallery/FileList.h>
#include <gallery/Scale.h>

namespace gallery {
namespace {

constexpr UINT END = static_cast<UINT>(-1);
constexpr UINT LINE = DT_SINGLELINE | DT_VCENTER;
constexpr int TILE_HEIGHT = 44;
constexpr int ROW_HEIGHT = 22;
constexpr LONG CHECK_BOX_ROOM = 20; // left of a tile
constexpr LONG CAPTION_WIDTH = 160; // of a tile's size and type, right of its name

File& FileOf(void* customData)
{
    return *static_cast<File*>(customData);
}

template <class VALUE> int Order(const VALUE& a, const VALUE& b)
{
    return a < b ? -1 : b < a ? 1 : 0;
}

// Folders stand before files.
int ByName(void* a, void* b)
{
    const int nFolders = Order(FileOf(b).fFolder, FileOf(a).fFolder);
    return nFolders ? nFolders : lstrcmpiW(FileOf(a).name.c_str(), FileOf(b).name.c_str());
}

int BySize(void* a, void* b)
{
    return Order(FileOf(a).size, FileOf(b).size);
}

int ByDate(void* a, void* b)
{
    return Order(FileOf(a).date, FileOf(b).date);
}

struct ColumnKind
{
    LPCWSTR pszName;
    UINT cx; // of the names it is the list's
    UINT uFormat;
    int nType;
    PFNLISTSORT pfnSort;
    UINT uTileFlags;
    LONG yTile;
};

constexpr ColumnKind COLUMNS[FileList::COLUMN_COUNT] = {
    {L"Name", 0, LINE, LCT_IMAGETEXT, &ByName, LCF_TILELINE, 4},
    {L"Size", 90, LINE | DT_RIGHT, LCT_TEXT, &BySize, LCF_TILECAPTION, 2},
    {L"Type", 110, LINE, LCT_TEXT, nullptr, LCF_TILECAPTION, 22},
    {L"Date modified", 140, LINE, LCT_TEXT, &ByDate, 0, 0},
};

} // namespace

void FileList::ShowFiles(Folder& folder, const Look& look)
{
    Begin(folder, look);
    BulkInsertOn();
    for (File& file : folder.files) {
        if (!look.pOnly || &file == look.pOnly) {
            Add(file);
        }
    }
    BulkInsertOff();
    End();
}

void FileList::Begin(Folder& folder, const Look& look)
{
    m_pFolder = &folder;
    m_look = look;
    Restart(look.uStyle, COLUMN_COUNT);
}

void FileList::Add(File& file)
{
    const UINT item = InsertItem(END, 0, &file, 0, file.name.c_str(), file.image);
    SetSubItem(item, SIZE_KB, 0, file.sizeText.c_str(), 0);
    SetSubItem(item, TYPE, 0, file.type.c_str(), 0);
    SetSubItem(item, DATE, 0, file.dateText.c_str(), 0);
}

void FileList::End()
{
    if (m_look.fSorted) {
        Sort(NAME, true);
    }
    if (m_look.fGrouped) {
        Group(TYPE, true);
    }
}

void FileList::ShowNamesOnly(UINT uStyle)
{
    Restart(uStyle, 1);
}

void FileList::ShowNumbers(UINT uStyle, UINT nCount, UINT nFirstGroup)
{
    Restart(uStyle, TYPE);
    m_fDescending = false;
    if (nFirstGroup) {
        InsertGroup(LINE, (L"The first " + std::to_wstring(nFirstGroup)).c_str(), 0, 0);
        InsertGroup(LINE, L"All others", 0, 1);
    }
    SetVirtualItems(nCount);
    if (nFirstGroup) {
        SetGroupItemCount(0, nFirstGroup);
        SetGroupItemCount(1, nCount - nFirstGroup);
    }
}

bool FileList::OrderNumbers()
{
    UINT column = END;
    bool fAscending = true;
    GetCurrentSort(&column, &fAscending);
    if (column != NAME || GetGroupCount()) {
        return false;
    }
    m_fDescending = !fAscending;
    ItemsChanged(0, END);
    return true;
}

UINT FileList::NumberOf(UINT item) const
{
    return m_fDescending ? GetItemCount() - 1 - item : item;
}

// What the list asks of a row that shows: its number, and something like a size.
void FileList::GetOfNumber(GList* pList, UINT item, UINT column, UINT what, void* answer)
{
    constexpr UINT LARGEST_SIZE = 9973;
    static std::wstring text; // until the next question
    const UINT number = static_cast<FileList*>(pList)->NumberOf(item);
    if (what == LGET_TEXT) {
        text = column == NAME ? L"Row " + std::to_wstring(number)
                              : std::to_wstring(number % LARGEST_SIZE) + L" KB";
        *static_cast<LPCWSTR*>(answer) = text.c_str();
    } else if (what == LGET_IMAGE) {
        *static_cast<UINT*>(answer) = number % 2;
    } else if (what == LGET_STATE) {
        *static_cast<UINT*>(answer) = number % 3 == 0 ? LSIS_CHECKED : 0;
    }
}

// From the start, since the places of the tiles and the margins of the cells are the columns'.
void FileList::Restart(UINT uStyle, UINT nColumns)
{
    const UINT uView = uStyle & GLS_VIEWMASK;
    if (IsVirtual()) {
        LeaveVirtual();
    } else {
        RemoveAllItems();
    }
    RemoveAllGroups();
    RemoveAllColumns();
    SetScrollPos(SB_VERT, 0, TRUE);
    SetListStyle(GLS_DETAILS); // without columns, so that icons show the first one, the name
    SetImageList(uView == GLS_DETAILS ? SmallFileImages() : LargeFileImages());
    SetItemHeight(static_cast<UINT>(Scaled(uView == GLS_TILES ? TILE_HEIGHT : ROW_HEIGHT)));
    SetListStyle(uStyle);
    for (UINT column = 0; column < nColumns; column++) {
        AddColumn(static_cast<Column>(column), uStyle);
    }
}

void FileList::AddColumn(Column column, UINT uStyle)
{
    const ColumnKind& kind = COLUMNS[column];
    const bool fTiles = (uStyle & GLS_VIEWMASK) == GLS_TILES;
    const auto cxName = static_cast<LONG>(m_cxName);
    RECT rcTile = column == NAME
                      ? RECT{6, kind.yTile, cxName, TILE_HEIGHT - 6}
                      : RECT{cxName + 10, kind.yTile, cxName + 10 + CAPTION_WIDTH, kind.yTile + 20};
    OffsetRect(&rcTile, uStyle & GLS_CHECKBOXES ? CHECK_BOX_ROOM : 0, 0);
    rcTile = Scaled(rcTile);
    const auto cx = static_cast<UINT>(Scaled(static_cast<int>(column == NAME ? m_cxName : kind.cx)));
    InsertColumn(END, kind.uTileFlags, fTiles ? LINE : kind.uFormat, cx, 40, kind.pszName, 0, kind.nType,
                 fTiles ? &rcTile : nullptr, column == TYPE ? &GroupByType : nullptr, kind.pfnSort,
                 &GetOfNumber);
}

UINT FileList::GroupByType(GList* pList, void* customData)
{
    const Folder& folder = *static_cast<FileList*>(pList)->m_pFolder;
    const UINT uType = customData ? FileOf(customData).typeIndex : 0;
    while (pList->GetGroupCount() <= uType) {
        const UINT group = pList->GetGroupCount();
        pList->InsertGroup(LINE, folder.types[group].c_str(), 0, group);
    }
    return uType;
}

File* FileList::FileAt(UINT item) const
{
    return item < GetItemCount() ? static_cast<File*>(GetItemCustomData(item)) : nullptr;
}

void FileList::GoTo(const std::wstring& name)
{
    if (GetItemCount() == 0) {
        return;
    }
    UINT item = GetItemCount() - 1;
    while (item > 0 && FileAt(item)->name != name) {
        item--;
    }
    SetFirstSelectedItemIndex(item);
    EnsureVisible(item);
}

// Of rows that are computed, which lie in the order of their numbers; all others are looked at.
UINT FileList::FirstInView()
{
    UINT low = 0;
    UINT high = IsVirtual() ? GetItemCount() : 0;
    while (low < high) {
        const UINT middle = low + (high - low) / 2;
        RECT rc{};
        GetItemRect(&rc, middle, NAME);
        const bool fAbove = rc.bottom <= GetScrollPos(SB_VERT);
        low = fAbove ? middle + 1 : low;
        high = fAbove ? high : middle;
    }
    return low;
}

void FileList::AddParts(std::vector<Part>& parts)
{
    RECT rcList{};
    GetClientRect(*this, &rcList);
    for (UINT i = FirstInView(); i < GetItemCount(); i++) {
        RECT rc{};
        GetItemRect(&rc, i, NAME);
        OffsetRect(&rc, -GetScrollPos(SB_HORZ), -GetScrollPos(SB_VERT));
        if (IsVirtual() && rc.top >= rcList.bottom) {
            break;
        }
        if (IntersectRect(&rc, &rc, &rcList)) {
            MapWindowPoints(*this, nullptr, reinterpret_cast<POINT*>(&rc), 2);
            parts.push_back({L"list item", i, GetItemText(i, NAME), rc});
        }
    }
}

} // namespace gallery
