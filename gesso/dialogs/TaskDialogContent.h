// The buttons that GTaskDialog may show, and what a message box's type asks for.
#pragma once

#include <gesso/language/Language.h>

#include <iterator>

namespace gesso {

// In the order of creation, which is the order on the screen from the right.
struct CommonButton
{
    DWORD dwBit;
    TextId label;
    int nId;
};
inline constexpr CommonButton COMMON_BUTTONS[] = {
    {TDCBF_CANCEL_BUTTON, TextId::Cancel, IDCANCEL},
    {TDCBF_OK_BUTTON, TextId::Ok, IDOK},
    {TDCBF_NO_BUTTON, TextId::No, IDNO},
    {TDCBF_YES_BUTTON, TextId::Yes, IDYES},
    {TDCBF_RETRY_BUTTON, TextId::Retry, IDRETRY},
    {TDCBF_CLOSE_BUTTON, TextId::Close, IDCLOSE},
};

struct MessageType
{
    DWORD dwButtons, dwFirst, dwSecond, dwThird; // the buttons, and the default for each MB_DEFBUTTON
};

// By the low four bits. Abort, retry and ignore are not offered.
inline constexpr MessageType MESSAGE_TYPES[] = {
    {TDCBF_OK_BUTTON, TDCBF_OK_BUTTON, TDCBF_OK_BUTTON, TDCBF_OK_BUTTON},
    {TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON, TDCBF_OK_BUTTON, TDCBF_CANCEL_BUTTON, TDCBF_OK_BUTTON},
    {TDCBF_OK_BUTTON, 0, 0, 0},
    {TDCBF_YES_BUTTON | TDCBF_NO_BUTTON | TDCBF_CANCEL_BUTTON, TDCBF_YES_BUTTON, TDCBF_NO_BUTTON,
     TDCBF_CANCEL_BUTTON},
    {TDCBF_YES_BUTTON | TDCBF_NO_BUTTON, TDCBF_YES_BUTTON, TDCBF_NO_BUTTON, TDCBF_YES_BUTTON},
    {TDCBF_RETRY_BUTTON | TDCBF_CANCEL_BUTTON, TDCBF_RETRY_BUTTON, TDCBF_CANCEL_BUTTON, TDCBF_RETRY_BUTTON},
};
inline constexpr MessageType OTHER_TYPE = {TDCBF_OK_BUTTON, 0, 0, 0};

constexpr const MessageType& TypeOf(UINT uType)
{
    const UINT uButtons = uType & MB_TYPEMASK;
    return uButtons < std::size(MESSAGE_TYPES) ? MESSAGE_TYPES[uButtons] : OTHER_TYPE;
}

constexpr DWORD DefaultOf(const MessageType& type, UINT uType)
{
    if (uType & MB_DEFBUTTON2) {
        return type.dwSecond;
    }
    return uType & MB_DEFBUTTON3 ? type.dwThird : type.dwFirst;
}

} // namespace gesso
