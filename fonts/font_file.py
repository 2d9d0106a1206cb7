"""Puts glyphs, features and names together into a font file."""

from fontTools.feaLib.builder import addOpenTypeFeaturesFromString
from fontTools.fontBuilder import FontBuilder
from fontTools.pens.t2CharStringPen import T2CharStringPen

from features import feature_code
from outlines import bounds, draw_postscript

UNITS_PER_EM = 1000
# The same for all, and enough for every letter with its signs.
ASCENT = 930
DESCENT = 410
VERSION = "1.000"
LICENCE = "This Font Software is licensed under the SIL Open Font License, Version 1.1."
LICENCE_ADDRESS = "http://scripts.sil.org/OFL"
CHANGES = "Modified Version: glyphs selected, cut, merged and arranged for an 8-bit encoding."
BASELINE_ZONE = [-15, 0]
HEADLINE_OVERSHOOT = 12


def write_font(path, face, table, latin):
    features = feature_code(table)
    builder = FontBuilder(UNITS_PER_EM, isTTF=False)
    builder.setupGlyphOrder(list(table.glyphs))
    builder.setupCharacterMap(table.cmap)
    _set_outlines(builder, face, table)
    _set_metrics(builder, face, table)
    builder.setupNameTable(_names(face, table.recipes.source.font, latin.font), mac=False)
    addOpenTypeFeaturesFromString(builder.font, features)
    builder.font.recalcTimestamp = False
    builder.font.save(path)


def _set_outlines(builder, face, table):
    bottom, top = table.recipes.headline()
    # One hint for all: fitted to pixels, headlines and what stands on them then move alike.
    hint = [bottom, top - bottom, "hstem"]
    charstrings = {name: _charstring(glyph, hint if glyph.moves_with_headline else [])
                   for name, glyph in table.glyphs.items()}
    private = {"BlueValues": [*BASELINE_ZONE, top, top + HEADLINE_OVERSHOOT],
               "StdHW": top - bottom}
    info = {"FullName": face.full_name, "FamilyName": face.family, "Weight": face.style}
    builder.setupCFF(face.postscript_name, info, charstrings, private)


def _charstring(glyph, hint):
    pen = T2CharStringPen(round(glyph.shape.advance), None)
    draw_postscript(glyph.shape.outline, pen)
    charstring = pen.getCharString()
    width, *drawing = charstring.program
    charstring.program = [width, *hint, *drawing]
    return charstring


def _set_metrics(builder, face, table):
    source = table.recipes.source.font
    builder.setupHorizontalMetrics({name: _horizontal(glyph.shape)
                                    for name, glyph in table.glyphs.items()})
    builder.setupHorizontalHeader(ascent=ASCENT, descent=-DESCENT)
    builder.setupOS2(
        version=4, sTypoAscender=ASCENT, sTypoDescender=-DESCENT, sTypoLineGap=0,
        usWinAscent=ASCENT, usWinDescent=DESCENT, usWeightClass=700 if face.is_bold else 400,
        fsSelection=0x20 if face.is_bold else 0x40, fsType=0, achVendID="    ",
        ulUnicodeRange1=1 << 0 | 1 << 1, ulUnicodeRange2=1 << 60 - 32,  # Latin, private use
        ulCodePageRange1=1 << 0,                                        # Windows-1252
        **{key: getattr(source["OS/2"], key) for key in (
            "sxHeight", "sCapHeight", "yStrikeoutPosition", "yStrikeoutSize")})
    builder.setupPost(underlinePosition=source["post"].underlinePosition,
                      underlineThickness=source["post"].underlineThickness, keepGlyphNames=False)
    builder.setupHead(unitsPerEm=UNITS_PER_EM, fontRevision=float(VERSION), lowestRecPPEM=8,
                      macStyle=1 if face.is_bold else 0, flags=3,
                      created=source["head"].created, modified=source["head"].modified)


def _horizontal(shape):
    ink = bounds(shape.outline)
    return round(shape.advance), round(ink[0]) if ink else 0


def _names(face, source, latin):
    notices = dict.fromkeys(font["name"].getDebugName(0) for font in (source, latin))
    original = source["name"].getDebugName(1)
    version = source["name"].getDebugName(5).split(";")[0]
    return {
        "copyright": " ".join([*notices, CHANGES]),
        "familyName": face.family,
        "styleName": face.style,
        "uniqueFontIdentifier": f"{VERSION};{face.postscript_name}",
        "fullName": face.full_name,
        "version": f"Version {VERSION}",
        "psName": face.postscript_name,
        "description": f"Derived from {original} ({version}).",
        "licenseDescription": LICENCE,
        "licenseInfoURL": LICENCE_ADDRESS,
    }
