"""The ribbon and the value menu under a real pointer, in the gallery's text editor."""
import importlib.util
import pathlib
import tempfile
from gallery import GalleryTest, save_pictures

ROOT = pathlib.Path(__file__).parents[2]
MENU_ROW = 20
CBN_SELCHANGE = 1
TAB_CHANGED = -700
OPAQUE = 255


def template_tool():
    description = importlib.util.spec_from_file_location("ribbon_template", ROOT / "scripts/ribbon-template.py")
    tool = importlib.util.module_from_spec(description)
    description.loader.exec_module(tool)
    return tool


class Picture:
    """Rows of blue, green and red, the lowest one first, and as many rows of alphas."""

    def __init__(self, path):
        self.width, self.height, pixels = template_tool().read_strip(path)
        rows = [pixels[y * self.width * 4 : (y + 1) * self.width * 4] for y in range(self.height)]
        self.alphas = [row[3::4] for row in rows]
        self.rows = [b"".join(row[i : i + 3] for i in range(0, len(row), 4)) for row in rows]

    def solid_parts(self, left, right):
        """The solid stretches of each row between two columns: x, counted from the left one, y, and the bytes."""
        for y, alphas in enumerate(self.alphas):
            x = left
            while x < right:
                end = x
                while end < right and alphas[end] == OPAQUE:
                    end += 1
                if end > x:
                    yield x - left, y, self.rows[y][3 * x : 3 * end]
                x = max(end, x + 1)

    def shows(self, parts):
        """Whether all of the stretches stand somewhere in the picture as they stand to one another."""
        start_x, start_y, needle = max(parts, key=lambda part: len(part[2]))
        for y, row in enumerate(self.rows):
            at = row.find(needle)
            while at >= 0:
                left, bottom = at - 3 * start_x, y - start_y
                if at % 3 == 0 and all(
                    0 <= bottom + py < self.height
                    and self.rows[bottom + py][left + 3 * px : left + 3 * px + len(part)] == part
                    for px, py, part in parts
                ):
                    return True
                at = row.find(needle, at + 1)
        return False


class Ribbon(GalleryTest):
    PAGE = "Ribbon"

    def setUp(self):
        self.show("Home")

    def tab(self, title):
        return self.gallery.control("ribbon tab", title)

    def item(self, text):
        return self.gallery.control("ribbon item", text)

    def there(self, class_name):
        return [control.text for control in self.gallery.controls() if control.class_name == class_name]

    def show(self, title):
        self.gallery.click(self.tab(title).middle)
        self.gallery.lines()

    def click(self, text):
        self.gallery.click(self.item(text).middle)

    def item_commands(self):
        """The items that were clicked since the last call, each with its value."""
        words = (line.split() for line in self.gallery.commands() if " from " not in line)
        return [(int(line[2]), int(line[6])) for line in words]

    @property
    def editor(self):
        return max((c for c in self.gallery.controls() if c.class_name == "GEdit"), key=lambda c: c.cy)

    def text(self):
        """The editor's, once the gallery has dealt with all input."""
        self.gallery.lines()
        return self.editor.text

    def write(self, text):
        """Makes this the editor's text, through the ribbon and the keyboard."""
        self.show("Insert")
        self.click("New")
        self.gallery.type(text)
        self.assertEqual(self.text(), text)

    # --- Images

    def test_the_templates_images_come_out_as_they_went_in(self):
        with tempfile.TemporaryDirectory() as folder:
            save_pictures(folder)
            page = Picture(pathlib.Path(folder, "ribbon.png"))
        for size, images in ((32, {"Paste": 1, "Undo": 5, "Find": 7}), (16, {"Cut": 2, "Copy": 3, "bold": 8})):
            strip = Picture(ROOT / f"gallery/ribbon-{size}.png")
            for name, image in images.items():
                parts = list(strip.solid_parts(image * size, (image + 1) * size))
                self.assertGreater(sum(len(part[2]) for part in parts), 3 * 16, f"{name} is too faint to be found")
                self.assertTrue(page.shows(parts), f"{name} of {size}")

    # --- Tabs

    def test_a_click_on_a_tab_shows_its_page_and_tells_of_it(self):
        self.gallery.click(self.tab("View").middle)
        self.assertEqual(self.gallery.lines(), [f"WM_NOTIFY id 0 code {TAB_CHANGED} from GRibbon ''"])
        self.assertEqual(self.there("ribbon item"), ["Locked", "Fixed pitch", "Show the tab Review"])

    def test_hosted_windows_show_with_their_page_alone(self):
        self.assertEqual(len(self.there("GComboBox")), 1)
        self.show("Insert")
        self.assertEqual(self.there("GComboBox"), [])
        self.show("Home")
        self.assertEqual(len(self.there("GComboBox")), 1)

    def test_a_check_box_reports_its_new_state_and_shows_the_hidden_tab(self):
        self.assertNotIn("Review", self.there("ribbon tab"))
        self.show("View")
        box = self.item("Show the tab Review")
        self.click(box.text)
        self.assertEqual(self.item_commands(), [(box.id, 1)])
        self.show("Review")
        self.assertIn("To upper case", self.there("ribbon item"))
        self.show("View")
        self.click(box.text)
        self.assertEqual(self.item_commands(), [(box.id, 0)])
        self.assertNotIn("Review", self.there("ribbon tab"))

    # --- Buttons

    def test_a_button_reports_when_it_is_released_over_the_item_of_the_press(self):
        copy, undo = self.item("Copy"), self.item("Undo")
        self.gallery.move(copy.middle)
        self.gallery.press()
        self.assertEqual(self.item_commands(), [])
        self.gallery.release()
        self.assertEqual(self.item_commands(), [(copy.id, 0)])
        for end in (undo.middle, copy.outside, self.tab("Insert").middle, self.editor.middle):
            self.gallery.drag(copy.middle, end)
            self.assertEqual(self.item_commands(), [], f"released at {end}")
        self.gallery.drag(copy.middle, self.editor.middle, copy.middle)
        self.assertEqual(self.item_commands(), [(copy.id, 0)], "dragged out and back in")

    def test_buttons_act_on_the_text(self):
        self.write("one two")
        self.show("Home")
        self.click("Select everything")
        self.click("Cut")
        self.assertEqual(self.text(), "")
        self.click("Paste")
        self.click("Paste")
        self.assertEqual(self.text(), "one twoone two")
        self.click("Undo")
        self.assertEqual(self.text(), "one two")

    def test_a_locked_text_keeps_what_it_has(self):
        self.write("one")
        for text, left in (("two", "one"), ("two", "two")):
            self.show("View")
            self.click("Locked")
            self.show("Insert")
            new = self.item("New")
            self.click(new.text)
            self.assertEqual(self.item_commands(), [(new.id, 0)])
            self.gallery.type(text)
            self.assertEqual(self.text(), left)

    def test_a_hosted_field_takes_the_keyboard(self):
        self.write("one two one")
        self.show("Home")
        field = min((c for c in self.gallery.controls() if c.class_name == "GEdit"), key=lambda c: c.cy)
        self.gallery.click(field.middle)
        self.gallery.key("ctrl+a")
        self.gallery.type("two")
        self.click("Find")
        self.click("Cut")
        self.assertEqual(self.text(), "one  one")

    def test_what_a_hosted_box_reports_reaches_the_ribbons_parent(self):
        box = self.gallery.first("GComboBox")
        self.gallery.click(box.middle)
        self.gallery.key("Down", "Return")
        reported = f"WM_COMMAND id {box.id} code {CBN_SELCHANGE} from GComboBox '10 points'"
        self.assertIn(reported, self.gallery.commands())

    def test_tab_goes_to_the_ribbon_and_arrows_to_hosted_windows_in_it(self):
        self.gallery.click(self.editor.middle)
        self.gallery.lines("ctrl+shift+Tab")
        ribbon = [c for c in self.gallery.controls() if c.class_name == "GRibbon"][-1]
        self.assertEqual(self.gallery.first("focus").id, ribbon.id)
        self.gallery.lines("Down", *["Right"] * 7, "Return")
        self.assertEqual(self.gallery.first("focus").id, self.gallery.first("GComboBox").id)
        self.gallery.lines("Tab")
        field = min((c for c in self.gallery.controls() if c.class_name == "GEdit"), key=lambda c: c.cy)
        if self.gallery.first("focus").id == field.id:  # Wine goes on within the ribbon, Windows leaves it
            self.gallery.lines("Tab")
        self.assertEqual(self.gallery.first("focus").id, self.editor.id)

    # --- The value menu

    def open_menu(self):
        """Opens it in the text; gives the place of its first row."""
        x, y = self.editor.x + 300, self.editor.y + 150
        self.gallery.right_click((x, y))
        self.gallery.lines()
        return x + 20, y + MENU_ROW // 2

    def test_a_value_acts_and_ends_the_menu(self):
        self.write("one")
        x, y = self.open_menu()
        self.gallery.click((x, y + 3 * MENU_ROW))
        self.assertEqual([line for line in self.gallery.commands() if "GRightClickMenu" in line], [])
        # "Select all" acted, the menu is gone, and the text has the keyboard.
        self.gallery.type("two")
        self.assertEqual(self.text(), "two")

    def test_a_click_elsewhere_dismisses_the_menu(self):
        x, y = self.open_menu()
        self.gallery.click(self.tab("Home").middle)  # which it reaches
        self.assertIn("Paste", self.there("ribbon item"))
        self.gallery.lines()
        self.gallery.click((x, y + 3 * MENU_ROW))  # in the text
        self.gallery.lines()
        self.gallery.type("x")
        self.assertGreater(len(self.text()), 1, "nothing was selected")
