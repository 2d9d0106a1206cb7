// A long document printed into a PDF file, from its text to the file on the disk.
#include "output/printer_word_wrap.h"
#include "platform/posix/posix_files.h"
#include "platform/qt/glyph_text.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_services.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QPrinter>
#include <QTemporaryDir>

namespace quillet {
namespace {

constexpr int textLength = 32000; // near the most that can be printed

GlyphString hindiText() {
    const GlyphString sentence = "fdrkc ueLrs fganh deZ fy[kuk ljy gSA ";
    GlyphString text;
    while (text.size() < textLength) {
        text += sentence;
        if (text.size() % 7 == 0)
            text += lineBreak;
    }
    text.resize(textLength);
    return text;
}

qsizetype pagesIn(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : 0;
}

void BM_Print(benchmark::State& state) {
    const GlyphString text = hindiText();
    const QTemporaryDir folder;
    PosixFiles files;
    QtPrinter printer(files);
    QtScreen screen;
    printer.device().setOutputFileName(folder.filePath("printed.pdf"));
    printer.FontName("Kruti Dev 010");
    printer.FontSize(15.75);
    for ([[maybe_unused]] auto _ : state) {
        CPrinterWordWrap wordWrap(printer, screen);
        wordWrap.HeaderText(" ");
        wordWrap.PrintText(text);
    }
    const auto pages = static_cast<double>(pagesIn(folder.filePath("printed.pdf")));
    state.counters["pages"] = pages;
    state.counters["pages/s"] =
        benchmark::Counter(pages, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_Print)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace quillet

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    quillet::offerOpenFonts();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
