#!/usr/bin/env bash
# Watches over what gesso.dll exports, as build/windows has it, or with --msvc as build/windows-msvc has it.
#
#   scripts/interface.sh [--msvc] check
#                        compares it with the list gesso/gesso.symbols (gesso/gesso-msvc.symbols), sees that nothing
#                        of a C++ library's is among it, and that nothing is gone of gesso/hosts.symbols (gesso/hosts-msvc.symbols): what hosts
#                        can call or derive from, as of the last release
#   scripts/interface.sh [--msvc] update
#                        writes that list anew; commit it with the change that it comes from
#   scripts/interface.sh [--msvc] before [COMMIT]
#                        builds examples/hello with the headers and the list of the commit before, or of another
#                        one, and runs it over the new DLL
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$ROOT" || exit 1

PRESET=windows LIST=gesso/gesso.symbols HOSTS=gesso/hosts.symbols
# Names of the C++ library's own in an exported name: of a class of ours alone, or in a signature.
OF_LIBRARY='^_ZN?K?St|St[0-9]|NSt'
if [[ ${1-} == --msvc ]]; then
    PRESET=windows-msvc LIST=gesso/gesso-msvc.symbols HOSTS=gesso/hosts-msvc.symbols OF_LIBRARY='@std@@'
    shift
fi
DLL=$BUILD/$PRESET/bin/gesso.dll

exported() {
    [[ -f $DLL ]] || die "interface.sh: build the $PRESET preset first"
    x86_64-w64-mingw32-objdump -p "$DLL" |
        awk '/\[Ordinal\/Name Pointer\]/ { names = 1; next } names && !NF { exit } names { print $NF }' |
        LC_ALL=C sort
}

check() {
    local gone foreign
    foreign=$(exported | grep -E "$OF_LIBRARY") && say "of the C++ library, which hosts may have another of: $foreign" && return 1
    gone=$(LC_ALL=C comm -23 <(LC_ALL=C sort $HOSTS) <(exported))
    [[ -z $gone ]] || { say "hosts know these, and they are gone: ${gone//$'\n'/, }" && return 1; }
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
            -I"$1" -I"$BUILD/windows/include" "$1"/examples/hello/*.cpp "$1/libgesso.dll.a" -o "$1/hello.exe"
        return
    fi
    cat >"$1/CMakeLists.txt" <<PROJECT
cmake_minimum_required(VERSION 3.23)
project(hello LANGUAGES CXX)
file(GLOB sources examples/hello/*.cpp)
add_executable(hello WIN32 \${sources})
target_compile_features(hello PRIVATE cxx_std_20)
target_include_directories(hello PRIVATE "$1" "$BUILD/$PRESET/include")
target_link_libraries(hello PRIVATE "$1/libgesso.dll.a")
PROJECT
    cmake -S "$1" -B "$1" -G Ninja --toolchain "$ROOT/cmake/msvc-x86_64.cmake" && cmake --build "$1"
}

build_host_of_before() {
    local commit=$1 place=$2
    git archive "$commit" gesso platform examples/hello | tar -x -C "$place" && import_library "$place" &&
        compile_host "$place"
}

# What the host takes from the library, as its import table has it.
imported() {
    x86_64-w64-mingw32-objdump -p "$1" |
        awk '/DLL Name: gesso.dll/ { ours = 1; next } !NF { ours = 0 } ours && NF == 3 && $2 ~ /^[0-9]+$/ { print $3 }' |
        LC_ALL=C sort
}

before() {
    local commit=${1:-HEAD~1} place=$BUILD/before/$PRESET gone
    git rev-parse -q --verify "$commit:$LIST" >/dev/null || { say "the commit before is not here to compare with" && return; }
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
