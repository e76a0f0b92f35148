"""The edge that the texts of the page "Text" are wrapped at, dragged with a real pointer."""
from gallery import GalleryTest

NARROWEST = 30


class Text(GalleryTest):
    PAGE = "Text"

    def edge(self):
        """Its x, and how many lines all texts have there."""
        self.gallery.lines()
        edge = self.gallery.first("edge")
        self.y = edge.y + edge.cy // 2
        return edge.x, edge.id

    def drag(self, start, *stops):
        self.gallery.drag((start, self.y), *((x, self.y) for x in stops))

    def test_the_texts_wrap_at_the_edge_wherever_it_is_dragged(self):
        x, lines = self.edge()
        grip = 3  # the edge keeps its place below the pointer
        self.drag(x + grip, x - 50 + grip, x - 100 + grip)
        narrower, more_lines = self.edge()
        self.assertEqual(narrower, x - 100)
        self.assertGreater(more_lines, lines)
        self.drag(narrower, narrower - 200)
        narrowest, most_lines = self.edge()
        self.assertEqual(narrowest, x - 250 + NARROWEST)
        self.assertGreater(most_lines, more_lines)
        self.drag(narrowest, x)
        self.assertEqual(self.edge(), (x, lines))
        self.drag(x + 20, x + 60)  # beside it
        self.assertEqual(self.edge(), (x, lines))
