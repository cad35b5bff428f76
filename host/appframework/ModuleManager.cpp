#include "ModuleManager.h"

namespace hvappframework {

QSharedPointer<ModuleManager> ModuleManager::self()
{
    static QSharedPointer<ModuleManager> instance(new ModuleManager);
    return instance;
}

ModuleManager::~ModuleManager() = default;

QSharedPointer<Module> ModuleManager::getModule(const QString& name) const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_modules.value(name);
}

void ModuleManager::addModule(QSharedPointer<Module> module)
{
    if (!module)
        return;
    std::lock_guard<std::mutex> guard(m_lock);
    m_modules.insert(module->getName(), module);
}

void ModuleManager::removeModule(const QString& name)
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_modules.remove(name);
}

QStringList ModuleManager::moduleNames() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_modules.keys();
}

} // namespace hvappframework
