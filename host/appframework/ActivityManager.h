#ifndef HVAPPFRAMEWORK_ACTIVITYMANAGER_H
#define HVAPPFRAMEWORK_ACTIVITYMANAGER_H

#include <QMap>
#include <QObject>
#include <QSharedPointer>
#include <QStringList>

namespace hvappframework {

class Activity;

// Knows the activities by name and switches between them: the one that
// runs is stopped, the target is created on first use and started.
class ActivityManager : public QObject
{
    Q_OBJECT
public:
    static QSharedPointer<ActivityManager> self();
    ~ActivityManager() override;

    void registerActivity(const QString& name, Activity* activity);
    void unregisterActivity(const QString& name);
    Activity* activity(const QString& name) const;
    QStringList activityNames() const;

    // Switches the head unit to the named activity. Returns 0, or -1 for
    // an unknown name (logged, nothing changes).
    int switchActivity(const QString& name, int param);
    QString currentActivity() const { return m_current; }
    // Every switch request, in order, for whoever needs to observe them.
    QStringList switchRequests() const { return m_requests; }
    void clearSwitchRequests() { m_requests.clear(); }

signals:
    void switchRequested(const QString& name, int param);
    void activityChanged(const QString& name);

private:
    ActivityManager() = default;
    QMap<QString, Activity*> m_activities;
    QStringList m_created;
    QString m_current;
    QStringList m_requests;
};

} // namespace hvappframework

#endif
