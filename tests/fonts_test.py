#!/usr/bin/python3
"""The fonts are what the generator makes, and keep what a text of single bytes relies on."""

import csv
import json
import random
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from fontTools.pens.basePen import BasePen
from fontTools.pens.boundsPen import ControlBoundsPen
from fontTools.pens.recordingPen import RecordingPen
from fontTools.ttLib import TTFont

FONTS = Path(__file__).resolve().parent.parent / "fonts"
FILES = sorted(FONTS.glob("*.otf"))
HELP_FILES = sorted((FONTS.parent / "help").glob("*.woff"))
sys.dont_write_bytecode = True
sys.path.insert(0, str(FONTS))
from build_fonts import FACES  # noqa: E402
BYTES = range(0x20, 0x100)
STROKE = 0x6B
HALF = " U+094D U+200D"
# Letters without a stem at their right end, and the one that is stacked when it is full.
NOT_BY_STROKE = ("U+0915", "U+092B", "U+0939", "U+0928 U+094D U+0928")
# Bytes that the features put together and move about.
JOINING = b"dejVkf[?DRLzq+~ZaSsh\xa1\xa8\xaa\xb1\xc6\xc7\xc8\xca"
# Signs as they are put to every letter, and those that stand before it.
SIGNS = b"khqw`sSaWZf~\xa1\xa8\xa9\x82\xb1\xc6\xc7\xc8\xc9\xca"
BEFORE = b"f\xc6\xc7\xc9"
# Syllables that are written with bytes of their own.
OWN_BYTES = {(ord("j"), sign) for sign in b"qw`"}
# Names that others own.
TRADEMARKS = ("noto", "google", "kruti")
COPYRIGHT, FAMILY, DESCRIPTION, LICENCE, LICENCE_ADDRESS = 0, 1, 10, 13, 14
NOTICES = ("Copyright 2015 Google Inc.", "Copyright 2019 Google Inc.", "Copyright 2015 Google LLC.")
LICENCE_PARTS = (
    "SIL OPEN FONT LICENSE Version 1.1 - 26 February 2007", "PREAMBLE", "DEFINITIONS",
    "PERMISSION & CONDITIONS", "may be sold by itself", "TERMINATION", "DISCLAIMER",
    "FROM, OUT OF THE USE OR INABILITY TO USE THE FONT SOFTWARE OR FROM OTHER DEALINGS IN THE "
    "FONT SOFTWARE.")


def table():
    with (FONTS / "kruti-dev-encoding.tsv").open(encoding="utf-8", newline="") as lines:
        return {int(row["byte"], 16): row
                for row in csv.DictReader(lines, delimiter="\t", quoting=csv.QUOTE_NONE)}


def windows1252(byte):
    try:
        return ord(bytes([byte]).decode("cp1252"))
    except UnicodeDecodeError:
        return byte


def shaped(path, texts):
    """For each text of bytes the glyphs that it shows, as HarfBuzz names and places them."""
    return shaped_unicode(path, [",".join(f"U+{0xF000 + byte:04X}" for byte in text)
                                 for text in texts])


def shaped_unicode(path, texts):
    lines = (";".join(["--output-format=json", "--no-clusters", str(path), "--unicodes=" + text])
             for text in texts)
    result = subprocess.run(["hb-shape", "--batch"], input="\n".join(lines) + "\n",
                            capture_output=True, text=True, check=True)
    return [json.loads(line) for line in result.stdout.splitlines()]


def width(glyphs):
    return sum(glyph["ax"] for glyph in glyphs)


def distance(ours, theirs):
    """By how much two lists of boxes differ at most; much where they are not equally many."""
    if len(ours) != len(theirs):
        return 1000
    return max(abs(a - b) for one, other in zip(ours, theirs) for a, b in zip(one, other))


class ContourBoxes(BasePen):
    def __init__(self, glyph_set):
        super().__init__(glyph_set)
        self.boxes = []

    def _moveTo(self, point):
        self._box = ControlBoundsPen(None)
        self._box.moveTo(point)

    def _lineTo(self, point):
        self._box.lineTo(point)

    def _curveToOne(self, *points):
        self._box.curveTo(*points)

    def _closePath(self):
        self.boxes.append(self._box.bounds)


class Font:
    def __init__(self, path):
        self.path = path
        self.font = TTFont(path)
        self.cmap = self.font.getBestCmap()

    def advance(self, byte):
        return self.font["hmtx"][self.cmap[0xF000 + byte]][0]

    def hints(self, name):
        """The horizontal stems of a glyph as (bottom, height), and the names of other hints."""
        charstring = self.font["CFF "].cff.topDictIndex[0].CharStrings[name]
        charstring.decompile()
        program = charstring.program
        stems = [tuple(program[at - 2:at]) for at, token in enumerate(program) if token == "hstem"]
        return stems + [token for token in program
                        if token in ("vstem", "hstemhm", "vstemhm", "hintmask", "cntrmask")]

    def has_edge(self, name, height):
        """Whether the outline runs along a height for as long as a headline does."""
        pen = RecordingPen()
        self.font.getGlyphSet()[name].draw(pen)
        here = None
        for command, points in pen.value:
            if command == "lineTo" and here[1] == points[-1][1] == height:
                if abs(here[0] - points[-1][0]) > 100:
                    return True
            here = points[-1] if points else here
        return False

    def text(self, name):
        return self.font["name"].getDebugName(name)

    def contours(self, name):
        """The boxes around the contours of a glyph."""
        pen = ContourBoxes(self.font.getGlyphSet())
        self.font.getGlyphSet()[name].draw(pen)
        return sorted(pen.boxes)

    def ink(self, glyphs):
        """The boxes around all contours of shaped glyphs."""
        boxes, x = [], 0
        for glyph in glyphs:
            dx, dy = x + glyph["dx"], glyph["dy"]
            boxes += [(left + dx, bottom + dy, right + dx, top + dy)
                      for left, bottom, right, top in self.contours(glyph["g"])]
            x += glyph["ax"]
        return sorted(boxes)


class FontsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.table = table()
        cls.fonts = [Font(path) for path in FILES]
        sources = {f"{face.postscript_name}.otf": face.sources[0] for face in FACES}
        cls.sources = [Font(sources[path.name]) for path in FILES]

    def rows(self, role):
        return [byte for byte, row in self.table.items() if row["role"] == role
                and not row["unicode"].startswith("U+094D")]

    def syllable(self, letter, sign):
        """The Unicode text, with the reph before and all else behind the letter."""
        added = self.table[sign]["unicode"]
        reph = "U+0930 U+094D " if added.startswith("U+0930 U+094D") else ""
        text = f"{reph}{self.table[letter]['unicode']} {added.removeprefix(reph.strip())}"
        return ",".join(text.split())

    def test_there_are_two_families_in_two_weights(self):
        faces = {(font.text(FAMILY), font.text(2)) for font in self.fonts}
        self.assertEqual(faces, {(family, style) for style in ("Regular", "Bold") for family in (
            "Quillet Devanagari", "Quillet Devanagari Serif")})

    def test_the_generator_makes_the_files_as_they_are(self):
        for files in FILES, HELP_FILES:
            with tempfile.TemporaryDirectory() as folder:
                generator = files[0].parent / "build_fonts.py"
                subprocess.run([sys.executable, generator, folder], check=True)
                made = sorted(Path(folder).iterdir())
                self.assertEqual([path.name for path in made], [path.name for path in files])
                for path, kept in zip(made, files):
                    self.assertTrue(path.read_bytes() == kept.read_bytes(), kept.name)

    def test_the_table_has_every_byte(self):
        self.assertEqual(list(self.table), list(BYTES))

    def test_every_byte_is_reached_in_both_ways(self):
        for font in self.fonts:
            with self.subTest(font.path.name):
                for byte in BYTES:
                    name = font.cmap.get(0xF000 + byte)
                    self.assertIsNotNone(name, hex(byte))
                    self.assertEqual(font.cmap.get(windows1252(byte)), name, hex(byte))

    def test_signs_have_no_width_and_all_else_has(self):
        for font in self.fonts:
            with self.subTest(font.path.name):
                for byte, row in self.table.items():
                    self.assertEqual(font.advance(byte) == 0, row["width"] == "zero", hex(byte))

    def test_half_form_and_stroke_are_as_wide_as_the_letter(self):
        letters = {row["unicode"]: byte for byte, row in self.table.items()
                   if row["role"] in ("consonant", "ligature")}
        for font in self.fonts:
            with self.subTest(font.path.name):
                checked = 0
                for byte, row in self.table.items():
                    letter = row["unicode"].removesuffix(HALF)
                    if row["role"] == "half" and letter in letters and letter not in NOT_BY_STROKE:
                        checked += 1
                        self.assertEqual(font.advance(byte) + font.advance(STROKE),
                                         font.advance(letters[letter]), hex(byte))
                self.assertGreater(checked, 15)

    def test_features_work_without_a_script_and_change_no_width(self):
        pick = random.Random(1)
        texts = [[byte for second in range(start, start + 32) for byte in (first, second, 0x20)]
                 for first in BYTES for start in range(0x20, 0x100, 32)]
        texts += [pick.choices(JOINING, k=12) for _ in range(2000)]
        for font in self.fonts:
            with self.subTest(font.path.name):
                changed = 0
                for text, glyphs in zip(texts, shaped(font.path, texts)):
                    self.assertEqual(width(glyphs), sum(map(font.advance, text)), bytes(text))
                    changed += [glyph["g"] for glyph in glyphs] != [
                        font.cmap[0xF000 + byte] for byte in text]
                self.assertGreater(changed, 1000)

    def test_features_put_letters_and_signs_right(self):
        # Each as bytes, and the number of glyphs that they become.
        cases = {b"[k": 1, b"[k+": 1, b"cz": 1, b"\xa8Za": 1, b"fd": 2, b"ea": 2}
        for font in self.fonts:
            with self.subTest(font.path.name):
                for text, glyphs in zip(cases, shaped(font.path, cases)):
                    self.assertEqual(len(glyphs), cases[text], text)
                hooks = {glyphs[0]["g"] for glyphs in shaped(font.path, [b"fj", b"fd", b"fe"])}
                self.assertEqual(len(hooks), 3)

    def test_signs_are_set_back_over_the_letter_before(self):
        signs = [byte for byte, row in self.table.items() if row["width"] == "zero"]
        for font in self.fonts:
            with self.subTest(font.path.name):
                for byte in signs:
                    left = font.contours(font.cmap[0xF000 + byte])[0][0]
                    self.assertTrue(-font.advance(ord("e")) < left < 0, hex(byte))

    def test_syllables_look_as_the_source_font_sets_them(self):
        pairs = [(letter, sign) for letter in self.rows("consonant") for sign in SIGNS
                 if (letter, sign) not in OWN_BYTES]
        texts = [[letter, sign] if sign not in BEFORE else [sign, letter] for letter, sign in pairs]
        unicodes = [self.syllable(letter, sign) for letter, sign in pairs]
        for font, source in zip(self.fonts, self.sources):
            with self.subTest(font.path.name):
                for text, ours, theirs in zip(texts, shaped(font.path, texts),
                                              shaped_unicode(source.path, unicodes)):
                    self.assertLess(distance(font.ink(ours), source.ink(theirs)), 25, bytes(text))

    def test_one_hint_the_headline_is_in_all_that_have_one(self):
        latin = [byte for byte, row in self.table.items() if row["role"] in ("latin", "control")]
        for font in self.fonts:
            with self.subTest(font.path.name):
                names = font.font.getGlyphOrder()
                (headline,) = {hint for name in names for hint in font.hints(name)}
                top = sum(headline)
                others = {font.cmap[0xF000 + byte] for byte in latin}
                lined = [name for name in names if name not in others and font.has_edge(name, top)]
                self.assertEqual([name for name in lined if font.hints(name) != [headline]], [])
                self.assertGreater(len(lined), 150)
                self.assertTrue(font.has_edge(font.cmap[0xF000 + ord("e")], headline[0]))

    def test_lines_are_equally_high(self):
        heights = {(font.font["hhea"].ascent, font.font["hhea"].descent, font.font["hhea"].lineGap,
                    font.font["OS/2"].usWinAscent, font.font["OS/2"].usWinDescent)
                   for font in self.fonts}
        self.assertEqual(len(heights), 1, heights)

    def test_the_names_are_our_own_and_the_licence_is_named(self):
        for font in self.fonts:
            with self.subTest(font.path.name):
                names = [(record.nameID, record.toUnicode()) for record in font.font["name"].names]
                for number, text in names:
                    if number not in (COPYRIGHT, DESCRIPTION, LICENCE):
                        self.assertFalse(any(mark in text.lower() for mark in TRADEMARKS), text)
                self.assertIn("SIL Open Font License, Version 1.1", font.text(LICENCE))
                self.assertEqual(font.text(LICENCE_ADDRESS), "http://scripts.sil.org/OFL")
                self.assertEqual(font.font["OS/2"].fsType, 0)
                serif = "Serif" in font.text(FAMILY)
                for notice in (NOTICES[1] if serif else NOTICES[0], NOTICES[2]):
                    self.assertIn(notice, font.text(COPYRIGHT))

    def test_the_licence_is_whole_and_has_the_notices(self):
        licence = " ".join((FONTS / "OFL.txt").read_text(encoding="utf-8").split())
        for part in NOTICES + LICENCE_PARTS:
            self.assertIn(part, licence)


if __name__ == "__main__":
    unittest.main()
