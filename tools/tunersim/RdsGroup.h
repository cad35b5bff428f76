#ifndef RDSGROUP_H
#define RDSGROUP_H

#include <cstdint>

// One received RDS group: blocks A-D as 16-bit words. A block that failed
// its CRC is kept as 0 with its bit in `valid` clear.
struct RdsGroup {
    uint16_t block[4] = {0, 0, 0, 0};
    uint8_t valid = 0;              // bit i set = block i received intact
    uint32_t tunedKHz = 0;          // receiver frequency of the log section, 0 if unknown

    bool has(int i) const { return (valid >> i) & 1u; }
};

#endif
