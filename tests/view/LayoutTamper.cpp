#include "LayoutTamper.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QWidget>

LayoutTamper::LayoutTamper(const char* hostClass) : m_hostClass(hostClass)
{
    QCoreApplication::instance()->installEventFilter(this);
}

LayoutTamper::~LayoutTamper()
{
    QCoreApplication::instance()->removeEventFilter(this);
}

void LayoutTamper::withhold(const QString& objectName)
{
    m_withheld.insert(objectName);
}

void LayoutTamper::addExtra(Factory factory)
{
    m_extras.append(std::move(factory));
}

QString LayoutTamper::absentName(const QString& objectName)
{
    return objectName + QStringLiteral("_absent");
}

bool LayoutTamper::eventFilter(QObject* watched, QEvent* e)
{
    if (e->type() != QEvent::ChildAdded || m_creating || !watched->isWidgetType()
        || m_hostClass != watched->metaObject()->className())
        return false;

    // The layout names a child right after creating it; rename it before
    // the host's constructor goes looking for it.
    QObject* child = static_cast<QChildEvent*>(e)->child();
    connect(child, &QObject::objectNameChanged, this, [this, child](const QString& name) {
        if (m_withheld.contains(name))
            child->setObjectName(absentName(name));
    });

    if (!m_equipped.contains(watched)) {
        m_equipped.insert(watched);
        connect(watched, &QObject::destroyed, this, [this, watched] { m_equipped.remove(watched); });
        m_creating = true;
        for (const Factory& make : qAsConst(m_extras))
            make(static_cast<QWidget*>(watched));
        m_creating = false;
    }
    return false;
}
