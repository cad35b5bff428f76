#include "UnixSignalNotifier.h"

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

Q_LOGGING_CATEGORY(lcSignals, "hu.shell.signals")

namespace {

// Per signal number: whether a notifier owns it, and the two ends of its
// pipe plus one (0: not caught). Zero-initialised statics; the pipe stays
// open until the process ends, as the handler does.
std::atomic<bool> s_claimed[NSIG];
std::atomic<int> s_readFdPlusOne[NSIG];
std::atomic<int> s_writeFdPlusOne[NSIG];

bool validSignal(int n)
{
    return n > 0 && n < NSIG;
}

} // namespace

void UnixSignalNotifier::handler(int signalNumber)
{
    const int savedErrno = errno;
    const int fd = s_writeFdPlusOne[signalNumber].load() - 1;
    if (fd >= 0) {
        const char byte = 1;
        // A full pipe already holds a pending wake-up; the byte may be lost.
        [[maybe_unused]] const ssize_t n = ::write(fd, &byte, 1);
    }
    errno = savedErrno;
}

bool UnixSignalNotifier::catchSignal(int signalNumber)
{
    if (!validSignal(signalNumber)) {
        qCWarning(lcSignals) << "no such signal:" << signalNumber;
        return false;
    }
    if (s_writeFdPlusOne[signalNumber].load() != 0)
        return true;
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC | O_NONBLOCK) != 0) {
        qCWarning(lcSignals) << "cannot create the pipe of signal" << signalNumber << ":" << strerror(errno);
        return false;
    }
    s_readFdPlusOne[signalNumber].store(fds[0] + 1);
    s_writeFdPlusOne[signalNumber].store(fds[1] + 1);

    struct sigaction action = {};
    action.sa_handler = &UnixSignalNotifier::handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    if (::sigaction(signalNumber, &action, nullptr) != 0) {
        qCWarning(lcSignals) << "cannot install the handler of signal" << signalNumber << ":" << strerror(errno);
        s_writeFdPlusOne[signalNumber].store(0);
        s_readFdPlusOne[signalNumber].store(0);
        ::close(fds[0]);
        ::close(fds[1]);
        return false;
    }
    return true;
}

UnixSignalNotifier::UnixSignalNotifier(int signalNumber, QObject* parent) : QObject(parent), m_signal(signalNumber)
{
    if (!catchSignal(signalNumber))
        return;
    if (s_claimed[signalNumber].exchange(true)) {
        qCWarning(lcSignals) << "signal" << signalNumber << "already has a notifier";
        return;
    }
    m_notifier = new QSocketNotifier(s_readFdPlusOne[signalNumber].load() - 1, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &UnixSignalNotifier::drain);
}

UnixSignalNotifier::~UnixSignalNotifier()
{
    if (m_notifier)
        s_claimed[m_signal].store(false);
}

bool UnixSignalNotifier::takePending()
{
    if (!m_notifier)
        return false;
    const int fd = s_readFdPlusOne[m_signal].load() - 1;
    char buffer[64];
    bool any = false;
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n > 0) {
            any = true;
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        return any;
    }
}

void UnixSignalNotifier::drain()
{
    if (takePending())
        emit activated();
}
