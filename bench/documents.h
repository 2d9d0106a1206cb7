// Texts of any size for the benchmarks.
#pragma once

#include "base/glyph_string.h"
#include "platform/posix/posix_files.h"
#include "tests/shell.h"

#include <array>

namespace quillet {

/// Hindi prose: paragraphs of some 400 glyphs.
inline GlyphString prose(std::size_t size) {
    constexpr GlyphView sentence =
        "Hkkjr ,d fo'kky ns'k gS A ;gk\xA1 vusd Hkk\"kk,\xA1 cksyh tkrh gSa A ";
    constexpr std::size_t sentences = 8; // of a paragraph
    GlyphString text;
    text.reserve(size + 512);
    while (text.size() < size) {
        for (std::size_t i = 0; i < sentences; ++i)
            text += sentence;
        text += lineBreak;
    }
    return text;
}

/// A file with a text, in a folder of its own.
class DocumentFile {
  public:
    explicit DocumentFile(GlyphView text) { PosixFiles().write(path_, std::array{text}); }

    const std::string& path() const { return path_; }

  private:
    TempFolder folder_;
    std::string path_ = folder_.path / "prose.qlt";
};

} // namespace quillet
