// PDF files byte for byte, the settings, the limits, and the command on the document's file.
#include "output/pdf_writer.h"

#include "tests/file_fixture.h"
#include "tests/test_window.h"

#include <cstdio>
#include <limits>
#include <map>
#include <sstream>
#include <variant>

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

GlyphString everyByte() {
    GlyphString bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    return bytes;
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

    GlyphString bytes = rows("%PDF-1.2 |%\xD3\xD3\xD3\xD3|"
                             "1 0 obj|<<|/Creator  (Text File to PDF 1.0)|"
                             "/Producer (Text File to PDF page writer, 1.00)|/Title (PAGEGEN)|>>|"
                             "endobj|4 0 obj|<<|/Type /Font|/Subtype /Type1|/Name /F1|"
                             "/Encoding 5 0 R|/BaseFont /" +
                             job.font +
                             "|>>|endobj|"
                             "5 0 obj|<<|/Type /Encoding|/BaseEncoding /WinAnsiEncoding|>>|endobj|"
                             "6 0 obj|<<|/Font << /F1 4 0 R   >>  /ProcSet [ /PDF  /Text ]|>>|"
                             "endobj|");
    std::map<int, int> places = {{1, 17}, {4, 144}, {5, 247}, {6, 321}};
    int place = 396;
    const auto add = [&](int number, const GlyphString& content, int missing = 0) {
        const GlyphString object =
            rows(std::to_string(number) + " 0 obj|") + content + rows("endobj|");
        places[number] = place;
        place += static_cast<int>(object.size()) + missing;
        bytes += object;
    };

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
        {"a line less than a page", repeated(59, line)},
        {"a page, and an empty one", repeated(60, line)},
        {"a line more than a page", repeated(61, line)},
        {"two pages, and an empty one", repeated(120, line)},
        {"objects of four digits", repeated(700, line), 1},
        {"as many lines as a page can have", repeated(363, line), 363},
        {"a page that could have more lines than it has", repeated(363, line), 364},
        {"as many lines as the file can have", repeated(25'945, "\r"), 100},
        {"fewer than no pages", repeated(61, line), -60},
        {"no page", line, -1},
        {"a page without a look at the lines", "", -1},
        {"filled, and one too long for it", GlyphString(71, 'a') + "\r" + GlyphString(72, 'b')},
        {"a line of 10,000", GlyphString(10'000, 'a')},
        {"width 0", line, 60, 0},
        {"width 8, below the margin", "\ra", 60, 8},
        {"width 9, an empty line", "\ra", 60, 9},
        {"width 10", "a\rab", 60, 10},
        {"the largest width", line, 60, 32767},
        {"the least width", line, 60, -32768},
        {"every byte", everyByte()},
        {"CR, LF and both", "\n1\r\n\n2\n\r3\r\r4\r\n\r\n\r"},
        {"LF alone", repeated(61, "a\n")},
        {"a last line that does not end", "a\rb"},
        {"a font size of one digit", line, 60, 80, 8},
        {"a negative font size", line, 60, 80, -100},
        {"a font of 7 letters", line, 60, 80, 12, "Courier"},
        {"no font", line, 60, 80, 12, ""},
        {"an odd font", line, 60, 80, 12, "/(Kruti\\ \xD3 Dev#20)"},
    };
    for (const Job& job : jobs) {
        const GlyphString bytes = converted(job);
        const GlyphString expected = laidOut(job);
        const auto same =
            std::mismatch(bytes.begin(), bytes.end(), expected.begin(), expected.end());
        EXPECT_TRUE(bytes == expected) << job.name << ": byte " << same.first - bytes.begin();
    }
}

TEST(PdfWriter, WritesTheNumbersThatWereComputedByHand) {
    const struct {
        Job job;
        std::size_t size;
        const char* end; // less the ends of the entries
    } cases[] = {
        {{"two lines", "Hello\r\nWorld\r\n"},
         1255,
         "|/Count 1|/MediaBox [ 0 0 595 842 ]|/Kids [ 7 0 R ]|>>|endobj|xref|010|0000000000 65535 f"
         "|0000000017|0000000790|0000000869|0000000144|0000000247|0000000321|0000000396|0000000484"
         "|0000000768|trailer|<<|/Size 10|/Root 2 0 R|/Info 1 0 R|>>|startxref|962|%%EOF|"},
        {{"61 lines", repeated(61, GlyphString(71, 'a') + "\r\n")},
         6853,
         "|/Count 2|/MediaBox [ 0 0 595 842 ]|/Kids [ 7 0 R 10 0 R ]|>>|endobj|xref|013"
         "|0000000000 65535 f|0000000017|0000006320|0000006399|0000000144|0000000247|0000000321"
         "|0000000396|0000000484|0000005988|0000006011|0000006101|0000006297|trailer|<<|/Size 13"
         "|/Root 2 0 R|/Info 1 0 R|>>|startxref|6499|%%EOF|"},
    };
    for (const auto& it : cases) {
        const GlyphString bytes = converted(it.job);
        const GlyphString text = replaced(replaced(bytes, lineBreak, "|"), " 00000 n", "");
        EXPECT_EQ(bytes.size(), it.size) << it.job.name;
        EXPECT_EQ(text.substr(text.find("|/Count")), it.end) << it.job.name;
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

TEST(PdfWriter, SettingsTakeNumbersAndTheirTexts) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        std::variant<double, std::string> value;
        int stored; // or the error
        bool fails = false;
    } cases[] = {
        {2.5, 2},           {3.5, 4},           {-2.5, -2},          {32767.4, 32767},
        {-32768.5, -32768}, {32767.5, 6, true}, {-32768.6, 6, true}, {1e300, 6, true},
        {nan, 6, true},     {"80", 80},         {" +1.5e1\t", 15},   {"-2.5", -2},
        {"1e-400", 0},      {"40000", 6, true}, {"-1e999", 6, true}, {"", 13, true},
        {"  ", 13, true},   {"80a", 13, true},  {"1,5", 13, true},   {"inf", 13, true},
        {"0x10", 13, true}, {"1 2", 13, true},  {"e", 13, true},
    };
    const auto check = [](const auto& value, int stored, int expectedError) {
        FakeDesktop desktop;
        CPdfWriter writer(desktop, desktop);
        for (const int error :
             {errorOf([&] { writer.Width(value); }), errorOf([&] { writer.RecordsPerPage(value); }),
              errorOf([&] { writer.FontSize(value); })})
            EXPECT_EQ(error, expectedError) << value;
        EXPECT_EQ(writer.Width(), stored) << value;
        EXPECT_EQ(writer.RecordsPerPage(), stored) << value;
    };
    for (const auto& it : cases)
        std::visit(
            [&](const auto& value) {
                check(value, it.fails ? 0 : it.stored, it.fails ? it.stored : 0);
            },
            it.value);
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
        {{"neither lines nor any a page", "", 0}, 11},
        {{"no lines", ""}, 9},
        {{"one line too many", repeated(32768, "\r"), 363}, 6},
        {{"one page too many", repeated(32767, "\r"), 1}, 6},
        {{"one line too many on a page", repeated(364, "\r"), 364}, 6},
        {{"too many cross-references", repeated(10'920, "\r"), 1}, 6},
        {{"too long a list of pages", repeated(4000, "\r"), 1}, 6},
        {{"one line too many in the file", repeated(25'946, "\r"), 100}, 6, ""},
        {{"the same with pages of 60", repeated(22'800, "\r")}, 6, ""},
        {{"the same without a folder", repeated(22'800, "\r")}, 76, "old", "source", "none/target"},
        {{"a pattern that matches", "a"}, 53, "old", "so?r*"},
        {{"no folder for the target", "a"}, 76, "old", "source", "none/target"},
        {{"a target that nobody may write", "a"}, 75, "old", "source", "fixed"},
        {{"no source", "a"}, 0, "old", "none"},
        {{"a folder as source", "a"}, 0, "old", "."},
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
        const std::string message = "ask " + source + " File does not exist [OK] Quillet1.0 (i)";
        EXPECT_EQ(desktop.calls, std::vector<std::string>(it.error == 0 ? 1 : 0, message));
    }
}

TEST(Convert, TurnsTheSavedFileIntoAPdfBesideIt) {
    const struct {
        std::string path;
        std::string target;
        std::string message = {}; // before the usual one, where there is no such file
    } cases[] = {
        {"D:\\docs\\letter.qlt", "D:\\docs\\letter.pdf"},
        {"page.html", "page..pdf"},
        {"\u0915\u0916\u0917\u0918\u0919", "\u0915.pdf"},
        {"four", ".pdf"},
        {"a.b", ""},
        {"\u0915\u0916\u0917", ""},
        {"fixed.qlt", "fixed.pdf"},
        {"", "", "ask  File does not exist [OK] Quillet1.0 (i)|"},
        {"lost.qlt", "", "ask lost.qlt File does not exist [OK] Quillet1.0 (i)|"},
    };
    for (const auto& it : cases) {
        SCOPED_TRACE(it.path);
        TestWindow form;
        auto& disk = form.desktop.disk;
        form.desktop.readOnly = {"", "fixed.pdf"};
        form.NewFile = false;
        form.NameofFile = it.path;
        form.txtMain.Text("changed since");
        if (it.message.empty())
            disk[it.path] = "saved";
        auto after = disk;
        if (it.message.empty() && !form.desktop.readOnly.contains(it.target))
            after[it.target] = converted({"", "saved"});
        const std::string calls =
            (it.message.empty() ? "read " + it.path + "|write " + it.target + "|" : it.message) +
            "ask File converted to PDF format with same name [OK] Quillet1.0|";
        std::string twice;
        for (int time = 0; time < 2; ++time)
            form.Toolbar1_ButtonClick("Convert");
        for (const std::string& call : form.desktop.calls)
            twice += call + "|";
        EXPECT_EQ(twice, calls + calls);
        EXPECT_TRUE(disk == after);
        EXPECT_EQ(form.NameofFile, it.path);
        EXPECT_FALSE(form.NewFile);
    }
}

} // namespace
} // namespace quillet
