// Exit code 0 when QProcess can start programs in this (emulated)
// environment, 1 when it cannot. Repeats Qt's forkfd sequence by hand:
// the pidfd probe, then, when the probe claims pidfds work, one
// clone(CLONE_PIDFD). When that clone fails, Qt's forkfd carries on with
// pid -1 and an uninitialised descriptor, and QProcess later stops the
// "child" with kill(-1, SIGTERM), which signals every process the user may
// signal. tools/test-aarch64.sh refuses to run the suite in that case.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <csignal>
#include <sched.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr long PidfdIdType = 3;            // P_PIDFD
constexpr unsigned long ClonePidfd = 0x1000; // CLONE_PIDFD

} // namespace

int main()
{
    const long probe = syscall(SYS_waitid, PidfdIdType, INT_MAX, nullptr, WEXITED | WNOHANG, nullptr);
    if (probe != -1 || errno != EBADF) {
        std::puts("qemucompat: no pidfds claimed; QProcess uses fork()");
        return 0;
    }

    int pidfd = -1;
    const long pid = syscall(SYS_clone, ClonePidfd | SIGCHLD, nullptr, &pidfd, nullptr, nullptr);
    if (pid == 0)
        _exit(0);
    if (pid < 0) {
        std::printf("qemucompat: pidfds claimed but clone(CLONE_PIDFD) fails (errno %d); "
                    "QProcess would signal every process\n", errno);
        return 1;
    }
    waitpid(static_cast<pid_t>(pid), nullptr, 0);
    close(pidfd);
    std::puts("qemucompat: pidfds work");
    return 0;
}
