#ifndef FAKERADIOACTIVITY_H
#define FAKERADIOACTIVITY_H

#include "Activity.h"

#include <QObject>
#include <QSharedPointer>
#include <QStringList>
#include <QWidget>

// Stands in for the radio screen's controller: records the slots the host
// invokes on it by name.
class FakeRadioController : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    QStringList calls;

public slots:
    void TunerAudioStreamOnOffSlot(int state) { calls << QStringLiteral("TunerAudioStreamOnOffSlot(%1)").arg(state); }
    void OnPowerBtnClicked(QString id) { calls << QStringLiteral("OnPowerBtnClicked(%1)").arg(id); }
};

// A "radio" activity whose UI object is a FakeRadioController.
class FakeRadioActivity : public QObject, public hvappframework::Activity
{
    Q_OBJECT
    Q_INTERFACES(hvappframework::Activity)
public:
    FakeRadioActivity();
    ~FakeRadioActivity() override;

    int onCreat() override;
    int onDestory() override;
    int onStart() override;
    int onStop() override;
    QSharedPointer<hvappframework::ActivityProperty> getProperty() override;

    FakeRadioController* controller() const { return m_controller; }
    QStringList lifecycle;

private:
    QSharedPointer<hvappframework::ActivityProperty> m_property;
    FakeRadioController* m_controller = nullptr;
};

#endif
