#include "platform/posix/replacement.h"

#include "platform/posix/file_calls.h"

#include <cstdio>
#include <fcntl.h>
#include <string>

namespace fs = std::filesystem;

namespace quillet {
namespace {

constexpr int maxAttempts = 100;

// The target's own name has no part in it: that may be as long as names can be.
fs::path temporaryName(const fs::path& target, int attempt) {
    const std::string name =
        ".quillet-" + std::to_string(::getpid()) + "-" + std::to_string(attempt);
    return target.parent_path() / name;
}

// Leaves the name that it found free in `name`. A name is taken where a program that was killed
// could not clean up.
FileDescriptor createTemporary(const fs::path& target, mode_t mode, fs::path& name) {
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        name = temporaryName(target, attempt);
        FileDescriptor file = openFile(name, O_WRONLY | O_CREAT | O_EXCL, mode);
        if (file.isOpen() || errno != EEXIST)
            return file;
    }
    return FileDescriptor(-1);
}

// A rename is on the device only with its folder. By then the new content is in place, so that a
// folder that cannot be flushed is no failure of the save.
void flushFolder(const fs::path& folder) {
    const FileDescriptor file = openFile(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (file.isOpen())
        uninterrupted([&] { return ::fsync(file.number()); });
}

} // namespace

Replacement::Replacement(const fs::path& target, mode_t mode)
    : target_(target),
      file_(createTemporary(target, mode, name_)) {}

Replacement::~Replacement() {
    if (isCreated() && !inPlace_)
        ::unlink(name_.c_str());
}

bool Replacement::resemble(const struct stat& old) {
    // The mode comes last, because a change of owner may take bits from it.
    return ::fchown(file_.number(), old.st_uid, old.st_gid) == 0 &&
           ::fchmod(file_.number(), old.st_mode & ~mode_t{S_IFMT}) == 0;
}

void Replacement::write(std::span<const GlyphView> parts) {
    writeAll(file_, parts);
    flush(file_);
}

bool Replacement::takePlace() {
    inPlace_ = std::rename(name_.c_str(), target_.c_str()) == 0;
    if (inPlace_)
        flushFolder(target_.parent_path());
    return inPlace_;
}

} // namespace quillet
