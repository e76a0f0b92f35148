#!/usr/bin/env bash
# Drives the gallery by random real input under Wine and prints what it holds of the system as time goes by.
#
#   scripts/soak.sh [SECONDS [SEED]]    ten minutes without an argument
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

cd "$ROOT"
scripts/setup.sh build run test
say "building"
build windows gallery
start_display
WINEDEBUG=err+all,fixme-all
prepare_wine N
GESSO_WINE=$WINE GESSO_GALLERY=$BUILD/windows/bin/gallery.exe python3 tests/e2e/soak.py "${1:-600}" "${@:2}"
