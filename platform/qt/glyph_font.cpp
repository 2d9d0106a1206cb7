#include "platform/qt/glyph_font.h"

#include "platform/qt/text_codec.h"

#include <QFontMetricsF>
#include <QRawFont>

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
std::array<Advance, 256> advancesOf(const QFont& font, const GlyphCharacters& characters) {
    QString measured;
    for (int code = 0; code < 256; ++code)
        measured += characters.measured(static_cast<char>(code));
    const QRawFont raw = QRawFont::fromFont(font);
    const auto widths = raw.advancesForGlyphIndexes(raw.glyphIndexesForString(measured));
    std::array<Advance, 256> advances{};
    std::transform(widths.begin(), widths.end(), advances.begin(), [](const QPointF& width) {
        return std::max(0, static_cast<Advance>(std::lround(width.x() * advancePerPixel)));
    });
    return advances;
}

} // namespace

GlyphFont::GlyphFont(const EditBox& box)
    : font_(fontOf(box)),
      characters_(font_),
      advances_(advancesOf(font_, characters_)) {
    const QFontMetricsF metrics(font_);
    ascent_ = static_cast<int>(std::ceil(metrics.ascent()));
    lineHeight_ = std::max(1, ascent_ + static_cast<int>(std::ceil(metrics.descent())));
}

LineMetrics GlyphFont::lineMetrics(int width) const {
    const Advance zero = advances_['0'];
    return {.advances = advances_,
            .tabStop = std::max(1, zero * tabWidth),
            .width = std::max(1, width) * advancePerPixel};
}

} // namespace quillet
