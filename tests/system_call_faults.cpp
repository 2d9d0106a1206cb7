#include "tests/system_call_faults.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quillet {
namespace {

constexpr int notYet = -2;

constexpr std::array otherCalls = {SYS_mmap,        SYS_munmap,        SYS_mremap, SYS_mprotect,
                                   SYS_madvise,     SYS_brk,           SYS_futex,  SYS_getpid,
                                   SYS_sched_yield, SYS_rt_sigprocmask};

// From here on all system calls of this thread wait for what the result's reader says.
int announceCalls() {
    sock_filter rule = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF);
    const sock_fprog rules{1, &rule};
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    return static_cast<int>(
        ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &rules));
}

bool isFolder(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

// Both threads have the same memory and descriptors, so that one can act for the other.
long shortened(const seccomp_data& call, std::size_t share) {
    const int file = static_cast<int>(call.args[0]);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an argument comes as a number
    auto* const bytes = reinterpret_cast<void*>(call.args[1]);
    const std::size_t count = std::max<std::size_t>(call.args[2] / share, 1);
    return call.nr == SYS_read ? ::read(file, bytes, count) : ::write(file, bytes, count);
}

seccomp_notif_resp faulty(const seccomp_data& call, const Fault& fault, FaultyRun& run) {
    seccomp_notif_resp response{};
    run.isHit = true;
    run.number = call.nr;
    run.onFolder = isFolder(static_cast<int>(call.args[0]));
    if (call.nr == SYS_close)
        ::close(static_cast<int>(call.args[0])); // a close that reports a failure has closed
    if (fault.error == 0)
        response.val = shortened(call, fault.share);
    else
        response.error = -fault.error;
    return response;
}

// The other thread may hold a lock of the heap: nothing here may allocate.
void answerCalls(int listener, const std::atomic<bool>& isWorking, int call, const Fault& fault,
                 FaultyRun& run) {
    seccomp_notif request{};
    do {
        request = {};
        if (::ioctl(listener, SECCOMP_IOCTL_NOTIF_RECV, &request) != 0)
            continue;
        const seccomp_data& next = request.data;
        if (next.nr == SYS_close)
            run.closedTwice |= ::fcntl(static_cast<int>(next.args[0]), F_GETFD) == -1;
        seccomp_notif_resp response{};
        if (isWorking && canMeet(next.nr, fault) && --call == 0)
            response = faulty(next, fault, run);
        else if (!isWorking || next.nr != SYS_fsync) // which takes long and shows nothing
            response.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
        response.id = request.id;
        ::ioctl(listener, SECCOMP_IOCTL_NOTIF_SEND, &response);
    } while (request.data.nr != SYS_exit);
}

} // namespace

bool canMeet(long number, const Fault& fault) {
    if (fault.error == 0)
        return number == SYS_read || number == SYS_write;
    return std::find(otherCalls.begin(), otherCalls.end(), number) == otherCalls.end();
}

FaultyRun runWithFault(int call, const Fault& fault, const std::function<void()>& work) {
    FaultyRun run;
    std::atomic<int> listener = notYet;
    std::atomic<bool> isWorking = false;
    std::thread worker([&] {
        listener = announceCalls();
        isWorking = true;
        work();
        isWorking = false;
    });
    while (listener == notYet)
        std::this_thread::yield();
    run.isRefused = listener == -1;
    if (!run.isRefused) {
        answerCalls(listener, isWorking, call, fault, run);
        ::close(listener);
    }
    worker.join();
    return run;
}

int statusAfterKill(int stop, const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(untraceable);
        ::raise(SIGSTOP);
        ::_exit(work()); // no handlers of the exit: a search for leaks cannot run while traced
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    while (WIFSTOPPED(status)) {
        const int signal = WSTOPSIG(status);
        const bool isCall = signal == (SIGTRAP | 0x80);
        if (isCall && --stop == 0)
            ::kill(child, SIGKILL);
        else
            ::ptrace(PTRACE_SYSCALL, child, nullptr, isCall || signal == SIGSTOP ? 0 : signal);
        ::waitpid(child, &status, 0);
    }
    return status;
}

} // namespace quillet
