#include "LinkCapture.h"

#include "LinkLog.h"
#include "RadioCmdFromMCU.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>

struct LinkCapture::Slot {
    uint64_t timeUs;
    uint64_t dropsBefore;
    uint16_t len;
    PcapngWriter::Direction dir;
    bool reconnect;
    // The packet's block: the bytes at HeadBytes, the rest filled in by the
    // writer.
    char block[PcapngWriter::HeadBytes + sizeof(tag_RadioCmdFromMCU) + PcapngWriter::MaxTailBytes];
};

LinkCapture::LinkCapture() = default;

LinkCapture::~LinkCapture()
{
    stop();
}

uint64_t LinkCapture::nowUs()
{
    timespec ts{};
    clock_gettime(CLOCK_REALTIME, &ts);
    return static_cast<uint64_t>(ts.tv_sec) * 1000000u + static_cast<uint64_t>(ts.tv_nsec) / 1000u;
}

bool LinkCapture::start(const std::string& path, uint64_t maxBytes, std::string* error)
{
    stop();
    if (!m_writer.open(path, error))
        return false;
    m_path = path;
    m_maxBytes = maxBytes;
    m_written = 0;
    m_fileDropped = 0;
    m_filePackets = 0;
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_slots.reset(new Slot[QueueSlots]);
        m_head = m_count = 0;
        m_stopping = m_reconnected = false;
        m_writerState = Busy;
        m_dropped = m_pendingDrops = 0;
    }
    m_thread = std::thread(&LinkCapture::run, this);
    m_running.store(true, std::memory_order_release);
    return true;
}

void LinkCapture::stop()
{
    if (!m_thread.joinable())
        return;
    m_running.store(false, std::memory_order_release);
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_stopping = true;
    }
    m_wake.notify_one();
    m_thread.join();
    std::lock_guard<std::mutex> guard(m_lock);
    m_writer.close(nowUs(), m_fileDropped + m_pendingDrops);
    m_slots.reset();
}

void LinkCapture::add(PcapngWriter::Direction dir, const void* data, size_t len)
{
    if (!m_running.load(std::memory_order_acquire))
        return;
    const uint64_t timeUs = nowUs();
    if (len > sizeof(tag_RadioCmdFromMCU))
        len = sizeof(tag_RadioCmdFromMCU);
    bool wake;
    {
        std::lock_guard<std::mutex> guard(m_lock);
        if (m_stopping || !m_slots)
            return;
        if (m_count == QueueSlots) {
            ++m_dropped;
            ++m_pendingDrops;
            return;
        }
        Slot& slot = m_slots[(m_head + m_count) % QueueSlots];
        slot.timeUs = timeUs;
        slot.dropsBefore = m_pendingDrops;
        slot.len = static_cast<uint16_t>(len);
        slot.dir = dir;
        slot.reconnect = m_reconnected;
        std::memcpy(slot.block + PcapngWriter::HeadBytes, data, len);
        m_pendingDrops = 0;
        m_reconnected = false;
        ++m_count;
        // A napping writer is woken only when the queue fills up.
        wake = m_writerState == Sleeping || (m_writerState == Napping && m_count == QueueSlots / 8);
    }
    if (wake)
        m_wake.notify_one();
}

void LinkCapture::markReconnect()
{
    if (!m_running.load(std::memory_order_acquire))
        return;
    std::lock_guard<std::mutex> guard(m_lock);
    m_reconnected = true;
}

uint64_t LinkCapture::dropped() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_dropped;
}

// The writer thread. It takes what is queued in one go and, when the
// queue runs dry, naps briefly before it sleeps: a steady stream is
// written in batches with few wake-ups. Nothing stays buffered in the
// process: a batch is in the file when it has been written.
void LinkCapture::run()
{
    // A FIFO whose reader went away fails the write with EPIPE instead of
    // raising SIGPIPE, which would end the head unit.
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, nullptr);

    const auto nap = std::chrono::milliseconds(10);
    bool napped = false;
    const auto ready = [this] { return m_count > 0 || m_stopping; };

    std::unique_lock<std::mutex> lock(m_lock);
    for (;;) {
        if (m_count == 0) {
            if (m_stopping)
                break;
            m_writerState = napped ? Sleeping : Napping;
            if (napped)
                m_wake.wait(lock, ready);
            else
                m_wake.wait_for(lock, nap, ready);
            napped = !napped;
            m_writerState = Busy;
            continue;
        }
        napped = false;
        const int first = m_head;
        // Up to the end of the ring; what wrapped around comes next pass.
        const int count = std::min(m_count, QueueSlots - first);
        lock.unlock();
        writeBatch(&m_slots[first], count);
        lock.lock();
        m_head = (first + count) % QueueSlots;
        m_count -= count;
    }
}

// The slots' packets go out as one write, split where the file rotates.
// What cannot be written (the file failed) counts as dropped.
void LinkCapture::writeBatch(Slot* slots, int count)
{
    int taken = 0;
    for (; taken < count && m_writer.isOpen(); ++taken) {
        Slot& slot = slots[taken];
        char comment[96] = "";
        const auto drops = static_cast<unsigned long long>(slot.dropsBefore);
        if (slot.reconnect && drops > 0)
            std::snprintf(comment, sizeof comment, "link connected again; %llu packets before this one not captured", drops);
        else if (slot.reconnect)
            std::snprintf(comment, sizeof comment, "link connected again");
        else if (drops > 0)
            std::snprintf(comment, sizeof comment, "%llu packets before this one not captured", drops);
        const size_t bytes = PcapngWriter::encode(slot.block, {slot.timeUs, slot.dir, slot.len, slot.dropsBefore, comment});
        if (m_maxBytes > 0 && m_filePackets + m_batch.size() > 0 && m_writer.size() + m_batchBytes + bytes > m_maxBytes
            && !(writePending() && rotate()))
            break;
        m_fileDropped += slot.dropsBefore;
        if (m_batch.empty())
            m_batchStartUs = slot.timeUs;
        m_batch.push_back({slot.block, bytes});
        m_batchBytes += bytes;
    }
    writePending();
    if (taken < count) {
        std::lock_guard<std::mutex> guard(m_lock);
        m_dropped += static_cast<uint64_t>(count - taken);
    }
}

bool LinkCapture::writePending()
{
    const size_t count = m_batch.size();
    const bool written = count == 0 || m_writer.writeBlocks(m_batch.data(), count, m_batchStartUs);
    m_batch.clear();
    m_batchBytes = 0;
    if (written) {
        m_written += count;
        m_filePackets += count;
        return true;
    }
    linkLog("Radio capture write to %s failed: %s\n", m_path.c_str(), std::strerror(errno));
    m_writer.close(nowUs(), m_fileDropped);
    std::lock_guard<std::mutex> guard(m_lock);
    m_dropped += count;
    return false;
}

// FILE.(n-2) becomes FILE.(n-1) ... FILE becomes FILE.1, and FILE starts
// anew with its own header.
bool LinkCapture::rotate()
{
    m_writer.close(nowUs(), m_fileDropped);
    m_fileDropped = 0;
    m_filePackets = 0;
    for (int i = RingFiles - 1; i > 0; --i) {
        const std::string from = i == 1 ? m_path : m_path + "." + std::to_string(i - 1);
        std::rename(from.c_str(), (m_path + "." + std::to_string(i)).c_str());
    }
    std::string error;
    if (m_writer.open(m_path, &error))
        return true;
    linkLog("Radio capture to %s failed: %s\n", m_path.c_str(), error.c_str());
    return false;
}
