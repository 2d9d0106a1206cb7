"""The OpenType features, as feature code. Without them the text is readable, with them it is good.
None changes how far a text reaches."""

from hooks import Hooks
from ligatures import Ligatures
from positions import Positions
from spacing import half_moves

# Text in the private use area has no script; shown as Windows-1252 it counts as Latin.
LANGUAGE_SYSTEMS = "languagesystem DFLT dflt;\nlanguagesystem latn dflt;\n"


def feature_code(table):
    """Adds the glyphs that the features need to the table."""
    ligatures, hooks = Ligatures(table), Hooks(table)
    lookups = [_ligature_lookup(name, rules) for name, rules in ligatures.lookups.items()]
    lookups += [_context_lookup(name, rules) for name, rules in hooks.lookups.items()]
    return "\n".join([LANGUAGE_SYSTEMS, *_feature("calt", lookups), *_mark(Positions(table)),
                      *_feature("dist", _distances(table)), *_definitions(table)])


def _feature(tag, content):
    return [f"feature {tag} {{", *content, f"}} {tag};"]


def _lookup(name, statements):
    return "\n".join([f"lookup {name} {{", *statements, f"}} {name};"])


def _class(names):
    return f"[{' '.join(names)}]"


def _ligature_lookup(name, ligatures):
    return _lookup(name, [f"sub {' '.join(parts)} by {ligature};"
                          for parts, ligature in ligatures.items()])


def _context_lookup(name, rules):
    return _lookup(name, [_context_rule(rule) for rule in rules])


def _context_rule(rule):
    context = [_class(names) + ("'" if place == rule.place else "")
               for place, names in enumerate(rule.context)]
    return f"sub {' '.join(context)} by {_class(rule.to)};"


def _mark(positions):
    for kind, names in positions.classes.items():
        yield f"markClass {_class(names)} <anchor 0 0> @{kind};"
    yield from _feature("mark", [_base(name, anchors)
                                 for name, anchors in positions.anchors.items()])


def _base(name, anchors):
    marks = " ".join(f"<anchor {x} {y}> mark @{kind}" for kind, (x, y) in anchors.items())
    return f"pos base {name} {marks};"


def _distances(table):
    """In two lookups, since one rule of a lookup at most applies to a place."""
    moves = half_moves(table)
    yield f"@BEHIND = {_class([*table.halves(), *table.letters()])};"
    yield _lookup("half", ["lookupflag IgnoreMarks;"] + [
        f"pos {name}' <{half} 0 0 0> @BEHIND;" for name, (half, _) in moves.items()])
    yield _lookup("behind", ["lookupflag IgnoreMarks;"] + [
        f"pos {name} @BEHIND' <{behind} 0 0 0>;" for name, (_, behind) in moves.items()])


def _definitions(table):
    marks = table.named(lambda glyph: glyph.is_mark)
    bases = [name for name in table.glyphs if name not in marks]
    return ["table GDEF {", f"GlyphClassDef {_class(bases)},,{_class(marks)},;", "} GDEF;"]
