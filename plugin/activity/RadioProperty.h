#ifndef RADIOPROPERTY_H
#define RADIOPROPERTY_H

#include "ActivityProperty.h"

// How the radio activity describes itself to the framework.
class RadioProperty : public hvappframework::ActivityProperty
{
public:
    RadioProperty(const QString& name, hvappframework::ACTVITY_TYPE type,
                  QSharedPointer<hvappframework::ActivityEventCbk> cbk, QStringList& strList,
                  hvappframework::TRIGGER_PRIORITY priority, hvappframework::AnmType anmType,
                  hvappframework::ACTVITY_RESUME_TYPE resumeType);

    QString getDispString() const override;
    QSharedPointer<QStringList> getDependModules() const override;
};

#endif
