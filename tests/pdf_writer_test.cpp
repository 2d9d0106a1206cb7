// PDF files byte for byte, their limits, and the command on the document's file.
#include "output/pdf_writer.h"

#include "tests/file_fixture.h"
#include "tests/shell.h"
#include "tests/test_window.h"

#include <cstdio>
#include <sstream>

namespace quillet {
namespace {

struct Job {
    const char* name;
    GlyphString source;
    int records = 60;
    int width = 80;
    int fontSize = 12;
    GlyphString font = "Kruti Dev 020";
};

void convert(CPdfWriter& writer, const Job& job, const fs::path& source, const fs::path& target) {
    writer.SourceFile(source);
    writer.TargetFile(target);
    writer.RecordsPerPage(job.records);
    writer.Width(job.width);
    writer.FontSize(job.fontSize);
    writer.Font(job.font);
    writer.CreatePDFFile();
}

GlyphString converted(const Job& job) {
    FakeDesktop desktop;
    desktop.disk["source"] = job.source;
    CPdfWriter writer(desktop, desktop);
    convert(writer, job, "source", "target");
    return desktop.disk["target"];
}

GlyphString repeated(int times, const GlyphString& text) {
    GlyphString all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

GlyphString replaced(GlyphString text, GlyphView what, GlyphView by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != GlyphString::npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

// Its rows are cut at bars.
GlyphString rows(const GlyphString& text) {
    return replaced(text, "|", lineBreak);
}

// The file another way: its objects are laid out as texts, and the numbers are their places if
// every stream were as long as stated and the seventh object stood at 396.
GlyphString laidOut(const Job& job) {
    std::deque<GlyphString> lines;
    std::istringstream in(replaced(job.source, lineBreak, "\r"));
    for (GlyphString line; std::getline(in, line, '\r');)
        lines.push_back(line);
    const int count = static_cast<int>(lines.size());
    const int pages =
        job.records > 0 ? count / job.records + 1 : 1 - (count - job.records - 1) / -job.records;

    GlyphString bytes = rows("%PDF-1.2 |%\xD3\xD3\xD3\xD3|");
    std::map<int, int> places;
    int place = 0;
    const auto add = [&](int number, const GlyphString& content, int missing = 0) {
        const GlyphString object =
            rows(std::to_string(number) + " 0 obj|") + content + rows("endobj|");
        places[number] = place;
        place += static_cast<int>(object.size()) + missing;
        bytes += object;
    };
    add(1, rows("<<|/Creator  (Text File to PDF 1.0)|"
                "/Producer (Text File to PDF page writer, 1.00)|/Title (PAGEGEN)|>>|"));
    add(4, rows("<<|/Type /Font|/Subtype /Type1|/Name /F1|/Encoding 5 0 R|/BaseFont /" + job.font +
                "|>>|"));
    add(5, rows("<<|/Type /Encoding|/BaseEncoding /WinAnsiEncoding|>>|"));
    add(6, rows("<<|/Font << /F1 4 0 R   >>  /ProcSet [ /PDF  /Text ]|>>|"));
    places = {{1, 17}, {4, 144}, {5, 247}, {6, 321}};
    place = 396;
    GlyphString kids;
    int number = 7;
    for (int page = 0; page < pages; ++page, number += 3) {
        GlyphString stream =
            rows("BT|/F1 " + std::to_string(job.fontSize) + " Tf|1 0 0 1 50 802 Tm|12 TL|");
        int shown = 0;
        for (; shown < job.records && !lines.empty(); ++shown, lines.pop_front()) {
            GlyphString line = lines.front();
            if (static_cast<int>(line.size()) + 9 <= job.width)
                line.resize(static_cast<std::size_t>(job.width), ' ');
            stream += "T* (" + line + ") Tj\r\n";
        }
        stream += rows("ET|");
        const int stated = 90 * shown + 45;
        add(number, rows("<<|/Type /Page|/Parent 3 0 R|/Resources 6 0 R|/Contents " +
                         std::to_string(number + 1) + " 0 R|>>|"));
        const int missing = stated - static_cast<int>(stream.size());
        stream.insert(0, rows("<<|/Length " + std::to_string(number + 2) + " 0 R|>>|stream|"));
        add(number + 1, stream.append(rows("endstream|")), missing);
        add(number + 2, rows(std::to_string(stated) + "|"));
        kids.append(" ").append(std::to_string(number)).append(" 0 R");
    }
    add(2, rows("<<|/Type /Catalog|/Pages 3 0 R|/PageLayout /OneColumn|>>|"));
    add(3, rows("<<|/Type /Pages|/Count " + std::to_string(pages) +
                "|/MediaBox [ 0 0 595 842 ]|/Kids [" + kids + " ]|>>|"));

    bytes += rows("xref|0" + std::to_string(number) + "|0000000000 65535 f|");
    for (const auto& [object, at] : places) {
        std::array<char, 32> entry{};
        std::snprintf(entry.data(), entry.size(), "%010d 00000 n\r\n", at);
        bytes += entry.data();
    }
    return bytes + rows("trailer|<<|/Size " + std::to_string(number) + "|/Root 2 0 R|" +
                        "/Info 1 0 R|>>|startxref|" + std::to_string(place) + "|%%EOF|");
}

TEST(PdfWriter, WritesEveryByteAsLaidOut) {
    const GlyphString line = "Hkkjr (ns'k) \\ gS\r\n";
    const Job jobs[] = {
        {"one line", line},
        {"a page, and an empty one", repeated(60, line)},
        {"a line more than a page", repeated(61, line)},
        {"objects of four digits", repeated(700, line), 1},
        {"a page that could have more lines than it has", repeated(363, line), 364},
        {"as many lines as the file can have", repeated(25'945, "\r"), 100},
        {"fewer than no pages", repeated(61, line), -60},
        {"no page", line, -1},
        {"a page without a look at the lines", "", -1},
        {"filled, and one too long for it", GlyphString(71, 'a') + "\r" + GlyphString(72, 'b')},
        {"width 0", line, 60, 0},
        {"width 9, an empty line", "\ra", 60, 9},
        {"the least width", line, 60, -32768},
        {"every byte", allBytes()},
        {"CR, LF and both", "\n1\r\n\n2\n\r3\r\r4\r\n\r\n\r"},
        {"an odd font", line, 60, 80, -100, "/(Kruti\\ \xD3 Dev#20)"},
    };
    for (const Job& job : jobs) {
        const GlyphString bytes = converted(job);
        const GlyphString expected = laidOut(job);
        const auto same =
            std::mismatch(bytes.begin(), bytes.end(), expected.begin(), expected.end());
        EXPECT_TRUE(bytes == expected) << job.name << ": byte " << same.first - bytes.begin();
    }
}

TEST(PdfWriter, ASecondRunListsThePagesOfTheFirstAsWell) {
    FakeDesktop desktop;
    desktop.disk["source"] = "Hello\r\n";
    CPdfWriter writer(desktop, desktop);
    convert(writer, {"", ""}, "source", "target");
    writer.CreatePDFFile();
    const GlyphString once = converted({"", "Hello\r\n"});
    EXPECT_EQ(desktop.disk["target"],
              replaced(replaced(once, "[ 7 0 R ]", "[ 7 0 R 7 0 R ]"), "872\r\n", "878\r\n"));

    EXPECT_EQ(writer.SourceFile() + "|" + writer.Font(), "source|Kruti Dev 020");
    EXPECT_EQ(writer.TargetFile() + writer.FontSize(), "");
    writer.CreatePDFFile();
    EXPECT_EQ(desktop.calls.back(), "write ") << "a target path that was read is gone";
}

struct PdfFiles : FileFixture {};

TEST_F(PdfFiles, AFailureLeavesTheTargetAsItShould) {
    const struct {
        Job job;
        int error;
        const char* after = "old";
        const char* source = "source";
        const char* target = "target";
    } cases[] = {
        {{"no lines a page", "a", 0}, 11},
        {{"no lines", ""}, 9},
        {{"one line too many", repeated(32768, "\r"), 363}, 6},
        {{"one page too many", repeated(32767, "\r"), 1}, 6},
        {{"one line too many on a page", repeated(364, "\r"), 364}, 6},
        {{"too many cross-references", repeated(10'920, "\r"), 1}, 6},
        {{"too long a list of pages", repeated(4000, "\r"), 1}, 6},
        {{"one line too many in the file", repeated(25'946, "\r"), 100}, 6, ""},
        {{"the same without a folder", repeated(22'800, "\r")}, 76, "old", "source", "none/target"},
        {{"a pattern that matches", "a"}, 53, "old", "so?r*"},
        {{"no folder for the target", "a"}, 76, "old", "source", "none/target"},
        {{"a target that nobody may write", "a"}, 75, "old", "source", "fixed"},
        {{"no source", "a"}, 0, "old", "none"},
    };
    write(folder / "fixed", "old");
    fs::permissions(folder / "fixed", fs::perms::owner_read);
    for (const auto& it : cases) {
        SCOPED_TRACE(it.job.name);
        write(folder / "source", it.job.source);
        write(folder / "target", "old");
        FakeDesktop desktop;
        CPdfWriter writer(files, desktop);
        const std::string source = folder / it.source;
        EXPECT_EQ(errorOf([&] { convert(writer, it.job, source, folder / it.target); }), it.error);
        EXPECT_EQ(read(folder / "target"), it.after);
        EXPECT_EQ(read(folder / "fixed"), "old");
        const std::string message = "ask " + source + " File does not exist [OK] Quillet1.0 (i)|";
        EXPECT_EQ(joined(desktop.calls), it.error == 0 ? message : "");
    }
}

TEST(Convert, TurnsTheSavedFileIntoAPdfBesideIt) {
    const std::array<std::string, 2> cases[] = {
        {"D:\\docs\\letter.qlt", "D:\\docs\\letter.pdf"},
        {"page.html", "page..pdf"},
        {"\u0915\u0916\u0917\u0918\u0919", "\u0915.pdf"},
        {"a.b", ""},
        {"\u0915\u0916\u0917", ""},
        {"fixed.qlt", "fixed.pdf"},
    };
    for (const auto& [path, target] : cases) {
        TestWindow form;
        FakeDesktop& desktop = form.desktop;
        desktop.readOnly = {"", "fixed.pdf"};
        desktop.disk[path] = "saved";
        form.NewFile = false;
        form.NameofFile = path;
        form.txtMain.Text("changed since");
        form.ConvertToPdf();
        const std::vector<std::string> calls = {
            "read " + path, "write " + target,
            "ask File converted to PDF format with same name [OK] Quillet1.0"};
        EXPECT_EQ(desktop.calls, calls);
        auto disk = std::map<std::string, GlyphString>{{path, "saved"}};
        if (!desktop.readOnly.contains(target))
            disk[target] = converted({"", "saved"});
        EXPECT_TRUE(desktop.disk == disk) << path;
    }
}

} // namespace
} // namespace quillet
