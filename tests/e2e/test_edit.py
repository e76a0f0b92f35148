"""Edit fields under a real pointer and keyboard, and text that goes by the clipboard to and from the platform's own
edit field, in another program too, and a combo box."""
from collections import Counter

from gallery import Gallery, GalleryTest, wait_for, window_in_front, xdotool
from screen import shades

EN_CHANGE = 768


class Edit(GalleryTest):
    PAGE = "Entry"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        edits = [c for c in cls.gallery.controls() if c.class_name == "GEdit"]
        cls.line = next(c.id for c in edits if c.text == "Type here")
        cls.letter = next(c.id for c in edits if c.text.startswith("Dear reader"))
        cls.number = next(c.id for c in edits if c.text == "42")
        cls.file = next(c.id for c in edits if c.text.startswith("1\\tThis") or "This is line 1 of" in c.text)
        cls.platform = next(c.id for c in cls.gallery.controls() if c.class_name == "Edit")
        combos = [c for c in cls.gallery.controls() if c.class_name == "GComboBox"]
        cls.combo = min(combos, key=lambda c: c.id).id

    def field(self, control_id):
        return next(c for c in self.gallery.controls() if c.id == control_id and c.class_name != "GLabel")

    def text(self, control_id):
        """Its text, once the gallery has dealt with all input; a line end shows as two spaces."""
        self.gallery.lines()
        return self.field(control_id).text

    def changes(self):
        return [line for line in self.gallery.commands() if f"code {EN_CHANGE}" in line]

    def at(self, control_id, dx, dy=10):
        field = self.field(control_id)
        return field.x + dx, field.y + dy

    def fill(self, control_id, text):
        """Clicks into a field and types over all that it has."""
        self.gallery.click(self.at(control_id, 5))
        self.gallery.key("End", "shift+Home", "Delete")
        if text:
            xdotool("type", "--delay", "5", text)

    def is_emptied(self):
        self.fill(self.line, "")
        return self.text(self.line) == ""

    # --- Tests

    def test_typed_text_comes_in_is_told_and_replaces_what_shift_selects(self):
        self.fill(self.line, "")
        self.gallery.lines()
        xdotool("type", "--delay", "5", "Hello")
        self.assertEqual(len(self.changes()), 5)
        self.assertEqual(self.text(self.line), "Hello")
        self.gallery.key("BackSpace", "Home", "Delete")
        self.assertEqual(self.text(self.line), "ell")
        self.gallery.key("End", "shift+Left", "shift+Left", "x")
        self.assertEqual(self.text(self.line), "ex")

    def test_the_pointer_selects_by_dragging_and_a_word_by_a_double_click(self):
        self.fill(self.line, "drag this")
        self.gallery.drag(self.at(self.line, 2), self.at(self.line, 60), self.at(self.line, 110))
        self.gallery.key("a")
        self.assertEqual(self.text(self.line), "a")
        self.fill(self.line, "two words")
        point = self.at(self.line, 12)
        xdotool("mousemove", *point, "click", "--repeat", 2, "--delay", 20, 1)
        self.gallery.key("b")
        self.assertEqual(self.text(self.line), "b words")

    def test_words_are_passed_and_removed_and_edits_taken_back(self):
        self.fill(self.line, "one two three")
        self.gallery.key("ctrl+Left", "ctrl+shift+Left", "x")
        self.assertEqual(self.text(self.line), "one xthree")
        self.gallery.key("ctrl+BackSpace")
        self.assertEqual(self.text(self.line), "one three")
        self.gallery.key("ctrl+z", "ctrl+z")
        self.assertEqual(self.text(self.line), "one two three")
        self.gallery.key("ctrl+y")
        self.assertEqual(self.text(self.line), "one xthree")

    def test_selected_text_is_dragged_within_a_field_and_to_another(self):
        self.fill(self.line, "ab cd")
        self.gallery.key("Home", "ctrl+shift+Right")
        self.gallery.drag(self.at(self.line, 8), self.at(self.line, 20), self.at(self.line, 100))
        self.assertEqual(self.text(self.line), "cdab ")
        self.fill(self.letter, "")
        self.gallery.key("ctrl+a", "Delete")
        self.fill(self.line, "moved")
        self.gallery.key("ctrl+a")
        self.gallery.drag(self.at(self.line, 8), self.at(self.line, 30), self.at(self.letter, 40, 8))
        self.assertEqual(self.text(self.letter), "moved")
        self.assertEqual(self.text(self.line), "")

    def test_pages_and_the_wheel_scroll_a_long_text(self):
        self.gallery.click(self.at(self.file, 100))
        self.gallery.lines()
        self.gallery.key("ctrl+Home", "Next", "Next")
        self.assertEqual(len([line for line in self.gallery.commands() if "code 1538" in line]), 2)
        xdotool("click", 5)
        self.assertTrue(any("code 1538" in line for line in self.gallery.commands()))

    def test_the_context_menu_offers_what_there_is_to_do(self):
        self.fill(self.line, "menu")
        self.gallery.key("ctrl+a")
        self.gallery.right_click(self.at(self.line, 10))
        self.gallery.key("a")  # the mnemonic of what cuts
        self.assertEqual(self.text(self.line), "")
        self.gallery.right_click(self.at(self.line, 10))
        self.gallery.key("e")
        self.assertEqual(self.text(self.line), "menu")

    def test_characters_of_other_kinds_are_not_taken(self):
        self.fill(self.number, "1a2b")
        self.assertEqual(self.text(self.number), "12")

    def test_text_goes_to_the_platforms_field_of_another_program_and_back(self):
        self.fill(self.line, "there and back again")
        self.gallery.key("ctrl+a", "ctrl+c")
        self.gallery.lines()
        window = window_in_front()
        other = Gallery(self.PAGE)  # in front, and with the keys
        try:
            field = next(c for c in other.controls() if c.class_name == "Edit")
            other.click((field.x + 5, field.y + 10))
            other.key("End", "shift+Home", "ctrl+v", "exclam")
            other.lines()
            text = next(c.text for c in other.controls() if c.class_name == "Edit")
            self.assertEqual(text, "there and back again!")
            other.key("shift+Home", "ctrl+c")
            other.lines()
            # There is no window manager that would do so.
            xdotool("windowraise", window, "windowfocus", "--sync", window)
            wait_for("the keys to come here again", self.is_emptied)
            self.gallery.key("ctrl+v")
            self.assertEqual(self.text(self.line), "there and back again!")
        finally:
            other.close()

    def test_text_goes_to_the_platforms_field_and_back(self):
        self.fill(self.line, "there and back")
        self.gallery.key("shift+Home", "ctrl+x")
        self.assertEqual(self.text(self.line), "")
        self.fill(self.platform, "")
        self.gallery.key("ctrl+v")
        self.assertEqual(self.text(self.platform), "there and back")
        self.gallery.key("Home", "shift+End", "ctrl+c")
        self.fill(self.line, "")
        self.gallery.key("ctrl+v")
        self.assertEqual(self.text(self.line), "there and back")

    def test_text_goes_to_a_combo_box_and_back(self):
        self.fill(self.line, "Field")
        self.gallery.key("ctrl+a", "ctrl+c")
        self.fill(self.combo, "")
        self.gallery.key("ctrl+v", "1", "shift+Home", "ctrl+c")
        self.assertEqual(self.text(self.combo), "Field1")
        self.fill(self.line, "")
        self.gallery.key("ctrl+v")
        self.assertEqual(self.text(self.line), "Field1")

    def test_several_lines_wrap_and_break_where_the_user_says(self):
        self.gallery.click(self.at(self.letter, 5))
        self.gallery.key("ctrl+a", "Delete")
        xdotool("type", "--delay", "5", "first")
        self.gallery.key("Return")
        xdotool("type", "--delay", "5", "a second line that is far longer than the field is wide, so that it wraps")
        whole = "first  a second line that is far longer than the field is wide, so that it wraps"
        self.assertEqual(self.text(self.letter), whole)
        self.gallery.key("Up", "Home", "x")
        self.assertNotIn(self.text(self.letter), (whole, "x" + whole))
        self.gallery.key("BackSpace", "ctrl+Home", "x")
        self.assertEqual(self.text(self.letter), "x" + whole)


class DarkMenu(GalleryTest):
    """The context menu of a field in Dark, as the screen shows it."""

    PAGE = "Entry"

    @classmethod
    def setUpClass(cls):
        cls.gallery = Gallery(cls.PAGE, "--scheme", "dark")

    def field(self):
        self.gallery.lines()
        return min((c for c in self.gallery.controls() if c.class_name == "GEdit"), key=lambda c: c.id)

    def below(self, field):
        """What the screen shows where a menu comes up in the field."""
        return [shade for row in shades(field.x + 60, field.y + field.cy, 60, 100) for shade in row]

    def test_it_is_dark_however_it_is_opened_and_a_mnemonic_chooses(self):
        field = self.field()
        opened = {
            "by a right click": lambda: self.gallery.right_click((field.x + 10, field.y + 10)),
            "by its key": lambda: self.gallery.key("Menu"),
            "by F10": lambda: self.gallery.key("shift+F10"),
        }
        for how, open_menu in opened.items():
            with self.subTest(how):
                self.gallery.click((field.x + 5, field.y + 10))
                self.gallery.key("ctrl+a")
                xdotool("type", "--delay", "5", "menu")
                self.gallery.key("ctrl+a")
                self.assertEqual(self.field().text, "menu")
                before = self.below(field)
                open_menu()
                # Its ground, with texts and nothing else on it.
                wait_for("the menu", lambda: Counter(self.below(field))[(0x2B, 0x2B, 0x2B)] > len(before) * 0.7)
                light = [shade for shade in self.below(field) if min(shade) > 0x80]
                self.assertGreater(len(light), 20)
                self.assertLess(len(light), len(before) * 0.2)
                self.gallery.key("a")  # what cuts
                self.assertEqual(self.field().text, "")
                self.assertEqual(self.below(field), before)
