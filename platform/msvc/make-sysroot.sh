#!/usr/bin/env bash
# Makes what the toolchain of cmake/msvc-x86_64.cmake links to, from the packages that are there:
#
#   make-sysroot.sh LLVM DIR
#
# DIR/config  how the C++ library's headers are configured for Windows
# DIR/lib     import libraries of the system's DLLs, and what a program starts with (runtime.lib)
#
# Where DIR was made of the same sources and packages already, nothing is done.
set -euo pipefail

LLVM=$1 DIR=$2
HERE=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
WINE_HEADERS=/usr/include/wine/wine
WINE_DLLS=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows
MINGW_LIBRARIES=/usr/x86_64-w64-mingw32/lib

# What all of it is made of.
stamp() {
    find "$HERE/make-sysroot.sh" "$HERE/runtime" "$HERE/include" -type f | LC_ALL=C sort | xargs -d '\n' sha256sum |
        cut -d ' ' -f 1
    "$LLVM/bin/clang++" --version | head -n 1
    dpkg-query -W libc++-19-dev libwine-dev wine64 mingw-w64-x86-64-dev 2>/dev/null || true
}
MADE_OF=$(stamp)
[[ ! -f $DIR/made || $(<"$DIR/made") != "$MADE_OF" ]] || exit 0
rm -rf "$DIR/lib" "$DIR/obj"
mkdir -p "$DIR/config" "$DIR/lib" "$DIR/obj"

# Debian configures the headers for Linux: threads by the platform's calls, nothing from Microsoft's runtime, and
# no function that only the compiled library would have.
sed -e 's|^/\* #undef _LIBCPP_HAS_THREAD_API_WIN32 \*/|#define _LIBCPP_HAS_THREAD_API_WIN32|' \
    -e 's|^/\* #undef _LIBCPP_NO_VCRUNTIME \*/|#define _LIBCPP_NO_VCRUNTIME|' \
    -e 's|^#endif // _LIBCPP___CONFIG_SITE|#define _LIBCPP_DISABLE_VISIBILITY_ANNOTATIONS\n#define _LIBCPP_DISABLE_EXTERN_TEMPLATE\n&|' \
    "$LLVM/include/c++/v1/__config_site" >"$DIR/obj/__config_site"
# Every source is compiled anew for another one.
cmp -s "$DIR/obj/__config_site" "$DIR/config/__config_site" || cp "$DIR/obj/__config_site" "$DIR/config/"

# import_library NAME DLL: of the names on standard input.
import_library() {
    { printf 'LIBRARY %s\nEXPORTS\n' "$2"; grep -E '^[A-Za-z_0-9]+$' | sort -u; } >"$DIR/lib/$1.def"
    "$LLVM/bin/llvm-dlltool" -m i386:x86-64 -d "$DIR/lib/$1.def" -l "$DIR/lib/$1.lib"
}

# names_of LIBRARY: what a library of mingw-w64's has of its DLL.
names_of() {
    "$LLVM/bin/llvm-nm" --defined-only "$MINGW_LIBRARIES/lib$1.a" 2>/dev/null |
        awk '($2 == "T" || $2 == "D" || $2 == "I") && !/_head_|_iname|__imp_/ { print $3; next }
             /__imp_/ { sub(/^__imp_/, "", $3); print $3 }' | sort -u
}

# What the platform's DLLs export stands in mingw-w64's libraries, beside functions of mingw-w64's own.
for name in kernel32 user32 gdi32 uxtheme usp10 comctl32 comdlg32 imm32 shlwapi advapi32 shell32 ole32 oleaut32 dwmapi \
    oleacc msimg32 gdiplus bcrypt crypt32 d2d1 dwrite iphlpapi netapi32 propsys rpcrt4 secur32 setupapi userenv version \
    windowscodecs winhttp wininet winmm ws2_32 wtsapi32; do
    [[ -f $MINGW_LIBRARIES/lib$name.a ]] || { echo "make-sysroot.sh: mingw-w64 has no lib$name.a" >&2 && exit 1; }
    { "$LLVM/bin/llvm-nm" --defined-only "$MINGW_LIBRARIES/lib$name.a" 2>/dev/null || true; } |
        awk '$2 == "T" { functions[$3] } sub(/^__imp_/, "", $3) { imported[$3] }
             END { for (name in functions) if (name in imported) print name }' | import_library "$name" "$name.dll"
done
# Of the C runtime what both Wine's and the one of Windows have: Wine's has names that belong to no version of it.
comm -12 <("$LLVM/bin/llvm-readobj" --coff-exports "$WINE_DLLS/ucrtbase.dll" | awk '/Name:/ { print $2 }' | sort -u) \
    <(names_of ucrtbase) | import_library ucrtbase ucrtbase.dll

# compile SOURCE OPTION...
compile() {
    local source=$1
    shift
    "$LLVM/bin/clang++" --target=x86_64-pc-windows-msvc -fms-compatibility-version=19.30 -fms-extensions -std=c++20 -O2 \
        -nostdinc -isystem "$DIR/config" -isystem "$LLVM/include/c++/v1" -isystem "$LLVM/lib/clang/19/include" \
        -isystem "$HERE/include" -isystem "$WINE_HEADERS/msvcrt" -isystem "$WINE_HEADERS/windows" \
        -D_DLL -D_MT -DUNICODE -D_UNICODE -DWINE_UNICODE_NATIVE -D_InterlockedCompareExchange128=no_compare_exchange_128 \
        -Werror=inconsistent-dllimport "$@" -c "$HERE/runtime/$source" -o "$DIR/obj/${source%.*}.obj"
}

for source in "$HERE"/runtime/*.cpp; do
    case ${source##*/} in
        # With records of types the compiler would not lay out the table that those records have.
        typeinfo.cpp) options=(-fno-rtti) ;;
        *) options=() ;;
    esac
    compile "${source##*/}" "${options[@]}"
done
"$LLVM/bin/clang" --target=x86_64-pc-windows-msvc -c "$HERE/runtime/chkstk.s" -o "$DIR/obj/chkstk.obj"
"$LLVM/bin/llvm-lib" "/out:$DIR/lib/runtime.lib" "$DIR"/obj/*.obj
printf '%s\n' "$MADE_OF" >"$DIR/made"
