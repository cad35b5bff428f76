#include "DataDefault.h"
#include "SetupStrIdConst.h"

#include <QHash>

static QHash<QString, QVariant> factoryDefaults()
{
    return {
        {SetupStrIdConst::setupRadioScanType, false},
        {SetupStrIdConst::setupRadioAntPower, 1},
        {SetupStrIdConst::setupAF, true},
        {SetupStrIdConst::setupTA, false},
        {SetupStrIdConst::setupWallPaper, QStringLiteral(":/images/wallpaper/default.jpg")},
        {SetupStrIdConst::setupTemperature, true},
    };
}

static QHash<QString, QVariant>& defaults()
{
    static QHash<QString, QVariant> table = factoryDefaults();
    return table;
}

QVariant DataDefault::getDefault(QString key)
{
    return defaults().value(key);
}

void DataDefault::setDefault(const QString& key, const QVariant& value)
{
    defaults().insert(key, value);
}

void DataDefault::resetDefaults()
{
    defaults() = factoryDefaults();
}
