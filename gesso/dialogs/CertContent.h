// What GWndCertFailure shows: its texts, and its colours and icons at each severity; and the elements that
// its layout leaves for its painting.
#pragma once

#include <gesso/framework/Colors.h>
#include <gesso/language/Language.h>

#include <algorithm>
#include <iterator>

struct CertText
{
    HFONT hFont;
    gesso::Color color;
    LPCWSTR psz; // not copied
    RECT rc;
};

struct CertIcon
{
    HICON hIcon;
    int x, y;
};

// What the dialog paints besides its bands: a text or an icon.
struct CertElement
{
    UINT uKind; // KIND_
    union
    {
        CertText text;
        CertIcon icon;
    };
};

namespace gesso {

constexpr UINT KIND_TEXT = 1;
constexpr UINT KIND_ICON = 2;

// The controls that have no id of the platform's.
constexpr int CHECKBOX_ID = 1080;
constexpr int SHOW_ID = 2000;

// The buttons, in the order of the dialog's array.
constexpr size_t SHOW_BUTTON = 0;
constexpr size_t NO_BUTTON = 1; // or OK, where there is no question
constexpr size_t YES_BUTTON = 2;
constexpr size_t CERT_BUTTONS = 3;

struct CertSeverity
{
    TextId header;
    Color text, left, right; // of the header's text, and of the ends of its gradient
    WORD wHeaderIcon, wLineIcon;
    TextId status;
};

// By CFT_.
inline constexpr CertSeverity SEVERITIES[] = {
    {TextId::SecureHeader, Color::CertSecureText, Color::CertSecureLeft, Color::CertSecureRight, 138, 135,
     TextId::SecureStatus},
    {TextId::UntrustedHeader, Color::CertUntrustedText, Color::CertUntrustedLeft, Color::CertUntrustedRight,
     133, 136, TextId::UntrustedStatus},
    {TextId::InvalidHeader, Color::CertInvalidText, Color::CertInvalidLeft, Color::CertInvalidRight, 137, 134,
     TextId::InvalidStatus},
};

// The last for a type that is none.
inline const CertSeverity& SeverityOf(DWORD dwType)
{
    return SEVERITIES[std::min<size_t>(dwType, std::size(SEVERITIES) - 1)];
}

// By bit of the failures.
inline constexpr TextId FAILURE_TEXTS[] = {
    TextId::FailureNone,        TextId::FailureUntrusted,        TextId::FailureUsage,
    TextId::FailureName,        TextId::FailureNoRevocationList, TextId::FailureExpired,
    TextId::FailureNotYetValid, TextId::FailureTimeNesting,      TextId::FailureInvalid,
    TextId::FailureRevoked,     TextId::FailureDistrusted};

} // namespace gesso
