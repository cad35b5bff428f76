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
// "kestrelhub", collects the command frames the link sends and writes
// status bytes back to the newest connection. Waits block on the caller's
// thread without running a Qt event loop, so no Qt timer fires meanwhile.
class FakeTunerService
{
public:
    ~FakeTunerService() { stop(); }

    bool start();
    // Closes the listener and every connection, like a killed service.
    void stop();

    int acceptedCount() const;
    bool hasClient() const;
    // The address the newest connection comes from, as getpeername() says.
    std::string peerPath() const;

    std::vector<RadioCmdToMCU> frames() const;
    void clearFrames();
    // Sends nothing itself: waits until `count` frames have arrived.
    bool waitForFrames(size_t count, int timeoutMs = 5000) const;
    // Waits for a connection newer than the `accepted` ones.
    bool waitForClient(int accepted = 0, int timeoutMs = 5000) const;

    bool write(const void* data, size_t len);
    bool writeRecord(const tag_RadioCmdFromMCU& record) { return write(&record, sizeof record); }
    // True once the link has read everything written to the newest connection.
    bool waitUntilConsumed(int timeoutMs = 5000) const;
    // While off, frames the link sends stay unread in the connection.
    void setReading(bool on);
    void closeClient();

private:
    void run();
    void wake();
    void readClient(size_t index);

    mutable std::mutex m_lock;
    mutable std::condition_variable m_changed;
    std::vector<int> m_clients;
    std::vector<std::vector<unsigned char>> m_pending;
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
