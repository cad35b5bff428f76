#include "HostStatusPanel.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "HostState.h"
#include "PlatformControl.h"
#include "RadioModule.h"

#include <QEvent>
#include <QFormLayout>
#include <QLabel>

HostStatusPanel::HostStatusPanel(QWidget* parent) : QWidget(parent), m_title(new QLabel(this))
{
    setObjectName(QStringLiteral("HostStatus"));
    auto* form = new QFormLayout(this);
    form->setContentsMargins(16, 12, 16, 12);
    form->setVerticalSpacing(10);

    m_title->setObjectName(QStringLiteral("HostStatusTitle"));
    form->addRow(m_title);
    addRow(form, QStringLiteral("Activity"), QT_TR_NOOP("Activity"));
    addRow(form, QStringLiteral("FreqText"), QT_TR_NOOP("Radio info"));
    addRow(form, QStringLiteral("PsText"), QT_TR_NOOP("PS"));
    addRow(form, QStringLiteral("PtyText"), QT_TR_NOOP("PTY"));
    addRow(form, QStringLiteral("Flags"), QT_TR_NOOP("Flags"));
    addRow(form, QStringLiteral("Stream"), QT_TR_NOOP("Audio stream"));
    addRow(form, QStringLiteral("Mute"), QT_TR_NOOP("Mute"));
    addRow(form, QStringLiteral("HardMute"), QT_TR_NOOP("Hard mute"));
    addRow(form, QStringLiteral("PlayState"), QT_TR_NOOP("Play state"));
    addRow(form, QStringLiteral("Band"), QT_TR_NOOP("Band / preset"));
    addRow(form, QStringLiteral("Region"), QT_TR_NOOP("Region"));
    addRow(form, QStringLiteral("Reversing"), QT_TR_NOOP("Reversing"));
    addRow(form, QStringLiteral("Temperature"), QT_TR_NOOP("Temperature"));
    addRow(form, QStringLiteral("Records"), QT_TR_NOOP("Records to module"));
    addRow(form, QStringLiteral("LastInput"), QT_TR_NOOP("Last host input"));

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
    retranslateUi();
}

void HostStatusPanel::addRow(QFormLayout* form, const QString& row, const char* caption)
{
    auto* label = new QLabel(this);
    auto* value = new QLabel(this);
    value->setObjectName(QStringLiteral("Status") + row);
    m_values.insert(row, value);
    m_captions.append({label, caption});
    form->addRow(label, value);
}

void HostStatusPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslateUi();
    QWidget::changeEvent(event);
}

void HostStatusPanel::retranslateUi()
{
    m_title->setText(tr("Host side of the radio"));
    for (const auto& caption : qAsConst(m_captions))
        caption.first->setText(tr(caption.second));
    showInput(m_lastInput);
    refresh();
}

void HostStatusPanel::setValue(const QString& row, const QString& text)
{
    if (QLabel* label = m_values.value(row))
        label->setText(text);
}

void HostStatusPanel::showInput(const QString& what)
{
    m_lastInput = what;
    setValue(QStringLiteral("LastInput"), what.isEmpty() ? tr("none") : what);
}

void HostStatusPanel::refresh()
{
    const QString none = QStringLiteral("-");
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
