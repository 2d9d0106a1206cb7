// Paints one displayed line of the box.
#pragma once

#include "platform/edit_box.h"
#include "platform/qt/glyph_font.h"

#include <QPalette>
#include <QPointF>
#include <QRect>

#include <vector>

class QPainter;

namespace quillet {

class LinePainter {
  public:
    LinePainter(QPainter& painter, const EditBox& box, const GlyphFont& font,
                const QPalette& palette, QPalette::ColorGroup group, const QRect& area);

    /// No glyph reaches further beyond its place, nor changes the look of another one further
    /// away. In logical pixels.
    static int reach(const GlyphFont& font) { return 3 * font.lineHeight(); }

    /// Paints `line` with its top left corner at `at`: its text, and over that what is selected of
    /// it, both as far as the area that is painted needs it.
    void paint(Position line, QPointF at);

  private:
    void measure(Position line);
    void chooseWords();
    void paintSelection(Position line);
    void paintText(const QColor& color);
    void paintPart(std::size_t from, std::size_t to);
    double xAt(Position place) const;

    QPainter& painter_;
    const EditBox& box_;
    const GlyphFont& font_;
    const QPalette& palette_;
    QPalette::ColorGroup group_;
    QRect area_;
    QPointF origin_;
    Position start_ = 0;
    GlyphString text_;             // the glyphs of the line without its line break
    std::vector<Advance> offsets_; // before each glyph and behind the last one
    std::size_t first_ = 0;        // of the glyphs to paint
    std::size_t last_ = 0;         // behind them
};

} // namespace quillet
