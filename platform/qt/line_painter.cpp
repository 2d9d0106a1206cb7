#include "platform/qt/line_painter.h"

#include <QPainter>

#include <algorithm>

namespace quillet {

LinePainter::LinePainter(QPainter& painter, const EditBox& box, const GlyphFont& font,
                         const QPalette& palette, QPalette::ColorGroup group, const QRect& area)
    : painter_(painter),
      box_(box),
      font_(font),
      palette_(palette),
      group_(group),
      area_(area) {
    painter_.setFont(font.font());
}

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
    chooseWords();
}

// Whole words, within which glyphs change each other's look.
void LinePainter::chooseWords() {
    const auto indexAt = [this](double x) {
        const double offset = (x - origin_.x()) * advancePerPixel;
        const auto found = std::lower_bound(offsets_.begin(), offsets_.end(), offset);
        return std::min(static_cast<std::size_t>(found - offsets_.begin()), text_.size());
    };
    const auto blank = text_.rfind(' ', indexAt(area_.left() - reach(font_)));
    first_ = blank == GlyphString::npos ? 0 : blank;
    last_ = std::min(text_.find(' ', indexAt(area_.right() + reach(font_))), text_.size());
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
    std::size_t from = first_;
    for (std::size_t at = first_; at < last_; ++at) {
        if (font_.characters().isDrawn(text_[at]))
            continue;
        paintPart(from, at);
        from = at + 1;
        if (text_[at] == '\t')
            continue;
        const double left = xAt(start_ + static_cast<Position>(at));
        const double right = xAt(start_ + static_cast<Position>(from));
        const double height = font_.ascent() / 2.0;
        painter_.drawRect(QRectF(left + 1, origin_.y() + height, right - left - 2, height));
    }
    paintPart(from, last_);
}

void LinePainter::paintPart(std::size_t from, std::size_t to) {
    if (from == to)
        return;
    const QPointF baseline(xAt(start_ + static_cast<Position>(from)), origin_.y() + font_.ascent());
    painter_.drawText(baseline, font_.characters().of(GlyphView(text_).substr(from, to - from)));
}

double LinePainter::xAt(Position place) const {
    return origin_.x() + static_cast<double>(offsets_[place - start_]) / advancePerPixel;
}

} // namespace quillet
