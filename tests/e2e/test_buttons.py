"""Push buttons under a real pointer and keyboard."""
from gallery import GalleryTest


class Buttons(GalleryTest):
    PAGE = "Buttons"

    def setUp(self):
        self.plain = self.gallery.button("Plain")
        self.default = self.gallery.button("Default")
        self.gallery.click(self.plain.middle)  # the focus starts on "Plain"
        self.gallery.lines()

    def test_a_click_takes_the_focus_and_then_reports_one_command(self):
        self.gallery.click(self.default.middle)
        self.assertEqual(
            self.gallery.lines(),
            [self.plain.notify("NM_KILLFOCUS"), self.default.notify("NM_SETFOCUS"), self.default.command()],
        )

    def test_a_press_reports_nothing_before_its_release(self):
        self.gallery.move(self.plain.middle)
        self.gallery.press()
        self.assertEqual(self.gallery.commands(), [])
        self.gallery.release()
        self.assertEqual(self.gallery.commands(), [self.plain.command()])

    def test_a_release_outside_is_no_click(self):
        self.gallery.drag(self.plain.middle, self.plain.outside)
        self.assertEqual(self.gallery.commands(), [])

    def test_a_press_dragged_out_and_back_in_is_a_click(self):
        self.gallery.drag(self.plain.middle, self.plain.outside, self.plain.middle)
        self.assertEqual(self.gallery.commands(), [self.plain.command()])

    def test_a_press_begun_outside_is_no_click(self):
        self.gallery.drag(self.plain.outside, self.plain.middle)
        self.assertEqual(self.gallery.commands(), [])

    def test_space_clicks_the_button_that_has_the_focus(self):
        self.gallery.key("space")
        self.assertEqual(self.gallery.commands(), [self.plain.command()])

    def test_tab_moves_on_and_space_clicks_there(self):
        self.gallery.key("Tab", "space")
        self.assertEqual(
            self.gallery.lines(),
            [self.plain.notify("NM_KILLFOCUS"), self.default.notify("NM_SETFOCUS"), self.default.command()],
        )

    def test_space_held_while_the_focus_moves_on_is_a_click(self):
        self.gallery.key_down("space")
        self.gallery.key("Tab")
        self.assertEqual(
            self.gallery.lines(),
            [self.plain.command(), self.plain.notify("NM_KILLFOCUS"), self.default.notify("NM_SETFOCUS")],
        )
        self.gallery.key_up("space")
        self.assertEqual(self.gallery.commands(), [])

    def test_enter_clicks_the_default_button(self):
        self.gallery.key("Return")
        self.assertEqual(self.gallery.commands(), [self.default.command()])

    def test_alt_and_the_mnemonic_click_its_button(self):
        apply = self.gallery.button("&Apply now")
        self.gallery.key("alt+a")
        self.assertEqual(self.gallery.commands(), [apply.command()])

    def test_a_disabled_button_reports_nothing_and_takes_no_focus(self):
        self.gallery.click(self.gallery.button("Disabled").middle)
        self.assertEqual(self.gallery.lines(), [])

    def test_a_button_of_a_dialog_template_clicks_like_any_other(self):
        button = self.gallery.button("From a &template")
        self.gallery.click(button.middle)
        self.assertEqual(self.gallery.commands(), [button.command()])
