#!/usr/bin/env bash
# Checks everything and closes with one line, `N passed, N failed`; fails if anything failed.
#
#   scripts/test.sh [STEP...]
#
# Steps, all without an argument: style (formatting, layers, house rules, names), headless (the tests over the
# simulated desktop, with sanitizers), attack (a minute of hostile operations on every class over the simulated
# desktop, other ones each day), threads (the tests of several threads, under ThreadSanitizer), windows (the same tests
# as a Windows program under Wine, the DLL's imports and exports, and a minute of hostile operations on it), package
# (the installed package, used by a host outside the tree), e2e (real mouse and keyboard input into the gallery). Logs
# stay in build/logs.
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

ALL_STEPS=(style headless attack threads windows package e2e)
TEST_SECONDS=900 # for one test program
LOGS=$BUILD/logs
passed=0
failed=0

# check NAME COMMAND...: one check; its output is shown if it fails.
check() {
    local name=$1 log
    shift
    log=$LOGS/${name//[^a-zA-Z0-9]/-}.log
    if "$@" >"$log" 2>&1; then
        passed=$((passed + 1))
        printf '   ok      %s\n' "$name"
        return
    fi
    failed=$((failed + 1))
    tail -n 60 "$log"
    printf '   FAILED  %s (all of it: %s)\n' "$name" "$log"
    return 1
}

# check_build PRESET: builds a preset with warnings as errors, counting along.
check_build() {
    local log=$LOGS/build-$1.log
    if build "$1" all -DGESSO_WERROR=ON 2>&1 | tee "$log" | build_progress; then
        passed=$((passed + 1))
        printf '   ok      %s build\n' "$1"
        return
    fi
    failed=$((failed + 1))
    grep -v '^\[[0-9]*/[0-9]*\]' "$log" | tail -n 60
    printf '   FAILED  %s build (all of it: %s)\n' "$1" "$log"
    return 1
}

# Of a build's output, a line for each tenth.
build_progress() {
    awk -F '[][/]' '/^\[[0-9]+\/[0-9]+\]/ && int(10 * $2 / $3) > tenths {
        tenths = int(10 * $2 / $3); print "   built " $2 " of " $3; fflush() }'
}

# --- Test programs

# Of a test program's output, what a person wants to see pass by: each suite's end, and all that a failure says.
progress() {
    awk '/^\[ RUN|^\[       OK|^Note: |^\r?$|^\[-+\] (Global|.* from [^(]*\r?$)|^\[=+\] Running/ { next }
         { sub(/\r$/, ""); print "   " $0; fflush() }'
}

# run_tests NAME COMMAND...: adds a test program's results. One that ends early or tests nothing has failed.
run_tests() {
    local name=$1 log status good bad
    shift
    log=$LOGS/$name.log
    "$@" 2>&1 | tee "$log" | progress
    status=${PIPESTATUS[0]}
    good=$(grep -c '^\[       OK \]' "$log")
    bad=$(grep -cE '^\[  FAILED  \].*\([0-9]+ ms\)' "$log")
    if ((status != 0 && bad == 0)); then
        bad=1
        printf '   FAILED  %s ended with status %s; last: %s\n' "$name" "$status" "$(last_test "$log")"
    elif ((good + bad == 0)); then
        bad=1
        printf '   FAILED  %s ran no test\n' "$name"
    fi
    passed=$((passed + good))
    failed=$((failed + bad))
    printf '   %s: %d passed, %d failed\n' "$name" "$good" "$bad"
}

# in_shards COMMAND...: runs a test program on all cores, each with its share of the tests, and shows one output behind
# the other.
in_shards() {
    local count pids=() status=0 i
    count=$(nproc)
    for ((i = 0; i < count; i++)); do
        GTEST_TOTAL_SHARDS=$count GTEST_SHARD_INDEX=$i "$@" >"$LOGS/shard-$i.log" 2>&1 &
        pids+=($!)
    done
    for ((i = 0; i < count; i++)); do
        wait "${pids[i]}" || status=$?
        cat "$LOGS/shard-$i.log"
    done
    return "$status"
}

last_test() {
    grep '^\[ RUN' "$1" | tail -n 1 | tr -d '\r'
}

with_display() {
    [[ -n $XVFB_PID ]] || start_display
    prepare_wine N
}

# --- Steps

step_style() {
    check "formatting" scripts/format.sh --check
    check "layers" scripts/check-includes.py
    check "one place for each thing" scripts/check-house.py
    check "every public name stands in the docs" scripts/check-names.py
    check "the simulated desktop's operations" scripts/check-platform.py
    check "the rules of both behaviours" scripts/check-quirks.py
    check "the tables of characters" scripts/make-text-tables.py --check
}

step_headless() {
    check_build headless || return
    run_tests headless in_shards timeout --kill-after=10 "$TEST_SECONDS" build/headless/tests/gesso_tests
    check "the code in the docs compiles" scripts/check-docs.py
}

step_attack() {
    check "no attack finds anything" scripts/attack.sh 60
}

# The library and one small program: the tests of several threads, which no other sanitizer can judge.
step_threads() {
    check "headless-tsan build" build headless-tsan gesso_tests -DGESSO_WERROR=ON || return
    run_tests threads timeout --kill-after=10 "$TEST_SECONDS" build/headless-tsan/tests/gesso_tests
}

step_windows() {
    check_build windows || return
    check "gesso.dll needs system DLLs only" imports_of_system_only build/windows/bin/gesso.dll
    with_display
    run_tests windows run_wine "$TEST_SECONDS" build/windows/bin/gesso_tests.exe
    check "no attack finds anything under Wine" attack_under_wine
    check "gesso.dll exports what gesso/gesso.symbols lists" scripts/interface.sh check
    check "a host of the commit before runs over the new gesso.dll" scripts/interface.sh before
}

attack_under_wine() {
    GESSO_WINE=$WINE python3 fuzz/attack/attack.py build/windows/bin/gesso_attack.exe 60
}

imports_of_system_only() {
    local imports
    imports=$(x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/.*DLL Name: //p')
    printf 'imports:\n%s\n' "$imports"
    [[ -n $imports ]] && ! grep -viE \
        '^(kernel32|user32|gdi32|uxtheme|usp10|comctl32|msvcrt|ole32|oleaut32|shell32|shlwapi|advapi32|imm32|msimg32|crypt32|cryptui)\.dll$' \
        <<<"$imports"
}

step_package() {
    local place=$BUILD/package
    check "the headless package installs" install_package headless &&
        check "its headers stand alone" scripts/check-headers.py "$place/headless/prefix" headless &&
        check "examples/headless_test builds with it" build_example headless headless_test &&
        check "examples/headless_test passes" timeout 60 "$place/headless/headless_test/counter_test"
    check "the windows package installs" install_package windows || return
    check "its headers stand alone on Windows" scripts/check-headers.py "$place/windows/prefix" windows
    with_display
    windows_example hello hello Hello alt+F4
    windows_example subclass subclass "0 of 3 tasks done" alt+F4
    windows_example dialog_template form Form Return
    windows_example headless_test counter Counter alt+F4
}

# windows_example FOLDER PROGRAM TITLE KEY
windows_example() {
    local place=$BUILD/package/windows
    check "examples/$1 builds with it" build_example windows "$1" &&
        check "examples/$1 runs" run_example "$place/$1/$2.exe" "$place/prefix/bin" "$3" "$4"
}

install_package() {
    local place=$BUILD/package/$1
    rm -rf "$place"
    build "$1" all -DGESSO_WERROR=ON && cmake --install "build/$1" --prefix "$place/prefix"
}

# build_example PRESET FOLDER: a project of its own, which sees nothing but the installed package.
build_example() {
    local place=$BUILD/package/$1 options=()
    [[ $1 == windows ]] && options=(--toolchain "$place/prefix/lib/cmake/gesso/mingw-w64-x86_64.cmake")
    cmake -S "examples/$2" -B "$place/$2" -G Ninja -DCMAKE_PREFIX_PATH="$place/prefix" "${options[@]}" &&
        cmake --build "$place/$2"
}

step_e2e() {
    check "gallery build" build windows gallery || return
    with_display
    GESSO_WINE=$WINE GESSO_GALLERY=build/windows/bin/gallery.exe \
        run_tests e2e timeout --kill-after=10 600 python3 tests/e2e/run.py
    check "the gallery saves a picture of every page" pictures_of_every_page
    check "the pages look as in docs/pictures" scripts/compare-pictures.py docs/pictures "$BUILD/shots"
}

# Each picture has to show something: an empty window makes a much smaller file, and that of a dialog or of a part of
# a page is smaller than a whole page's.
pictures_of_every_page() {
    local shots=$BUILD/shots parts=('(' -name 'dialog-*' -o -name 'list-*' -o -name 'combobox*' ')')
    rm -rf "$shots"
    scripts/gallery.sh --shots "$shots" || return
    [[ -n $(find "$shots" -name '*.png' -size +12k) ]] &&
        [[ -z $(find "$shots" -name '*.png' ! "${parts[@]}" -size -12k) ]] &&
        [[ -z $(find "$shots" -name '*.png' "${parts[@]}" -size -4k) ]]
}

# --- The run

cd "$ROOT" || exit 1
steps=("${@:-${ALL_STEPS[@]}}")
for step in "${steps[@]}"; do
    declare -F "step_$step" >/dev/null || die "test.sh: there is no step '$step' (${ALL_STEPS[*]})"
done
scripts/setup.sh build run test || exit 1
mkdir -p "$LOGS"
for step in "${steps[@]}"; do
    say "$step ($((SECONDS / 60)) min $((SECONDS % 60)) s so far)"
    "step_$step"
done
printf '%s passed, %s failed\n' "$passed" "$failed"
((failed == 0 && passed > 0))
