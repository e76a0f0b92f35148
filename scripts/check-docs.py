#!/usr/bin/env python3
"""Compiles every C++ and resource block of README.md and docs/, so that the pages cannot fall behind the library.

    scripts/check-docs.py [PAGE...]

Needs build/headless to be configured. A block is a whole source file if it has an #include, a class or a main
function in its first column; the body of a switch over messages if it starts with a case; else the body of a
function. What it takes from its surroundings stands before it, unseen by the page's reader:

    <!-- given: HWND hwnd; enum { ID_SAVE = 1 }; void Save(); -->

Links between the pages and to files of the tree are followed too. Prints what does not hold, and fails if
anything does not.
"""
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

ROOT = pathlib.Path(__file__).resolve().parent.parent
BLOCK = re.compile(r"(?:<!-- given:(?P<given>(?:(?!-->).)*)-->\n+)?```(?P<language>cpp|rc)\n(?P<code>.*?)```", re.S)
LINK = re.compile(r"\]\((?!\w+:)([^)#]+)")
WHOLE_FILE = re.compile(r"^(#include|class |struct |[A-Za-z][^;\n]*\)\n\{)", re.M)
CASES = re.compile(r"\s*(//[^\n]*\n)*case ")
PROCEDURE = """LRESULT CALLBACK Procedure(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
%s
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}
"""


def compiler():
    """The flags of one of the library's own sources, with warnings as errors."""
    entries = json.loads((ROOT / "build/headless/compile_commands.json").read_text())
    words = shlex.split(next(e["command"] for e in entries if e["file"].endswith("/ControlTable.cpp")))
    flags = [word for word in words if re.match(r"-(I|D|std|fshort|fno-strict)|/usr/include|-isystem", word)]
    flags.remove("-DGESSO_BUILDING")
    return ["g++", *flags, "-I/usr/src/googletest/googletest/include", "-Wall", "-Wextra", "-Wno-unused",
            "-Werror", "-fsyntax-only", "-xc++", "-"]


def source_of(match, place):
    given, code = match["given"] or "", match["code"]
    if match["language"] == "rc":
        lines = "\n".join(part.strip() for part in given.split(";"))
        return f"#include <windows.h>\n{lines}\n{code}"
    if CASES.match(code):
        code = PROCEDURE % (f'#line {place[1]} "{place[0]}"\n' + code)
    elif not WHOLE_FILE.search(code):
        code = f'void Block()\n{{\n#line {place[1]} "{place[0]}"\n{code}}}\n'
    else:
        code = f'#line {place[1]} "{place[0]}"\n{code}'
    return f"#include <gesso/gesso.h>\n{given}\n{code}"


def compile_block(job):
    language, source = job
    command = compiler() if language == "cpp" else ["x86_64-w64-mingw32-windres", "-J", "rc", "-O", "res", "-o", os.devnull]
    result = subprocess.run(command, input=source, capture_output=True, text=True, check=False, cwd=ROOT)
    return "" if result.returncode == 0 else result.stderr


def main():
    pages = [pathlib.Path(page).resolve() for page in sys.argv[1:]]
    pages = pages or [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
    jobs, findings = [], []
    for page in pages:
        text, name = page.read_text(), str(page.relative_to(ROOT))
        for match in BLOCK.finditer(text):
            place = (name, text.count("\n", 0, match.start("code")) + 1)
            jobs.append((match["language"], source_of(match, place)))
        broken = [link for link in LINK.findall(text) if not (page.parent / link).exists()]
        findings += [f"{name}: no such file: {link}" for link in broken]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        findings += [said for said in pool.map(compile_block, jobs) if said]
    print("\n".join(findings) or f"{len(jobs)} blocks of {len(pages)} pages compile, all links lead somewhere")
    sys.exit(bool(findings))


if __name__ == "__main__":
    main()
