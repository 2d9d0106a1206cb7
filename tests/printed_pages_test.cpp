// What the real printer device puts on paper, read back from its PDF files by poppler.
#include "output/printer_word_wrap.h"
#include "platform/qt/glyph_text.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_services.h"
#include "tests/file_fixture.h"
#include "tests/printed_words.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>

namespace quillet {
namespace {

struct PrintedPages : FileFixture {
    PosixFiles files;
    QtPrinter printer{files};
    QtScreen screen;
    fs::path file = folder / "printed.pdf";

    PrintedPages() {
        printer.FontName("Arial");
        printer.FontSize(12);
        useFile(file);
    }

    void useFile(const fs::path& target) {
        printer.device().setOutputFormat(QPrinter::PdfFormat);
        printer.device().setOutputFileName(QString::fromStdString(target));
    }

    // One line a page where `onePerPage`.
    void print(GlyphView text, bool onePerPage = false) {
        CPrinterWordWrap wordWrap(printer, screen);
        wordWrap.HeaderText(" ");
        if (onePerPage)
            wordWrap.MarginBottom(printer.ScaleHeight() - wordWrap.MarginTop());
        wordWrap.PrintText(text);
    }

    // Every word with the number of its page.
    std::string pages() const {
        std::string text;
        for (const PrintedWord& word : printedWords(file))
            text += std::to_string(word.page) + word.text;
        return text;
    }
};

TEST_F(PrintedPages, WordsStandWhereTheyAreMeasured) {
    constexpr double pointsPerTwip = 1 / 20.0;
    for (const char* name : {"Arial", "Kruti Dev 010", "Kruti Dev 020"}) {
        SCOPED_TRACE(name);
        QFont font = exactFont(name, 12);
        font.setPixelSize(12); // a point is a pixel here
        const GlyphCharacters characters(font);
        const QFontMetricsF metrics(font);
        const auto width = [&](const char* text) {
            return metrics.horizontalAdvance(characters.of(text));
        };
        const QPageLayout page = printer.device().pageLayout();
        const double left = page.margins(QPageLayout::Point).left() + 800 * pointsPerTwip;
        const double right = page.paintRect(QPageLayout::Point).right() - 720 * pointsPerTwip;
        const auto fitting = static_cast<std::size_t>((right - left) / width("d"));

        printer.FontName(name);
        print("ab dk\r\ncd\te\n" + GlyphString(fitting, 'd') + " hd");
        const auto words = printedWords(file);
        ASSERT_EQ(words.size(), 6U);
        const double stop = left + 10 * width("0");
        const double expected[] = {left, left + width("ab "), left, stop, left, left};
        for (std::size_t i = 0; i < words.size(); ++i)
            EXPECT_NEAR(words[i].x, expected[i], 1) << i << " " << words[i].text;
        EXPECT_NEAR(words[2].y - words[0].y, metrics.height(), 1);
        EXPECT_NEAR(words[5].y - words[0].y, 3 * metrics.height(), 2);
    }
    const std::string fonts = output("pdffonts " + file.string());
    EXPECT_NE(fonts.find("QuilletDevanagariSerif"), std::string::npos) << fonts;
}

TEST_F(PrintedPages, KeepToTheSettingsOfTheDialog) {
    const struct {
        int from, to;
        const char* pages;
        int copies = 1;
        bool collated = true;
        QPrinter::PageOrder order = QPrinter::FirstPageFirst;
    } rows[] = {
        {1, 4, "1a2b3c4d"},
        {2, 3, "1b2c"},
        {3, 9, "1c2d"},
        {1, 2, "1a2b3a4b", 2},
        {1, 2, "1a2a3b4b", 2, false},
        {1, 4, "1d2c3b4a", 1, true, QPrinter::LastPageFirst},
    };
    QPrinter& device = printer.device();
    device.setPrintRange(QPrinter::PageRange);
    for (const auto& row : rows) {
        device.setFromTo(row.from, row.to);
        device.setCopyCount(row.copies);
        device.setCollateCopies(row.collated);
        device.setPageOrder(row.order);
        print("a\nb\nc\nd", true);
        EXPECT_EQ(pages(), row.pages);
    }
    fs::remove(file);
    device.setFromTo(8, 9);
    print("a");
    EXPECT_FALSE(fs::exists(file)) << "no page is chosen";
}

TEST_F(PrintedPages, AFailureLeavesTheFileAsItWas) {
    const fs::path other = folder / "other.pdf";
    const auto expectFailure = [&](const fs::path& target) {
        useFile(target);
        EXPECT_NE(errorOf([&] { print("new"); }), 0) << target;
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr) << "the hourglass";
    };
    print("old");
    fs::permissions(file, fs::perms::owner_read);
    expectFailure(file);
    EXPECT_EQ(pages(), "1old");
    expectFailure(folder / "missing" / "printed.pdf");
    expectFailure("/dev/full");
    qputenv("TMPDIR", "/proc");
    expectFailure(other);
    qunsetenv("TMPDIR");
    EXPECT_FALSE(fs::exists(other));
    print("a");
    EXPECT_TRUE(fs::exists(other));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(PrintedPages, AnUnfinishedJobIsForgotten) {
    printer.Print("lost");
    printer.NewPage();
    EXPECT_EQ(printer.Page(), 2);
    QTimer::singleShot(0, [this] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        dialog->printer()->setOutputFileName(QString::fromStdString(file));
        dialog->done(QDialog::Accepted);
    });
    EXPECT_TRUE(printer.choosePrinter());
    descriptors = openDescriptors(); // the toolkit watches folders from now on
    EXPECT_EQ(printer.Page(), 1);
    print("found");
    EXPECT_EQ(pages(), "1found");
}

} // namespace
} // namespace quillet

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("CUPS_SERVER", "/nowhere"); // the system's printers do not matter
    const QApplication application(argc, argv);
    quillet::offerOpenFonts();
    return RUN_ALL_TESTS();
}
