#include <bench/Lists.h>
#include <bench/Painted.h>

#include <gesso/ribbon/GRibbonPage.h>

namespace bench {
namespace {

using Visit = std::function<void(const std::string&, HWND)>;

constexpr UINT ITEMS = 1000;
constexpr int OFTEN = 10 * PAINTS;

void PaintWhole(HWND hwnd)
{
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW);
}

// The object may go with its window, so the window goes first.
void VisitOne(const Visit& visit, const std::string& name, HWND hwnd)
{
    HandleMessages();
    visit(name, hwnd);
    DestroyWindow(hwnd);
}

void VisitSmall(const Visit& visit, HWND hwndHost)
{
    GButton button;
    GCheckBox box;
    GRadioButton radio;
    GCommandButton link;
    GEdit edit;
    GComboBox combo;
    GProgressBar progress;
    VisitOne(visit, "push button", button.Create(10, 10, 90, 26, hwndHost, 1, L"Save", 0, CHILD));
    VisitOne(visit, "check box", box.Create(10, 40, 90, 20, hwndHost, 2, L"Box", 0, CHILD));
    VisitOne(visit, "radio button", radio.Create(10, 70, 90, 20, hwndHost, 3, L"Radio", 0, CHILD));
    VisitOne(visit, "command link",
             link.Create(10, 10, 190, 64, hwndHost, 7, L"Keep", L"Under a new name", 0, CHILD));
    VisitOne(visit, "edit field", edit.Create(10, 100, 90, 24, hwndHost, 4, L"Text", CHILD | WS_BORDER, 0));
    VisitOne(visit, "combo box", combo.Create(10, 130, 90, 24, hwndHost, 5, CHILD | GCBS_DROPDOWNLIST, 0));
    progress.Create(10, 160, 90, 16, hwndHost, 6, 0, CHILD);
    progress.SetProgress(400);
    VisitOne(visit, "progress bar", progress.GetHwnd());
}

void VisitList(const Visit& visit, HWND hwndHost)
{
    OwnListView list(hwndHost, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES, nullptr);
    for (UINT i = 0; i < ITEMS; i++) {
        list.InsertItem(END, 0, nullptr, 0, L"Item", 0);
    }
    VisitOne(visit, "list of 20 rows in view, with check boxes", list.Window());
}

void VisitTree(const Visit& visit, HWND hwndHost)
{
    GTree tree;
    const HWND hwnd = tree.Create(0, 0, 300, 400, hwndHost, 8, 0, CHILD | WS_VSCROLL);
    void* hLast = nullptr;
    for (UINT i = 0; i < ITEMS; i++) {
        hLast = tree.InsertItem(nullptr, hLast, L"Document", 0, TIS_HASCHILDREN, nullptr);
    }
    VisitOne(visit, "tree of 20 rows in view, with its bar", hwnd);
}

void VisitRibbon(const Visit& visit, HWND hwndHost)
{
    constexpr UINT SIZE = UINT{RIS_MEDIUM} << 16;
    GRibbon ribbon;
    ribbon.AddPage(nullptr, 1, L"Page");
    const HWND hwnd = ribbon.Create(0, 0, LIST_CX, 118, hwndHost, nullptr);
    ribbon.GetPage(1)->InsertGroup(0, 1, L"Group", 0);
    for (UINT i = 0; i < 12; i++) {
        GRibbonPage::ItemInfo info{};
        info.uType = RIT_BUTTON;
        info.nId = 10 + i;
        info.nOptions = 1;
        info.puOptions = &SIZE;
        info.nImage = -1;
        info.pszText = L"Button";
        ribbon.GetPage(1)->InsertItem(1, 0, &info);
    }
    VisitOne(visit, "ribbon of 12 buttons", hwnd);
}

} // namespace

void ForEachPainted(HWND hwndHost, const Visit& measure)
{
    VisitSmall(measure, hwndHost);
    VisitList(measure, hwndHost);
    VisitTree(measure, hwndHost);
    VisitRibbon(measure, hwndHost);
}

double TimeOfPaint(HWND hwnd)
{
    HandleMessages();
    PaintWhole(hwnd);
    PaintWhole(hwnd);
    return Timed([hwnd] {
               for (int i = 0; i < OFTEN; i++) {
                   PaintWhole(hwnd);
               }
           })() /
           OFTEN;
}

} // namespace bench
