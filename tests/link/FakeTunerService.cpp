#include "FakeTunerService.h"

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

namespace {

const char kServiceName[] = "kestrelhub";

std::chrono::steady_clock::time_point deadline(int ms)
{
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
}

} // namespace

bool FakeTunerService::start()
{
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path + 1, kServiceName, sizeof kServiceName - 1);
    const socklen_t len = offsetof(sockaddr_un, sun_path) + sizeof kServiceName;
    if (fd < 0 || bind(fd, reinterpret_cast<const sockaddr*>(&addr), len) != 0 || listen(fd, 8) != 0
        || pipe2(m_wake, O_CLOEXEC | O_NONBLOCK) != 0) {
        if (fd >= 0)
            close(fd);
        return false;
    }
    m_listenFd = fd;
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
    m_pending.clear();
    for (int fd : {m_listenFd, m_wake[0], m_wake[1]})
        close(fd);
    m_listenFd = m_wake[0] = m_wake[1] = -1;
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
    std::unique_lock<std::mutex> guard(m_lock);
    return m_changed.wait_until(guard, deadline(timeoutMs), [&] { return m_frames.size() >= count; });
}

bool FakeTunerService::waitForClient(int accepted, int timeoutMs) const
{
    std::unique_lock<std::mutex> guard(m_lock);
    return m_changed.wait_until(guard, deadline(timeoutMs),
                                [&] { return m_accepted > accepted && !m_clients.empty(); });
}

bool FakeTunerService::write(const void* data, size_t len)
{
    int fd;
    {
        std::lock_guard<std::mutex> guard(m_lock);
        fd = m_clients.empty() ? -1 : m_clients.back();
    }
    const char* rest = static_cast<const char*>(data);
    while (fd >= 0 && len > 0) {
        const ssize_t n = send(fd, rest, len, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (n > 0) {
            rest += n;
            len -= size_t(n);
        } else if (n < 0 && errno == EAGAIN) {
            pollfd out{fd, POLLOUT, 0};
            if (poll(&out, 1, 5000) <= 0)
                return false;
        } else if (!(n < 0 && errno == EINTR)) {
            return false;
        }
    }
    return fd >= 0;
}

bool FakeTunerService::waitUntilConsumed(int timeoutMs) const
{
    // Bytes stay charged to the writer until the reader has taken them.
    const auto end = deadline(timeoutMs);
    for (;;) {
        int queued = 0;
        {
            std::lock_guard<std::mutex> guard(m_lock);
            if (m_clients.empty() || ioctl(m_clients.back(), SIOCOUTQ, &queued) != 0)
                return false;
        }
        if (queued == 0)
            return true;
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::yield();
    }
}

void FakeTunerService::setReading(bool on)
{
    m_reading = on;
    wake();
}

void FakeTunerService::closeClient()
{
    std::lock_guard<std::mutex> guard(m_lock);
    if (m_clients.empty())
        return;
    close(m_clients.back());
    m_clients.pop_back();
    m_pending.pop_back();
    wake();
}

void FakeTunerService::wake()
{
    // A full pipe wakes the thread just as well.
    const char byte = 1;
    if (m_wake[1] >= 0)
        (void)!::write(m_wake[1], &byte, 1);
}

void FakeTunerService::run()
{
    while (m_running) {
        std::vector<pollfd> fds{{m_wake[0], POLLIN, 0}, {m_listenFd, POLLIN, 0}};
        {
            std::lock_guard<std::mutex> guard(m_lock);
            for (int fd : m_clients)
                fds.push_back({m_reading ? fd : -1, POLLIN, 0});
        }
        if (poll(fds.data(), fds.size(), -1) <= 0)
            continue;
        char drain[64];
        while (read(m_wake[0], drain, sizeof drain) > 0) {
        }
        if (fds[1].revents & POLLIN) {
            sockaddr_un peer{};
            socklen_t len = sizeof peer;
            const int fd = accept4(m_listenFd, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
            std::lock_guard<std::mutex> guard(m_lock);
            if (fd >= 0) {
                getpeername(fd, reinterpret_cast<sockaddr*>(&peer), &len);
                m_peerPath.assign(peer.sun_path, strnlen(peer.sun_path, len - offsetof(sockaddr_un, sun_path)));
                m_clients.push_back(fd);
                m_pending.emplace_back();
                ++m_accepted;
                m_changed.notify_all();
            }
        }
        std::lock_guard<std::mutex> guard(m_lock);
        for (size_t i = 2; i < fds.size(); ++i) {
            if (fds[i].revents && i - 2 < m_clients.size() && m_clients[i - 2] == fds[i].fd)
                readClient(i - 2);
        }
    }
}

// Under m_lock. A connection the link has closed is dropped.
void FakeTunerService::readClient(size_t index)
{
    unsigned char buffer[512];
    const ssize_t n = read(m_clients[index], buffer, sizeof buffer);
    if (n <= 0) {
        if (n < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        close(m_clients[index]);
        m_clients.erase(m_clients.begin() + std::ptrdiff_t(index));
        m_pending.erase(m_pending.begin() + std::ptrdiff_t(index));
        return;
    }
    std::vector<unsigned char>& pending = m_pending[index];
    pending.insert(pending.end(), buffer, buffer + n);
    size_t used = 0;
    for (; pending.size() - used >= sizeof(RadioCmdToMCU); used += sizeof(RadioCmdToMCU)) {
        RadioCmdToMCU frame;
        std::memcpy(&frame, pending.data() + used, sizeof frame);
        m_frames.push_back(frame);
    }
    pending.erase(pending.begin(), pending.begin() + std::ptrdiff_t(used));
    m_changed.notify_all();
}
