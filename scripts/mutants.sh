#!/usr/bin/env bash
# How much the tests notice: changes one condition, constant or call of gesso/ at a time, in a sample of places, and
# runs the headless tests of the release build on each. Not part of the other checks.
#
#   scripts/mutants.sh [COUNT [SEED]]    30 mutants and the seed 1 without arguments; a seed gives the same sample
#
# Prints each mutant that no test noticed, as a change of a line, and the share of those noticed. What it works on
# are copies of the tree as it is committed, in build/mutants. Headers that most sources include are left out.
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$ROOT" || exit 1
scripts/setup.sh build test || exit 1
use_ccache
exec scripts/mutants.py "${1:-30}" "${2:-1}"
