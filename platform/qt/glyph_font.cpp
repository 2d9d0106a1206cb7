#include "platform/qt/glyph_font.h"

#include "platform/qt/text_codec.h"

#include <QFontMetricsF>
#include <QRawFont>
#include <QtEndian>

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

// The font's own table of widths. The toolkit takes them from there as well, and rounds them in the
// same two steps, but it loads the outline of every glyph to do so.
class WidthTable {
  public:
    explicit WidthTable(const QRawFont& font) : widths_(font.fontTable("hmtx")) {
        constexpr qsizetype unitsAt = 18;
        constexpr qsizetype countAt = 34;
        const QByteArray head = font.fontTable("head");
        const QByteArray header = font.fontTable("hhea");
        const auto unitsPerEm = static_cast<std::int64_t>(font.unitsPerEm());
        const bool isVariable = !font.fontTable("fvar").isEmpty(); // then the table is not all
        if (header.size() < countAt + 2 || head.size() < unitsAt + 2 || isVariable)
            return;
        if (unitsPerEm <= 0 || unitsPerEm != wordAt(head, unitsAt))
            return; // bitmaps, which have widths of their own
        count_ = std::min<std::int64_t>(wordAt(header, countAt), widths_.size() / entrySize);
        const std::int64_t size = std::lround(font.pixelSize() * advancePerPixel);
        scale_ = (size * one + unitsPerEm / 2) / unitsPerEm;
    }

    bool isEmpty() const { return count_ == 0; }

    // The glyphs behind the last entry are as wide as that.
    Advance advance(std::uint32_t glyph) const {
        const auto entry = std::min<std::int64_t>(glyph, count_ - 1);
        const std::int64_t scaled = (wordAt(widths_, entry * entrySize) * scale_ + 32) / 64;
        return static_cast<Advance>(scaled * advancePerPixel / one);
    }

  private:
    static constexpr std::int64_t one = 0x10000; // in fixed point
    static constexpr qsizetype entrySize = 4;

    static std::int64_t wordAt(const QByteArray& table, qsizetype at) {
        return qFromBigEndian<std::uint16_t>(table.data() + at);
    }

    QByteArray widths_;
    std::int64_t count_ = 0;
    std::int64_t scale_ = 0;
};

// Where there is no table, all at once: one by one each would be laid out as a text.
std::array<Advance, 256> advancesOf(const QFont& font, const GlyphCharacters& characters) {
    QString measured;
    for (int code = 0; code < 256; ++code)
        measured += characters.measured(static_cast<char>(code));
    const QRawFont raw = QRawFont::fromFont(font);
    const auto glyphs = raw.glyphIndexesForString(measured);
    std::array<Advance, 256> advances{};
    if (const WidthTable table(raw); !table.isEmpty()) {
        std::transform(glyphs.begin(), glyphs.end(), advances.begin(),
                       [&](std::uint32_t glyph) { return table.advance(glyph); });
        return advances;
    }
    const auto widths = raw.advancesForGlyphIndexes(glyphs);
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
