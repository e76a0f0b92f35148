"""Another program, as a screen reader is one, finds things in the gallery by what they are and acts on them."""
import os
import subprocess
import unittest

from gallery import DEADLINE, Gallery, GalleryTest

TITLE = "Gesso gallery"
PUSH_BUTTON, CHECK_BUTTON, LIST, OUTLINE, TEXT = 43, 44, 33, 35, 42


def client(*words):
    """A process of the client, with its output as a pipe."""
    program = os.path.join(os.path.dirname(os.environ["GESSO_GALLERY"]), "access_client.exe")
    command = [os.environ["GESSO_WINE"], program, TITLE, *map(str, words)]
    return subprocess.Popen(command, stdout=subprocess.PIPE, text=True, encoding="utf-8")


def ask(*words):
    """The lines that it prints; fails where it did not find or do what it was asked."""
    process = client(*words)
    lines = process.communicate(timeout=DEADLINE)[0].splitlines()
    assert process.returncode == 0, f"{words}: {process.returncode}, {lines}"
    return lines


class Buttons(GalleryTest):
    PAGE = "Buttons"

    def test_every_button_has_its_name_and_a_press_reports_as_the_users(self):
        tree = ask("tree")
        buttons = [c for c in self.gallery.controls() if c.class_name == "GButton" and c.text]
        for button in buttons:
            self.assertTrue(any(line.startswith(f"{PUSH_BUTTON} {button.text.replace('&', '')} =") for line in tree),
                            button.text)
        self.gallery.lines()
        ask("do", PUSH_BUTTON, buttons[0].text.replace("&", ""))
        self.assertIn(buttons[0].command(), self.gallery.lines())


class Choices(GalleryTest):
    PAGE = "Choices"

    def test_a_box_is_ticked_and_the_listener_hears_of_it(self):
        box = self.gallery.control("GCheckBox", "&Bread")
        listener = client("listen", 4000)
        self.assertEqual(listener.stdout.readline().strip(), "listens")
        ask("do", CHECK_BUTTON, "Bread")
        self.assertIn(box.command(), self.gallery.lines())
        heard = listener.communicate(timeout=DEADLINE)[0]
        self.assertIn(f"800a {CHECK_BUTTON} Bread", heard)


class Held(unittest.TestCase):
    def setUp(self):
        self.gallery = Gallery("Buttons")
        self.addCleanup(self.gallery.close)

    def test_a_client_that_outlives_the_window_is_told(self):
        button = next(c for c in self.gallery.controls() if c.class_name == "GButton" and c.text)
        holder = client("hold", PUSH_BUTTON, button.text.replace("&", ""))
        self.assertEqual(holder.stdout.readline().strip(), "holds")
        self.gallery.process.terminate()
        self.assertNotEqual(holder.communicate(timeout=DEADLINE)[0].strip(), "")
        self.assertEqual(holder.returncode, 0)

    def test_a_client_that_dies_leaves_the_program_as_it_is(self):
        button = next(c for c in self.gallery.controls() if c.class_name == "GButton" and c.text)
        holder = client("hold", PUSH_BUTTON, button.text.replace("&", ""))
        self.assertEqual(holder.stdout.readline().strip(), "holds")
        holder.kill()
        holder.wait(DEADLINE)
        self.gallery.click(button.middle)
        self.assertIn(button.command(), self.gallery.lines())
