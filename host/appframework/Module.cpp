#include "Module.h"

namespace hvappframework {

Module::Module(const QString& name, QObject* impl) : m_name(name), m_impl(impl) {}

Module::~Module() = default;

QObject* Module::getModuleImpl() const
{
    return m_impl.data();
}

} // namespace hvappframework
