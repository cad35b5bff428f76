// Preloaded into the cross-built programs while they run under qemu-user 7.2
// (cmake/qemu-aarch64-run.sh), never installed.
//
// The emulator passes waitid(P_PIDFD, ...) through to the build machine's
// kernel, which knows it, but refuses clone(CLONE_PIDFD) with EINVAL. Qt's
// forkfd takes the first as proof that pidfds work and, when the clone
// fails, goes on with pid -1: QProcess reports a child that never existed
// and stops it with kill(-1, SIGTERM). Answering the probe as a kernel
// without pidfds does (EINVAL) makes forkfd use fork() and SIGCHLD, which
// the emulator supports.
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace {

constexpr long PidfdIdType = 3; // P_PIDFD

template<typename Function>
Function nextDefinition(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" int waitid(idtype_t idtype, id_t id, siginfo_t* info, int options)
{
    if (idtype == static_cast<idtype_t>(PidfdIdType)) {
        errno = EINVAL;
        return -1;
    }
    using Waitid = int (*)(idtype_t, id_t, siginfo_t*, int);
    static const auto next = nextDefinition<Waitid>("waitid");
    return next(idtype, id, info, options);
}

extern "C" long syscall(long number, ...)
{
    // The kernel takes at most six arguments; the callers' extra ones are
    // never looked at.
    long args[6];
    va_list list;
    va_start(list, number);
    for (long& arg : args)
        arg = va_arg(list, long);
    va_end(list);

    if (number == SYS_waitid && args[0] == PidfdIdType) {
        errno = EINVAL;
        return -1;
    }
    using Syscall = long (*)(long, ...);
    static const auto next = nextDefinition<Syscall>("syscall");
    return next(number, args[0], args[1], args[2], args[3], args[4], args[5]);
}
