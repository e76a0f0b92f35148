"""Check boxes, radio buttons, command links, the back button, the separator and the stand-alone scroll bar under a
real pointer and keyboard."""
import time
from gallery import GalleryTest, wait_for

BEGIN_DRAG, END_DRAG, DRAG = -101, -102, -103
LINE_UP, LINE_DOWN, PAGE_UP, PAGE_DOWN = 0, 1, 2, 3
PICTURE_HEIGHT = 420  # of what the scroll bar moves


class Choices(GalleryTest):
    PAGE = "Choices"

    def caption_of(self, control):
        """What stands below a control, once the gallery has dealt with all input."""
        self.gallery.lines()
        for label in self.gallery.controls():
            if label.class_name == "GLabel" and label.x == control.x and 0 <= label.y - control.y - control.cy < 6:
                return label.text
        return None

    def test_each_click_on_a_check_box_goes_on_to_the_next_mark(self):
        box = self.gallery.control("GCheckBox", "&Apples")
        marks = []
        for _ in range(3):
            self.gallery.click(box.middle)
            marks.append(self.caption_of(box))
        self.assertEqual(marks, ["checked", "mixed", "unchecked"])

    def test_space_and_mnemonic_click_a_check_box(self):
        box = self.gallery.control("GCheckBox", "&Bread")
        self.gallery.key("alt+b")
        self.assertEqual(self.caption_of(box), "mixed")
        self.gallery.click(box.middle)
        self.gallery.lines()
        self.gallery.key("space")
        self.assertEqual(self.gallery.commands(), [box.command()])

    def test_a_click_on_a_radio_button_lets_the_page_move_the_mark(self):
        radios = [self.gallery.control("GRadioButton", text) for text in ("&North", "&East", "&South")]
        self.gallery.click(radios[2].middle)
        self.assertEqual([self.caption_of(r) for r in radios], ["unchecked", "unchecked", "checked"])
        self.gallery.click(radios[0].middle)
        self.assertEqual([self.caption_of(r) for r in radios], ["checked", "unchecked", "unchecked"])

    def test_command_links_click_by_pointer_mnemonic_and_enter(self):
        keep = self.gallery.control("GCommandButton", "&Keep both files")
        replace = self.gallery.control("GCommandButton", "&Replace")
        template = self.gallery.control("GCommandButton", "From a &template")
        self.gallery.click(keep.middle)
        self.gallery.key("alt+r")
        self.gallery.click(template.middle)
        self.assertEqual(self.gallery.commands(), [keep.command(), replace.command(), template.command()])
        self.gallery.click(self.gallery.control("GCheckBox", "Icon").middle)
        self.gallery.lines()
        self.gallery.key("Return")
        self.assertEqual(self.gallery.commands(), [replace.command()])

    def test_the_back_button_clicks_by_pointer_and_space(self):
        back = self.gallery.control("GNavigationButton", "")
        self.gallery.lines()
        self.gallery.click(back.middle)
        self.gallery.key("space")
        self.assertEqual(self.gallery.commands(), [back.command(), back.command()])


class Separator(GalleryTest):
    PAGE = "Choices"

    def separator(self):
        return self.gallery.control("GSeparator", "")

    def panes(self):
        """The widths of the two panes that touch the separator."""
        strip = self.separator()
        beside = [c for c in self.gallery.controls() if c.class_name == "GLabel" and (c.y, c.cy) == (strip.y, strip.cy)]
        left = [c.cx for c in beside if c.x + c.cx == strip.x]
        right = [c.cx for c in beside if c.x == strip.x + strip.cx]
        self.assertEqual((len(left), len(right)), (1, 1))
        return left[0], right[0]

    def drag(self, *distances):
        """Drags the separator to one distance after another; what it reported of it, by code."""
        x, y = self.separator().middle
        self.gallery.lines()
        self.gallery.drag((x, y), *((x + distance, y) for distance in distances))
        start = f"WM_NOTIFY id {self.separator().id} code "
        return [int(line[len(start) :].split()[0]) for line in self.gallery.lines() if line.startswith(start + "-1")]

    def test_a_drag_moves_both_panes_with_the_pointer(self):
        left, right = self.panes()
        codes = self.drag(20, 45, 60)
        self.assertEqual((codes[0], codes[-1]), (BEGIN_DRAG, END_DRAG))
        self.assertEqual(set(codes[1:-1]), {DRAG})
        self.assertEqual(self.panes(), (left + 60, right - 60))
        self.drag(-60)
        self.assertEqual(self.panes(), (left, right))

    def test_a_drag_goes_on_outside_the_strip_until_the_release(self):
        left, right = self.panes()
        self.drag(400, 150, 0)
        self.assertEqual(self.panes(), (left, right))
        self.drag(-600)
        self.assertEqual(self.panes(), (40, left + right - 40))
        self.drag(left - 40)
        self.assertEqual(self.panes(), (left, right))


class Scrollbar(GalleryTest):
    PAGE = "Choices"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.bar = cls.gallery.control("GScrollbar", "")

    def setUp(self):
        self.drag_thumb(from_y=self.thumb_middle(), to_y=0)  # to the start
        self.assertEqual(self.position(), 0)

    def position(self):
        """How far the picture is scrolled, by where it stands."""
        self.gallery.lines()
        picture = [c for c in self.gallery.controls() if c.cy == PICTURE_HEIGHT]
        return self.bar.y - picture[0].y

    def thumb_middle(self):
        """Where the thumb of 22 pixels is, from the bar's top."""
        track = self.bar.cy - 56 + int(self.bar.cy / PICTURE_HEIGHT * (self.bar.cy - 34))
        return 17 + int(self.position() / PICTURE_HEIGHT * track) + 11

    def at(self, y):
        return self.bar.x + 8, self.bar.y + y

    def press(self, y):
        self.gallery.move(self.at(y))
        self.gallery.lines()
        self.gallery.press()

    def drag_thumb(self, from_y, to_y):
        self.press(from_y)
        self.gallery.move(self.at((from_y + to_y) // 2))
        self.gallery.move(self.at(to_y))
        self.gallery.release()

    def line(self, code, position=0):
        return f"WM_VSCROLL code {code} position {position} from GScrollbar ''"

    def test_dragging_the_thumb_moves_the_picture_in_proportion(self):
        track = self.bar.cy - 56 + int(self.bar.cy / PICTURE_HEIGHT * (self.bar.cy - 34))
        self.drag_thumb(from_y=28, to_y=38)
        self.assertEqual(self.position(), int(PICTURE_HEIGHT / track * 10))
        self.drag_thumb(from_y=self.thumb_middle(), to_y=500)
        self.assertEqual(self.position(), PICTURE_HEIGHT - self.bar.cy)

    def test_a_press_on_an_arrow_or_the_track_scrolls_at_once(self):
        for y, code in ((self.bar.cy - 8, LINE_DOWN), (self.bar.cy - 22, PAGE_DOWN), (20, PAGE_UP), (8, LINE_UP)):
            self.press(y)
            self.gallery.release()
            self.assertEqual(self.gallery.lines(), [self.line(code)])

    def test_a_held_arrow_repeats_after_half_a_second(self):
        self.gallery.move(self.at(self.bar.cy - 8))
        self.gallery.lines()
        start = time.monotonic()
        self.gallery.press()
        wait_for("the first line", lambda: self.gallery.pending() == [self.line(LINE_DOWN)])
        wait_for("a second line", lambda: len(self.gallery.pending()) > 1)
        self.assertGreaterEqual(time.monotonic() - start, 0.5)
        wait_for("more of them", lambda: len(self.gallery.pending()) > 3)
        self.gallery.release()
        count = len(self.gallery.lines())
        self.assertEqual(self.position(), 16 * count)
