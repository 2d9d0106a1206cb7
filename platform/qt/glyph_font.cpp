#include "platform/qt/glyph_font.h"

#include "platform/qt/text_codec.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace quillet {
namespace {

constexpr int tabWidth = 8; // zeros between two tab stops

QFont fontOf(const EditBox& box) {
    QFont font = exactFont(fromUtf8(box.FontName()), box.FontSize());
    font.setBold(box.FontBold());
    font.setItalic(box.FontItalic());
    font.setUnderline(box.FontUnderline());
    return font;
}

// All at once: one by one each would be laid out as a text.
QList<quint32> shapesOf(const QRawFont& font, const GlyphCharacters& characters) {
    QString measured;
    for (int code = 0; code < 256; ++code)
        measured += characters.measured(static_cast<char>(code));
    return font.glyphIndexesForString(measured);
}

std::array<Advance, 256> advancesOf(const QRawFont& font, const QList<quint32>& shapes) {
    const auto widths = font.advancesForGlyphIndexes(shapes);
    std::array<Advance, 256> advances{};
    std::transform(widths.begin(), widths.end(), advances.begin(), [](const QPointF& width) {
        return std::max(0, static_cast<Advance>(std::lround(width.x() * advancePerPixel)));
    });
    return advances;
}

} // namespace

GlyphFont::GlyphFont(const EditBox& box)
    : font_(fontOf(box)),
      rawFont_(QRawFont::fromFont(font_)),
      characters_(font_),
      shapes_(shapesOf(rawFont_, characters_)),
      advances_(advancesOf(rawFont_, shapes_)) {
    const QFontMetricsF metrics(font_);
    ascent_ = static_cast<int>(std::ceil(metrics.ascent()));
    lineHeight_ = std::max(1, ascent_ + static_cast<int>(std::ceil(metrics.descent())));
}

// Found at the first use: to ask for all of them takes longer than a start may.
int GlyphFont::overhang(char glyph) const {
    int& overhang = overhangs_[glyphCode(glyph)];
    if (overhang == 0) {
        const QRectF ink = rawFont_.boundingRect(shape(glyph));
        const double width = static_cast<double>(advances_[glyphCode(glyph)]) / advancePerPixel;
        const int slant = lineHeight_ / 4; // of an italic that the toolkit makes
        overhang =
            slant + static_cast<int>(std::ceil(std::max({1.0, -ink.left(), ink.right() - width})));
    }
    return overhang;
}

int GlyphFont::overhang(GlyphView text) const {
    int most = 0;
    for (const char glyph : text)
        most = std::max(most, overhang(glyph));
    return most;
}

LineMetrics GlyphFont::lineMetrics(int width) const {
    const Advance zero = advances_['0'];
    return {.advances = advances_,
            .tabStop = std::max(1, zero * tabWidth),
            .width = std::max(1, width) * advancePerPixel};
}

} // namespace quillet
