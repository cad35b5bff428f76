#include "PcapngWriter.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
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

} // namespace

PcapngWriter::~PcapngWriter()
{
    if (m_file)
        std::fclose(m_file);
}

bool PcapngWriter::open(const std::string& path, std::string* error)
{
    if (m_file)
        std::fclose(m_file);
    m_file = nullptr;
    m_size = 0;
    m_started = false;
    m_failed = false;
    // Opened without blocking: a FIFO nobody reads fails at once instead of
    // holding the caller. Writes block again, on the capture's own thread.
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0644);
    if (fd >= 0) {
        fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
        m_file = fdopen(fd, "wb");
        if (!m_file)
            ::close(fd);
    }
    if (!m_file) {
        if (error)
            *error = std::strerror(errno);
        return false;
    }
    // Records come in bursts; a larger buffer keeps a burst in few writes.
    std::setvbuf(m_file, nullptr, _IOFBF, 256 * 1024);

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
        std::fclose(m_file);
        m_file = nullptr;
        return false;
    }
    return true;
}

// Built in one piece and handed to the buffered file in one call: the
// capture writes a block per record, so this is the writer's hot path.
bool PcapngWriter::writePacket(uint64_t timeUs, Direction dir, const void* data, size_t len,
                               uint64_t dropsBefore, const char* comment)
{
    if (!m_file)
        return false;
    if (!m_started) {
        m_startUs = timeUs;
        m_started = true;
    }
    const auto padded = [](size_t n) { return (n + 3) & ~size_t(3); };
    const uint32_t captured = static_cast<uint32_t>(len + 1);
    const size_t commentLen = comment ? std::strlen(comment) : 0;
    const size_t total = 28 + padded(captured) + 8 + (dropsBefore > 0 ? 12 : 0)
        + (commentLen > 0 ? 4 + padded(commentLen) : 0) + 4 + 4;
    m_block.assign(total, '\0');
    char* p = &m_block[0];
    const auto put32 = [&p](uint32_t v) { std::memcpy(p, &v, 4), p += 4; };
    const auto putOptionHead = [&p](uint16_t code, uint16_t length) {
        std::memcpy(p, &code, 2), std::memcpy(p + 2, &length, 2), p += 4;
    };
    put32(kEnhancedPacket);
    put32(static_cast<uint32_t>(total));
    put32(0);  // interface
    put32(static_cast<uint32_t>(timeUs >> 32));
    put32(static_cast<uint32_t>(timeUs));
    put32(captured);
    put32(captured);
    *p = static_cast<char>(dir);
    std::memcpy(p + 1, data, len);
    p += padded(captured);
    putOptionHead(kEpbFlags, 4);
    put32(dir == FromService ? kInbound : kOutbound);
    if (dropsBefore > 0) {
        putOptionHead(kEpbDropCount, 8);
        std::memcpy(p, &dropsBefore, 8), p += 8;
    }
    if (commentLen > 0) {
        putOptionHead(kOptComment, static_cast<uint16_t>(commentLen));
        std::memcpy(p, comment, commentLen), p += padded(commentLen);
    }
    putOptionHead(kOptEnd, 0);
    put32(static_cast<uint32_t>(total));
    if (fwrite_unlocked(m_block.data(), 1, total, m_file) != total) {
        m_failed = true;
        return false;
    }
    m_size += total;
    return true;
}

bool PcapngWriter::flush()
{
    return m_file && std::fflush(m_file) == 0 && !m_failed;
}

void PcapngWriter::close(uint64_t timeUs, uint64_t dropped)
{
    if (!m_file)
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
    std::fclose(m_file);
    m_file = nullptr;
}

// A block is its type and total length, the body, and the length again.
bool PcapngWriter::writeBlock(uint32_t type, const std::string& body)
{
    const uint32_t total = static_cast<uint32_t>(body.size() + 12);
    const uint32_t head[2] = {type, total};
    if (fwrite_unlocked(head, sizeof head, 1, m_file) != 1
        || fwrite_unlocked(body.data(), 1, body.size(), m_file) != body.size()
        || fwrite_unlocked(&total, sizeof total, 1, m_file) != 1) {
        m_failed = true;
        return false;
    }
    m_size += total;
    return true;
}
