#include "HostState.h"

#include "Activity.h"
#include "ActivityManager.h"
#include "ActivityProperty.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "ModuleManager.h"
#include "PlatformControl.h"
#include "RadioInfo.h"
#include "RadioModule.h"

#include <QJsonArray>
#include <QWidget>

#include <cstring>

RadioModule* HostState::radioModule()
{
    const QSharedPointer<hvappframework::Module> module =
        hvappframework::ModuleManager::self()->getModule(QStringLiteral("radio"));
    return module ? qobject_cast<RadioModule*>(module->getModuleImpl()) : nullptr;
}

AuxinModule* HostState::auxinModule()
{
    const auto plugin = qSharedPointerDynamicCast<AuxinModulePlugin>(
        hvappframework::ModuleManager::self()->getModule(QStringLiteral("auxin")));
    return plugin ? plugin->getAuxinModule() : nullptr;
}

QWidget* HostState::radioController()
{
    hvappframework::Activity* radio = hvappframework::ActivityManager::self()->activity(QStringLiteral("radio"));
    if (!radio)
        return nullptr;
    const QSharedPointer<hvappframework::ActivityProperty> property = radio->getProperty();
    return property ? property->getUiObj() : nullptr;
}

QStringList HostState::flagNames(unsigned int flag)
{
    static const struct {
        unsigned int bit;
        const char* name;
    } bits[] = {
        {RADIO_FLAG_STEREO, "ST"}, {RADIO_FLAG_TA_IND, "TA"}, {RADIO_FLAG_TP_IND, "TP"},
        {RADIO_FLAG_TA_ON, "TA-on"}, {RADIO_FLAG_REG_ON, "REG"},
    };
    QStringList names;
    for (const auto& b : bits) {
        if (flag & b.bit)
            names.append(QLatin1String(b.name));
    }
    return names;
}

QString HostState::infoText(const char* field, int size)
{
    if (!field || size <= 0)
        return QString();
    const void* nul = std::memchr(field, 0, size_t(size));
    const int length = nul ? int(static_cast<const char*>(nul) - field) : size;
    return QString::fromLocal8Bit(field, length);
}

QString HostState::bandName(int band)
{
    if (band >= 0 && band <= 2)
        return QStringLiteral("FM%1").arg(band + 1);
    if (band >= 3 && band <= 4)
        return QStringLiteral("AM%1").arg(band - 2);
    return QStringLiteral("?");
}

QJsonObject HostState::snapshot()
{
    QJsonObject host;
    host.insert(QStringLiteral("activity"), hvappframework::ActivityManager::self()->currentActivity());

    if (RadioModule* radio = radioModule()) {
        const RadioInfo_t_ info = radio->radioInfo();
        host.insert(QStringLiteral("radioInfo"),
                    QJsonObject{{QStringLiteral("freqText"), infoText(info.freqText, sizeof info.freqText)},
                                {QStringLiteral("psText"), infoText(info.psText, sizeof info.psText)},
                                {QStringLiteral("ptyText"), infoText(info.ptyText, sizeof info.ptyText)}});
        host.insert(QStringLiteral("radioFlag"), qint64(radio->radioFlag()));
        host.insert(QStringLiteral("radioFlagNames"), QJsonArray::fromStringList(flagNames(radio->radioFlag())));
        host.insert(QStringLiteral("recordsToModule"), radio->receivedCount());
    }
    if (AuxinModule* auxin = auxinModule()) {
        host.insert(QStringLiteral("streaming"), auxin->isStreaming());
        host.insert(QStringLiteral("auxinCalls"), QJsonArray::fromStringList(auxin->calls()));
    }
    if (AudioControl* audio = AudioControl::getInstance())
        host.insert(QStringLiteral("mute"), audio->isMute());
    if (PlatformControl* platform = PlatformControl::getInstance())
        host.insert(QStringLiteral("hardMute"), platform->isHardMute());
    if (AppData* data = AppData::GetInstance()) {
        host.insert(QStringLiteral("playState"), data->playState());
        host.insert(QStringLiteral("tunerBand"), data->tunerBand());
        host.insert(QStringLiteral("tunerPreset"), data->tunerPreset());
        host.insert(QStringLiteral("reversing"), data->getIsReversing());
        host.insert(QStringLiteral("temperature"), double(data->getCurTemperature()));
    }
    if (BaseControl* control = BaseControl::getInstance()) {
        host.insert(QStringLiteral("region"), control->radioRegion());
        host.insert(QStringLiteral("baseControlCalls"), QJsonArray::fromStringList(control->calls()));
    }
    return host;
}
