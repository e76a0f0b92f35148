"""What users of Windows know, in the gallery as a new program has it: right clicks, the menu key, mnemonics, groups
of radio buttons, renaming, selecting by rectangle, the ribbon by keyboard; and a page made anew in Classic."""
import re
from gallery import GalleryTest

ROW = 22
HEADER_AREA = 36
TAB_CHANGED = -700
TREE_SELECTION_CHANGED = -451


def menus(lines):
    return [line for line in lines if line.startswith("WM_CONTEXTMENU")]


class ModernList(GalleryTest):
    PAGE = "List"

    def setUp(self):
        self.gallery.click(self.gallery.button("&Folder").middle)
        self.gallery.lines()
        self.list = self.gallery.first("GList")

    def row(self, row, dx=60):
        return self.list.x + dx, self.list.y + HEADER_AREA + row * ROW + ROW // 2

    def selected(self):
        """How many are selected, and the first one's name."""
        self.gallery.lines()
        text = next(c.text for c in self.gallery.controls() if " selected" in c.text)
        found = re.search(r": (\d+) of \d+ selected(?:, first ([^;]*))?", text)
        return int(found[1]), found[2]

    def test_a_right_click_selects_tells_and_asks_for_a_menu_where_it_was(self):
        self.gallery.click(self.row(1))
        first = self.selected()
        x, y = self.row(3)
        self.gallery.right_click((x, y))
        lines = self.gallery.lines()
        self.assertIn(self.list.notify("NM_RCLICK"), lines)
        place = f"at {x - self.list.x - 1}, {y - self.list.y - 1}"
        self.assertEqual(menus(lines), [f"WM_CONTEXTMENU {place} from GList ''"])
        self.assertNotEqual(self.selected(), first)
        self.assertEqual(self.selected()[0], 1)

    def test_the_menu_key_and_shift_f10_ask_for_one_menu_each(self):
        self.gallery.click(self.row(1))
        self.gallery.lines()
        for key in ("Menu", "shift+F10"):
            self.gallery.key(key)
            lines = menus(self.gallery.lines())
            self.assertEqual(lines, ["WM_CONTEXTMENU by the keyboard from GList ''"], key)

    def test_a_drag_from_empty_room_selects_what_the_rectangle_touches(self):
        right = self.list.cx - 60
        start = self.row(5, right)
        self.gallery.drag(start, self.row(4, right - 20), self.row(3, 200), self.row(2, 120))
        self.assertEqual(self.selected()[0], 4)
        self.gallery.key_down("ctrl")
        self.gallery.drag(self.row(9, right), self.row(8, right - 20), self.row(8, 200))
        self.gallery.key_up("ctrl")
        self.assertEqual(self.selected()[0], 6)
        self.gallery.click(start)
        self.assertEqual(self.selected()[0], 0)

    def test_a_word_that_is_typed_leads_to_its_item(self):
        self.gallery.click(self.row(0))
        self.gallery.lines()
        self.gallery.type("notepad")
        self.assertTrue(self.selected()[1].lower().startswith("notepad"))

    def test_radio_buttons_are_a_group_for_arrows_and_mnemonics(self):
        details, tiles, icons = (self.gallery.control("GRadioButton", t) for t in ("&Details", "&Tiles", "&Icons"))
        self.gallery.click(details.middle)
        self.gallery.lines()
        self.gallery.key("Right")
        self.assertEqual(self.gallery.commands(), [tiles.command()])
        self.gallery.key("Right", "Right")
        self.assertEqual(self.gallery.commands(), [icons.command(), details.command()], "and around the end")
        self.gallery.key("alt+i")
        self.assertEqual(self.gallery.commands(), [icons.command()])
        self.gallery.click(details.middle)
        self.gallery.lines()

    def test_a_page_in_classic_is_made_anew_and_acts_as_ever(self):
        switch = self.gallery.control("command", "Page in Classic")
        try:
            self.gallery.click(switch.middle)
            self.gallery.lines()
            self.gallery.click(self.row(1))
            self.gallery.lines()
            self.gallery.right_click(self.row(3))
            self.gallery.key("Menu")
            lines = self.gallery.lines()
            self.assertEqual(menus(lines), [])
            self.assertNotIn(self.list.notify("NM_RCLICK"), lines)
        finally:
            self.gallery.click(switch.middle)
        self.gallery.right_click(self.row(3))
        self.assertEqual(len(menus(self.gallery.lines())), 1)


class ModernTree(GalleryTest):
    PAGE = "Trees"

    def setUp(self):
        self.gallery.lines()
        self.tree = self.gallery.first("GTree")

    def label(self, name):
        row = next(c for c in self.gallery.settled() if c.class_name == "row" and c.text.lstrip("*").lower() == name)
        return row.x + row.id * 15 + 80, row.y + row.cy // 2

    def fields(self):
        return [c for c in self.gallery.settled() if c.class_name == "GEdit"]

    def test_keys_tell_of_the_selection_and_f2_opens_a_field(self):
        self.gallery.click(self.label("windows"))
        self.gallery.lines()
        self.gallery.key("Up")
        self.assertIn(self.tree.notify(TREE_SELECTION_CHANGED), self.gallery.lines())
        self.gallery.key("F2")
        self.assertEqual(len(self.fields()), 1)
        self.gallery.type("x")
        self.gallery.key("Escape")
        self.assertEqual(self.fields(), [])
        self.assertEqual(self.gallery.first("focus").id, self.tree.id)

    def test_right_click_and_menu_key(self):
        self.gallery.right_click(self.label("windows"))
        lines = self.gallery.lines()
        self.assertIn(self.tree.notify("NM_RCLICK"), lines)
        self.assertEqual(len(menus(lines)), 1)
        self.gallery.key("Menu")
        self.assertEqual(menus(self.gallery.lines()), ["WM_CONTEXTMENU by the keyboard from GTree ''"])


class ModernRibbon(GalleryTest):
    PAGE = "Ribbon"

    def setUp(self):
        self.gallery.click(self.gallery.control("ribbon tab", "Home").middle)
        self.gallery.click(self.editor.middle)
        self.gallery.lines()

    @property
    def editor(self):
        return max((c for c in self.gallery.controls() if c.class_name == "GEdit"), key=lambda c: c.cy)

    @property
    def ribbon(self):
        return [c for c in self.gallery.controls() if c.class_name == "GRibbon"][-1]

    def items(self):
        return [c.text for c in self.gallery.settled() if c.class_name == "ribbon item"]

    def focus(self):
        self.gallery.lines()
        return self.gallery.first("focus").id

    def test_one_stop_with_tabs_items_and_a_way_back(self):
        home = self.items()
        self.gallery.lines("ctrl+shift+Tab")
        self.assertEqual(self.focus(), self.ribbon.id)
        self.gallery.key("Right")
        self.assertIn(self.ribbon.notify(TAB_CHANGED), self.gallery.lines())
        self.assertIn("Date", self.items())
        self.gallery.key("Left", "Left")
        self.assertEqual(self.items(), home)
        self.gallery.key("ctrl+Next")
        self.assertIn("Date", self.items())
        self.gallery.key("ctrl+Prior")
        self.assertEqual(self.items(), home)
        copy = self.gallery.control("ribbon item", "Copy")
        self.gallery.lines()
        self.gallery.key("Down", "Right", "Right", "space")
        told = [line for line in self.gallery.commands() if "GEdit" not in line]  # whose focus it tells
        self.assertEqual(told, [f"WM_COMMAND id {copy.id} code 0 value 0"])
        self.gallery.click(self.editor.middle)
        self.gallery.lines("ctrl+shift+Tab")
        self.assertEqual(self.focus(), self.ribbon.id)
        self.gallery.key("Escape")
        self.assertEqual(self.focus(), self.editor.id)

    def test_the_value_menu_takes_keys_and_leaves_the_focus(self):
        self.gallery.key("ctrl+a", "Menu")
        self.gallery.lines()
        self.gallery.type("x")
        self.gallery.key("Up", "Return")  # the last one: today's date, in the place of all
        self.gallery.lines()
        self.assertRegex(self.editor.text, r"20\d\d")
        self.assertEqual(self.focus(), self.editor.id)
        self.gallery.key("ctrl+a", "Menu", "Escape", "z")
        self.gallery.lines()
        self.assertEqual(self.editor.text, "z")
