// A file's new content, beside the old one until it is complete.
#pragma once

#include "base/glyph_string.h"
#include "platform/posix/file_descriptor.h"

#include <filesystem>
#include <span>
#include <sys/stat.h>

namespace quillet {

/// A temporary file in the folder of the file that it is going to replace. Unless it got that
/// far, it is removed with this object.
class Replacement {
  public:
    /// Creates the temporary file with `mode` less the umask. `isCreated` tells whether the folder
    /// took it, `errno` why not.
    Replacement(const std::filesystem::path& target, mode_t mode);
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement();

    bool isCreated() const { return file_.isOpen(); }

    /// Takes on owner, group and mode of the old file; false where the system refuses.
    bool resemble(const struct stat& old);

    /// Writes the content and flushes it to the device.
    void write(std::span<const GlyphView> parts);

    /// Takes the target's place, in one step for everybody who looks. False, with `errno` set and
    /// everything as before, where the system refuses.
    bool takePlace();

  private:
    std::filesystem::path target_;
    std::filesystem::path name_; // set before the file, which is created under it
    FileDescriptor file_;
    bool inPlace_ = false;
};

} // namespace quillet
