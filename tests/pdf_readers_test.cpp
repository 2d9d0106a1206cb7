// What readers make of the PDF files, in spite of their deliberate numbers and of a font that
// no file brings along.
#include "output/pdf_writer.h"
#include "tests/fake_desktop.h"
#include "tests/file_fixture.h"

#include <cstdio>
#include <sstream>

namespace quillet {
namespace {

// Commands: "@" is the file. All complain about it on their standard error.
const struct {
    const char* name;
    const char* pageCount;
    const char* text;
} readers[] = {
    {"Poppler", "pdfinfo @ | sed -n 's/^Pages: *//p'", "pdftotext -raw @ -"},
    {"MuPDF", "mutool info @ | sed -n 's/^Pages: *//p'", "mutool draw -F txt @"},
    {"Ghostscript",
     "gs -q -dBATCH -dNOPAUSE -dNODISPLAY -dPDFINFO @ 2>&1 | sed -n 's/.*has \\([0-9]*\\) "
     "page.*/\\1/p'",
     "gs -q -sDEVICE=txtwrite -o - @"},
};

void replaceAll(std::string& text, const std::string& what, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
}

// The lines that a command prints, without the empty ones and the blanks around the others.
std::vector<std::string> linesFrom(std::string command, const fs::path& file) {
    replaceAll(command, "@", file);
    std::FILE* pipe = ::popen(("exec 2>/dev/null; " + command).c_str(), "r");
    std::string all;
    for (int byte = 0; (byte = std::fgetc(pipe)) != EOF;)
        all += static_cast<char>(byte);
    ::pclose(pipe);
    // The font's name has blanks and spoils the font, encoding and all. The one in its place has
    // curly quotes.
    replaceAll(all, "\u2018", "`");
    replaceAll(all, "\u2019", "'");
    std::istringstream in(all);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        const char* blanks = " \r\f";
        line.erase(line.find_last_not_of(blanks) + 1);
        line.erase(0, line.find_first_not_of(blanks));
        if (!line.empty())
            lines.push_back(line);
    }
    return lines;
}

// All of ASCII but what a string in a PDF cannot have as it is, a part of it in each line.
std::vector<std::string> numberedLines(int count, std::size_t length) {
    std::string letters;
    for (char letter = '!'; letter <= '~'; ++letter)
        if (letter != '(' && letter != ')' && letter != '\\')
            letters += letter;
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) {
        lines.push_back((std::to_string(i) + " ").append(letters).append(letters));
        lines.back().resize(length);
        std::rotate(letters.begin(), letters.begin() + 7, letters.end());
    }
    return lines;
}

struct PdfReaders : FileFixture {};

TEST_F(PdfReaders, FindEveryPageAndEveryLine) {
    const struct {
        const char* name;
        std::vector<std::string> lines;
        const char* pages;
        const char* font = "Kruti Dev 020";
        int fontSize = 12;
    } rows[] = {
        {"one line", numberedLines(1, 60), "1"},
        {"a full page and one line more", numberedLines(61, 60), "2"},
        {"a full page and an empty one", numberedLines(60, 60), "2"},
        {"ten pages", numberedLines(599, 60), "10"},
        {"a font with a proper name", numberedLines(130, 60), "3", "Courier"},
        {"streams shorter than stated", numberedLines(130, 75), "3", "Courier"},
        {"streams longer than stated", numberedLines(130, 110), "3", "Courier", 8},
    };
    const fs::path source = folder / "source";
    const fs::path target = folder / "target.pdf";
    for (const auto& row : rows) {
        std::ofstream out(source);
        for (const std::string& line : row.lines)
            out << line << lineBreak;
        out.close();
        FakeDesktop desktop;
        CPdfWriter writer(files, desktop);
        writer.SourceFile(source);
        writer.TargetFile(target);
        writer.RecordsPerPage(60);
        writer.Width(80);
        writer.FontSize(row.fontSize);
        writer.Font(row.font);
        writer.CreatePDFFile();
        for (const auto& reader : readers) {
            SCOPED_TRACE(std::string(reader.name) + ": " + row.name);
            EXPECT_EQ(linesFrom(reader.pageCount, target), std::vector<std::string>{row.pages});
            EXPECT_EQ(linesFrom(reader.text, target), row.lines);
        }
    }
}

} // namespace
} // namespace quillet
