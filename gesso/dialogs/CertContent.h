// What GWndCertFailure shows: its texts, and its colours and icons at each severity; and the elements that
// its layout leaves for its painting.
#pragma once

#include <gesso/framework/Colors.h>

struct CertText
{
    HFONT hFont;
    COLORREF cr;
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
    LPCWSTR pszHeader;
    Color text, left, right; // of the header's text, and of the ends of its gradient
    WORD wHeaderIcon, wLineIcon;
    LPCWSTR pszStatus;
};

// By CFT_.
inline constexpr CertSeverity SEVERITIES[] = {
    {L"Verbindungsidentifizierung", Color::CertSecureText, Color::CertSecureLeft, Color::CertSecureRight, 138,
     135, L"Die Verbindung ist sicher."},
    {L"Nicht vertrauenswürdiges Zertifikat", Color::CertUntrustedText, Color::CertUntrustedLeft,
     Color::CertUntrustedRight, 133, 136,
     L"Der Remotecomputer konnte aufgrund von Sicherheitszertifikatproblemen nicht authentifiziert "
     L"werden. Das Fortsetzen des Vorgangs ist eventuell nicht sicher."},
    {L"Zertifikat ungültig", Color::CertInvalidText, Color::CertInvalidLeft, Color::CertInvalidRight, 137,
     134,
     L"Der Remotecomputer konnte aufgrund von Sicherheitszertifikatproblemen nicht authentifiziert "
     L"werden. Das Fortsetzen des Vorgangs ist nicht möglich."},
};

// By bit of the failures.
inline constexpr LPCWSTR FAILURE_TEXTS[] = {
    L"Das Zertifikat ist gültig und vertrauenswürdig",
    L"dem Zertifikat wird nicht getraut (bzw. dessen Root)",
    L"das Zertifikat wird für einen falschen Zweck verwendet",
    L"der Name im Zertifikat stimmt nicht mit dem geforderten überein",
    L"es wurden keine CRL zu den Zertifikaten gesucht/gefunden",
    L"das Zertifikat ist abgelaufen",
    L"das Zertifikat ist noch nicht gültig",
    L"die Verschachtelung der Zeiten ist falsch",
    // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): one text
    (L"Das Zertifikat ist ungültig (irgendwas stimmt nicht mit der Kette, den Signaturen oder etwas "
     L"anderem... wir vertrauen dem Ding auf jeden Fall nicht)"),
    L"Das Zertifikat wurde zurückgezogen.",
    L"explizit nicht vertrauenswürdig (wie zurückgezogen, aber nicht von der CA)",
};

inline constexpr LPCWSTR QUESTION_TEXT = L"Möchten Sie den Vorgang fortsetzen?";
inline constexpr LPCWSTR DONT_ASK_TEXT = L"Nicht erneut nach Verbindungen mit diesem Computer fragen.";

} // namespace gesso
