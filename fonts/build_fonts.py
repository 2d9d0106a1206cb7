#!/usr/bin/python3
"""Builds Quillet's Devanagari fonts, beside this file or in another folder.

    fonts/build_fonts.py [FOLDER]    build all of them
    fonts/build_fonts.py --check     only say whether everything it takes is installed

It takes the packages python3-fonttools, libharfbuzz-bin and fonts-noto-core of Debian 12. What it
writes is the same byte for byte each time."""

import shutil
import sys
from dataclasses import dataclass
from pathlib import Path

HERE = Path(__file__).resolve().parent
SOURCES = Path("/usr/share/fonts/truetype/noto")
PACKAGES = "python3-fonttools libharfbuzz-bin fonts-noto-core"


@dataclass(frozen=True)
class Face:
    family: str
    style: str
    devanagari: str
    latin: str

    @property
    def is_bold(self):
        return self.style == "Bold"

    @property
    def full_name(self):
        return f"{self.family} Bold" if self.is_bold else self.family

    @property
    def postscript_name(self):
        return f"{self.family.replace(' ', '')}-{self.style}"

    @property
    def sources(self):
        return [SOURCES / f"{name}-{self.style}.ttf" for name in (self.devanagari, self.latin)]


FACES = [
    Face("Quillet Devanagari", "Regular", "NotoSansDevanagari", "NotoSans"),
    Face("Quillet Devanagari", "Bold", "NotoSansDevanagari", "NotoSans"),
    Face("Quillet Devanagari Serif", "Regular", "NotoSerifDevanagari", "NotoSerif"),
    Face("Quillet Devanagari Serif", "Bold", "NotoSerifDevanagari", "NotoSerif"),
]


def missing():
    """What it takes and is not installed."""
    try:
        import fontTools  # noqa: F401
    except ImportError:
        yield f"fontTools for {sys.executable}"
    if not shutil.which("hb-shape"):
        yield "hb-shape"
    yield from (str(path) for face in FACES for path in face.sources if not path.exists())


def build(folder):
    sys.dont_write_bytecode = True
    from encoding import read_table
    from font_file import write_font
    from glyphs import GlyphTable
    from recipes import Recipes
    from source_font import Shaper, SourceFont

    rows = read_table()
    folder.mkdir(parents=True, exist_ok=True)
    with Shaper() as shaper:
        for face in FACES:
            devanagari, latin = (SourceFont(path, shaper) for path in face.sources)
            table = GlyphTable(rows, Recipes(devanagari, latin))
            write_font(folder / f"{face.postscript_name}.otf", face, table, latin)


def main(arguments):
    lacking = list(missing())
    if lacking:
        sys.exit("Not installed: " + ", ".join(lacking) + f"\nDebian 12 has it: {PACKAGES}")
    if arguments != ["--check"]:
        build(Path(*arguments) if arguments else HERE)


if __name__ == "__main__":
    main(sys.argv[1:])
