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

// Per signal number: whether a notifier owns it, and the write end of its
// pipe plus one (0: none), read by the handler. Zero-initialised statics.
std::atomic<bool> s_claimed[NSIG];
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

UnixSignalNotifier::UnixSignalNotifier(int signalNumber, QObject* parent) : QObject(parent), m_signal(signalNumber)
{
    if (!validSignal(signalNumber)) {
        qCWarning(lcSignals) << "no such signal:" << signalNumber;
        return;
    }
    if (s_claimed[signalNumber].exchange(true)) {
        qCWarning(lcSignals) << "signal" << signalNumber << "already has a notifier";
        return;
    }
    if (::pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        qCWarning(lcSignals) << "cannot create the signal pipe:" << strerror(errno);
        s_claimed[signalNumber].store(false);
        m_pipe[0] = m_pipe[1] = -1;
        return;
    }
    s_writeFdPlusOne[signalNumber].store(m_pipe[1] + 1);

    struct sigaction action = {};
    action.sa_handler = &UnixSignalNotifier::handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    if (::sigaction(signalNumber, &action, nullptr) != 0) {
        qCWarning(lcSignals) << "cannot install the handler of signal" << signalNumber << ":" << strerror(errno);
        s_writeFdPlusOne[signalNumber].store(0);
        s_claimed[signalNumber].store(false);
        ::close(m_pipe[0]);
        ::close(m_pipe[1]);
        m_pipe[0] = m_pipe[1] = -1;
        return;
    }
    m_notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &UnixSignalNotifier::drain);
}

UnixSignalNotifier::~UnixSignalNotifier()
{
    if (!m_notifier)
        return;
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    sigemptyset(&action.sa_mask);
    ::sigaction(m_signal, &action, nullptr);
    s_writeFdPlusOne[m_signal].store(0);
    ::close(m_pipe[0]);
    ::close(m_pipe[1]);
    s_claimed[m_signal].store(false);
}

void UnixSignalNotifier::drain()
{
    char buffer[64];
    bool any = false;
    for (;;) {
        const ssize_t n = ::read(m_pipe[0], buffer, sizeof buffer);
        if (n > 0) {
            any = true;
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        break;
    }
    if (any)
        emit activated();
}
