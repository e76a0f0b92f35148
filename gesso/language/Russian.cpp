#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language RUSSIAN = MakeLanguage(
    L"ru",
    {{TextId::Ok, L"ОК"},
     {TextId::Cancel, L"Отмена"},
     {TextId::Yes, L"Да"},
     {TextId::No, L"Нет"},
     {TextId::Abort, L"Прервать"},
     {TextId::Retry, L"Повторить"},
     {TextId::Ignore, L"Пропустить"},
     {TextId::TryAgain, L"Повторить попытку"},
     {TextId::Continue, L"Продолжить"},
     {TextId::Close, L"Закрыть"},
     {TextId::Help, L"Справка"},
     {TextId::WizardBack, L"Назад"},
     {TextId::WizardNext, L"Далее"},
     {TextId::WizardFinish, L"Готово"},
     {TextId::WizardCancel, L"Отмена"},
     {TextId::Undo, L"&Отменить"},
     {TextId::Redo, L"Ве&рнуть"},
     {TextId::Cut, L"&Вырезать"},
     {TextId::Copy, L"&Копировать"},
     {TextId::Paste, L"Вст&авить"},
     {TextId::Delete, L"&Удалить"},
     {TextId::SelectAll, L"Выделить вс&е"},
     {TextId::CertificateShow, L"Просмотреть сертификат..."},
     {TextId::CertificateQuestion, L"Вы хотите продолжить?"},
     {TextId::CertificateDontAsk, L"Больше не спрашивать о подключениях к этому компьютеру."},
     {TextId::SecureHeader, L"Идентификация подключения"},
     {TextId::UntrustedHeader, L"Недоверенный сертификат"},
     {TextId::InvalidHeader, L"Недействительный сертификат"},
     {TextId::SecureStatus, L"Подключение защищено."},
     {TextId::UntrustedStatus, L"Не удалось проверить подлинность удаленного компьютера из-за проблем с "
                               L"сертификатом безопасности. Продолжать может быть небезопасно."},
     {TextId::InvalidStatus, L"Не удалось проверить подлинность удаленного компьютера из-за проблем с "
                             L"сертификатом безопасности. Продолжение невозможно."},
     {TextId::FailureNone, L"Сертификат действителен и является доверенным."},
     {TextId::FailureUntrusted, L"Сертификат или его корневой сертификат не является доверенным."},
     {TextId::FailureUsage, L"Сертификат используется не по назначению."},
     {TextId::FailureName, L"Имя в сертификате не совпадает с запрошенным."},
     {TextId::FailureNoRevocationList, L"Список отзыва не найден, или его поиск не выполнялся."},
     {TextId::FailureExpired, L"Срок действия сертификата истек."},
     {TextId::FailureNotYetValid, L"Срок действия сертификата еще не наступил."},
     {TextId::FailureTimeNesting, L"Сроки действия в цепочке сертификатов вложены неправильно."},
     {TextId::FailureInvalid, L"Сертификат недействителен: ошибка в его цепочке, подписях или содержимом."},
     {TextId::FailureRevoked, L"Сертификат отозван."},
     {TextId::FailureDistrusted, L"Сертификат явно отмечен как недоверенный на этом компьютере."}});

} // namespace gesso
