#ifndef FAKETUNERSERVICE_H
#define FAKETUNERSERVICE_H

#include "RadioCmdFromMCU.h"
#include "RadioCmdToMCU.h"

#include <atomic>
#include <cstddef>
#include <mutex>
#include <thread>
#include <vector>

// Stand-in for the tuner service: listens on the abstract address
// "kestrelhub", accepts the link, collects the command frames it sends and
// writes status bytes back in whatever pieces a test asks for. It can drop
// the connection, stop reading (so that frames pile up unread), and be
// stopped and started again like a crashing service.
//
// Frames and writes go to and from the newest accepted connection; every
// connection still open is read.
class FakeTunerService
{
public:
    FakeTunerService();
    ~FakeTunerService();
    FakeTunerService(const FakeTunerService&) = delete;
    FakeTunerService& operator=(const FakeTunerService&) = delete;

    // Binds and listens; false (with a line on stderr) when the address is
    // taken or the service runs already.
    bool start();
    // Closes the listener and every connection, like a killed service.
    void stop();
    bool isListening() const;

    int acceptedCount() const;
    int openClientCount() const;
    bool hasClient() const { return openClientCount() > 0; }

    std::vector<RadioCmdToMCU> frames() const;
    int frameCount() const;
    // Number of received frames with this code.
    int frameCount(uint32_t code) const;
    void clearFrames();

    // While off, bytes the link sends stay unread in the connection.
    void setReading(bool on);

    // Writes the whole buffer to the newest connection.
    bool write(const void* data, size_t len);
    bool writeRecord(const tag_RadioCmdFromMCU& record);
    // Writes the buffer piece by piece and lets the link read each piece
    // before the next one goes out, so that no two pieces reach it in one
    // read. A piece size of 0 is skipped; bytes beyond the sum of the sizes
    // are written as one last piece.
    bool writeSeparately(const void* data, size_t len, const std::vector<size_t>& pieces, int timeoutMs = 5000);
    // True once the link has read everything written to the newest
    // connection, false when that takes longer than timeoutMs.
    bool waitUntilConsumed(int timeoutMs = 5000) const;

    // Closes the newest connection (unread bytes from the link included).
    void closeClient();

private:
    struct Client {
        int fd;
        std::vector<unsigned char> pending;
    };

    void run();
    void wake();
    void acceptClient();
    void readClient(int fd);
    void closeClientLocked(size_t index);
    int newestFd() const;

    // Lock order: m_writeLock before m_lock. Writes may block until the link
    // reads; frames are read under m_lock alone, so a blocked write never
    // stops the service from taking the link's frames.
    mutable std::mutex m_writeLock;
    mutable std::mutex m_lock;
    std::vector<Client> m_clients;
    std::vector<RadioCmdToMCU> m_frames;
    int m_accepted = 0;

    int m_listenFd = -1;
    int m_wake[2] = {-1, -1};
    std::thread m_thread;
    std::atomic<bool> m_running{false};
    std::atomic<bool> m_reading{true};
};

#endif
