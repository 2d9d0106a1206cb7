"""Where the signs above and below stand on each letter, in relation to where they stand on ma."""

from encoding import glyph_name
from ligatures import NUKTA_SIGN
from recipes import RA, REPH, ROUND_BASE, STEM_BASE, VIRAMA

NOWHERE = (0, 0)
CLASSES_BY_BYTE = {0x2B: "nukta", 0x57: "candra", 0x7A: "stroke", 0xA1: "candrabindu",
                   0xAA: "caret"}
CLASSES_BY_ROLE = {"reph": "reph", "sign-above": "above", "sign-below": "below"}
NUKTA_BASE = "\u0921"  # dda: the nukta is taken from it
# The signs that a class is measured by; the first that the source font sets as a sign counts.
ABOVE = ("\u0947", "\u0902")
BELOW = ("\u0941", VIRAMA)


class Positions:
    def __init__(self, table):
        self._source = table.recipes.source
        self._recipes = table.recipes
        marks = table.named(lambda glyph: glyph.is_mark)
        own = {glyph_name(byte): kind for byte, kind in CLASSES_BY_BYTE.items()}
        self.classes = {}  # class -> names of the marks
        for name, mark in marks.items():
            kind = own.get(name, CLASSES_BY_ROLE[mark.role])
            self.classes.setdefault(kind, []).append(name)
        self.anchors = {name: self._letter_anchors(letter)
                        for name, letter in table.letters().items()}

    def _letter_anchors(self, letter):
        """class -> (x, y) of the anchor, counted from the origin of the letter"""
        moves = self._moves(letter.text)
        return {kind: (round(letter.shape.advance + moves[kind][0]), moves[kind][1])
                for kind in self.classes}

    def _moves(self, text):
        above = self._first(text, ABOVE)
        below = self._first(text, BELOW)
        return {
            "above": above or NOWHERE,
            "candra": self._set(text, "\u0945") or above or NOWHERE,
            "candrabindu": self._set(text, "\u0901") or above or NOWHERE,
            "below": below or NOWHERE,
            "reph": self._reph(text) or self._set(text, "\u0902") or NOWHERE,
            "nukta": self._hung(text + NUKTA_SIGN, NUKTA_BASE + NUKTA_SIGN) or NOWHERE,
            "caret": self._hung(text + VIRAMA + RA, ROUND_BASE + VIRAMA + RA) or below or NOWHERE,
            "stroke": NOWHERE,
        }

    def _first(self, text, signs):
        return next(filter(None, (self._set(text, sign) for sign in signs)), None)

    def _set(self, text, sign):
        return self._moved(self._source.run(text), self._source.run(text + sign),
                           self._source.run(STEM_BASE + sign))

    def _reph(self, text):
        return self._moved(self._source.run(text), self._source.run(REPH + text),
                           self._source.run(REPH + STEM_BASE))

    def _moved(self, plain, signed, on_ma):
        """By how much a sign is off its place on ma; None where it is not set as a sign."""
        sign, usual = signed.glyphs[-1], on_ma.glyphs[-1]
        if signed.glyphs[:-1] != plain.glyphs or sign.name != usual.name:
            return None
        return (sign.x - signed.advance) - (usual.x - on_ma.advance), sign.y - usual.y

    def _hung(self, text, usual):
        here, there = self._recipes.hanging(text), self._recipes.hanging(usual)
        return here and (here[0] - there[0], here[1] - there[1])
