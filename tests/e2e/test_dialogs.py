"""The library's dialogs under a real pointer and keyboard, with their real modality."""
import pathlib
import tempfile
import unittest

from gallery import GalleryTest, save_pictures, wait_for, window_titled

DIALOG = "#32770"


class DialogTest(GalleryTest):
    PAGE = "Dialogs"

    def tearDown(self):
        """Whatever a test did, the next one starts without a dialog, and the gallery takes input again."""
        for _ in range(3):
            if self.titles():
                self.gallery.key("Escape")
        self.assertEqual(self.titles(), [])
        self.assertEqual(self.state("owner"), "enabled")
        self.assertEqual(self.state("active"), "Gesso gallery")

    def look(self):
        """What stands where, once all input has been dealt with."""
        return self.gallery.settled()

    def state(self, kind):
        return next(c.text for c in self.look() if c.class_name == kind)

    def titles(self):
        """The dialogs that are open, the one in front first; a wizard's pages have no title."""
        return [c.text for c in self.look() if c.class_name == DIALOG and c.text]

    def open(self, text):
        self.gallery.click(self.gallery.button(text).middle)
        return self.opened()

    def opened(self):
        """The dialog that comes up: the platform shows it only when no input is waiting."""
        dialog = wait_for("a dialog", lambda: next((c for c in self.look() if c.class_name == DIALOG), None))
        self.assertEqual(self.state("owner"), "disabled")
        self.assertEqual(self.state("active"), dialog.text)
        return dialog

    def in_dialog(self, class_name, text):
        """A control of the topmost dialog: the gallery writes the dialogs' controls behind its own."""
        return [c for c in self.look() if (c.class_name, c.text) == (class_name, text)][-1]

    def press(self, text):
        self.gallery.click(self.in_dialog("GButton", text).middle)

    def answer(self):
        """What the gallery shows as the answer, once no dialog is open."""
        self.assertEqual(self.titles(), [])
        marks = ("ID", "WZB_", "no button", "the dialog could")
        return next(c.text for c in self.look() if c.class_name == "GLabel" and c.text.startswith(marks))

    def close_box(self, dialog):
        """The close box at the right end of the caption."""
        return dialog.x + dialog.cx - 14, dialog.y + 12


class Pictures(unittest.TestCase):
    def test_every_dialog_has_its_picture(self):
        with tempfile.TemporaryDirectory() as folder:
            save_pictures(folder)
            names = {path.stem for path in pathlib.Path(folder).glob("dialog-*.png")}
        kinds = [name.split("-")[1] for name in names]
        self.assertEqual((kinds.count("wizard"), kinds.count("cert"), len(kinds)), (5, 5, 25))


class MessageBoxes(DialogTest):
    def test_each_button_answers_by_mouse(self):
        for box, button, answer in (
            ("OK", "OK", "IDOK (1)"),
            ("OK, cancel", "Abbrechen", "IDCANCEL (2)"),
            ("Yes, no, cancel", "Ja", "IDYES (6)"),
            ("Yes, no, cancel", "Nein", "IDNO (7)"),
            ("Retry, cancel", "Wiederholen", "IDRETRY (4)"),
            ("All six buttons", "Schliessen", "IDCLOSE (8)"),
        ):
            with self.subTest(box=box, button=button):
                self.open(box)
                self.press(button)
                self.assertEqual(self.answer(), answer)

    def test_enter_gives_the_default_button(self):
        for box, answer in (
            ("OK, cancel", "IDOK (1)"),
            ("Yes, no", "IDYES (6)"),
            ("Cancel is default", "IDCANCEL (2)"),
            ("No is default", "IDNO (7)"),
            ("Third is default", "IDCANCEL (2)"),
            ("Abort, retry, ...", "IDABORT (3)"),
        ):
            with self.subTest(box=box):
                self.open(box)
                self.gallery.key("Return")
                self.assertEqual(self.answer(), answer)

    def test_esc_and_the_close_box_cancel_also_where_no_button_does(self):
        for box in ("OK", "Yes, no", "No button"):
            with self.subTest(box=box):
                self.open(box)
                self.gallery.key("Escape")
                self.assertEqual(self.answer(), "IDCANCEL (2)")
                self.gallery.click(self.close_box(self.open(box)))
                self.assertEqual(self.answer(), "IDCANCEL (2)")

    def test_tab_goes_round_the_buttons_and_space_presses_one(self):
        self.open("Yes, no, cancel")
        start = self.state("focus")
        seen = []
        for _ in range(3):
            self.gallery.key("Tab")
            seen.append(self.state("focus"))
        self.assertEqual(sorted(seen), ["Abbrechen", "Ja", "Nein"])
        self.assertEqual(seen[-1], start)
        while self.state("focus") != "Nein":
            self.gallery.key("shift+Tab")
        self.gallery.key("space")
        self.assertEqual(self.answer(), "IDNO (7)")

    def test_the_owner_takes_no_clicks_meanwhile(self):
        self.open("OK")
        self.gallery.show_page("Labels")
        self.assertEqual(self.gallery.commands(), [])
        self.assertEqual(self.state("active"), "Gallery")

    def test_focus_returns_to_the_button_that_opened_it(self):
        self.open("Long text")
        self.gallery.key("Escape")
        self.assertEqual(self.answer(), "IDCANCEL (2)")
        self.assertEqual(self.state("focus"), "Long text")

    def test_a_dialog_opens_though_another_threads_window_is_in_front(self):
        self.gallery.click(self.gallery.button("Behind another").middle)
        self.gallery.click(window_titled("Gallery"))  # until then the keys go to the other window
        self.assertEqual(self.opened().text, "Gallery")
        self.press("OK")
        self.assertEqual(self.answer(), "IDOK (1)")


class Wizard(DialogTest):
    def page(self):
        """The title of the page that shows."""
        names = ("Welcome", "Terms", "Kind", "Ready")
        return next(c.text for c in self.look() if c.class_name == "GLabel" and c.text in names)

    def buttons(self):
        names = ("Back", "Next", "Finish", "Cancel")
        shown = [c for c in self.look() if c.class_name == "GButton" and c.text in names]
        return " ".join(c.text for c in sorted(shown, key=lambda c: c.x))

    def test_four_pages_by_mouse(self):
        self.open("Four pages")
        self.press("Next")
        self.assertEqual(self.page(), "Terms")
        self.press("Next")
        self.assertEqual(self.page(), "Terms", "refused")
        self.gallery.click(self.in_dialog("GCheckBox", "I have read this, and agree").middle)
        self.press("Next")
        self.assertEqual(self.page(), "Kind")
        self.assertEqual(self.buttons(), "Back Next Cancel")
        self.press("Next")
        self.assertEqual(self.page(), "Ready")
        self.assertEqual(self.buttons(), "Back Finish Cancel")
        self.press("Back")
        self.assertEqual(self.buttons(), "Back Next Cancel")
        self.press("Next")
        self.press("Finish")
        self.assertEqual(self.answer(), "WZB_FINISH (1)")

    def test_four_pages_by_keyboard(self):
        self.open("Four pages")
        self.gallery.key("Return")
        self.assertEqual(self.page(), "Terms")
        self.gallery.key("Return")
        self.assertEqual(self.page(), "Terms", "refused")
        for _ in range(5):
            if self.state("focus").startswith("I have"):
                break
            self.gallery.key("Tab")
        self.gallery.key("space")
        self.gallery.key("Return")
        self.assertEqual(self.page(), "Kind")
        self.assertEqual(self.state("focus"), "Paintings", "the focus came along")
        self.gallery.key("Down", "space", "Return")
        self.assertEqual(self.page(), "Ready")
        self.assertEqual(self.state("focus"), "Finish")
        self.gallery.key("Return")
        self.assertEqual(self.answer(), "WZB_FINISH (1)")

    def test_the_keyboard_goes_on_when_a_button_goes_from_under_it(self):
        self.open("Four pages")
        self.press("Next")
        self.gallery.click(self.in_dialog("GCheckBox", "I have read this, and agree").middle)
        self.press("Back")
        self.assertEqual(self.page(), "Welcome")
        self.assertEqual(self.state("focus"), "Next", "Back is disabled")
        self.gallery.key("space", "space", "space")
        self.assertEqual(self.page(), "Ready")
        self.assertEqual(self.state("focus"), "Finish", "Next is hidden")

    def test_cancel_esc_and_the_close_box_ask_no_page(self):
        for end in ("cancel", "escape", "close"):
            with self.subTest(end=end):
                wizard = self.open("Four pages")
                self.press("Next")  # a page that refuses
                if end == "cancel":
                    self.press("Cancel")
                elif end == "escape":
                    self.gallery.key("Escape")
                else:
                    self.gallery.click(self.close_box(wizard))
                self.assertEqual(self.answer(), "WZB_CANCEL (2)")

    def test_one_page_can_be_finished_at_once(self):
        self.open("One page")
        self.assertEqual(self.buttons(), "Back Finish Cancel")
        self.press("Back")
        self.press("Finish")
        self.assertEqual(self.answer(), "WZB_FINISH (1)")

    def test_a_wizard_without_pages_can_only_be_cancelled(self):
        self.open("No page")
        self.press("Next")
        self.press("Back")
        self.gallery.key("Return")
        self.assertEqual(len(self.titles()), 1)
        self.press("Cancel")
        self.assertEqual(self.answer(), "WZB_CANCEL (2)")


class Certificates(DialogTest):
    CHECK_BOX = "Nicht erneut nach Verbindungen mit diesem Computer fragen."

    def test_answers_by_mouse(self):
        for severity, button, answer in (
            ("Secure", "Ja", "IDYES (6)"),
            ("Untrusted", "Nein", "IDNO (7)"),
            ("Invalid", "OK", "IDNO (7)"),
        ):
            with self.subTest(severity=severity):
                self.open(severity)
                self.press(button)
                self.assertEqual(self.answer(), answer)

    def test_answers_by_keyboard_and_close_box(self):
        for severity, answer in (("Untrusted", "IDYES (6)"), ("Every failure", "IDNO (7)")):
            with self.subTest(severity=severity):
                self.open(severity)
                self.gallery.key("Return")
                self.assertEqual(self.answer(), answer)
                self.open(severity)
                self.gallery.key("Escape")
                self.assertEqual(self.answer(), "IDNO (7)")
                self.gallery.click(self.close_box(self.open(severity)))
                self.assertEqual(self.answer(), "IDNO (7)")

    def test_the_box_is_ticked_by_mouse_and_by_space(self):
        self.open("Untrusted")
        self.gallery.click(self.in_dialog("GCheckBox", self.CHECK_BOX).middle)
        self.press("Ja")
        self.assertEqual(self.answer(), "IDYES (6), don't ask again")
        self.open("Untrusted")
        self.gallery.click(self.in_dialog("GCheckBox", self.CHECK_BOX).middle)
        self.gallery.key("space")
        self.press("Nein")
        self.assertEqual(self.answer(), "IDNO (7)")

    def test_tab_reaches_the_box_and_every_button(self):
        self.open("Secure")
        seen = set()
        for _ in range(4):
            seen.add(self.state("focus"))
            self.gallery.key("Tab")
        self.assertEqual(seen, {self.CHECK_BOX, "Ja", "Nein", "Zertifikat anzeigen..."})

    def test_a_dialog_opened_from_it_is_nested(self):
        self.open("Untrusted")
        self.press("Zertifikat anzeigen...")
        wait_for("the inner dialog", lambda: "Certificate" in self.titles())
        self.assertEqual(sorted(self.titles()), ["Certificate", "Connection"])
        self.assertEqual(self.state("active"), "Certificate")
        self.gallery.click(self.in_dialog("GButton", "Ja").middle)  # of the dialog below, which is disabled
        self.assertEqual(sorted(self.titles()), ["Certificate", "Connection"])
        self.gallery.key("Return")
        self.assertEqual(self.titles(), ["Connection"])
        self.assertEqual(self.state("active"), "Connection")
        self.assertEqual(self.state("owner"), "disabled", "the outer dialog still runs")
        self.press("Ja")
        self.assertEqual(self.answer(), "IDYES (6)")
