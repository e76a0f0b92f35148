#!/usr/bin/env bash
# Builds the benchmark (Release) and runs it under Wine on a display of its own: Gesso's controls beside the
# platform's, in one table.
#
#   scripts/bench.sh [FAMILY...]     buttons, ...; all without an argument
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

"$ROOT/scripts/setup.sh" build run
say "building"
build windows bench
start_display
prepare_wine N
run_wine 1800 "$BUILD/windows/bin/bench.exe" "$@" | tr -d '\r'
