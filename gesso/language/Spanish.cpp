#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language SPANISH = MakeLanguage(
    L"es", {{TextId::Ok, L"Aceptar"},
            {TextId::Cancel, L"Cancelar"},
            {TextId::Yes, L"Sí"},
            {TextId::No, L"No"},
            {TextId::Abort, L"Anular"},
            {TextId::Retry, L"Reintentar"},
            {TextId::Ignore, L"Omitir"},
            {TextId::TryAgain, L"Intentar de nuevo"},
            {TextId::Continue, L"Continuar"},
            {TextId::Close, L"Cerrar"},
            {TextId::Help, L"Ayuda"},
            {TextId::WizardBack, L"Atrás"},
            {TextId::WizardNext, L"Siguiente"},
            {TextId::WizardFinish, L"Finalizar"},
            {TextId::WizardCancel, L"Cancelar"},
            {TextId::Undo, L"&Deshacer"},
            {TextId::Redo, L"&Rehacer"},
            {TextId::Cut, L"Cor&tar"},
            {TextId::Copy, L"&Copiar"},
            {TextId::Paste, L"&Pegar"},
            {TextId::Delete, L"&Eliminar"},
            {TextId::SelectAll, L"&Seleccionar todo"},
            {TextId::CertificateShow, L"Ver certificado..."},
            {TextId::CertificateQuestion, L"¿Desea continuar?"},
            {TextId::CertificateDontAsk, L"No volver a preguntarme sobre conexiones a este equipo."},
            {TextId::SecureHeader, L"Identificación de la conexión"},
            {TextId::UntrustedHeader, L"Certificado que no es de confianza"},
            {TextId::InvalidHeader, L"Certificado no válido"},
            {TextId::SecureStatus, L"La conexión es segura."},
            {TextId::UntrustedStatus, L"No se pudo autenticar el equipo remoto debido a problemas con su "
                                      L"certificado de seguridad. Es posible que no sea seguro continuar."},
            {TextId::InvalidStatus, L"No se pudo autenticar el equipo remoto debido a problemas con su "
                                    L"certificado de seguridad. No es posible continuar."},
            {TextId::FailureNone, L"El certificado es válido y de confianza."},
            {TextId::FailureUntrusted, L"El certificado, o su raíz, no es de confianza."},
            {TextId::FailureUsage, L"El certificado se usa para un fin para el que no está previsto."},
            {TextId::FailureName, L"El nombre del certificado no coincide con el solicitado."},
            {TextId::FailureNoRevocationList, L"No se buscó o no se encontró ninguna lista de revocación."},
            {TextId::FailureExpired, L"El certificado ha expirado."},
            {TextId::FailureNotYetValid, L"El certificado todavía no es válido."},
            {TextId::FailureTimeNesting,
             L"Los períodos de validez de la cadena de certificados no se anidan correctamente."},
            {TextId::FailureInvalid,
             L"El certificado no es válido: hay un error en su cadena, en sus firmas o en su contenido."},
            {TextId::FailureRevoked, L"El certificado se ha revocado."},
            {TextId::FailureDistrusted,
             L"En este equipo se ha indicado explícitamente que el certificado no es de confianza."}});

} // namespace gesso
