"""The gallery's ribbon page "Look": scheme, scale, direction and language change while the program runs, and back."""
from gallery import GalleryTest
from test_dialogs import DialogTest

STEPS = ("Dark", "200 %", "Right to left", "Contrast", "150 %", "Left to right", "Light", "100 %")


def choose(gallery, *texts):
    """Presses buttons of the ribbon, each where it stands by then."""
    for text in texts:
        gallery.lines()
        gallery.click(gallery.control("command", text).middle)


class Looks(GalleryTest):
    PAGE = "Choices"

    def places(self):
        """Of what stays as it is: everything but the picture that a bar moves and the last lines of the report."""
        kinds = ("GCheckBox", "GRadioButton", "GCommandButton", "GNavigationBar", "GRibbon", "command", "page")
        controls = self.gallery.settled()
        return [(c.class_name, c.text, c.x, c.y, c.cx, c.cy) for c in controls if c.class_name in kinds]

    def test_all_of_it_is_usable_after_each_change_and_in_its_old_place_at_last(self):
        choose(self.gallery, "Look")
        before = self.places()
        for step in STEPS:
            choose(self.gallery, step)
            with self.subTest(step):
                self.gallery.lines()
                box = self.gallery.control("GCheckBox", "&Bread")
                self.gallery.click((box.x + box.cx // 2, box.y + box.cy // 2))
                self.assertIn(box.command(), self.gallery.lines())
        self.assertEqual(self.places(), before)

    def test_at_200_percent_everything_is_twice_as_large_and_mirrored_it_begins_at_the_other_side(self):
        choose(self.gallery, "Look")
        small = self.gallery.control("GCheckBox", "&Apples")
        choose(self.gallery, "200 %")
        self.gallery.lines()
        large = self.gallery.control("GCheckBox", "&Apples")
        self.assertEqual((large.cx, large.cy), (2 * small.cx, 2 * small.cy))
        choose(self.gallery, "100 %", "Right to left")
        self.gallery.lines()
        pane, mirrored = self.gallery.first("GNavigationBar"), self.gallery.control("GCheckBox", "&Apples")
        self.assertGreater(pane.x, mirrored.x)
        choose(self.gallery, "Left to right")
        self.gallery.lines()
        self.assertEqual(self.gallery.control("GCheckBox", "&Apples"), small)


class Languages(DialogTest):
    def test_dialogs_speak_the_language_that_was_chosen_last(self):
        choose(self.gallery, "Look")
        for language, retry in (("English", "Retry"), ("Français", "Réessayer"), ("Deutsch", "Wiederholen")):
            choose(self.gallery, language)
            self.open("Retry, cancel")
            self.assertTrue(self.in_dialog("GButton", retry), language)
            self.gallery.key("Escape")
            self.assertEqual(self.answer(), "IDCANCEL (2)")
