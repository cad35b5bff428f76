#ifndef HVAPPFRAMEWORK_ACTIVITY_H
#define HVAPPFRAMEWORK_ACTIVITY_H

#include <QtPlugin>
#include <QSharedPointer>

namespace hvappframework {

class ActivityProperty;

// What an activity plugin's root object implements. The framework drives
// it: create, start, stop, destroy.
class Activity
{
public:
    virtual ~Activity() = default;
    virtual int onCreat() = 0;
    virtual int onDestory() = 0;
    virtual int onStart() = 0;
    virtual int onStop() = 0;
    virtual QSharedPointer<ActivityProperty> getProperty() = 0;
};

} // namespace hvappframework

#define HvActivity_iid "activity/0.1"
Q_DECLARE_INTERFACE(hvappframework::Activity, HvActivity_iid)

#endif
