// Every operation that can fail, failing at each of its first calls in the life of every control and of every
// dialog. Nothing is lost by it, nothing hangs, and a healthy life afterwards looks as it always does.

#include "ControlLife.h"

#include "../../dialogs/WizardFixture.h"
#include "../../support/WithBehavior.h"
#include "../controls/DrawFixture.h"

#include <gtest/gtest.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif
#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace test;

constexpr int CALLS = 20;
constexpr int ENOUGH_FAILURES = 10; // of a subject, to see what they have in common
constexpr unsigned SECONDS_OF_A_RUN = 20;

// Says which run it was that the program ended in.
class RunName
{
public:
    static void Set(std::string_view subject, const desk::FallibleOperation& operation, int call)
    {
        s_nLength = std::snprintf(s_szName, sizeof(s_szName), "\nin %.*s with %.*s failing at call %d\n",
                                  static_cast<int>(subject.size()), subject.data(),
                                  static_cast<int>(operation.name.size()), operation.name.data(), call);
        alarm(SECONDS_OF_A_RUN);
    }
    static void Watch()
    {
#if defined(__SANITIZE_ADDRESS__)
        __sanitizer_set_death_callback(Print);
#endif
        std::signal(SIGABRT, [](int) { Print(); });
        std::signal(SIGALRM, [](int) {
            Print();
            _exit(1);
        });
    }
    static void Clear()
    {
        s_nLength = 0;
        alarm(0);
    }

private:
    static void Print()
    {
        [[maybe_unused]] const auto n = write(2, s_szName, static_cast<size_t>(s_nLength));
    }

    static constinit inline char s_szName[200] = {};
    static constinit inline int s_nLength = 0;
};

int FailureCount()
{
    return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
}

// Where two drawings part; empty if they are the same.
std::string Difference(const std::vector<std::string>& drawn, const std::vector<std::string>& expected)
{
    for (size_t i = 0; i < std::max(drawn.size(), expected.size()); ++i) {
        const std::string got = i < drawn.size() ? drawn[i] : "nothing more";
        const std::string want = i < expected.size() ? expected[i] : "nothing more";
        if (got != want) {
            return "line " + std::to_string(i) + ": " + got + " in the place of " + want;
        }
    }
    return "";
}

struct Counts
{
    int nRuns = 0;
    int nLeftOut = 0; // behind the last call that a life makes of an operation
    int nFired = 0;
};

// Does something in a process of its own: what a release that failed has left held stays behind with it.
template <class ACT> void InItsOwnProcess(const ACT& act)
{
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        act();
        std::fflush(stdout);
        _exit(testing::Test::HasFailure());
    }
    int nStatus = -1;
    ASSERT_EQ(waitpid(child, &nStatus, 0), child);
    EXPECT_EQ(nStatus, 0) << "what it says stands above";
}

// Goes through the operations and calls. `run` lives a whole life with the fault armed, and checks it.
template <class RUN> Counts Sweep(std::string_view subject, const RUN& run)
{
    Counts counts;
    RunName::Watch();
    for (const desk::FallibleOperation& operation : desk::FallibleOperations()) {
        for (int call = 0; call < CALLS && FailureCount() < ENOUGH_FAILURES; ++call) {
            RunName::Set(subject, operation, call);
            SCOPED_TRACE(std::string(operation.name) + " failing at call " + std::to_string(call));
            desk::Reset();
            const desk::Census before = desk::Live();
            ++counts.nRuns;
            const bool fFired = run(operation, call);
            EXPECT_EQ(desk::TopLevelWindows().size(), 0U);
            EXPECT_FALSE(desk::Deadlocked()) << "a loop that nothing ends";
            desk::Reset(); // the clipboard is the user's
            if (!operation.releases) {
                EXPECT_EQ(desk::Live(), before);
            }
            counts.nFired += fFired;
            if (!fFired) {
                counts.nLeftOut += CALLS - 1 - call; // the calls behind it are not made either
                break;
            }
        }
    }
    RunName::Clear();
    EXPECT_TRUE(desk::HeapIsClean()) << subject;
    return counts;
}

// Arms a fault; true if a call fails by it until the faults are cleared.
void Arm(const desk::FallibleOperation& operation, int call)
{
    desk::Fail(operation.name, 1, ERROR_NOT_ENOUGH_MEMORY, call);
}

bool Fired()
{
    return desk::PendingFaults().empty();
}

void Report(std::string_view subject, const Counts& counts)
{
    testing::Test::RecordProperty("runs", counts.nRuns);
    std::printf("%.*s: %d runs, %d calls failed; %d calls are never made\n", static_cast<int>(subject.size()),
                subject.data(), counts.nRuns, counts.nFired, counts.nLeftOut);
}

// --- Controls

template <class CONTROL> class FaultSweep : public testing::Test
{
protected:
    using Lines = std::vector<std::string>;

    static Lines HealthyPicture(ControlLife<CONTROL>& life)
    {
        life.Heal();
        return life.Picture();
    }
    // How a life without faults looks. It also makes what the process has once.
    void TakeReference()
    {
        desk::Reset();
        Host host;
        ControlLife<CONTROL> life(host);
        life.Begin();
        life.Use();
        m_healed = HealthyPicture(life);
        life.End();
        m_anew = PictureOfAnother(host);
    }
    static Lines PictureOfAnother(HWND hwndParent)
    {
        desk::MoveMouse(1, 1); // which chooses nothing in what comes up
        ControlLife<CONTROL> life(hwndParent);
        life.Begin();
        return HealthyPicture(life);
    }
    // What a change of the style does not bring back: what a host told by a message that did not find the
    // control's object.
    static bool LosesForGood(const desk::FallibleOperation& operation)
    {
        return operation.name == "GetWindowLongPtrW";
    }
    bool Run(const desk::FallibleOperation& operation, int call)
    {
        Host host;
        auto pLife = std::make_unique<ControlLife<CONTROL>>(host);
        Arm(operation, call);
        pLife->Begin();
        pLife->Use();
        if (Fired() && pLife->IsThere() && !LosesForGood(operation)) {
            desk::ClearFaults();
            EXPECT_EQ(Difference(HealthyPicture(*pLife), m_healed), "") << "healed";
        }
        pLife->End();
        const bool fFired = Fired();
        desk::ClearFaults();
        pLife.reset();
        EXPECT_EQ(GetWindow(host, GW_CHILD), nullptr);
        if (fFired) {
            EXPECT_EQ(Difference(PictureOfAnother(host), m_anew), "") << "made anew";
        }
        return fFired;
    }

    void SweepAll(const std::string& where)
    {
        InItsOwnProcess([&] {
            TakeReference();
            const std::string subject = testing::internal::GetTypeName<CONTROL>() + where;
            Report(subject,
                   Sweep(subject, [this](const auto& operation, int call) { return Run(operation, call); }));
        });
    }

    Lines m_healed, m_anew;
};

class DarkScheme
{
public:
    DarkScheme() { gesso::SetColorScheme(gesso::ColorScheme::Dark); }
    ~DarkScheme() { gesso::SetColorScheme(gesso::ColorScheme::Light); }
    DarkScheme(const DarkScheme&) = delete;
    DarkScheme& operator=(const DarkScheme&) = delete;
};

TYPED_TEST_SUITE(FaultSweep, AllControls::Types);

TYPED_TEST(FaultSweep, LosesNothingAndTheControlWorksAgain)
{
    this->SweepAll("");
}

TYPED_TEST(FaultSweep, LosesNothingInModernEither)
{
    const Modern modern;
    this->SweepAll(" in Modern");
}

// Where the library draws by itself.
TYPED_TEST(FaultSweep, LosesNothingInDarkEither)
{
    const DarkScheme dark;
    this->SweepAll(" in Dark");
}

using HostedListFaultSweep = FaultSweep<HostedList>;

TEST_F(HostedListFaultSweep, AListWhoseItemsAreTheHostsLosesNothing)
{
    SweepAll("");
    const Modern modern;
    SweepAll(" in Modern");
}

// --- Dialogs

// A dialog is run with an answer that comes when its loop is idle, and draws in between.
class DialogFaultSweep : public testing::Test
{
protected:
    using Lines = std::vector<std::string>;

    static HWND DialogOver(HWND host)
    {
        const std::vector<HWND> windows = desk::TopLevelWindows();
        const auto found =
            std::find_if(windows.begin(), windows.end(), [host](HWND hwnd) { return hwnd != host; });
        return found != windows.end() ? *found : nullptr;
    }

    static Lines PictureOf(HWND hDlg)
    {
        Lines picture = Controls(hDlg);
        desk::ClearDrawing(hDlg);
        RedrawWindow(hDlg, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        const Lines drawn = desk::Drawing(hDlg);
        picture.insert(picture.end(), drawn.begin(), drawn.end());
        return picture;
    }

    // Runs the dialog once, has its picture taken, and dismisses it.
    template <class DIALOG> static Lines Run(const DIALOG& run)
    {
        Host host;
        Lines picture;
        desk::WhenIdle([&] {
            if (const HWND hDlg = DialogOver(host)) {
                SendMessageW(hDlg, WM_THEMECHANGED, 0, 0);
                picture = PictureOf(hDlg);
                desk::TypeKey(VK_TAB);
            }
        });
        desk::WhenIdle([&] {
            if (DialogOver(host)) {
                desk::TypeKey(VK_ESCAPE);
            }
        });
        desk::WhenIdle([&] {
            if (const HWND hDlg = DialogOver(host)) {
                DestroyWindow(hDlg);
            }
        });
        run(host);
        return picture;
    }

    template <class DIALOG> static void SweepOf(std::string_view subject, const DIALOG& run)
    {
        InItsOwnProcess([&] {
            desk::Reset();
            const Lines healthy = Run(run);
            EXPECT_FALSE(healthy.empty());
            Report(subject, Sweep(subject, [&](const auto& operation, int call) {
                       Arm(operation, call);
                       Run(run);
                       const bool fFired = Fired();
                       desk::ClearFaults();
                       if (fFired) {
                           desk::Reset();
                           EXPECT_EQ(Difference(Run(run), healthy), "");
                       }
                       return fFired;
                   }));
        });
    }
};

TEST_F(DialogFaultSweep, TaskDialog)
{
    SweepOf("task dialog", [](HWND hwndParent) {
        UINT uButton = 0;
        GTaskDialog::IsolationAwareTaskDialog(hwndParent, nullptr, L"Title", L"Instruction", L"Content",
                                              TDCBF_YES_BUTTON | TDCBF_CANCEL_BUTTON, MAKEINTRESOURCEW(32515),
                                              &uButton);
    });
}

TEST_F(DialogFaultSweep, MessageBox)
{
    SweepOf("message box", [](HWND hwndParent) {
        GTaskDialog::MessageBoxW(hwndParent, L"Text", L"Caption", MB_OKCANCEL | MB_ICONERROR);
    });
}

TEST_F(DialogFaultSweep, Wizard)
{
    SweepOf("wizard", [](HWND hwndParent) {
        PageScript script;
        s_pScript = &script;
        TestWizard wizard;
        stcPage page{nullptr, TestDialogs(), MAKEINTRESOURCEW(TEST_PAGE), PageProc, 0};
        wizard.InsertPage(0xFFFF, &page);
        wizard.DoModal(hwndParent, nullptr);
    });
}

TEST_F(DialogFaultSweep, CertificateDialog)
{
    SweepOf("certificate dialog", [](HWND hwndParent) {
        DWORD dwResult = 0;
        GWndCertFailure::WndCertFailure(&dwResult, hwndParent, nullptr, nullptr, CFT_UNTRUSTED, 5, L"Title",
                                        L"subject");
    });
}

} // namespace
