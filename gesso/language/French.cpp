#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language FRENCH = MakeLanguage(
    L"fr",
    {{TextId::Ok, L"OK"},
     {TextId::Cancel, L"Annuler"},
     {TextId::Yes, L"Oui"},
     {TextId::No, L"Non"},
     {TextId::Abort, L"Abandonner"},
     {TextId::Retry, L"Réessayer"},
     {TextId::Ignore, L"Ignorer"},
     {TextId::TryAgain, L"Recommencer"},
     {TextId::Continue, L"Continuer"},
     {TextId::Close, L"Fermer"},
     {TextId::Help, L"Aide"},
     {TextId::WizardBack, L"Précédent"},
     {TextId::WizardNext, L"Suivant"},
     {TextId::WizardFinish, L"Terminer"},
     {TextId::WizardCancel, L"Annuler"},
     {TextId::Undo, L"&Annuler"},
     {TextId::Redo, L"&Rétablir"},
     {TextId::Cut, L"Co&uper"},
     {TextId::Copy, L"&Copier"},
     {TextId::Paste, L"C&oller"},
     {TextId::Delete, L"&Supprimer"},
     {TextId::SelectAll, L"Sélectionner &tout"},
     {TextId::CertificateShow, L"Afficher le certificat..."},
     {TextId::CertificateQuestion, L"Voulez-vous continuer\u00A0?"},
     {TextId::CertificateDontAsk, L"Ne plus me demander pour les connexions à cet ordinateur."},
     {TextId::SecureHeader, L"Identification de la connexion"},
     {TextId::UntrustedHeader, L"Certificat non approuvé"},
     {TextId::InvalidHeader, L"Certificat non valide"},
     {TextId::SecureStatus, L"La connexion est sécurisée."},
     {TextId::UntrustedStatus, L"L’ordinateur distant n’a pas pu être authentifié en raison de problèmes "
                               L"liés à son certificat de sécurité. Il peut être dangereux de continuer."},
     {TextId::InvalidStatus, L"L’ordinateur distant n’a pas pu être authentifié en raison de problèmes liés "
                             L"à son certificat de sécurité. Il n’est pas possible de continuer."},
     {TextId::FailureNone, L"Le certificat est valide et approuvé."},
     {TextId::FailureUntrusted, L"Le certificat, ou sa racine, n’est pas approuvé."},
     {TextId::FailureUsage, L"Le certificat est utilisé à une fin pour laquelle il n’est pas prévu."},
     {TextId::FailureName, L"Le nom figurant sur le certificat ne correspond pas au nom demandé."},
     {TextId::FailureNoRevocationList, L"Aucune liste de révocation n’a été recherchée ou trouvée."},
     {TextId::FailureExpired, L"Le certificat a expiré."},
     {TextId::FailureNotYetValid, L"Le certificat n’est pas encore valide."},
     {TextId::FailureTimeNesting,
      L"Les périodes de validité de la chaîne de certificats ne s’imbriquent pas correctement."},
     {TextId::FailureInvalid, L"Le certificat n’est pas valide\u00A0: sa chaîne, ses signatures ou son "
                              L"contenu présentent une erreur."},
     {TextId::FailureRevoked, L"Le certificat a été révoqué."},
     {TextId::FailureDistrusted,
      L"Le certificat est explicitement marqué comme non approuvé sur cet ordinateur."}});

} // namespace gesso
