// Fuzzes the link's reader: arbitrary bytes in arbitrary pieces come out as
// exactly the stream's whole records, in order, and a record cut short by a
// closed connection, or by a service that vanished, is never handed on.
//
// Input: byte 0 picks the largest piece, whether the connection closes at
// the end and whether the whole service goes with it; bytes 1-4 seed the
// piece sizes and pick the receiver (a controller, or with no screen the
// host's radio module); the rest is the stream.
#include "FakeTunerService.h"
#include "ModuleManager.h"
#include "ProtocolComm.h"
#include "RadioModule.h"
#include "RecordingController.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <thread>
#include <unistd.h>

namespace {

const size_t kRecord = sizeof(tag_RadioCmdFromMCU);

[[noreturn]] void fail(const char* why)
{
    fprintf(stderr, "%s\n", why);
    abort();
}

RadioModule* registeredModule()
{
    auto* module = new RadioModule;
    hvappframework::ModuleManager::self()->addModule(
        QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), module));
    return module;
}

void runInput(FakeTunerService& service, RadioModule* module, const uint8_t* data, size_t size)
{
    static const size_t kMaxPiece[] = {1, 3, 64, 583, 584, 700, 1500, 8192};
    if (size < 5)
        return;
    const size_t maxPiece = kMaxPiece[data[0] & 7];
    const bool closeAtEnd = (data[0] >> 3) % 16 == 0;
    uint32_t seed;
    std::memcpy(&seed, data + 1, sizeof seed);
    // Pieces of a few bytes cost a round trip each: keep those streams short.
    std::vector<unsigned char> stream(data + 5, data + 5 + std::min(size - 5, maxPiece < 64 ? 4 * kRecord : size));
    if (!closeAtEnd)
        stream.resize((stream.size() + kRecord - 1) / kRecord * kRecord, 0xEE);
    const size_t whole = stream.size() / kRecord;

    const bool toModule = data[1] & 1;
    RecordingController receiver;
    m_pTuner = toModule ? nullptr : &receiver;
    module->clearReceived();
    std::mt19937 rng(seed);
    for (size_t at = 0, n = 0; at < stream.size(); at += n) {
        n = std::min<size_t>(1 + rng() % maxPiece, stream.size() - at);
        if (!service.write(stream.data() + at, n) || !service.waitUntilConsumed())
            fail("the link stopped reading");
    }
    if (closeAtEnd) {
        int accepted = service.acceptedCount();
        if (data[0] & 0x80) {
            service.stop();
            if (!service.start())
                fail("the service could not come back");
            accepted = 0;
        } else {
            service.closeClient();
        }
        // A record on the new connection also keeps the link's retry delay short.
        const std::vector<unsigned char> next(kRecord, 0xEE);
        if (!service.waitForClient(accepted, 15000) || !service.write(next.data(), kRecord))
            fail("the link did not come back");
        stream.resize(whole * kRecord);
        stream.insert(stream.end(), next.begin(), next.end());
    }
    const size_t expected = stream.size() / kRecord;
    std::vector<tag_RadioCmdFromMCU> got = receiver.waitFor(toModule ? 0 : expected);
    for (int waited = 0; toModule && module->receivedCount() < int(expected) && waited < 5000; ++waited)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    for (const tag_RadioCmdFromMCU& r : module->receivedMsgs())
        got.push_back(r);
    m_pTuner = nullptr;
    if (got.size() != expected)
        fail("the link handed on a different number of records");
    for (size_t i = 0; i < expected; ++i) {
        if (std::memcmp(&got[i], stream.data() + i * kRecord, kRecord) != 0)
            fail("a record differs from the stream");
    }
}

FakeTunerService* connectedService()
{
    // The link logs every record on stdout; the verdict goes to stderr.
    const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(null, STDOUT_FILENO);
    auto* service = new FakeTunerService;
    if (service->start())
        ProtocolComm::GetInstance()->Start();
    if (!service->waitForClient())
        fail("no link to the service");
    return service;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // The link finds the host's module when it is made.
    static RadioModule* module = registeredModule();
    static FakeTunerService* service = connectedService();
    runInput(*service, module, data, size);
    return 0;
}
