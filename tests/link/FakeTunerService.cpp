#include "FakeTunerService.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/sockios.h>
#include <poll.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// The tuner service's abstract address, as the link connects to it.
const char kServiceName[] = "kestrelhub";

using Clock = std::chrono::steady_clock;

} // namespace

FakeTunerService::FakeTunerService() = default;

FakeTunerService::~FakeTunerService()
{
    stop();
}

bool FakeTunerService::start()
{
    if (m_running)
        return false;

    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        fprintf(stderr, "FakeTunerService: socket failed: %s\n", strerror(errno));
        return false;
    }
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path + 1, kServiceName, sizeof kServiceName - 1);
    const socklen_t len = offsetof(sockaddr_un, sun_path) + 1 + sizeof kServiceName - 1;
    if (bind(fd, reinterpret_cast<const sockaddr*>(&addr), len) != 0 || listen(fd, 8) != 0) {
        fprintf(stderr, "FakeTunerService: cannot listen on @%s: %s\n", kServiceName, strerror(errno));
        close(fd);
        return false;
    }
    if (pipe2(m_wake, O_CLOEXEC | O_NONBLOCK) != 0) {
        fprintf(stderr, "FakeTunerService: pipe failed: %s\n", strerror(errno));
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
    if (!m_running)
        return;
    m_running = false;
    wake();
    m_thread.join();

    std::lock_guard<std::mutex> writeGuard(m_writeLock);
    std::lock_guard<std::mutex> guard(m_lock);
    while (!m_clients.empty())
        closeClientLocked(m_clients.size() - 1);
    close(m_listenFd);
    m_listenFd = -1;
    close(m_wake[0]);
    close(m_wake[1]);
    m_wake[0] = m_wake[1] = -1;
}

bool FakeTunerService::isListening() const
{
    return m_running;
}

int FakeTunerService::acceptedCount() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_accepted;
}

int FakeTunerService::openClientCount() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return static_cast<int>(m_clients.size());
}

std::vector<RadioCmdToMCU> FakeTunerService::frames() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_frames;
}

int FakeTunerService::frameCount() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return static_cast<int>(m_frames.size());
}

int FakeTunerService::frameCount(uint32_t code) const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return static_cast<int>(std::count_if(m_frames.begin(), m_frames.end(),
                                          [code](const RadioCmdToMCU& f) { return f.code == code; }));
}

void FakeTunerService::clearFrames()
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_frames.clear();
}

void FakeTunerService::setReading(bool on)
{
    m_reading = on;
    wake();
}

int FakeTunerService::newestFd() const
{
    return m_clients.empty() ? -1 : m_clients.back().fd;
}

bool FakeTunerService::write(const void* data, size_t len)
{
    std::lock_guard<std::mutex> writeGuard(m_writeLock);
    int fd;
    {
        std::lock_guard<std::mutex> guard(m_lock);
        fd = newestFd();
    }
    if (fd < 0)
        return false;

    const char* rest = static_cast<const char*>(data);
    while (len > 0) {
        const ssize_t n = send(fd, rest, len, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (n > 0) {
            rest += n;
            len -= static_cast<size_t>(n);
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN) {
            // The link has not caught up yet; give it time to read.
            pollfd out{fd, POLLOUT, 0};
            if (poll(&out, 1, 5000) <= 0) {
                fprintf(stderr, "FakeTunerService: link stopped reading\n");
                return false;
            }
            continue;
        }
        return false;
    }
    return true;
}

bool FakeTunerService::writeRecord(const tag_RadioCmdFromMCU& record)
{
    return write(&record, sizeof record);
}

bool FakeTunerService::writeSeparately(const void* data, size_t len, const std::vector<size_t>& pieces, int timeoutMs)
{
    const char* rest = static_cast<const char*>(data);
    for (size_t piece : pieces) {
        piece = std::min(piece, len);
        if (piece == 0)
            continue;
        if (!write(rest, piece) || !waitUntilConsumed(timeoutMs))
            return false;
        rest += piece;
        len -= piece;
    }
    return len == 0 || (write(rest, len) && waitUntilConsumed(timeoutMs));
}

bool FakeTunerService::waitUntilConsumed(int timeoutMs) const
{
    // A UNIX stream socket charges written bytes to the writer until the
    // reader has taken them out of its queue: SIOCOUTQ drops to 0 once the
    // link has read everything.
    const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    for (;;) {
        {
            std::lock_guard<std::mutex> guard(m_lock);
            const int fd = newestFd();
            int queued = 0;
            if (fd < 0 || ioctl(fd, SIOCOUTQ, &queued) != 0)
                return false;
            if (queued == 0)
                return true;
        }
        if (Clock::now() >= deadline)
            return false;
        sched_yield();
    }
}

void FakeTunerService::closeClient()
{
    std::lock_guard<std::mutex> writeGuard(m_writeLock);
    std::lock_guard<std::mutex> guard(m_lock);
    if (!m_clients.empty())
        closeClientLocked(m_clients.size() - 1);
    wake();
}

void FakeTunerService::closeClientLocked(size_t index)
{
    close(m_clients[index].fd);
    m_clients.erase(m_clients.begin() + static_cast<std::ptrdiff_t>(index));
}

void FakeTunerService::wake()
{
    if (m_wake[1] >= 0) {
        const char byte = 1;
        (void)!::write(m_wake[1], &byte, 1);
    }
}

void FakeTunerService::run()
{
    std::vector<pollfd> fds;
    while (m_running) {
        fds.clear();
        fds.push_back({m_wake[0], POLLIN, 0});
        fds.push_back({m_listenFd, POLLIN, 0});
        if (m_reading) {
            std::lock_guard<std::mutex> guard(m_lock);
            for (const Client& client : m_clients)
                fds.push_back({client.fd, POLLIN, 0});
        }
        if (poll(fds.data(), fds.size(), -1) < 0)
            continue;

        if (fds[0].revents) {
            char bytes[64];
            while (read(m_wake[0], bytes, sizeof bytes) > 0) {
            }
        }
        if (fds[1].revents & POLLIN)
            acceptClient();
        for (size_t i = 2; i < fds.size(); ++i) {
            if (fds[i].revents && m_reading)
                readClient(fds[i].fd);
        }
    }
}

void FakeTunerService::acceptClient()
{
    const int fd = accept4(m_listenFd, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (fd < 0)
        return;
    std::lock_guard<std::mutex> guard(m_lock);
    m_clients.push_back(Client{fd, {}});
    ++m_accepted;
}

void FakeTunerService::readClient(int fd)
{
    bool closed = false;
    {
        std::lock_guard<std::mutex> guard(m_lock);
        auto client = std::find_if(m_clients.begin(), m_clients.end(), [fd](const Client& c) { return c.fd == fd; });
        if (client == m_clients.end())
            return;
        unsigned char buffer[512];
        const ssize_t n = read(fd, buffer, sizeof buffer);
        if (n > 0) {
            client->pending.insert(client->pending.end(), buffer, buffer + n);
            size_t used = 0;
            while (client->pending.size() - used >= sizeof(RadioCmdToMCU)) {
                RadioCmdToMCU frame;
                std::memcpy(&frame, client->pending.data() + used, sizeof frame);
                m_frames.push_back(frame);
                used += sizeof frame;
            }
            client->pending.erase(client->pending.begin(), client->pending.begin() + static_cast<std::ptrdiff_t>(used));
        } else if (n == 0 || (errno != EAGAIN && errno != EINTR)) {
            closed = true;
        }
    }
    if (!closed)
        return;
    // The link hung up: drop the connection, taking the locks in order.
    std::lock_guard<std::mutex> writeGuard(m_writeLock);
    std::lock_guard<std::mutex> guard(m_lock);
    auto client = std::find_if(m_clients.begin(), m_clients.end(), [fd](const Client& c) { return c.fd == fd; });
    if (client != m_clients.end())
        closeClientLocked(static_cast<size_t>(client - m_clients.begin()));
}
