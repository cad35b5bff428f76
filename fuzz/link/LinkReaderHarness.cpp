#include "LinkReaderHarness.h"

#include "ProtocolComm.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <random>
#include <thread>

namespace {

const size_t kRecord = sizeof(tag_RadioCmdFromMCU);
const unsigned char kFiller = 0xEE;
// Largest piece per setting of the control byte's low bits.
const size_t kMaxPiece[] = {1, 3, 64, 583, 584, 700, 1500, 8192};

using Clock = std::chrono::steady_clock;

} // namespace

LinkReaderHarness::LinkReaderHarness() = default;

LinkReaderHarness::~LinkReaderHarness()
{
    m_pTuner = nullptr;
    ProtocolComm::DeleteInstance();
}

bool LinkReaderHarness::setUp()
{
    if (!m_service.start())
        return false;
    m_pTuner = this;
    m_link = ProtocolComm::GetInstance();
    m_link->Start();
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(5);
    while (!(m_link->isConnected() && m_service.hasClient())) {
        if (Clock::now() > deadline) {
            fprintf(stderr, "link did not connect\n");
            return false;
        }
        std::this_thread::yield();
    }
    return true;
}

void LinkReaderHarness::RecvedTunerMsg(tag_RadioCmdFromMCU msg)
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_received.push_back(msg);
    m_arrived.notify_all();
}

bool LinkReaderHarness::waitForRecords(size_t n, int timeoutMs)
{
    std::unique_lock<std::mutex> guard(m_lock);
    return m_arrived.wait_for(guard, std::chrono::milliseconds(timeoutMs), [&] { return m_received.size() >= n; });
}

bool LinkReaderHarness::waitForReconnect(int accepted, int timeoutMs)
{
    const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    while (!(m_service.acceptedCount() > accepted && m_service.hasClient() && m_link->isConnected())) {
        if (Clock::now() > deadline)
            return false;
        std::this_thread::yield();
    }
    return true;
}

std::vector<tag_RadioCmdFromMCU> LinkReaderHarness::takeReceived()
{
    std::lock_guard<std::mutex> guard(m_lock);
    std::vector<tag_RadioCmdFromMCU> taken;
    taken.swap(m_received);
    return taken;
}

bool LinkReaderHarness::run(const uint8_t* data, size_t size)
{
    if (size < 5)
        return true;
    const uint8_t control = data[0];
    uint32_t seed;
    std::memcpy(&seed, data + 1, sizeof seed);
    const size_t maxPiece = kMaxPiece[control & 7];
    // Pieces of a few bytes each take a round trip: keep those streams short.
    const size_t limit = maxPiece < 64 ? 4 * kRecord + kRecord / 2 : size - 5;
    std::vector<unsigned char> stream(data + 5, data + 5 + std::min(limit, size - 5));

    // One input in sixteen ends by closing the connection.
    const bool closeAtEnd = (control >> 3) % 16 == 0;
    const size_t whole = stream.size() / kRecord;
    const size_t tail = stream.size() % kRecord;
    if (!closeAtEnd && tail > 0)
        stream.insert(stream.end(), kRecord - tail, kFiller);
    const size_t expected = stream.size() / kRecord;

    std::mt19937 rng(seed);
    std::vector<size_t> pieces;
    for (size_t total = 0; total < stream.size();) {
        pieces.push_back(1 + rng() % maxPiece);
        total += pieces.back();
    }
    if (!m_service.writeSeparately(stream.data(), stream.size(), pieces)) {
        fprintf(stderr, "the link stopped reading\n");
        return false;
    }

    if (closeAtEnd) {
        const int accepted = m_service.acceptedCount();
        m_service.closeClient();
        // A partial record would be handed on, if at all, before the link
        // has taken the end of the connection and connected again.
        if (!waitForReconnect(accepted, 15000)) {
            fprintf(stderr, "the link did not reconnect\n");
            return false;
        }
        ++m_reconnects;
    }
    if (!waitForRecords(expected, 5000)) {
        fprintf(stderr, "expected %zu records, got fewer\n", expected);
        return false;
    }

    const std::vector<tag_RadioCmdFromMCU> received = takeReceived();
    if (received.size() != expected) {
        fprintf(stderr, "expected %zu records (%zu whole, tail %zu, %s), got %zu\n", expected, whole, tail,
                closeAtEnd ? "closed" : "completed", received.size());
        return false;
    }
    for (size_t i = 0; i < expected; ++i) {
        if (std::memcmp(&received[i], stream.data() + i * kRecord, kRecord) != 0) {
            fprintf(stderr, "record %zu of %zu differs from the stream\n", i, expected);
            return false;
        }
    }
    m_checked += expected;

    if (closeAtEnd) {
        // The new connection carries records, which also lets the link
        // start its next retry delay small again.
        const std::vector<unsigned char> filler(kRecord, kFiller);
        if (!m_service.write(filler.data(), filler.size()) || !waitForRecords(1, 5000)) {
            fprintf(stderr, "no record on the new connection\n");
            return false;
        }
        const std::vector<tag_RadioCmdFromMCU> after = takeReceived();
        if (after.size() != 1 || std::memcmp(&after[0], filler.data(), kRecord) != 0) {
            fprintf(stderr, "the new connection handed on %zu records instead of the one sent\n", after.size());
            return false;
        }
        ++m_checked;
    }
    return true;
}
