#include "ActivityProperty.h"

#include <QVariant>

namespace hvappframework {

ActivityProperty::ActivityProperty(const QString& name, ACTVITY_TYPE type, QSharedPointer<ActivityEventCbk> cbk,
                                   QStringList& strList, TRIGGER_PRIORITY priority, AnmType anmType,
                                   ACTVITY_RESUME_TYPE resumeType)
    : m_name(name), m_type(type), m_cbk(cbk), m_strList(strList), m_priority(priority), m_anmType(anmType),
      m_resumeType(resumeType)
{
}

ActivityProperty::~ActivityProperty() = default;

QString ActivityProperty::getDispString() const { return m_name; }

QSharedPointer<QStringList> ActivityProperty::getDependModules() const
{
    return QSharedPointer<QStringList>::create();
}

void ActivityProperty::setUiObj(QWidget* obj) { m_uiObj = obj; }
QWidget* ActivityProperty::getUiObj() { return m_uiObj.data(); }
void ActivityProperty::setPriority(TRIGGER_PRIORITY priority) { m_priority = priority; }
TRIGGER_PRIORITY ActivityProperty::getPriority() { return m_priority; }
AnmType ActivityProperty::getAnmType() { return m_anmType; }
bool ActivityProperty::needPowerResume() { return m_resumeType != 0; }
QSharedPointer<ActivityEventCbk> ActivityProperty::getCbk() { return m_cbk; }
QVariant ActivityProperty::getActivitySpecialInfo(ACTIVITY_INFO_TYPE) { return QVariant(); }

} // namespace hvappframework
