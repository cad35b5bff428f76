#include "HostStatusPanel.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "HostState.h"
#include "PlatformControl.h"
#include "RadioModule.h"

#include <QFormLayout>
#include <QLabel>

HostStatusPanel::HostStatusPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("HostStatus"));
    auto* form = new QFormLayout(this);
    form->setContentsMargins(16, 12, 16, 12);
    form->setVerticalSpacing(10);

    auto* title = new QLabel(tr("Host side of the radio"), this);
    title->setObjectName(QStringLiteral("HostStatusTitle"));
    form->addRow(title);
    addRow(form, QStringLiteral("Activity"), tr("Activity"));
    addRow(form, QStringLiteral("FreqText"), tr("Radio info"));
    addRow(form, QStringLiteral("PsText"), tr("PS"));
    addRow(form, QStringLiteral("PtyText"), tr("PTY"));
    addRow(form, QStringLiteral("Flags"), tr("Flags"));
    addRow(form, QStringLiteral("Stream"), tr("Audio stream"));
    addRow(form, QStringLiteral("Mute"), tr("Mute"));
    addRow(form, QStringLiteral("HardMute"), tr("Hard mute"));
    addRow(form, QStringLiteral("PlayState"), tr("Play state"));
    addRow(form, QStringLiteral("Band"), tr("Band / preset"));
    addRow(form, QStringLiteral("Region"), tr("Region"));
    addRow(form, QStringLiteral("Reversing"), tr("Reversing"));
    addRow(form, QStringLiteral("Temperature"), tr("Temperature"));
    addRow(form, QStringLiteral("Records"), tr("Records to module"));
    addRow(form, QStringLiteral("LastInput"), tr("Last host input"));
    setValue(QStringLiteral("LastInput"), tr("none"));

    if (RadioModule* radio = HostState::radioModule()) {
        connect(radio, &RadioModule::radioInfoChanged, this, &HostStatusPanel::refresh);
        connect(radio, &RadioModule::radioFlagChanged, this, &HostStatusPanel::refresh);
        // Emitted on the tuner link's reader thread: queued to this one.
        connect(radio, &RadioModule::tunerMsgHandled, this, &HostStatusPanel::refresh, Qt::QueuedConnection);
    }
    if (AuxinModule* auxin = HostState::auxinModule())
        connect(auxin, &AuxinModule::streamStateChanged, this, &HostStatusPanel::refresh);
    if (AudioControl* audio = AudioControl::getInstance())
        connect(audio, &AudioControl::muteChanged, this, &HostStatusPanel::refresh);
    if (PlatformControl* platform = PlatformControl::getInstance())
        connect(platform, &PlatformControl::hardMuteChanged, this, &HostStatusPanel::refresh);
    if (AppData* data = AppData::GetInstance()) {
        connect(data, &AppData::playStateChanged, this, &HostStatusPanel::refresh);
        connect(data, &AppData::tunerBandChanged, this, &HostStatusPanel::refresh);
        connect(data, &AppData::tunerPresetChanged, this, &HostStatusPanel::refresh);
        connect(data, &AppData::reversingChanged, this, &HostStatusPanel::refresh);
        connect(data, &AppData::temperatureChanged, this, &HostStatusPanel::refresh);
    }
    if (BaseControl* control = BaseControl::getInstance())
        connect(control, &BaseControl::callRecorded, this, &HostStatusPanel::refresh);
    connect(hvappframework::ActivityManager::self().data(), &hvappframework::ActivityManager::activityChanged, this,
            &HostStatusPanel::refresh);
    refresh();
}

void HostStatusPanel::addRow(QFormLayout* form, const QString& row, const QString& caption)
{
    auto* value = new QLabel(this);
    value->setObjectName(QStringLiteral("Status") + row);
    m_values.insert(row, value);
    form->addRow(caption, value);
}

void HostStatusPanel::setValue(const QString& row, const QString& text)
{
    if (QLabel* label = m_values.value(row))
        label->setText(text);
}

void HostStatusPanel::showInput(const QString& what)
{
    setValue(QStringLiteral("LastInput"), what);
}

void HostStatusPanel::refresh()
{
    const QString none = tr("-");
    const QString current = hvappframework::ActivityManager::self()->currentActivity();
    setValue(QStringLiteral("Activity"), current.isEmpty() ? none : current);

    if (const RadioModule* radio = HostState::radioModule()) {
        const RadioInfo_t_ info = radio->radioInfo();
        const QString freq = HostState::infoText(info.freqText, sizeof info.freqText);
        const QString ps = HostState::infoText(info.psText, sizeof info.psText);
        const QString pty = HostState::infoText(info.ptyText, sizeof info.ptyText);
        setValue(QStringLiteral("FreqText"), freq.isEmpty() ? none : freq);
        setValue(QStringLiteral("PsText"), ps.trimmed().isEmpty() ? none : QLatin1Char('"') + ps + QLatin1Char('"'));
        setValue(QStringLiteral("PtyText"), pty.isEmpty() ? none : pty);
        const unsigned flag = radio->radioFlag();
        const QStringList names = HostState::flagNames(flag);
        setValue(QStringLiteral("Flags"), QStringLiteral("0x%1  %2")
                                              .arg(flag, 2, 16, QLatin1Char('0'))
                                              .arg(names.isEmpty() ? tr("none") : names.join(QLatin1Char(' '))));
        setValue(QStringLiteral("Records"), QString::number(radio->receivedCount()));
    }
    const AuxinModule* auxin = HostState::auxinModule();
    setValue(QStringLiteral("Stream"), !auxin ? tr("no audio input") : auxin->isStreaming() ? tr("on") : tr("off"));
    if (const AudioControl* audio = AudioControl::getInstance())
        setValue(QStringLiteral("Mute"), audio->isMute() ? tr("on") : tr("off"));
    if (const PlatformControl* platform = PlatformControl::getInstance())
        setValue(QStringLiteral("HardMute"), platform->isHardMute() ? tr("on") : tr("off"));
    if (const AppData* data = AppData::GetInstance()) {
        const int play = data->playState();
        setValue(QStringLiteral("PlayState"), play == 1   ? tr("playing")
                                              : play == 2 ? tr("paused")
                                                          : none);
        setValue(QStringLiteral("Band"), tr("%1, preset %2")
                                             .arg(HostState::bandName(data->tunerBand()))
                                             .arg(data->tunerPreset() > 0 ? QString::number(data->tunerPreset()) : none));
        setValue(QStringLiteral("Reversing"), data->getIsReversing() ? tr("yes") : tr("no"));
        const float t = data->getCurTemperature();
        setValue(QStringLiteral("Temperature"),
                 t == AppData::NoTemperature ? tr("no reading") : QStringLiteral("%1 °C").arg(double(t), 0, 'f', 1));
    }
    if (const BaseControl* control = BaseControl::getInstance())
        setValue(QStringLiteral("Region"), control->radioRegion() >= 0 ? QString::number(control->radioRegion()) : none);
}
