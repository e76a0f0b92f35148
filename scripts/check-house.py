#!/usr/bin/env python3
"""Checks that what cuts across all controls goes through its one place.

Each rule names what a library source must not write and where it may: the tail of every window procedure, the
state word, colours, the system's metrics, the visual style's classes, a control's selection, cursor and
value. A length of the library's own that stands as a number in a source no search can tell from others.
Prints what breaks a rule, a line each, and fails if anything does.

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


def written(*fields):
    """An assignment to one of these fields, of whatever object, but no declaration with a first value."""
    return r"^\s*(?:[\w()*]+(?:\.|->))*(?:" + "|".join(fields) + r")\s*[-+*/|&^]?=[^=]"


# The fields behind a control's selection, cursor and value, and the file of the member that changes them.
ONE_PLACE = "it changes in the control's Change... member"
CHANGES = [
    (["m_nCaretLine", "m_nCaretChar", "m_nAnchorLine", "m_nAnchorChar"], ["edit/GEditText.cpp"]),
    # A copy takes over the whole object.
    (["m_nCaret", "m_nAnchor"], ["edit/GComboBoxField.cpp", "edit/GComboBox.cpp", "edit/EditModel.cpp"]),
    (["m_nSelected", "m_pSelected"], ["tree/TreeView.h", "edit/GComboBox.cpp"]),
    (["cursorItem", "lastItem", "hitHot"], ["list/GListSelection.cpp", "list/GListAssign.cpp"]),
    (["m_nActive"], ["ribbon/GRibbonTabs.cpp"]),
    (["m_nHot"], ["ribbon/GRibbon.cpp", "ribbon/GRightClickMenu.cpp", "edit/GComboBoxList.cpp"]),
    (["m_uHotItem"], ["ribbon/GRibbonPageInput.cpp"]),
    (["m_nCurrent"], ["dialogs/GWizardPages.cpp"]),
    (["m_nPos"], ["controls/GScrollbar.cpp"]),
    (["m_nProgress"], ["controls/GProgressBar.cpp"]),
]

RULES = [
    Rule(r"\bDef(?:WindowProc|DlgProc)\w*\(", [FRAMEWORK + "Frame.cpp"],
         "a window procedure ends in Frame::Default"),
    Rule(r"\bm_dwState\s*[|&^]?=[^=]|\b(?:exchange|swap)\([\w.>-]*m_dwState\b",
         [FRAMEWORK + "Frame.cpp", FRAMEWORK + "GWnd.h"],
         "the state word changes by Frame::SetState and its like"),
    Rule(r"\bOpenThemeData\w*\(", [FRAMEWORK + "ThemeHandle.cpp", FRAMEWORK + "DpiApi.cpp"],
         "a class of the style is opened by ThemeHandle::Open"),
    Rule(r"\bRGB\(|\bGetSysColor(?:Brush)?\(|\bGetStockObject\(\w*BRUSH|\bCOLORREF\s+\w+\s*(?:=|\{)\s*0x",
         [FRAMEWORK + "Colors.cpp", FRAMEWORK + "Palette.cpp", FRAMEWORK + "FlatShapes.cpp"],
         "a colour is named in framework/Colors.h"),
    Rule(r"\bGetSystemMetrics\w*\(", [FRAMEWORK + "Metrics.cpp", FRAMEWORK + "DpiApi.cpp"], "a system metric is asked by SystemMetric"),
    Rule(r"static_cast<UINT>\(-1\)", ["gesso/containers/Index.h", FRAMEWORK + "GWndScroll.cpp"],
         "the index that is none is NO_INDEX"),
    *(Rule(written(*fields), ["gesso/" + file for file in files], ONE_PLACE) for fields, files in CHANGES),
    Rule(r"\bhosts (?:rely|know)\b", [], "say what would break: `// Fixed behaviour: ...`"),
    Rule(r"(?<![\w:])new\s+[\w:]+\s*\[|(?<!operator )\bdelete\[\]", [], "no raw arrays"),
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
