// GLISTNOTIFY: what GList, GTree and GNavigationBar send to their parent with WM_NOTIFY, where an NMHDR alone
// does not say enough. Which fields a notification sets stands with each control; the others are 0. The
// record lives only for the time of the notification.
#pragma once

#include <gesso/api.h>

// What a tree asks its parent of a child that it only has the number of. The text must outlive the answer.
struct GTREEDISPINFO
{
    UINT mask;       // GTDI_: what is asked for
    LPCWSTR text;    // null: an empty one
    UINT image;      // index into the image list
    UINT childCount; // what SetChildCount would be given for the child; 0 for none
};

constexpr UINT GTDI_TEXT = 1;
constexpr UINT GTDI_IMAGE = 2;
constexpr UINT GTDI_CHILDREN = 4;

struct GLISTNOTIFY
{
    NMHDR hdr;
    int iItem;    // item or row; of a virtual list to be read as UINT, of which -1 alone is none
    int iSubItem; // element of the item's cell, or -1
    UINT uReserved[3];
    UINT uAction; // of the expansion codes: TVE_COLLAPSE or TVE_EXPAND
    int x;        // the point of the event in client coordinates
    int y;
    void* pItem; // handle of the item, for the controls that have handles
    union
    {
        void* pReserved;
        LPCWSTR pszText;          // at the end of a renaming: the new text, null where it is dropped
        GTREEDISPINFO* pDispInfo; // of TVN_GETDISPINFOW
    };
    UINT uKeyFlags; // of the mouse: LVKF_ALT, LVKF_CONTROL, LVKF_SHIFT; of a key: the high word of its lParam
    UINT vKey;      // virtual code of the key
};

// Hosts read the record by these places.
static_assert(sizeof(NMHDR) == 24 && offsetof(GLISTNOTIFY, iItem) == 24 &&
              offsetof(GLISTNOTIFY, iSubItem) == 28 && offsetof(GLISTNOTIFY, uAction) == 44 &&
              offsetof(GLISTNOTIFY, x) == 48 && offsetof(GLISTNOTIFY, y) == 52 &&
              offsetof(GLISTNOTIFY, pItem) == 56 && offsetof(GLISTNOTIFY, uKeyFlags) == 72 &&
              offsetof(GLISTNOTIFY, vKey) == 76 && sizeof(GLISTNOTIFY) == 80);

namespace gesso {

// LVKF_ flags of the modifier keys that are down now, by bit 7 of GetKeyState.
UINT ModifierFlags();

} // namespace gesso
