"""The fonts that the outlines come from."""

import json
import subprocess
from dataclasses import dataclass

from fontTools.ttLib import TTFont

from outlines import OutlinePen, bounds, moved


class Shaper:
    """Asks one HarfBuzz process, since starting one for each string takes minutes."""

    def __init__(self):
        self._process = subprocess.Popen(["hb-shape", "--batch"], stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.communicate()

    def shape(self, path, text):
        unicodes = ",".join(f"U+{ord(character):04X}" for character in text)
        command = ["--output-format=json", "--no-clusters", "--script=deva", "--language=hi",
                   str(path), f"--unicodes={unicodes}"]
        self._process.stdin.write(";".join(command) + "\n")
        self._process.stdin.flush()
        return json.loads(self._process.stdout.readline())


@dataclass(frozen=True)
class PlacedGlyph:
    name: str
    x: int
    y: int


@dataclass(frozen=True)
class Run:
    glyphs: tuple[PlacedGlyph, ...]
    advance: int


@dataclass(frozen=True)
class Shape:
    """An outline and how far the next glyph stands from its origin."""

    outline: list
    advance: float


class SourceFont:
    def __init__(self, path, shaper):
        self.font = TTFont(path)
        self._path = path
        self._shaper = shaper
        self._glyph_set = self.font.getGlyphSet()
        self._cmap = self.font.getBestCmap()
        self._runs = {}

    def has(self, text):
        return all(ord(character) in self._cmap for character in text)

    def run(self, text):
        """How the font shows a text in Hindi."""
        if text not in self._runs:
            self._runs[text] = self._shaped(text)
        return self._runs[text]

    def advance(self, text):
        return self.run(text).advance

    def shape(self, text):
        run = self.run(text)
        return Shape(self.outline(run.glyphs), run.advance)

    def character(self, character):
        return self.glyph(self._cmap[ord(character)])

    def outline(self, glyphs):
        return [contour for glyph in glyphs
                for contour in moved(self._glyph_outline(glyph.name), glyph.x, glyph.y)]

    def glyph(self, name):
        return Shape(self._glyph_outline(name), self.font["hmtx"][name][0])

    def has_glyph(self, name):
        return name in self._glyph_set

    def has_ink(self, name):
        return bounds(self._glyph_outline(name)) is not None

    def last_component(self, name):
        """The last component of a composite glyph, and None of another glyph."""
        glyph = self.font["glyf"][name]
        if not glyph.isComposite():
            return None
        part = glyph.components[-1]
        return PlacedGlyph(part.glyphName, part.x, part.y)

    def _shaped(self, text):
        x = 0
        glyphs = []
        for glyph in self._shaper.shape(self._path, text):
            glyphs.append(PlacedGlyph(glyph["g"], x + glyph["dx"], glyph["dy"]))
            x += glyph["ax"]
        return Run(tuple(glyphs), x)

    def _glyph_outline(self, name):
        pen = OutlinePen(self._glyph_set)
        self._glyph_set[name].draw(pen)
        return pen.outline
