"""The combo boxes under a real pointer and keyboard: typing, and the open list."""
from gallery import Gallery, GalleryTest, wait_for, xdotool

SELCHANGE, EDITCHANGE, EDITUPDATE, DROPDOWN, CLOSEUP, SELENDOK, SELENDCANCEL = 1, 5, 6, 7, 8, 9, 10
EDIT = [EDITUPDATE, EDITCHANGE]
TAKEN = [SELENDOK, CLOSEUP]
STEP = [SELENDOK, SELCHANGE]  # in the closed list
ROW = 22
FRAME = 5  # the list's, at most


class Combos(GalleryTest):
    PAGE = "Entry"

    def above(self, caption):
        """The control whose caption this is, as it is after all input so far."""
        self.gallery.lines()
        label = self.gallery.control("GLabel", caption)
        found = [c for c in self.gallery.controls() if c.x == label.x and 0 <= label.y - c.y - c.cy < 6]
        assert len(found) == 1, found
        return found[0]

    def text_of(self, caption):
        return self.above(caption).text

    @staticmethod
    def button_of(combo):
        return combo.x + combo.cx - 6, combo.y + combo.cy // 2

    @staticmethod
    def row_of(combo, row):
        """The middle of a row in view of the open list."""
        return combo.x + 20, combo.y + combo.cy + FRAME + row * ROW + ROW // 2

    def open_at_top(self, face):
        """Opens a list of up to 2,000 rows, the first one on top: the keys in it go by a page."""
        self.gallery.click(face.middle)
        xdotool("key", "--delay", 2, *["Prior"] * 200)

    def codes(self, combo):
        """The codes of the combo box's commands since the last look."""
        return self.codes_in(self.gallery.lines(), combo)

    @staticmethod
    def codes_in(lines, combo):
        start = f"WM_COMMAND id {combo.id} code "
        return [int(line[len(start) :].split()[0]) for line in lines if line.startswith(start)]

    def is_given_up(self, combo):
        """Whether the list has closed without a choice, as told so far."""
        codes = self.codes_in(self.gallery.pending(), combo)
        return [c for c in codes if c in (SELENDOK, SELENDCANCEL, CLOSEUP)] == [SELENDCANCEL, CLOSEUP]

    def empty(self, combo):
        """Clears a field, whose text is selected when it gets the focus by the pointer twice."""
        self.gallery.click((combo.x + 10, combo.middle[1]))
        self.gallery.key("ctrl+a", "Delete")
        self.gallery.lines()

    def test_typing_selecting_and_deleting_in_the_field(self):
        field = self.above("drop-down")
        self.empty(field)
        self.gallery.type("hello")
        self.assertEqual(self.codes(field), EDIT * 5)
        self.gallery.key("shift+Left", "shift+Left")
        self.gallery.type("p")
        self.gallery.key("BackSpace", "Home", "Delete")
        self.assertEqual(self.codes(field), EDIT * 3)
        self.assertEqual(self.text_of("drop-down"), "el")
        self.gallery.drag((field.x + 4, field.middle[1]), (field.x + 90, field.middle[1]))
        self.gallery.type("x")
        self.assertEqual(self.text_of("drop-down"), "x")

    def test_f4_opens_the_list_and_keys_pick_in_it(self):
        field = self.above("drop-down")
        self.empty(field)
        self.gallery.key("F4", "Down", "Down", "Down", "Up", "Return")
        self.assertEqual(self.codes(field), [DROPDOWN] + [SELCHANGE] * 4 + TAKEN)
        chosen = self.text_of("drop-down")
        self.gallery.key("Up")
        self.assertEqual(self.codes(field), STEP)
        self.assertNotEqual(self.text_of("drop-down"), chosen)

    def test_esc_gives_the_former_choice_back(self):
        face = self.above("drop-down list")
        self.gallery.click(face.middle)
        self.gallery.key("Return")
        former = self.text_of("drop-down list")
        self.codes(face)
        self.gallery.key("alt+Down", "Up", "Down", "Down", "Escape")
        self.assertEqual(self.codes(face), [DROPDOWN] + [SELCHANGE] * 3 + [SELENDCANCEL, CLOSEUP, SELCHANGE])
        self.assertEqual(self.text_of("drop-down list"), former)

    def test_what_is_typed_is_completed_or_chosen(self):
        field = self.above("completes")
        self.empty(field)
        self.gallery.type("val")
        self.assertEqual(self.codes(field), EDIT * 3)
        self.assertEqual(self.text_of("completes"), "valladolid")
        face = self.above("drop-down list")
        self.gallery.click(face.middle)
        self.gallery.key("Escape")
        self.gallery.type("od")
        self.assertEqual(self.text_of("drop-down list"), "Odense")

    def test_the_pointer_opens_the_list_and_picks_a_row(self):
        face = self.above("drop-down list")
        self.gallery.click(face.middle)
        self.gallery.key("Prior", "Prior", "Prior")
        self.gallery.click(self.row_of(face, 2))
        self.assertEqual(self.codes(face)[-3:], [*TAKEN, SELCHANGE])
        self.assertEqual(self.text_of("drop-down list"), "Bergen")

    def test_the_wheel_scrolls_the_open_list_and_steps_the_closed_one(self):
        face = self.above("2,000 rows")
        self.open_at_top(face)
        xdotool("click", 5)
        self.gallery.click(self.row_of(face, 0))
        self.assertEqual(self.text_of("2,000 rows"), "Row 4")
        self.gallery.move(face.middle)
        self.gallery.lines()
        xdotool("click", 5, "click", 5, "click", 4)
        self.assertEqual(self.codes(face), STEP * 3)
        self.assertEqual(self.text_of("2,000 rows"), "Row 5")

    def test_the_bar_of_the_open_list_drags_to_its_end(self):
        face = self.above("2,000 rows")
        xbar = face.x + face.cx - FRAME - 8
        self.open_at_top(face)
        top = face.y + face.cy + FRAME + 17 + 6
        self.gallery.drag((xbar, top), (xbar, top + 30), (xbar, top + 900))
        self.gallery.click(self.row_of(face, 3))
        number = int(self.text_of("2,000 rows").split()[1])
        self.assertGreater(number, 1960)

    def test_a_click_elsewhere_closes_the_list_and_goes_no_further(self):
        field = self.above("drop-down")
        self.empty(field)
        self.gallery.click(self.button_of(field))
        self.gallery.show_page("Labels")
        self.assertEqual(self.codes(field)[-2:], [SELENDCANCEL, CLOSEUP])
        self.assertEqual(self.gallery.control("GLabel", "Entry").text, "Entry", "the page is the same")
        self.gallery.type("y")
        self.assertIn(EDITCHANGE, self.codes(field), "keys are the field's again")

    def test_another_program_in_front_closes_the_list(self):
        field = self.above("drop-down")
        self.empty(field)
        self.gallery.click(self.button_of(field))
        other = Gallery("Labels")
        other.close()
        wait_for("the list to close", lambda: self.is_given_up(field))
        self.gallery.click((field.x + 10, field.middle[1]))
        wait_for("the field to take a key", lambda: self.gallery.type("z") or EDITCHANGE in self.codes(field))
