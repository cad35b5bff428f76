// Stand-in for libFuzzer's driver where the compiler has none: runs the
// inputs named on the command line (files, or every file of a directory),
// or else a number of random inputs from a seeded generator.
//
//   fuzz_target [--runs N] [--seed S] [--max-len L] [FILE|DIR ...]

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <string>
#include <sys/stat.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

uint64_t next(uint64_t& state)
{
    // splitmix64: the same sequence on every platform.
    uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

bool runFile(const std::string& path)
{
    FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) {
        std::fprintf(stderr, "cannot read %s\n", path.c_str());
        return false;
    }
    std::vector<uint8_t> data;
    uint8_t buffer[4096];
    size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, f)) > 0)
        data.insert(data.end(), buffer, buffer + n);
    std::fclose(f);
    LLVMFuzzerTestOneInput(data.data(), data.size());
    return true;
}

int runPath(const std::string& path)
{
    struct stat st;
    if (stat(path.c_str(), &st) != 0) {
        std::fprintf(stderr, "no such input %s\n", path.c_str());
        return -1;
    }
    if (!S_ISDIR(st.st_mode))
        return runFile(path) ? 1 : -1;
    DIR* dir = opendir(path.c_str());
    if (!dir)
        return -1;
    int count = 0;
    while (dirent* entry = readdir(dir)) {
        if (entry->d_name[0] == '.')
            continue;
        const int r = runPath(path + "/" + entry->d_name);
        if (r < 0) {
            closedir(dir);
            return -1;
        }
        count += r;
    }
    closedir(dir);
    return count;
}

} // namespace

int main(int argc, char* argv[])
{
    long runs = 1000;
    uint64_t seed = 1;
    size_t maxLen = 4096;
    std::vector<std::string> paths;
    for (int i = 1; i < argc; ++i) {
        const bool hasValue = i + 1 < argc;
        if (std::strcmp(argv[i], "--runs") == 0 && hasValue)
            runs = std::strtol(argv[++i], nullptr, 10);
        else if (std::strcmp(argv[i], "--seed") == 0 && hasValue)
            seed = std::strtoull(argv[++i], nullptr, 10);
        else if (std::strcmp(argv[i], "--max-len") == 0 && hasValue)
            maxLen = std::strtoull(argv[++i], nullptr, 10);
        else if (argv[i][0] == '-') {
            std::fprintf(stderr, "usage: %s [--runs N] [--seed S] [--max-len L] [FILE|DIR ...]\n", argv[0]);
            return 2;
        } else
            paths.emplace_back(argv[i]);
    }
    if (!paths.empty()) {
        int total = 0;
        for (const std::string& p : paths) {
            const int r = runPath(p);
            if (r < 0)
                return 1;
            total += r;
        }
        std::printf("%d inputs run\n", total);
        return 0;
    }
    uint64_t state = seed;
    std::vector<uint8_t> data;
    for (long run = 0; run < runs; ++run) {
        // Short inputs often, long ones now and then.
        const size_t limit = run % 10 == 0 ? maxLen : std::min<size_t>(maxLen, 256);
        data.resize(limit ? next(state) % (limit + 1) : 0);
        for (uint8_t& b : data)
            b = uint8_t(next(state));
        LLVMFuzzerTestOneInput(data.data(), data.size());
    }
    std::printf("%ld random inputs run (seed %llu)\n", runs, static_cast<unsigned long long>(seed));
    return 0;
}
