"""The trees under a real pointer and keyboard: expansion, movement, type-ahead, the scroll bar, and the navigation
pane that fills a list."""
from gallery import GalleryTest, xdotool

INDENT = 15
EXPANDING, EXPANDED, CLICKED = -454, -455, "NM_CLICK"


class Trees(GalleryTest):
    PAGE = "Trees"

    def setUp(self):
        self.tree = self.gallery.first("GTree")
        # The page's own: the other one is the list of pages.
        self.bar = [c for c in self.gallery.controls() if c.class_name == "GNavigationBar"][-1]

    # --- Where things are

    def rows(self):
        """The rows in sight; the id is the level, and the selected one's text begins with a star."""
        self.gallery.lines()
        return [c for c in self.gallery.controls() if c.class_name == "row"]

    def names(self):
        return [c.text.lstrip("*") for c in self.rows()]

    def selected(self):
        return next((c.text[1:] for c in self.rows() if c.text.startswith("*")), None)

    def row(self, name):
        return next(c for c in self.rows() if c.text.lstrip("*").lower() == name.lower())

    def expander(self, name, dx=0):
        row = self.row(name)
        return row.x + row.id * INDENT + INDENT // 2 + dx, row.y + row.cy // 2

    def label(self, name):
        row = self.row(name)
        return row.x + row.id * INDENT + 80, row.y + row.cy // 2

    def reported(self):
        return [line for line in self.gallery.lines() if line.startswith("WM_NOTIFY")]

    # --- Tests

    def test_a_folder_of_a_million_entries_opens_and_leads_to_its_end(self):
        million = self.gallery.control("GCheckBox", "A &million").middle
        self.gallery.click(million)
        self.addCleanup(self.gallery.click, million)
        self.assertIn("A million entries", self.names())
        self.gallery.click(self.label("Entry 1"))
        self.gallery.key("End")
        self.assertEqual(self.selected(), "Entry 1000000")
        self.gallery.key("Left")
        self.assertEqual(self.selected(), "A million entries")

    def test_a_folder_of_a_million_goes_in_classic_with_its_row(self):
        switch = self.gallery.control("command", "Page in Classic").middle
        self.gallery.click(switch)
        self.addCleanup(self.gallery.click, switch)
        names = self.names()
        million = self.gallery.control("GCheckBox", "A &million").middle
        self.gallery.click(million)
        self.assertIn("A million entries", self.names())
        self.gallery.click(million)
        self.assertEqual(self.names(), names)

    def test_an_expander_opens_and_closes_its_branch(self):
        # Two places, so that the clicks make no double click.
        counts = [len(self.names())]
        for dx in (-5, 5):
            self.gallery.click(self.expander("windows", dx))
            counts.append(len(self.names()))
        self.assertEqual(counts[0], counts[2])
        self.assertNotEqual(counts[0], counts[1])

    def test_a_click_selects_and_keys_move_on(self):
        self.gallery.click(self.label("windows"))
        self.assertEqual(self.selected().lower(), "windows")
        names = self.names()
        self.gallery.key("Down")
        self.assertEqual(self.selected(), names[names.index(self.row("windows").text.lstrip("*")) + 1])
        self.gallery.key("Up", "Left")
        self.gallery.key("Left")
        self.assertEqual(self.selected(), names[0])
        self.gallery.key("Right")
        self.assertNotEqual(self.selected(), names[0])

    def find_system_folder(self):
        self.gallery.click(self.label("windows"))
        if "system32" not in [name.lower() for name in self.names()]:
            self.gallery.key("Right")
        self.gallery.type("system32")

    def test_what_is_typed_is_found(self):
        self.find_system_folder()
        self.assertEqual(self.selected().lower(), "system32")

    def test_the_wheel_and_the_arrow_of_the_bar_scroll(self):
        self.find_system_folder()
        self.gallery.key("Right", "Home")  # more rows than the tree has room for
        first = self.names()[0]
        self.gallery.move(self.label(first))
        xdotool("click", 5)
        self.assertNotEqual(self.names()[0], first)
        xdotool("click", 4)
        self.assertEqual(self.names()[0], first)
        self.gallery.click((self.tree.x + self.tree.cx - 9, self.tree.y + self.tree.cy - 9))
        self.assertNotEqual(self.names()[0], first)
        self.gallery.key("Home")
        self.assertEqual(self.names()[0], first)
        self.gallery.key("End")
        self.assertNotIn(first, self.names())
        self.gallery.key("Home")

    def test_check_boxes_are_ticked_by_the_page(self):
        self.gallery.click(self.gallery.control("GCheckBox", "&Check boxes").middle)
        row = self.row("windows")
        self.gallery.click((row.x + row.id * INDENT + INDENT + 7, row.y + row.cy // 2))
        self.assertIn(self.tree.notify(CLICKED), self.reported())
        self.gallery.click(self.gallery.control("GCheckBox", "&Check boxes").middle)

    def test_the_navigation_pane_switches_the_list(self):
        row, bar, glyph = 34, 17, 15
        right, top = self.bar.x + self.bar.cx, self.bar.y
        self.gallery.lines()
        self.gallery.click((right - glyph, top + row + row // 2))  # the first place, below the header
        reported = self.reported()
        self.assertIn(self.bar.notify(EXPANDING), reported)
        self.assertIn(self.bar.notify(EXPANDED), reported)
        self.gallery.click((self.bar.x + self.bar.cx // 2, top + 2 * row + 10))  # its first folder
        self.assertIn(self.bar.notify(CLICKED), self.reported())
        # The pane has a scroll bar by now.
        self.gallery.click((right - bar - glyph, top + row + row // 2))
        self.assertIn(self.bar.notify(EXPANDED), self.reported())

    def test_the_separator_gives_the_list_more_room(self):
        strip = self.gallery.first("GSeparator")
        self.gallery.drag(strip.middle, *((strip.middle[0] + dx, strip.middle[1]) for dx in (-10, -30, -50)))
        self.gallery.lines()
        moved = self.gallery.first("GSeparator")
        self.assertEqual(moved.x, strip.x - 50)
        self.gallery.drag(moved.middle, (moved.middle[0] + 50, moved.middle[1]))
        self.gallery.lines()
