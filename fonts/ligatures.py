"""Ligatures: where several bytes make one letter or one sign, the source font has it drawn as a
whole, without the seams and collisions of its parts. A ligature is as wide as its parts."""

from itertools import permutations, product

from encoding import glyph_name
from outlines import moved
from recipes import JOINER, RA, STEM_BASE, VIRAMA, YA, split_reph, without_joiner
from source_font import Shape

STROKE = glyph_name(0x6B)
NUKTA = glyph_name(0x2B)
RA_BELOW = (glyph_name(0x7A), glyph_name(0xAA))
JOINED_YA = glyph_name(0xD3)
BELOW = tuple(glyph_name(byte) for byte in (0x71, 0x77, 0x60))
LONGEST_WITH_SIGN = 3  # characters of a letter; longer ones have hardly a sign below as well
LETTER_ROLES = ("consonant", "vowel", "ligature")

NUKTA_SIGN = "\u093c"
# Letters that a nukta makes another letter.
NUKTA_LETTERS = ("\u0915", "\u0916", "\u0917", "\u091c", "\u0921", "\u0922", "\u092b", "\u092f",
                 "\u0930", "\u0928")
# Vowels that are written with several bytes.
VOWELS = {
    (0x62, 0x5A): "\u0908",        # i with reph: ii
    (0x62, 0xB1): "\u0908\u0902",  # i with reph and anusvara: ii with anusvara
    (0x2C, 0x73): "\u0910",        # e with the e sign: ai
    (0x2C, 0x73, 0x61): "\u0910\u0902",
    (0x2C, 0x73, 0xA1): "\u0910\u0901",
}
# Signs with a hook, and what makes room for it: reph and dots. Those without width come in any
# order.
MARK_HOSTS = (0x73, 0x53, 0x57)
WIDE_HOSTS = (0x68, 0x82, 0xA8, 0xA9, 0xC8, 0xCA)
COMPANIONS = ((0x5A,), (0x61,), (0xA1,), (0xB1,), (0x5A, 0x61), (0x5A, 0xA1))
DOTS = {"\u0901", "\u0902"}  # only one of them can stand on a letter

# By how much the source font's letter may be wider or narrower than its parts.
TOLERANCE = 40
TOLERANCE_BELOW = 20


def joined_text(texts):
    """The Unicode text of a sign and what stands beside it: reph first, dots last."""
    parts = [split_reph(text) for text in texts]
    reph = max(part[0] for part in parts)
    return reph + "".join(sorted((part[1] for part in parts), reverse=True))


class Ligatures:
    """Adds the glyphs to a table, and keeps what they are put in for."""

    def __init__(self, table):
        self._table = table
        self._source = table.recipes.source
        self.lookups = {}  # name -> {names of the parts: name of the ligature}, in their order
        for fill in (self._half_nuktas, self._strokes, self._nuktas, self._ras_below,
                     self._yas, self._vowels, self._below, self._signs):
            self._lookup = self.lookups.setdefault(fill.__name__.strip("_"), {})
            fill()

    def _half_nuktas(self):
        for name, half in self._table.halves().items():
            letter = without_joiner(half.text)
            if letter in NUKTA_LETTERS:
                text = letter + NUKTA_SIGN + VIRAMA + JOINER
                self._put((name, NUKTA), self._source.shape(text).outline, text, "half")

    def _strokes(self):
        for name, half in self._table.halves().items():
            self._put_letter((name, STROKE), without_joiner(half.text), tolerance=0)

    def _nuktas(self):
        for name, letter in self._table.letters().items():
            if letter.text in NUKTA_LETTERS:
                self._put_letter((name, NUKTA), letter.text + NUKTA_SIGN)

    def _ras_below(self):
        for name, letter in self._table.letters().items():
            text = letter.text + VIRAMA + RA
            if letter.role != "vowel":
                for ra in RA_BELOW:
                    self._put_letter((name, ra), text, single=True)

    def _yas(self):
        for name, letter in self._table.letters().items():
            if letter.role == "consonant":
                text = letter.text + VIRAMA + YA
                self._put_letter((name, JOINED_YA), text, single=True)

    def _vowels(self):
        for parts, text in VOWELS.items():
            self._put_letter(tuple(glyph_name(byte) for byte in parts), text, "vowel")

    def _below(self):
        """Letters that the source font draws otherwise with a sign below."""
        for (name, letter), sign in product(self._table.letters().items(), BELOW):
            text = letter.text + self._table.glyphs[sign].text
            if len(letter.text) <= LONGEST_WITH_SIGN and not self._is_plain(letter.text, text):
                self._put_letter((name, sign), text, tolerance=TOLERANCE_BELOW)

    def _is_plain(self, letter, signed):
        """Whether the sign is drawn as below ma, and the letter as without it."""
        usual = self._source.run(STEM_BASE + signed[-1]).glyphs[-1].name
        run = self._source.run(signed).glyphs
        return run[:-1] == self._source.run(letter).glyphs and run[-1].name == usual

    def _signs(self):
        for companions in COMPANIONS:
            for host in MARK_HOSTS:
                for order in permutations((host, *companions)):
                    self._put_sign(order, "sign-above")
            for host in WIDE_HOSTS:
                for order in permutations(companions):
                    self._put_sign((host, *order), "sign-right")
            if len(companions) > 1:
                for order in permutations(companions):
                    self._put_sign(order, "reph")

    def _put_letter(self, parts, text, role="ligature", tolerance=TOLERANCE, single=False):
        """The letter keeps its right edge, since signs are counted from there. If asked for, it is
        put only where the source font has a single glyph."""
        advance = self._table.advance(parts)
        shape = self._source.shape(text)
        is_single = len(self._source.run(text).glyphs) == 1
        if abs(shape.advance - advance) <= tolerance and (is_single or not single):
            self._put(parts, moved(shape.outline, advance - shape.advance), text, role)

    def _put_sign(self, order, role):
        parts = tuple(self._table.cmap[0xF000 + byte] for byte in order)
        texts = [self._table.glyphs[part].text for part in parts]
        text = joined_text(texts)
        is_twofold = len(set(text)) < len("".join(texts)) or DOTS <= set(text)
        if not is_twofold:
            self._put(parts, self._table.recipes.sign(text).outline, text, role)

    def _put(self, parts, outline, text, role):
        advance = self._table.advance(parts)
        roles = (role,) if role.startswith(("half", "sign", "reph")) else LETTER_ROLES
        self._lookup[parts] = (
            self._table.find(text, roles, advance)
            or self._table.add("_".join(parts), Shape(outline, advance), text, role))
