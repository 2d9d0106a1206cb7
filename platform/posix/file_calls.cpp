#include "platform/posix/file_calls.h"

#include <fcntl.h>

namespace fs = std::filesystem;

namespace quillet {
namespace {

void check(bool succeeded) {
    if (!succeeded)
        throw fileError(errno);
}

bool isInMissingFolder(const fs::path& path) {
    std::error_code failure;
    return path.has_parent_path() && !fs::exists(path.parent_path(), failure);
}

} // namespace

RunTimeError fileError(int error) {
    switch (error) {
    case ENOENT:
        return RunTimeError(ErrorNumber::FileNotFound);
    case ENOTDIR:
        return RunTimeError(ErrorNumber::PathNotFound);
    case EBUSY:
    case ETXTBSY:
        return RunTimeError(ErrorNumber::PermissionDenied);
    case ENOMEM:
        return RunTimeError(ErrorNumber::OutOfMemory);
    default:
        return RunTimeError(ErrorNumber::PathFileAccess);
    }
}

RunTimeError fileError(int error, const fs::path& path) {
    return fileError(error == ENOENT && isInMissingFolder(path) ? ENOTDIR : error);
}

FileDescriptor openFile(const fs::path& path, int flags, mode_t mode) {
    return FileDescriptor(
        uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); }));
}

struct stat statusOf(const FileDescriptor& file) {
    struct stat status {};
    check(::fstat(file.number(), &status) == 0);
    return status;
}

std::size_t readSome(const FileDescriptor& file, char* to, std::size_t room) {
    const ssize_t count = uninterrupted([&] { return ::read(file.number(), to, room); });
    check(count >= 0);
    return static_cast<std::size_t>(count);
}

void writeAll(const FileDescriptor& file, std::span<const GlyphView> parts) {
    for (GlyphView rest : parts) {
        while (!rest.empty()) {
            const ssize_t count =
                uninterrupted([&] { return ::write(file.number(), rest.data(), rest.size()); });
            check(count >= 0);
            rest.remove_prefix(static_cast<std::size_t>(count));
        }
    }
}

void flush(const FileDescriptor& file) {
    const int result = uninterrupted([&] { return ::fsync(file.number()); });
    check(result == 0 || errno == EINVAL);
}

} // namespace quillet
