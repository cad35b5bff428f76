#include "SyntheticInput.h"

#include "ConditionWait.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <QWindow>

namespace {

// Held past the threshold by this much, so timer slack cannot turn a long
// press into a click.
constexpr int LongPressMargin = 300;
// Hold for widgets that have no threshold of their own.
constexpr int DefaultLongPressHold = 1100;

} // namespace

QWidget* SyntheticInput::findWidget(QWidget* root, const QString& name)
{
    if (!root || name.isEmpty())
        return nullptr;
    QList<QWidget*> found = root->findChildren<QWidget*>(name);
    if (root->objectName() == name)
        found.prepend(root);
    for (QWidget* w : found) {
        if (w->isVisible())
            return w;
    }
    return found.value(0);
}

void SyntheticInput::send(QWidget* widget, int type, const QPoint& pos)
{
    const auto eventType = static_cast<QEvent::Type>(type);
    const Qt::MouseButtons buttons = eventType == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(eventType, QPointF(pos), QPointF(widget->mapTo(widget->window(), pos)),
                      QPointF(widget->mapToGlobal(pos)), Qt::LeftButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void SyntheticInput::click(QWidget* widget)
{
    if (!widget)
        return;
    const QPoint centre = widget->rect().center();
    send(widget, QEvent::MouseButtonPress, centre);
    send(widget, QEvent::MouseButtonRelease, centre);
}

int SyntheticInput::longPressHold(QWidget* widget)
{
    bool ok = false;
    const int threshold = widget ? widget->property("longPressThreshold").toInt(&ok) : 0;
    return ok && threshold > 0 ? threshold + LongPressMargin : DefaultLongPressHold;
}

void SyntheticInput::longPress(QWidget* widget, int holdMs)
{
    if (!widget)
        return;
    const QPoint centre = widget->rect().center();
    const QPointer<QWidget> guard(widget);
    send(widget, QEvent::MouseButtonPress, centre);
    ConditionWait::hold(holdMs);
    // The hold runs the event loop: the widget may be gone or hidden by now,
    // and a hidden widget has dropped its press already.
    if (!guard || !guard->isVisible())
        return;
    send(guard, QEvent::MouseButtonRelease, centre);
}

bool SyntheticInput::tap(QWidget* window, const QPoint& pos, int holdMs)
{
    if (!window || !window->rect().contains(pos))
        return false;
    const QPointer<QWindow> handle = window->windowHandle();
    if (!handle)
        return false;
    const QPointF local(pos);
    const QPointF global(window->mapToGlobal(pos));
    QMouseEvent press(QEvent::MouseButtonPress, local, local, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &press);
    if (holdMs > 0)
        ConditionWait::hold(holdMs);
    if (!handle)
        return false;
    QMouseEvent release(QEvent::MouseButtonRelease, local, local, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &release);
    return true;
}
