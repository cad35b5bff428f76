#ifndef HVAPPFRAMEWORK_IMPLICITRULE_H
#define HVAPPFRAMEWORK_IMPLICITRULE_H

#include <QString>

namespace hvappframework {

typedef int ImplicitEvent;

// Ties an activity to a module: when the module reports the event, the
// framework acts on the activity with the given priority.
class ImplicitRule
{
public:
    ImplicitRule(QString module, ImplicitEvent event, unsigned char flag, QString activity, int priority, int extra);

    QString module() const { return m_module; }
    ImplicitEvent event() const { return m_event; }
    unsigned char flag() const { return m_flag; }
    QString activity() const { return m_activity; }
    int priority() const { return m_priority; }
    int extra() const { return m_extra; }

    bool operator==(const ImplicitRule& o) const;

private:
    QString m_module;
    ImplicitEvent m_event;
    unsigned char m_flag;
    QString m_activity;
    int m_priority;
    int m_extra;
};

} // namespace hvappframework

#endif
