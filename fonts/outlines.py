"""Outlines as plain data: a list of contours, each a closed list of segments. A segment is a tuple
of its points: two for a line, three for a quadratic curve."""

from fontTools.misc.bezierTools import solveQuadratic, splitQuadraticAtT
from fontTools.pens.basePen import BasePen
from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.reverseContourPen import ReverseContourPen


class OutlinePen(BasePen):
    """Collects what is drawn as an outline."""

    def __init__(self, glyph_set):
        super().__init__(glyph_set)
        self.outline = []

    def _moveTo(self, point):
        self.outline.append([])
        self._start = point

    def _lineTo(self, point):
        self.outline[-1].append((self._getCurrentPoint(), point))

    def _qCurveToOne(self, control, point):
        self.outline[-1].append((self._getCurrentPoint(), control, point))

    def _closePath(self):
        if self._getCurrentPoint() != self._start:
            self._lineTo(self._start)


def moved(outline, dx, dy=0):
    return [[tuple((x + dx, y + dy) for x, y in segment) for segment in contour]
            for contour in outline]


def polygon(*corners):
    return [list(zip(corners, corners[1:] + corners[:1]))]


def points(outline):
    return [segment[0] for contour in outline for segment in contour]


def bounds(outline):
    """(left, bottom, right, top) of the ink; None without ink."""
    pen = BoundsPen(None)
    _draw(outline, pen)
    return pen.bounds


def transposed(outline):
    """With x and y exchanged."""
    return [[tuple((y, x) for x, y in segment) for segment in contour] for contour in outline]


def crossings(outline, y):
    """Where the straight lines through a height are, from left to right."""
    found = []
    for contour in outline:
        for (x0, y0), *_, (x1, y1) in contour:
            if (y0 <= y) != (y1 <= y):
                found.append(x0 + (y - y0) * (x1 - x0) / (y1 - y0))
    return sorted(found)


def clipped(outline, start, end):
    """The part at the left of the line that goes from start to end."""
    result = []
    for contour in outline:
        pieces = [piece for segment in contour for piece in _split(segment, start, end)
                  if _side(_middle(piece), start, end) >= 0]
        if pieces:
            result.append(_closed(pieces))
    return result


def draw_postscript(outline, pen):
    """Draws with outer contours anticlockwise, as PostScript outlines have them."""
    _draw(outline, ReverseContourPen(pen))


def _draw(outline, pen):
    for contour in outline:
        pen.moveTo(contour[0][0])
        for segment in contour:
            if len(segment) == 3:
                pen.qCurveTo(*segment[1:])
            elif segment is not contour[-1] or segment[1] != contour[0][0]:
                pen.lineTo(segment[1])
        pen.closePath()


def _side(point, start, end):
    """Positive at the left of the line."""
    return ((end[0] - start[0]) * (point[1] - start[1])
            - (end[1] - start[1]) * (point[0] - start[0]))


def _middle(segment):
    if len(segment) == 2:
        (x0, y0), (x1, y1) = segment
        return (x0 + x1) / 2, (y0 + y1) / 2
    return splitQuadraticAtT(*segment, 0.5)[0][2]


def _split(segment, start, end):
    """The segment in pieces that do not cross the line."""
    sides = [_side(point, start, end) for point in segment]
    if len(segment) == 3:
        a, b, c = sides
        cuts = sorted(t for t in solveQuadratic(a - 2 * b + c, 2 * (b - a), a) if 0 < t < 1)
        return splitQuadraticAtT(*segment, *cuts)
    if (sides[0] < 0) == (sides[1] < 0):
        return [segment]
    (x0, y0), (x1, y1) = segment
    share = sides[0] / (sides[0] - sides[1])
    cut = x0 + (x1 - x0) * share, y0 + (y1 - y0) * share
    return [(segment[0], cut), (cut, segment[1])]


def _closed(pieces):
    """The pieces of a contour, with lines where it was cut."""
    contour = []
    for piece, following in zip(pieces, pieces[1:] + pieces[:1]):
        contour.append(piece)
        if piece[-1] != following[0]:
            contour.append((piece[-1], following[0]))
    return contour
