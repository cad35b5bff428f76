#include "ImplicitRuleManager.h"

namespace hvappframework {

QSharedPointer<ImplicitRuleManager> ImplicitRuleManager::self()
{
    static QSharedPointer<ImplicitRuleManager> instance(new ImplicitRuleManager);
    return instance;
}

ImplicitRuleManager::~ImplicitRuleManager() = default;

int ImplicitRuleManager::registerRule(ImplicitRule& rule)
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_rules.append(rule);
    return 0;
}

int ImplicitRuleManager::unregisterRule(const ImplicitRule& rule)
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_rules.removeAll(rule) > 0 ? 0 : -1;
}

QList<ImplicitRule> ImplicitRuleManager::rules() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_rules;
}

QList<ImplicitRule> ImplicitRuleManager::rulesForModule(const QString& module) const
{
    QList<ImplicitRule> out;
    for (const ImplicitRule& r : rules())
        if (r.module() == module)
            out.append(r);
    return out;
}

void ImplicitRuleManager::clear()
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_rules.clear();
}

} // namespace hvappframework
