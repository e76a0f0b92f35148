#!/usr/bin/env python3
"""Drives the gallery by random real input for a long time and watches what it holds.

    soak.py SECONDS [SEED]

Mouse, wheel, drags, keys, page switches, dialogs and new window sizes, on the display that is set. Every half
minute the gallery is brought back to its first page and its GDI objects, windows and memory are noted there.
Fails if it crashes, if it does not answer for more than a second, if X reports an error, or if what it holds
at rest still grows after the warm-up. How long it takes to show its first window is told too, from the start of
the process, with Wine running already; over a second is a failure. Run it by scripts/soak.sh.
"""
import os
import pathlib
import random
import sys
import tempfile
import time

from gallery import Gallery, wait_for, xdotool

REST_EVERY = 30  # seconds
WARM_UP = 0.25  # of the whole time
LONGEST_SILENCE = LONGEST_START = 1000  # milliseconds
GDI_ALLOWANCE = 8
MEMORY_ALLOWANCE = 0.10
FIRST_PAGE = "Labels"
SIZES = ["800 x 600", "As large as the screen"]
KEYS = """Tab Tab shift+Tab Return space Escape Up Down Left Right Home End Prior Next Delete BackSpace F2 F4 a b e
    g m s 1 ctrl+a ctrl+c ctrl+v ctrl+x shift+Down shift+Up shift+End ctrl+Down plus minus alt+Down""".split()


class Soak:
    def __init__(self, seconds, seed):
        self.random = random.Random(seed)
        self.seconds = seconds
        self.folder = tempfile.TemporaryDirectory(prefix="gesso-soak-")
        self.stats = pathlib.Path(self.folder.name, "stats")
        self.errors = pathlib.Path(self.folder.name, "errors")
        self.rests = []  # seconds, GDI objects, windows, kilobytes
        self.actions = 0

    def run(self):
        Gallery(FIRST_PAGE).close()  # which starts Wine
        with self.errors.open("w") as errors:
            self.gallery = Gallery(FIRST_PAGE, "--stats", Gallery.windows_path(self.stats), stderr=errors)
            self.start = time.monotonic()
            self.rest()
            while self.elapsed() < self.seconds:
                self.work(REST_EVERY)
                self.rest()
            self.gallery.close()

    def elapsed(self):
        return time.monotonic() - self.start

    def work(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            assert self.gallery.process.poll() is None, f"the gallery ended with {self.gallery.process.returncode}"
            chance = self.random.random()
            for share, action in ACTIONS:
                chance -= share
                if chance < 0:
                    action(self)
                    break
            self.actions += 1

    # --- Actions

    def somewhere(self):
        """A point on a control, or anywhere in the client area."""
        controls = list(self.gallery.controls())
        if self.random.random() < 0.8 and controls:
            control = self.random.choice(controls)
            x = self.random.randrange(control.x, control.x + max(control.cx, 1))
            y = self.random.randrange(control.y, control.y + max(control.cy, 1))
        else:
            x, y = self.random.randrange(44, 1040), self.random.randrange(70, 760)
        return min(max(x, 0), 1279), min(max(y, 66), 1023)  # below the title bar, which would end the gallery

    def click(self):
        xdotool("mousemove", *self.somewhere(), "click", "--repeat", self.random.choice([1, 1, 1, 2]), "--delay", 20,
                self.random.choice([1, 1, 1, 1, 3]))

    def drag(self):
        xdotool("mousemove", *self.somewhere(), "mousedown", 1, "mousemove", *self.somewhere(), "mousemove",
                *self.somewhere(), "mouseup", 1)

    def wheel(self):
        xdotool("mousemove", *self.somewhere(), "click", "--repeat", self.random.randrange(1, 6), "--delay", 5,
                self.random.choice([4, 5]))

    def keys(self):
        xdotool("key", "--delay", 5, *self.random.choices(KEYS, k=self.random.randrange(1, 8)))

    def page(self):
        xdotool("key", "Escape")
        self.click_one_of([c for c in self.gallery.controls() if c.class_name == "page"])

    def resize(self):
        self.click_one_of([c for c in self.gallery.controls() if c.text in SIZES])

    def click_one_of(self, controls):
        if controls:  # a dialog may stand before them
            xdotool("mousemove", *self.random.choice(controls).middle, "click", 1)

    # --- What it holds

    def rest(self):
        """Back to the first page, dialogs and lists closed, and then a look at the numbers."""
        xdotool("mouseup", 1, "key", "--delay", 100, "Escape", "Escape", "Escape")
        self.gallery.click(self.gallery.control("command", SIZES[1]).middle)
        self.gallery.show_page(FIRST_PAGE)
        time.sleep(1)
        gdi, windows = map(int, self.lines()[-1].split()[1:])
        self.rests.append((round(self.elapsed()), gdi, windows, self.resident()))
        print("%6d s  %5d GDI objects  %4d windows  %7d kB" % self.rests[-1], flush=True)

    def lines(self):
        text = wait_for("the gallery's numbers", lambda: self.stats.exists() and self.stats.read_text())
        return [line for line in text.splitlines() if line.count(" ") == 2]

    def resident(self):
        """Of the process that Wine runs the gallery in."""
        status = pathlib.Path(f"/proc/{self.gallery.process.pid}/status").read_text()
        return int(next(line.split()[1] for line in status.splitlines() if line.startswith("VmRSS")))

    # --- The end

    def verdict(self):
        clock = [int(line.split()[0]) for line in self.lines()]
        silence = max(b - a for a, b in zip(clock, clock[1:]))
        said = [line for line in self.errors.read_text(errors="replace").splitlines()
                if "X Error" in line or ("err:" in line and "wineboot" not in line)]
        warm = [rest for rest in self.rests if rest[0] >= WARM_UP * self.seconds] or self.rests
        gdi, windows, memory = (warm[-1][i] - warm[0][i] for i in (1, 2, 3))
        print(f"first window {self.gallery.start_time} ms after the start")
        print(f"{self.actions} actions in {self.elapsed():.0f} s; longest silence {silence} ms; after the warm-up: "
              f"GDI objects {gdi:+d}, windows {windows:+d}, memory {memory:+d} kB of {warm[0][3]} kB; "
              f"{len(said)} errors of X or Wine")
        print("\n".join(sorted(set(said))[:10]))
        return (silence <= LONGEST_SILENCE and self.gallery.start_time <= LONGEST_START and windows <= 0
                and gdi <= GDI_ALLOWANCE and memory <= MEMORY_ALLOWANCE * warm[0][3] and not said)


ACTIONS = [(0.40, Soak.click), (0.12, Soak.drag), (0.12, Soak.wheel), (0.28, Soak.keys), (0.05, Soak.page),
           (0.03, Soak.resize)]


def main():
    seconds = int(sys.argv[1])
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else int.from_bytes(os.urandom(4))
    print(f"{seconds} s with seed {seed}", flush=True)
    soak = Soak(seconds, seed)
    soak.run()
    sys.exit(not soak.verdict())


if __name__ == "__main__":
    main()
