#!/usr/bin/env python3
"""Checks that the rules of Classic are named alike where they are listed, told and asked for.

gesso/framework/Quirks.h lists them, docs/quirks.md has a row for each, with what both behaviours do, and the
library asks for each by Has(..., Quirk::Name). Prints what does not agree, a line each, and fails if anything does
not.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLE = ROOT / "gesso/framework/Quirks.h"
PAGE = ROOT / "docs/quirks.md"


def listed():
    body = re.search(r"enum class Quirk\s*\{(.*?)\n\};", TABLE.read_text(), re.S)[1]
    return re.findall(r"^\s*(\w+),", re.sub(r"//.*", "", body), re.M)


def told():
    rows = re.findall(r"^\| `(\w+)` \| ([^|]+) \| ([^|]+) \|$", PAGE.read_text(), re.M)
    return {name for name, classic, modern in rows if classic.strip() and modern.strip()}


def asked():
    names = set()
    for path in (ROOT / "gesso").rglob("*"):
        if path.suffix in (".cpp", ".h") and path != TABLE:
            names |= set(re.findall(r"\bQuirk::(\w+)", re.sub(r"//.*", "", path.read_text())))
    return names


def main():
    names = listed()
    findings = [f"{name} is listed twice" for name in {*names} if names.count(name) > 1]
    for where, others in (("has no row in docs/quirks.md", told()), ("is asked for nowhere", asked())):
        findings += [f"{name} {where}" for name in names if name not in others]
        findings += [f"{name} is not in gesso/framework/Quirks.h" for name in sorted(others - {*names})]
    print("\n".join(findings) if findings else f"{len(names)} rules")
    return bool(findings)


if __name__ == "__main__":
    sys.exit(main())
