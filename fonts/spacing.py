"""Half forms are as narrow as the full letter without its stem, which is closer to the next letter
than the source font sets most of them. The two are drawn apart, each a little, within their
advances."""

from statistics import mean

from recipes import JOINER

# The shares of what is missing by which a half form moves left and the letter behind it right.
HALF_SHARE, HALF_LIMIT = 0.5, 45
LETTER_SHARE, LETTER_LIMIT = 0.25, 25


def half_moves(table):
    """name of a half form -> (how far it moves, how far the letter behind it moves)"""
    letters = table.named(lambda glyph: glyph.role == "consonant" and len(glyph.text) == 1)
    texts = [letter.text for letter in letters.values()]
    moves = {name: _moves(_missing(table.recipes.source, half, texts))
             for name, half in table.halves().items()}
    return {name: move for name, move in moves.items() if any(move)}


def _moves(missing):
    return (-_limited(HALF_SHARE * missing, HALF_LIMIT),
            _limited(LETTER_SHARE * missing, LETTER_LIMIT))


def _limited(move, limit):
    return round(max(-limit, min(limit, move)))


def _missing(source, half, letters):
    """How much wider, on average, the source font sets a half form before a letter."""
    if source.shape(half.text).outline != half.shape.outline:
        return 0
    joined = half.text.removesuffix(JOINER)
    drawn = source.run(half.text).glyphs[0].name
    runs = [(source.run(joined + letter), source.advance(letter)) for letter in letters]
    return mean([run.advance - advance - half.shape.advance for run, advance in runs
                 if [glyph.name for glyph in run.glyphs[:-1]] == [drawn]] or [0])
