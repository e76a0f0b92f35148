#!/usr/bin/env python3
"""Checks the headers of an installed package as a host's compiler meets them.

    scripts/check-headers.py PREFIX headless|windows|windows-msvc

The package has just the headers that cmake/GessoPublicHeaders.cmake lists; each compiles alone, with the warnings
of a careful host as errors, and all of them together for a host without exceptions; and none brings or names a type of
the C++ library that has a layout of its own, since hosts may be built with another one. Prints what does not hold, and
fails if anything does not.
"""
import os
import pathlib
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

ROOT = pathlib.Path(__file__).resolve().parent.parent
LIST = ROOT / "cmake/GessoPublicHeaders.cmake"
# Headers of the C++ library without any class that a header could hold by value or pass.
HARMLESS = {"algorithm", "climits", "compare", "concepts", "cstddef", "cstdint", "cstring", "iterator", "limits", "new",
            "type_traits", "utility"}
# What a header may name of it: functions, properties of types, and what `new` asks for and throws.
NAMES = {"align_val_t", "bad_alloc", "clamp", "copy_n", "is_integral_v", "is_null_pointer_v", "is_same_v",
         "is_trivially_copyable_v", "max", "memmove", "min", "move", "nothrow_t", "same_as", "upper_bound"}
# What a header may bring besides, and name, since the program makes it inline and hands it to nothing of the library's:
# no exported name has any of it, which interface.sh sees to.
OF_THE_PROGRAM = {"access/Find.h": {"memory", "string", "make_unique"}}
# For Microsoft's interface __int64 is a type of its own; clang calls it an extension.
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror", "-Wno-language-extension-token"]
LLVM = "/usr/lib/llvm-19"
WINE = "/usr/include/wine/wine"
COMPILERS = {
    "headless": ["g++", "-fshort-wchar", "-isystem", "/usr/include/wine/wine/windows"],
    "windows": ["x86_64-w64-mingw32-g++-posix", "-DUNICODE", "-D_UNICODE"],
    "windows-msvc": [f"{LLVM}/bin/clang++", "--target=x86_64-pc-windows-msvc", "-fms-compatibility-version=19.30",
                     "-fms-extensions", "-nostdinc", "-D_DLL", "-D_MT", "-DWINE_UNICODE_NATIVE",
                     "-D_InterlockedCompareExchange128=no_compare_exchange_128",
                     *(part for folder in (ROOT / "build/windows-msvc/msvc/config", f"{LLVM}/include/c++/v1",
                                           f"{LLVM}/lib/clang/19/include", ROOT / "platform/msvc/include",
                                           f"{WINE}/msvcrt", f"{WINE}/windows")
                       for part in ("-isystem", str(folder)))],
}
# What a source may have in front of them: there the platform's min and max are macros.
FRONTS = {"windows-msvc": "#include <windows.h>\n"}


def listed():
    body = re.search(r"set\(GESSO_PUBLIC_HEADERS(.*?)\)", LIST.read_text(), re.S)[1]
    return set(body.split())


def forbidden_of(path, besides):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        include = re.match(r"\s*#\s*include\s*<([^/>]+)>", line)
        if include and include[1] not in HARMLESS | besides:
            yield f"{path}:{number}: <{include[1]}>: no type of the C++ library crosses the border"


# Of the door, whose includes are the platform's: what comes with them is not for the headers to name.
def foreign_names_of(path, besides):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        for name in re.findall(r"\bstd\s*::\s*(\w+)", line.partition("//")[0]):
            if name not in NAMES | besides:
                yield f"{path}:{number}: std::{name}: no type of the C++ library crosses the border"


def compile_alone(job):
    command, front, include, header, *options = job
    source = f"{front}#include <gesso/{header}>\n#include <gesso/{header}>\n"
    run = subprocess.run([*command, *options, "-std=c++20", f"-I{include}", *WARNINGS, "-fsyntax-only", "-xc++", "-"],
                         input=source, capture_output=True, text=True, check=False)
    return "" if run.returncode == 0 else f"{' '.join([header, *options])} does not compile alone:\n{run.stderr}"


def main():
    if len(sys.argv) != 3 or sys.argv[2] not in COMPILERS:
        sys.exit(__doc__)
    include = pathlib.Path(sys.argv[1]) / "include"
    root = include / "gesso"
    headers = listed()
    there = {p.relative_to(root).as_posix() for p in root.rglob("*.h")}
    door = {name for name in there if name.startswith("platform/")}
    there -= door
    findings = [f"installed and not listed: {name}" for name in sorted(there - headers)]
    findings += [f"listed and not installed: {name}" for name in sorted(headers - there)]
    for header in sorted(headers & there):
        findings += forbidden_of(root / header, OF_THE_PROGRAM.get(header, set()))
    # The simulated desktop is for tests, which are built with the library.
    for header in sorted(name for name in headers & there | door if not name.startswith("platform/headless/")):
        findings += foreign_names_of(root / header, OF_THE_PROGRAM.get(header, set()))
    job = COMPILERS[sys.argv[2]], FRONTS.get(sys.argv[2], ""), include
    jobs = [(*job, header) for header in sorted(headers & there)] + [(*job, "gesso.h", "-fno-exceptions")]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        findings += [said for said in pool.map(compile_alone, jobs) if said]
    print("\n".join(findings) or f"{len(headers)} headers stand alone")
    sys.exit(bool(findings) or not headers)


if __name__ == "__main__":
    main()
