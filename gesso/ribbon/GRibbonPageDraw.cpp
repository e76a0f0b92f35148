#include <gesso/framework/ActivationContext.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/ribbon/GRibbonPageWatch.h>
#include <gesso/ribbon/RibbonMetrics.h>

using gesso::PAGE_TOP;
using gesso::PlainPart;
using gesso::ThemePart;
using Group = GRibbonPage::Group;
using Item = GRibbonPage::Item;

namespace {

constexpr COLORREF CR_TITLE = 0x767676;
constexpr int CX_SMALL = 16;
constexpr int CX_LARGE = 32;
// A checked box is drawn one state beyond that of its plain counterpart: hosts rely on it.
constexpr int CHECKED_STATES = 5;

// Draws items of one page into one context, in the font that is selected there. Each rectangle is the item's,
// with x in the ribbon.
struct ItemPainter
{
    HDC hdc;
    HTHEME hTheme;
    HIMAGELIST hLargeImages;
    HIMAGELIST hSmallImages;

    void Draw(const Item& item, const RECT& rc, int nState) const
    {
        switch (item.uType) {
        case RIT_BUTTON: return DrawButton(item, rc, nState);
        case RIT_CHECKBOX: return DrawCheckBox(item, rc, nState);
        default: break;
        }
    }

    void DrawButton(const Item& item, const RECT& rc, int nState) const
    {
        const ThemePart part(hTheme, hdc, BP_PUSHBUTTON, nState, PlainPart::PushButton);
        if (nState > PBS_NORMAL) {
            part.DrawBackground({rc.left + 3, rc.top + 3, rc.right + 5, rc.bottom + 5});
        }
        switch (item.wSize) {
        case RIS_SMALL: return DrawSmallImage(item, rc);
        case RIS_MEDIUM: return DrawMedium(part, item, rc);
        case RIS_LARGE: return DrawLarge(part, item, rc);
        default: break;
        }
    }

    void DrawMedium(const ThemePart& part, const Item& item, const RECT& rc) const
    {
        DrawSmallImage(item, rc);
        const int nTextLeft = rc.left + (item.nImage == -1 ? 7 : 26);
        DrawItemText(part, item, {nTextLeft, rc.top + 7, rc.right + 1, rc.bottom + 1},
                     DT_VCENTER | DT_SINGLELINE);
    }

    void DrawLarge(const ThemePart& part, const Item& item, const RECT& rc) const
    {
        int nTextTop = rc.top + 10;
        if (item.nImage != -1) {
            const int x = (rc.right - rc.left - CX_LARGE) / 2 + rc.left + 4;
            DrawImage(hLargeImages, item.nImage, x, rc.top + 7, CX_LARGE);
            nTextTop = rc.top + 42;
        }
        DrawItemText(part, item, {rc.left + 7, nTextTop, rc.right + 1, rc.bottom + 1},
                     DT_CENTER | DT_WORDBREAK);
    }

    void DrawCheckBox(const Item& item, const RECT& rc, int nState) const
    {
        const int nBoxState = nState + (item.uFlags & RIF_CHECKED ? CHECKED_STATES : 0);
        const ThemePart part(hTheme, hdc, BP_CHECKBOX, nBoxState, PlainPart::CheckBox);
        const RECT rcBox{rc.left + 8, rc.top + 5, rc.left + 8 + part.Size(nullptr).cx, rc.bottom + 3};
        part.DrawBackground(rcBox);
        DrawItemText(part, item, {rcBox.right + 3, rc.top + 7, rc.right + 1, rc.bottom + 1},
                     DT_VCENTER | DT_SINGLELINE);
    }

    void DrawSmallImage(const Item& item, const RECT& rc) const
    {
        if (item.nImage != -1) {
            DrawImage(hSmallImages, item.nImage, rc.left + 7, rc.top + 7, CX_SMALL);
        }
    }

    void DrawImage(HIMAGELIST hImages, int nImage, int x, int y, int cx) const
    {
        IsolationAwareImageList_DrawEx(hImages, nImage, hdc, x, y, cx, cx);
    }

    static void DrawItemText(const ThemePart& part, const Item& item, const RECT& rc, UINT uFormat)
    {
        if (item.pszText) {
            part.DrawString(item.pszText, uFormat, rc);
        }
    }
};

// The group's title, and the line behind the group.
void DrawGroupFrame(HDC hdc, const Group& group, int nTitleLeft, int nClientBottom)
{
    MoveToEx(hdc, group.nRight, PAGE_TOP + 2, nullptr);
    LineTo(hdc, group.nRight, nClientBottom - 4);
    RECT rcTitle{nTitleLeft, nClientBottom - 22, group.nRight, nClientBottom - 1};
    DrawTextW(hdc, group.strTitle, -1, &rcTitle, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

} // namespace

void GRibbonPage::Draw(HDC hdc)
{
    const HWND hwnd = RibbonWindow();
    if (!hwnd) {
        return;
    }
    RECT rc{};
    GetClientRect(hwnd, &rc);
    const gesso::TransparentScope mode(hdc);
    RECT rcPage{0, PAGE_TOP, rc.right, rc.bottom - 1};
    const Watch watch(*this);
    DrawThemeParentBackground(hwnd, hdc, &rcPage);
    if (!watch.IsAlive()) {
        return;
    }
    const gesso::SelectScope pen(hdc, m_hPen);
    const gesso::SelectScope font(hdc, m_hGroupFont);
    SetTextColor(hdc, CR_TITLE);
    int nLeft = 0;
    for (UINT i = 0; i < m_aGroups.GetLength(); i++) {
        DrawGroupFrame(hdc, m_aGroups[i], nLeft, rc.bottom);
        if (!m_aGroups[i].uFixedWidth) {
            DrawItems(hdc, i);
        }
        nLeft = m_aGroups[i].nRight;
    }
    // Black afterwards, whatever it was before: hosts rely on it.
    SetTextColor(hdc, 0);
}

void GRibbonPage::DrawItems(HDC hdc, UINT nGroup) const
{
    const ItemPainter painter{hdc, m_hTheme, m_pRibbon->m_hLargeImages, m_pRibbon->m_hSmallImages};
    // Once for all of them: a switch of fonts can cost more than the text.
    const gesso::SelectScope font(hdc, m_hItemFont);
    const Group& group = m_aGroups[nGroup];
    for (UINT i = 0; i < group.aItems.GetLength(); i++) {
        const Item& item = group.aItems[i];
        const RECT rc{group.nLeft + item.nLeft, item.nTop, group.nLeft + item.nRight, item.nBottom};
        painter.Draw(item, rc, StateOf(gesso::ItemCode(nGroup, i), item));
    }
}

int GRibbonPage::StateOf(UINT uItem, const Item& item) const
{
    if (uItem == m_uHotItem) {
        return m_uState & GWS_PRESSED ? PBS_PRESSED : PBS_HOT;
    }
    return item.uFlags & RIF_DISABLED ? PBS_DISABLED : PBS_NORMAL;
}
