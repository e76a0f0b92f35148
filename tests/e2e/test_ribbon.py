"""The ribbon and the value menu under a real pointer, in the gallery's text editor."""
import unittest

from gallery import Gallery

MENU_ROW = 20


class Ribbon(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.gallery = Gallery("Ribbon")

    @classmethod
    def tearDownClass(cls):
        cls.gallery.close()

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
        return max((c for c in self.gallery.controls() if c.class_name == "Edit"), key=lambda c: c.cy)

    def write(self, text):
        """Makes this the editor's text, through the ribbon and the keyboard."""
        self.show("Insert")
        self.click("New")
        self.gallery.type(text)
        self.gallery.lines()
        self.assertEqual(self.editor.text, text)

    # --- Tabs

    def test_a_click_on_a_tab_shows_its_page_and_reports_nothing(self):
        self.gallery.click(self.tab("View").middle)
        self.assertEqual(self.gallery.lines(), [])
        self.assertEqual(self.there("ribbon item"), ["Read only", "Fixed pitch", "Show the tab Review"])

    def test_hosted_windows_show_with_their_page_alone(self):
        self.assertEqual(len(self.there("ComboBox")), 1)
        self.show("Insert")
        self.assertEqual(self.there("ComboBox"), [])
        self.show("Home")
        self.assertEqual(len(self.there("ComboBox")), 1)

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
            self.gallery.move(copy.middle)
            self.gallery.press()
            self.gallery.move(end)
            self.gallery.release()
            self.assertEqual(self.item_commands(), [], f"released at {end}")

    def test_a_press_dragged_out_and_back_in_is_a_click(self):
        copy = self.item("Copy")
        self.gallery.move(copy.middle)
        self.gallery.press()
        self.gallery.move(self.editor.middle)
        self.gallery.move(copy.middle)
        self.gallery.release()
        self.assertEqual(self.item_commands(), [(copy.id, 0)])

    def test_a_click_beside_the_items_reports_nothing(self):
        ribbon = next(c for c in self.gallery.controls() if c.class_name == "GRibbon")
        for point in ((ribbon.x + ribbon.cx - 4, ribbon.y + 60), (ribbon.x + 20, ribbon.y + ribbon.cy - 8)):
            self.gallery.click(point)
        self.assertEqual(self.gallery.lines(), [])

    def test_buttons_act_on_the_text(self):
        self.write("one two")
        self.show("Home")
        self.click("Select everything")
        self.click("Cut")
        self.gallery.lines()
        self.assertEqual(self.editor.text, "")
        self.click("Paste")
        self.click("Paste")
        self.gallery.lines()
        self.assertEqual(self.editor.text, "one twoone two")

    def test_a_hosted_field_takes_the_keyboard(self):
        self.write("one two one")
        self.show("Home")
        field = min((c for c in self.gallery.controls() if c.class_name == "Edit"), key=lambda c: c.cy)
        self.gallery.click(field.middle)
        self.gallery.key("ctrl+a")
        self.gallery.type("two")
        self.click("Find")
        self.click("Cut")
        self.gallery.lines()
        self.assertEqual(self.editor.text, "one  one")

    # --- The value menu

    def open_menu(self):
        """Opens it in the text; gives the place of its first row."""
        x, y = self.editor.x + 300, self.editor.y + 150
        self.gallery.right_click((x, y))
        self.gallery.lines()
        return x + 20, y + MENU_ROW // 2

    def test_a_value_is_reported_with_its_row_and_ends_the_menu(self):
        self.write("one")
        x, y = self.open_menu()
        self.gallery.click((x, y + 3 * MENU_ROW))
        reported = [line for line in self.gallery.commands() if "GRightClickMenu" in line]
        self.assertEqual(reported, ["WM_COMMAND id 0 code 3 from GRightClickMenu ''"])
        # "Select all" acted, the menu is gone, and the text has the keyboard.
        self.gallery.type("two")
        self.gallery.lines()
        self.assertEqual(self.editor.text, "two")

    def test_a_click_elsewhere_dismisses_the_menu(self):
        x, y = self.open_menu()
        self.gallery.click(self.tab("Home").middle)
        self.gallery.lines()
        self.gallery.click((x, y + 3 * MENU_ROW))
        self.assertEqual([line for line in self.gallery.commands() if "GRightClickMenu" in line], [])
