#!/usr/bin/env python3
"""Lets clang read what g++ builds, with the same warnings as errors: natively for the simulated desktop, and
for 64-bit Windows.

    scripts/clang-check.py headless|windows [PATH-PART...]

Reads the compile commands of build/PRESET, which has to be configured. Prints what clang says and fails if it
says anything.
"""
import json
import os
import pathlib
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

ROOT = pathlib.Path(__file__).resolve().parent.parent
WINDOWS = ["--target=x86_64-w64-mingw32"]


def mingw_headers():
    """Clang does not look for the runtime's headers in the folder that Debian's g++ has them in."""
    compiler = "x86_64-w64-mingw32-g++-posix"
    folder = pathlib.Path(subprocess.check_output([compiler, "-print-libgcc-file-name"], text=True)).parent
    include = folder / "include" / "c++"
    return [f"-isystem{include}", f"-isystem{include / 'x86_64-w64-mingw32'}"]


def commands(preset, wanted):
    extra = WINDOWS + mingw_headers() if preset == "windows" else []
    for entry in json.loads((ROOT / "build" / preset / "compile_commands.json").read_text()):
        source = os.path.relpath(entry["file"], ROOT)
        if source.startswith("..") or not source.endswith(".cpp"):
            continue
        if wanted and not any(part in source for part in wanted):
            continue
        words = shlex.split(entry["command"])
        while not words[0].endswith("++") and not words[0].endswith("++-posix"):
            words.pop(0)  # a launcher in front of the compiler
        # What g++ has precompiled clang cannot read.
        words = [word for i, word in enumerate(words)
                 if not (word == "-Winvalid-pch" or "cmake_pch" in word or "cmake_pch" in " ".join(words[i:i + 2])
                         and word == "-include")]
        place = words.index("-o")
        kept = words[1:place] + words[place + 2:]
        yield entry["directory"], ["clang++", *extra, "-fsyntax-only", "-Werror",
                                  *kept, "-Wno-unknown-warning-option"]


def run(command):
    directory, words = command
    result = subprocess.run(words, cwd=directory, capture_output=True, text=True, check=False)
    return result.returncode, result.stderr


def main():
    preset, *wanted = sys.argv[1:]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(run, commands(preset, wanted)))
    if not results:
        sys.exit(f"clang-check.py: build/{preset} has no such source")
    for _, said in results:
        sys.stdout.write(said)
    failed = sum(1 for status, _ in results if status)
    print(f"{preset}: {len(results)} sources read, {failed} with findings")
    sys.exit(failed > 0)


if __name__ == "__main__":
    main()
