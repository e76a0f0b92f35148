#!/usr/bin/env python3
"""Checks that the tree's layers know only what stands below them.

In gesso/ a folder may include its own headers and those of the folders before it in LAYERS. Library code has
no other way to the platform than gesso/api.h, and no conditional compilation but for debug builds. The platform never includes the
library. Prints what breaks these rules, a line each, and fails if anything does.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LAYERS = ["containers", "language", "framework", "text", "access", "controls", "edit", "list", "tree", "ribbon", "dialogs"]
# The two places that see every layer: the host's one include, and the table of what the library can make.
ABOVE_ALL = ["gesso/gesso.h", "gesso/ControlTable.cpp"]
THE_DOOR = "gesso/api.h"

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')
# Debug builds may differ; platforms may not.
CONDITION = re.compile(r"\s*#\s*(if|ifdef|ifndef|elif)\b(?!.*\bNDEBUG\b)")


def layer_of(path):
    """The rank of a path below gesso/, or None for what stands beside the layers."""
    folder = path.split("/")[1]
    return LAYERS.index(folder) if folder in LAYERS else None


def complaint_about_include(source, quote, included):
    if quote == '"':
        return "a quoted include: library headers are included as <gesso/...>"
    if not included.startswith("gesso/"):
        is_standard = "/" not in included and not included.endswith(".h")
        return None if is_standard else f"<{included}> past the door: the platform comes through <{THE_DOOR}>"
    if included.startswith("gesso/platform/"):
        return f"<{included}> past the door: include <{THE_DOOR}>"
    if not (ROOT / included).is_file():
        return f"<{included}> does not exist"
    own, other = layer_of(source), layer_of(included)
    if other is None:
        return None if included == THE_DOOR or own is None else f"<{included}> stands above every layer"
    if own is not None and other > own:
        return f"{LAYERS[own]} must not know {LAYERS[other]}: <{included}>"
    return None


def complaints_in_library(source, lines):
    if layer_of(source) is None and source not in ABOVE_ALL:
        yield 1, f"a source outside the layers ({', '.join(LAYERS)})"
    for number, line in enumerate(lines, 1):
        if CONDITION.match(line):
            yield number, "conditional compilation in library code: what differs stands in platform/"
        include = INCLUDE.match(line)
        if include and (complaint := complaint_about_include(source, *include.groups())):
            yield number, complaint


def complaints_in_platform(_, lines):
    for number, line in enumerate(lines, 1):
        include = INCLUDE.match(line)
        if include and include.group(2).startswith("gesso/"):
            yield number, f"the platform must not know the library: <{include.group(2)}>"


def sources_below(folder):
    for path in sorted((ROOT / folder).rglob("*")):
        if path.suffix in (".h", ".inl", ".cpp"):
            yield path.relative_to(ROOT).as_posix(), path.read_text(encoding="utf-8").splitlines()


def main():
    count = checked = 0
    for folder, complaints in (("gesso", complaints_in_library), ("platform", complaints_in_platform)):
        for source, lines in sources_below(folder):
            checked += 1
            if source == THE_DOOR:
                continue
            for number, complaint in complaints(source, lines):
                print(f"{source}:{number}: {complaint}")
                count += 1
    if checked == 0:
        print("no sources found")
    return 1 if count or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
