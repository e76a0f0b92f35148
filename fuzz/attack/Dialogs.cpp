// Dialogs: each is run, and ended at every moment, by a user, by its program, or with its parent. While one
// runs the world acts in the loop's idle moments.

#include "Dialogs.h"
#include "ControlWorld.h"
#include "Plain.h"

#include <tests/support/TestDialogs.h>

namespace attack {

namespace {

class DialogWorld : public World
{
public:
    DialogWorld(const Table& table, Source& source) : World(table, source) {}
    HWND Window() override { return IsWindow(m_hwnd) ? m_hwnd : GDialog::s_hActiveDlg; }
    void DeleteObject(Source& source) override
    {
        source.Flag() ? static_cast<void>(EndDialog(Window(), source.Below(12)))
                      : static_cast<void>(DestroyWindow(Window()));
    }

protected:
    // A button, as its window tells it.
    static void Command(World& world, Source& source)
    {
        SendMessageW(world.Window(), WM_COMMAND, source.Chance(8) ? source.Number() : source.Below(14),
                     source.Flag() ? reinterpret_cast<LPARAM>(world.AnyWindow(source)) : 0);
    }
    static void EndIt(World& world, Source& source) { EndDialog(world.Window(), source.Integer()); }
    static void CloseIt(World& world, Source&) { SendMessageW(world.Window(), WM_CLOSE, 0, 0); }

    static void AddAll(Table& table)
    {
        AddMessages(table);
        AddInput(table);
        AddSurroundings(table);
        AddSettings(table);
        AddFaults(table);
        Add(table, {{"Command", Command, 6}, {"EndDialog", EndIt}, {"Close", CloseIt}});
    }

    HWND m_hwnd = nullptr; // of a dialog that is not modal
};

// --- The task dialog and the message box

class TaskDialogWorld : public DialogWorld
{
public:
    explicit TaskDialogWorld(Source& source) : DialogWorld(Operations(), source) {}

private:
    static void RunConfig(World& world, Source& source)
    {
        const Text texts[] = {source.AnyText(), source.AnyText(), source.AnyText()};
        GTASKDIALOGCONFIG config{};
        config.hwndParent = world.AnyParent(source);
        config.pszWindowTitle = texts[0];
        config.hMainIcon = world.AnyIcon(source);
        config.pszMainInstruction = texts[1];
        config.pszContent = texts[2];
        config.dwCommonButtons = source.Chance(4) ? source.Bits() : source.Below(64);
        config.dwDefaultButton = source.Chance(4) ? source.Bits() : 1u << source.Below(6);
        config.cxWidth = source.Chance(4) ? source.Number() : 0;
        UINT uButton = 0;
        GTaskDialog::IsolationAwareTaskDialogIndirect(&config, source.Flag() ? &uButton : nullptr);
    }
    static void RunAsk(World& world, Source& source)
    {
        const Text texts[] = {source.AnyText(), source.AnyText()};
        GTASKDIALOGCONFIG config{};
        config.hwndParent = world.AnyParent(source);
        config.pszContent = texts[0];
        config.dwCommonButtons = source.Below(64);
        bool fChecked = source.Flag();
        UINT uButton = 0;
        GTaskDialog::Ask(source.Chance(12) ? nullptr : &config, texts[1], source.Flag() ? &fChecked : nullptr,
                         source.Flag() ? &uButton : nullptr);
    }
    static void RunPlain(World& world, Source& source)
    {
        const Text texts[] = {source.AnyText(), source.AnyText(), source.AnyText()};
        GTaskDialog::IsolationAwareTaskDialog(world.AnyParent(source), nullptr, texts[0], texts[1], texts[2],
                                              source.Below(64),
                                              source.Flag() ? MAKEINTRESOURCEW(32513) : nullptr, nullptr);
    }
    static void RunMessageBox(World& world, Source& source)
    {
        const Text texts[] = {source.AnyText(), source.AnyText()};
        GTaskDialog::MessageBoxW(world.AnyParent(source), texts[0], texts[1],
                                 source.Chance(3) ? source.Bits() : source.Below(0x60));
    }

    static const Table& Operations()
    {
        static const Table TABLE = [] {
            Table table{{"TaskDialogIndirect", RunConfig, 12},
                        {"TaskDialog", RunPlain, 6},
                        {"Ask", RunAsk, 6},
                        {"MessageBox", RunMessageBox, 6}};
            AddAll(table);
            return table;
        }();
        return TABLE;
    }
};

// --- The certificate dialog

int ShowCertificate(HWND hDlg, void*)
{
    InvalidateRect(hDlg, nullptr, TRUE);
    return 0;
}

class CertificateWorld : public DialogWorld
{
public:
    explicit CertificateWorld(Source& source) : DialogWorld(Operations(), source) {}

private:
    static void RunIt(World& world, Source& source)
    {
        const Text texts[] = {source.AnyText(), source.AnyText()};
        DWORD dwResult = 0;
        GWndCertFailure::WndCertFailure(source.Flag() ? &dwResult : nullptr, world.AnyParent(source),
                                        source.Flag() ? ShowCertificate : nullptr, nullptr,
                                        source.Chance(6) ? source.Number() : source.Below(3), source.Bits(),
                                        texts[0], texts[1]);
    }
    static void RunRecord(World& world, Source& source)
    {
        const Text texts[] = {source.AnyText(), source.AnyText()};
        const GWNDCERTFAILURECONFIG config{
            source.Below(3), source.Bits(), texts[0], texts[1], source.Flag() ? ShowCertificate : nullptr,
            nullptr};
        GWndCertFailure::WndCertFailureIndirect(nullptr, world.AnyParent(source), &config);
    }
    static const Table& Operations()
    {
        static const Table TABLE = [] {
            Table table{{"WndCertFailure", RunIt, 20}, {"WndCertFailureIndirect", RunRecord, 6}};
            AddAll(table);
            return table;
        }();
        return TABLE;
    }
};

// --- The wizard

class Wizard : public GWizard
{
public:
    Wizard() { m_pConfig = &m_config; }
    using GWizard::NextPage;
    using GWizard::PreviousPage;

private:
    const GWIZARDCONFIG m_config{0, L"Wizard", 0, WZB_NEXT, L"Done"};
};

// Mostly allows what it is asked, and lets the world act.
INT_PTR CALLBACK PageProc(HWND hwnd, UINT uMsg, WPARAM, LPARAM lParam)
{
    NoteHostMessage(hwnd, uMsg);
    if (uMsg != WM_NOTIFY) {
        return FALSE;
    }
    auto* pHeader = reinterpret_cast<NMHDR*>(lParam);
    const bool fAsked = pHeader->code >= WZN_SETACTIVE && pHeader->code <= WZN_FINISH;
    if (fAsked) {
        reinterpret_cast<stcWizardNotify*>(pHeader)->nResult = 1;
    }
    return fAsked;
}

class WizardWorld : public DialogWorld
{
public:
    explicit WizardWorld(Source& source) : DialogWorld(Operations(), source)
    {
        const HINSTANCE hInstance = TestDialogs();
        for (stcPage& page : m_pages) {
            const WORD wTemplate = source.Flag() ? TEST_PAGE : source.Flag() ? TEST_FIELD_PAGE : TEST_NO_PAGE;
            page = {nullptr, hInstance, MAKEINTRESOURCEW(wTemplate), PageProc, 0};
        }
    }
    void* Object() override { return &m_wizard; }
    HWND Window() override { return IsWindow(m_wizard) ? m_wizard.GetHwnd() : DialogWorld::Window(); }

private:
    static WizardWorld& Of(World& world) { return static_cast<WizardWorld&>(world); }

    static void RunIt(World& world, Source& source)
    {
        WizardWorld& self = Of(world);
        if (!std::exchange(self.m_fRuns, true)) {
            self.m_wizard.DoModal(world.AnyParent(source), nullptr);
            self.m_fRuns = false;
        }
    }
    static void Insert(World& world, Source& source)
    {
        WizardWorld& self = Of(world);
        if (!self.m_fRuns) {
            self.m_wizard.InsertPage(source.Number(),
                                     source.Chance(12) ? nullptr : &self.m_pages[source.Below(4)]);
        }
    }
    static void Remove(World& world, Source& source)
    {
        if (!Of(world).m_fRuns) {
            Of(world).m_wizard.RemovePage(source.Number());
        }
    }
    static void SetCurrent(World& world, Source& source)
    {
        stcPage* const pPage = source.Flag() ? &Of(world).m_pages[source.Below(4)] : nullptr;
        SendMessageW(world.Window(), WZM_SETCURPAGE, source.Number(), reinterpret_cast<LPARAM>(pPage));
    }
    static void GetCurrent(World& world, Source& source)
    {
        UINT nIndex = 0;
        stcPage* pPage = nullptr;
        SendMessageW(world.Window(), WZM_GETCURPAGE,
                     reinterpret_cast<WPARAM>(source.Flag() ? &nIndex : nullptr),
                     reinterpret_cast<LPARAM>(source.Flag() ? &pPage : nullptr));
    }
    static void SetButtons(World& world, Source& source)
    {
        SendMessageW(world.Window(), WZM_SETBUTTONS, source.Number(), source.Integer());
    }

    static const Table& Operations()
    {
        static const Table TABLE = [] {
            Table table{
                {"DoModal", RunIt, 10},
                {"InsertPage", Insert, 6},
                {"RemovePage", Remove, 1},
                {"SetCurPage", SetCurrent, 6},
                {"GetCurPage", GetCurrent, 2},
                {"SetButtons", SetButtons, 2},
                Own<Wizard>("NextPage", [](Wizard& wizard, World&, Source&) { wizard.NextPage(); }),
                Own<Wizard>("PreviousPage", [](Wizard& wizard, World&, Source&) { wizard.PreviousPage(); }),
                OP(Wizard, GetPage),
                OP(Wizard, SetText),
                OP(Wizard, GetTextLength),
                OP(Wizard, GetDlgItem)};
            AddAll(table);
            return table;
        }();
        return TABLE;
    }

    Wizard m_wizard;
    stcPage m_pages[4];
    bool m_fRuns = false;
};

// --- A host's dialog over any template

constexpr LPCWSTR CLASSES[] = {L"GButton",      L"GCheckBox",
                               L"GRadioButton", L"GCommandButton",
                               L"GLabel",       L"GEdit",
                               L"GComboBox",    L"GList",
                               L"GTree",        L"GProgressBar",
                               L"STATIC",       L"BUTTON",
                               L"EDIT",         L"GNavigationButton",
                               L"NoSuchClass"};

} // namespace

test::DialogTemplate AnyTemplate(Source& source)
{
    const DWORD dwStyle = WS_POPUP | WS_VISIBLE | (source.Chance(2) ? DS_SETFONT : 0);
    test::DialogTemplate dialog(dwStyle, static_cast<SHORT>(source.Integer()),
                                static_cast<SHORT>(source.Size()), source.Flag());
    for (UINT n = source.Below(6); n > 0; --n) {
        test::DialogItem item{source.Bits() & ~desk::ITEM_STYLES_LEFT_OUT, static_cast<WORD>(source.Number()),
                              source.Any(std::span<const LPCWSTR>(CLASSES)), L"Title"};
        item.data = AnyItemData(source);
        item.dwExStyle = source.Chance(4) ? source.Bits() : 0;
        item.x = static_cast<SHORT>(source.Integer());
        item.y = static_cast<SHORT>(source.Integer());
        item.cx = static_cast<SHORT>(source.Integer());
        item.cy = static_cast<SHORT>(source.Integer());
        dialog.Add(item);
    }
    return dialog;
}

namespace {

class TemplateWorld : public DialogWorld
{
public:
    explicit TemplateWorld(Source& source) : DialogWorld(Operations(), source) {}
    ~TemplateWorld() override { delete m_pDialog; }
    void* Object() override { return m_pDialog; }
    void DeleteObject(Source&) override { delete std::exchange(m_pDialog, nullptr); }

private:
    static TemplateWorld& Of(World& world) { return static_cast<TemplateWorld&>(world); }

    static void MakeIndirect(World& world, Source& source)
    {
        const test::DialogTemplate dialog = AnyTemplate(source);
        TemplateWorld& self = Of(world);
        self.DeleteObject(source);
        HostDialog* const pDialog = self.m_pDialog = new HostDialog;
        pDialog->CreateIndirect(world.AnyParent(source), desk::HostModule(), dialog.Get());
        if (self.m_pDialog == pDialog) {
            self.m_hwnd = pDialog->GetHwnd();
        }
    }
    static const Table& Operations()
    {
        static const Table TABLE = [] {
            Table table{{"CreateIndirect", MakeIndirect, 14},
                        OP(HostDialog, SetText),
                        OP(HostDialog, GetTextLength),
                        OP(HostDialog, GetDlgItem),
                        OP(HostDialog, Destroy),
                        OP(HostDialog, MoveWindow),
                        OP(HostDialog, Invalidate),
                        GetTextOf<HostDialog>("GetText", &HostDialog::GetText)};
            AddFromResources(table);
            AddAll(table);
            return table;
        }();
        return TABLE;
    }

    HostDialog* m_pDialog = nullptr;
};

} // namespace

void AddDialogs(std::vector<AttackedClass>& classes)
{
    classes.push_back(OfWorld<TaskDialogWorld>("GTaskDialog"));
    classes.push_back(OfWorld<CertificateWorld>("GWndCertFailure"));
    classes.push_back(OfWorld<WizardWorld>("GWizard"));
    classes.push_back(OfWorld<TemplateWorld>("GDialog"));
}

} // namespace attack
