#!/usr/bin/env bash
# What no test runs: prints the lines of gesso/ that the headless tests never reach, and the conditions that they
# never find true or never find false. Those that are known stand in scripts/coverage.txt, each under its reason;
# any other fails, as does an entry there that the tests reach after all.
#
#   scripts/coverage.sh [PATH-PART...]    only what stands in sources whose paths contain one of these
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$ROOT" || exit 1
scripts/setup.sh build lint || exit 1
place=$BUILD/headless-coverage
mkdir -p "$BUILD"
say "build"
build headless-coverage gesso_tests -DGESSO_WERROR=OFF >"$BUILD/coverage.log" 2>&1 ||
    die "the build failed: $BUILD/coverage.log"
say "tests"
# %c counts in the file itself, so that processes count whose end is sudden, those of the fault sweep for one; with %m
# a process that begins anew goes on in the same file.
rm -f "$place"/tests*.profraw
LLVM_PROFILE_FILE=$place/tests-%m%c.profraw "$place/tests/gesso_tests" --gtest_brief=1 ||
    die "the tests have to pass first"
llvm-profdata merge -sparse "$place"/tests-*.profraw -o "$place/tests.profdata" || exit 1
llvm-cov export "$place/tests/gesso_tests" -instr-profile="$place/tests.profdata" "$ROOT/gesso" \
    >"$place/coverage.json" || exit 1
scripts/coverage.py "$place/coverage.json" "$@"
