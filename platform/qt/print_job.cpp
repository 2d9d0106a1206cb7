#include "platform/qt/print_job.h"

#include <QPageRanges>
#include <QPainter>
#include <QPrintEngine>
#include <QPrinter>

#include <algorithm>
#include <array>

namespace quillet {
namespace {

// The toolkit's options for a print server: names and values in turn.
constexpr auto serverOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xFE00);

// Takes an option away from the server, which would apply it to the pages that it is sent instead
// of those of the document.
QString takeOption(const QPrinter& printer, const QString& name) {
    QStringList options = printer.printEngine()->property(serverOptions).toStringList();
    const qsizetype at = options.indexOf(name);
    if (at < 0)
        return {};
    QString value = options.value(at + 1);
    options.remove(at, 2);
    printer.printEngine()->setProperty(serverOptions, options);
    return value;
}

bool isInRange(const QPrinter& printer, int page) {
    const QPageRanges ranges = printer.pageRanges();
    return printer.printRange() != QPrinter::PageRange || ranges.isEmpty() || ranges.contains(page);
}

// Whether even pages are printed, and odd ones. Where a range begins with an even page the dialog
// has exchanged the two for the server.
std::array<bool, 2> chosenParities(const QPrinter& printer) {
    const QString chosen = takeOption(printer, "page-set");
    std::array<bool, 2> parities = {chosen != "odd", chosen != "even"};
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() % 2 == 0)
        std::swap(parities[0], parities[1]);
    return parities;
}

template <class Value>
void repeat(std::vector<Value>& values, int times, bool asAWhole) {
    std::vector<Value> repeated;
    if (asAWhole)
        for (int i = 0; i < times; ++i)
            repeated.insert(repeated.end(), values.begin(), values.end());
    else
        for (const Value& value : values)
            repeated.insert(repeated.end(), static_cast<std::size_t>(times), value);
    values = std::move(repeated);
}

} // namespace

void PrintJob::add(QPointF at, const PrinterFont& font, GlyphView text) {
    const auto isDrawn = [&](char glyph) { return font.characters().isDrawn(glyph); };
    QPointF baseline = at + QPointF(0, font.ascent());
    for (auto from = text.begin(); from != text.end();) {
        const auto part = std::find_if(from, text.end(), isDrawn);
        const auto end = std::find_if_not(part, text.end(), isDrawn);
        baseline.rx() += font.width({from, part});
        if (part != end)
            pages_.back().push_back({baseline, font.font(), font.characters().of({part, end})});
        baseline.rx() += font.width({part, end});
        from = end;
    }
}

bool PrintJob::print(QPrinter& printer) const {
    const std::vector<const Page*> pages = pagesFor(printer);
    if (pages.empty())
        return true;
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    paint(painter, *pages.front());
    for (std::size_t i = 1; i < pages.size(); ++i) {
        if (!printer.newPage())
            return false;
        paint(painter, *pages[i]);
    }
    return painter.end();
}

std::vector<const PrintJob::Page*> PrintJob::pagesFor(const QPrinter& printer) const {
    takeOption(printer, "page-ranges");
    const std::array<bool, 2> parities = chosenParities(printer); // even, odd
    std::vector<const Page*> pages;
    for (int number = 1; number <= page(); ++number)
        if (isInRange(printer, number) && parities.at(static_cast<std::size_t>(number % 2)))
            pages.push_back(&pages_[static_cast<std::size_t>(number) - 1]);
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::reverse(pages.begin(), pages.end());
    if (!printer.supportsMultipleCopies())
        repeat(pages, printer.copyCount(), printer.collateCopies());
    return pages;
}

void PrintJob::paint(QPainter& painter, const Page& page) {
    for (const Text& text : page) {
        painter.setFont(text.font);
        painter.drawText(text.baseline, text.characters);
    }
}

} // namespace quillet
