#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language PORTUGUESE = MakeLanguage(
    L"pt", {{TextId::Ok, L"OK"},
            {TextId::Cancel, L"Cancelar"},
            {TextId::Yes, L"Sim"},
            {TextId::No, L"Não"},
            {TextId::Abort, L"Anular"},
            {TextId::Retry, L"Repetir"},
            {TextId::Ignore, L"Ignorar"},
            {TextId::TryAgain, L"Tentar novamente"},
            {TextId::Continue, L"Continuar"},
            {TextId::Close, L"Fechar"},
            {TextId::Help, L"Ajuda"},
            {TextId::WizardBack, L"Voltar"},
            {TextId::WizardNext, L"Avançar"},
            {TextId::WizardFinish, L"Concluir"},
            {TextId::WizardCancel, L"Cancelar"},
            {TextId::Undo, L"&Desfazer"},
            {TextId::Redo, L"&Refazer"},
            {TextId::Cut, L"Recor&tar"},
            {TextId::Copy, L"&Copiar"},
            {TextId::Paste, L"Co&lar"},
            {TextId::Delete, L"&Excluir"},
            {TextId::SelectAll, L"&Selecionar tudo"},
            {TextId::CertificateShow, L"Exibir certificado..."},
            {TextId::CertificateQuestion, L"Deseja continuar?"},
            {TextId::CertificateDontAsk, L"Não perguntar novamente sobre conexões com este computador."},
            {TextId::SecureHeader, L"Identificação da conexão"},
            {TextId::UntrustedHeader, L"Certificado não confiável"},
            {TextId::InvalidHeader, L"Certificado inválido"},
            {TextId::SecureStatus, L"A conexão é segura."},
            {TextId::UntrustedStatus, L"Não foi possível autenticar o computador remoto devido a problemas "
                                      L"com o certificado de segurança. Talvez não seja seguro continuar."},
            {TextId::InvalidStatus, L"Não foi possível autenticar o computador remoto devido a problemas com "
                                    L"o certificado de segurança. Não é possível continuar."},
            {TextId::FailureNone, L"O certificado é válido e confiável."},
            {TextId::FailureUntrusted, L"O certificado, ou a raiz dele, não é confiável."},
            {TextId::FailureUsage, L"O certificado é usado para uma finalidade não prevista."},
            {TextId::FailureName, L"O nome no certificado não corresponde ao solicitado."},
            {TextId::FailureNoRevocationList, L"Nenhuma lista de revogação foi procurada ou encontrada."},
            {TextId::FailureExpired, L"O certificado expirou."},
            {TextId::FailureNotYetValid, L"O certificado ainda não é válido."},
            {TextId::FailureTimeNesting,
             L"Os períodos de validade da cadeia de certificados não estão aninhados corretamente."},
            {TextId::FailureInvalid,
             L"O certificado é inválido: há um erro na cadeia, nas assinaturas ou no conteúdo dele."},
            {TextId::FailureRevoked, L"O certificado foi revogado."},
            {TextId::FailureDistrusted, L"O certificado é explicitamente não confiável neste computador."}});

} // namespace gesso
