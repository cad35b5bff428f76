#include "SetupStrIdConst.h"

const QString SetupStrIdConst::setupRadioScanType = QStringLiteral("radio/scanType");
const QString SetupStrIdConst::setupRadioAntPower = QStringLiteral("radio/antennaPower");
const QString SetupStrIdConst::setupAF = QStringLiteral("radio/af");
const QString SetupStrIdConst::setupTA = QStringLiteral("radio/ta");
const QString SetupStrIdConst::setupWallPaper = QStringLiteral("display/wallpaper");
const QString SetupStrIdConst::setupTemperature = QStringLiteral("display/temperatureCelsius");
