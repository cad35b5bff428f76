#include "FakeTunerService.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

bool FakeTunerService::start()
{
    const char name[] = "\0kestrelhub";
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path, name, sizeof name - 1);
    m_listenFd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(m_listenFd, reinterpret_cast<const sockaddr*>(&addr), offsetof(sockaddr_un, sun_path) + sizeof name - 1) != 0
        || listen(m_listenFd, 8) != 0 || pipe2(m_wake, O_CLOEXEC | O_NONBLOCK) != 0) {
        close(m_listenFd);
        return false;
    }
    m_running = true;
    m_thread = std::thread(&FakeTunerService::run, this);
    return true;
}

void FakeTunerService::stop()
{
    if (!m_running.exchange(false))
        return;
    wake();
    m_thread.join();
    std::lock_guard<std::mutex> guard(m_lock);
    for (int fd : m_clients)
        close(fd);
    m_clients.clear();
    for (int fd : {m_listenFd, m_wake[0], m_wake[1]})
        close(fd);
}

int FakeTunerService::acceptedCount() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_accepted;
}

bool FakeTunerService::hasClient() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return !m_clients.empty();
}

std::string FakeTunerService::peerPath() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_peerPath;
}

template <class Ready>
bool FakeTunerService::waitUntil(int timeoutMs, Ready ready) const
{
    std::unique_lock<std::mutex> guard(m_lock);
    return m_changed.wait_for(guard, std::chrono::milliseconds(timeoutMs), ready);
}

bool FakeTunerService::waitForClient(int accepted, int timeoutMs) const
{
    return waitUntil(timeoutMs, [&] { return m_accepted > accepted && !m_clients.empty(); });
}

std::vector<RadioCmdToMCU> FakeTunerService::frames() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_frames;
}

void FakeTunerService::clearFrames()
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_frames.clear();
}

bool FakeTunerService::waitForFrames(size_t count, int timeoutMs) const
{
    return waitUntil(timeoutMs, [&] { return m_frames.size() >= count; });
}

bool FakeTunerService::write(const void* data, size_t len)
{
    // The service thread closes a connection the link drops, and the next
    // accept() may reuse its number: a duplicate keeps this one ours.
    int fd;
    {
        std::lock_guard<std::mutex> guard(m_lock);
        fd = m_clients.empty() ? -1 : fcntl(m_clients.back(), F_DUPFD_CLOEXEC, 0);
    }
    const char* rest = static_cast<const char*>(data);
    bool sent = fd >= 0;
    while (sent && len > 0) {
        const ssize_t n = send(fd, rest, len, MSG_NOSIGNAL);
        sent = n > 0 || errno == EINTR;
        rest += n > 0 ? n : 0;
        len -= n > 0 ? size_t(n) : 0;
    }
    if (fd >= 0)
        close(fd);
    return sent;
}

bool FakeTunerService::waitUntilConsumed(int timeoutMs) const
{
    // Bytes stay charged to the writer until the reader has taken them.
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    for (int queued = -1; std::chrono::steady_clock::now() < end; std::this_thread::yield()) {
        std::lock_guard<std::mutex> guard(m_lock);
        if (m_clients.empty() || ioctl(m_clients.back(), SIOCOUTQ, &queued) != 0 || queued == 0)
            return queued == 0;
    }
    return false;
}

void FakeTunerService::setReading(bool on)
{
    m_reading = on;
    wake();
}

void FakeTunerService::closeClient()
{
    std::lock_guard<std::mutex> guard(m_lock);
    if (!m_clients.empty()) {
        close(m_clients.back());
        m_clients.pop_back();
    }
    wake();
}

void FakeTunerService::wake()
{
    // A full pipe wakes the thread just as well.
    const char byte = 1;
    (void)!::write(m_wake[1], &byte, 1);
}

// Connections are blocking: the link writes whole 8-byte frames, so a
// readable connection always has a whole frame or its end.
void FakeTunerService::run()
{
    while (m_running) {
        std::vector<pollfd> fds{{m_wake[0], POLLIN, 0}, {m_listenFd, POLLIN, 0}};
        {
            std::lock_guard<std::mutex> guard(m_lock);
            for (int fd : m_clients)
                fds.push_back({m_reading ? fd : -1, POLLIN, 0});
        }
        poll(fds.data(), fds.size(), -1);
        char drain[64];
        while (read(m_wake[0], drain, sizeof drain) > 0) {
        }
        std::lock_guard<std::mutex> guard(m_lock);
        // Clients first: a polled number that closeClient() has closed
        // meanwhile must not meet a connection accepted under it.
        for (size_t i = 2; i < fds.size(); ++i) {
            auto client = std::find(m_clients.begin(), m_clients.end(), fds[i].fd);
            RadioCmdToMCU frame;
            if (!fds[i].revents || client == m_clients.end())
                continue;
            if (recv(fds[i].fd, &frame, sizeof frame, MSG_WAITALL) == sizeof frame) {
                m_frames.push_back(frame);
            } else {
                close(fds[i].fd);
                m_clients.erase(client);
            }
        }
        if (fds[1].revents & POLLIN) {
            sockaddr_un peer{};
            socklen_t len = sizeof peer;
            const timeval sendTimeout{5, 0};
            const int fd = accept4(m_listenFd, nullptr, nullptr, SOCK_CLOEXEC);
            if (fd >= 0 && getpeername(fd, reinterpret_cast<sockaddr*>(&peer), &len) == 0) {
                setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &sendTimeout, sizeof sendTimeout);
                m_peerPath = peer.sun_path;
                m_clients.push_back(fd);
                ++m_accepted;
            }
        }
        m_changed.notify_all();
    }
}
