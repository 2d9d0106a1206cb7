"""How each byte of the encoding gets its outline and advance from the source fonts."""

from outlines import clipped, crossings, moved, points, polygon, transposed
from source_font import Shape

VIRAMA = "\u094d"
JOINER = "\u200d"
RA = "\u0930"
YA = "\u092f"
AA_SIGN = "\u093e"
REPH = RA + VIRAMA
STEM_BASE = "\u092e"  # ma: signs are taken from above, below and beside it
HOOK_BASE = "\u092a"  # pa: the short-i sign without context reaches over it
ROUND_BASE = "\u091f"  # tta: what hangs below round consonants is taken from it
ARM_LENGTH = 70  # from the neck of tta to the left, where tta itself hides it

# Half forms that are not the full letter without the aa sign: text -> text that ends before ta.
BEFORE_TA = {"\u0915\u094d\u200d": "\u0915\u094d\u0924", "\u092b\u094d\u200d": "\u092b\u094d\u0924"}
OWN_ADVANCE = {"\u0939\u094d\u200d"}


def split_reph(text):
    """(reph or nothing, the rest)"""
    return (REPH, text[len(REPH):]) if text.startswith(REPH) else ("", text)


def without_joiner(text):
    return text.removesuffix(JOINER).removesuffix(VIRAMA)


class Recipes:
    def __init__(self, devanagari, latin):
        self.source = devanagari
        self._latin = latin
        self._by_role = {
            "half": self.half,
            "latin": self._latin_text,
            "control": self.frame,
            "reph": self.sign,
            "sign-above": self.sign,
            "sign-below": self.sign,
            "sign-left": self.short_i,
            "sign-right": self.sign,
            "stroke": self.sign,
        }
        self._by_byte = {
            0x2B: self._nukta,
            0x7A: self._ra_stroke,
            0x99: self._half_of_two,
            0xAA: self._ra_caret,
            0xD3: self._joined_ya,
            0xEE: self._joined_ya,
        }

    def recipe(self, row):
        return self._by_byte.get(row.byte) or self._by_role.get(row.role, self._full)

    def headline(self):
        """(bottom, top) of the headline, which is the same in every letter."""
        heights = {y for _, y in points(self.sign(AA_SIGN).outline)}
        top = max(heights)
        return min(y for y in heights if y > 0.6 * top), top

    def half(self, text):
        """A half form that the stroke makes full, where the letter is made so."""
        source = self.source
        if text in OWN_ADVANCE:
            advance = source.advance(text)
        elif text in BEFORE_TA:
            advance = source.advance(BEFORE_TA[text]) - source.advance("\u0924")
        else:
            advance = source.advance(without_joiner(text)) - self.sign(AA_SIGN).advance
        return Shape(source.shape(text).outline, advance)

    def sign(self, text):
        """What a sign adds to a consonant, counted from the consonant's end."""
        reph, rest = split_reph(text)
        base = self.source.run(STEM_BASE)
        whole = self.source.run(reph + STEM_BASE + rest)
        added = [glyph for glyph in whole.glyphs if glyph not in base.glyphs]
        outline = moved(self.source.outline(added), -base.advance)
        return Shape(outline, whole.advance - base.advance)

    def short_i(self, text):
        return self.source.glyph(self.short_i_glyph(text, HOOK_BASE))

    def short_i_glyph(self, text, base):
        """The name of the short-i sign with the reach that a base asks for."""
        reph, rest = split_reph(text)
        return self.source.run(reph + base + rest).glyphs[0].name

    def hanging(self, text):
        """(x from the end of the letter, y) of the part that hangs from a letter; None where the
        source has not composed the letter so."""
        run = self.source.run(text)
        part = self.source.last_component(run.glyphs[0].name) if len(run.glyphs) == 1 else None
        return part and (part.x - run.advance, part.y)

    def _full(self, text):
        if text.isspace():
            return Shape([], self.source.advance(" "))
        if self.source.has(text):
            return self.source.shape(text)
        return self._latin_text(text)

    def _latin_text(self, text):
        """Not shaped, which would hide the soft hyphen."""
        return self._latin.character(text)

    def frame(self, _text):
        width = self._full("0").advance
        left, right = 60, width - 60
        outer = polygon((left, 0), (left, 620), (right, 620), (right, 0))
        inner = polygon((left + 50, 50), (right - 50, 50), (right - 50, 570), (left + 50, 570))
        return Shape(outer + inner, width)

    def _nukta(self, _text):
        return self._hanging_part("\u095c")

    def _ra_caret(self, _text):
        return self._hanging_part(ROUND_BASE + VIRAMA + RA)

    def _hanging_part(self, text):
        part = self.source.last_component(self.source.run(text).glyphs[0].name)
        return Shape(moved(self.source.outline([part]), -self.source.advance(text)), 0)

    def _half_of_two(self, text):
        half = self.half(text[:2] + JOINER)
        return Shape(half.outline + moved(half.outline, half.advance), 2 * half.advance)

    def _ra_stroke(self, _text):
        """The stroke of ma with ra, from its tip to the middle of the stem, where any stem hides
        its end."""
        whole = self.source.shape(STEM_BASE + VIRAMA + RA)
        corners = points(moved(whole.outline, -whole.advance))
        tip = min(range(len(corners)), key=lambda at: (corners[at][1], corners[at][0]))
        low, high, end = (corners[(tip + step) % len(corners)] for step in range(3))
        return Shape(self._slanted_stroke(low, high, end), 0)

    def _slanted_stroke(self, low, high, end):
        middle = self._stem_middle()
        slope = (end[1] - high[1]) / (end[0] - high[0])
        top = high[1] + slope * (middle - high[0])
        bottom = low[1] + slope * (middle - low[0])
        return polygon(low, high, (middle, top), (middle, bottom))

    def _stem_middle(self):
        """Counted from the end of the letter."""
        aa = self.sign(AA_SIGN)
        stem = crossings(aa.outline, 200)
        return (stem[0] + stem[-1]) / 2 - aa.advance

    def _joined_ya(self, _text):
        """Ya that joins a round consonant, cut off tta: along the neck of tta, then aslant between
        the bowl of tta and the tip of ya. Its arm is made longer, to reach all necks."""
        whole = self.source.shape(ROUND_BASE + VIRAMA + YA)
        tta = self.source.shape(ROUND_BASE)
        neck = crossings(tta.outline, 500)[-1] + 1
        ya = clipped(whole.outline, (neck, 900), (neck, -300))
        tip = min(point for point in points(ya) if point[0] > neck + 40 and 190 < point[1] < 320)
        ya = clipped(ya, (neck, tip[1] + 90), (tip[0] - 6, tip[1] - 30))
        bottom, top = crossings(transposed(ya), neck + 20)[-4:-2]
        left, right = neck - ARM_LENGTH, neck + 5
        arm = polygon((left, bottom), (left, top), (right, top), (right, bottom))
        return Shape(moved(ya + arm, -tta.advance), whole.advance - tta.advance)
