// Painting in Dark, beside the same controls in Light: the two columns are the two schemes.
#include <bench/Lists.h>
#include <bench/Pairs.h>

#include <gesso/ribbon/GRibbonPage.h>

namespace bench {
namespace {

constexpr UINT ITEMS = 1000;
constexpr int OFTEN = 10 * PAINTS;

// A change of the scheme is measured with the paints, of which it is a small part.
void PaintIn(gesso::ColorScheme scheme, HWND hwnd)
{
    gesso::SetColorScheme(scheme);
    for (int i = 0; i < OFTEN; i++) {
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW);
    }
}

void Measure(Bench& bench, const std::string& name, HWND hwnd)
{
    HandleMessages();
    bench.Measure(
        name, OFTEN, [hwnd] { PaintIn(gesso::ColorScheme::Dark, hwnd); },
        [hwnd] { PaintIn(gesso::ColorScheme::Light, hwnd); });
    gesso::SetColorScheme(gesso::ColorScheme::Light);
}

void MeasureSmall(Bench& bench, HWND hwndHost)
{
    GButton button;
    GCheckBox box;
    GRadioButton radio;
    GEdit edit;
    GComboBox combo;
    GProgressBar progress;
    Measure(bench, "push button", button.Create(10, 10, 90, 26, hwndHost, 1, L"Save", 0, CHILD));
    Measure(bench, "check box", box.Create(10, 40, 90, 20, hwndHost, 2, L"Box", 0, CHILD));
    Measure(bench, "radio button", radio.Create(10, 70, 90, 20, hwndHost, 3, L"Radio", 0, CHILD));
    Measure(bench, "edit field", edit.Create(10, 100, 90, 24, hwndHost, 4, L"Text", CHILD, 0));
    Measure(bench, "combo box", combo.Create(10, 130, 90, 24, hwndHost, 5, CHILD | GCBS_DROPDOWNLIST, 0));
    progress.Create(10, 160, 90, 16, hwndHost, 6, 0, CHILD);
    progress.SetProgress(40);
    Measure(bench, "progress bar", progress.GetHwnd());
    for (GWnd* pWnd : std::initializer_list<GWnd*>{&button, &box, &radio, &edit, &combo, &progress}) {
        DestroyWindow(pWnd->GetHwnd());
    }
}

void MeasureTree(Bench& bench, HWND hwndHost)
{
    GTree tree;
    const HWND hwnd = tree.Create(0, 0, 300, 400, hwndHost, 8, 0, CHILD | WS_VSCROLL);
    void* hLast = nullptr;
    for (UINT i = 0; i < ITEMS; i++) {
        hLast = tree.InsertItem(nullptr, hLast, L"Document", 0, TIS_HASCHILDREN, nullptr);
    }
    Measure(bench, "tree of 20 rows in view, with its bar", hwnd);
    DestroyWindow(hwnd);
}

void MeasureRibbon(Bench& bench, HWND hwndHost)
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
    Measure(bench, "ribbon of 12 buttons", hwnd);
    DestroyWindow(hwnd);
}

} // namespace

void MeasureDark(Bench& bench)
{
    bench.Family("Dark beside Light, a paint with its frame");
    const Host host(LIST_CX, LIST_CY);
    MeasureSmall(bench, host);
    {
        OwnListView list(host, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES, nullptr);
        for (UINT i = 0; i < ITEMS; i++) {
            list.InsertItem(END, 0, nullptr, 0, L"Item", 0);
        }
        Measure(bench, "list of 20 rows in view, with check boxes", list.Window());
    }
    MeasureTree(bench, host);
    MeasureRibbon(bench, host);
}

} // namespace bench
