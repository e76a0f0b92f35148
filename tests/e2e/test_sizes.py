"""The pages that lay themselves out by their room, in a small window and in a large one."""
from gallery import GalleryTest, xdotool

MARGIN = 24
STATUS_ROOM = 58
MAIN_CONTROLS = {"List": "GList", "Trees": "GList", "Ribbon": "GEdit", "Explorer": "GList"}


class Sizes(GalleryTest):
    PAGE = "List"

    def test_main_controls_fill_their_page_and_stay_within_it(self):
        for size in ("800 x 600", "As large as the screen"):
            self.gallery.click(self.gallery.control("command", size).middle)
            for page, class_name in MAIN_CONTROLS.items():
                self.gallery.show_page(page)
                controls = self.gallery.settled()
                room = next(c for c in controls if c.class_name == "GessoGalleryPage")
                main = max((c for c in controls if c.class_name == class_name), key=lambda c: c.cy)
                right = room.x + room.cx - main.x - main.cx
                bottom = room.y + room.cy - main.y - main.cy
                fills = 0 < right <= MARGIN and 0 < bottom <= STATUS_ROOM
                self.assertTrue(fills, f"{page}, {size}: {right} and {bottom} are left")

    def test_the_right_column_comes_below_the_left_and_its_panes_follow_a_drag(self):
        self.gallery.click(self.gallery.control("command", "800 x 600").middle)
        self.gallery.show_page("Choices")
        room = next(c for c in self.gallery.settled() if c.class_name == "GessoGalleryPage")
        xdotool("mousemove", *room.middle, "click", "--repeat", 30, "--delay", 20, 5)
        self.gallery.lines()
        strip = self.gallery.first("GSeparator")
        self.gallery.drag(strip.middle, *((strip.middle[0] - dx, strip.middle[1]) for dx in (20, 40)))
        self.gallery.lines()
        moved = self.gallery.first("GSeparator")
        self.assertEqual((moved.x, moved.y), (strip.x - 40, strip.y))
