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
    glyphs.reserve(static_cast<std::size_t>(text.size()));
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at].unicode();
        const bool isPair =
            QChar::isHighSurrogate(unit) && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        at += isPair ? 1 : 0;
        const bool isPrivate = unit >= 0xF020 && unit <= 0xF0FF;
        const auto byte =
            isPrivate ? static_cast<std::uint8_t>(unit & 0xFF) : byteOfUnicode(unit).value_or('?');
        glyphs.push_back(static_cast<char>(byte));
    }
    return glyphs;
}

bool isText(const QMimeData& data) {
    return data.hasFormat("text/plain");
}

} // namespace quillet
