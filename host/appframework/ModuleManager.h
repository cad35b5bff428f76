#ifndef HVAPPFRAMEWORK_MODULEMANAGER_H
#define HVAPPFRAMEWORK_MODULEMANAGER_H

#include "Module.h"

#include <QMap>
#include <QSharedPointer>
#include <QStringList>

#include <mutex>

namespace hvappframework {

// The head unit's module registry ("radio", "auxin", ...).
class ModuleManager
{
public:
    static QSharedPointer<ModuleManager> self();
    ~ModuleManager();

    // The named module, or a null handle when there is none.
    QSharedPointer<Module> getModule(const QString& name) const;
    void addModule(QSharedPointer<Module> module);
    void removeModule(const QString& name);
    QStringList moduleNames() const;

private:
    ModuleManager() = default;
    mutable std::mutex m_lock;
    QMap<QString, QSharedPointer<Module>> m_modules;
};

} // namespace hvappframework

#endif
