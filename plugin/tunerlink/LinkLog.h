#ifndef LINKLOG_H
#define LINKLOG_H

// The link's own events go out at once on standard output: whoever
// watches the head unit reads it line by line, often through a pipe.
void linkLog(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

#endif
