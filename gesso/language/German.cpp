#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language GERMAN = MakeLanguage(
    L"de",
    {{TextId::Ok, L"OK"},
     {TextId::Cancel, L"Abbrechen"},
     {TextId::Yes, L"Ja"},
     {TextId::No, L"Nein"},
     {TextId::Abort, L"Abbrechen"},
     {TextId::Retry, L"Wiederholen"},
     {TextId::Ignore, L"Ignorieren"},
     {TextId::TryAgain, L"Erneut versuchen"},
     {TextId::Continue, L"Weiter"},
     {TextId::Close, L"Schliessen"},
     {TextId::Help, L"Hilfe"},
     {TextId::WizardBack, L"Zurück"},
     {TextId::WizardNext, L"Weiter"},
     {TextId::WizardFinish, L"Fertig stellen"},
     {TextId::WizardCancel, L"Abbrechen"},
     {TextId::Undo, L"&Rückgängig"},
     {TextId::Redo, L"&Wiederholen"},
     {TextId::Cut, L"&Ausschneiden"},
     {TextId::Copy, L"&Kopieren"},
     {TextId::Paste, L"&Einfügen"},
     {TextId::Delete, L"&Löschen"},
     {TextId::SelectAll, L"Alles &markieren"},
     {TextId::CertificateShow, L"Zertifikat anzeigen..."},
     {TextId::CertificateQuestion, L"Möchten Sie den Vorgang fortsetzen?"},
     {TextId::CertificateDontAsk, L"Nicht erneut nach Verbindungen mit diesem Computer fragen."},
     {TextId::SecureHeader, L"Verbindungsidentifizierung"},
     {TextId::UntrustedHeader, L"Nicht vertrauenswürdiges Zertifikat"},
     {TextId::InvalidHeader, L"Zertifikat ungültig"},
     {TextId::SecureStatus, L"Die Verbindung ist sicher."},
     {TextId::UntrustedStatus,
      L"Der Remotecomputer konnte aufgrund von Sicherheitszertifikatproblemen nicht authentifiziert werden. "
      L"Das Fortsetzen des Vorgangs ist eventuell nicht sicher."},
     {TextId::InvalidStatus, L"Der Remotecomputer konnte aufgrund von Sicherheitszertifikatproblemen nicht "
                             L"authentifiziert werden. Das Fortsetzen des Vorgangs ist nicht möglich."},
     {TextId::FailureNone, L"Das Zertifikat ist gültig und vertrauenswürdig"},
     {TextId::FailureUntrusted, L"dem Zertifikat wird nicht getraut (bzw. dessen Root)"},
     {TextId::FailureUsage, L"das Zertifikat wird für einen falschen Zweck verwendet"},
     {TextId::FailureName, L"der Name im Zertifikat stimmt nicht mit dem geforderten überein"},
     {TextId::FailureNoRevocationList, L"es wurden keine CRL zu den Zertifikaten gesucht/gefunden"},
     {TextId::FailureExpired, L"das Zertifikat ist abgelaufen"},
     {TextId::FailureNotYetValid, L"das Zertifikat ist noch nicht gültig"},
     {TextId::FailureTimeNesting, L"die Verschachtelung der Zeiten ist falsch"},
     {TextId::FailureInvalid,
      L"Das Zertifikat ist ungültig (irgendwas stimmt nicht mit der Kette, den Signaturen oder etwas "
      L"anderem... wir vertrauen dem Ding auf jeden Fall nicht)"},
     {TextId::FailureRevoked, L"Das Zertifikat wurde zurückgezogen."},
     {TextId::FailureDistrusted,
      L"explizit nicht vertrauenswürdig (wie zurückgezogen, aber nicht von der CA)"}});

} // namespace gesso
