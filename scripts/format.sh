#!/usr/bin/env bash
# Formats every source by .clang-format; with --check changes nothing and fails where a source would change.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$ROOT"

sources() {
    find . -path ./build -prune -o '(' -name '*.h' -o -name '*.inl' -o -name '*.cpp' ')' -print | sort
}

if [[ ${1:-} == --check ]]; then
    sources | xargs clang-format --dry-run --Werror || die "badly formatted; to mend it: scripts/format.sh"
else
    sources | xargs clang-format -i
fi
