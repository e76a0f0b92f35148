#include <gallery/Options.h>
#include <gallery/Pages.h>

#include <shellapi.h>

#include <cstdio>
#include <iterator>

namespace gallery {
namespace {

int PageNamed(LPCWSTR pszName)
{
    for (int i = 0; i < PAGE_COUNT; i++) {
        if (lstrcmpiW(PAGES[i].pszName, pszName) == 0) {
            return i;
        }
    }
    return -1;
}

bool TakeScheme(Options& options, LPCWSTR pszName)
{
    constexpr LPCWSTR NAMES[] = {L"light", L"dark", L"contrast", L"system"};
    for (int i = 0; i < static_cast<int>(std::size(NAMES)); i++) {
        if (lstrcmpiW(NAMES[i], pszName) == 0) {
            options.scheme = static_cast<gesso::ColorScheme>(i);
            return true;
        }
    }
    return false;
}

bool Take(Options& options, const std::wstring& name, LPCWSTR pszValue)
{
    if (name == L"--page") {
        options.nPage = PageNamed(pszValue);
        return options.nPage >= 0;
    }
    if (name == L"--scale") {
        constexpr int LEAST = 96, MOST = 480;
        options.nDots = _wtoi(pszValue);
        return options.nDots >= LEAST && options.nDots <= MOST;
    }
    if (name == L"--direction") {
        options.fMirrored = lstrcmpiW(pszValue, L"rtl") == 0;
        return options.fMirrored || lstrcmpiW(pszValue, L"ltr") == 0;
    }
    if (name == L"--scheme") {
        return TakeScheme(options, pszValue);
    }
    std::wstring* pField = name == L"--shots"    ? &options.pictureDir
                           : name == L"--log"    ? &options.logFile
                           : name == L"--stats"  ? &options.statsFile
                           : name == L"--layout" ? &options.layoutFile
                                                 : nullptr;
    if (pField) {
        *pField = pszValue;
    }
    return pField != nullptr;
}

} // namespace

bool ReadOptions(Options& options)
{
    int nArguments = 0;
    LPWSTR* const arguments = CommandLineToArgvW(GetCommandLineW(), &nArguments);
    bool fUnderstood = nArguments % 2 == 1;
    for (int i = 1; fUnderstood && i < nArguments; i += 2) {
        fUnderstood = Take(options, arguments[i], arguments[i + 1]);
    }
    LocalFree(arguments);
    if (!fUnderstood) {
        std::fputs("usage: gallery [--page NAME] [--scale DOTS] [--direction ltr|rtl] "
                   "[--scheme light|dark|contrast|system]\n"
                   "               [--shots DIR] [--log FILE] [--layout FILE] [--stats FILE]\n",
                   stderr);
    }
    return fUnderstood;
}

} // namespace gallery
