// Stand-in for libFuzzer's driver where the compiler has none: runs the
// file given, or else random inputs from a seeded generator, short ones
// mostly and up to 4 KiB every tenth.
//
//   fuzz_target [--runs N] [--seed S] [FILE]

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char* argv[])
{
    long runs = 1000;
    uint64_t state = 1;
    for (int i = 1; i + 1 < argc && argv[i][0] == '-'; i += 2) {
        if (std::strcmp(argv[i], "--runs") == 0)
            runs = std::strtol(argv[i + 1], nullptr, 10);
        else
            state = std::strtoull(argv[i + 1], nullptr, 10);
    }
    std::vector<uint8_t> data;
    if (argc % 2 == 0) {
        std::ifstream in(argv[argc - 1], std::ios::binary);
        data.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        return in ? LLVMFuzzerTestOneInput(data.data(), data.size()) : 2;
    }
    // splitmix64: the same inputs on every platform.
    const auto next = [&state] {
        uint64_t z = (state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    };
    for (long run = 0; run < runs; ++run) {
        data.resize(next() % ((run % 10 == 0 ? 4096 : 256) + 1));
        for (uint8_t& b : data)
            b = uint8_t(next());
        LLVMFuzzerTestOneInput(data.data(), data.size());
    }
    std::printf("%ld random inputs run\n", runs);
    return 0;
}
