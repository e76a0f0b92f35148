#include <gallery/EditorRibbon.h>
#include <gallery/ImageStrip.h>
#include <gallery/Scale.h>
#include <gallery/resource.h>

namespace gallery {
namespace {

constexpr int TAB_HEIGHT = 25;
constexpr int TAB_MARGINS = 50;
constexpr int TAB_GAP = 2;
constexpr int ROW_HEIGHT = 26;
constexpr int FIRST_ROW = 34;
constexpr int HOSTED_MARGIN = 6;

Part PartAt(LPCWSTR pszKind, UINT uId, LPCWSTR pszText, RECT rc, HWND hwndRibbon)
{
    MapWindowPoints(hwndRibbon, nullptr, reinterpret_cast<POINT*>(&rc), 2);
    return {pszKind, uId, pszText ? pszText : L"", rc};
}

} // namespace

void EditorPage::Group(LPCWSTR pszTitle, UINT uWidth)
{
    const DWORD dwFormer = m_dwGroup++;
    InsertGroup(dwFormer, m_dwGroup, pszTitle, static_cast<UINT>(Scaled(static_cast<int>(uWidth))));
}

void EditorPage::Button(UINT nId, WORD wSize, RibbonImage image, LPCWSTR pszText)
{
    const UINT uSize = static_cast<UINT>(wSize) << 16;
    ItemInfo info{};
    info.uType = RIT_BUTTON;
    info.nId = nId;
    info.nOptions = 1;
    info.puOptions = &uSize;
    info.nImage = image;
    info.pszText = pszText;
    InsertItem(m_dwGroup, 0, &info);
}

void EditorPage::CheckBox(UINT nId, bool fChecked, LPCWSTR pszText)
{
    ItemInfo info{};
    info.uType = RIT_CHECKBOX;
    info.nId = nId;
    info.bChecked = fChecked;
    info.pszCheckText = pszText;
    InsertItem(m_dwGroup, 0, &info);
}

void EditorPage::Host(HWND hwnd, int nRow)
{
    const GRibbonPage::Group& group = m_aGroups[m_aGroups.GetLength() - 1];
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    SetWindowPos(hwnd, nullptr, group.nLeft + Scaled(HOSTED_MARGIN), Scaled(FIRST_ROW + nRow * ROW_HEIGHT),
                 Scaled(rc.right - rc.left), Scaled(rc.bottom - rc.top), SWP_NOZORDER | SWP_NOACTIVATE);
    AddWindow(m_dwGroup, hwnd);
}

void EditorPage::SetDisabledLook(UINT nId, bool fDisabled)
{
    for (GRibbonPage::Group& group : m_aGroups) {
        for (Item& item : group.aItems) {
            if (item.nId == nId) {
                item.uFlags = fDisabled ? item.uFlags | RIF_DISABLED : item.uFlags & ~RIF_DISABLED;
            }
        }
    }
}

void EditorPage::AddParts(std::vector<Part>& parts, HWND hwndRibbon) const
{
    for (const GRibbonPage::Group& group : m_aGroups) {
        for (const Item& item : group.aItems) {
            RECT rc{item.nLeft, item.nTop, item.nRight, item.nBottom};
            OffsetRect(&rc, group.nLeft + Scaled(4), Scaled(4)); // where it is hit
            if (item.uType != RIT_WINDOW) {
                parts.push_back(PartAt(L"ribbon item", item.nId, item.pszText, rc, hwndRibbon));
            }
        }
    }
}

EditorRibbon::EditorRibbon()
{
    // The constructor that takes the template would leave fonts and colours to be set here.
    m_template = IDR_RIBBON;
}

HWND EditorRibbon::MakeWindow(const RECT& rc, HWND hwndParent)
{
    FollowScheme();
    return GRibbon::Create(rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, hwndParent,
                           GetModuleHandleW(nullptr));
}

void EditorRibbon::FollowScheme()
{
    const SchemeImages images = ImagesOfScheme();
    // Those of the template do on a light ground.
    images.hLarge ? SetImageLists(images.hLarge, images.hSmall) : SetImageLists(nullptr, nullptr);
}

EditorPage& EditorRibbon::AddEditorPage(LPCWSTR pszTitle)
{
    auto* pPage = new EditorPage(0, pszTitle); // the ribbon's
    AddPage(pPage, 0, nullptr);
    return *pPage;
}

void EditorRibbon::ShowTab(UINT nIndex, bool fShow)
{
    SetStatus(nIndex, fShow ? RIBBON_TAB_VISIBLE : 0);
}

void EditorRibbon::SetDisabledLook(UINT nId, bool fDisabled)
{
    for (UINT i = 0; i < m_aTabs.GetLength(); i++) {
        PageAt(i).SetDisabledLook(nId, fDisabled);
    }
}

void EditorRibbon::AddParts(std::vector<Part>& parts) const
{
    int x = 0;
    for (UINT i = 0; i < m_aTabs.GetLength(); i++) {
        if (m_aTabs[i].uStatus & RIBBON_TAB_VISIBLE) {
            const int nRight = x + static_cast<int>(m_aTabs[i].uTextWidth) + Scaled(TAB_MARGINS);
            parts.push_back(
                PartAt(L"ribbon tab", i, PageAt(i).TabTitle(), {x, 0, nRight, Scaled(TAB_HEIGHT)}, *this));
            x = nRight + Scaled(TAB_GAP);
        }
    }
    if (m_nActive < m_aTabs.GetLength()) {
        PageAt(m_nActive).AddParts(parts, *this);
    }
}

} // namespace gallery
