#ifndef PTYNAMES_H
#define PTYNAMES_H

#include <QString>

// Programme-type names indexed by the RDS PTY code (0-31, 0 = none), in
// English; shown through QObject's translation context.
extern const QString PTY_NAMES[32];

#endif
