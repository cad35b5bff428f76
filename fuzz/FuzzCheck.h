#ifndef FUZZCHECK_H
#define FUZZCHECK_H

#include <cstdio>
#include <cstdlib>

// A broken invariant ends the input as a crash, so libFuzzer keeps it.
inline void check(bool ok, const char* what)
{
    if (!ok) {
        std::fprintf(stderr, "invariant broken: %s\n", what);
        std::abort();
    }
}

#endif
