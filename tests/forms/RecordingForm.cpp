#include "RecordingForm.h"

#include <QChildEvent>

RecordingForm::RecordingForm(QWidget* parent)
    : QWidget(parent)
{
}

QStringList RecordingForm::creationOrder() const
{
    QStringList names;
    for (const QPointer<QObject>& child : m_added) {
        if (child && child->parent() == this)
            names.append(child->objectName());
    }
    return names;
}

QStringList RecordingForm::stackingOrder() const
{
    QStringList names;
    for (QObject* child : children()) {
        if (child->isWidgetType())
            names.append(child->objectName());
    }
    return names;
}

void RecordingForm::childEvent(QChildEvent* e)
{
    if (e->added() && e->child()->isWidgetType())
        m_added.append(e->child());
    QWidget::childEvent(e);
}
