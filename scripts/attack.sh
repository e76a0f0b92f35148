#!/usr/bin/env bash
# Attacks every class of the library over the simulated desktop, with the sanitizers: any operations with hostile
# arguments, messages, input, and a platform that fails. First the runs of fuzz/attack/seeds.txt, which all failed
# once, then new ones, other ones each day. Prints a table; a run that fails is shrunk to its few operations.
#
#   scripts/attack.sh [SECONDS [CLASS...]]    a minute and all classes without an argument
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

cd "$ROOT"
scripts/setup.sh build
say "building"
build headless gesso_attack -DGESSO_WERROR=ON | tail -n 1
python3 fuzz/attack/attack.py "$BUILD/headless/bin/gesso_attack" "${1:-60}" "${@:2}"
