#include "LinkLog.h"

#include <cstdarg>
#include <cstdio>

void linkLog(const char* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    flockfile(stdout);
    vprintf(fmt, args);
    fflush(stdout);
    funlockfile(stdout);
    va_end(args);
}
