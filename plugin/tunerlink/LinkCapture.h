#ifndef LINKCAPTURE_H
#define LINKCAPTURE_H

#include "PcapngWriter.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// Records the link's traffic into a pcapng file (PcapngWriter) without
// ever holding up the link: add() copies the packet into a bounded queue
// and returns; a writer thread of the capture's own writes the file.
// When the queue is full the packet is dropped from the capture (never
// from the link) and counted; the next packet that fits carries the count
// and a comment, and the file's interface statistics the total.
//
// Nothing waits in the process's buffers: a batch is in the file once
// written, a packet at most a nap (10 ms) after it came. With a size cap
// the file rotates: FILE is renamed FILE.1, FILE.1 FILE.2 and so
// on, keeping RingFiles files in all.
//
// start() and stop() belong to one thread at a time (the link's owner);
// add() and markReconnect() may be called from any thread.
class LinkCapture
{
public:
    static const int QueueSlots = 4096;
    static const int RingFiles = 4;

    LinkCapture();
    ~LinkCapture();
    LinkCapture(const LinkCapture&) = delete;
    LinkCapture& operator=(const LinkCapture&) = delete;

    // Opens the file and starts the writer; maxBytes 0 means no cap.
    // A running capture is stopped first. False with *error set when the
    // file cannot be opened; then nothing is captured.
    bool start(const std::string& path, uint64_t maxBytes, std::string* error);
    // Writes what is queued, the statistics, and closes the file.
    void stop();
    bool isRunning() const { return m_running.load(std::memory_order_acquire); }
    const std::string& path() const { return m_path; }

    // Queues one packet with the current time, or counts it dropped.
    void add(PcapngWriter::Direction dir, const void* data, size_t len);
    // The next packet gets a comment saying the link connected anew.
    void markReconnect();

    // Packets captured, and dropped because the writer fell behind, since
    // the last start().
    uint64_t written() const { return m_written.load(); }
    uint64_t dropped() const;

    static uint64_t nowUs();

private:
    struct Slot;

    void run();
    void writeBatch(Slot* slots, int count);
    bool writePending();
    bool rotate();

    std::string m_path;
    uint64_t m_maxBytes = 0;
    PcapngWriter m_writer;
    std::thread m_thread;
    std::atomic<bool> m_running{false};
    std::atomic<uint64_t> m_written{0};
    // Dropped since the current file was opened: its statistics block.
    uint64_t m_fileDropped = 0;
    uint64_t m_filePackets = 0;
    // Blocks of the batch being written, not yet handed to the writer.
    std::vector<iovec> m_batch;
    uint64_t m_batchBytes = 0;
    uint64_t m_batchStartUs = 0;

    // Guards everything below. The writer reads a slot outside the lock:
    // slots from m_head for m_count belong to it until it advances m_head.
    mutable std::mutex m_lock;
    std::condition_variable m_wake;
    std::unique_ptr<Slot[]> m_slots;
    int m_head = 0;
    int m_count = 0;
    bool m_stopping = false;
    enum WriterState { Busy, Napping, Sleeping } m_writerState = Busy;
    bool m_reconnected = false;
    uint64_t m_dropped = 0;
    uint64_t m_pendingDrops = 0;
};

#endif
