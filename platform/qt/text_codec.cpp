#include "platform/qt/text_codec.h"

#include "base/windows1252.h"

#include <QList>
#include <QMimeData>

namespace quillet {

QString displayText(GlyphView text) {
    QString display(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    QChar* to = display.data();
    for (const char glyph : text)
        *to++ = QChar(unicodeOfByte(glyphCode(glyph)));
    return display;
}

GlyphString glyphText(const QString& text) {
    GlyphString glyphs;
    const auto characters = text.toUcs4();
    glyphs.reserve(static_cast<std::size_t>(characters.size()));
    for (const char32_t character : characters)
        glyphs.push_back(static_cast<char>(byteOfUnicode(character).value_or('?')));
    return glyphs;
}

bool isText(const QMimeData& data) {
    return data.hasFormat("text/plain");
}

} // namespace quillet
