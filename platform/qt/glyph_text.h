// How glyph codes are shown: by which characters of which font.
#pragma once

#include "base/glyph_string.h"

#include <QFont>
#include <QString>

namespace quillet {

/// Lets the program's own Devanagari fonts stand in where "Kruti Dev 010" or "Kruti Dev 020" is
/// not installed. To be called once, before a window is made.
void offerOpenFonts();

/// A font whose glyphs stand where its metrics say: without kerning, hinting and glyphs from other
/// fonts.
QFont exactFont(const QString& family, double points);

/// The characters that show glyph codes in one font. Fonts made for these codes have them in the
/// private use area, beyond what the toolkit thinks of soft hyphens and control characters; in
/// all others they are the Windows-1252 characters, but a hyphen for the soft one, which would
/// not be seen.
class GlyphCharacters {
  public:
    explicit GlyphCharacters(const QFont& font);

    QChar of(char glyph) const;
    QString of(GlyphView text) const;

    /// The same for a text that is edited: `glyphText` gives it back whatever the font, and its
    /// blanks are ones between words.
    QString editable(GlyphView text) const;

    /// Control characters have no glyph; in fonts made for the codes there are fewer of them.
    bool isDrawn(char glyph) const;

    /// The character that is as wide as a glyph: one that is not drawn takes the room of a zero.
    QChar measured(char glyph) const { return of(isDrawn(glyph) ? glyph : '0'); }

  private:
    bool isPrivate_;
};

} // namespace quillet
