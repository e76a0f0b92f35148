#!/usr/bin/env bash
# Installs what Gesso's scripts need and this machine lacks, with apt-get, as root or through sudo.
#
#   scripts/setup.sh [GROUP...]
#
# Groups: build (compilers and sources), msvc (the same for the C++ interface of Microsoft's compiler), run (Wine,
# its fonts and a display), test (what the checks need beside those), lint. Without a group, all of them. Nothing is asked, and nothing happens where nothing is
# missing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

declare -A PACKAGES=(
    [build]="cmake ninja-build g++ g++-mingw-w64-x86-64-posix libwine-dev googletest python3"
    # What Wine loads of X at run time is only recommended by its package, like its own fonts.
    [run]="wine64 fonts-wine fonts-open-sans fonts-crosextra-carlito fonts-dejavu-core fonts-noto-core fonts-vlgothic fonts-symbola
           xvfb xdotool libxrender1 libxcursor1 libxcomposite1 libxfixes3 libxi6 libxinerama1 libxrandr2
           libxxf86vm1"
    [test]="clang-format python3 python3-pil unicode-data"
    [msvc]="clang-19 lld-19 llvm-19 libc++-19-dev libwine-dev mingw-w64-x86-64-dev wine64"
    [lint]="clang clang-tidy cppcheck libclang-rt-14-dev llvm python3"
)

# A tool that the machine already has some other way counts as its package.
declare -A COMMANDS=(
    [cmake]=cmake [ninja-build]=ninja [g++]=g++ [xvfb]=Xvfb [xdotool]=xdotool [clang-format]=clang-format
    [python3]=python3 [clang]=clang++ [clang-tidy]=clang-tidy [cppcheck]=cppcheck [llvm]=llvm-cov
    [g++-mingw-w64-x86-64-posix]=x86_64-w64-mingw32-g++-posix
)

# The packages of the groups that are neither installed nor there as commands.
missing_of() {
    local group package packages=() installed
    for group in "$@"; do
        [[ -n ${PACKAGES[$group]:-} ]] || die "setup.sh: there is no group '$group' (${!PACKAGES[*]})"
        packages+=(${PACKAGES[$group]}) # a word each
    done
    installed=$(dpkg-query -W -f '${Package}=${db:Status-Status}\n' "${packages[@]}" 2>/dev/null) || true
    for package in "${packages[@]}"; do
        command -v "${COMMANDS[$package]:-no command}" >/dev/null || grep -qx "$package=installed" <<<"$installed" ||
            echo "$package"
    done | sort -u
}

as_root() {
    if [[ $EUID -eq 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo -n true 2>/dev/null || say "sudo may ask for your password"
        sudo "$@"
    else
        die "setup.sh: packages are missing (${missing[*]}): run it as root, or install sudo"
    fi
}

install() {
    command -v apt-get >/dev/null || die "setup.sh: no apt-get here; install by other means: ${missing[*]}"
    say "installing ${missing[*]}"
    local log wait_for_others=(-o DPkg::Lock::Timeout=300)
    log=$(mktemp)
    if as_root apt-get -q update >"$log" 2>&1 &&
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get -q -y "${wait_for_others[@]}" --no-install-recommends install "${missing[@]}" >>"$log" 2>&1; then
        rm -f "$log"
        return
    fi
    tail -n 20 "$log" >&2
    die "setup.sh: apt-get failed; all that it said is in $log"
}

(($#)) || set -- build msvc run test lint
list=$(missing_of "$@") || exit 1
mapfile -t missing < <(printf '%s' "$list")
((${#missing[@]} == 0)) || install
