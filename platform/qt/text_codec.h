// Between the program's texts and the toolkit's.
#pragma once

#include "base/glyph_string.h"

#include <QString>

class QMimeData;

namespace quillet {

/// Every glyph code as its Windows-1252 character.
QString displayText(GlyphView text);

/// The character of the private use area that stands for a glyph code in fonts made for the codes.
inline QChar privateCharacter(char glyph) {
    return QChar(char16_t{0xF000} + glyphCode(glyph));
}

/// The glyph codes of a text of Windows-1252 or private characters; what is neither becomes "?".
GlyphString glyphText(const QString& text);

/// Whether data from another program is text; a list of files alone is none.
bool isText(const QMimeData& data);

/// Titles, messages and paths are UTF-8.
inline QString fromUtf8(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace quillet
