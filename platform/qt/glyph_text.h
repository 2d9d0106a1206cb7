// How glyph codes are shown: by which characters of which font.
#pragma once

#include "base/glyph_string.h"

#include <QFont>
#include <QString>

namespace quillet {

/// Lets the program's own Devanagari fonts stand in where "Kruti Dev 010" or "Kruti Dev 020" is
/// not installed. To be called once, before a window is made.
void offerOpenFonts();

/// The characters that show glyph codes in one font. Fonts made for these codes have them in the
/// private use area, beyond what the toolkit thinks of soft hyphens and control characters; in
/// all others they are the Windows-1252 characters, but a hyphen for the soft one, which would
/// not be seen.
class GlyphCharacters {
  public:
    explicit GlyphCharacters(const QFont& font);

    QChar of(char glyph) const;
    QString of(GlyphView text) const;

    /// Control characters have no glyph; in fonts made for the codes there are fewer of them.
    bool isDrawn(char glyph) const;

  private:
    bool isPrivate_;
};

} // namespace quillet
