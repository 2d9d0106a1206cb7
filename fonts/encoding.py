"""The table of what each byte shows."""

import csv
from dataclasses import dataclass
from pathlib import Path

TABLE = Path(__file__).with_name("kruti-dev-encoding.tsv")
PRIVATE_USE = 0xF000  # a byte is also reached at this character plus the byte


@dataclass(frozen=True)
class Row:
    byte: int
    text: str
    role: str
    has_width: bool


def read_table():
    with TABLE.open(encoding="utf-8", newline="") as lines:
        return [_row(cells) for cells in csv.DictReader(lines, delimiter="\t",
                                                         quoting=csv.QUOTE_NONE)]


def _row(cells):
    codes = [] if cells["unicode"] == "-" else cells["unicode"].split()
    text = "".join(chr(int(code.removeprefix("U+"), 16)) for code in codes)
    return Row(int(cells["byte"], 16), text, cells["role"], cells["width"] == "advance")


def characters(byte):
    """The two characters that show a byte. What Windows-1252 leaves undefined is a C1 control."""
    try:
        character = bytes([byte]).decode("cp1252")
    except UnicodeDecodeError:
        character = chr(byte)
    return ord(character), PRIVATE_USE + byte


def glyph_name(byte):
    return f"b{byte:02X}"
