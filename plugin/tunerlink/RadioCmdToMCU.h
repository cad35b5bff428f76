#ifndef RADIOCMDTOMCU_H
#define RADIOCMDTOMCU_H

#include <cstdint>
#include <cstddef>

// Command frame sent to the tuner service: 8 bytes, host byte order.
struct RadioCmdToMCU {
    uint32_t code;   // RadioCmdCode
    uint32_t param;  // 0 for commands without an argument
};
static_assert(sizeof(RadioCmdToMCU) == 8, "command frame must be 8 bytes");
static_assert(offsetof(RadioCmdToMCU, param) == 4, "param");

enum RadioCmdCode : uint32_t {
    RC_PRESET = 0,
    RC_PRESET_LONG = 1,
    RC_BAND = 2,
    RC_AUTO_SEARCH = 3,
    RC_PS = 4,
    RC_SEEK_UP = 5,
    RC_SEEK_DOWN = 6,
    RC_STEP_UP = 7,
    RC_STEP_DOWN = 8,
    RC_SCAN = 9,
    RC_AF = 10,
    RC_TA = 11,
    RC_DX_LOC = 12,
    RC_PTY_SELECTED = 13,
    RC_REG = 14,
    RC_RDS = 15,
    RC_SET_FREQ = 17,
    RC_PTY_SEEK = 18,
    RC_FAVOR = 20,
    RC_PRESET_UP = 21,
    RC_PRESET_DOWN = 22,
    RC_REQUEST_LIST = 255,
};

// Name of a command code ("RC_SEEK_UP"), or nullptr for unused codes.
const char* radioCmdName(uint32_t code);

#endif
