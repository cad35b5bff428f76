#ifndef FAKETUNERSERVICE_H
#define FAKETUNERSERVICE_H

#include "RadioCmdFromMCU.h"
#include "RadioCmdToMCU.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// Stand-in for the tuner service: listens on the abstract address
// "kestrelhub", collects the frames the link sends and writes status bytes
// to the newest connection. Its waits block the caller without running a
// Qt event loop, so no Qt timer fires meanwhile.
class FakeTunerService
{
public:
    ~FakeTunerService() { stop(); }
    bool start();
    // Closes the listener and every connection, like a killed service.
    void stop();

    int acceptedCount() const;
    bool hasClient() const;
    // The newest connection's address as getpeername() reports it.
    std::string peerPath() const;
    // Waits for a connection after the first `accepted` ones.
    bool waitForClient(int accepted = 0, int timeoutMs = 5000) const;

    std::vector<RadioCmdToMCU> frames() const;
    void clearFrames();
    bool waitForFrames(size_t count, int timeoutMs = 5000) const;

    bool write(const void* data, size_t len);
    bool writeRecord(const tag_RadioCmdFromMCU& record) { return write(&record, sizeof record); }
    // True once the link has read everything written to the newest connection.
    bool waitUntilConsumed(int timeoutMs = 5000) const;
    // While off, the link's frames stay unread in the connection.
    void setReading(bool on);
    void closeClient();

private:
    void run();
    void wake();
    template <class Ready>
    bool waitUntil(int timeoutMs, Ready ready) const;

    mutable std::mutex m_lock;
    mutable std::condition_variable m_changed;
    std::vector<int> m_clients;
    std::vector<RadioCmdToMCU> m_frames;
    std::string m_peerPath;
    int m_accepted = 0;
    int m_listenFd = -1;
    int m_wake[2] = {-1, -1};
    std::thread m_thread;
    std::atomic<bool> m_running{false};
    std::atomic<bool> m_reading{true};
};

#endif
