// The kinds of characters. The platform's runtime asks its own Unicode tables even in the default locale.
#include <platform/platform.h>

#include <clocale>
#include <cwctype>

namespace {

locale_t Unicode()
{
    static const locale_t UNICODE_LOCALE = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return UNICODE_LOCALE;
}

} // namespace

int gesso_iswalnum(wint_t c)
{
    return iswalnum_l(c, Unicode());
}

int gesso_iswalpha(wint_t c)
{
    return iswalpha_l(c, Unicode());
}

int gesso_iswdigit(wint_t c)
{
    return iswdigit_l(c, Unicode());
}

int gesso_iswspace(wint_t c)
{
    // The non-breaking space counts on the platform, though not in the tables of Linux.
    return c == 0xA0 || iswspace_l(c, Unicode());
}
