"""Drives the gallery as a person would: with a real pointer and keyboard, on the display that is set.

The gallery says where its controls stand (--layout) and what they report (--log). Nothing here waits by the
clock: each wait looks for what must come, until a deadline.
"""
import os
import pathlib
import subprocess
import tempfile
import time
import unittest
from dataclasses import dataclass

DEADLINE = 20.0  # seconds for anything that must happen
MARK = "----"  # the line that the gallery writes for F12


@dataclass(frozen=True)
class Control:
    class_name: str
    id: int
    text: str
    x: int
    y: int
    cx: int
    cy: int

    @property
    def middle(self):
        return self.x + self.cx // 2, self.y + self.cy // 2

    @property
    def outside(self):
        """A point to the left of the control, between it and its neighbour."""
        return self.x - 6, self.y + self.cy // 2

    def command(self, code=0):
        """The line that the control's WM_COMMAND is reported with."""
        return f"WM_COMMAND id {self.id} code {code} from {self.class_name} '{self.text}'"

    def notify(self, code):
        return f"WM_NOTIFY id {self.id} code {code} from {self.class_name} '{self.text}'"


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, timeout=DEADLINE)


def wait_for(what, look, deadline=DEADLINE, every=0.01):
    """What look() gives as soon as that is true; fails when the deadline passes. A look that keeps the gallery from
    its work should not come so often. Both are in seconds."""
    end = time.monotonic() + deadline
    while time.monotonic() < end:
        result = look()
        if result:
            return result
        time.sleep(every)
    raise AssertionError(f"waited {deadline:.0f} s in vain for {what}")


def save_pictures(folder, *options):
    """Saves a picture of every page there."""
    command = [os.environ["GESSO_WINE"], os.environ["GESSO_GALLERY"], *options]
    command += ["--shots", Gallery.windows_path(folder)]
    subprocess.run(command, check=True, timeout=3 * DEADLINE, stdout=subprocess.DEVNULL)


def window_titled(title):
    """A point in the caption of the window with a title, once it shows."""
    search = ["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"]
    window = wait_for(f"the window '{title}'", lambda: subprocess.run(search, capture_output=True).stdout.split())[0]
    lines = subprocess.check_output(["xdotool", "getwindowgeometry", "--shell", window], text=True).split()
    place = dict(line.split("=") for line in lines)
    return int(place["X"]) + int(place["WIDTH"]) // 2, int(place["Y"]) + 10


def window_in_front():
    """The number of the window that gets the keys."""
    return subprocess.check_output(["xdotool", "getwindowfocus"], text=True).strip()


class Gallery:
    """A running gallery that shows one page."""

    def __init__(self, page, *options, **process):
        self._dir = tempfile.TemporaryDirectory(prefix="gesso-e2e-")
        self._log = pathlib.Path(self._dir.name, "log")
        self._layout = pathlib.Path(self._dir.name, "layout")
        self._marks = 0
        command = [os.environ["GESSO_WINE"], os.environ["GESSO_GALLERY"], "--page", page]
        command += ["--log", self.windows_path(self._log), "--layout", self.windows_path(self._layout)]
        start = time.monotonic()
        self._process = subprocess.Popen([*command, *options], **process)
        wait_for(f"the page {page}", self._layout.exists)  # written once the window is painted
        self.start_time = round(1000 * (time.monotonic() - start))  # milliseconds
        labels = [c for c in self.controls() if c.class_name == "GLabel"]
        self.click(labels[0].middle)  # makes it the window that gets the keys
        self.lines()

    def close(self):
        self._process.terminate()
        self._process.wait(DEADLINE)
        self._dir.cleanup()

    @property
    def process(self):
        return self._process

    def show_page(self, page):
        self.click(self.control("page", page).middle)

    @staticmethod
    def windows_path(path):
        return "Z:" + str(path).replace("/", "\\")

    # --- What stands where

    def controls(self):
        for line in self._layout.read_text(encoding="utf-8").splitlines():
            class_name, control_id, text, *place = line.split("\t")
            yield Control(class_name, int(control_id), text, *map(int, place))

    def control(self, class_name, text):
        found = [c for c in self.controls() if (c.class_name, c.text) == (class_name, text)]
        assert len(found) == 1, f"{len(found)} of {class_name} '{text}'"
        return found[0]

    def button(self, text):
        return self.control("GButton", text)

    def first(self, class_name):
        return next(c for c in self.controls() if c.class_name == class_name)

    def settled(self):
        """What stands where, once the gallery has dealt with all input."""
        self.lines()
        return list(self.controls())

    # --- Input

    @staticmethod
    def move(point):
        xdotool("mousemove", *point)

    @staticmethod
    def press():
        xdotool("mousedown", 1)

    @staticmethod
    def release():
        xdotool("mouseup", 1)

    @staticmethod
    def click(point):
        xdotool("mousemove", *point, "mousedown", 1, "mouseup", 1)

    def drag(self, start, *points):
        """Presses at one point, moves on to the others one by one, and releases at the last."""
        self.move(start)
        self.press()
        for point in points:
            self.move(point)
        self.release()

    @staticmethod
    def right_click(point):
        xdotool("mousemove", *point, "mousedown", 3, "mouseup", 3)

    @staticmethod
    def type(text):
        xdotool("type", text)

    @staticmethod
    def key(*names):
        xdotool("key", *names)

    @staticmethod
    def key_down(name):
        xdotool("keydown", name)

    @staticmethod
    def key_up(name):
        xdotool("keyup", name)

    # --- What was reported

    def lines(self, *keys):
        """What was reported since the last call. The gallery has dealt with all earlier input by then, since it
        takes F12 after that and marks the place. The keys are typed at once before F12, which comes ahead of what
        they start."""
        self._marks += 1
        self.key("--delay", 0, *keys, "F12")
        parts = wait_for("the gallery's answer to F12", self._parts_to_the_mark)
        return parts[self._marks - 1]

    def pending(self):
        """What was reported since then so far, without asking for a mark."""
        lines = self._log.read_text(encoding="utf-8").split("\n")
        marks = [i for i, line in enumerate(lines) if line == MARK]
        return [line for line in lines[marks[self._marks - 1] + 1 :] if line]

    def _parts_to_the_mark(self):
        lines = self._log.read_text(encoding="utf-8").split("\n")
        if lines.count(MARK) < self._marks:
            return None
        parts = [[]]
        for line in lines:
            if line == MARK:
                parts.append([])
            else:
                parts[-1].append(line)
        return parts

    def commands(self):
        """Of the lines since the last call, those of WM_COMMAND."""
        return [line for line in self.lines() if line.startswith("WM_COMMAND")]


class GalleryTest(unittest.TestCase):
    """Tests on one page of a gallery that stays open for all of them."""

    PAGE = None

    @classmethod
    def setUpClass(cls):
        cls.gallery = Gallery(cls.PAGE)

    @classmethod
    def tearDownClass(cls):
        cls.gallery.close()
