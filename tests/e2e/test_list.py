"""The list view under a real pointer and keyboard: headers, dividers, selection, scroll bar, rename in place."""
import re
from gallery import DEADLINE, GalleryTest, wait_for

BORDER = 1
HEADER_AREA = 35
ROW = 22
BAR = 17  # breadth of a scroll bar, and height of its arrows
COLUMNS = {"name": 0, "size": 360, "type": 450}


class List(GalleryTest):
    PAGE = "List"

    def setUp(self):
        self.gallery.click(self.gallery.control("GButton", "&Folder").middle)
        self.gallery.lines()
        self.list = self.gallery.first("GList")

    # --- Where things are

    def header(self, column, dx=40):
        return self.list.x + BORDER + COLUMNS[column] + dx, self.list.y + BORDER + 12

    def row(self, row):
        return self.list.x + BORDER + 60, self.list.y + BORDER + HEADER_AREA + row * ROW + ROW // 2

    def bar(self, y):
        return self.list.x + self.list.cx - BORDER - BAR // 2, self.list.y + y

    def status(self):
        """Of the page's status line: how many are selected, the first one's name, and the last words."""
        self.gallery.lines()
        text = next(c.text for c in self.gallery.controls() if " selected" in c.text)
        found = re.search(r": (\d+) of (\d+) selected(?:, first ([^;]*))?(?:; (.*))?$", text)
        return int(found[1]), found[3], found[4]

    def first_names(self, count):
        names = []
        for row in range(count):
            self.gallery.click(self.row(row))
            names.append(self.status()[1])
        return names

    # --- Tests

    def test_a_list_of_a_hundred_million_rows_is_walked_and_selected(self):
        self.gallery.click(self.gallery.control("GButton", "100 m&illion").middle)
        self.gallery.click(self.row(2))
        self.assertEqual(self.status()[:2], (1, "Row 2"))
        self.gallery.key("End")
        self.assertEqual(self.status()[:2], (1, "Row 99999999"))
        self.gallery.key("shift+Home")
        self.assertEqual(self.status()[:2], (100_000_000, "Row 0"))
        self.gallery.drag(self.bar(BAR + BAR // 2), self.bar(self.list.cy // 2))
        self.gallery.click(self.row(5))
        count, name, _ = self.status()
        self.assertEqual(count, 1)
        self.assertGreater(int(name.removeprefix("Row ")), 30_000_000)

    def test_a_header_click_sorts_and_a_second_one_reverses(self):
        self.gallery.click(self.header("name"))
        ascending = self.first_names(3)
        self.assertEqual(ascending, sorted(ascending, key=str.lower))
        self.gallery.click(self.header("name"))
        descending = self.first_names(3)
        self.assertEqual(descending, sorted(descending, key=str.lower, reverse=True))
        self.assertNotEqual(ascending, descending)

    def test_a_drag_of_the_divider_sizes_the_column(self):
        self.gallery.click(self.header("size"))
        before = self.first_names(1)
        x, y = self.header("size", 0)
        self.gallery.drag((x, y), *((x - 10 * step, y) for step in range(1, 9)))
        # What was the name column's end is the size column's now, whose click sorts the other way round.
        self.gallery.click((x - 40, y))
        self.assertNotEqual(self.first_names(1), before)

    def test_shift_and_ctrl_extend_and_invert_the_selection(self):
        self.gallery.click(self.row(1))
        self.assertEqual(self.status()[0], 1)
        self.gallery.key_down("shift")
        self.gallery.click(self.row(4))
        self.gallery.key_up("shift")
        self.assertEqual(self.status()[0], 4)
        self.gallery.key_down("ctrl")
        self.gallery.click(self.row(2))
        self.gallery.click(self.row(6))
        self.gallery.key_up("ctrl")
        self.assertEqual(self.status()[0], 4)
        self.gallery.click(self.row(0))
        self.assertEqual(self.status()[0], 1)

    def test_keys_move_the_selection_and_ctrl_a_takes_all(self):
        self.gallery.click(self.row(0))
        first = self.status()[1]
        self.gallery.key("Down")
        self.assertNotEqual(self.status()[1], first)
        self.gallery.key("shift+Down")
        self.assertEqual(self.status()[0], 2)
        self.gallery.key("Home")
        self.assertEqual(self.status()[:2], (1, first))
        self.gallery.key("ctrl+a")
        self.assertGreater(self.status()[0], 100)

    def test_the_thumb_the_arrow_and_the_track_of_a_bar_scroll(self):
        def first_after(act):
            act()
            self.gallery.click(self.row(3))
            return self.status()[1]

        top = self.first_names(1)
        start = first_after(lambda: self.gallery.key("Home"))
        thumb = [self.bar(y) for y in range(BAR + 8, self.list.cy - BAR, 20)]
        self.assertNotEqual(first_after(lambda: self.gallery.drag(self.bar(BAR + 8), *thumb)), start)
        self.gallery.key("Home")
        self.assertEqual(self.first_names(1), top)
        by_line = first_after(lambda: self.gallery.click(self.bar(self.list.cy - BORDER - BAR // 2)))
        self.assertNotEqual(by_line, start)
        track = self.bar(self.list.cy - BORDER - 2 * BAR)
        self.assertNotEqual(first_after(lambda: self.gallery.click(track)), by_line)
        page_back = self.bar(BORDER + BAR + 3)
        self.assertEqual(first_after(lambda: self.gallery.click(page_back)), by_line)
        self.gallery.key("Home")

    def test_the_lower_thumb_scrolls_across(self):
        x, y = self.header("size", 0)
        self.gallery.drag((x, y), *((x + 30 * step, y) for step in range(1, 11)))
        before = self.end_of_names()
        thumb = self.list.x + BORDER + BAR + 30, self.list.y + self.list.cy - BORDER - BAR // 2
        self.gallery.drag(thumb, *((thumb[0] + 40 * step, thumb[1]) for step in range(1, 21)))
        self.assertLess(self.end_of_names(), before - 100)

    def end_of_names(self):
        """Where the first column ends, as far as it is in sight."""
        name = next(c for c in self.gallery.settled() if c.class_name == "list item")
        return name.x + name.cx

    def test_a_name_is_edited_in_place(self):
        self.gallery.click(self.row(2))
        self.gallery.key("F2")
        wait_for("the edit window", self.edit_window)
        self.gallery.key("a", "b", "c", "Return")
        self.assertEqual(self.status()[1:], ("abc", "renamed to abc"))
        self.gallery.key("F2", "x", "Escape")
        self.assertEqual(self.status()[1], "abc")
        self.gallery.key("F2", "d", "e")
        self.gallery.click(self.row(5))
        self.assertEqual(self.status()[2], "renamed to de")

    def edit_window(self):
        self.gallery.lines()
        return [c for c in self.gallery.controls() if c.class_name == "GEdit"]

    def test_every_view_shows_and_a_hundred_thousand_rows_scroll(self):
        self.gallery.click(self.gallery.control("GCheckBox", "&Groups").middle)
        self.gallery.lines()
        self.gallery.click(self.gallery.control("GCheckBox", "&Groups").middle)
        for view in ("&Tiles", "&Icons", "&Details"):
            self.gallery.click(self.gallery.control("GRadioButton", view).middle)
            self.gallery.lines()
        self.gallery.click(self.gallery.control("GButton", "100,000 ro&ws").middle)
        wait_for("all rows", lambda: "filled in" in (self.status()[2] or ""), deadline=3 * DEADLINE, every=0.5)
        self.gallery.click(self.row(0))
        self.gallery.key("End")
        self.assertEqual(self.status()[1], "Row 99999")
