#ifndef RADIOCMDFROMMCU_H
#define RADIOCMDFROMMCU_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

// Status record sent by the tuner service: one record is exactly one
// message, 584 bytes in host byte order, no header or checksum.
// The first word says which kind of report it is; each kind fills only
// the fields that belong to it.
struct tag_RadioCmdFromMCU {
    uint32_t cmd;              // message kind, see RadioMsgKind
    uint32_t freq;             // FM: 10 kHz units (8750 = 87.50 MHz); AM: kHz
    uint8_t band;              // 0-2 FM1-FM3, 3-4 AM1-AM2
    uint8_t preset;            // 0 none, 1-6 preset key
    uint8_t dxLoc;             // 0 DX, else LOC
    uint8_t asState;           // auto search running
    uint8_t reserved12;        // carried with kind 0, not interpreted
    uint8_t stereo;
    uint8_t psState;           // preset scan running
    uint8_t scanState;
    uint8_t signal;            // 0-255
    uint8_t reserved17;
    uint16_t presetFreq[12];   // in the units of freq
    uint8_t favourite[12];
    uint8_t reserved54[2];
    uint8_t psName[8];         // space padded, no terminator
    uint8_t pty;               // 0-31
    uint8_t selectedPty;
    union {
        uint16_t rdsWord;
        struct {
            uint8_t rdsReserved;
            uint8_t rdsFlags;  // see RdsFlag
        };
    };
    uint8_t presetPsName[12][8];
    uint8_t radioText[65];     // NUL terminated, at most 64 characters
    uint8_t reserved229[3];
    uint32_t stationPic;
    uint16_t auxWords[30];
    uint8_t auxBlocks[3][96];
};
typedef tag_RadioCmdFromMCU RadioCmdFromMCU_T;

static_assert(sizeof(tag_RadioCmdFromMCU) == 584, "status record must be 584 bytes");
static_assert(std::is_trivially_copyable<tag_RadioCmdFromMCU>::value, "status record is copied bytewise");
static_assert(offsetof(tag_RadioCmdFromMCU, cmd) == 0, "cmd");
static_assert(offsetof(tag_RadioCmdFromMCU, freq) == 4, "freq");
static_assert(offsetof(tag_RadioCmdFromMCU, band) == 8, "band");
static_assert(offsetof(tag_RadioCmdFromMCU, preset) == 9, "preset");
static_assert(offsetof(tag_RadioCmdFromMCU, dxLoc) == 10, "dxLoc");
static_assert(offsetof(tag_RadioCmdFromMCU, asState) == 11, "asState");
static_assert(offsetof(tag_RadioCmdFromMCU, reserved12) == 12, "byte 12");
static_assert(offsetof(tag_RadioCmdFromMCU, stereo) == 13, "stereo");
static_assert(offsetof(tag_RadioCmdFromMCU, psState) == 14, "psState");
static_assert(offsetof(tag_RadioCmdFromMCU, scanState) == 15, "scanState");
static_assert(offsetof(tag_RadioCmdFromMCU, signal) == 16, "signal");
static_assert(offsetof(tag_RadioCmdFromMCU, reserved17) == 17, "byte 17");
static_assert(offsetof(tag_RadioCmdFromMCU, presetFreq) == 18, "presetFreq");
static_assert(offsetof(tag_RadioCmdFromMCU, favourite) == 42, "favourite");
static_assert(offsetof(tag_RadioCmdFromMCU, reserved54) == 54, "bytes 54-55");
static_assert(offsetof(tag_RadioCmdFromMCU, psName) == 56, "psName");
static_assert(offsetof(tag_RadioCmdFromMCU, pty) == 64, "pty");
static_assert(offsetof(tag_RadioCmdFromMCU, selectedPty) == 65, "selectedPty");
static_assert(offsetof(tag_RadioCmdFromMCU, rdsWord) == 66, "rdsWord");
static_assert(offsetof(tag_RadioCmdFromMCU, rdsFlags) == 67, "rdsFlags");
static_assert(offsetof(tag_RadioCmdFromMCU, presetPsName) == 68, "presetPsName");
static_assert(offsetof(tag_RadioCmdFromMCU, radioText) == 164, "radioText");
static_assert(offsetof(tag_RadioCmdFromMCU, reserved229) == 229, "bytes 229-231");
static_assert(offsetof(tag_RadioCmdFromMCU, stationPic) == 232, "stationPic");
static_assert(offsetof(tag_RadioCmdFromMCU, auxWords) == 236, "auxWords");
static_assert(offsetof(tag_RadioCmdFromMCU, auxBlocks) == 296, "auxBlocks");

// Message kinds (cmd). Kinds not listed are passed on but not interpreted.
enum RadioMsgKind : uint32_t {
    MCU_TUNE_INFO = 0,
    MCU_PRESET_FREQ = 4,
    MCU_PTY = 5,
    MCU_PS_NAME = 6,
    MCU_RADIO_TEXT = 7,
    MCU_PRESET_PS = 8,
    MCU_RDS_FLAGS = 9,
    MCU_STATION_PIC = 26,
    MCU_FAVOURITE = 33,
    MCU_SIGNAL = 34,
    MCU_AUX_WORDS = 35,
    MCU_AUX_BLOCKS = 36,
};

// Bits of rdsFlags (byte 67).
enum RdsFlag : uint8_t {
    RDS_FLAG_TP = 0x02,      // station carries traffic programmes
    RDS_FLAG_AF = 0x04,      // AF switch on
    RDS_FLAG_TA = 0x08,      // TA switch on
    RDS_FLAG_REG = 0x40,     // REG switch on
    RDS_FLAG_TA_IND = 0x80,  // traffic announcement flagged
};

// A frequency above 1999 is FM (10 kHz units), else AM (kHz).
constexpr bool isFmFrequency(uint32_t freq) { return freq > 1999; }
constexpr bool isAmBand(unsigned band) { return band > 2; }

// Human-readable name of a message kind, "?" for kinds without one.
const char* radioMsgKindName(uint32_t kind);

#endif
