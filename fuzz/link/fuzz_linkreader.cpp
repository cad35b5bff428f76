// The link's reader under a peer's byte stream: arbitrary bytes in arbitrary
// pieces come out as exactly the stream's whole records, in order, to the
// controller or, with no screen, to the host's radio module; a record cut
// short by a closed connection, or by a service that vanished, is never
// handed on. Byte 0 picks the largest piece, whether the connection closes
// at the end and whether the service goes with it; bytes 1-4 seed the piece
// sizes and pick the receiver; the rest is the stream.
#include "FakeTunerService.h"
#include "FuzzCheck.h"
#include "ModuleManager.h"
#include "ProtocolComm.h"
#include "RadioModule.h"
#include "RecordingController.h"

#include <cstring>
#include <fcntl.h>
#include <random>
#include <thread>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const size_t kRecord = sizeof(tag_RadioCmdFromMCU);
    // The link finds the host's module when it is made, and logs every
    // record on standard output (the verdicts go to standard error).
    static RadioModule* module = new RadioModule;
    static FakeTunerService* service = [] {
        hvappframework::ModuleManager::self()->addModule(
            QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), module));
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
        auto* s = new FakeTunerService;
        check(s->start(), "the service starts");
        ProtocolComm::GetInstance()->Start();
        check(s->waitForClient(), "the link connects");
        return s;
    }();
    static const size_t kMaxPiece[] = {1, 3, 64, 583, 584, 700, 1500, 8192};
    if (size < 5)
        return 0;
    const size_t maxPiece = kMaxPiece[data[0] & 7];
    const bool closeAtEnd = (data[0] >> 3) % 16 == 0;
    const bool toModule = data[1] & 1;
    uint32_t seed;
    std::memcpy(&seed, data + 1, sizeof seed);
    // Pieces of a few bytes cost a round trip each: keep those streams short.
    std::vector<unsigned char> stream(data + 5, data + 5 + std::min(size - 5, maxPiece < 64 ? 4 * kRecord : size));
    if (!closeAtEnd)
        stream.resize((stream.size() + kRecord - 1) / kRecord * kRecord, 0xEE);

    RecordingController receiver;
    m_pTuner = toModule ? nullptr : &receiver;
    module->clearReceived();
    std::mt19937 rng(seed);
    for (size_t at = 0, n = 0; at < stream.size(); at += n) {
        n = std::min<size_t>(1 + rng() % maxPiece, stream.size() - at);
        check(service->write(stream.data() + at, n) && service->waitUntilConsumed(), "the link reads on");
    }
    if (closeAtEnd) {
        int accepted = service->acceptedCount();
        if (data[0] & 0x80) {
            service->stop();
            check(service->start(), "the service comes back");
            accepted = 0;
        } else {
            service->closeClient();
        }
        // A record on the new connection also keeps the link's retry delay short.
        const std::vector<unsigned char> next(kRecord, 0xEE);
        check(service->waitForClient(accepted, 15000) && service->write(next.data(), kRecord), "the link comes back");
        stream.resize(stream.size() / kRecord * kRecord);
        stream.insert(stream.end(), next.begin(), next.end());
    }
    const size_t expected = stream.size() / kRecord;
    std::vector<tag_RadioCmdFromMCU> got = receiver.waitFor(toModule ? 0 : expected);
    for (int waited = 0; toModule && module->receivedCount() < int(expected) && waited < 5000; ++waited)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    for (const tag_RadioCmdFromMCU& r : module->receivedMsgs())
        got.push_back(r);
    m_pTuner = nullptr;
    check(got.size() == expected, "the link hands on every whole record, and only those");
    for (size_t i = 0; i < expected; ++i)
        check(std::memcmp(&got[i], stream.data() + i * kRecord, kRecord) == 0, "records arrive as sent");
    return 0;
}
