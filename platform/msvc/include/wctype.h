// Classes of wide characters by locale, which Wine's header does not declare.
#include_next <wctype.h>
#ifndef GESSO_WCTYPE
#define GESSO_WCTYPE
#ifdef __cplusplus
extern "C" {
#endif
int __cdecl _iswlower_l(wint_t, _locale_t);
int __cdecl _iswupper_l(wint_t, _locale_t);
int __cdecl _iswspace_l(wint_t, _locale_t);
int __cdecl _iswprint_l(wint_t, _locale_t);
int __cdecl _iswalpha_l(wint_t, _locale_t);
int __cdecl _iswpunct_l(wint_t, _locale_t);
int __cdecl _iswalnum_l(wint_t, _locale_t);
int __cdecl _iswdigit_l(wint_t, _locale_t);
wint_t __cdecl _towupper_l(wint_t, _locale_t);
wint_t __cdecl _towlower_l(wint_t, _locale_t);
int __cdecl _iswcntrl_l(wint_t, _locale_t);
int __cdecl _iswxdigit_l(wint_t, _locale_t);
const unsigned short* __cdecl __pctype_func(void);
int __cdecl ___mb_cur_max_l_func(_locale_t);
#ifdef __cplusplus
}
#endif
#endif
