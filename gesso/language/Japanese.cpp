#include <gesso/language/LanguageTable.h>

namespace gesso {

constinit const Language JAPANESE = MakeLanguage(
    L"ja",
    {{TextId::Ok, L"OK"},
     {TextId::Cancel, L"キャンセル"},
     {TextId::Yes, L"はい"},
     {TextId::No, L"いいえ"},
     {TextId::Abort, L"中止"},
     {TextId::Retry, L"再試行"},
     {TextId::Ignore, L"無視"},
     {TextId::TryAgain, L"再実行"},
     {TextId::Continue, L"続行"},
     {TextId::Close, L"閉じる"},
     {TextId::Help, L"ヘルプ"},
     {TextId::WizardBack, L"戻る"},
     {TextId::WizardNext, L"次へ"},
     {TextId::WizardFinish, L"完了"},
     {TextId::WizardCancel, L"キャンセル"},
     {TextId::Undo, L"元に戻す(&U)"},
     {TextId::Redo, L"やり直し(&R)"},
     {TextId::Cut, L"切り取り(&T)"},
     {TextId::Copy, L"コピー(&C)"},
     {TextId::Paste, L"貼り付け(&P)"},
     {TextId::Delete, L"削除(&D)"},
     {TextId::SelectAll, L"すべて選択(&A)"},
     {TextId::CertificateShow, L"証明書の表示..."},
     {TextId::CertificateQuestion, L"続行しますか?"},
     {TextId::CertificateDontAsk, L"このコンピューターへの接続について今後確認しない"},
     {TextId::SecureHeader, L"接続の識別"},
     {TextId::UntrustedHeader, L"信頼されていない証明書"},
     {TextId::InvalidHeader, L"無効な証明書"},
     {TextId::SecureStatus, L"接続はセキュリティで保護されています。"},
     {TextId::UntrustedStatus,
      L"セキュリティ証明書に問題があるため、リモート "
      L"コンピューターを認証できませんでした。続行すると安全でない可能性があります。"},
     {TextId::InvalidStatus, L"セキュリティ証明書に問題があるため、リモート "
                             L"コンピューターを認証できませんでした。続行することはできません。"},
     {TextId::FailureNone, L"証明書は有効であり、信頼されています。"},
     {TextId::FailureUntrusted, L"証明書またはそのルートが信頼されていません。"},
     {TextId::FailureUsage, L"証明書が本来の目的以外に使用されています。"},
     {TextId::FailureName, L"証明書の名前が、要求された名前と一致しません。"},
     {TextId::FailureNoRevocationList, L"証明書失効リストが検索されなかったか、見つかりませんでした。"},
     {TextId::FailureExpired, L"証明書の有効期限が切れています。"},
     {TextId::FailureNotYetValid, L"証明書はまだ有効ではありません。"},
     {TextId::FailureTimeNesting, L"証明書チェーンの有効期間が正しく入れ子になっていません。"},
     {TextId::FailureInvalid, L"証明書が無効です。チェーン、署名、または内容に問題があります。"},
     {TextId::FailureRevoked, L"証明書は失効しています。"},
     {TextId::FailureDistrusted,
      L"この証明書は、このコンピューターで明示的に信頼しないように設定されています。"}});

} // namespace gesso
