#!/usr/bin/env bash
# Attacks every class of the library over the simulated desktop, with the sanitizers: any operations with hostile
# arguments, messages, input, and a platform that fails. First the runs of fuzz/attack/seeds.txt, which all failed
# once, then new ones, other ones each day. Prints a table; a run that fails is shrunk to its few operations.
#
#   scripts/attack.sh [SECONDS [CLASS...]]           a minute and all classes without an argument
#   scripts/attack.sh --wine [SECONDS [CLASS...]]    the same of gesso.dll under Wine, with real windows and handles
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

cd "$ROOT"
if [[ ${1:-} == --wine ]]; then
    shift
    scripts/setup.sh build run test
    say "building"
    build windows gesso_attack -DGESSO_WERROR=ON | tail -n 1
    start_display
    prepare_wine N
    GESSO_WINE=$WINE python3 fuzz/attack/attack.py "$BUILD/windows/bin/gesso_attack.exe" "${1:-60}" "${@:2}"
    exit
fi
scripts/setup.sh build
say "building"
build headless gesso_attack -DGESSO_WERROR=ON | tail -n 1
python3 fuzz/attack/attack.py "$BUILD/headless/bin/gesso_attack" "${1:-60}" "${@:2}"
