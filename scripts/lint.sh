#!/usr/bin/env bash
# Second opinions on the code: the layers' include direction, clang's warnings for both platforms (g++ gives its
# own at every build), and clang-tidy and cppcheck over the sources of the headless build.
#
#   scripts/lint.sh [PATH-PART...]    only the sources whose paths contain one of these
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$ROOT" || exit 1

sources() {
    python3 - "$@" <<'LIST'
import json, os, sys
wanted = sys.argv[1:]
for entry in json.load(open("build/headless/compile_commands.json")):
    path = os.path.relpath(entry["file"])
    if not path.startswith("..") and (not wanted or any(part in path for part in wanted)):
        print(path)
LIST
}

scripts/setup.sh build lint || exit 1
for preset in headless windows; do
    cmake --preset "$preset" >/dev/null || exit 1
done
# clang cannot read what g++ has precompiled.
mkdir -p build/lint
sed -E 's/ -Winvalid-pch//g; s/ -include [^ ]*cmake_pch\.hxx//g' build/headless/compile_commands.json \
    >build/lint/compile_commands.json
status=0
say "layers"
scripts/check-includes.py || status=1
say "clang"
for preset in headless windows; do
    scripts/clang-check.py "$preset" "$@" || status=1
done
say "clang-tidy"
sources "$@" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/lint --quiet 2>/dev/null || status=1
say "cppcheck"
sources "$@" | sed 's/^/--file-filter=/' | xargs cppcheck --project=build/lint/compile_commands.json -q \
    --library=googletest "-DTYPED_TEST(a, b)=void a##_##b()" --enable=warning,performance,portability \
    --inline-suppr --suppressions-list=scripts/cppcheck.suppress --error-exitcode=1 -j "$(nproc)" || status=1
((status == 0)) && say "nothing found"
exit $status
