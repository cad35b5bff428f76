// Preloaded into every process of `make tsan` (tools/tsan.sh), never
// installed.
//
// Qt 6 starts a child process with clone(CLONE_VM | CLONE_VFORK |
// CLONE_PIDFD): until it execs, the child runs in the parent's memory.
// ThreadSanitizer's runtime takes that clone for a fork and runs its
// after-fork code in the shared memory, on the parent's own state: the
// parent is then flagged as a forked child (and aborted as soon as it
// starts a thread) or its later races go unreported. Turned into a real
// fork() here, which the runtime handles, the child does the same and the
// parent stays checked. Every other clone() goes through unchanged.
#include <cstdarg>
#include <dlfcn.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" int clone(int (*fn)(void*), void* stack, int flags, void* arg, ...)
{
    va_list rest;
    va_start(rest, arg);
    pid_t* parentTid = va_arg(rest, pid_t*);
    void* tls = va_arg(rest, void*);
    pid_t* childTid = va_arg(rest, pid_t*);
    va_end(rest);
    if (!(flags & CLONE_VM)) {
        using Clone = int (*)(int (*)(void*), void*, int, void*, ...);
        static const auto next = reinterpret_cast<Clone>(dlsym(RTLD_NEXT, "clone"));
        return next(fn, stack, flags, arg, parentTid, tls, childTid);
    }
    const pid_t pid = fork();
    if (pid == 0)
        _exit(fn(arg));
    // CLONE_PIDFD leaves a descriptor of the child where parentTid points.
    if (pid > 0 && (flags & CLONE_PIDFD))
        *reinterpret_cast<int*>(parentTid) = int(syscall(SYS_pidfd_open, pid, 0));
    return pid;
}
