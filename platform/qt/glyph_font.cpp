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

Advance advanceOf(const QFontMetricsF& metrics, QChar shown) {
    const double pixels = metrics.horizontalAdvance(shown);
    return std::max(0, static_cast<Advance>(std::lround(pixels * advancePerPixel)));
}

} // namespace

GlyphFont::GlyphFont(const EditBox& box) : font_(fontOf(box)), characters_(font_) {
    const QFontMetricsF metrics(font_);
    for (std::size_t code = 0; code < advances_.size(); ++code) {
        const QChar measured = characters_.measured(static_cast<char>(code));
        advances_[code] = advanceOf(metrics, measured);
    }
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
