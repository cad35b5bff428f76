#include "ActivityManager.h"
#include "Activity.h"

#include <QDebug>

namespace hvappframework {

QSharedPointer<ActivityManager> ActivityManager::self()
{
    static QSharedPointer<ActivityManager> instance(new ActivityManager);
    return instance;
}

ActivityManager::~ActivityManager() = default;

void ActivityManager::registerActivity(const QString& name, Activity* activity)
{
    m_activities.insert(name, activity);
}

void ActivityManager::unregisterActivity(const QString& name)
{
    m_activities.remove(name);
    m_created.removeAll(name);
    if (m_current == name)
        m_current.clear();
}

Activity* ActivityManager::activity(const QString& name) const
{
    return m_activities.value(name);
}

QStringList ActivityManager::activityNames() const
{
    return m_activities.keys();
}

int ActivityManager::switchActivity(const QString& name, int param)
{
    m_requests.append(name);
    emit switchRequested(name, param);
    Activity* target = m_activities.value(name);
    if (!target) {
        qWarning() << "ActivityManager: no activity named" << name;
        return -1;
    }
    if (m_current == name)
        return 0;
    if (Activity* running = m_activities.value(m_current))
        running->onStop();
    if (!m_created.contains(name)) {
        target->onCreat();
        m_created.append(name);
    }
    m_current = name;
    target->onStart();
    emit activityChanged(name);
    return 0;
}

} // namespace hvappframework
