#include <gallery/Canvas.h>
#include <gallery/DemoWizard.h>
#include <gallery/Fonts.h>
#include <gallery/Marks.h>
#include <gallery/Scale.h>
#include <gallery/resource.h>

namespace gallery {
namespace {

constexpr int PAGE_MARGIN = 20;
constexpr int TEXT_TOP = 58;
constexpr int TEXT_HEIGHT = 76;
constexpr SIZE BOX = {330, 24};
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;

constexpr GWIZARDCONFIG CONFIG = {0, L"Set up a gallery", 0, WZB_NEXT, L"Finish"};

struct PageText
{
    LPCWSTR pszTitle;
    LPCWSTR pszText;
};
constexpr PageText TEXTS[DemoWizard::PAGE_COUNT] = {
    {L"Welcome",
     L"Four pages, each a dialog template of the host's. The dialog takes the size of the first. Next, "
     L"Back and Cancel are the wizard's own buttons."},
    {L"Terms",
     L"A page is asked before it is left, and may refuse. This one does so until its box is ticked, "
     L"whichever way the user wants to go. Cancel asks nobody."},
    {L"Kind",
     L"Choose what the gallery is to hold. The focus comes here with the page, and the arrow keys go from "
     L"one choice to the next."},
    {L"Ready",
     L"On the last page Finish stands in the place of Next. The page has made it the default button, so "
     L"that Enter ends the wizard."},
};

enum PageIndex
{
    WELCOME,
    TERMS,
    KIND,
    READY,
};

} // namespace

// What stands on a page, and what it answers.
class DemoWizard::DemoPage
{
public:
    DemoPage(int nIndex, bool fLast) : m_nIndex(nIndex), m_fLast(fLast) {}

    void Build(HWND hwnd)
    {
        m_canvas = std::make_unique<Canvas>(hwnd);
        RECT rc{};
        GetClientRect(hwnd, &rc);
        // The wizard may have other dots still, and come to the gallery's when it is shown: its page with it.
        const auto nDots = static_cast<int>(gesso::DpiOf(::GetParent(hwnd)));
        const int xRight = MulDiv(rc.right, USER_DEFAULT_SCREEN_DPI, nDots) - PAGE_MARGIN;
        m_canvas->Text({PAGE_MARGIN, 16, xRight, 46}, TEXTS[m_nIndex].pszTitle, TitleFont(), Shade::Title);
        m_canvas->Text({PAGE_MARGIN, TEXT_TOP, xRight, TEXT_TOP + TEXT_HEIGHT}, TEXTS[m_nIndex].pszText,
                       g_hDefaultFont, Shade::Text, GS_MULTILINE);
        if (m_nIndex == TERMS) {
            BuildTerms(xRight);
        } else if (m_nIndex == KIND) {
            BuildKind();
        }
        if (nDots == Dots()) {
            m_canvas->Finish();
        }
    }

    void OnNotify(HWND hwnd, stcWizardNotify& notify)
    {
        switch (notify.hdr.code) {
        case WZN_SETACTIVE:
            SendMessageW(::GetParent(hwnd), DM_SETDEFID, m_fLast ? WZB_FINISH : WZB_NEXT, 0);
            break;
        case WZN_KILLACTIVE: notify.nResult = MayLeave(); break;
        case WZN_FINISH: notify.nResult = 1; break;
        default: break;
        }
    }

    // The page's own click; in Classic the marks are the page's to change.
    void OnCommand(HWND hwndFrom)
    {
        if (m_pBox) {
            MarkAfterClick(*m_pBox);
            m_pWarning->SetVisible(0);
        }
        for (GRadioButton* pRadio : m_radios) {
            pRadio->SetCheck(pRadio->GetHwnd() == hwndFrom);
        }
    }

private:
    void BuildTerms(int xRight)
    {
        constexpr int TOP = TEXT_TOP + TEXT_HEIGHT;
        m_pBox = &m_canvas->Own(std::make_unique<GCheckBox>());
        m_pBox->Create(PAGE_MARGIN, TOP, BOX.cx, BOX.cy, m_canvas->Window(), m_canvas->NextId(),
                       L"I have read this, and agree", 0, CHILD | WS_TABSTOP | GS_VCENTER | GBS_AUTO);
        m_pWarning = &m_canvas->Text({PAGE_MARGIN, TOP + BOX.cy + 8, xRight, TOP + 2 * BOX.cy + 8},
                                     L"Tick the box to go on.", g_hDefaultFont, Shade::Warning);
        m_pWarning->SetVisible(0);
    }

    void BuildKind()
    {
        int y = TEXT_TOP + TEXT_HEIGHT;
        for (LPCWSTR pszText : {L"Paintings", L"Photographs", L"Controls"}) {
            GRadioButton& radio = m_canvas->Own(std::make_unique<GRadioButton>());
            radio.Create(PAGE_MARGIN, y, BOX.cx, BOX.cy, m_canvas->Window(), m_canvas->NextId(), pszText, 0,
                         CHILD | GS_VCENTER | GBS_AUTO | (m_radios.empty() ? WS_TABSTOP | WS_GROUP : 0));
            radio.SetCheck(m_radios.empty());
            m_radios.push_back(&radio);
            y += BOX.cy;
        }
    }

    bool MayLeave() const
    {
        const bool fMay = !m_pBox || m_pBox->GetCheck();
        if (m_pWarning) {
            m_pWarning->SetVisible(!fMay);
        }
        return fMay;
    }

    int m_nIndex;
    bool m_fLast;
    std::unique_ptr<Canvas> m_canvas;
    GCheckBox* m_pBox = nullptr;
    GLabel* m_pWarning = nullptr;
    std::vector<GRadioButton*> m_radios;
};

DemoWizard::DemoWizard(UINT nPages)
{
    m_pConfig = &CONFIG;
    for (UINT i = 0; i < nPages && i < PAGE_COUNT; i++) {
        m_demoPages[i] = std::make_unique<DemoPage>(static_cast<int>(i), i + 1 == nPages);
        m_records[i] = {nullptr, GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_WIZARD_PAGE), &PageProc,
                        reinterpret_cast<LPARAM>(m_demoPages[i].get())};
        InsertPage(i, &m_records[i]);
    }
}

DemoWizard::~DemoWizard() = default;

INT_PTR CALLBACK DemoWizard::PageProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (uMsg == WM_INITDIALOG) {
        SetWindowLongPtrW(hwnd, DWLP_USER, lParam);
        reinterpret_cast<DemoPage*>(lParam)->Build(hwnd);
        return TRUE;
    }
    auto* pPage = reinterpret_cast<DemoPage*>(GetWindowLongPtrW(hwnd, DWLP_USER));
    switch (uMsg) {
    case WM_CTLCOLORDLG:
        return SendMessageW(::GetParent(hwnd), uMsg, wParam, lParam); // the wizard's own ground
    case WM_COMMAND: pPage->OnCommand(reinterpret_cast<HWND>(lParam)); return TRUE;
    case WM_NOTIFY:
        // The page's own controls report too.
        if (reinterpret_cast<const NMHDR*>(lParam)->hwndFrom == ::GetParent(hwnd)) {
            pPage->OnNotify(hwnd, *reinterpret_cast<stcWizardNotify*>(lParam));
        }
        return TRUE;
    default: return FALSE;
    }
}

} // namespace gallery
