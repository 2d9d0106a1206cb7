// No save tears a file: neither one that is killed nor one whose system calls fail.
#include "tests/file_fixture.h"
#include "tests/system_call_faults.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <set>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillet {
namespace {

using Content = std::optional<GlyphString>; // none: there is no file
using Numbers = std::set<long>;

constexpr int pathFileAccess = 75;
constexpr mode_t oldMode = 0640;

const GlyphString newText = GlyphString(150'000, 'n') + GlyphString(150'000, 'm');
const GlyphString shorter(100'000, 'o');
const GlyphString longer(400'000, 'o');

constexpr Fault faults[] = {
    {"input/output error", EIO}, {"no space", ENOSPC}, {"interrupted", EINTR}, {"half", 0, 2},
    {"one byte", 0, SIZE_MAX},
};

const Numbers interruptible = {SYS_openat, SYS_read,      SYS_write,
                               SYS_fsync,  SYS_fallocate, SYS_ftruncate};
const Numbers carryingContent = {SYS_read, SYS_write, SYS_fsync, SYS_ftruncate};
const Numbers ofReading = {SYS_openat, SYS_read, SYS_close};
const Numbers ofSaving = {SYS_openat, SYS_write, SYS_fsync, SYS_close};

// Whether work that met a fault has to succeed; nothing where both is right. By the time that it
// opens the folder, a save has succeeded. What a close could report, the flush before it has.
std::optional<bool> hasToSucceed(const Fault& fault, const FaultyRun& run) {
    if (!run.isHit || fault.error == 0 || run.onFolder || run.number == SYS_close)
        return true;
    if (fault.error == EINTR && interruptible.contains(run.number))
        return true;
    if (fault.error != EINTR && carryingContent.contains(run.number))
        return false;
    return std::nullopt;
}

// Makes each call of `work` go wrong in each way; `check` looks at what each time has left. The
// `essential` calls must have been among them.
template <class Prepare, class Work, class Check>
void tryEveryFault(const Numbers& essential, Prepare prepare, Work work, Check check) {
    static int injected = 0;
    for (const Fault& fault : faults) {
        FaultyRun run{.isHit = true};
        Numbers seen;
        for (int call = 1; run.isHit; ++call) {
            SCOPED_TRACE(fault.name + (" at call " + std::to_string(call)));
            prepare();
            run = runWithFault(call, fault, work);
            SCOPED_TRACE("which has the number " + std::to_string(run.number));
            EXPECT_FALSE(run.closedTwice);
            injected += run.isHit ? 1 : 0;
            check(run, hasToSucceed(fault, run));
            if (run.isHit && !run.onFolder)
                seen.insert(run.number);
        }
        for (const long number : essential)
            EXPECT_TRUE(seen.contains(number) || !canMeet(number, fault)) << number;
    }
    testing::Test::RecordProperty("faults", injected);
}

bool canStepIn() {
    return !runWithFault(0, faults[0], [] {}).isRefused;
}

struct Place {
    const char* name;
    fs::path path;   // what the save is given
    fs::path target; // the file that this means
    Content old;
    bool inPlace = false;
};

struct SaveFaultsTest : FileFixture {
    SaveFaultsTest() { fs::create_directory(folder / "other"); }

    std::vector<Place> replacing() {
        return {{"a file", folder / "file", folder / "file", shorter},
                {"a new file", folder / "new", folder / "new", std::nullopt},
                {"a link", folder / "link", folder / "other/linked", longer},
                {"a link to a new file", folder / "loose", folder / "other/new", std::nullopt}};
    }

    static void prepare(const Place& place) {
        fs::remove(place.target);
        if (place.old) {
            std::ofstream(place.target) << *place.old;
            fs::permissions(place.target, fs::perms{oldMode});
        }
        if (place.path == place.target)
            return;
        fs::remove(place.path);
        fs::create_symlink(place.target.lexically_relative(place.path.parent_path()), place.path);
    }

    Content contentOf(const fs::path& file) {
        return fs::exists(file) ? Content(read(file)) : Content();
    }

    void expectKept(const Place& place) {
        EXPECT_EQ(fs::is_symlink(place.path), place.path != place.target);
        EXPECT_TRUE(!place.old || statusOf(place.target).st_mode == (S_IFREG | oldMode));
    }

    // Gives what a killed process left in `in` the name that this one is about to take.
    static bool putInTheWay(const fs::path& in, const fs::path& name) {
        const fs::directory_iterator found =
            std::find_if(fs::directory_iterator(in), {}, isTemporary);
        if (found != end(found))
            fs::rename(*found, name);
        return found != end(found);
    }
};

TEST_F(SaveFaultsTest, AKillLeavesTheOldOrTheNewContent) {
    int kills = 0;
    for (const Place& place : replacing()) {
        SCOPED_TRACE(place.name);
        const fs::path beside = place.target.parent_path();
        const fs::path taken = beside / (".quillet-" + std::to_string(::getpid()) + "-0");
        int leftOld = 0;
        int leftNew = 0;
        int leftTemporary = 0;
        int status = 0;
        do {
            SCOPED_TRACE("stop " + std::to_string(leftOld + leftNew + 1));
            prepare(place);
            status = statusAfterKill(leftOld + leftNew + 1,
                                     [&] { return errorOf([&] { write(place.path, newText); }); });
            if (WIFEXITED(status) && WEXITSTATUS(status) == untraceable)
                GTEST_SKIP() << "The system does not let a process trace another.";
            const Content content = contentOf(place.target);
            EXPECT_TRUE(content == place.old || content == newText);
            ++(content == newText ? leftNew : leftOld);
            leftTemporary += putInTheWay(beside, taken);
            expectKept(place);
            write(place.path, newText);
            EXPECT_TRUE(contentOf(place.target) == newText);
            expectKept(place);
            fs::remove(taken);
        } while (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
        EXPECT_GT(leftOld, 10);
        EXPECT_GT(leftNew, 5);
        EXPECT_GT(leftTemporary, 5);
        kills += leftOld + leftNew - 1; // the last one ended by itself
    }
    RecordProperty("kills", kills);
}

TEST_F(SaveFaultsTest, AFailingCallLeavesTheOldOrTheNewContent) {
    if (!canStepIn())
        GTEST_SKIP() << "The system does not let a thread answer another's calls.";
    std::vector<Place> places = replacing();
    const fs::path lonely = makeLonelyFile("");
    places.push_back({"in place, growing", lonely, lonely, shorter, true});
    places.push_back({"in place, shrinking", lonely, lonely, longer, true});
    const fs::path nearby = lonely.parent_path().parent_path() / "nearby";
    places.push_back({"in place, by a link with too long an end", lonely, nearby, longer, true});
    for (const Place& place : places) {
        SCOPED_TRACE(place.name);
        int error = 0;
        tryEveryFault(
            ofSaving, [&] { prepare(place); },
            [&] { error = errorOf([&] { write(place.path, newText); }); },
            [&](const FaultyRun& run, std::optional<bool> success) {
                EXPECT_EQ(error == 0, success.value_or(error == 0));
                EXPECT_TRUE(error == 0 || error == pathFileAccess) << error;
                // In place, content that is being written is lost when that fails.
                const bool isLost =
                    error != 0 && place.inPlace && carryingContent.contains(run.number);
                const Content expected = error == 0 ? newText : place.old;
                EXPECT_TRUE(isLost || contentOf(place.target) == expected);
                expectKept(place);
                expectNothingLeft();
            });
    }
}

TEST_F(SaveFaultsTest, AFailingReadTellsAndGivesNoPartOfTheFile) {
    if (!canStepIn())
        GTEST_SKIP() << "The system does not let a thread answer another's calls.";
    write(folder / "file", newText);
    GlyphString text;
    tryEveryFault(
        ofReading, [] {}, [&] { errorOf([&] { text = read(folder / "file"); }); },
        [&](const FaultyRun&, std::optional<bool> success) {
            EXPECT_EQ(text == newText, success.value_or(text == newText));
            EXPECT_TRUE(text == newText || text.empty());
            text.clear();
            expectNothingLeft();
        });
}

} // namespace
} // namespace quillet
