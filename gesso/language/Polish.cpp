#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language POLISH = MakeLanguage(
    L"pl",
    {{TextId::Ok, L"OK"},
     {TextId::Cancel, L"Anuluj"},
     {TextId::Yes, L"Tak"},
     {TextId::No, L"Nie"},
     {TextId::Abort, L"Przerwij"},
     {TextId::Retry, L"Ponów próbę"},
     {TextId::Ignore, L"Ignoruj"},
     {TextId::TryAgain, L"Spróbuj ponownie"},
     {TextId::Continue, L"Kontynuuj"},
     {TextId::Close, L"Zamknij"},
     {TextId::Help, L"Pomoc"},
     {TextId::WizardBack, L"Wstecz"},
     {TextId::WizardNext, L"Dalej"},
     {TextId::WizardFinish, L"Zakończ"},
     {TextId::WizardCancel, L"Anuluj"},
     {TextId::Undo, L"&Cofnij"},
     {TextId::Redo, L"&Ponów"},
     {TextId::Cut, L"Wy&tnij"},
     {TextId::Copy, L"&Kopiuj"},
     {TextId::Paste, L"&Wklej"},
     {TextId::Delete, L"&Usuń"},
     {TextId::SelectAll, L"&Zaznacz wszystko"},
     {TextId::CertificateShow, L"Wyświetl certyfikat..."},
     {TextId::CertificateQuestion, L"Czy chcesz kontynuować?"},
     {TextId::CertificateDontAsk, L"Nie pytaj ponownie o połączenia z tym komputerem."},
     {TextId::SecureHeader, L"Identyfikacja połączenia"},
     {TextId::UntrustedHeader, L"Niezaufany certyfikat"},
     {TextId::InvalidHeader, L"Nieprawidłowy certyfikat"},
     {TextId::SecureStatus, L"Połączenie jest bezpieczne."},
     {TextId::UntrustedStatus, L"Nie można uwierzytelnić komputera zdalnego z powodu problemów z jego "
                               L"certyfikatem zabezpieczeń. Kontynuowanie może nie być bezpieczne."},
     {TextId::InvalidStatus, L"Nie można uwierzytelnić komputera zdalnego z powodu problemów z jego "
                             L"certyfikatem zabezpieczeń. Kontynuowanie nie jest możliwe."},
     {TextId::FailureNone, L"Certyfikat jest prawidłowy i zaufany."},
     {TextId::FailureUntrusted, L"Certyfikat lub jego certyfikat główny nie jest zaufany."},
     {TextId::FailureUsage, L"Certyfikat jest używany niezgodnie z przeznaczeniem."},
     {TextId::FailureName, L"Nazwa w certyfikacie nie odpowiada żądanej nazwie."},
     {TextId::FailureNoRevocationList, L"Nie szukano listy odwołania certyfikatów lub jej nie znaleziono."},
     {TextId::FailureExpired, L"Certyfikat wygasł."},
     {TextId::FailureNotYetValid, L"Certyfikat nie jest jeszcze ważny."},
     {TextId::FailureTimeNesting, L"Okresy ważności w łańcuchu certyfikatów są nieprawidłowo zagnieżdżone."},
     {TextId::FailureInvalid,
      L"Certyfikat jest nieprawidłowy: błąd dotyczy jego łańcucha, podpisów lub zawartości."},
     {TextId::FailureRevoked, L"Certyfikat został odwołany."},
     {TextId::FailureDistrusted, L"Certyfikat jest jawnie niezaufany na tym komputerze."}});

} // namespace gesso
