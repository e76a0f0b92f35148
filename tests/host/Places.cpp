// Where the fields lie that derived classes use. A host that was built before has these places in its code.
#include "Checks.h"

#include <gesso/edit/GComboBoxList.h>

// Of a class with a base, offsetof is the compiler's to support: all of ours do.
#if defined(__GNUC__) || defined(__clang__)
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
#endif

namespace {

#define PLACE_OF(CLASS, FIELD, GNU_PLACE, MICROSOFT_PLACE)                                                   \
    SameForBoth(offsetof(CLASS, FIELD), GNU_PLACE, MICROSOFT_PLACE, #FIELD)

// Classes of the host's, which may name the protected fields of their bases.
struct OfGButton : GButton
{
    static void Check()
    {
        ::Group("fields of GButton");
        PLACE_OF(OfGButton, m_hTheme, 24, 24);
        PLACE_OF(OfGButton, m_hFont, 40, 40);
        PLACE_OF(OfGButton, m_pszText, 48, 48);
        PLACE_OF(OfGButton, m_hImage, 64, 64);
        PLACE_OF(OfGButton, m_cxImage, 72, 72);
        PLACE_OF(OfGButton, m_cyImage, 76, 76);
    }
};

struct OfGCheckBox : GCheckBox
{
    static void Check()
    {
        ::Group("fields of GCheckBox");
        PLACE_OF(OfGCheckBox, m_hTheme, 24, 24);
        PLACE_OF(OfGCheckBox, m_hFont, 40, 40);
        PLACE_OF(OfGCheckBox, m_pszText, 48, 48);
        PLACE_OF(OfGCheckBox, m_hImage, 64, 64);
        PLACE_OF(OfGCheckBox, m_cxImage, 72, 72);
        PLACE_OF(OfGCheckBox, m_cyImage, 76, 76);
    }
};

struct OfGCommandButton : GCommandButton
{
    static void Check()
    {
        ::Group("fields of GCommandButton");
        PLACE_OF(OfGCommandButton, m_hTheme, 24, 24);
        PLACE_OF(OfGCommandButton, m_hFont, 40, 40);
        PLACE_OF(OfGCommandButton, m_hNoteFont, 56, 64);
        PLACE_OF(OfGCommandButton, m_pszText, 72, 88);
        PLACE_OF(OfGCommandButton, m_hImage, 88, 104);
        PLACE_OF(OfGCommandButton, m_cxImage, 96, 112);
        PLACE_OF(OfGCommandButton, m_cyImage, 100, 116);
        PLACE_OF(OfGCommandButton, m_pszNote, 104, 120);
    }
};

struct OfGLabel : GLabel
{
    static void Check()
    {
        ::Group("fields of GLabel");
        PLACE_OF(OfGLabel, m_hFont, 24, 24);
        PLACE_OF(OfGLabel, m_crText, 32, 32);
        PLACE_OF(OfGLabel, m_pszText, 40, 40);
        PLACE_OF(OfGLabel, m_hImage, 56, 56);
        PLACE_OF(OfGLabel, m_cxImage, 64, 64);
        PLACE_OF(OfGLabel, m_cyImage, 68, 68);
    }
};

struct OfGNavigationButton : GNavigationButton
{
    static void Check()
    {
        ::Group("fields of GNavigationButton");
        PLACE_OF(OfGNavigationButton, m_hTheme, 24, 24);
    }
};

struct OfGProgressBar : GProgressBar
{
    static void Check()
    {
        ::Group("fields of GProgressBar");
        PLACE_OF(OfGProgressBar, m_hTheme, 24, 24);
        PLACE_OF(OfGProgressBar, m_nProgress, 40, 40);
    }
};

struct OfGRadioButton : GRadioButton
{
    static void Check()
    {
        ::Group("fields of GRadioButton");
        PLACE_OF(OfGRadioButton, m_hTheme, 24, 24);
        PLACE_OF(OfGRadioButton, m_hFont, 40, 40);
        PLACE_OF(OfGRadioButton, m_pszText, 48, 48);
        PLACE_OF(OfGRadioButton, m_hImage, 64, 64);
        PLACE_OF(OfGRadioButton, m_cxImage, 72, 72);
        PLACE_OF(OfGRadioButton, m_cyImage, 76, 76);
    }
};

struct OfGScrollbar : GScrollbar
{
    static void Check()
    {
        ::Group("fields of GScrollbar");
        PLACE_OF(OfGScrollbar, m_hTheme, 24, 24);
        PLACE_OF(OfGScrollbar, m_nTrack, 40, 40);
        PLACE_OF(OfGScrollbar, m_nThumb, 44, 44);
        PLACE_OF(OfGScrollbar, m_nTotal, 48, 48);
        PLACE_OF(OfGScrollbar, m_nPage, 52, 52);
        PLACE_OF(OfGScrollbar, m_nInit20, 56, 56);
        PLACE_OF(OfGScrollbar, m_nInit45, 60, 60);
        PLACE_OF(OfGScrollbar, m_nFiveSixths, 64, 64);
        PLACE_OF(OfGScrollbar, m_nPos, 68, 68);
        PLACE_OF(OfGScrollbar, m_nDragY, 72, 72);
        PLACE_OF(OfGScrollbar, m_nDragPos, 76, 76);
        PLACE_OF(OfGScrollbar, m_hitDown, 80, 80);
        PLACE_OF(OfGScrollbar, m_hitNow, 86, 86);
    }
};

struct OfGDialog : GDialog
{
    static void Check()
    {
        ::Group("fields of GDialog");
        PLACE_OF(OfGDialog, m_template, 24, 24);
    }
};

struct OfGTaskDialog : GTaskDialog
{
    static void Check()
    {
        ::Group("fields of GTaskDialog");
        PLACE_OF(OfGTaskDialog, m_pConfig, 32, 32);
        PLACE_OF(OfGTaskDialog, m_hTheme, 40, 40);
        PLACE_OF(OfGTaskDialog, m_rcIcon, 56, 56);
        PLACE_OF(OfGTaskDialog, m_rcMainInstruction, 72, 72);
        PLACE_OF(OfGTaskDialog, m_rcContent, 88, 88);
        PLACE_OF(OfGTaskDialog, m_rcFooter, 104, 104);
        PLACE_OF(OfGTaskDialog, m_pszMainInstruction, 120, 120);
        PLACE_OF(OfGTaskDialog, m_pszContent, 136, 136);
        PLACE_OF(OfGTaskDialog, m_ppButtons, 152, 152);
    }
};

struct OfGWizard : GWizard
{
    static void Check()
    {
        ::Group("fields of GWizard");
        PLACE_OF(OfGWizard, m_pConfig, 32, 32);
        PLACE_OF(OfGWizard, m_hTheme, 40, 40);
        PLACE_OF(OfGWizard, m_rcClient, 56, 56);
        PLACE_OF(OfGWizard, m_pFinish, 72, 72);
        PLACE_OF(OfGWizard, m_pCancel, 88, 88);
        PLACE_OF(OfGWizard, m_pNext, 104, 104);
        PLACE_OF(OfGWizard, m_pBack, 120, 120);
        PLACE_OF(OfGWizard, m_rcFooter, 136, 136);
        PLACE_OF(OfGWizard, m_aPages, 152, 152);
        PLACE_OF(OfGWizard, m_nCurrent, 176, 176);
    }
};

struct OfGWndCertFailure : GWndCertFailure
{
    static void Check()
    {
        ::Group("fields of GWndCertFailure");
        PLACE_OF(OfGWndCertFailure, m_pConfig, 32, 32);
        PLACE_OF(OfGWndCertFailure, m_dwResult, 40, 40);
        PLACE_OF(OfGWndCertFailure, m_hTheme, 48, 48);
        PLACE_OF(OfGWndCertFailure, m_hGradient, 64, 64);
        PLACE_OF(OfGWndCertFailure, m_rcHeader, 72, 72);
        PLACE_OF(OfGWndCertFailure, m_rcFooter, 88, 88);
        PLACE_OF(OfGWndCertFailure, m_aFonts, 104, 104);
        PLACE_OF(OfGWndCertFailure, m_aIcons, 128, 128);
        PLACE_OF(OfGWndCertFailure, m_aElements, 152, 152);
        PLACE_OF(OfGWndCertFailure, m_pCheckBox, 176, 176);
        PLACE_OF(OfGWndCertFailure, m_ppButtons, 184, 184);
    }
};

struct OfGComboBox : GComboBox
{
    static void Check()
    {
        ::Group("fields of GComboBox");
        PLACE_OF(OfGComboBox, m_hTheme, 24, 24);
        PLACE_OF(OfGComboBox, m_hFont, 40, 40);
        PLACE_OF(OfGComboBox, m_nTextLimit, 48, 48);
        PLACE_OF(OfGComboBox, m_nDropdownHeight, 52, 52);
        PLACE_OF(OfGComboBox, m_strText, 56, 56);
        PLACE_OF(OfGComboBox, m_aItems, 64, 64);
        PLACE_OF(OfGComboBox, m_pList, 88, 88);
        PLACE_OF(OfGComboBox, m_hitDown, 104, 104);
        PLACE_OF(OfGComboBox, m_hitMove, 116, 116);
        PLACE_OF(OfGComboBox, m_nCaret, 128, 128);
        PLACE_OF(OfGComboBox, m_nAnchor, 132, 132);
        PLACE_OF(OfGComboBox, m_bCaret, 136, 136);
    }
};

struct OfGComboBoxList : GComboBoxList
{
    static void Check()
    {
        ::Group("fields of GComboBoxList");
        PLACE_OF(OfGComboBoxList, m_hwndOwner, 160, 160);
        PLACE_OF(OfGComboBoxList, m_hComboTheme, 168, 168);
        PLACE_OF(OfGComboBoxList, m_hListTheme, 184, 184);
        PLACE_OF(OfGComboBoxList, m_hFont, 224, 224);
        PLACE_OF(OfGComboBoxList, m_nItemHeight, 232, 232);
        PLACE_OF(OfGComboBoxList, m_pOwner, 240, 240);
        PLACE_OF(OfGComboBoxList, m_pItems, 248, 248);
        PLACE_OF(OfGComboBoxList, m_hitDown, 256, 256);
        PLACE_OF(OfGComboBoxList, m_hitMove, 268, 268);
        PLACE_OF(OfGComboBoxList, m_nSelected, 276, 276);
        PLACE_OF(OfGComboBoxList, m_nHot, 280, 280);
    }
};

struct OfGEdit : GEdit
{
    static void Check()
    {
        ::Group("fields of GEdit");
        PLACE_OF(OfGEdit, m_hTheme, 160, 160);
        PLACE_OF(OfGEdit, m_hFont, 176, 176);
        PLACE_OF(OfGEdit, m_nMargin, 184, 184);
        PLACE_OF(OfGEdit, m_strText, 192, 192);
        PLACE_OF(OfGEdit, m_aLines, 200, 200);
        PLACE_OF(OfGEdit, m_hitDown, 224, 224);
        PLACE_OF(OfGEdit, m_hitMove, 236, 236);
        PLACE_OF(OfGEdit, m_nCaretLine, 248, 248);
        PLACE_OF(OfGEdit, m_nCaretChar, 252, 252);
        PLACE_OF(OfGEdit, m_nAnchorLine, 256, 256);
        PLACE_OF(OfGEdit, m_nAnchorChar, 260, 260);
    }
};

struct OfGWnd : GWnd
{
    static void Check()
    {
        ::Group("fields of GWnd");
        PLACE_OF(OfGWnd, m_hWnd, 8, 8);
        PLACE_OF(OfGWnd, m_dwState, 16, 16);
    }
};

struct OfGWndScroll : GWndScroll
{
    static void Check()
    {
        ::Group("fields of GWndScroll");
        PLACE_OF(OfGWndScroll, m_hThemeScroll, 24, 24);
        PLACE_OF(OfGWndScroll, m_rcHScroll, 40, 40);
        PLACE_OF(OfGWndScroll, m_rcVScroll, 56, 56);
        PLACE_OF(OfGWndScroll, m_siH, 72, 72);
        PLACE_OF(OfGWndScroll, m_siV, 100, 100);
        PLACE_OF(OfGWndScroll, m_dwHStyle, 128, 128);
        PLACE_OF(OfGWndScroll, m_dwVStyle, 132, 132);
        PLACE_OF(OfGWndScroll, m_hitDown, 136, 136);
        PLACE_OF(OfGWndScroll, m_nTrackStart, 144, 144);
        PLACE_OF(OfGWndScroll, m_hitNow, 148, 148);
    }
};

struct OfGRibbon : GRibbon
{
    static void Check()
    {
        ::Group("fields of GRibbon");
        PLACE_OF(OfGRibbon, m_template, 24, 24);
        PLACE_OF(OfGRibbon, m_hTabFont, 32, 32);
        PLACE_OF(OfGRibbon, m_crActiveLine, 48, 48);
        PLACE_OF(OfGRibbon, m_hActivePen, 56, 56);
        PLACE_OF(OfGRibbon, m_crActiveFill, 72, 72);
        PLACE_OF(OfGRibbon, m_hActiveBrush, 80, 80);
        PLACE_OF(OfGRibbon, m_crHotLine, 96, 96);
        PLACE_OF(OfGRibbon, m_hHotPen, 104, 104);
        PLACE_OF(OfGRibbon, m_crHotFill, 120, 120);
        PLACE_OF(OfGRibbon, m_hHotBrush, 128, 128);
        PLACE_OF(OfGRibbon, m_crPageLine, 144, 144);
        PLACE_OF(OfGRibbon, m_hPagePen, 152, 152);
        PLACE_OF(OfGRibbon, m_hPageFont, 168, 168);
        PLACE_OF(OfGRibbon, m_aTabs, 184, 184);
        PLACE_OF(OfGRibbon, m_nActive, 208, 208);
        PLACE_OF(OfGRibbon, m_nHot, 212, 212);
        PLACE_OF(OfGRibbon, m_hLargeImages, 216, 216);
        PLACE_OF(OfGRibbon, m_hSmallImages, 232, 232);
    }
};

struct OfGRibbonPage : GRibbonPage
{
    static void Check()
    {
        ::Group("fields of GRibbonPage");
        PLACE_OF(OfGRibbonPage, m_dwId, 8, 8);
        PLACE_OF(OfGRibbonPage, m_pszTitle, 16, 16);
        PLACE_OF(OfGRibbonPage, m_hTheme, 32, 32);
        PLACE_OF(OfGRibbonPage, m_hItemFont, 48, 48);
        PLACE_OF(OfGRibbonPage, m_pRibbon, 56, 56);
        PLACE_OF(OfGRibbonPage, m_hwndTarget, 64, 64);
        PLACE_OF(OfGRibbonPage, m_hBrush, 72, 72);
        PLACE_OF(OfGRibbonPage, m_hPen, 80, 80);
        PLACE_OF(OfGRibbonPage, m_hGroupFont, 88, 88);
        PLACE_OF(OfGRibbonPage, m_uState, 96, 96);
        PLACE_OF(OfGRibbonPage, m_aGroups, 104, 104);
        PLACE_OF(OfGRibbonPage, m_aReserved, 128, 128);
        PLACE_OF(OfGRibbonPage, m_uReserved1, 152, 152);
        PLACE_OF(OfGRibbonPage, m_uReserved2, 156, 156);
        PLACE_OF(OfGRibbonPage, m_press, 160, 160);
        PLACE_OF(OfGRibbonPage, m_hover, 172, 172);
        PLACE_OF(OfGRibbonPage, m_uHotItem, 184, 184);
    }
};

struct OfGRightClickMenu : GRightClickMenu
{
    static void Check()
    {
        ::Group("fields of GRightClickMenu");
        PLACE_OF(OfGRightClickMenu, m_hwndOwner, 24, 24);
        PLACE_OF(OfGRightClickMenu, m_aValues, 32, 32);
        PLACE_OF(OfGRightClickMenu, m_hFont, 56, 56);
        PLACE_OF(OfGRightClickMenu, m_crText, 64, 64);
        PLACE_OF(OfGRightClickMenu, m_nHot, 68, 68);
    }
};

struct OfGList : GList
{
    static void Check()
    {
        ::Group("fields of GList");
        PLACE_OF(OfGList, listStyle, 156, 160);
        PLACE_OF(OfGList, themeList, 160, 168);
        PLACE_OF(OfGList, themeHeader, 200, 208);
        PLACE_OF(OfGList, themeButton, 216, 224);
        PLACE_OF(OfGList, fontLabelTitle, 232, 240);
        PLACE_OF(OfGList, fontLabelHeader, 240, 248);
        PLACE_OF(OfGList, fontLabelText, 248, 256);
        PLACE_OF(OfGList, fontGroupTitle, 256, 264);
        PLACE_OF(OfGList, headerArea, 264, 272);
        PLACE_OF(OfGList, headerHeight, 268, 276);
        PLACE_OF(OfGList, headerItemSpacing, 272, 280);
        PLACE_OF(OfGList, groupHeight, 276, 284);
        PLACE_OF(OfGList, itemWidth, 280, 288);
        PLACE_OF(OfGList, itemWidthBase, 284, 292);
        PLACE_OF(OfGList, itemHeight, 288, 296);
        PLACE_OF(OfGList, itemHeightBase, 292, 300);
        PLACE_OF(OfGList, lineHeight, 296, 304);
        PLACE_OF(OfGList, itemSpacingX, 300, 308);
        PLACE_OF(OfGList, itemSpacingY, 304, 312);
        PLACE_OF(OfGList, imageList, 312, 320);
        PLACE_OF(OfGList, columns, 320, 328);
        PLACE_OF(OfGList, groups, 344, 352);
        PLACE_OF(OfGList, items, 368, 376);
        PLACE_OF(OfGList, hitPress, 392, 400);
        PLACE_OF(OfGList, hitHot, 408, 416);
        PLACE_OF(OfGList, columnCxAtPress, 424, 432);
        PLACE_OF(OfGList, cursorItem, 428, 436);
        PLACE_OF(OfGList, shiftAnchor, 432, 440);
        PLACE_OF(OfGList, keyMods, 436, 444);
        PLACE_OF(OfGList, lastItem, 440, 448);
        PLACE_OF(OfGList, sortColumn, 444, 452);
        PLACE_OF(OfGList, sortAscending, 448, 456);
        PLACE_OF(OfGList, elements, 456, 464);
        PLACE_OF(OfGList, columnDraw, 480, 488);
        PLACE_OF(OfGList, rcGroupFormat, 504, 512);
        PLACE_OF(OfGList, contentCx, 520, 528);
        PLACE_OF(OfGList, contentCy, 524, 532);
        PLACE_OF(OfGList, editWindows, 528, 536);
        PLACE_OF(OfGList, editProcs, 536, 544);
        PLACE_OF(OfGList, bulkInsert, 544, 552);
        PLACE_OF(OfGList, frameRecord, 545, 553);
        PLACE_OF(OfGList, frameReplay, 546, 554);
        PLACE_OF(OfGList, frameIndex, 548, 556);
        PLACE_OF(OfGList, frames, 552, 560);
    }
};

struct OfGNavigationBar : GNavigationBar
{
    static void Check()
    {
        ::Group("fields of GNavigationBar");
        PLACE_OF(OfGNavigationBar, m_hTheme, 184, 184);
        PLACE_OF(OfGNavigationBar, m_hHeaderFont, 240, 240);
        PLACE_OF(OfGNavigationBar, m_hFont, 256, 256);
        PLACE_OF(OfGNavigationBar, m_nItemHeight, 264, 264);
        PLACE_OF(OfGNavigationBar, m_hImageList, 272, 272);
        PLACE_OF(OfGNavigationBar, m_pRoot, 280, 280);
        PLACE_OF(OfGNavigationBar, m_pSelected, 288, 288);
        PLACE_OF(OfGNavigationBar, m_aVisible, 296, 296);
        PLACE_OF(OfGNavigationBar, m_nSelected, 344, 344);
        PLACE_OF(OfGNavigationBar, m_hitDown, 348, 348);
        PLACE_OF(OfGNavigationBar, m_hitMove, 360, 360);
    }
};

struct OfGTree : GTree
{
    static void Check()
    {
        ::Group("fields of GTree");
        PLACE_OF(OfGTree, m_uTreeStyle, 184, 184);
        PLACE_OF(OfGTree, m_hTheme, 192, 192);
        PLACE_OF(OfGTree, m_hThemeButton, 248, 248);
        PLACE_OF(OfGTree, m_hFont, 264, 264);
        PLACE_OF(OfGTree, m_nItemHeight, 272, 272);
        PLACE_OF(OfGTree, m_hImageList, 280, 280);
        PLACE_OF(OfGTree, m_pRoot, 288, 288);
        PLACE_OF(OfGTree, m_pSelected, 296, 296);
        PLACE_OF(OfGTree, m_aVisible, 304, 304);
        PLACE_OF(OfGTree, m_nSelected, 352, 352);
        PLACE_OF(OfGTree, m_nContentWidth, 356, 356);
        PLACE_OF(OfGTree, m_hitDown, 360, 360);
        PLACE_OF(OfGTree, m_hitMove, 372, 372);
        PLACE_OF(OfGTree, m_ftLastChar, 384, 384);
        PLACE_OF(OfGTree, m_szSearch, 392, 392);
    }
};

} // namespace

void CheckPlaces()
{
    OfGButton::Check();
    OfGCheckBox::Check();
    OfGCommandButton::Check();
    OfGLabel::Check();
    OfGNavigationButton::Check();
    OfGProgressBar::Check();
    OfGRadioButton::Check();
    OfGScrollbar::Check();
    OfGDialog::Check();
    OfGTaskDialog::Check();
    OfGWizard::Check();
    OfGWndCertFailure::Check();
    OfGComboBox::Check();
    OfGComboBoxList::Check();
    OfGEdit::Check();
    OfGWnd::Check();
    OfGWndScroll::Check();
    OfGRibbon::Check();
    OfGRibbonPage::Check();
    OfGRightClickMenu::Check();
    OfGList::Check();
    OfGNavigationBar::Check();
    OfGTree::Check();
}
