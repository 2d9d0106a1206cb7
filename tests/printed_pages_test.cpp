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

#include <cmath>
#include <functional>

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

    // The words of every page, each page behind a bar.
    std::string pages() const {
        std::string text;
        for (const PrintedWord& word : printedWords(file)) {
            const auto page = static_cast<std::size_t>(word.page);
            text.resize(text.size() + page -
                            static_cast<std::size_t>(std::count(text.begin(), text.end(), '|')),
                        '|');
            text += word.text;
        }
        return text;
    }
};

TEST_F(PrintedPages, WordsStandWhereTheyAreMeasured) {
    constexpr double pointsPerTwip = 1 / 20.0;
    constexpr double size = 12;
    const std::string fonts[] = {"Arial", "Kruti Dev 010", "Kruti Dev 020"};
    for (const std::string& name : fonts) {
        SCOPED_TRACE(name);
        // A point is a pixel here.
        QFont font = exactFont(QString::fromStdString(name), size);
        font.setPixelSize(static_cast<int>(size));
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
}

TEST_F(PrintedPages, EmbedTheFontsThatStandIn) {
    printer.FontName("Kruti Dev 020");
    print("dk");
    const std::string fonts = output("pdffonts " + file.string());
    EXPECT_NE(fonts.find("QuilletDevanagariSerif"), std::string::npos) << fonts;
    EXPECT_NE(fonts.find("yes"), std::string::npos) << fonts;
}

TEST_F(PrintedPages, KeepToTheSettingsOfTheDialog) {
    const struct {
        const char* name;
        std::function<void(QPrinter&)> set;
        const char* pages;
    } rows[] = {
        {"all", [](QPrinter&) {}, "|a|b|c|d"},
        {"from two to three", [](QPrinter& it) { it.setFromTo(2, 3); }, "|b|c"},
        {"to beyond the end", [](QPrinter& it) { it.setFromTo(3, 9); }, "|c|d"},
        {"copies",
         [](QPrinter& it) {
             it.setFromTo(1, 2);
             it.setCopyCount(2);
             it.setCollateCopies(true);
         },
         "|a|b|a|b"},
        {"copies of each page",
         [](QPrinter& it) {
             it.setFromTo(1, 2);
             it.setCopyCount(2);
             it.setCollateCopies(false);
         },
         "|a|a|b|b"},
        {"backwards", [](QPrinter& it) { it.setPageOrder(QPrinter::LastPageFirst); }, "|d|c|b|a"},
    };
    for (const auto& row : rows) {
        QPrinter& device = printer.device();
        device.setPageOrder(QPrinter::FirstPageFirst);
        device.setPrintRange(QPrinter::PageRange);
        device.setFromTo(1, 4);
        device.setCopyCount(1);
        row.set(device);
        print("a\nb\nc\nd", true);
        EXPECT_EQ(pages(), row.pages) << row.name;
    }
    fs::remove(file);
    printer.device().setFromTo(8, 9);
    print("a");
    EXPECT_FALSE(fs::exists(file)) << "no page is chosen";
}

TEST_F(PrintedPages, AFailureLeavesTheFileAsItWas) {
    print("old");
    const auto expectFailure = [&](const fs::path& target) {
        useFile(target);
        EXPECT_NE(errorOf([&] { print("new"); }), 0) << target;
    };
    fs::permissions(file, fs::perms::owner_read);
    expectFailure(file);
    EXPECT_EQ(pages(), "|old");
    expectFailure(folder / "missing" / "printed.pdf");
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr) << "the hourglass";
    expectFailure("/dev/full");
    qputenv("TMPDIR", "/proc");
    expectFailure(folder / "other.pdf");
    qunsetenv("TMPDIR");
    EXPECT_FALSE(fs::exists(folder / "other.pdf"));
    useFile(folder / "other.pdf");
    print("a");
    EXPECT_TRUE(fs::exists(folder / "other.pdf"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(PrintedPages, AnUnfinishedJobIsForgotten) {
    printer.Print("lost");
    printer.NewPage();
    printer.Print("lost");
    EXPECT_EQ(printer.Page(), 2);
    QTimer::singleShot(0, [this] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->printer()->setOutputFileName(QString::fromStdString(file));
        dialog->done(QDialog::Accepted);
    });
    EXPECT_TRUE(printer.choosePrinter());
    descriptors = openDescriptors(); // the toolkit watches folders from now on
    EXPECT_EQ(printer.Page(), 1);
    print("found");
    EXPECT_EQ(pages(), "|found");
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
