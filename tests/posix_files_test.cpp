#include "platform/posix/posix_files.h"

#include "tests/file_fixture.h"
#include "tests/shell.h"

#include <tuple>

namespace quillet {
namespace {

struct PosixFilesTest : FileFixture {};

TEST_F(PosixFilesTest, ReadsBackEveryByte) {
    const fs::path path = folder / std::string(255, 'n'); // the longest name there is
    for (const GlyphString& text : {GlyphString(200'000, 'l'), allBytes(), GlyphString("\r\n")}) {
        write(path, text);
        EXPECT_TRUE(read(path) == text) << text.size() << " bytes";
    }
    files.write(path.native(), {});
    EXPECT_EQ(read(path), "");
    EXPECT_NE(read("/proc/version"), ""); // the system reports no size for it
}

TEST_F(PosixFilesTest, LooksForNamesWithTwoWildcardsOnly) {
    fs::create_directories(folder / "a*[b]\\/sub");
    fs::create_directory(folder / "other");
    fs::create_directory_symlink("other", folder / "link");
    fs::create_symlink("gone", folder / "broken");
    for (const char* name : {"a*[b]\\/.hidden", "a*[b]\\/[x]\\", "letter.qlt", ".dot"})
        write(folder / name, "");
    for (const char* pattern : {"letter.qlt", "l?tter.*", "*", "l*", ".d*", "*dot", "a*[b]\\/*",
                                "a*[b]\\/.hidden", "a*[b]\\/[x]\\", "a*[b]\\/[x]?", "a*[b]\\/[?]*"})
        EXPECT_TRUE(files.exists(folder / pattern)) << pattern;
    for (const char* pattern : {"LETTER.qlt", "?letter.qlt", "letter.qlt/", "*.none", "other", "o*",
                                "l[e]tter.qlt", "li*", ".", "other/*", "a*[b]\\/s*", "a*/.hidden",
                                "a*[b]\\/x\\", "none/*", "br*", "broken"})
        EXPECT_FALSE(files.exists(folder / pattern)) << pattern;
    EXPECT_FALSE(files.exists(""));
    EXPECT_FALSE(files.exists(folder / std::string("letter.qlt\0", 11)));
    EXPECT_TRUE(files.exists(fs::relative(folder / "letter.qlt")));
}

TEST_F(PosixFilesTest, ReplacesTheFileButKeepsModeAndOwner) {
    const fs::path path = folder / "file";
    const mode_t umask = ::umask(027);
    write(path, "old text");
    ::umask(umask);
    EXPECT_EQ(statusOf(path).st_mode, mode_t{S_IFREG | 0640});
    ASSERT_EQ(::chown(path.c_str(), ::geteuid() == 0 ? 12 : ::geteuid(), ::getegid()), 0);
    for (const mode_t mode : {0600U, 0666U, 0755U, 0200U}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        const struct stat before = statusOf(path);
        write(path, "new");
        const struct stat after = statusOf(path);
        EXPECT_NE(after.st_ino, before.st_ino);
        EXPECT_EQ(after.st_mode, before.st_mode);
        EXPECT_EQ(after.st_uid, before.st_uid);
        EXPECT_EQ(after.st_size, 3);
    }
}

TEST_F(PosixFilesTest, TellsFailuresApart) {
    write(folder / "fixed", "old");
    fs::permissions(folder / "fixed", fs::perms::owner_read);
    std::ofstream(folder / "huge").close();
    fs::resize_file(folder / "huge", std::uintmax_t{maxTextLength} + 1);
    fs::create_symlink("loop", folder / "loop");
    fs::create_symlink("missing/target", folder / "lost");
    const std::tuple<fs::path, int, int> rows[] = {
        // name, error of reading, of writing
        {"", 53, 53},
        {folder / std::string("cut\0name", 8), 53, 53},
        {folder, 75, 75},
        {folder / "missing/file", 76, 76},
        {folder / "huge/file", 76, 76},
        {folder / "loop", 75, 75},
        {folder / "lost", 53, 76},
        {folder / std::string(256, 'n'), 75, 75},
        {folder / "fixed", 0, 75},
        {folder / "none", 53, 0},
        {folder / "huge", 7, 0},
    };
    for (const auto& [name, reading, writing] : rows) {
        EXPECT_EQ(errorOf([&, &path = name] { read(path); }), reading) << name;
        EXPECT_EQ(errorOf([&, &path = name] { write(path, "text"); }), writing) << name;
    }
    EXPECT_EQ(errorOf([&] { write("/dev/full", "text"); }), 75);
    EXPECT_EQ(read(folder / "fixed"), "old");
    EXPECT_FALSE(fs::exists(folder / "cut"));
}

} // namespace
} // namespace quillet
