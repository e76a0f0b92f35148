#!/usr/bin/env python3
"""Compares what the tests did not run with what is known not to be.

    scripts/coverage.py COVERAGE.json [PATH-PART...]

COVERAGE.json is what `llvm-cov export` says. scripts/coverage.txt has the entries that are known, in paragraphs:
a reason behind "# ", and below it an entry a line, in the form that this prints them in. Entries go by the text of
the source, not by line numbers, so that they stay when code moves. Those whose reason begins with VARIES may be
reached or not.
"""
import collections
import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
KNOWN = ROOT / "scripts" / "coverage.txt"
VARIES = "It varies: "


class Source:
    """What is known of one source: how often each line was entered, and each condition found true or false."""

    def __init__(self, path):
        self.path = path
        self.text = (ROOT / path).read_text().splitlines()
        self.lines = {}
        self.conditions = collections.defaultdict(lambda: [0, 0])

    def add_segments(self, segments):
        """A segment is [line, column, count, has a count, is the region's start, is a gap]."""
        starts = collections.defaultdict(list)
        for line, _, count, counted, entry, gap in segments:
            starts[line].append((count, counted and entry and not gap))
        present = None  # the segment that a line begins within
        at = {line: [s for s in segments if s[0] == line] for line in starts}
        for line in range(1, len(self.text) + 1):
            counts = [count for count, real in starts[line] if real]
            if present and present[3] and not present[5]:
                counts.append(present[2])
            if counts and re.search(r"\w", self.text[line - 1].split("//")[0]):
                self.lines[line] = max(self.lines.get(line, 0), *counts)
            if line in at:
                present = at[line][-1]

    def add_branches(self, branches):
        """A branch is [line, column, end line, end column, times true, times false, ...]."""
        for branch in branches:
            place = tuple(branch[:4])
            self.conditions[place][0] += branch[4]
            self.conditions[place][1] += branch[5]

    def condition(self, place):
        line, column, end_line, end_column = place
        if line == end_line:
            return self.text[line - 1][column - 1:end_column - 1]
        return self.text[line - 1][column - 1:].strip() + " ..."

    def entries(self):
        """(line, entry) of all that did not run."""
        for line, count in sorted(self.lines.items()):
            if count == 0:
                yield line, f"{self.path}: {self.text[line - 1].strip()}"
        for place, (yes, no) in sorted(self.conditions.items()):
            if self.lines.get(place[0], 1) == 0 or yes and no or not yes and not no:
                continue
            # A switch without a default counts the lack of one as a condition.
            if self.text[place[0] - 1].lstrip().startswith("switch ("):
                continue
            never = "true" if no else "false"
            yield place[0], f"{self.path}: never {never}: {self.condition(place)}"


def read(file, wanted):
    data = json.loads(pathlib.Path(file).read_text())["data"][0]
    sources = {}
    for entry in data["files"]:
        file = pathlib.Path(entry["filename"]).resolve()
        path = file.relative_to(ROOT).as_posix() if file.is_relative_to(ROOT) else ""
        if path.startswith("gesso/") and (not wanted or any(part in path for part in wanted)):
            source = sources.setdefault(path, Source(path))
            source.add_segments(entry["segments"])
            source.add_branches(entry.get("branches", []))
    return sources


def known(wanted):
    """The known entries with their reasons; an entry without a reason is a mistake."""
    entries, reason = {}, None
    for line in KNOWN.read_text().splitlines():
        if line.startswith("# "):
            reason = line[2:]
        elif line.strip():
            if not reason:
                sys.exit(f"{KNOWN.name}: no reason for {line}")
            if not wanted or any(part in line.split(":")[0] for part in wanted):
                entries[line.strip()] = reason
        else:
            reason = None
    return entries


def main():
    file, *wanted = sys.argv[1:]
    sources = read(file, wanted)
    if not sources:
        sys.exit("coverage.py: no such source")
    expected = known(wanted)
    places = collections.defaultdict(list)
    for source in sources.values():
        for line, entry in source.entries():
            places[entry].append(line)
    # Lines that read alike are counted, so that one more of them is new.
    found = {entry if len(lines) == 1 else f"{entry} ({len(lines)} times)": lines for entry, lines in places.items()}
    new = [entry for entry in found if entry not in expected]
    stale = [entry for entry, reason in expected.items() if entry not in found and not reason.startswith(VARIES)]
    for entry in new:
        print(f"{entry}    (line {', '.join(map(str, found[entry]))})")
    for entry in stale:
        print(f"reached after all: {entry}")
    lines = [count for source in sources.values() for count in source.lines.values()]
    sides = [side for source in sources.values() for sides in source.conditions.values() for side in sides]
    print(f"lines run: {sum(map(bool, lines))} of {len(lines)}; sides of conditions: "
          f"{sum(map(bool, sides))} of {len(sides)}; without a test and with a reason: {len(found) - len(new)}")
    sys.exit(f"{len(new)} new, {len(stale)} no longer so" if new or stale else 0)


if __name__ == "__main__":
    main()
