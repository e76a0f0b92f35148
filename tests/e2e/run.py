#!/usr/bin/env python3
"""Runs the end-to-end tests of this folder and prints their results in the manner of the other test programs.

    run.py [NAME...]    only the tests whose names contain one of these

Needs DISPLAY and the Wine settings that scripts/test.sh makes: run it by `scripts/test.sh e2e`.
"""
import pathlib
import sys
import time
import unittest


class Results(unittest.TestResult):
    """Prints a line when a test starts and another when it ends."""

    def startTest(self, test):
        super().startTest(test)
        self._start = time.monotonic()
        self._bad = False
        print(f"[ RUN      ] {name_of(test)}", flush=True)

    def stopTest(self, test):
        self._print_end(test, "  FAILED  " if self._bad else "       OK ")
        super().stopTest(test)

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self._bad = True
        print(self.failures[-1][1])

    def addError(self, test, err):
        super().addError(test, err)
        self._bad = True
        print(self.errors[-1][1])
        if not isinstance(test, unittest.TestCase):  # a class's own start failed, so that none of its tests runs
            self._start = time.monotonic()
            self._print_end(test, "  FAILED  ")

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err is not None:
            self._bad = True
            print((self.failures if issubclass(err[0], test.failureException) else self.errors)[-1][1])

    def _print_end(self, test, mark):
        print(f"[{mark}] {name_of(test)} ({(time.monotonic() - self._start) * 1000:.0f} ms)", flush=True)


def name_of(test):
    if not isinstance(test, unittest.TestCase):
        return str(test)
    return f"{type(test).__name__}.{test.id().rsplit('.', 1)[1]}"


def tests_of(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from tests_of(test)
        else:
            yield test


def main(wanted):
    folder = pathlib.Path(__file__).parent
    found = unittest.defaultTestLoader.discover(str(folder), pattern="test_*.py")
    chosen = [t for t in tests_of(found) if not wanted or any(word in name_of(t) for word in wanted)]
    results = Results()
    start = time.monotonic()
    unittest.TestSuite(chosen).run(results)
    bad = len(results.failures) + len(results.errors)
    print(f"[==========] {results.testsRun} tests ran. ({(time.monotonic() - start) * 1000:.0f} ms total)")
    return 1 if bad or not results.testsRun else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
