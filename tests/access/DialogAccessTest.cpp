// What the library's dialogs say of themselves, while they run.
#include "../dialogs/ModalFixture.h"

#include <gesso/access/Find.h>

namespace {

using namespace test;
using gesso::Behavior;
using gesso::Role;

class DialogAccess : public ModalTest
{
protected:
    ~DialogAccess() override { gesso::SetBehavior(Behavior::Classic); }

    // What is there while a dialog runs, which the button of a name then ends.
    template <class RUN> static std::string TreeWhile(LPCWSTR pszEnd, const RUN& run)
    {
        std::string tree;
        WhenIdle([&](HWND hDlg) {
            tree = gesso::AccessibleTree(hDlg);
            EXPECT_TRUE(gesso::FindAccessible(hDlg, Role::PushButton, pszEnd).Press());
        });
        run();
        return tree;
    }
};

TEST_F(DialogAccess, AMessageBoxSaysWhatItShows)
{
    for (const Behavior behavior : {Behavior::Classic, Behavior::Modern}) {
        gesso::SetBehavior(behavior);
        UINT uAnswer = 0;
        const std::string tree = TreeWhile(L"Nein", [&] {
            uAnswer = GTaskDialog::MessageBoxW(Parent(), L"Really?", L"Delete", MB_YESNO | MB_ICONWARNING);
        });
        EXPECT_EQ(uAnswer, static_cast<UINT>(IDNO));
        EXPECT_TRUE(tree.starts_with("dialog \"Delete\" [focusable]\n"
                                     "  graphic \"warning\" [read only]\n"
                                     "  static text \"Really?\" [read only]\n"))
            << tree;
        EXPECT_NE(tree.find("  push button \"Ja\" ["), std::string::npos) << tree;
        EXPECT_NE(tree.find("  push button \"Nein\" ["), std::string::npos) << tree;
        EXPECT_NE(tree.find("default, focusable]"), std::string::npos) << tree;
    }
}

TEST_F(DialogAccess, ATaskDialogIsDescribedByItsInstruction)
{
    for (const Behavior behavior : {Behavior::Classic, Behavior::Modern}) {
        gesso::SetBehavior(behavior);
        const std::string tree = TreeWhile(L"OK", [&] {
            GTaskDialog::IsolationAwareTaskDialog(Parent(), nullptr, L"Title", L"Instruction", L"Content",
                                                  TDCBF_OK_BUTTON, nullptr, nullptr);
        });
        EXPECT_EQ(tree, "dialog \"Title\" description \"Instruction\" [focusable]\n"
                        "  static text \"Instruction\" [read only]\n"
                        "  static text \"Content\" [read only]\n"
                        "  push button \"OK\" [focused, default, focusable]\n");
    }
}

TEST_F(DialogAccess, TheCertificateDialogSaysEachLine)
{
    const std::string tree = TreeWhile(L"Nein", [&] {
        GWndCertFailure::WndCertFailure(nullptr, Parent(), nullptr, nullptr, CFT_UNTRUSTED, 0x20,
                                        L"Certificate", L"example");
    });
    EXPECT_TRUE(tree.starts_with("dialog \"Certificate\" description \"")) << tree;
    EXPECT_NE(tree.find("  graphic \"warning\" [read only]\n"), std::string::npos) << tree;
    EXPECT_NE(tree.find(Narrow(gesso::TextOf(gesso::TextId::FailureExpired))), std::string::npos) << tree;
    EXPECT_NE(tree.find("  check button \""), std::string::npos) << tree;
}

TEST_F(DialogAccess, WhoHoldsADialogsNodeIsToldNothingAfterItsEnd)
{
    gesso::AccessibleNode text;
    WhenIdle([&](HWND hDlg) {
        text = gesso::FindAccessible(hDlg, Role::StaticText, L"Text");
        EXPECT_TRUE(text);
        EndDialog(hDlg, IDOK);
    });
    GTaskDialog::MessageBoxW(Parent(), L"Text", L"Caption", MB_OK);
    EXPECT_EQ(text.role(), Role::None);
    EXPECT_FALSE(text.Press());
}

} // namespace
