#include "TunerServer.h"

#include "ProtocolTrace.h"
#include "TunerEngine.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

TunerServer::TunerServer(TunerEngine* engine, QObject* parent)
    : QObject(parent)
    , m_engine(engine)
{
    if (!m_engine)
        return;
    connect(m_engine, &TunerEngine::stateChanged, this, &TunerServer::sendChanges);
    connect(m_engine, &TunerEngine::stateRequested, this, &TunerServer::sendWholeState);
    connect(m_engine, &TunerEngine::note, this, [this](const QString& text) { log(QStringLiteral("!! ") + text); });
}

TunerServer::~TunerServer()
{
    if (m_client >= 0)
        ::close(m_client);
    if (m_listener >= 0)
        ::close(m_listener);
}

void TunerServer::log(const QString& line)
{
    if (m_log)
        m_log(line);
}

bool TunerServer::listen(const QString& name, QString* error)
{
    const QByteArray bytes = name.toUtf8();
    sockaddr_un addr;
    std::memset(&addr, 0, sizeof addr);
    if (bytes.isEmpty() || size_t(bytes.size()) + 1 > sizeof addr.sun_path) {
        if (error)
            *error = QStringLiteral("socket name must be 1-%1 bytes").arg(sizeof addr.sun_path - 1);
        return false;
    }
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path + 1, bytes.constData(), size_t(bytes.size()));
    const socklen_t length = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + size_t(bytes.size()));

    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (fd < 0 || ::bind(fd, reinterpret_cast<sockaddr*>(&addr), length) < 0 || ::listen(fd, 4) < 0) {
        if (error)
            *error = QStringLiteral("cannot listen on @%1: %2").arg(name, QString::fromLocal8Bit(std::strerror(errno)));
        if (fd >= 0)
            ::close(fd);
        return false;
    }
    m_listener = fd;
    m_acceptNotifier = new QSocketNotifier(fd, QSocketNotifier::Read, this);
    connect(m_acceptNotifier, &QSocketNotifier::activated, this, &TunerServer::acceptPending);
    log(QStringLiteral("listening on @%1").arg(name));
    return true;
}

void TunerServer::acceptPending()
{
    for (;;) {
        const int fd = ::accept4(m_listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
        if (fd < 0) {
            if (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR)
                log(QStringLiteral("accept failed: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
            if (errno != EINTR)
                return;
            continue;
        }
        if (m_client >= 0)
            dropClient(QStringLiteral("replaced by a new connection"));
        m_client = fd;
        m_readNotifier = new QSocketNotifier(fd, QSocketNotifier::Read, this);
        connect(m_readNotifier, &QSocketNotifier::activated, this, &TunerServer::readClient);
        m_writeNotifier = new QSocketNotifier(fd, QSocketNotifier::Write, this);
        m_writeNotifier->setEnabled(false);
        connect(m_writeNotifier, &QSocketNotifier::activated, this, &TunerServer::flushOutput);
        log(QStringLiteral("screen connected"));
        emit clientConnected();
        if (m_engine)
            sendWholeState();
    }
}

void TunerServer::readClient()
{
    char buffer[4096];
    // Bounded: a client that writes without pause still lets timers run.
    for (int round = 0; round < 16 && m_client >= 0; ++round) {
        const ssize_t n = ::read(m_client, buffer, sizeof buffer);
        if (n > 0) {
            for (const RadioCmdToMCU& frame : m_frames.feed(buffer, int(n))) {
                if (m_trace)
                    m_trace(ProtocolTrace::frameLine(frame));
                if (m_engine)
                    m_engine->handleCommand(frame.code, frame.param);
                if (m_client < 0)
                    return;
            }
            continue;
        }
        if (n == 0) {
            dropClient(QStringLiteral("screen closed the connection"));
            return;
        }
        if (errno == EINTR)
            continue;
        if (errno == ECONNRESET)
            dropClient(QStringLiteral("screen reset the connection"));
        else if (errno != EAGAIN && errno != EWOULDBLOCK)
            dropClient(QStringLiteral("read failed: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
        return;
    }
}

void TunerServer::dropClient(const QString& why)
{
    if (m_client < 0)
        return;
    QString line = QStringLiteral("screen gone: %1").arg(why);
    if (m_frames.pendingBytes() > 0)
        line += QStringLiteral(" (%1 bytes of an unfinished frame dropped)").arg(m_frames.pendingBytes());
    if (!m_output.isEmpty())
        line += QStringLiteral(" (%1 bytes unsent)").arg(m_output.size());
    log(line);
    // This may run inside one of the notifiers' own signals.
    for (QSocketNotifier* notifier : {m_readNotifier, m_writeNotifier}) {
        notifier->setEnabled(false);
        notifier->deleteLater();
    }
    m_readNotifier = nullptr;
    m_writeNotifier = nullptr;
    ::close(m_client);
    m_client = -1;
    const int unsent = m_output.size();
    m_frames.reset();
    m_output.clear();
    m_sent.clear();
    emit clientDisconnected(unsent);
}

void TunerServer::sendWholeState()
{
    if (m_client < 0)
        return;
    m_sent.clear();
    for (const uint32_t kind : TunerEngine::stateKinds())
        send(m_engine->record(kind));
}

// A new band, frequency or preset makes the screen forget the station's
// name and programme type, and a new band also its preset names and RDS
// indicators: those go out again even if this tuner's values stayed.
void TunerServer::sendChanges()
{
    if (m_client < 0)
        return;
    for (const uint32_t kind : TunerEngine::stateKinds()) {
        const tag_RadioCmdFromMCU record = m_engine->record(kind);
        if (!m_sent.isNew(record))
            continue;
        const tag_RadioCmdFromMCU* last = m_sent.last(MCU_TUNE_INFO);
        if (kind == MCU_TUNE_INFO && last) {
            const tag_RadioCmdFromMCU before = *last;
            if (before.band != record.band) {
                for (const uint32_t k : {MCU_PRESET_PS, MCU_RADIO_TEXT, MCU_RDS_FLAGS})
                    m_sent.forget(k);
            }
            if (before.band != record.band || before.freq != record.freq || before.preset != record.preset) {
                m_sent.forget(MCU_PTY);
                m_sent.forget(MCU_PS_NAME);
            }
        }
        send(record);
        if (m_client < 0)
            return;
    }
}

void TunerServer::send(const tag_RadioCmdFromMCU& record)
{
    m_sent.remember(record);
    if (m_trace)
        m_trace(ProtocolTrace::recordLine(record));
    m_output.append(reinterpret_cast<const char*>(&record), int(sizeof record));
    flushOutput();
}

void TunerServer::flushOutput()
{
    while (m_client >= 0 && !m_output.isEmpty()) {
        const ssize_t n = ::send(m_client, m_output.constData(), size_t(m_output.size()), MSG_NOSIGNAL);
        if (n > 0) {
            m_output.remove(0, int(n));
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            if (m_output.size() > kMaxPendingBytes) {
                dropClient(QStringLiteral("not reading its records"));
                return;
            }
            m_writeNotifier->setEnabled(true);
            return;
        }
        dropClient(QStringLiteral("write failed: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
        return;
    }
    if (m_writeNotifier)
        m_writeNotifier->setEnabled(false);
    if (m_client >= 0)
        emit outputDrained();
}
