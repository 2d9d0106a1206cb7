// Plain text files turned into small PDF files.
#pragma once

#include "base/glyph_string.h"
#include "base/int16.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace quillet {

class Files;
class MessageBox;

/// Writes A4 pages of a fixed number of source lines each, every one shown as one line of text,
/// without wrapping and without escaping.
///
/// Cross-reference numbers and stream lengths are deliberately computed, not measured; see
/// docs/formats.md. The counters are deliberately of 16 bits. An object is meant for one
/// conversion: a second one lists the pages of the first as well.
class CPdfWriter {
  public:
    CPdfWriter(Files& files, MessageBox& messageBox) : files_(files), messageBox_(messageBox) {}

    // The settings have no defaults. Those that are numbers take a number or the text of one,
    // rounded to the nearest integer, of two to the even one.

    void SourceFile(const std::string& path) { SourceFile_ = path; }
    std::string SourceFile() const { return SourceFile_; }

    void TargetFile(const std::string& path) { TargetFile_ = path; }

    /// Gives nothing, and deliberately forgets the path.
    std::string TargetFile() {
        TargetFile_.clear();
        return {};
    }

    /// What short lines are filled up to with spaces.
    void Width(const auto& value) { Width_ = nearestInt16(value); }
    std::int16_t Width() const { return Width_; }

    void RecordsPerPage(const auto& value) { RecordsPerPage_ = nearestInt16(value); }
    std::int16_t RecordsPerPage() const { return RecordsPerPage_; }

    /// Converts the source file. Where it is missing, a message says so and nothing is written.
    /// A failure leaves the target as it was, but for a file of too many lines, which leaves it
    /// empty.
    void CreatePDFFile();

    /// Written as it is, although no PDF name may have spaces.
    void Font(const std::string& name) { Font_ = name; }
    std::string Font() const { return Font_; }

    /// Deliberately gives nothing.
    void FontSize(const auto& value) { FontSize_ = nearestInt16(value); }
    std::string FontSize() const { return {}; }

  private:
    bool SourceExists();
    void InitRun();
    void InitXref();
    void BuildHeader();
    void ReadSource();
    void BuildPages();
    void BuildTrailer();
    void PatchCatalogEntry();
    void AppendXref();
    void WriteTarget();

    void buildPage(std::size_t firstLine);
    std::int32_t appendText(std::size_t firstLine);
    void append(std::initializer_list<GlyphView> lines);
    void addXref(std::initializer_list<GlyphView> lines);
    void advance(std::size_t digits, std::int32_t otherBytes);
    void addOffset();

    Files& files_;
    MessageBox& messageBox_;
    GlyphString source_; // what `SourceLines_` points into

    std::string SourceFile_;
    std::string TargetFile_;
    std::string Font_;
    std::int16_t Width_ = 0;
    std::int16_t RecordsPerPage_ = 0;
    std::int16_t FontSize_ = 0;
    std::int16_t PageCount_ = 0;
    std::string Kids_;
    std::int32_t ObjectNumber_ = 0;
    std::int32_t Offset_ = 0;
    std::string CreatorKey_;
    std::string ProducerKey_;
    std::string TitleKey_;
    std::int16_t DigitCount_ = 0;
    std::int32_t StreamLength_ = 0;
    std::int32_t LineIndex_ = 0; // how many lines `BodyLines_` has
    std::vector<std::string> XrefLines_;
    GlyphString BodyLines_; // every line of the file with its line break
    std::vector<GlyphView> SourceLines_;
};

} // namespace quillet
