#!/usr/bin/env python3
"""Runs the attack on all classes at once, prints a table, and shrinks a run that fails.

    attack.py PROGRAM SECONDS [CLASS...]
    attack.py PROGRAM --shrink CLASS SEED OPERATIONS [SECONDS]

With the variable GESSO_WINE the program is a Windows program that it runs, one at a time: a session has one user.
"""
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
SEEDS = HERE / "seeds.txt"
RUNS_A_DAY = 1_000_000
LONGEST_RUN = 150  # seconds, of one run
LONGEST_SHRINK = 120
WINE = os.environ.get("GESSO_WINE")
RUN_LENGTH = ["--ops", 50] if WINE else []  # where dialogs wait for real time


class Result:
    def __init__(self, name):
        self.name = name
        self.operations = 0
        self.seconds = 0.0
        self.held = []  # what the process held, where it tells
        self.findings = []  # outputs


def call(program, *options, seconds=LONGEST_RUN, symbolize=True):
    """The program's result and all that it printed."""
    environment = dict(os.environ, ASAN_OPTIONS=f"symbolize={int(symbolize)}:allocator_may_return_null=1",
                       UBSAN_OPTIONS="print_stacktrace=1")
    command = [*filter(None, [WINE]), program, *map(str, options)]
    try:
        run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment,
                             timeout=seconds)
    except subprocess.TimeoutExpired as expired:
        return -1, (expired.stdout or b"").decode(errors="replace") + "\nattack: it does not end\n"
    return run.returncode, run.stdout.decode(errors="replace")


def signature(output):
    """What was found, without numbers that change from run to run."""
    for pattern in (r"(\S+:\d+:\d+: runtime error: .*)", r"SUMMARY: AddressSanitizer: (.*)",
                    r"attack: (?!finding by)(.*)", r"(headless: .*)", r"(gesso: .*)"):
        if found := re.search(pattern, output):
            return re.sub(r"0x[0-9a-f]+(?![0-9a-f)])|-?\b\d{3,}\b(?!:)", "N", found.group(1))
    return "ended with an error"


# --- Shrinking

class Shrinker:
    def __init__(self, program, name, seed, operations, seconds):
        self.run = [program, "--class", name, "--seed", seed, "--ops", operations]
        self.end = time.monotonic() + seconds
        self.wanted = None

    def fails(self, only):
        status, output = call(*self.run, "--only", ",".join(map(str, only)), symbolize=False)
        if status == 0:
            return False
        self.wanted = self.wanted or signature(output)
        return signature(output) == self.wanted

    def shrink(self, only):
        """Drops halves, then smaller pieces, as long as what is left still fails in the same way."""
        pieces = 2
        while len(only) > 1 and time.monotonic() < self.end:
            size = -(-len(only) // pieces)
            for at in range(0, len(only), size):
                left = only[:at] + only[at + size:]
                if left and self.fails(left):
                    only, pieces = left, max(pieces - 1, 2)
                    break
            else:
                if size == 1:
                    break
                pieces = min(pieces * 2, len(only))
        return only


def shrink(program, name, seed, operations, last, seconds=LONGEST_SHRINK):
    shrinker = Shrinker(program, name, seed, operations, seconds)
    only = list(range(min(int(last) + 1, int(operations))))
    if not shrinker.fails(only):
        return "it does not happen again with the same operations"
    only = shrinker.shrink(only)
    options = ["--class", name, "--seed", seed, "--ops", operations, "--only", ",".join(map(str, only))]
    _, output = call(program, *options, "--tell")
    return f"{program} {' '.join(map(str, options))} --tell\n{output}"


# --- The whole

def old_runs():
    runs = []
    if WINE:  # where the same seeds do other things
        return runs
    for line in SEEDS.read_text().splitlines():
        if line and not line.startswith("#"):
            runs.append(line.split(maxsplit=3))
    return runs


def attack(program, name, seconds):
    result = Result(name)
    start = time.monotonic()
    calls = [["--seed", seed, "--ops", operations] for known, seed, operations, *_ in old_runs() if known == name]
    today = int(time.time()) // 86400 * RUNS_A_DAY
    for options in calls + [["--seed", today, "--seconds", seconds, *RUN_LENGTH]]:
        status, output = call(program, "--class", name, *options, seconds=seconds + LONGEST_RUN)
        result.held += re.findall(r"held .*", output)
        if done := re.search(r"(\d+) operations", output):
            result.operations += int(done.group(1))
        elif found := re.search(r"--seed (\d+) --ops (\d+), in operation (\d+)", output):
            run, length, last = map(int, found.groups())
            result.operations += max(run - today, 0) % RUNS_A_DAY * length + last
        if status != 0:
            result.findings.append(output)
    result.seconds = time.monotonic() - start
    return result


def tell(program, result):
    for output in result.findings:
        print(f"\n-- {result.name}: {signature(output)}")
        print("\n".join(output.splitlines()[:60]))
        if found := re.search(r"--class (\S+) --seed (\d+) --ops (\d+), in operation (\d+)", output):
            name, seed, operations, last = found.groups()
            print(f"-- for fuzz/attack/seeds.txt: {name} {seed} {operations} {signature(output)}")
            print("-- shrunk:\n" + shrink(program, name, seed, operations, last), flush=True)


def main():
    program, first, *rest = sys.argv[1:]
    if first == "--shrink":
        name, seed, operations, *seconds = rest
        print(shrink(program, name, seed, operations, operations, *map(int, seconds)))
        return 1
    known = call(program, "--list")[1].split()
    # A name that is none would be attacked with nothing, and a run of it never be made again.
    if unknown := {*rest, *(name for name, *_ in old_runs())} - set(known):
        sys.exit(f"attack.py: there is no class {', '.join(sorted(unknown))}")
    names = rest or known
    cores = 1 if WINE else os.cpu_count() or 1
    seconds = max(float(first) * cores / len(names), 1)
    with concurrent.futures.ThreadPoolExecutor(cores) as pool:
        results = list(pool.map(lambda name: attack(program, name, seconds), names))
    for result in results:
        tell(program, result)
    print(f"{'class':<24} {'operations':>12} {'findings':>9} {'seconds':>8}")
    for result in results:
        print(f"{result.name:<24} {result.operations:>12} {len(result.findings):>9} {result.seconds:>8.1f}")
        if WINE:
            print("\n".join(f"    {held}" for held in result.held))
    return any(result.findings for result in results)


if __name__ == "__main__":
    sys.exit(main())
