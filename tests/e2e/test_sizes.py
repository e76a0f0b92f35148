"""The pages that lay themselves out by their room, in a small window and in a large one."""
from gallery import GalleryTest

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
