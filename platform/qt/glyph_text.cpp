#include "platform/qt/glyph_text.h"

#include "base/windows1252.h"
#include "platform/qt/text_codec.h"

#include <QFontDatabase>
#include <QFontMetrics>

#include <array>

namespace quillet {
namespace {

struct OpenFont {
    const char* standsFor;
    const char* family;
    std::array<const char*, 2> files;
};

constexpr std::array<OpenFont, 2> openFonts = {{
    {"Kruti Dev 010",
     "Quillet Devanagari",
     {":/fonts/QuilletDevanagari-Regular.otf", ":/fonts/QuilletDevanagari-Bold.otf"}},
    {"Kruti Dev 020",
     "Quillet Devanagari Serif",
     {":/fonts/QuilletDevanagariSerif-Regular.otf", ":/fonts/QuilletDevanagariSerif-Bold.otf"}},
}};

// Of its own, not in another font that the toolkit would take them from.
bool hasPrivateCharacters(QFont font) {
    font.setStyleStrategy(QFont::NoFontMerging);
    return QFontMetrics(font).inFont(privateCharacter('d'));
}

} // namespace

// The toolkit substitutes a family only where it is missing.
void offerOpenFonts() {
    for (const OpenFont& font : openFonts) {
        for (const char* file : font.files)
            QFontDatabase::addApplicationFont(file);
        QFont::insertSubstitution(font.standsFor, font.family);
    }
}

// Where the family is missing, its substitute is named here: before the toolkit takes that, it
// sorts all fonts there are.
QFont exactFont(const QString& family, double points) {
    QFont font(QFontDatabase::hasFamily(family) ? family : QFont::substitute(family));
    font.setPointSizeF(points);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

GlyphCharacters::GlyphCharacters(const QFont& font) : isPrivate_(hasPrivateCharacters(font)) {}

QChar GlyphCharacters::of(char glyph) const {
    constexpr char softHyphen = '\xAD';
    if (isPrivate_ && isDrawn(glyph))
        return privateCharacter(glyph);
    return glyph == softHyphen ? QChar(u'-') : QChar(unicodeOfByte(glyphCode(glyph)));
}

QString GlyphCharacters::of(GlyphView text) const {
    QString shown;
    shown.reserve(static_cast<qsizetype>(text.size()));
    for (const char glyph : text)
        shown.append(of(glyph));
    return shown;
}

QString GlyphCharacters::editable(GlyphView text) const {
    return isPrivate_ ? of(text).replace(privateCharacter(' '), u' ') : displayText(text);
}

bool GlyphCharacters::isDrawn(char glyph) const {
    const char16_t character = unicodeOfByte(glyphCode(glyph));
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    return isPrivate_ ? glyphCode(glyph) >= 0x20 : !isControl;
}

} // namespace quillet
