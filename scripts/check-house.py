#!/usr/bin/env python3
"""Checks that what cuts across all controls goes through its one place.

Each rule names what a library source must not write and where it may: the tail of every window procedure, the
state word, colours, measures, the visual style's classes. Prints what breaks a rule, a line each, and fails
if anything does.

    check-house.py [PATH-PART...]    only the files whose paths contain one of these
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FRAMEWORK = "gesso/framework/"


class Rule:
    def __init__(self, pattern, places, advice):
        self.pattern = re.compile(pattern)
        self.places = places
        self.advice = advice


RULES = [
    Rule(r"\bDefWindowProc[AW]?\(", [FRAMEWORK + "Frame.cpp"], "a window procedure ends in Frame::Default"),
    Rule(r"\bm_dwState\s*[|&^]?=[^=]", [FRAMEWORK + "Frame.cpp", FRAMEWORK + "GWnd.h"],
         "the state word changes by Frame::SetState and its like"),
    Rule(r"\bOpenThemeData\(", [FRAMEWORK + "ThemeHandle.cpp"], "a class of the style is opened by ThemeHandle::Open"),
    Rule(r"\bRGB\(|\bGetSysColor(?:Brush)?\(", [FRAMEWORK + "Colors.cpp"], "a colour is named in framework/Colors.h"),
    Rule(r"\bGetSystemMetrics\(", [FRAMEWORK + "Metrics.cpp"], "a system metric is asked by SystemMetric"),
    Rule(r"\bhosts (?:rely|know)\b", [], "say what would break: `// Fixed behaviour: ...`"),
    Rule(r"(?<![\w:])new\s+[\w:]+\s*\[|\bdelete\[\]", [], "no raw arrays"),
]


def strip_comment(line):
    return re.sub(r"//.*", "", line)


def complaints(path, wanted_rules):
    name = path.relative_to(ROOT).as_posix()
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        for rule in wanted_rules:
            text = line if "hosts" in rule.pattern.pattern else strip_comment(line)
            if name not in rule.places and rule.pattern.search(text):
                yield f"{name}:{number}: {rule.advice}"


def main():
    wanted = sys.argv[1:]
    paths = sorted(p for p in (ROOT / "gesso").rglob("*") if p.suffix in (".h", ".cpp", ".inl"))
    count = 0
    for path in paths:
        name = path.relative_to(ROOT).as_posix()
        if wanted and not any(part in name for part in wanted):
            continue
        if path.suffix == ".inl":
            print(f"{name}:1: members in a file that no tool can read alone")
            count += 1
        for complaint in complaints(path, RULES):
            print(complaint)
            count += 1
    if not paths:
        print("no sources found")
    return 1 if count or not paths else 0


if __name__ == "__main__":
    sys.exit(main())
