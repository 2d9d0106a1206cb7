// The font of the box as the toolkit draws and measures it.
#pragma once

#include "platform/edit_box.h"
#include "platform/qt/glyph_text.h"

#include <QFont>
#include <QRawFont>

namespace quillet {

/// Its glyphs stand exactly where the table of advances says.
class GlyphFont {
  public:
    /// The font of `box` as it is now.
    explicit GlyphFont(const EditBox& box);

    const QFont& font() const { return font_; }
    const QRawFont& rawFont() const { return rawFont_; }

    /// The index in `rawFont` of what shows a glyph.
    quint32 shape(char glyph) const { return shapes_[glyphCode(glyph)]; }

    /// How far at most a glyph, or one of a text, reaches out of its own width to either side.
    /// Logical pixels.
    int overhang(char glyph) const;
    int overhang(GlyphView text) const;

    /// Logical pixels.
    int lineHeight() const { return lineHeight_; }
    int ascent() const { return ascent_; }

    /// The metrics of lines `width` logical pixels wide.
    LineMetrics lineMetrics(int width) const;

    /// What shows a text. Glyphs that are not drawn are shown as a small frame.
    const GlyphCharacters& characters() const { return characters_; }

  private:
    QFont font_;
    QRawFont rawFont_;
    GlyphCharacters characters_;
    QList<quint32> shapes_;
    std::array<Advance, 256> advances_{};
    mutable std::array<int, 256> overhangs_{}; // 0: not asked for yet
    int lineHeight_ = 1;
    int ascent_ = 1;
};

} // namespace quillet
