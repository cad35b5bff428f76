#include "RadioProperty.h"

#include <QCoreApplication>

RadioProperty::RadioProperty(const QString& name, hvappframework::ACTVITY_TYPE type,
                             QSharedPointer<hvappframework::ActivityEventCbk> cbk, QStringList& strList,
                             hvappframework::TRIGGER_PRIORITY priority, hvappframework::AnmType anmType,
                             hvappframework::ACTVITY_RESUME_TYPE resumeType)
    : ActivityProperty(name, type, cbk, strList, priority, anmType, resumeType)
{
}

QString RadioProperty::getDispString() const
{
    return QCoreApplication::translate("QObject", "Radio");
}

QSharedPointer<QStringList> RadioProperty::getDependModules() const
{
    return QSharedPointer<QStringList>::create(QStringList{QStringLiteral("auxin"), QStringLiteral("radio")});
}
