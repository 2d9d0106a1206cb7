// What readers make of the PDF files, in spite of their deliberate numbers and of a font that
// no file brings along.
#include "output/pdf_writer.h"
#include "tests/fake_desktop.h"
#include "tests/file_fixture.h"
#include "tests/shell.h"

namespace quillet {
namespace {

// Commands for the number of pages and for the text. All complain on their standard error.
const struct {
    const char* pageCount;
    const char* text;
} readers[] = {
    {"pdfinfo @ | sed -n 's/^Pages: *//p'", "pdftotext -raw @ -"},
    {"mutool info @ | sed -n 's/^Pages: *//p'", "mutool draw -F txt @"},
    {"gs -q -dBATCH -dNOPAUSE -dNODISPLAY -dPDFINFO @ 2>&1 | sed -n 's/.*has \\([0-9]*\\) "
     "p.*/\\1/p'",
     "gs -q -sDEVICE=txtwrite -o - @"},
};

// The lines that a command prints, without the empty ones and the blanks around the others. The
// font's name has blanks and spoils the font; the one in its place has curly quotes.
std::string linesFrom(std::string command, const fs::path& file) {
    command.replace(command.find('@'), 1, file);
    return output(command + " | sed \"s/[ \\r\\f]*$//; s/^[ \\f]*//; /^$/d; s/‘/\\`/g; s/’/'/g\"");
}

// All of ASCII but what a string in a PDF cannot have as it is, a part of it in each line.
std::string numberedLines(int count, int length) {
    std::string letters;
    for (char letter = '!'; letter <= '~'; ++letter)
        if (letter != '(' && letter != ')' && letter != '\\')
            letters += letter;
    std::string lines;
    for (int i = 0; i < count; ++i) {
        std::string line = std::to_string(i) + " ";
        line.append(letters).append(letters);
        lines.append(line, 0, static_cast<std::size_t>(length)).append("\r\n");
        std::rotate(letters.begin(), letters.begin() + 7, letters.end());
    }
    return lines;
}

struct PdfReaders : FileFixture {};

TEST_F(PdfReaders, FindEveryPageAndEveryLine) {
    const struct {
        const char* name;
        int lines;
        int length;
        const char* pages;
        const char* font = "Kruti Dev 020";
        int fontSize = 12;
    } rows[] = {
        {"a full page and one line more", 61, 60, "2"},
        {"a full page and an empty one", 60, 60, "2"},
        {"ten pages", 599, 60, "10"},
        {"streams shorter than stated", 130, 75, "3", "Courier"},
        {"streams longer than stated", 130, 110, "3", "Courier", 8},
    };
    const fs::path source = folder / "source";
    const fs::path target = folder / "target.pdf";
    for (const auto& row : rows) {
        std::string lines = numberedLines(row.lines, row.length);
        std::ofstream(source) << lines;
        FakeDesktop desktop;
        CPdfWriter writer(files, desktop);
        writer.SourceFile(source);
        writer.TargetFile(target);
        writer.RecordsPerPage(60);
        writer.Width(80);
        writer.FontSize(row.fontSize);
        writer.Font(row.font);
        writer.CreatePDFFile();
        std::erase(lines, '\r');
        lines.pop_back();
        for (const auto& reader : readers) {
            SCOPED_TRACE(std::string(reader.text) + ": " + row.name);
            EXPECT_EQ(linesFrom(reader.pageCount, target), row.pages);
            EXPECT_EQ(linesFrom(reader.text, target), lines);
        }
    }
}

} // namespace
} // namespace quillet
