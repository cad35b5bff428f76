#include "ImplicitRule.h"

namespace hvappframework {

ImplicitRule::ImplicitRule(QString module, ImplicitEvent event, unsigned char flag, QString activity, int priority,
                           int extra)
    : m_module(module), m_event(event), m_flag(flag), m_activity(activity), m_priority(priority), m_extra(extra)
{
}

bool ImplicitRule::operator==(const ImplicitRule& o) const
{
    return m_module == o.m_module && m_event == o.m_event && m_flag == o.m_flag && m_activity == o.m_activity
        && m_priority == o.m_priority && m_extra == o.m_extra;
}

} // namespace hvappframework
