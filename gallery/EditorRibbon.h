// The ribbon of the gallery's text editor, with images from a template.
#pragma once

#include <gallery/Page.h>
#include <gesso/ribbon/GRibbon.h>
#include <gesso/ribbon/GRibbonPage.h>

#include <string>
#include <vector>

namespace gallery {

// The images in both of the template's strips. scripts/icons.py makes these from icons/*.svg in this order:
// IMAGE_SELECT_ALL is drawn in icons/select-all.svg.
enum RibbonImage
{
    IMAGE_NONE = -1,
    IMAGE_NEW,
    IMAGE_PASTE,
    IMAGE_CUT,
    IMAGE_COPY,
    IMAGE_CLEAR,
    IMAGE_UNDO,
    IMAGE_SELECT_ALL,
    IMAGE_FIND,
    IMAGE_BOLD,
    IMAGE_ITALIC,
    IMAGE_UNDERLINE,
    IMAGE_DATE,
    IMAGE_CHARACTER,
    IMAGE_FONT,
    IMAGE_TOP,
    IMAGE_BOTTOM,
    IMAGE_REPLACE,
    IMAGE_PREVIOUS,
    IMAGE_NEXT,
    IMAGE_SMALL_WINDOW,
    IMAGE_LARGE_WINDOW,
    IMAGE_ABOUT,
    IMAGE_REPORT,
    IMAGE_KEYBOARD,
    IMAGE_LABEL,
    IMAGE_BUTTON,
    IMAGE_CHECK_BOX,
    IMAGE_TEXT,
    IMAGE_ENTRY,
    IMAGE_LIST,
    IMAGE_TREE,
    IMAGE_RIBBON,
    IMAGE_DIALOG,
    IMAGE_EXPLORER,
};

// A page that is filled item by item, and knows where its items stand.
class EditorPage : public GRibbonPage
{
public:
    using GRibbonPage::GRibbonPage;

    // A group behind those that are there; the items that follow go into it. uWidth is for one with hosted
    // windows, else 0.
    void Group(LPCWSTR pszTitle, UINT uWidth = 0);
    void Button(UINT nId, WORD wSize, RibbonImage image, LPCWSTR pszText);
    void CheckBox(UINT nId, bool fChecked, LPCWSTR pszText);
    // A window that the host makes as a child of the ribbon; it gets a place in the group, in rows from 0.
    void Host(HWND hwnd, int nRow);
    // How the items with that id look. They report clicks all the same.
    void SetDisabledLook(UINT nId, bool fDisabled);

    LPCWSTR TabTitle() const { return m_pszTitle; }
    void AddParts(std::vector<Part>& parts, HWND hwndRibbon) const;

private:
    DWORD m_dwGroup = 0;
};

class EditorRibbon : public GRibbon
{
public:
    EditorRibbon();

    HWND MakeWindow(const RECT& rc, HWND hwndParent);
    EditorPage& AddEditorPage(LPCWSTR pszTitle);
    void ShowTab(UINT nIndex, bool fShow);
    // After a change of the scheme: the images are the gallery's.
    void FollowScheme();
    // On every page; the caller repaints.
    void SetDisabledLook(UINT nId, bool fDisabled);

    // The tabs and items that are in sight.
    void AddParts(std::vector<Part>& parts) const;

private:
    EditorPage& PageAt(UINT nIndex) const { return static_cast<EditorPage&>(*m_aTabs[nIndex].pPage); }
};

} // namespace gallery
