// The font of the box as the toolkit draws and measures it.
#pragma once

#include "platform/edit_box.h"
#include "platform/qt/glyph_text.h"

#include <QFont>

namespace quillet {

/// Its glyphs stand exactly where the table of advances says.
class GlyphFont {
  public:
    /// The font of `box` as it is now.
    explicit GlyphFont(const EditBox& box);

    const QFont& font() const { return font_; }

    /// Logical pixels.
    int lineHeight() const { return lineHeight_; }
    int ascent() const { return ascent_; }

    /// The metrics of lines `width` logical pixels wide.
    LineMetrics lineMetrics(int width) const;

    /// What shows a text. Glyphs that are not drawn are shown as a small frame.
    const GlyphCharacters& characters() const { return characters_; }

  private:
    QFont font_;
    GlyphCharacters characters_;
    std::array<Advance, 256> advances_{};
    int lineHeight_ = 1;
    int ascent_ = 1;
};

} // namespace quillet
