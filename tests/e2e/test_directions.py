"""The gallery laid out from right to left, under a real pointer and keyboard and as the screen shows it: a copy of a
mirrored window's own context would be the mirror image of that."""
import dataclasses
import pathlib
import tempfile
import unittest
import test_list
import test_trees
from gallery import Gallery, GalleryTest, save_pictures, xdotool
from test_ribbon import Picture

MIRRORED = ("--direction", "rtl")
BOX = 13  # of a check box
EDGE = 3
OTHER_ARROW = {"Left": "Right", "Right": "Left"}



class InTheMirror(Gallery):
    """A mirrored gallery as it looks in a mirror, so that a test can do as in any other."""

    def __init__(self, page):
        self._sum = None
        super().__init__(page, *MIRRORED)

    def controls(self):
        controls = list(super().controls())
        ribbon = next(c for c in controls if c.class_name == "GRibbon")
        self._sum = 2 * ribbon.x + ribbon.cx
        for control in controls:
            yield dataclasses.replace(control, x=self._sum - control.x - control.cx)

    def _turned(self, point):
        return self._sum - 1 - point[0], point[1]

    def move(self, point):
        super().move(self._turned(point))

    def click(self, point):
        super().click(self._turned(point))

    def right_click(self, point):
        super().right_click(self._turned(point))

    @staticmethod
    def key(*names):
        Gallery.key(*(OTHER_ARROW.get(name, name) for name in names))


class MirroredList(test_list.List):
    @classmethod
    def setUpClass(cls):
        cls.gallery = InTheMirror(cls.PAGE)


class MirroredTrees(test_trees.Trees):
    @classmethod
    def setUpClass(cls):
        cls.gallery = InTheMirror(cls.PAGE)


class MirroredEdit(GalleryTest):
    PAGE = "Entry"

    @classmethod
    def setUpClass(cls):
        cls.gallery = Gallery(cls.PAGE, *MIRRORED)
        cls.field_id = next(c.id for c in cls.gallery.controls() if c.class_name == "GEdit" and c.text == "Type here")

    def field(self):
        self.gallery.lines()
        return next(c for c in self.gallery.controls() if c.id == self.field_id and c.class_name == "GEdit")

    def test_a_click_finds_the_character_that_is_there_and_arrows_go_their_way(self):
        field = self.field()
        middle = field.y + field.cy // 2
        self.gallery.click((field.x + field.cx - 4, middle))
        self.gallery.key("ctrl+a")
        xdotool("type", "--delay", "5", "wide")
        self.gallery.click((field.x + 5, middle))  # left of all of the text, which begins there
        self.gallery.key("x")
        self.assertEqual(self.field().text, "xwide")
        self.gallery.click((field.x + field.cx - 4, middle))
        self.gallery.key("y", "Left", "Left", "z")
        self.assertEqual(self.field().text, "xwidzey")
        self.gallery.drag((field.x + field.cx - 4, middle), (field.x + 5, middle))
        self.gallery.key("Delete")
        self.assertEqual(self.field().text, "")


class DirectionPictures(unittest.TestCase):
    """What shows of the same controls in both directions."""

    @classmethod
    def setUpClass(cls):
        cls.folders = []
        for options in ((), MIRRORED):
            folder = tempfile.TemporaryDirectory(prefix="gesso-e2e-")
            cls.addClassCleanup(folder.cleanup)
            save_pictures(folder.name, *options)
            cls.folders.append(pathlib.Path(folder.name))

    def parts(self, page, controls):
        """Of each control (class, text, and width and height, None for all of it) its rows in both pictures, without
        its edge, whose corners have shades of their own; the mirrored one's as far from its right side."""
        found = []
        for folder, options in zip(self.folders, ((), MIRRORED)):
            gallery = Gallery(page, *options)
            self.addCleanup(gallery.close)
            ribbon = gallery.first("GRibbon")
            rows = Picture(folder / f"{page.lower()}.png").rows[::-1]
            found.append([])
            for class_name, text, width, height in controls:
                control = gallery.control(class_name, text)
                wide = (width or control.cx) - 2 * EDGE
                x = control.x - ribbon.x + (control.cx - EDGE - wide if options else EDGE)
                y = control.y - ribbon.y
                block = rows[y + EDGE : y + (height or control.cy) - EDGE]
                found[-1].append([row[3 * x : 3 * (x + wide)] for row in block])
        return zip(controls, *found)


    def test_texts_images_and_ticks_are_not_mirrored(self):
        pages = {
            "Buttons": [
                ("GButton", "Plain", None, None),
                ("GButton", "Details", None, None),
                ("GButton", "Landscape", None, 30),  # its picture, above a text whose middle is between two pixels
            ],
            "Choices": [("GCheckBox", "&Bread", BOX, None)],  # its tick, at the other side
        }
        for page, controls in pages.items():
            for control, straight, mirrored in self.parts(page, controls):
                with self.subTest(control):
                    self.assertTrue(mirrored == straight)
                    flipped = [b"".join(row[i : i + 3] for i in range(len(row) - 3, -1, -3)) for row in straight]
                    self.assertFalse(flipped == straight, "it says nothing")
