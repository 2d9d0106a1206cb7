#include "platform/qt/line_painter.h"

#include <QGlyphRun>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillet {

LinePainter::LinePainter(QPainter& painter, const EditBox& box, const GlyphFont& font,
                         const QPalette& palette, QPalette::ColorGroup group, const QRect& area)
    : painter_(painter),
      box_(box),
      font_(font),
      palette_(palette),
      group_(group),
      area_(area) {}

void LinePainter::paint(Position line, QPointF at) {
    origin_ = at;
    measure(line);
    paintText(palette_.color(group_, QPalette::Text));
    paintSelection(line);
}

void LinePainter::measure(Position line) {
    start_ = box_.lines().lineStart(line);
    text_ = box_.lineText(line);
    while (!text_.empty() && (text_.back() == '\r' || text_.back() == '\n'))
        text_.pop_back();
    offsets_.assign(1, 0);
    for (const char glyph : text_)
        offsets_.push_back(box_.lines().advanceFrom(offsets_.back(), glyph));
}

// The selected text is painted over once more, because glyphs reach beyond their own width.
void LinePainter::paintSelection(Position line) {
    const Position end = box_.lines().lineStart(line + 1);
    const Position from = std::max(box_.SelStart(), start_);
    const Position to = std::min(box_.SelStart() + box_.SelLength(), end);
    if (from >= to)
        return;
    const auto textEnd = start_ + static_cast<Position>(text_.size());
    const double breakWidth = to > textEnd ? font_.lineHeight() / 4.0 : 0;
    const double left = xAt(std::min(from, textEnd));
    const double right = xAt(std::min(to, textEnd)) + breakWidth;
    const QRectF selected(left, origin_.y(), right - left, font_.lineHeight());
    painter_.save();
    painter_.setClipRect(selected, Qt::IntersectClip);
    painter_.fillRect(selected, palette_.color(group_, QPalette::Highlight));
    paintText(palette_.color(group_, QPalette::HighlightedText));
    painter_.restore();
}

void LinePainter::paintText(const QColor& color) {
    painter_.setPen(color);
    for (std::size_t at = 0; at < text_.size(); ++at) {
        if (!isInSight(at))
            continue;
        if (font_.characters().isDrawn(text_[at])) {
            shapes_.push_back(font_.shape(text_[at]));
            places_.emplace_back(static_cast<double>(offsets_[at]) / advancePerPixel, 0);
            continue;
        }
        paintGlyphs(at);
        if (text_[at] != '\t')
            paintFrame(at);
    }
    paintGlyphs(text_.size());
}

// Each where the table of advances says; the toolkit's own text layout would take most of the time
// that a key needs to be seen.
void LinePainter::paintGlyphs(std::size_t end) {
    if (shapes_.empty())
        return;
    const QPointF baseline = origin_ + QPointF(0, font_.ascent());
    QGlyphRun run;
    run.setRawFont(font_.rawFont());
    run.setRawData(shapes_.data(), places_.data(), static_cast<int>(shapes_.size()));
    painter_.drawGlyphRun(baseline, run);
    paintUnderline(baseline.x() + places_.front().x(), xAt(start_ + static_cast<Position>(end)));
    shapes_.clear();
    places_.clear();
}

// Where the toolkit's text layout has it; that of a glyph run it puts elsewhere.
void LinePainter::paintUnderline(double left, double right) {
    if (!font_.font().underline())
        return;
    const double thickness = font_.rawFont().lineThickness();
    const double middle = std::ceil(font_.rawFont().underlinePosition()) + 0.5;
    const double top = origin_.y() + font_.ascent() + middle - thickness / 2;
    painter_.fillRect(QRectF(left, top, right - left, thickness), painter_.pen().color());
}

void LinePainter::paintFrame(std::size_t at) {
    const auto place = start_ + static_cast<Position>(at);
    const double left = xAt(place);
    const double height = font_.ascent() / 2.0;
    painter_.drawRect(QRectF(left + 1, origin_.y() + height, xAt(place + 1) - left - 2, height));
}

bool LinePainter::isInSight(std::size_t at) const {
    const auto place = start_ + static_cast<Position>(at);
    const int overhang = font_.overhang(text_[at]);
    return xAt(place) - overhang <= area_.right() && xAt(place + 1) + overhang >= area_.left();
}

double LinePainter::xAt(Position place) const {
    return origin_.x() + static_cast<double>(offsets_[place - start_]) / advancePerPixel;
}

} // namespace quillet
