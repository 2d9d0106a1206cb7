"""The glyphs of a font in the making: those of the bytes, and those that stand for several."""

from dataclasses import dataclass

from encoding import characters, glyph_name
from recipes import VIRAMA
from source_font import Shape


@dataclass(frozen=True)
class Glyph:
    shape: Shape
    text: str
    role: str

    @property
    def is_mark(self):
        return self.role in ("sign-above", "sign-below", "reph")

    @property
    def is_letter(self):
        return self.role in ("consonant", "vowel", "ligature") and not self.text.startswith(VIRAMA)

    @property
    def moves_with_headline(self):
        return bool(self.shape.outline) and self.role not in ("latin", "control")


class GlyphTable:
    """Glyphs by their names, in the order of the font."""

    def __init__(self, rows, recipes):
        self.recipes = recipes
        self.glyphs = {".notdef": Glyph(recipes.frame(""), "", "control")}
        self.cmap = {}
        made = {}
        for row in rows:
            recipe = recipes.recipe(row)
            # Bytes that show the same share a glyph.
            name = made.setdefault((recipe, row.text), glyph_name(row.byte))
            if name not in self.glyphs:
                self.add(name, recipe(row.text), row.text, row.role)
            for character in characters(row.byte):
                self.cmap[character] = name

    def add(self, name, shape, text, role):
        self.glyphs[name] = Glyph(shape, text, role)
        return name

    def advance(self, names):
        return sum(self.glyphs[name].shape.advance for name in names)

    def named(self, wanted):
        """The glyphs for which wanted(glyph) is true, as name -> glyph."""
        return {name: glyph for name, glyph in self.glyphs.items() if wanted(glyph)}

    def letters(self):
        """What signs can stand on."""
        return self.named(lambda glyph: glyph.is_letter)

    def halves(self):
        return self.named(lambda glyph: glyph.role == "half")

    def find(self, text, roles, advance):
        """The name of a glyph that shows the text with one of the roles and this advance."""
        return next((name for name, glyph in self.glyphs.items()
                     if (glyph.text, glyph.shape.advance) == (text, advance)
                     and glyph.role in roles), None)
