// Between the program's texts and the toolkit's.
#pragma once

#include "base/glyph_string.h"

#include <QString>

class QMimeData;

namespace quillet {

/// Every glyph code as its Windows-1252 character.
QString displayText(GlyphView text);

/// The glyph codes of a text; what Windows-1252 cannot represent becomes "?".
GlyphString glyphText(const QString& text);

/// Whether data from another program is text; a list of files alone is none.
bool isText(const QMimeData& data);

/// Titles, messages and paths are UTF-8.
inline QString fromUtf8(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace quillet
