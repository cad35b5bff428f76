// Fuzzes the link's reader with arbitrary byte streams in arbitrary pieces
// (see LinkReaderHarness for the input layout). Built for libFuzzer with
// clang; otherwise a plain program that runs seeded random inputs:
//
//   fuzz_linkreader [inputs, default 300] [seed, default 1]

#include "LinkReaderHarness.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

// The link logs every record on stdout; the verdict goes to stderr.
void silenceStdout()
{
    fflush(stdout);
    const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (null >= 0) {
        dup2(null, STDOUT_FILENO);
        close(null);
    }
}

} // namespace

#ifdef RADIO_LIBFUZZER

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static LinkReaderHarness* harness = [] {
        silenceStdout();
        auto* h = new LinkReaderHarness;
        if (!h->setUp())
            abort();
        return h;
    }();
    if (!harness->run(data, size))
        abort();
    return 0;
}

#else

#include <random>
#include <vector>

int main(int argc, char** argv)
{
    const int inputs = argc > 1 ? atoi(argv[1]) : 300;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(strtoul(argv[2], nullptr, 10)) : 1u;

    silenceStdout();
    LinkReaderHarness harness;
    if (!harness.setUp())
        return 1;

    std::mt19937 rng(seed);
    std::vector<uint8_t> input;
    for (int i = 0; i < inputs; ++i) {
        // Mostly short streams, now and then one of many records.
        const size_t size = rng() % 8 == 0 ? rng() % 65536 : rng() % 4096;
        input.resize(size);
        for (uint8_t& byte : input)
            byte = static_cast<uint8_t>(rng());
        if (!harness.run(input.data(), input.size())) {
            fprintf(stderr, "input %d of seed %u failed\n", i, seed);
            return 1;
        }
    }
    fprintf(stderr, "%d inputs, %zu records checked, %d reconnects: only whole records handed on\n", inputs,
            harness.recordsChecked(), harness.reconnects());
    return 0;
}

#endif
