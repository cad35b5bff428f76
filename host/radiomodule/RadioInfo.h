#ifndef RADIOINFO_H
#define RADIOINFO_H

#include <QMetaType>

// What the radio screen reports to the host about the station: three
// NUL-terminated texts in the local 8-bit encoding, NUL padded.
struct RadioInfo_t_ {
    char freqText[20];  // "FM1  87.50 MHz"
    char psText[20];    // programme service name
    char ptyText[10];   // programme type name
};
static_assert(sizeof(RadioInfo_t_) == 50, "radio info is 50 bytes");

// Radio flag word bits.
enum RadioFlagBit : unsigned int {
    RADIO_FLAG_STEREO = 0x01,
    RADIO_FLAG_TA_IND = 0x02,
    RADIO_FLAG_TP_IND = 0x04,
    RADIO_FLAG_TA_ON = 0x08,
    RADIO_FLAG_REG_ON = 0x10,
};

Q_DECLARE_METATYPE(RadioInfo_t_)

#endif
