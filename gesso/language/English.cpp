#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language ENGLISH = MakeLanguage(
    L"en",
    {{TextId::Ok, L"OK"},
     {TextId::Cancel, L"Cancel"},
     {TextId::Yes, L"Yes"},
     {TextId::No, L"No"},
     {TextId::Abort, L"Abort"},
     {TextId::Retry, L"Retry"},
     {TextId::Ignore, L"Ignore"},
     {TextId::TryAgain, L"Try Again"},
     {TextId::Continue, L"Continue"},
     {TextId::Close, L"Close"},
     {TextId::Help, L"Help"},
     {TextId::WizardBack, L"Back"},
     {TextId::WizardNext, L"Next"},
     {TextId::WizardFinish, L"Finish"},
     {TextId::WizardCancel, L"Cancel"},
     {TextId::Undo, L"&Undo"},
     {TextId::Redo, L"&Redo"},
     {TextId::Cut, L"Cu&t"},
     {TextId::Copy, L"&Copy"},
     {TextId::Paste, L"&Paste"},
     {TextId::Delete, L"&Delete"},
     {TextId::SelectAll, L"Select &All"},
     {TextId::CertificateShow, L"View certificate..."},
     {TextId::CertificateQuestion, L"Do you want to continue?"},
     {TextId::CertificateDontAsk, L"Don't ask me again for connections to this computer."},
     {TextId::SecureHeader, L"Connection identification"},
     {TextId::UntrustedHeader, L"Untrusted certificate"},
     {TextId::InvalidHeader, L"Invalid certificate"},
     {TextId::SecureStatus, L"The connection is secure."},
     {TextId::UntrustedStatus, L"The remote computer could not be authenticated because of problems with its "
                               L"security certificate. It may be unsafe to continue."},
     {TextId::InvalidStatus, L"The remote computer could not be authenticated because of problems with its "
                             L"security certificate. It is not possible to continue."},
     {TextId::FailureNone, L"The certificate is valid and trusted."},
     {TextId::FailureUntrusted, L"The certificate, or the root that it comes from, is not trusted."},
     {TextId::FailureUsage, L"The certificate is used for a purpose that it is not meant for."},
     {TextId::FailureName, L"The name on the certificate does not match the name that was asked for."},
     {TextId::FailureNoRevocationList, L"No revocation list was found or looked for."},
     {TextId::FailureExpired, L"The certificate has expired."},
     {TextId::FailureNotYetValid, L"The certificate is not valid yet."},
     {TextId::FailureTimeNesting, L"The validity periods of the certificate chain do not nest correctly."},
     {TextId::FailureInvalid,
      L"The certificate is not valid: something is wrong with its chain, its signatures or its contents."},
     {TextId::FailureRevoked, L"The certificate has been revoked."},
     {TextId::FailureDistrusted, L"The certificate is explicitly distrusted on this computer."}});

} // namespace gesso
