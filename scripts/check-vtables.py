#!/usr/bin/env python3
"""Checks the order of the virtual operations of every public class, for both C++ interfaces.

    scripts/check-vtables.py            compares it with gesso/gesso.vtables and gesso/gesso-msvc.vtables
    scripts/check-vtables.py --write    writes these lists anew

A host calls virtual operations by their place: none may move, and a new one stands behind all others. The lists
are what clang lays out for the public headers; both interfaces can differ, since one puts overloads of a name
together, in reverse, and has one place for the destructor where the other has two.
"""
import difflib
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
LLVM = pathlib.Path("/usr/lib/llvm-19")
SYSROOT = ROOT / "build/windows-msvc/msvc"
WINE = pathlib.Path("/usr/include/wine/wine")
MINGW = pathlib.Path("/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++")
INTERFACES = {
    "gesso/gesso.vtables": [
        "--target=x86_64-w64-windows-gnu", "-nostdinc++", "-isystem", MINGW, "-isystem", MINGW / "x86_64-w64-mingw32",
        f"-I{ROOT}/build/windows-msvc/include"],
    "gesso/gesso-msvc.vtables": [
        "--target=x86_64-pc-windows-msvc", "-fms-compatibility-version=19.30", "-fms-extensions", "-nostdinc",
        "-D_DLL", "-D_MT", "-DWINE_UNICODE_NATIVE", "-D_InterlockedCompareExchange128=no_compare_exchange_128",
        "-isystem", SYSROOT / "config", "-isystem", LLVM / "include/c++/v1", "-isystem", LLVM / "lib/clang/19/include",
        "-isystem", ROOT / "platform/msvc/include", "-isystem", WINE / "msvcrt", "-isystem", WINE / "windows",
        f"-I{ROOT}/build/windows-msvc/include"],
}


def classes():
    """The public classes with virtual operations: those that hosts can derive from."""
    headers = re.search(r"set\(GESSO_PUBLIC_HEADERS(.*?)\)",
                        (ROOT / "cmake/GessoPublicHeaders.cmake").read_text(), re.S)[1].split()
    for header in sorted(headers):
        text = (ROOT / "gesso" / header).read_text(encoding="utf-8")
        for match in re.finditer(r"^class GESSO_API (\w+)[^;{]*\{(.*?)^\};", text, re.S | re.M):
            if "virtual " in match[2] or " override" in match[2] or ": public" in match[0].split("{")[0]:
                yield header, match[1]


def source(found):
    """Derives from each class, so that the compiler lays out its table."""
    lines = [f"#include <gesso/{header}>" for header in sorted({header for header, _ in found})]
    for _, name in found:
        lines += [f"struct Of_{name} : {name} {{ ~Of_{name}() override; }};", f"Of_{name}::~Of_{name}() {{}}"]
    return "\n".join(lines) + "\n"


def layouts(options, found):
    """By class, its slots in their order."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "tables.cpp"
        path.write_text(source(found))
        command = [LLVM / "bin/clang++", "-std=c++20", "-w", "-DUNICODE", "-D_UNICODE", *options, f"-I{ROOT}",
                   "-Xclang", "-fdump-vtable-layouts", "-S", "-o", "/dev/null", path]
        run = subprocess.run(list(map(str, command)), capture_output=True, text=True)
    if run.returncode:
        sys.exit(run.stderr + "check-vtables.py: the headers do not compile")
    tables, slots = {}, None
    for line in run.stdout.splitlines():
        if re.match(r"V(f|F)?[Tt]able for ", line):
            name = re.findall(r"'Of_(\w+)'", line)
            slots = tables.setdefault(name[0], []) if name else None
        elif slots is not None and (slot := re.match(r"\s*\d+ \| (.*)", line)):
            if "offset_to_top" not in line and "RTTI" not in line:
                slots.append(slot[1].replace("Of_", ""))
        elif re.match(r"(VTable indices|VFTable indices|Thunks|Construction)", line):
            slots = None
    return tables


def text_of(tables):
    return "".join(f"{name}\n" + "".join(f"  {number} {slot}\n" for number, slot in enumerate(slots))
                   for name, slots in sorted(tables.items()))


def main():
    found = list(classes())
    good = True
    for list_name, options in INTERFACES.items():
        tables = layouts(options, found)
        missing = {name for _, name in found} - tables.keys()
        if missing or not all(tables.values()):
            sys.exit(f"check-vtables.py: no table was laid out for {', '.join(sorted(missing)) or 'a class'}")
        kept, text = ROOT / list_name, text_of(tables)
        if "--write" in sys.argv[1:]:
            kept.write_text(text)
            continue
        former = kept.read_text() if kept.exists() else ""
        for line in difflib.unified_diff(former.splitlines(), text.splitlines(), list_name, "the headers", "", "", 1, ""):
            print(line)
            good = False
        print(f"{list_name}: {len(tables)} classes, {sum(map(len, tables.values()))} slots")
    sys.exit(0 if good else 1)


main()
