"""The hooks of the short-i and the long-ii sign, which reach as far as their letter asks for."""

import re
from collections import defaultdict
from dataclasses import dataclass
from itertools import product
from statistics import mean

from ligatures import joined_text
from outlines import bounds
from recipes import HOOK_BASE, STEM_BASE, split_reph
from source_font import Shape

SHORT_I = "\u093f"
LONG_II = "\u0940"
ANUSVARA = "\u0902"
CANDRABINDU = "\u0901"
NOTHING = "nothing"  # a sign that the hook before it shows already
MOST_HALVES = 2      # a short-i sign reaches over so many half forms and a letter
WIDTH_STEP = 25      # half forms count as equally wide in such steps
REACH_NUMBER = re.compile(r"(?<=\.)\d\d$|\d\d(?=deva$)")


@dataclass(frozen=True)
class Rule:
    """In a context of glyph classes, those of the class at a place change to others."""

    context: tuple[tuple[str, ...], ...]
    place: int
    to: tuple[str, ...]


class Hooks:
    def __init__(self, table):
        self._table = table
        self._source = table.recipes.source
        self._letters = table.named(lambda glyph: glyph.is_letter and glyph.role != "vowel")
        self._halves = table.halves()
        self._add_short_kinds()
        self._short_kinds = tuple(self._kinds(SHORT_I))
        self._tips = self._measure_tips()
        self._by_reach = grouped(self._letters, lambda letter: self._reach_over(letter.text))
        self._by_width = grouped(
            self._halves, lambda half: WIDTH_STEP * round(half.shape.advance / WIDTH_STEP))
        self.lookups = {"merged": list(self._merging_rules()),
                        "hidden": list(self._hiding_rules()),
                        "shortReach": list(self._short_reach_rules()),
                        "shortReachHalf": list(self._half_reach_rules()),
                        "shortReachHalves": list(self._halves_reach_rules()),
                        "longReach": list(self._long_reach_rules())}

    def _add_short_kinds(self):
        """The forms with candrabindu, which have no byte."""
        for name, kind in self._kinds(SHORT_I).items():
            if ANUSVARA not in kind.text:
                text = kind.text + CANDRABINDU
                shape = self._table.recipes.short_i(text)
                self._table.add(f"{name}_bA1", shape, text, "sign-left")
        self._table.add(NOTHING, Shape([], 0), "", "sign-above")

    def _kinds(self, sign):
        """name -> glyph of the forms of a sign: with and without reph and dots"""
        return self._table.named(lambda glyph: split_reph(glyph.text)[1].startswith(sign))

    def _companions(self):
        """name -> glyph of what a hook can show itself"""
        return self._table.named(lambda glyph: glyph.role == "reph"
                                 or glyph.text in (ANUSVARA, CANDRABINDU))

    def _clusters(self):
        for count in range(MOST_HALVES + 1):
            yield (tuple(self._halves),) * count + (tuple(self._letters),)

    def _merging_rules(self):
        """A short-i sign takes over the reph and the dots behind its letter."""
        kinds = self._kinds(SHORT_I)
        by_text = {kind.text: name for name, kind in kinds.items()}
        for (name, kind), (mark, companion) in product(kinds.items(), self._companions().items()):
            merged = by_text.get(joined_text([kind.text, companion.text]), name)
            if merged != name:
                for cluster in self._clusters():
                    yield Rule(((name,), *cluster, (mark,)), 0, (merged,))

    def _hiding_rules(self):
        merged = tuple(name for name, kind in self._kinds(SHORT_I).items() if kind.text != SHORT_I)
        marks = tuple(self._companions())
        for cluster in self._clusters():
            yield Rule((merged, *cluster, marks), len(cluster) + 1, (NOTHING,) * len(marks))

    def _short_reach_rules(self):
        for reach, letters in self._by_reach.items():
            yield from self._reaching((letters,), reach)

    def _half_reach_rules(self):
        for width, halves in self._by_width.items():
            for reach, letters in self._by_reach.items():
                yield from self._reaching((halves, letters), self._farther(reach, width))

    def _halves_reach_rules(self):
        """Two half forms are so wide that their mean will do."""
        width = 2 * mean(half.shape.advance for half in self._halves.values())
        halves = tuple(self._halves)
        for reach, letters in self._by_reach.items():
            yield from self._reaching((halves, halves, letters), self._farther(reach, width))

    def _reaching(self, cluster, reach):
        to = tuple(self._reached(name, reach) for name in self._short_kinds)
        if to != self._short_kinds:
            yield Rule((self._short_kinds, *cluster), 0, to)

    def _reached(self, name, reach):
        """The glyph of a kind of short i with a reach, made when it is first asked for."""
        text = self._table.glyphs[name].text
        default = self._table.recipes.short_i_glyph(text, HOOK_BASE)
        drawn = REACH_NUMBER.sub(f"{reach:02}", default)
        if drawn == default:
            return name
        return self._variant(f"{name}.{reach:02}", self._source.glyph(drawn), text, "sign-left")

    def _variant(self, name, shape, text, role):
        if name not in self._table.glyphs:
            self._table.add(name, shape, text, role)
        return name

    def _reach_over(self, text):
        """The number of the reach that the source font has over a letter."""
        name = self._table.recipes.short_i_glyph(SHORT_I, text)
        number = REACH_NUMBER.search(name)
        return number and int(number[0])

    def _farther(self, reach, width):
        """The number of the reach that is nearest to one by so much farther."""
        target = self._tips[reach] + width
        return min(self._tips, key=lambda number: abs(self._tips[number] - target))

    def _measure_tips(self):
        """number of the reach -> where the hook ends"""
        default = self._table.recipes.short_i_glyph(SHORT_I, HOOK_BASE)
        names = {number: REACH_NUMBER.sub(f"{number:02}", default) for number in range(1, 13)}
        return {number: bounds(self._source.glyph(name).outline)[2]
                for number, name in names.items() if self._source.has_glyph(name)}

    def _long_reach_rules(self):
        kinds = self._kinds(LONG_II)
        groups = defaultdict(list)
        for name, letter in self._letters.items():
            groups[self._long_ii(letter.text, LONG_II)].append((name, letter))
        del groups[self._long_ii(STEM_BASE, LONG_II)]
        for number, letters in enumerate(groups.values(), 1):
            base = letters[0][1].text
            to = tuple(self._variant(f"{name}.{number:02}",
                                     self._source.glyph(self._long_ii(base, kind.text)),
                                     kind.text, "sign-right") for name, kind in kinds.items())
            yield Rule((tuple(name for name, _ in letters), tuple(kinds)), 1, to)

    def _long_ii(self, base, text):
        reph, rest = split_reph(text)
        return self._source.run(reph + base + rest).glyphs[-1].name


def grouped(glyphs, key):
    """key -> names of the glyphs with it; those without a key are left out"""
    groups = defaultdict(list)
    for name, glyph in glyphs.items():
        groups[key(glyph)].append(name)
    return {group: tuple(names) for group, names in groups.items() if group}
