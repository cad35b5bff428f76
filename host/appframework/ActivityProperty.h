#ifndef HVAPPFRAMEWORK_ACTIVITYPROPERTY_H
#define HVAPPFRAMEWORK_ACTIVITYPROPERTY_H

#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace hvappframework {

typedef int ACTVITY_TYPE;
typedef int TRIGGER_PRIORITY;
typedef int AnmType;
typedef int ACTVITY_RESUME_TYPE;
typedef int ACTIVITY_INFO_TYPE;

// Callback an activity may give the framework for its events.
class ActivityEventCbk
{
public:
    virtual ~ActivityEventCbk() = default;
    virtual void onEvent(int type, const QVariant& value) = 0;
};

// How an activity describes itself to the framework.
class ActivityProperty
{
public:
    ActivityProperty(const QString& name, ACTVITY_TYPE type, QSharedPointer<ActivityEventCbk> cbk,
                     QStringList& strList, TRIGGER_PRIORITY priority, AnmType anmType,
                     ACTVITY_RESUME_TYPE resumeType);
    virtual ~ActivityProperty();

    virtual QString getDispString() const;
    virtual QSharedPointer<QStringList> getDependModules() const;
    virtual void setUiObj(QWidget* obj);
    virtual QWidget* getUiObj();
    virtual void setPriority(TRIGGER_PRIORITY priority);
    virtual TRIGGER_PRIORITY getPriority();
    virtual AnmType getAnmType();
    virtual bool needPowerResume();
    virtual QSharedPointer<ActivityEventCbk> getCbk();
    virtual QVariant getActivitySpecialInfo(ACTIVITY_INFO_TYPE type);

    QString getName() const { return m_name; }
    ACTVITY_TYPE getType() const { return m_type; }
    // The icon and other strings the activity registered (first: icon path).
    QStringList getStringList() const { return m_strList; }
    ACTVITY_RESUME_TYPE getResumeType() const { return m_resumeType; }

private:
    QString m_name;
    ACTVITY_TYPE m_type;
    QSharedPointer<ActivityEventCbk> m_cbk;
    QStringList m_strList;
    TRIGGER_PRIORITY m_priority;
    AnmType m_anmType;
    ACTVITY_RESUME_TYPE m_resumeType;
    QPointer<QWidget> m_uiObj;
};

} // namespace hvappframework

#endif
