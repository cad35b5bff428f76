#ifndef DATADEFAULT_H
#define DATADEFAULT_H

#include <QString>
#include <QVariant>

// Factory defaults of the settings store:
//   setupRadioScanType  false (step keys step)
//   setupRadioAntPower  1 (antenna powered)
//   setupAF             true
//   setupTA             false
//   setupWallPaper      ":/images/wallpaper/default.jpg"
//   setupTemperature    true (Celsius)
// Unknown keys have an invalid default.
class DataDefault
{
public:
    static QVariant getDefault(QString key);
    // Replaces a factory default (for a product variant or a test).
    static void setDefault(const QString& key, const QVariant& value);
    static void resetDefaults();
};

#endif
