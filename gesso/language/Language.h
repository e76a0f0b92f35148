// The texts that the library itself shows: on the buttons of its dialogs and of the wizard, in the
// certificate dialog, and in the context menus of text fields.
//
// They are German until a program asks for another language; the wizard's are English until then. All of it
// is of the process, may be called by any thread, and holds for what is made or shown from then on.
#pragma once

#include <gesso/api.h>

namespace gesso {

// What each text is in English.
enum class TextId : UINT
{
    // Buttons of dialogs.
    Ok,                      // OK
    Cancel,                  // Cancel
    Yes,                     // Yes
    No,                      // No
    Abort,                   // Abort
    Retry,                   // Retry
    Ignore,                  // Ignore
    TryAgain,                // Try Again
    Continue,                // Continue
    Close,                   // Close
    Help,                    // Help
                             // Buttons of the wizard.
    WizardBack,              // Back
    WizardNext,              // Next
    WizardFinish,            // Finish: where the host gives no label. Empty until a language is set
    WizardCancel,            // Cancel
                             // The context menu of a text field, each with its mnemonic.
    Undo,                    // &Undo
    Redo,                    // &Redo
    Cut,                     // Cu&t
    Copy,                    // &Copy
    Paste,                   // &Paste
    Delete,                  // &Delete
    SelectAll,               // Select &All
                             // The certificate dialog's controls and question.
    CertificateShow,         // View certificate...
    CertificateQuestion,     // Do you want to continue?
    CertificateDontAsk,      // Don't ask me again for connections to this computer.
                             // Its header and status, by severity.
    SecureHeader,            // Connection identification
    UntrustedHeader,         // Untrusted certificate
    InvalidHeader,           // Invalid certificate
    SecureStatus,            // The connection is secure.
    UntrustedStatus,         // ... It may be unsafe to continue.
    InvalidStatus,           // ... It is not possible to continue.
                             // Its lines, by bit of the failures.
    FailureNone,             // The certificate is valid and trusted.
    FailureUntrusted,        // The certificate, or the root that it comes from, is not trusted.
    FailureUsage,            // The certificate is used for a purpose that it is not meant for.
    FailureName,             // The name on the certificate does not match the name that was asked for.
    FailureNoRevocationList, // No revocation list was found or looked for.
    FailureExpired,          // The certificate has expired.
    FailureNotYetValid,      // The certificate is not valid yet.
    FailureTimeNesting,      // The validity periods of the certificate chain do not nest correctly.
    FailureInvalid,          // The certificate is not valid: something is wrong with its chain, ...
    FailureRevoked,          // The certificate has been revoked.
    FailureDistrusted        // The certificate is explicitly distrusted on this computer.
};

// The language of the texts from now on, by its tag: de, en, fr, es, it, pt (of Brazil), pt-PT, nl, pl, ru,
// ja, zh (simplified), zh-TW (traditional) or ar, upper and lower case alike. Of a longer tag as many parts
// count, from the first on, as are there: de-AT is de, and pt-PT-ao1990 is pt-PT; zh-Hant, zh-HK and zh-MO
// are zh-TW. The empty text is the user's language: the first of those that they prefer that is there, and
// English where none is; it is asked for once, in this call. False, with nothing changed, for any other tag
// and for null.
GESSO_API bool SetLanguage(LPCWSTR tag);

// A program's own wording in the place of the library's, whatever the language, which is copied. Null takes
// it back. An unknown text is ignored. Without memory for the copy the text stays as it was.
GESSO_API void SetTextOf(TextId id, LPCWSTR text);

// A text as it is shown now: the program's wording, or the language's. It stays valid for the whole life of
// the process. Null for an unknown one.
GESSO_API LPCWSTR TextOf(TextId id);

} // namespace gesso
