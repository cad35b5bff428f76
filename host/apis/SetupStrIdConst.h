#ifndef SETUPSTRIDCONST_H
#define SETUPSTRIDCONST_H

#include <QString>

// Keys of the head unit's settings store.
struct SetupStrIdConst {
    static const QString setupRadioScanType;
    static const QString setupRadioAntPower;
    static const QString setupAF;
    static const QString setupTA;
    static const QString setupWallPaper;
    static const QString setupTemperature;
};

#endif
