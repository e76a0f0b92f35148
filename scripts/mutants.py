#!/usr/bin/env python3
"""Mutation testing, for scripts/mutants.sh: scripts/mutants.py COUNT SEED."""
import collections
import concurrent.futures
import hashlib
import os
import pathlib
import queue
import random
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PLACE = ROOT / "build" / "mutants"
PRESET = "headless-release"
SWEEP = "*FaultSweep*"
WIDE = 40 # a header that more sources include is left out: each of its mutants would build nearly everything twice
# What may be changed into what. The style of the sources puts blanks around binary operators, so that these are
# none of templates, references or pointers.
SWAPS = {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ", " != ": " == ", " && ": " || ",
         " || ": " && ", " + ": " - ", " - ": " + ", "true": "false", "false": "true"}
SWAP = re.compile("|".join(rf"\b{word}\b" if word.isalpha() else re.escape(word) for word in SWAPS))
NUMBER = re.compile(r"(?<![\w.'\"])(\d+)(?![\w.'\"])")
CONDITION = re.compile(r"\b(?:if|while) \((?!const |auto |int |UINT |HWND )(.+)\) \{$")
CALL = re.compile(r"^\s+(?!return\b|delete\b|throw\b|case\b|else\b)[A-Za-z_][\w:.>-]*(?:<.*>)?\(.*\);$")
SKIPPED = re.compile(r"^\s*(//|#|static_assert|template|using|namespace|friend|extern|\* )|\"|'")


def mutations(line):
    """All changes of a line, each a (line, what it is)."""
    code = line.split(" // ")[0]
    if SKIPPED.search(code):
        return
    for match in SWAP.finditer(code):
        yield line[:match.start()] + SWAPS[match[0]] + line[match.end():]
    for match in NUMBER.finditer(code):
        yield line[:match.start()] + str(int(match[0]) + 1) + line[match.end():]
    if match := CONDITION.search(code):
        yield line[:match.start(1)] + "!(" + match[1] + ")" + line[match.end(1):]
    if CALL.match(code):
        yield re.match(r"\s*", line)[0] + ";"


def all_mutants():
    for path in sorted((ROOT / "gesso").rglob("*")):
        if path.suffix not in (".cpp", ".h"):
            continue
        # A declaration is a place for no change, and most of a public header is declarations.
        for number, line in enumerate(path.read_text().splitlines()):
            if path.suffix == ".h" and CALL.match(line):
                continue
            for changed in mutations(line):
                yield path.relative_to(ROOT), number, line, changed


class Tree:
    """A copy of the committed tree, in which one mutant at a time is built and tested."""

    def __init__(self, index):
        self.root = PLACE / str(index)
        if not self.root.exists():
            subprocess.run(["git", "clone", "-q", "--shared", ROOT, self.root], check=True)
        subprocess.run(["git", "fetch", "-q", "origin"], cwd=self.root, check=True)
        commit = subprocess.check_output(["git", "rev-parse", "HEAD"], cwd=ROOT, text=True).strip()
        subprocess.run(["git", "checkout", "-q", "-f", commit], cwd=self.root, check=True)
        self.program = self.root / "build" / PRESET / "tests" / "gesso_tests"
        subprocess.run(["cmake", "--preset", PRESET], cwd=self.root, check=True, stdout=subprocess.DEVNULL)
        if not self.build():
            sys.exit("mutants.py: the tree does not build")
        self.digest = self.digest_now()
        self.seconds = 900

    def measure(self):
        """How long a test may take; one tree at a time, since the time is that of all children."""
        started = os.times()
        if not self.passes():
            sys.exit("mutants.py: the tests fail without a mutant")
        self.seconds = int(10 + 2 * (os.times().children_user - started.children_user))

    def build(self):
        command = ["ninja", "-C", self.root / "build" / PRESET, "-j1", "gesso_tests"]
        return subprocess.run(command, capture_output=True, check=False).returncode == 0

    def digest_now(self):
        return hashlib.sha256(self.program.read_bytes()).digest()

    def wide_headers(self):
        """Paths of headers, in the tree, that more than WIDE sources include."""
        place = self.root / "build" / PRESET
        listing = subprocess.check_output(["ninja", "-C", place, "-t", "deps"], text=True)
        included = collections.Counter(line.strip() for line in listing.splitlines() if line.startswith("    "))
        files = collections.Counter()
        for file, count in included.items():
            files[(place / file).resolve()] += count
        return {file.relative_to(self.root) for file, count in files.items()
                if count > WIDE and file.is_relative_to(self.root)}

    def passes(self):
        """Whether all tests pass, the sweep last, since it takes the longest and notices the least."""
        return self.passes_some("-" + SWEEP) and self.passes_some(SWEEP)

    def passes_some(self, tests):
        """Time is of the processor, so that a machine with more to do fails no mutant; a wait is cut much later."""
        command = ["prlimit", f"--cpu={self.seconds}", self.program, "--gtest_fail_fast", "--gtest_brief=1",
                   f"--gtest_filter={tests}"]
        try:
            return subprocess.run(command, capture_output=True, check=False, timeout=10 * self.seconds).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def survives(self, mutant):
        """Whether no test notices; None if the mutant does not build, or if it changes nothing of the program."""
        path, number, _, changed = mutant
        file = self.root / path
        text = file.read_text()
        lines = text.splitlines(keepends=True)
        lines[number] = changed + "\n"
        file.write_text("".join(lines))
        try:
            return self.passes() if self.build() and self.digest_now() != self.digest else None
        finally:
            file.write_text(text)


def main():
    count, seed = int(sys.argv[1]), int(sys.argv[2])
    workers = os.cpu_count() or 1
    PLACE.mkdir(parents=True, exist_ok=True)
    trees = queue.Queue()
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        for tree in list(pool.map(Tree, range(workers))):
            tree.measure()
            trees.put(tree)
        wide = tree.wide_headers()
        sample = [mutant for mutant in all_mutants() if mutant[0] not in wide]
        random.Random(seed).shuffle(sample)

        def run(mutant):
            tree = trees.get()
            try:
                return mutant, tree.survives(mutant)
            finally:
                trees.put(tree)

        noticed = survived = 0
        rest = iter(sample)
        while noticed + survived < count:
            batch = [mutant for _, mutant in zip(range(count - noticed - survived), rest)]
            if not batch:
                break
            for (path, number, line, changed), result in pool.map(run, batch):
                if result is None:
                    continue
                noticed += not result
                survived += result
                if result:
                    print(f"{path}:{number + 1}\n- {line.strip()}\n+ {changed.strip()}", flush=True)
    total = noticed + survived
    print(f"{noticed} of {total} mutants noticed ({100 * noticed / total:.0f} %), of {len(sample)} possible ones; "
          f"{len(wide)} headers that most sources include are left out")


if __name__ == "__main__":
    main()
