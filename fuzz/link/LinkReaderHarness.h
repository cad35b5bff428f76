#ifndef LINKREADERHARNESS_H
#define LINKREADERHARNESS_H

#include "FakeTunerService.h"
#include "RadioCmdFromMCU.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

class ProtocolComm;

// Streams arbitrary bytes from a fake tuner service into the running link,
// in arbitrary pieces, and checks what the link hands to its controller
// seam: exactly the whole 584-byte records of the stream, in order, and
// nothing of a record cut short by a closed connection.
//
// Input layout: byte 0 picks the piece sizes and what happens to an
// incomplete last record (completed with filler bytes, or cut off by
// closing the connection), bytes 1-4 seed the piece sizes, the rest is the
// stream.
class LinkReaderHarness
{
public:
    LinkReaderHarness();
    ~LinkReaderHarness();
    LinkReaderHarness(const LinkReaderHarness&) = delete;
    LinkReaderHarness& operator=(const LinkReaderHarness&) = delete;

    // Starts the service and the link; false when either does not come up.
    bool setUp();
    // False, with the reason on stderr, when the link handed on anything
    // but the stream's whole records.
    bool run(const uint8_t* data, size_t size);
    size_t recordsChecked() const { return m_checked; }
    int reconnects() const { return m_reconnects; }

    void RecvedTunerMsg(tag_RadioCmdFromMCU msg);

private:
    bool waitForRecords(size_t n, int timeoutMs);
    bool waitForReconnect(int accepted, int timeoutMs);
    std::vector<tag_RadioCmdFromMCU> takeReceived();

    FakeTunerService m_service;
    ProtocolComm* m_link = nullptr;
    std::mutex m_lock;
    std::condition_variable m_arrived;
    std::vector<tag_RadioCmdFromMCU> m_received;
    size_t m_checked = 0;
    int m_reconnects = 0;
};

#endif
