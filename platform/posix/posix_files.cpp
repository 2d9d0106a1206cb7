#include "platform/posix/posix_files.h"

#include "base/run_time_error.h"
#include "platform/posix/file_calls.h"
#include "platform/posix/replacement.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <glob.h>
#include <string_view>

namespace fs = std::filesystem;

namespace quillet {
namespace {

using Parts = std::span<const GlyphView>;

constexpr std::size_t smallestRead = 65536;
constexpr int maxLinks = 40;
constexpr mode_t newFileMode = 0666;
constexpr mode_t privateMode = 0600;
constexpr mode_t anyWriteBit = 0222;

// No file has an empty name, and the system would take a NUL for the end of the name.
bool isName(const std::string& path) {
    return !path.empty() && path.find('\0') == std::string::npos;
}

void checkName(const std::string& path) {
    if (!isName(path))
        throw RunTimeError(ErrorNumber::FileNotFound);
}

// What the system's search takes for the pattern: it knows more wildcards, and everywhere.
std::string systemPattern(const std::string& pattern) {
    const std::size_t nameStart = pattern.rfind('/') + 1;
    std::string escaped;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const std::string_view special = at < nameStart ? "[\\*?" : "[\\";
        if (special.find(pattern[at]) != std::string_view::npos)
            escaped += '\\';
        escaped += pattern[at];
    }
    return escaped;
}

void checkLength(std::size_t length) {
    if (length > static_cast<std::size_t>(maxTextLength))
        throw RunTimeError(ErrorNumber::OutOfMemory);
}

// The size that the system reports is a hint: pipes and files made up on the fly have none.
TextBuffer readToEnd(const FileDescriptor& file, std::size_t expected) {
    checkLength(expected);
    TextBuffer text;
    std::size_t left = expected + smallestRead;
    std::span<char> room = text.prepareAppend(left);
    while (const std::size_t count = readSome(file, room.data(), room.size())) {
        text.commitAppend(count);
        checkLength(text.size());
        left = std::max(left - count, smallestRead);
        room = text.prepareAppend(left);
    }
    return text;
}

// The name that `path` leads to. Unlike the system's own search for it, this one is content with
// a last link whose file does not exist yet.
fs::path followLinks(fs::path path) {
    for (int links = 0; links < maxLinks; ++links) {
        std::error_code failure;
        const fs::path next = fs::read_symlink(path, failure);
        switch (failure.value()) {
        case 0:
            path = path.parent_path() / next;
            break;
        case EINVAL:       // no link
        case ENOENT:       // no file
        case ENAMETOOLONG: // no name that a file could be renamed to
            return path;
        default: // taken for the file itself, a link would be replaced
            throw fileError(failure.value());
        }
    }
    throw fileError(ELOOP);
}

void create(const fs::path& target, Parts parts) {
    Replacement file(target, newFileMode);
    if (!file.isCreated())
        throw fileError(errno, target);
    file.write(parts);
    if (!file.takePlace())
        throw fileError(errno, target);
}

// False where only overwriting the old file helps.
bool replace(const fs::path& target, const struct stat& old, Parts parts) {
    Replacement file(target, privateMode);
    if (!file.isCreated() || !file.resemble(old))
        return false;
    file.write(parts);
    return file.takePlace();
}

bool resize(const FileDescriptor& file, off_t size) {
    return uninterrupted([&] { return ::ftruncate(file.number(), size); }) == 0;
}

// Makes sure of the device's room for `size` bytes, or leaves the file as it was.
void reserve(const FileDescriptor& file, off_t oldSize, off_t size) {
    int error = size > oldSize ? EINTR : 0;
    while (error == EINTR)
        error = ::posix_fallocate(file.number(), oldSize, size - oldSize);
    if (error == 0)
        return;
    resize(file, oldSize);
    throw fileError(error);
}

void overwrite(const FileDescriptor& file, off_t oldSize, Parts parts) {
    off_t size = 0;
    for (const GlyphView part : parts)
        size += static_cast<off_t>(part.size());
    reserve(file, oldSize, size);
    writeAll(file, parts);
    if (!resize(file, size))
        throw fileError(errno);
    flush(file);
}

void writeToDevice(const FileDescriptor& device, Parts parts) {
    writeAll(device, parts);
    flush(device);
}

void writeToFile(const FileDescriptor& file, const std::string& path, Parts parts) {
    const struct stat old = statusOf(file);
    if (!S_ISREG(old.st_mode))
        return writeToDevice(file, parts);
    if ((old.st_mode & anyWriteBit) == 0)
        throw RunTimeError(ErrorNumber::PathFileAccess);
    if (!replace(followLinks(path), old, parts))
        overwrite(file, old.st_size, parts);
}

} // namespace

PosixFiles::PosixFiles() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

// The system also finds folders, and links whose file is gone. Names that begin with a dot are like
// any others.
bool PosixFiles::exists(const std::string& pattern) {
    if (!isName(pattern) || pattern.ends_with('/'))
        return false;
    glob_t found{};
    ::glob(systemPattern(pattern).c_str(), GLOB_NOSORT | GLOB_PERIOD, nullptr, &found);
    const std::span names(found.gl_pathv, found.gl_pathc);
    const bool exists = std::any_of(names.begin(), names.end(), [](const char* name) {
        std::error_code failure;
        const fs::file_status status = fs::status(name, failure);
        return fs::exists(status) && !fs::is_directory(status);
    });
    ::globfree(&found);
    return exists;
}

TextBuffer PosixFiles::read(const std::string& path) {
    checkName(path);
    const FileDescriptor file = openFile(path, O_RDONLY | O_NONBLOCK);
    if (!file.isOpen())
        throw fileError(errno, path);
    return readToEnd(file, static_cast<std::size_t>(statusOf(file).st_size));
}

void PosixFiles::write(const std::string& path, Parts parts) {
    checkName(path);
    // Opening the old file for writing asks the system whether this user may change it.
    const FileDescriptor old = openFile(path, O_WRONLY | O_NONBLOCK);
    if (old.isOpen())
        writeToFile(old, path, parts);
    else if (errno == ENOENT)
        create(followLinks(path), parts);
    else
        throw fileError(errno, path);
}

} // namespace quillet
