#include <gesso/tree/TreeRecord.h>

namespace gesso {
namespace {

// A string made from plain text, which only a string can do.
class NewString : public OString<wchar_t>
{
public:
    explicit NewString(LPCWSTR psz) : OString(Copy(gesso::SpanOf(psz))) {}
};

} // namespace

OString<wchar_t> NameOf(LPCWSTR pszName)
{
    return NewString(pszName ? pszName : L"");
}

} // namespace gesso
