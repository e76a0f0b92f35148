#!/usr/bin/env bash
# Watches over what gesso.dll exports, as build/windows has it.
#
#   scripts/interface.sh check     compares it with the list gesso/gesso.symbols
#   scripts/interface.sh update    writes that list anew; commit it with the change that it comes from
#   scripts/interface.sh before    builds examples/hello with the headers and the list of the commit before, and
#                                  runs it over the new DLL, where nothing that was exported has gone
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$ROOT" || exit 1

LIST=gesso/gesso.symbols
DLL=$BUILD/windows/bin/gesso.dll

exported() {
    [[ -f $DLL ]] || die "interface.sh: build the windows preset first"
    x86_64-w64-mingw32-objdump -p "$DLL" |
        awk '/\[Ordinal\/Name Pointer\]/ { names = 1; next } names && !NF { exit } names { print $NF }' |
        LC_ALL=C sort
}

check() {
    diff -u --label "$LIST" "$LIST" --label "gesso.dll" <(exported) && return
    say "a symbol with - was exported and is no more, one with + is new: scripts/interface.sh update"
    return 1
}

# What the commit before exported, as an import library for the linker.
import_library() {
    # Tables and type descriptions are data: a host has its own of a class without a key function.
    { echo "LIBRARY gesso.dll" && echo "EXPORTS" && sed '/^_ZT[VIS]/s/$/ DATA/' "$1/$LIST"; } >"$1/gesso.def" &&
        x86_64-w64-mingw32-dlltool --input-def "$1/gesso.def" --output-lib "$1/libgesso.dll.a"
}

build_host_of_before() {
    local place=$1
    git archive HEAD~1 gesso platform examples/hello | tar -x -C "$place" && import_library "$place" &&
        x86_64-w64-mingw32-g++-posix -std=c++20 -DUNICODE -D_UNICODE -municode -static -mwindows \
            -I"$place" -I"$BUILD/windows/include" "$place"/examples/hello/*.cpp \
            "$place/libgesso.dll.a" -o "$place/hello.exe"
}

before() {
    git rev-parse -q --verify HEAD~1:$LIST >/dev/null || { say "the commit before is not here to compare with" && return; }
    local gone
    gone=$(LC_ALL=C comm -23 <(git show HEAD~1:$LIST) <(exported))
    [[ -z $gone ]] || { say "the interface changed, nothing to run; gone: ${gone//$'\n'/, }" && return; }
    rm -rf "$BUILD/before" && mkdir -p "$BUILD/before" && build_host_of_before "$BUILD/before" || return
    start_display
    prepare_wine N
    run_example "$BUILD/before/hello.exe" "$BUILD/windows/bin" Hello alt+F4
}

case ${1-} in
    check) check ;;
    update) exported >$LIST ;;
    before) before ;;
    *) die "interface.sh: check, update or before?" ;;
esac
