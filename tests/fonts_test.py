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

from fontTools.pens.recordingPen import DecomposingRecordingPen
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
# Names that others own, and the numbers of the texts that may say them.
TRADEMARKS = ("noto", "google", "kruti")
COPYRIGHT, DESCRIPTION, LICENCE = 0, 10, 13

with (FONTS / "kruti-dev-encoding.tsv").open(encoding="utf-8", newline="") as encoding:
    TABLE = {int(row["byte"], 16): row
             for row in csv.DictReader(encoding, delimiter="\t", quoting=csv.QUOTE_NONE)}


def windows1252(byte):
    try:
        return ord(bytes([byte]).decode("cp1252"))
    except UnicodeDecodeError:
        return byte


def syllable(letter, sign):
    """The Unicode text, with the reph before and all else behind the letter."""
    added = TABLE[sign]["unicode"]
    reph = "U+0930 U+094D " if added.startswith("U+0930 U+094D") else ""
    return f"{reph}{TABLE[letter]['unicode']} {added.removeprefix(reph.strip())}"


def distance(ours, theirs):
    """By how much two lists of boxes differ at most; much where they are not equally many."""
    if len(ours) != len(theirs):
        return 1000
    return max(abs(a - b) for one, other in zip(ours, theirs) for a, b in zip(one, other))


class Font:
    def __init__(self, path):
        self.path = path
        self.font = TTFont(path)
        self.cmap = self.font.getBestCmap()

    def advance(self, byte):
        return self.font["hmtx"][self.cmap[0xF000 + byte]][0]

    def shaped(self, texts):
        """For each text the glyphs that it shows, as HarfBuzz names and places them."""
        options = f"--output-format=json;--no-clusters;{self.path};--unicodes="
        result = subprocess.run(["hb-shape", "--batch"], capture_output=True, text=True, check=True,
                                input="".join(f"{options}{text}\n" for text in texts))
        return [json.loads(line) for line in result.stdout.splitlines()]

    def shaped_bytes(self, texts):
        return self.shaped(" ".join(f"U+{0xF000 + byte:04X}" for byte in text) for text in texts)

    def contours(self, name):
        """The boxes around the points of each contour of a glyph."""
        pen = DecomposingRecordingPen(self.font.getGlyphSet())
        self.font.getGlyphSet()[name].draw(pen)
        contours = []
        for command, points in pen.value:
            contours += [[]] if command == "moveTo" else []
            contours[-1] += points
        return sorted((*map(min, zip(*points)), *map(max, zip(*points))) for points in contours)

    def ink(self, glyphs):
        """The boxes around all contours of shaped glyphs."""
        boxes, x = [], 0
        for glyph in glyphs:
            dx, dy = x + glyph["dx"], glyph["dy"]
            boxes += [(left + dx, bottom + dy, right + dx, top + dy)
                      for left, bottom, right, top in self.contours(glyph["g"])]
            x += glyph["ax"]
        return sorted(boxes)


class FilesTest(unittest.TestCase):
    def test_the_generator_makes_the_files_as_they_are(self):
        for files in FILES, HELP_FILES:
            with tempfile.TemporaryDirectory() as folder:
                generator = files[0].parent / "build_fonts.py"
                subprocess.run([sys.executable, generator, folder], check=True)
                made = sorted(Path(folder).iterdir())
                self.assertEqual([path.name for path in made], [path.name for path in files])
                for path, kept in zip(made, files):
                    self.assertTrue(path.read_bytes() == kept.read_bytes(), kept.name)


class FontTest:
    """Of one of the fonts."""

    def test_every_byte_is_reached_in_both_ways_and_signs_alone_have_no_width(self):
        for byte in BYTES:
            name = self.font.cmap.get(0xF000 + byte)
            self.assertIsNotNone(name, hex(byte))
            self.assertEqual(self.font.cmap.get(windows1252(byte)), name, hex(byte))
            self.assertEqual(self.font.advance(byte) == 0, TABLE[byte]["width"] == "zero", hex(byte))

    def test_half_form_and_stroke_are_as_wide_as_the_letter(self):
        letters = {row["unicode"]: byte for byte, row in TABLE.items()
                   if row["role"] in ("consonant", "ligature")}
        halves = {byte: row["unicode"].removesuffix(HALF) for byte, row in TABLE.items()
                  if row["role"] == "half"}
        checked = {byte: letter for byte, letter in halves.items()
                   if letter in letters and letter not in NOT_BY_STROKE}
        for byte, letter in checked.items():
            self.assertEqual(self.font.advance(byte) + self.font.advance(STROKE),
                             self.font.advance(letters[letter]), hex(byte))
        self.assertGreater(len(checked), 15)

    def test_features_work_without_a_script_and_change_no_width(self):
        pick = random.Random(1)
        texts = [[byte for second in range(start, start + 32) for byte in (first, second, 0x20)]
                 for first in BYTES for start in range(0x20, 0x100, 32)]
        texts += [pick.choices(JOINING, k=12) for _ in range(2000)]
        changed = 0
        for text, glyphs in zip(texts, self.font.shaped_bytes(texts)):
            self.assertEqual(sum(glyph["ax"] for glyph in glyphs),
                             sum(map(self.font.advance, text)), bytes(text))
            changed += [glyph["g"] for glyph in glyphs] != [
                self.font.cmap[0xF000 + byte] for byte in text]
        self.assertGreater(changed, 1000)

    def test_syllables_look_as_the_source_font_sets_them(self):
        consonants = [byte for byte, row in TABLE.items() if row["role"] == "consonant"
                      and not row["unicode"].startswith("U+094D")]
        pairs = [(letter, sign) for letter in consonants for sign in SIGNS
                 if (letter, sign) not in OWN_BYTES]
        texts = [[letter, sign] if sign not in BEFORE else [sign, letter] for letter, sign in pairs]
        shown = self.source.shaped(syllable(letter, sign) for letter, sign in pairs)
        for text, ours, theirs in zip(texts, self.font.shaped_bytes(texts), shown):
            self.assertLess(distance(self.font.ink(ours), self.source.ink(theirs)), 25, bytes(text))

    def test_the_names_are_our_own_and_the_licence_is_named(self):
        names = {record.nameID: record.toUnicode() for record in self.font.font["name"].names}
        self.assertIn("SIL Open Font License, Version 1.1", names[LICENCE])
        self.assertIn("Copyright 2015 Google LLC.", names[COPYRIGHT])
        for number, text in names.items():
            if number not in (COPYRIGHT, DESCRIPTION, LICENCE):
                self.assertFalse(any(mark in text.lower() for mark in TRADEMARKS), text)


for face in FACES:
    file = f"{face.postscript_name}.otf"
    globals()[face.postscript_name] = type(face.postscript_name, (FontTest, unittest.TestCase), {
        "font": Font(FONTS / file), "source": Font(face.sources[0])})

if __name__ == "__main__":
    unittest.main()
