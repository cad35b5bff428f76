#include "SimClient.h"

#include "RadioCmdToMCU.h"

#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

SimClient::SimClient()
{
    connect(this, &QLocalSocket::readyRead, [this] {
        tag_RadioCmdFromMCU record;
        while (bytesAvailable() >= qint64(sizeof record) && read(reinterpret_cast<char*>(&record), sizeof record) > 0)
            records << record;
    });
}

bool SimClient::connectTo(const QString& name)
{
    const QByteArray bytes = name.toUtf8();
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path + 1, bytes.constData(), size_t(bytes.size()));
    const auto length = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + size_t(bytes.size()));
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(fd, reinterpret_cast<sockaddr*>(&addr), length) == 0)
        return setSocketDescriptor(fd);
    ::close(fd);
    return false;
}

bool SimClient::send(uint32_t code, uint32_t param)
{
    const RadioCmdToMCU frame{code, param};
    return write(reinterpret_cast<const char*>(&frame), sizeof frame) == sizeof frame && flush();
}

QList<uint32_t> SimClient::kinds() const
{
    QList<uint32_t> result;
    for (const tag_RadioCmdFromMCU& r : records)
        result << r.cmd;
    return result;
}
