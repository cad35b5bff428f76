// Stand-in for libFuzzer's driver where the compiler has none: runs the
// files given (a folder: every file in it), then random inputs from a
// seeded generator, short ones mostly and up to 4 KiB every tenth.
//
//   fuzz_target [--runs N] [--seed S] [FILE|FOLDER...]

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace fs = std::filesystem;

int main(int argc, char* argv[])
{
    long runs = 1000;
    uint64_t state = 1;
    int arg = 1;
    for (; arg + 1 < argc && argv[arg][0] == '-'; arg += 2) {
        if (std::strcmp(argv[arg], "--runs") == 0)
            runs = std::strtol(argv[arg + 1], nullptr, 10);
        else
            state = std::strtoull(argv[arg + 1], nullptr, 10);
    }
    std::vector<uint8_t> data;
    for (; arg < argc; ++arg) {
        std::error_code error;
        std::vector<fs::path> files{argv[arg]};
        if (fs::is_directory(files[0], error))
            files.assign(fs::directory_iterator(files[0], error), fs::directory_iterator());
        for (const fs::path& file : files) {
            std::ifstream in(file, std::ios::binary);
            data.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
            if (!in.good() && !in.eof())
                return std::fprintf(stderr, "cannot read %s\n", file.c_str()), 2;
            LLVMFuzzerTestOneInput(data.data(), data.size());
        }
        std::fprintf(stderr, "%zu inputs from %s run\n", files.size(), argv[arg]);
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
    std::fprintf(stderr, "%ld random inputs run\n", runs);
    return 0;
}
