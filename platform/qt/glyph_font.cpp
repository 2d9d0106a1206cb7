#include "platform/qt/glyph_font.h"

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

Advance advanceOf(const QFontMetricsF& metrics, QChar shown) {
    const double pixels = metrics.horizontalAdvance(shown);
    return std::max(0, static_cast<Advance>(std::lround(pixels * advancePerPixel)));
}

} // namespace

GlyphFont::GlyphFont(const EditBox& box) : font_(exactFont(box)), characters_(font_) {
    const QFontMetricsF metrics(font_);
    for (std::size_t code = 0; code < advances_.size(); ++code) {
        const auto glyph = static_cast<char>(code);
        const char shown = characters_.isDrawn(glyph) ? glyph : '0';
        advances_[code] = advanceOf(metrics, characters_.of(shown));
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
