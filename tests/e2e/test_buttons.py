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

    def test_only_a_press_and_a_release_inside_are_a_click(self):
        inside, outside = self.plain.middle, self.plain.outside
        for path, clicks in (([inside, outside], 0), ([inside, outside, inside], 1), ([outside, inside], 0)):
            self.gallery.drag(*path)
            self.assertEqual(self.gallery.commands(), [self.plain.command()] * clicks, path)

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

    def test_space_enter_and_a_mnemonic_click_their_buttons(self):
        for key, text in (("space", "Plain"), ("Return", "Default"), ("alt+a", "&Apply now")):
            self.gallery.key(key)
            self.assertEqual(self.gallery.commands(), [self.gallery.button(text).command()], key)

    def test_a_disabled_button_reports_nothing_and_takes_no_focus(self):
        self.gallery.click(self.gallery.button("Disabled").middle)
        self.assertEqual(self.gallery.lines(), [])

    def test_a_button_of_a_dialog_template_clicks_like_any_other(self):
        button = self.gallery.button("From a &template")
        self.gallery.click(button.middle)
        self.assertEqual(self.gallery.commands(), [button.command()])
