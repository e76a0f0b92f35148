#!/usr/bin/env python3
"""Checks the simulated desktop's operations, and its table of those that can fail (core/FaultTable.h).

    scripts/check-platform.py [--write]

Each operation is called by somebody: the library, a test, an example or the simulation itself. The table is in
order; each operation in it asks, in its own body and by its own name, whether it is to fail; docs/headless.md
prints it (--write puts it there); and whatever of the platform the library calls, methods of interfaces too, is
in it, or among those below that cannot fail.
Prints what does not hold, a line each, and fails if anything does not.
"""
import pathlib
import re
import sys
from collections import Counter

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLE = ROOT / "platform/headless/core/FaultTable.h"
PAGE = ROOT / "docs/headless.md"
BEGIN, END = "<!-- faults: scripts/check-platform.py --write -->\n", "<!-- end of faults -->\n"

# What the library calls and nothing can make fail, by the reason.
CANNOT_FAIL = {
    "they only compute": """CharLowerBuffW CharLowerW CharUpperBuffW EqualRect InflateRect IntersectRect IsRectEmpty MulDiv
        OffsetRect PtInRect StrCmpLogicalW lstrcmpiW""",
    "their answer is the state itself": """GetCapture GetCurrentThreadId GetDoubleClickTime GetFocus GetForegroundWindow
        GetKeyState GetLastError GetMessagePos GetMessageTime GetPropW GetSysColor GetSystemMetrics GetSystemTimeAsFileTime 
        GetTickCount IsAppThemed IsChild IsClipboardFormatAvailable
        IsThemeBackgroundPartiallyTransparent IsThemePartDefined GetWindowTextLengthW IsWindow IsWindowEnabled IsWindowVisible PeekMessageW
        GetWindowThreadProcessId RegisterWindowMessageW WindowFromPoint""",
    "they answer the former state": "EnableWindow SetCapture SetCursor SetLastError ShowCursor ShowWindow",
    "what they give is the system's own and always there": "GetStockObject GetSysColorBrush",
    "their answer is the window's or the dialog's": """CallWindowProcW DispatchMessageW
        SendMessageW SendNotifyMessageW""",
    "they have no failure to tell": """AcquireSRWLockExclusive EndPaint NotifyWinEvent OutputDebugStringA PostQuitMessage
        ReleaseActCtx ReleaseSRWLockExclusive SysFreeString TranslateMessage TryAcquireSRWLockExclusive VariantClear""",
}

OPERATION = re.compile(r"^[A-Za-z_][\w \*]*?\bWINAPI\s+(\w+)\(", re.M)
# The classes of the simulation that are an interface of the platform.
INTERFACES = {"List": "IImageList"}
METHOD = re.compile(r"^HRESULT (" + "|".join(INTERFACES) + r")::(\w+)\(", re.M)
BODY = re.compile(r"^(?:extern \"C\" )?[A-Za-z_][^\n;{}]*?\b(?:WINAPI\s+|(?P<owner>\w+)::)(?P<name>\w+)"
                  r"\([^;{}]*?\)[^;{}]*?\n\{\n(?P<code>.*?)^\}", re.M | re.S)
ROW = re.compile(r'\{"([\w:]+)", "([^"]+)"(, true)?\}')
ASKED = re.compile(r'(?:FaultFires|Answer|CheckDrawing|RecordFill)\([^;{]*?"([\w:]+)"')


def words_below(folder):
    """How often each name stands in the C++ sources of a folder, without comments and texts."""
    found = Counter()
    for path in (ROOT / folder).rglob("*"):
        if path.suffix in (".h", ".cpp", ".inl"):
            code = re.sub(r'//[^\n]*|"(?:[^"\\\n]|\\.)*"', "", path.read_text(encoding="utf-8"))
            found.update(re.findall(r"\b[A-Za-z_]\w+\b", code))
    return found


def operation_name(owner, name):
    return f"{INTERFACES.get(owner, owner)}::{name}" if owner else name


def methods_called(sources):
    """The methods of interfaces that a source of the library calls where it names the interface."""
    methods = {operation_name(*found) for found in METHOD.findall(sources)}
    for path in (ROOT / "gesso").rglob("*.cpp"):
        code = path.read_text(encoding="utf-8")
        for interface in INTERFACES.values():
            if interface in code:
                yield from methods & {f"{interface}::{name}" for name in re.findall(r"->(\w+)\(", code)}


def printed(rows):
    by_failure = {}
    for name, failure, _ in rows:
        by_failure.setdefault(failure, []).append(f"`{name}`")
    lines = [f"| {failure} | {', '.join(names)} |\n" for failure, names in sorted(by_failure.items())]
    return "| returns | operations |\n|---|---|\n" + "".join(lines)


def page_complaints(rows, write):
    text = PAGE.read_text(encoding="utf-8")
    before, _, rest = text.partition(BEGIN)
    _, _, after = rest.partition(END)
    wanted = before + BEGIN + printed(rows) + END + after
    if write:
        PAGE.write_text(wanted, encoding="utf-8")
    elif wanted != text:
        yield "docs/headless.md does not print the table: scripts/check-platform.py --write"


def table_complaints(rows, sources):
    names = [name for name, _, _ in rows]
    if names != sorted(set(names)):
        yield "the table is not in alphabetic order"
    asked = Counter((operation_name(body["owner"], body["name"]), name)
                    for body in BODY.finditer(sources) for name in ASKED.findall(body["code"]))
    yield from (f"{name} is in the table and never asks in its own body whether it is to fail"
                for name in names if not asked[name, name])
    yield from (f"{operation} asks whether {name} is to fail" for operation, name in asked if operation != name)
    beside = Counter(ASKED.findall(sources)) - Counter(name for _, name in asked.elements())
    yield from (f"a helper asks whether {name} is to fail" for name in beside)


def idle_complaints(sources):
    called = sum((words_below(folder) for folder in ("gesso", "tests", "examples", "bench", "fuzz")), Counter())
    own = words_below("platform/headless")
    for name in sorted(set(OPERATION.findall(sources))):
        if not called[name] and own[name] < 2:
            yield f"nobody calls {name}"


def library_complaints(rows, sources):
    known = {name for name, _, _ in rows}
    safe = {name for names in CANNOT_FAIL.values() for name in names.split()}
    yield from (f"{name} cannot fail, and is in the table" for name in sorted(known & safe))
    called = set(OPERATION.findall(sources)) & set(words_below("gesso")) | set(methods_called(sources))
    yield from (f"{name} is called by the library and never fails" for name in sorted(called - known - safe))
    yield from (f"{name} is not called by the library: drop it here" for name in sorted(safe - called))


def main():
    rows = ROW.findall(TABLE.read_text(encoding="utf-8"))
    sources = "".join(path.read_text(encoding="utf-8") for path in (ROOT / "platform/headless").rglob("*.cpp"))
    complaints = [*idle_complaints(sources), *table_complaints(rows, sources), *library_complaints(rows, sources),
                  *page_complaints(rows, "--write" in sys.argv)]
    print("\n".join(complaints) or f"{len(rows)} operations can fail; the docs have them all")
    return bool(complaints) or not rows


if __name__ == "__main__":
    sys.exit(main())
