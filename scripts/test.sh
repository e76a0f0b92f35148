#!/usr/bin/env bash
# Checks everything and closes with one line, `N passed, N failed`; fails if anything failed.
#
#   scripts/test.sh [STEP...]
#
# Steps, all without an argument: style (formatting, layers, house rules, names), headless (the tests over the
# simulated desktop, with sanitizers), attack (a minute of hostile operations on every class over the simulated
# desktop, other ones each day), threads (the tests of several threads, under ThreadSanitizer), windows (the same tests
# as a Windows program under Wine, the DLL's imports and exports, and a minute of hostile operations on it), package
# (the installed package, used by hosts outside the tree), msvc_hosts (the DLL for the C++ interface of Microsoft's
# compiler: its imports and exports, the layout of both interfaces, its package used by the same hosts), e2e (real mouse
# and keyboard input into the gallery). Not without being asked for: msvc (msvc_hosts, and the test program built for
# that interface, for which the C++ library's source is fetched: 165 MB). Logs stay in build/logs.
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

ALL_STEPS=(style headless attack threads windows package msvc_hosts e2e)
TEST_SECONDS=2400 # for one test program
LOGS=$BUILD/logs
PACKAGES="$BUILD/the packages" # a folder with a space in its name, as hosts may have
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
    check "gesso.dll needs system DLLs only" imports_of_system_only build/windows/bin/gesso.dll msvcrt
    with_display
    run_tests windows run_wine "$TEST_SECONDS" build/windows/bin/gesso_tests.exe
    check "no attack finds anything under Wine" attack_under_wine
    check "gesso.dll exports what gesso/gesso.symbols lists" scripts/interface.sh check
    check "a host of the commit before runs over the new gesso.dll" scripts/interface.sh before
}

attack_under_wine() {
    GESSO_WINE=$WINE python3 fuzz/attack/attack.py build/windows/bin/gesso_attack.exe 60
}

# imports_of_system_only DLL RUNTIME: the C runtime that the system has for its compiler.
imports_of_system_only() {
    local imports
    imports=$(x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/.*DLL Name: //p')
    printf 'imports:\n%s\n' "$imports"
    [[ -n $imports ]] && ! grep -viE \
        '^('"$2"'|kernel32|user32|gdi32|uxtheme|usp10|comctl32|ole32|oleaut32|shell32|shlwapi|advapi32|imm32|msimg32|crypt32|cryptui)\.dll$' \
        <<<"$imports"
}

step_package() {
    local place=$PACKAGES
    check "the headless package installs" install_package headless &&
        check "its headers stand alone" scripts/check-headers.py "$place/headless/prefix" headless &&
        check "examples/headless_test builds with it" build_example headless headless_test &&
        check "examples/headless_test passes" timeout 60 "$place/headless/headless_test/counter_test"
    check "the windows package installs" install_package windows || return
    check "its headers stand alone on Windows" scripts/check-headers.py "$place/windows/prefix" windows
    with_display
    windows_example windows hello hello Hello alt+F4
    windows_example windows subclass subclass "0 of 3 tasks done" alt+F4
    windows_example windows dialog_template form Form Return
    windows_example windows headless_test counter Counter alt+F4
    check_host windows
}

# What starts with wmain gets its words.
start_wide() {
    WINEPATH=$(windows_path "$PACKAGES/$1/prefix/bin") run_wine 60 "$PACKAGES/$1/host/gesso_wide.exe" "two words"
}

# check_host PRESET: tests/host built as CMake does without being told how, which optimizes nothing, and for release.
check_host() {
    local type
    for type in "" Release; do
        check "tests/host builds with the $1 package${type:+ for release}" \
            build_host "$1" tests/host -DCMAKE_BUILD_TYPE="$type" && run_host "$1"
    done
    check "a wide program starts with the $1 package" start_wide "$1"
}

# windows_example PRESET FOLDER PROGRAM TITLE KEY
windows_example() {
    local place=$PACKAGES/$1
    check "examples/$2 builds with the $1 package" build_example "$1" "$2" &&
        check "examples/$2 runs with the $1 package" \
            run_example "$place/$2/$3.exe" "$place/prefix/bin" "$4" "$5"
}

# run_host PRESET: adds the results of tests/host, which counts its checks itself.
run_host() {
    local place=$PACKAGES/$1 log=$LOGS/host-$1.log status good=0 bad=0
    WINEPATH=$(windows_path "$place/prefix/bin") run_wine 120 "$place/host/gesso_host.exe" 2>&1 | tr -d '\r' | tee "$log" |
        sed '$d; s/^/   /'
    status=${PIPESTATUS[0]}
    if [[ $(tail -n 1 "$log") =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        good=${BASH_REMATCH[1]} bad=${BASH_REMATCH[2]}
    fi
    ((status == 0 || bad > 0)) || bad=1
    ((good + bad > 0)) || bad=1
    passed=$((passed + good))
    failed=$((failed + bad))
    printf '   the host of the %s package (status %s): %d passed, %d failed\n' "$1" "$status" "$good" "$bad"
}

# The other C++ interface.
step_msvc_hosts() {
    check "its packages are installed" scripts/setup.sh msvc || return
    check_build windows-msvc || return
    check "its gesso.dll needs system DLLs only" imports_of_system_only build/windows-msvc/bin/gesso.dll ucrtbase
    check "it exports what gesso/gesso-msvc.symbols lists" scripts/interface.sh --msvc check
    check "the tables of virtual operations are as kept" scripts/check-vtables.py
    check "the windows-msvc package installs" install_package windows-msvc || return
    check "it is not installed over the other interface's" refuses_other_prefix
    check "it is for its processor alone" suits_its_processor
    check "its headers stand alone for Microsoft's interface" scripts/check-headers.py "$PACKAGES/windows-msvc/prefix" windows-msvc
    with_display
    check "a host of the commit before runs over it" scripts/interface.sh --msvc before
    windows_example windows-msvc hello hello Hello alt+F4
    windows_example windows-msvc subclass subclass "0 of 3 tasks done" alt+F4
    windows_example windows-msvc headless_test counter Counter alt+F4
    check_host windows-msvc
}

step_msvc() {
    step_msvc_hosts
    local sysroot=$BUILD/windows-msvc/msvc
    check "the C++ library for Microsoft's interface" platform/msvc/make-libcxx.sh /usr/lib/llvm-19 "$sysroot" "$BUILD/libcxx" &&
        check "windows-msvc test program" build windows-msvc gesso_tests -DGESSO_TESTS=ON -DGESSO_LIBCXX="$BUILD/libcxx/cxx.lib" ||
        return
    with_display
    run_tests msvc run_wine "$TEST_SECONDS" build/windows-msvc/bin/gesso_tests.exe
}

install_package() {
    local place=$PACKAGES/$1
    rm -rf "$place"
    build "$1" all -DGESSO_WERROR=ON && cmake --install "build/$1" --prefix "$place/prefix"
}

build_example() {
    build_host "$1" "examples/$2"
}

# build_host PRESET FOLDER [CMAKE-OPTION...]: a project of its own, which sees nothing but the installed package. What
# the first of them makes for the toolchain serves the others.
build_host() {
    local place=$PACKAGES/$1 folder=$2 options=()
    case $1 in
        windows) options=(--toolchain "$place/prefix/lib/cmake/gesso/mingw-w64-x86_64.cmake") ;;
        windows-msvc) options=(--toolchain "$place/prefix/lib/cmake/gesso/msvc-x86_64.cmake" -DGESSO_MSVC_SYSROOT="$place/sysroot") ;;
    esac
    shift 2
    cmake -S "$folder" -B "$place/${folder##*/}" -G Ninja -DCMAKE_PREFIX_PATH="$place/prefix" "${options[@]}" "$@" &&
        cmake --build "$place/${folder##*/}"
}

# A prefix that has the package of the other interface is left as it is.
refuses_other_prefix() {
    local place=$PACKAGES/other
    rm -rf "$place" && mkdir -p "$place/lib/cmake/gesso" "$place/bin" &&
        touch "$place/lib/cmake/gesso/gesso-gnu-targets.cmake" "$place/bin/gesso.dll" || return
    ! cmake --install build/windows-msvc --prefix "$place" && [[ $(find "$place" -type f | wc -l) == 2 && ! -s $place/bin/gesso.dll ]]
}

# suits PROCESSOR: whether the package does for a host of Microsoft's compiler for it.
suits() {
    local config=$PACKAGES/windows-msvc/prefix/lib/cmake/gesso/gesso-config-version.cmake script=$PACKAGES/suits.cmake
    cat >"$script" <<SCRIPT
cmake_minimum_required(VERSION 3.23)
set(WIN32 1)
set(MSVC 1)
set(CMAKE_SIZEOF_VOID_P 8)
set(CMAKE_CXX_COMPILER_ARCHITECTURE_ID $1)
include("$config")
if(PACKAGE_VERSION_UNSUITABLE)
  message(FATAL_ERROR "\${PACKAGE_VERSION}")
endif()
SCRIPT
    cmake -P "$script"
}
suits_its_processor() {
    suits x64 && ! suits ARM64
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
