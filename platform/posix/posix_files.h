// Files of the operating system.
#pragma once

#include "platform/files.h"

namespace quillet {

/// Reads and writes real files. Pipes and devices are files as well: they are read to their end
/// and written as they are.
///
/// A save is written beside the file, flushed to the device and renamed over it. Mode, owner and
/// group stay; a symbolic link stays one, and what it names is written. A file without any write
/// bit is refused, to the superuser too. Where the folder refuses a second file, or owner and
/// group cannot be kept, the file is overwritten once the device has room for all of it.
class PosixFiles : public Files {
  public:
    /// From here on a pipe without a reader and a file beyond the size limit are failures of
    /// their write; the signals that would end the process are ignored.
    PosixFiles();

    bool exists(const std::string& pattern) override;
    TextBuffer read(const std::string& path) override;
    void write(const std::string& path, std::span<const GlyphView> parts) override;
};

} // namespace quillet
