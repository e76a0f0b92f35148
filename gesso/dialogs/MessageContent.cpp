// What the message dialog is asked to show.

#include <gesso/dialogs/GTaskDialog.h>
#include <gesso/dialogs/MessageDialog.h>
#include <gesso/dialogs/TaskDialogContent.h>

#include <algorithm>
#include <span>

namespace gesso {
namespace {

struct MessageButton
{
    TextId label;
    int nId;
};

constexpr MessageButton OK = {TextId::Ok, IDOK};
constexpr MessageButton CANCEL = {TextId::Cancel, IDCANCEL};
constexpr MessageButton YES = {TextId::Yes, IDYES};
constexpr MessageButton NO = {TextId::No, IDNO};
constexpr MessageButton RETRY = {TextId::Retry, IDRETRY};

constexpr MessageButton OK_ALONE[] = {OK};
constexpr MessageButton OK_CANCEL[] = {OK, CANCEL};
constexpr MessageButton ABORT_RETRY_IGNORE[] = {{TextId::Abort, IDABORT}, RETRY, {TextId::Ignore, IDIGNORE}};
constexpr MessageButton YES_NO_CANCEL[] = {YES, NO, CANCEL};
constexpr MessageButton YES_NO[] = {YES, NO};
constexpr MessageButton RETRY_CANCEL[] = {RETRY, CANCEL};
constexpr MessageButton CANCEL_TRY_CONTINUE[] = {
    CANCEL, {TextId::TryAgain, IDTRYAGAIN}, {TextId::Continue, IDCONTINUE}};

// By the low four bits of a message box's type.
constexpr std::span<const MessageButton> BUTTONS_OF_TYPES[] = {
    OK_ALONE, OK_CANCEL, ABORT_RETRY_IGNORE, YES_NO_CANCEL, YES_NO, RETRY_CANCEL, CANCEL_TRY_CONTINUE};

} // namespace

MessageContent ContentOf(const GTASKDIALOGCONFIG& config)
{
    MessageContent content;
    content.pszCaption = config.pszWindowTitle;
    content.pszInstruction = config.pszMainInstruction;
    content.pszContent = config.pszContent;
    content.hIcon = config.hMainIcon;
    content.cxWidth = config.cxWidth;
    for (auto common = std::rbegin(COMMON_BUTTONS); common != std::rend(COMMON_BUTTONS); ++common) {
        if (config.dwCommonButtons & common->dwBit) {
            content.buttons.push_back({TextOf(common->label), common->nId});
            content.nDefaultId = config.dwDefaultButton == common->dwBit ? common->nId : content.nDefaultId;
        }
    }
    return content;
}

void TakeMessageType(UINT uType, MessageContent* pContent)
{
    const UINT uButtons = uType & MB_TYPEMASK;
    const auto buttons = uButtons < std::size(BUTTONS_OF_TYPES) ? BUTTONS_OF_TYPES[uButtons] : OK_ALONE;
    pContent->buttons.clear();
    for (const MessageButton& button : buttons) {
        pContent->buttons.push_back({TextOf(button.label), button.nId});
    }
    if (uType & MB_HELP) {
        pContent->buttons.push_back({TextOf(TextId::Help), IDHELP});
    }
    pContent->fEscEnds = uButtons != MB_ABORTRETRYIGNORE;
    const size_t nDefault = (uType & MB_DEFMASK) / MB_DEFBUTTON2;
    pContent->nDefaultId = pContent->buttons[nDefault < pContent->buttons.size() ? nDefault : 0].nId;
}

} // namespace gesso
