// Whole files, read and written within one command.
#pragma once

#include "base/text_buffer.h"

#include <span>
#include <string>

namespace quillet {

/// Paths are UTF-8. Failures are thrown as `RunTimeError`.
class Files {
  public:
    virtual ~Files() = default;

    /// Whether there is anything but a folder of this name. In the name itself "*" stands for any
    /// characters and "?" for one; in those of the folders on the way they are letters.
    virtual bool exists(const std::string& pattern) = 0;

    /// Every byte of the file, unchanged. An empty name, a missing or unreadable file and one of
    /// more than `maxTextLength` bytes fail.
    virtual TextBuffer read(const std::string& path) = 0;

    /// Makes the file hold the parts one after the other: either all of them or, when it fails,
    /// what it held before. A file that nobody may write to fails, for the superuser too.
    virtual void write(const std::string& path, std::span<const GlyphView> parts) = 0;
};

} // namespace quillet
