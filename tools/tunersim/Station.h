#ifndef STATION_H
#define STATION_H

#include "RdsLog.h"

#include <QByteArray>
#include <QSharedPointer>
#include <cstdint>

// One transmitter the simulated tuner can receive.
struct Station {
    uint32_t freq = 0;        // record units: FM 10 kHz, AM kHz
    QByteArray ps;            // exactly 8 bytes, RDS character set, space padded
    uint8_t pty = 0;          // 0-31
    bool tp = false;          // carries traffic programmes
    QByteArray radioText;     // UTF-8, at most 64 bytes
    uint8_t signal = 0;       // 0-255 at the antenna
    bool mono = false;
    int taPeriodMs = 0;       // time between traffic announcements, 0 = none
    int taLengthMs = 0;       // length of one announcement
    QSharedPointer<const RdsLog> rdsLog {};   // recorded groups replayed instead of the static RDS data
};

#endif
