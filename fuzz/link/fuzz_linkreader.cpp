// Fuzzes the link's reader: arbitrary bytes in arbitrary pieces come out as
// exactly the stream's whole records, in order, and a record cut short by a
// closed connection is never handed on. A libFuzzer target with clang,
// otherwise a program running seeded inputs: fuzz_linkreader [inputs] [seed]
//
// Input: byte 0 picks the largest piece and whether the connection closes
// at the end, bytes 1-4 seed the piece sizes, the rest is the stream.
#include "FakeTunerService.h"
#include "ProtocolComm.h"
#include "RecordingController.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <unistd.h>

namespace {

const size_t kRecord = sizeof(tag_RadioCmdFromMCU);

bool fail(const char* why)
{
    fprintf(stderr, "%s\n", why);
    return false;
}

bool runInput(FakeTunerService& service, const uint8_t* data, size_t size)
{
    static const size_t kMaxPiece[] = {1, 3, 64, 583, 584, 700, 1500, 8192};
    if (size < 5)
        return true;
    const size_t maxPiece = kMaxPiece[data[0] & 7];
    const bool closeAtEnd = (data[0] >> 3) % 16 == 0;
    uint32_t seed;
    std::memcpy(&seed, data + 1, sizeof seed);
    // Pieces of a few bytes cost a round trip each: keep those streams short.
    std::vector<unsigned char> stream(data + 5, data + 5 + std::min(size - 5, maxPiece < 64 ? 4 * kRecord : size));
    if (!closeAtEnd)
        stream.resize((stream.size() + kRecord - 1) / kRecord * kRecord, 0xEE);
    const size_t whole = stream.size() / kRecord;

    RecordingController receiver;
    m_pTuner = &receiver;
    std::mt19937 rng(seed);
    for (size_t at = 0, n = 0; at < stream.size(); at += n) {
        n = std::min<size_t>(1 + rng() % maxPiece, stream.size() - at);
        if (!service.write(stream.data() + at, n) || !service.waitUntilConsumed())
            return fail("the link stopped reading");
    }
    if (closeAtEnd) {
        const int accepted = service.acceptedCount();
        service.closeClient();
        // A record on the new connection also keeps the link's retry delay short.
        const std::vector<unsigned char> next(kRecord, 0xEE);
        if (!service.waitForClient(accepted, 15000) || !service.write(next.data(), kRecord))
            return fail("the link did not come back");
        stream.resize(whole * kRecord);
        stream.insert(stream.end(), next.begin(), next.end());
    }
    const size_t expected = stream.size() / kRecord;
    const std::vector<tag_RadioCmdFromMCU> got = receiver.waitFor(expected);
    m_pTuner = nullptr;
    if (got.size() != expected)
        return fail("the link handed on a different number of records");
    for (size_t i = 0; i < expected; ++i) {
        if (std::memcmp(&got[i], stream.data() + i * kRecord, kRecord) != 0)
            return fail("a record differs from the stream");
    }
    return true;
}

FakeTunerService* connectedService()
{
    // The link logs every record on stdout; the verdict goes to stderr.
    const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(null, STDOUT_FILENO);
    auto* service = new FakeTunerService;
    if (service->start())
        ProtocolComm::GetInstance()->Start();
    return service->waitForClient() || fail("no link to the service") ? service : nullptr;
}

} // namespace

#ifdef RADIO_LIBFUZZER
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static FakeTunerService* service = connectedService();
    if (!service || !runInput(*service, data, size))
        abort();
    return 0;
}
#else
int main(int argc, char** argv)
{
    const int inputs = argc > 1 ? atoi(argv[1]) : 300;
    std::mt19937 rng(argc > 2 ? unsigned(strtoul(argv[2], nullptr, 10)) : 1u);
    FakeTunerService* service = connectedService();
    if (!service)
        return 1;
    std::vector<uint8_t> input;
    for (int i = 0; i < inputs; ++i) {
        input.resize(rng() % 8 == 0 ? rng() % 65536 : rng() % 4096);
        for (uint8_t& byte : input)
            byte = uint8_t(rng());
        if (!runInput(*service, input.data(), input.size())) {
            fprintf(stderr, "input %d of the session failed\n", i);
            return 1;
        }
    }
    fprintf(stderr, "%d inputs: only whole records handed on\n", inputs);
    return 0;
}
#endif
