#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language DUTCH = MakeLanguage(
    L"nl",
    {{TextId::Ok, L"OK"},
     {TextId::Cancel, L"Annuleren"},
     {TextId::Yes, L"Ja"},
     {TextId::No, L"Nee"},
     {TextId::Abort, L"Afbreken"},
     {TextId::Retry, L"Opnieuw"},
     {TextId::Ignore, L"Negeren"},
     {TextId::TryAgain, L"Opnieuw proberen"},
     {TextId::Continue, L"Doorgaan"},
     {TextId::Close, L"Sluiten"},
     {TextId::Help, L"Help"},
     {TextId::WizardBack, L"Vorige"},
     {TextId::WizardNext, L"Volgende"},
     {TextId::WizardFinish, L"Voltooien"},
     {TextId::WizardCancel, L"Annuleren"},
     {TextId::Undo, L"&Ongedaan maken"},
     {TextId::Redo, L"Opnie&uw"},
     {TextId::Cut, L"K&nippen"},
     {TextId::Copy, L"&Kopiëren"},
     {TextId::Paste, L"&Plakken"},
     {TextId::Delete, L"&Verwijderen"},
     {TextId::SelectAll, L"&Alles selecteren"},
     {TextId::CertificateShow, L"Certificaat weergeven..."},
     {TextId::CertificateQuestion, L"Wilt u doorgaan?"},
     {TextId::CertificateDontAsk, L"Niet meer vragen bij verbindingen met deze computer."},
     {TextId::SecureHeader, L"Identificatie van de verbinding"},
     {TextId::UntrustedHeader, L"Niet-vertrouwd certificaat"},
     {TextId::InvalidHeader, L"Ongeldig certificaat"},
     {TextId::SecureStatus, L"De verbinding is beveiligd."},
     {TextId::UntrustedStatus, L"De externe computer kan niet worden geverifieerd vanwege problemen met het "
                               L"beveiligingscertificaat. Het is mogelijk niet veilig om door te gaan."},
     {TextId::InvalidStatus, L"De externe computer kan niet worden geverifieerd vanwege problemen met het "
                             L"beveiligingscertificaat. U kunt niet doorgaan."},
     {TextId::FailureNone, L"Het certificaat is geldig en wordt vertrouwd."},
     {TextId::FailureUntrusted,
      L"Het certificaat of het bijbehorende basiscertificaat wordt niet vertrouwd."},
     {TextId::FailureUsage, L"Het certificaat wordt gebruikt voor een doel waarvoor het niet is bestemd."},
     {TextId::FailureName, L"De naam op het certificaat komt niet overeen met de gevraagde naam."},
     {TextId::FailureNoRevocationList, L"Er is geen intrekkingslijst gevonden of er is niet naar gezocht."},
     {TextId::FailureExpired, L"Het certificaat is verlopen."},
     {TextId::FailureNotYetValid, L"Het certificaat is nog niet geldig."},
     {TextId::FailureTimeNesting, L"De geldigheidsperioden in de certificaatketen zijn niet juist genest."},
     {TextId::FailureInvalid,
      L"Het certificaat is ongeldig: er is iets mis met de keten, de handtekeningen of de inhoud."},
     {TextId::FailureRevoked, L"Het certificaat is ingetrokken."},
     {TextId::FailureDistrusted, L"Het certificaat wordt op deze computer uitdrukkelijk niet vertrouwd."}});

} // namespace gesso
