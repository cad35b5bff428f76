#ifndef HOMEACTIVITY_H
#define HOMEACTIVITY_H

#include "Activity.h"

#include <QObject>
#include <QPointer>
#include <QSharedPointer>

class HomeScreen;
class HostInputs;

namespace hvappframework {
class ActivityProperty;
}

// The shell's own "home" activity. The radio switches to it (system bar
// home button, power key); the framework then stops the radio and starts
// this one, which shows the home screen over the system view.
class HomeActivity : public QObject, public hvappframework::Activity
{
    Q_OBJECT
    Q_INTERFACES(hvappframework::Activity)
public:
    explicit HomeActivity(HostInputs* inputs, QObject* parent = nullptr);
    ~HomeActivity() override;

    int onCreat() override;
    int onDestory() override;
    int onStart() override;
    int onStop() override;
    QSharedPointer<hvappframework::ActivityProperty> getProperty() override;

    HomeScreen* screen() const;

private:
    HostInputs* m_inputs;
    QSharedPointer<hvappframework::ActivityProperty> m_property;
    QPointer<HomeScreen> m_screen;
};

#endif
