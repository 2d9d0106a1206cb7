#!/usr/bin/env python3
"""Prints a text as SVG path data: outline_text.py FONT-FILE SIZE TEXT

Needs hb-shape (libharfbuzz-bin) and fontTools (python3-fonttools). The text starts at x = 0 with
its baseline at y = 0; its width goes to standard error.
"""
import json
import subprocess
import sys

from fontTools.misc.transform import Scale
from fontTools.pens.svgPathPen import SVGPathPen
from fontTools.pens.transformPen import TransformPen
from fontTools.ttLib import TTFont

file, size, text = sys.argv[1], float(sys.argv[2]), sys.argv[3]
font = TTFont(file)
glyphs = font.getGlyphSet()
scale = size / font["head"].unitsPerEm
path = SVGPathPen(glyphs, ntos=lambda number: f"{round(number, 1):g}")
x = 0
for glyph in json.loads(subprocess.check_output(["hb-shape", "--output-format=json", file, text])):
    place = Scale(scale, -scale).translate(x + glyph["dx"], glyph["dy"])
    glyphs[glyph["g"]].draw(TransformPen(path, place))
    x += glyph["ax"]
print(path.getCommands())
print(f"{x * scale:.1f} wide", file=sys.stderr)
