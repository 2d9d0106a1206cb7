// Work that fails, or is killed, at any system call that a test wants.
#pragma once

#include <cstddef>
#include <functional>

namespace quillet {

/// What goes wrong with a system call.
struct Fault {
    const char* name;
    int error;             // what the call reports; or 0: it reads or writes
    std::size_t share = 1; // only one part in so many, but one byte at least
};

/// What became of a piece of work.
struct FaultyRun {
    bool isRefused = false; // the system lets nobody step in
    bool isHit = false;     // there were that many calls
    long number = 0;        // which call it was, such as SYS_write
    bool onFolder = false;  // and whether it was given an open folder
    bool closedTwice = false;
};

/// Whether the call with this number can go wrong in that way. All but those for memory and
/// threads can fail, but only those that read or write can be short.
bool canMeet(long number, const Fault& fault);

/// Does `work` on a thread whose `call`-th system call of those that can goes wrong as `fault`
/// says.
FaultyRun runWithFault(int call, const Fault& fault, const std::function<void()>& work);

/// Does `work` in a process that is killed when it enters or leaves a system call for the
/// `stop`-th time. The result is a status of `wait`: killed or, where there were fewer stops,
/// exited with `work`'s result, or with `untraceable` where the system lets nobody look.
int statusAfterKill(int stop, const std::function<int()>& work);
inline constexpr int untraceable = 255;

} // namespace quillet
