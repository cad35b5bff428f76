#include "SimClient.h"

#include "RadioCmdToMCU.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

SimClient::SimClient(QObject* parent)
    : QObject(parent)
{
}

SimClient::~SimClient()
{
    close();
}

bool SimClient::connectTo(const QString& name)
{
    close();
    const QByteArray bytes = name.toUtf8();
    sockaddr_un addr;
    std::memset(&addr, 0, sizeof addr);
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path + 1, bytes.constData(), size_t(bytes.size()));
    const socklen_t length = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + size_t(bytes.size()));
    m_fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (m_fd < 0 || ::connect(m_fd, reinterpret_cast<sockaddr*>(&addr), length) < 0) {
        close();
        return false;
    }
    m_peerClosed = false;
    m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &SimClient::readAvailable);
    return true;
}

void SimClient::close()
{
    if (m_notifier) {
        m_notifier->setEnabled(false);
        m_notifier->deleteLater();
        m_notifier = nullptr;
    }
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

bool SimClient::sendRaw(const QByteArray& bytes)
{
    if (m_fd < 0)
        return false;
    return ::send(m_fd, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) == bytes.size();
}

bool SimClient::send(uint32_t code, uint32_t param)
{
    const RadioCmdToMCU frame{code, param};
    return sendRaw(QByteArray(reinterpret_cast<const char*>(&frame), sizeof frame));
}

void SimClient::readAvailable()
{
    char chunk[8192];
    const ssize_t n = ::recv(m_fd, chunk, sizeof chunk, MSG_DONTWAIT);
    if (n == 0) {
        m_peerClosed = true;
        m_notifier->setEnabled(false);
        return;
    }
    if (n < 0)
        return;
    m_buffer.append(chunk, int(n));
    while (m_buffer.size() >= int(sizeof(tag_RadioCmdFromMCU))) {
        tag_RadioCmdFromMCU record;
        std::memcpy(&record, m_buffer.constData(), sizeof record);
        m_buffer.remove(0, int(sizeof record));
        records.append(record);
    }
}

QList<uint32_t> SimClient::kinds() const
{
    QList<uint32_t> result;
    for (const tag_RadioCmdFromMCU& r : records)
        result << r.cmd;
    return result;
}

tag_RadioCmdFromMCU SimClient::lastOf(uint32_t kind) const
{
    for (int i = records.size() - 1; i >= 0; --i) {
        if (records.at(i).cmd == kind)
            return records.at(i);
    }
    tag_RadioCmdFromMCU none;
    std::memset(&none, 0, sizeof none);
    none.cmd = 0xFFFFFFFFu;
    return none;
}
