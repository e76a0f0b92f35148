#!/usr/bin/env bash
# Watches over what gesso.dll exports, as build/windows has it, or with --msvc as build/windows-msvc has it.
#
#   scripts/interface.sh [--msvc] check
#                        compares it with the list gesso/gesso.symbols (gesso/gesso-msvc.symbols), sees that nothing
#                        of a C++ library's or of a runtime's is among it, and that nothing is gone of
#                        gesso/hosts.symbols (gesso/hosts-msvc.symbols): what hosts can call or derive from, as of the
#                        last release, the same operations for both
#   scripts/interface.sh [--msvc] update
#                        writes that list anew; commit it with the change that it comes from
#   scripts/interface.sh [--msvc] before [COMMIT]
#                        builds examples/hello with the headers and the list of the commit before, or of another
#                        one, and runs it over the new DLL
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$ROOT" || exit 1

PRESET=windows LIST=gesso/gesso.symbols HOSTS=gesso/hosts.symbols
# How the names of C++ begin; and the C++ library's own in one: a class or a function of it, or in a signature.
OF_CXX='^_Z' OF_LIBRARY='St|S[absiod]' # a short form for each of its usual ones, which may be letters of ours
if [[ ${1-} == --msvc ]]; then
    PRESET=windows-msvc LIST=gesso/gesso-msvc.symbols HOSTS=gesso/hosts-msvc.symbols OF_CXX='^[?]' OF_LIBRARY='@std@@'
    shift
fi
DLL=$BUILD/$PRESET/bin/gesso.dll

exported() {
    [[ -f $DLL ]] || die "interface.sh: build the $PRESET preset first"
    x86_64-w64-mingw32-objdump -p "$DLL" |
        awk '/\[Ordinal\/Name Pointer\]/ { names = 1; next } names && !NF { exit } names { print $NF }' |
        LC_ALL=C sort
}

# Exported names that are not ours to export: of the C++ library, in full or in a signature, or of a runtime.
foreign() {
    exported | grep -vE "$OF_CXX" | grep -vxE 'CreateControl|InitControls|g_hDefaultFont'
    if [[ $PRESET == windows ]]; then
        exported | grep -E "$OF_LIBRARY" | x86_64-w64-mingw32-c++filt | grep 'std::'
    else
        exported | grep -E "$OF_LIBRARY"
    fi
}

# What the lists' operations are called, of either interface, without their parameters.
operations() {
    sed -E 's/\b(struct|class|enum|union) //g; :inner; s/<[^<>]*>//g; t inner; s/\(.*//; s/ //g' | LC_ALL=C sort -u
}
operations_of_gnu() {
    x86_64-w64-mingw32-c++filt -p <"$1" | sed '/^\(vtable\|typeinfo\) /d; s/ const$//' | operations
}
operations_of_microsoft() {
    # Each name comes as it was, plain, and with an empty line.
    { grep '^[?]' "$1" | /usr/lib/llvm-19/bin/llvm-undname --no-access-specifier --no-calling-convention \
        --no-return-type --no-member-type --no-variable-type | awk 'NR % 3 == 2' && grep -v '^[?]' "$1"; } | operations
}

check() {
    local gone foreign
    foreign=$(foreign)
    [[ -z $foreign ]] || { say "of a C++ library or a runtime, which hosts have their own of: $foreign" && return 1; }
    gone=$(LC_ALL=C comm -23 <(LC_ALL=C sort $HOSTS) <(exported))
    [[ -z $gone ]] || { say "hosts know these, and they are gone: ${gone//$'\n'/, }" && return 1; }
    if [[ $PRESET == windows-msvc ]]; then
        gone=$(LC_ALL=C comm -23 <(operations_of_gnu gesso/hosts.symbols) <(operations_of_microsoft $HOSTS))
        [[ -z $gone ]] || { say "hosts of the other compiler know these as well: ${gone//$'\n'/, }" && return 1; }
    fi
    diff -u --label "$LIST" "$LIST" --label "gesso.dll" <(exported) && return
    say "a symbol with - was exported and is no more, one with + is new: scripts/interface.sh update"
    return 1
}

# What the commit before exported, as an import library for the linker.
import_library() {
    # Tables and type descriptions are data: a host has its own of a class without a key function.
    { echo "LIBRARY gesso.dll" && echo "EXPORTS" && sed '/^_ZT[VIS]/s/$/ DATA/' "$1/$LIST"; } >"$1/gesso.def" || return
    if [[ $PRESET == windows ]]; then
        x86_64-w64-mingw32-dlltool --input-def "$1/gesso.def" --output-lib "$1/libgesso.dll.a"
    else
        /usr/lib/llvm-19/bin/llvm-dlltool -m i386:x86-64 -d "$1/gesso.def" -l "$1/libgesso.dll.a"
    fi
}

compile_host() {
    if [[ $PRESET == windows ]]; then
        x86_64-w64-mingw32-g++-posix -std=c++20 -DUNICODE -D_UNICODE -municode -static -mwindows \
            -I"$1" "$1"/examples/hello/*.cpp "$1/libgesso.dll.a" -o "$1/hello.exe"
        return
    fi
    cat >"$1/CMakeLists.txt" <<PROJECT
cmake_minimum_required(VERSION 3.23)
project(hello LANGUAGES CXX)
file(GLOB sources examples/hello/*.cpp)
add_executable(hello WIN32 \${sources})
target_compile_features(hello PRIVATE cxx_std_20)
target_include_directories(hello PRIVATE "$1")
target_link_libraries(hello PRIVATE "$1/libgesso.dll.a")
PROJECT
    cmake -S "$1" -B "$1" -G Ninja --toolchain "$ROOT/cmake/msvc-x86_64.cmake" \
        -DGESSO_MSVC_SYSROOT="$BUILD/$PRESET/msvc" && cmake --build "$1"
}

build_host_of_before() {
    local commit=$1 place=$2
    git archive "$commit" gesso platform examples/hello | tar -x -C "$place" || return
    # The door to the platform is that commit's as well.
    mkdir -p "$place/gesso/platform" && echo '#include "../../platform/platform.h"' >"$place/gesso/platform/platform.h" &&
        import_library "$place" && compile_host "$place"
}

# What the host takes from the library, as its import table has it.
imported() {
    x86_64-w64-mingw32-objdump -p "$1" |
        awk '/DLL Name: gesso.dll/ { ours = 1; next } !NF { ours = 0 } ours && NF == 3 && $2 ~ /^[0-9]+$/ { print $3 }' |
        LC_ALL=C sort
}

before() {
    local commit=${1:-HEAD~1} place=$BUILD/before/$PRESET gone
    # Only where the history that is here begins with this commit.
    if [[ -z ${1:-} ]] && ! git rev-parse -q --verify "$commit^{commit}" >/dev/null; then
        say "nothing is compared: there is no commit before this one here" && return
    fi
    git rev-parse -q --verify "$commit:$LIST" >/dev/null || die "interface.sh: $commit has no $LIST"
    rm -rf "$place" && mkdir -p "$place" && build_host_of_before "$commit" "$place" || return
    [[ -n $(imported "$place/hello.exe") ]] || die "interface.sh: the host of the commit before imports nothing"
    gone=$(LC_ALL=C comm -23 <(imported "$place/hello.exe") <(exported))
    [[ -z $gone ]] || { say "the host of the commit before wants what is gone: ${gone//$'\n'/, }" && return 1; }
    start_display
    prepare_wine N
    run_example "$place/hello.exe" "$BUILD/$PRESET/bin" Hello alt+F4
}

case ${1-} in
    check) check ;;
    update) exported >$LIST ;;
    before) before "${2-}" ;;
    *) die "interface.sh: check, update or before?" ;;
esac
