"""The explorer page as a person would use it: folders, files, names and questions."""
import pathlib
import tempfile
import unittest

from gallery import Gallery, wait_for, window_titled, xdotool

SAMPLE = "Gesso sample files"
KINDS = 3000  # of files: the images and names of each are looked up, which takes a while on any machine


class ExplorerTest(unittest.TestCase):
    def setUp(self):
        self.gallery = Gallery("Explorer")
        self.await_status("5 items")

    def tearDown(self):
        self.gallery.close()

    def controls(self):
        """What is in sight once the gallery has dealt with all input so far."""
        return self.gallery.settled()

    def names(self):
        return [c.text for c in self.controls() if c.class_name == "list item"]

    def await_status(self, text):
        wait_for(f"the status '{text}'",
                 lambda: any(c.class_name == "GLabel" and text in c.text for c in self.controls()))

    def item(self, name):
        return next(c for c in self.controls() if (c.class_name, c.text) == ("list item", name)).middle

    def open(self, name):
        xdotool("mousemove", *self.item(name), "click", "--repeat", 2, "--delay", 50, 1)

    def combos(self):
        """The one of the path and the one of the views."""
        return [c for c in self.controls() if c.class_name == "GComboBox"]

    def path(self):
        return self.combos()[0].text

    def test_folders_open_by_double_click_and_by_key_and_close_again(self):
        self.assertEqual(self.names()[:3], ["Documents", "Pictures", "Sounds"])
        self.open("Documents")
        wait_for("the folder", lambda: self.path().endswith("\\Documents") and "Notes.txt" in self.names())
        self.gallery.key("Return")  # the first one is selected
        wait_for("the folder below", lambda: self.path().endswith("\\Old drafts"))
        self.gallery.key("BackSpace", "BackSpace")
        wait_for("the first folder", lambda: self.path().endswith(SAMPLE) and "Pictures" in self.names())
        self.gallery.key("Down", "Return")  # from the one that was left
        wait_for("the folder behind it", lambda: self.path().endswith("\\Pictures"))

    def test_enter_presses_go_wherever_the_focus_has_been(self):
        self.gallery.key("Tab", "Tab", "Tab")  # past two buttons, to the views
        self.assertIn(self.gallery.button("Go").command(), self.gallery.lines("Return"))

    def test_f2_renames_in_place_and_escape_leaves_the_name(self):
        self.gallery.click(self.item("Shopping list.txt"))
        self.gallery.key("F2")
        self.gallery.type("Errands.txt")
        self.gallery.key("Escape")
        self.assertIn("Shopping list.txt", self.names())
        self.gallery.key("F2")
        self.gallery.type("Errands.txt")
        self.gallery.key("Return")
        wait_for("the new name", lambda: "Errands.txt" in self.names())
        self.gallery.key("F2")
        self.gallery.type("Shopping list.txt")
        self.gallery.key("Return")
        wait_for("the former name", lambda: "Shopping list.txt" in self.names())

    def test_delete_asks_and_goes_by_the_answer(self):
        name = "Read me first.txt"
        for answers, remains in ((("No", "Nein"), True), (("Yes", "Ja"), False)):
            self.gallery.click(self.item(name))
            self.gallery.key("Delete")
            wait_for("the question", lambda: self.buttons(answers))
            window_titled("Explorer")  # the pointer would else reach what is still below it
            wait_for("its end", lambda: self.has_answered(answers), every=0.5)
            wait_for("the answer to count", lambda: (name in self.names()) == remains)

    def has_answered(self, texts):
        """Clicks the button while there is one: a click into a window that just comes up may be lost."""
        for button in self.buttons(texts)[:1]:
            self.gallery.click(button.middle)
        return not self.buttons(texts)

    def buttons(self, texts):
        return [c for c in self.controls() if c.text.replace("&", "") in texts]

    def test_what_is_chosen_in_an_open_list_counts_by_key_and_by_click(self):
        before = self.item("Pictures")
        self.gallery.click(self.combos()[1].middle)
        self.gallery.key("Down", "Return")
        wait_for("the tiles", lambda: self.item("Pictures") != before)
        self.gallery.click(self.item("Pictures"))
        self.gallery.key("Return")
        wait_for("the folder", lambda: self.path().endswith("\\Pictures"))
        combo = self.combos()[0]
        self.gallery.click((combo.x + combo.cx - 8, combo.middle[1]))
        self.gallery.click((combo.x + 40, combo.y + combo.cy + 33))  # the second row
        wait_for("the folder before", lambda: self.path().endswith(SAMPLE) and "Documents" in self.names())

    def test_everything_stays_within_a_small_window(self):
        self.gallery.click(self.gallery.control("command", "800 x 600").middle)
        wait_for("the small size", lambda: self.gallery.button("Go").x < 840)
        self.assertIn("Documents", self.names())
        self.await_large_folder()

    def await_large_folder(self):
        """Opens a large folder by its path and sees it read with a progress bar, and to the end."""
        with tempfile.TemporaryDirectory(prefix="gesso-") as folder:
            for i in range(KINDS):
                pathlib.Path(folder, f"file.{i}").touch()
            self.gallery.click(next(c for c in self.controls() if SAMPLE in c.text).middle)
            self.gallery.key("ctrl+a")
            self.gallery.type(self.gallery.windows_path(folder))
            self.gallery.lines("Return")
            self.assertIn("GProgressBar", [c.class_name for c in self.gallery.controls()])
            self.await_status(f"{KINDS} items, 0 selected")
