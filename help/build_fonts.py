#!/usr/bin/python3
"""Builds the fonts for the Hindi text of the help pages, beside this file or in another folder.

    help/build_fonts.py [FOLDER]

They are the Devanagari of Noto Sans Devanagari with all its ligatures and without its hints, under
names of their own. It takes the packages python3-fonttools and fonts-noto-core of Debian 12; what
it writes is the same byte for byte each time."""

import sys
from pathlib import Path

from fontTools.subset import Options, Subsetter
from fontTools.ttLib import TTFont

HERE = Path(__file__).resolve().parent
SOURCES = Path("/usr/share/fonts/truetype/noto")
FAMILY = "Quillet Help"
# The script; and the space, the joiners, the rupee sign and the circle that signs stand on.
CHARACTERS = [*range(0x0900, 0x0980), 0x20, 0xA0, 0x200C, 0x200D, 0x20B9, 0x25CC]
CHANGED = "Modified Version of Noto Sans Devanagari: characters were selected, hints removed."
# What stays of the names: copyright, style, version, licence and its address.
KEPT_NAMES = (0, 2, 5, 13, 14)


def rename(font, style):
    names = font["name"]
    names.names = [record for record in names.names if record.nameID in KEPT_NAMES]
    full, postscript = f"{FAMILY} {style}", f"{FAMILY.replace(' ', '')}-{style}"
    for number, text in {1: FAMILY, 3: postscript, 4: full, 6: postscript, 10: CHANGED}.items():
        names.setName(text, number, 3, 1, 0x409)


def build(style, folder):
    font = TTFont(SOURCES / f"NotoSansDevanagari-{style}.ttf", recalcTimestamp=False)
    options = Options(layout_features=["*"], hinting=False, notdef_outline=True)
    subsetter = Subsetter(options)
    subsetter.populate(unicodes=CHARACTERS)
    subsetter.subset(font)
    rename(font, style)
    font.flavor = "woff"
    font.save(folder / f"{FAMILY.replace(' ', '')}-{style}.woff")


if __name__ == "__main__":
    target = Path(sys.argv[1]) if sys.argv[1:] else HERE
    target.mkdir(parents=True, exist_ok=True)
    for each in ("Regular", "Bold"):
        build(each, target)
