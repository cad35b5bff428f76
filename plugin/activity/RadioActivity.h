#ifndef RADIOACTIVITY_H
#define RADIOACTIVITY_H

#include "Activity.h"

#include <QObject>
#include <QSharedPointer>

class RadioProperty;

// The radio activity: the plugin's root object. The framework creates,
// starts, stops and destroys it; it builds, shows, hides and deletes the
// radio screen's controller accordingly.
class RadioActivity : public QObject, public hvappframework::Activity
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1" FILE "radio.json")
    Q_INTERFACES(hvappframework::Activity)

public:
    RadioActivity();
    ~RadioActivity() override;

    int onCreat() override;
    int onDestory() override;
    int onStart() override;
    int onStop() override;
    QSharedPointer<hvappframework::ActivityProperty> getProperty() override;

    void registerImplicitRule();

signals:
    int showScreen();
    int hideScreen();
    void sigOnStart();

private:
    QSharedPointer<RadioProperty> m_pProperty;
};

#endif
