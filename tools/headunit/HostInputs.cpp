#include "HostInputs.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "HostState.h"
#include "LanguageSwitch.h"

#include <QLoggingCategory>
#include <QMetaObject>
#include <QWidget>

Q_LOGGING_CATEGORY(lcInputs, "hu.shell.inputs")

namespace {

constexpr double StartTemperature = 20.0;

} // namespace

HostInputs::HostInputs(QObject* parent) : QObject(parent) {}

bool HostInputs::setRegion(int region)
{
    BaseControl* control = BaseControl::getInstance();
    if (region < 0 || region >= RegionCount) {
        qCWarning(lcInputs) << "region" << region << "refused: the head unit knows regions 0 to" << RegionCount - 1;
        return false;
    }
    if (!control) {
        qCWarning(lcInputs) << "region" << region << "not reported: no BaseControl";
        return false;
    }
    control->setRadioRegion(region);
    emit control->sigRadioRegionChanged(region);
    emit applied(QStringLiteral("region %1").arg(region));
    return true;
}

void HostInputs::stepRegion(int delta)
{
    const BaseControl* control = BaseControl::getInstance();
    const int current = control && control->radioRegion() >= 0 ? control->radioRegion() : 0;
    setRegion(((current + delta) % RegionCount + RegionCount) % RegionCount);
}

void HostInputs::fmKey()
{
    if (BaseControl* control = BaseControl::getInstance()) {
        emit control->FMAMChangedSig(1);
        emit applied(QStringLiteral("FM key"));
    }
}

void HostInputs::amKey()
{
    if (BaseControl* control = BaseControl::getInstance()) {
        emit control->FMAMChangedSig(2);
        emit applied(QStringLiteral("AM key"));
    }
}

void HostInputs::nextKey()
{
    if (BaseControl* control = BaseControl::getInstance()) {
        emit control->handle_infopagenextbtn(QStringLiteral("next"));
        emit applied(QStringLiteral("next key"));
    }
}

void HostInputs::prevKey()
{
    if (BaseControl* control = BaseControl::getInstance()) {
        emit control->handle_infopageprevbtn(QStringLiteral("prev"));
        emit applied(QStringLiteral("previous key"));
    }
}

bool HostInputs::requestStream(bool on)
{
    QWidget* controller = HostState::radioController();
    if (!controller) {
        qCWarning(lcInputs) << "audio stream request ignored: the radio screen does not exist";
        return false;
    }
    if (!QMetaObject::invokeMethod(controller, "TunerAudioStreamOnOffSlot", Q_ARG(int, on ? 0 : 1))) {
        qCWarning(lcInputs) << "audio stream request failed:" << controller->metaObject()->className()
                            << "has no slot TunerAudioStreamOnOffSlot(int)";
        return false;
    }
    emit applied(on ? QStringLiteral("audio stream on requested") : QStringLiteral("audio stream off requested"));
    return true;
}

bool HostInputs::toggleStream()
{
    const AuxinModule* auxin = HostState::auxinModule();
    return requestStream(!(auxin && auxin->isStreaming()));
}

bool HostInputs::powerKey()
{
    QWidget* controller = HostState::radioController();
    if (!controller) {
        qCWarning(lcInputs) << "power key ignored: the radio screen does not exist";
        return false;
    }
    if (!QMetaObject::invokeMethod(controller, "OnPowerBtnClicked", Q_ARG(QString, QStringLiteral("PowerBtn")))) {
        qCWarning(lcInputs) << "power key failed:" << controller->metaObject()->className()
                            << "has no slot OnPowerBtnClicked(QString)";
        return false;
    }
    emit applied(QStringLiteral("power key"));
    return true;
}

void HostInputs::setReversing(bool reversing)
{
    if (AppData* data = AppData::GetInstance()) {
        data->setIsReversing(reversing);
        emit applied(reversing ? QStringLiteral("reversing") : QStringLiteral("not reversing"));
    }
}

void HostInputs::toggleReversing()
{
    if (const AppData* data = AppData::GetInstance())
        setReversing(!data->getIsReversing());
}

void HostInputs::setTemperature(double celsius)
{
    if (AppData* data = AppData::GetInstance()) {
        data->setCurTemperature(float(celsius));
        emit applied(QStringLiteral("temperature %1 °C").arg(celsius, 0, 'f', 1));
    }
}

void HostInputs::stepTemperature(double delta)
{
    const AppData* data = AppData::GetInstance();
    if (!data)
        return;
    const float current = data->getCurTemperature();
    setTemperature((current == AppData::NoTemperature ? StartTemperature : double(current)) + delta);
}

void HostInputs::setMute(bool mute)
{
    if (AudioControl* audio = AudioControl::getInstance()) {
        audio->setMute(mute, true);
        emit applied(mute ? QStringLiteral("mute on") : QStringLiteral("mute off"));
    }
}

void HostInputs::toggleMute()
{
    if (const AudioControl* audio = AudioControl::getInstance())
        setMute(!audio->isMute());
}

bool HostInputs::switchTo(const QString& activity)
{
    if (hvappframework::ActivityManager::self()->switchActivity(activity, 0) != 0)
        return false;
    emit applied(QStringLiteral("activity %1").arg(activity));
    return true;
}

bool HostInputs::setLanguage(const QString& code)
{
    if (!m_languages) {
        qCWarning(lcInputs) << "language" << code << "not set: the head unit has no language switch";
        return false;
    }
    if (!m_languages->setLanguage(code))
        return false;
    emit applied(QStringLiteral("language %1").arg(code));
    return true;
}

bool HostInputs::nextLanguage()
{
    if (!m_languages)
        return false;
    const QStringList all = LanguageSwitch::languages();
    return setLanguage(all.at((all.indexOf(m_languages->language()) + 1) % all.size()));
}
