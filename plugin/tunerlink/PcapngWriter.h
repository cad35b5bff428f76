#ifndef PCAPNGWRITER_H
#define PCAPNGWRITER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <sys/uio.h>

// Writes the tuner link's traffic as a pcapng file that Wireshark, tshark
// and libpcap read: one section, one interface of link type USER0, and one
// enhanced packet block per record or frame. A packet is one direction
// byte followed by the bytes exactly as they were on the socket.
//
// pcapng rather than pcap because the link needs what only pcapng has:
// comments on packets (reconnections, gaps) and a drop counter.
// Not thread-safe: one thread owns a writer.
class PcapngWriter
{
public:
    // The packet's first byte.
    enum Direction : uint8_t {
        FromService = 0,  // a status record the link read
        ToService = 1,    // a command frame the link wrote
    };
    static const uint16_t LinkTypeUser0 = 147;
    // How long a write waits for a pipe whose reader takes nothing.
    static const int StallMs = 5000;

    PcapngWriter() = default;
    ~PcapngWriter();
    PcapngWriter(const PcapngWriter&) = delete;
    PcapngWriter& operator=(const PcapngWriter&) = delete;

    // Creates (truncates) the file and writes the section header and the
    // interface description. False with *error set when it cannot.
    bool open(const std::string& path, std::string* error);
    bool isOpen() const { return m_fd >= 0; }

    // One enhanced packet block. dropsBefore counts the packets lost just
    // before this one (the block's drop counter); comment may be null and
    // is cut at 160 bytes.
    bool writePacket(uint64_t timeUs, Direction dir, const void* data, size_t len,
                     uint64_t dropsBefore = 0, const char* comment = nullptr);

    // A block built where its payload already lies, so that a writer with
    // many packets hands each to the kernel as one piece, copied once: the
    // payload of len bytes at block + HeadBytes, room for MaxTailBytes
    // after it. encode() fills in the rest and returns the block's size.
    static const size_t HeadBytes = 29;
    static const size_t MaxTailBytes = 200;
    struct Packet {
        uint64_t timeUs;
        Direction dir;
        size_t len;
        uint64_t dropsBefore;
        const char* comment;
    };
    static size_t encode(char* block, const Packet& packet);
    // Blocks made by encode(), in as few calls as writev allows. Nothing is
    // buffered: what returns true is in the file.
    bool writeBlocks(iovec* blocks, size_t count, uint64_t firstTimeUs);

    // Writes the interface statistics (the packets dropped while this file
    // was written) and closes the file.
    void close(uint64_t timeUs, uint64_t dropped);

    // Bytes in the file so far.
    uint64_t size() const { return m_size; }

private:
    bool writeBlock(uint32_t type, const std::string& body);
    bool writeAll(iovec* iov, size_t count);

    int m_fd = -1;
    // writePacket()'s block.
    std::string m_scratch;
    uint64_t m_size = 0;
    uint64_t m_startUs = 0;
    bool m_started = false;
};

#endif
