// Paints one displayed line of the box.
#pragma once

#include "platform/edit_box.h"
#include "platform/qt/glyph_font.h"

#include <QPalette>
#include <QPointF>

#include <vector>

class QPainter;

namespace quillet {

class LinePainter {
  public:
    LinePainter(QPainter& painter, const EditBox& box, const GlyphFont& font,
                const QPalette& palette, QPalette::ColorGroup group);

    /// Paints `line` with its top left corner at `at`: its text, and over that what is selected of
    /// it.
    void paint(Position line, QPointF at);

  private:
    void measure(Position line);
    void paintSelection(Position line);
    void paintText(const QColor& color);
    void paintPart(std::size_t from, std::size_t to);
    double xAt(Position place) const;

    QPainter& painter_;
    const EditBox& box_;
    const GlyphFont& font_;
    const QPalette& palette_;
    QPalette::ColorGroup group_;
    QPointF origin_;
    Position start_ = 0;
    GlyphString text_;             // the glyphs of the line without its line break
    std::vector<Advance> offsets_; // before each glyph and behind the last one
};

} // namespace quillet
