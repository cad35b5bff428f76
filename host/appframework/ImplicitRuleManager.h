#ifndef HVAPPFRAMEWORK_IMPLICITRULEMANAGER_H
#define HVAPPFRAMEWORK_IMPLICITRULEMANAGER_H

#include "ImplicitRule.h"

#include <QList>
#include <QSharedPointer>

#include <mutex>

namespace hvappframework {

// Keeps the implicit rules the activities register.
class ImplicitRuleManager
{
public:
    static QSharedPointer<ImplicitRuleManager> self();
    virtual ~ImplicitRuleManager();

    virtual int registerRule(ImplicitRule& rule);
    virtual int unregisterRule(const ImplicitRule& rule);
    QList<ImplicitRule> rules() const;
    // Rules that react to events of the named module.
    QList<ImplicitRule> rulesForModule(const QString& module) const;
    void clear();

private:
    ImplicitRuleManager() = default;
    mutable std::mutex m_lock;
    QList<ImplicitRule> m_rules;
};

} // namespace hvappframework

#endif
