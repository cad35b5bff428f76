#include "PcapngWriter.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

const uint32_t kSectionHeader = 0x0A0D0D0A;
const uint32_t kInterfaceDescription = 0x00000001;
const uint32_t kInterfaceStatistics = 0x00000005;
const uint32_t kEnhancedPacket = 0x00000006;
const uint32_t kByteOrderMagic = 0x1A2B3C4D;

const uint16_t kOptEnd = 0;
const uint16_t kOptComment = 1;
const uint16_t kShbUserAppl = 4;
const uint16_t kIfName = 2;
const uint16_t kIfTsResol = 9;
const uint16_t kEpbFlags = 2;
const uint16_t kEpbDropCount = 4;
const uint16_t kIsbStartTime = 2;
const uint16_t kIsbEndTime = 3;
const uint16_t kIsbIfDrop = 5;

// epb_flags bits 0-1: 01 inbound, 10 outbound.
const uint32_t kInbound = 1;
const uint32_t kOutbound = 2;

const char kWriterName[] = "radio-tunerlink (tuner link capture)";
const char kInterfaceName[] = "kestrelhub";

// The file is written in host byte order, which the byte-order magic of
// the section header announces; the payloads are in host order as well.
template <class T>
void put(std::string& out, T value)
{
    out.append(reinterpret_cast<const char*>(&value), sizeof value);
}

void pad32(std::string& out)
{
    out.append((4 - out.size() % 4) % 4, '\0');
}

void putOption(std::string& out, uint16_t code, const void* data, size_t len)
{
    put<uint16_t>(out, code);
    put<uint16_t>(out, static_cast<uint16_t>(len));
    out.append(static_cast<const char*>(data), len);
    pad32(out);
}

void putTextOption(std::string& out, uint16_t code, const char* text)
{
    putOption(out, code, text, std::strlen(text));
}

// Timestamps are split into high and low words, in microseconds.
void putTime(std::string& out, uint64_t timeUs)
{
    put<uint32_t>(out, static_cast<uint32_t>(timeUs >> 32));
    put<uint32_t>(out, static_cast<uint32_t>(timeUs));
}

void endOptions(std::string& out)
{
    put<uint16_t>(out, kOptEnd);
    put<uint16_t>(out, 0);
}

const size_t kMaxComment = 160;

size_t padded(size_t n)
{
    return (n + 3) & ~size_t(3);
}

size_t commentLength(const char* comment)
{
    return comment ? strnlen(comment, kMaxComment) : 0;
}

} // namespace

PcapngWriter::~PcapngWriter()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

bool PcapngWriter::open(const std::string& path, std::string* error)
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_size = 0;
    m_started = false;
    // Never blocking: a FIFO nobody reads fails at once instead of holding
    // the caller, and one whose reader stalls is waited for a while only.
    m_fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0644);
    if (m_fd < 0) {
        if (error)
            *error = std::strerror(errno);
        return false;
    }

    std::string shb;
    put<uint32_t>(shb, kByteOrderMagic);
    put<uint16_t>(shb, 1);
    put<uint16_t>(shb, 0);
    put<int64_t>(shb, -1);  // section length not known in advance
    putTextOption(shb, kShbUserAppl, kWriterName);
    endOptions(shb);

    std::string idb;
    put<uint16_t>(idb, LinkTypeUser0);
    put<uint16_t>(idb, 0);
    put<uint32_t>(idb, 0);  // no snapshot limit
    putTextOption(idb, kIfName, kInterfaceName);
    const uint8_t microseconds = 6;
    putOption(idb, kIfTsResol, &microseconds, 1);
    endOptions(idb);

    if (!writeBlock(kSectionHeader, shb) || !writeBlock(kInterfaceDescription, idb)) {
        if (error)
            *error = std::strerror(errno);
        ::close(m_fd);
        m_fd = -1;
        return false;
    }
    return true;
}

size_t PcapngWriter::encode(char* block, const Packet& packet)
{
    const uint32_t captured = static_cast<uint32_t>(packet.len + 1);
    const size_t comment = commentLength(packet.comment);
    const uint32_t total = static_cast<uint32_t>(28 + padded(captured) + 8 + (packet.dropsBefore > 0 ? 12 : 0)
                                                 + (comment > 0 ? 4 + padded(comment) : 0) + 4 + 4);
    char* p = block;
    const auto put32 = [&p](uint32_t v) { std::memcpy(p, &v, 4), p += 4; };
    const auto putOptionHead = [&p](uint16_t code, size_t length) {
        const uint16_t fields[2] = {code, static_cast<uint16_t>(length)};
        std::memcpy(p, fields, 4), p += 4;
    };
    put32(kEnhancedPacket);
    put32(total);
    put32(0);  // interface
    put32(static_cast<uint32_t>(packet.timeUs >> 32));
    put32(static_cast<uint32_t>(packet.timeUs));
    put32(captured);
    put32(captured);
    *p++ = static_cast<char>(packet.dir);
    p += packet.len;
    std::memset(p, 0, padded(captured) - captured);
    p += padded(captured) - captured;
    putOptionHead(kEpbFlags, 4);
    put32(packet.dir == FromService ? kInbound : kOutbound);
    if (packet.dropsBefore > 0) {
        putOptionHead(kEpbDropCount, 8);
        std::memcpy(p, &packet.dropsBefore, 8), p += 8;
    }
    if (comment > 0) {
        putOptionHead(kOptComment, comment);
        std::memcpy(p, packet.comment, comment);
        std::memset(p + comment, 0, padded(comment) - comment);
        p += padded(comment);
    }
    putOptionHead(kOptEnd, 0);
    put32(total);
    return total;
}

bool PcapngWriter::writePacket(uint64_t timeUs, Direction dir, const void* data, size_t len, uint64_t dropsBefore,
                               const char* comment)
{
    m_scratch.resize(HeadBytes + len + MaxTailBytes);
    std::memcpy(&m_scratch[HeadBytes], data, len);
    iovec block{&m_scratch[0], encode(&m_scratch[0], Packet{timeUs, dir, len, dropsBefore, comment})};
    return writeBlocks(&block, 1, timeUs);
}

bool PcapngWriter::writeBlocks(iovec* blocks, size_t count, uint64_t firstTimeUs)
{
    if (m_fd < 0)
        return false;
    if (count > 0 && !m_started) {
        m_startUs = firstTimeUs;
        m_started = true;
    }
    size_t bytes = 0;
    for (size_t i = 0; i < count; ++i)
        bytes += blocks[i].iov_len;
    if (!writeAll(blocks, count))
        return false;
    m_size += bytes;
    return true;
}

void PcapngWriter::close(uint64_t timeUs, uint64_t dropped)
{
    if (m_fd < 0)
        return;
    std::string isb;
    put<uint32_t>(isb, 0);  // interface
    putTime(isb, timeUs);
    put<uint16_t>(isb, kIsbStartTime);
    put<uint16_t>(isb, 8);
    putTime(isb, m_started ? m_startUs : timeUs);
    put<uint16_t>(isb, kIsbEndTime);
    put<uint16_t>(isb, 8);
    putTime(isb, timeUs);
    putOption(isb, kIsbIfDrop, &dropped, sizeof dropped);
    endOptions(isb);
    writeBlock(kInterfaceStatistics, isb);
    ::close(m_fd);
    m_fd = -1;
}

// A block is its type and total length, the body, and the length again.
bool PcapngWriter::writeBlock(uint32_t type, const std::string& body)
{
    uint32_t head[2] = {type, static_cast<uint32_t>(body.size() + 12)};
    iovec parts[3] = {{head, sizeof head}, {const_cast<char*>(body.data()), body.size()}, {&head[1], 4}};
    if (!writeAll(parts, 3))
        return false;
    m_size += head[1];
    return true;
}

// Goes on after a partial write, as a pipe or a full disk may make one. A
// pipe that takes nothing for StallMs fails with ETIMEDOUT, so that whoever
// stops the capture is not held by a reader that went to sleep.
bool PcapngWriter::writeAll(iovec* iov, size_t count)
{
    while (count > 0) {
        const ssize_t n = ::writev(m_fd, iov, static_cast<int>(std::min<size_t>(count, IOV_MAX)));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN) {
            pollfd room{m_fd, POLLOUT, 0};
            const int ready = ::poll(&room, 1, StallMs);
            if (ready == 0)
                errno = ETIMEDOUT;
            if (ready <= 0 && errno != EINTR)
                return false;
            continue;
        }
        if (n <= 0)
            return false;
        size_t done = static_cast<size_t>(n);
        while (count > 0 && done >= iov->iov_len) {
            done -= iov->iov_len;
            ++iov, --count;
        }
        if (count > 0) {
            iov->iov_base = static_cast<char*>(iov->iov_base) + done;
            iov->iov_len -= done;
        }
    }
    return true;
}
