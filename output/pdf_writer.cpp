#include "output/pdf_writer.h"

#include "base/run_time_error.h"
#include "base/text_buffer.h"
#include "platform/files.h"
#include "platform/message_box.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace quillet {
namespace {

constexpr std::size_t maxEntries = std::numeric_limits<std::int16_t>::max();

constexpr GlyphView creatorKey = "Creator";
constexpr GlyphView producerKey = "Producer";
constexpr GlyphView titleKey = "Title";
constexpr GlyphView creatorCredit = "  (Text File to PDF 1.0)";
constexpr GlyphView producerCredit = " (Text File to PDF page writer, 1.00)";
constexpr GlyphView titleCredit = " (PAGEGEN)";

// Later objects stand where they do because of these lengths.
constexpr std::size_t lineLength(GlyphView key, GlyphView credit) {
    return 1 + key.size() + credit.size();
}
static_assert(lineLength(creatorKey, creatorCredit) == 32);
static_assert(lineLength(producerKey, producerCredit) == 46);
static_assert(lineLength(titleKey, titleCredit) == 16);

constexpr std::int32_t lastFixedObject = 6;
constexpr std::int32_t firstPageOffset = 396;
constexpr std::array fixedOffsets = {17, 790, 869, 144, 247, 321, firstPageOffset};

// In `XrefLines_`.
constexpr std::size_t countEntry = 1;
constexpr std::size_t catalogEntry = 4;
constexpr std::size_t pageTreeEntry = 5;

// The bytes of each object besides its numbers, and of a stream besides its text.
constexpr std::int32_t pageBytes = 86;
constexpr std::int32_t contentBytes = 57;
constexpr std::int32_t lengthBytes = 18;
constexpr std::int32_t catalogBytes = 79;
constexpr std::int32_t pageTreeBytes = 86;
constexpr std::int32_t streamBytes = 45;
constexpr std::int32_t textLineBytes = 90; // of a line filled to 80

constexpr int unfilledMargin = 9; // lines this close to the width are not filled

// Lists are numbered with 16 bits.
template <class List>
void addTo(List& list, GlyphView entry) {
    if (list.size() == maxEntries)
        throw RunTimeError(ErrorNumber::Overflow);
    list.emplace_back(entry);
}

std::string xrefEntry(std::int32_t offset) {
    const std::string digits = "0000000000" + std::to_string(offset);
    return digits.substr(digits.size() - 10) + " 00000 n";
}

} // namespace

void CPdfWriter::CreatePDFFile() {
    if (!SourceExists()) {
        messageBox_.show(
            {.text = SourceFile_ + " File does not exist", .icon = MessageIcon::Information});
        return;
    }
    InitRun();
    InitXref();
    BuildHeader();
    ReadSource();
    BuildPages();
    BuildTrailer();
    WriteTarget();
}

bool CPdfWriter::SourceExists() {
    return files_.exists(SourceFile_);
}

// Deliberately leaves `Kids_` as it is.
void CPdfWriter::InitRun() {
    CreatorKey_ = creatorKey;
    ProducerKey_ = producerKey;
    TitleKey_ = titleKey;
    ObjectNumber_ = lastFixedObject;
    Offset_ = firstPageOffset;
}

// With the count and the entries of objects 2 and 3 yet to be replaced.
void CPdfWriter::InitXref() {
    XrefLines_ = {"xref", "0 10", "0000000000 65535 f"};
    for (const std::int32_t offset : fixedOffsets)
        addXref({xrefEntry(offset)});
}

void CPdfWriter::BuildHeader() {
    BodyLines_.clear();
    LineIndex_ = 0;
    append({"%PDF-1.2 ", "%\xD3\xD3\xD3\xD3"});
    append({"1 0 obj", "<<", ("/" + CreatorKey_).append(creatorCredit),
            ("/" + ProducerKey_).append(producerCredit), ("/" + TitleKey_).append(titleCredit),
            ">>", "endobj"});
    append({"4 0 obj", "<<", "/Type /Font", "/Subtype /Type1", "/Name /F1", "/Encoding 5 0 R",
            "/BaseFont /" + Font_, ">>", "endobj"});
    append({"5 0 obj", "<<", "/Type /Encoding", "/BaseEncoding /WinAnsiEncoding", ">>", "endobj"});
    append({"6 0 obj", "<<", "/Font << /F1 4 0 R   >>  /ProcSet [ /PDF  /Text ]", ">>", "endobj"});
}

// A line ends at a CR, with the LF behind it, or at the end of the file; no line is empty because
// the file ends there. Any other LF is part of its line.
void CPdfWriter::ReadSource() {
    {
        const TextBuffer text = files_.read(SourceFile_);
        source_ = text.copy(0, text.size());
    }
    GlyphView rest = source_;
    SourceLines_.clear();
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\r'), rest.size());
        addTo(SourceLines_, rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (rest.starts_with('\n'))
            rest.remove_prefix(1);
    }
    if (RecordsPerPage_ == 0)
        throw RunTimeError(ErrorNumber::DivisionByZero);
    // A last page without lines where they are a multiple.
    PageCount_ =
        nearestInt16(std::floor(static_cast<double>(SourceLines_.size()) / RecordsPerPage_) + 1);
}

void CPdfWriter::BuildPages() {
    // As a rule all that follows, so that what is there already is never copied.
    BodyLines_.reserve(source_.size() + SourceLines_.size() * textLineBytes);
    for (std::int32_t page = 0; page < PageCount_; ++page) {
        const std::int32_t firstLine = page * RecordsPerPage_;
        buildPage(static_cast<std::size_t>(firstLine));
    }
}

void CPdfWriter::buildPage(std::size_t firstLine) {
    const std::string page = std::to_string(++ObjectNumber_);
    const std::string content = std::to_string(++ObjectNumber_);
    const std::string length = std::to_string(++ObjectNumber_);
    Kids_ += " " + page + " 0 R";
    append({page + " 0 obj", "<<", "/Type /Page", "/Parent 3 0 R", "/Resources 6 0 R",
            "/Contents " + content + " 0 R", ">>", "endobj"});
    advance(content.size() + page.size(), pageBytes);
    addOffset();

    append({content + " 0 obj", "<<", "/Length " + length + " 0 R", ">>", "stream", "BT",
            "/F1 " + std::to_string(FontSize_) + " Tf", "1 0 0 1 50 802 Tm", "12 TL"});
    StreamLength_ = toInt16(textLineBytes * appendText(firstLine) + streamBytes);
    append({"ET", "endstream", "endobj"});
    advance(content.size() + length.size(), contentBytes + StreamLength_);
    addOffset();

    const std::string value = std::to_string(StreamLength_);
    append({length + " 0 obj", value, "endobj"});
    advance(value.size() + length.size(), lengthBytes);
    addOffset();
}

// Returns the number of lines on the page.
std::int32_t CPdfWriter::appendText(std::size_t firstLine) {
    if (RecordsPerPage_ < 0)
        return 0;
    if (SourceLines_.empty())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    const std::size_t count = std::min<std::size_t>(SourceLines_.size() - firstLine,
                                                    static_cast<std::size_t>(RecordsPerPage_));
    for (std::size_t i = firstLine; i < firstLine + count; ++i) {
        const GlyphView line = SourceLines_[i];
        const auto length = static_cast<std::int64_t>(line.size());
        BodyLines_.append("T* (").append(line);
        if (length <= Width_ - unfilledMargin)
            BodyLines_.append(static_cast<std::size_t>(Width_ - length), ' ');
        BodyLines_.append(") Tj").append(lineBreak);
    }
    LineIndex_ += static_cast<std::int32_t>(count);
    return static_cast<std::int32_t>(count);
}

void CPdfWriter::BuildTrailer() {
    append({"2 0 obj", "<<", "/Type /Catalog", "/Pages 3 0 R", "/PageLayout /OneColumn", ">>",
            "endobj"});
    PatchCatalogEntry();

    const std::string count = std::to_string(PageCount_);
    append({"3 0 obj", "<<", "/Type /Pages", "/Count " + count, "/MediaBox [ 0 0 595 842 ]",
            "/Kids [" + Kids_ + " ]", ">>", "endobj"});
    advance(0, catalogBytes);
    XrefLines_[pageTreeEntry] = xrefEntry(Offset_);

    const std::string size = std::to_string(++ObjectNumber_);
    XrefLines_[countEntry] = "0" + size; // deliberately without a space
    advance(count.size() + Kids_.size(), pageTreeBytes);
    addXref({"trailer", "<<", "/Size " + size, "/Root 2 0 R", "/Info 1 0 R", ">>", "startxref",
             std::to_string(Offset_), "%%EOF"});
    AppendXref();
}

// What follows the last page is the catalog, whose entry has its place among the first.
void CPdfWriter::PatchCatalogEntry() {
    XrefLines_[catalogEntry] = XrefLines_.back();
    XrefLines_.back().clear();
}

void CPdfWriter::AppendXref() {
    for (const std::string& line : XrefLines_)
        if (!line.empty())
            append({line});
}

void CPdfWriter::WriteTarget() {
    if (LineIndex_ > static_cast<std::int32_t>(maxEntries)) {
        files_.write(TargetFile_, {});
        throw RunTimeError(ErrorNumber::Overflow);
    }
    files_.write(TargetFile_, std::array{GlyphView(BodyLines_)});
}

void CPdfWriter::append(std::initializer_list<GlyphView> lines) {
    for (const GlyphView line : lines)
        BodyLines_.append(line).append(lineBreak);
    LineIndex_ += static_cast<std::int32_t>(lines.size());
}

// Moves on by an object: the digits of its numbers and its other bytes.
void CPdfWriter::advance(std::size_t digits, std::int32_t otherBytes) {
    DigitCount_ = toInt16(static_cast<std::int64_t>(digits));
    Offset_ += DigitCount_ + otherBytes;
}

void CPdfWriter::addXref(std::initializer_list<GlyphView> lines) {
    for (const GlyphView line : lines)
        addTo(XrefLines_, line);
}

void CPdfWriter::addOffset() {
    addXref({xrefEntry(Offset_)});
}

} // namespace quillet
