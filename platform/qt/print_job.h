// A print job while it is being written.
#pragma once

#include "platform/qt/printer_font.h"

#include <QPointF>
#include <QString>

#include <vector>

class QPainter;
class QPrinter;

namespace quillet {

/// Keeps pages until all of them are there, so that nothing of a job that fails is ever printed.
/// Lengths are dots of the printer.
class PrintJob {
  public:
    /// The number of the current page, from 1.
    int page() const { return static_cast<int>(pages_.size()); }
    void startPage() { pages_.emplace_back(); }

    /// Adds a text whose top left corner is at `at`. Glyphs that are not drawn leave a gap.
    void add(QPointF at, const PrinterFont& font, GlyphView text);

    /// Prints the pages that the printer is set to, in its order and as often as it does not
    /// repeat them itself. Without such pages there is no job. False where the printer fails.
    bool print(QPrinter& printer) const;

  private:
    struct Text {
        QPointF baseline;
        QFont font;
        QString characters;
    };
    using Page = std::vector<Text>;

    std::vector<const Page*> pagesFor(const QPrinter& printer) const;
    static void paint(QPainter& painter, const Page& page);

    std::vector<Page> pages_ = std::vector<Page>(1);
};

} // namespace quillet
