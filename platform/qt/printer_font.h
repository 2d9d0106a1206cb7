// A font as a printer draws and measures it.
#pragma once

#include "platform/qt/glyph_text.h"

#include <QFont>

#include <array>

class QPaintDevice;

namespace quillet {

/// Lengths are dots of the printer.
class PrinterFont {
  public:
    PrinterFont(const QFont& font, QPaintDevice* printer);

    const QFont& font() const { return font_; }
    const GlyphCharacters& characters() const { return characters_; }
    double lineHeight() const { return lineHeight_; }
    double ascent() const { return ascent_; }
    double width(GlyphView text) const;

  private:
    QFont font_;
    GlyphCharacters characters_;
    std::array<double, 256> advances_{};
    double lineHeight_ = 0;
    double ascent_ = 0;
};

} // namespace quillet
