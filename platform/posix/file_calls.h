// The system's file calls, repeated where a signal or a short count cut them off.
#pragma once

#include "base/glyph_string.h"
#include "base/run_time_error.h"
#include "platform/posix/file_descriptor.h"

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <span>
#include <sys/stat.h>

namespace quillet {

/// Calls a system call again for as long as signals interrupt it.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// The run-time error of an `errno` value: a name that is in use is `PermissionDenied`, and what
/// has no number of its own is `PathFileAccess`.
RunTimeError fileError(int error);

/// The same for a call that was given the name `path`: where its folder is missing,
/// `PathNotFound` rather than `FileNotFound`.
RunTimeError fileError(int error, const std::filesystem::path& path);

/// Opens `path` with `open`'s flags and mode. On failure the result is not open and `errno` tells
/// why.
FileDescriptor openFile(const std::filesystem::path& path, int flags, mode_t mode = 0);

// All of the following throw `fileError`.

struct stat statusOf(const FileDescriptor& file);

/// Reads from 1 to `room` bytes; 0 only at the end of the file.
std::size_t readSome(const FileDescriptor& file, char* to, std::size_t room);

/// Writes all parts one after the other, from the file's present place on.
void writeAll(const FileDescriptor& file, std::span<const GlyphView> parts);

/// Returns once the device has what was written. What cannot be flushed, like a pipe, is left.
void flush(const FileDescriptor& file);

} // namespace quillet
