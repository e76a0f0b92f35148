// What the message dialog is asked to show.

#include <gesso/dialogs/GTaskDialog.h>
#include <gesso/dialogs/MessageDialog.h>
#include <gesso/dialogs/TaskDialogContent.h>

#include <algorithm>
#include <span>

namespace gesso {
namespace {

constexpr DialogButton OK = {L"OK", IDOK};
constexpr DialogButton CANCEL = {L"Abbrechen", IDCANCEL};
constexpr DialogButton YES = {L"Ja", IDYES};
constexpr DialogButton NO = {L"Nein", IDNO};
constexpr DialogButton RETRY = {L"Wiederholen", IDRETRY};

constexpr DialogButton OK_ALONE[] = {OK};
constexpr DialogButton OK_CANCEL[] = {OK, CANCEL};
constexpr DialogButton ABORT_RETRY_IGNORE[] = {{L"Abbrechen", IDABORT}, RETRY, {L"Ignorieren", IDIGNORE}};
constexpr DialogButton YES_NO_CANCEL[] = {YES, NO, CANCEL};
constexpr DialogButton YES_NO[] = {YES, NO};
constexpr DialogButton RETRY_CANCEL[] = {RETRY, CANCEL};
constexpr DialogButton CANCEL_TRY_CONTINUE[] = {
    CANCEL, {L"Erneut versuchen", IDTRYAGAIN}, {L"Weiter", IDCONTINUE}};

// By the low four bits of a message box's type.
constexpr std::span<const DialogButton> BUTTONS_OF_TYPES[] = {
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
            content.buttons.push_back({common->pszLabel, common->nId});
            content.nDefaultId = config.dwDefaultButton == common->dwBit ? common->nId : content.nDefaultId;
        }
    }
    return content;
}

void TakeMessageType(UINT uType, MessageContent* pContent)
{
    const UINT uButtons = uType & MB_TYPEMASK;
    const auto buttons = uButtons < std::size(BUTTONS_OF_TYPES) ? BUTTONS_OF_TYPES[uButtons] : OK_ALONE;
    pContent->buttons.assign(buttons.begin(), buttons.end());
    if (uType & MB_HELP) {
        pContent->buttons.push_back({L"Hilfe", IDHELP});
    }
    pContent->fEscEnds = uButtons != MB_ABORTRETRYIGNORE;
    const size_t nDefault = (uType & MB_DEFMASK) / MB_DEFBUTTON2;
    pContent->nDefaultId = pContent->buttons[nDefault < pContent->buttons.size() ? nDefault : 0].nId;
}

} // namespace gesso
