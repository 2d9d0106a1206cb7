#include "platform/qt/printer_font.h"

#include <QFontMetricsF>

namespace quillet {

PrinterFont::PrinterFont(const QFont& font, QPaintDevice* printer)
    : font_(font, printer),
      characters_(font) {
    const QFontMetricsF metrics(font_, printer);
    for (std::size_t code = 0; code < advances_.size(); ++code)
        advances_[code] = metrics.horizontalAdvance(characters_.measured(static_cast<char>(code)));
    ascent_ = metrics.ascent();
    lineHeight_ = metrics.height();
}

double PrinterFont::width(GlyphView text) const {
    double width = 0;
    for (const char glyph : text)
        width += advances_[glyphCode(glyph)];
    return width;
}

} // namespace quillet
