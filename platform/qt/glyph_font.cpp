#include "platform/qt/glyph_font.h"

#include "base/windows1252.h"
#include "platform/qt/text_codec.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace quillet {
namespace {

constexpr int tabWidth = 8; // zeros between two tab stops

QFont exactFont(const EditBox& box) {
    QFont font(fromUtf8(box.FontName()));
    font.setPointSizeF(box.FontSize());
    font.setBold(box.FontBold());
    font.setItalic(box.FontItalic());
    font.setUnderline(box.FontUnderline());
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

Advance advanceOf(const QFontMetricsF& metrics, char glyph) {
    const QChar shown = GlyphFont::isDrawn(glyph) ? QChar(unicodeOfByte(glyphCode(glyph))) : u'0';
    const double pixels = metrics.horizontalAdvance(shown);
    return std::max(0, static_cast<Advance>(std::lround(pixels * advancePerPixel)));
}

} // namespace

GlyphFont::GlyphFont(const EditBox& box) : font_(exactFont(box)) {
    const QFontMetricsF metrics(font_);
    for (std::size_t code = 0; code < advances_.size(); ++code)
        advances_[code] = advanceOf(metrics, static_cast<char>(code));
    ascent_ = static_cast<int>(std::ceil(metrics.ascent()));
    lineHeight_ = std::max(1, ascent_ + static_cast<int>(std::ceil(metrics.descent())));
}

LineMetrics GlyphFont::lineMetrics(int width) const {
    const Advance zero = advances_['0'];
    return {.advances = advances_,
            .tabStop = std::max(1, zero * tabWidth),
            .width = std::max(1, width) * advancePerPixel};
}

bool GlyphFont::isDrawn(char glyph) {
    const char16_t character = unicodeOfByte(glyphCode(glyph));
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    return !isControl;
}

} // namespace quillet
