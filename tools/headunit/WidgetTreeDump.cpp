#include "WidgetTreeDump.h"

#include "HvIconButton.h"
#include "HvRollingText.h"
#include "MOnOffButton.h"
#include "MRadioSlider.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QSaveFile>

namespace {

QJsonObject geometryOf(QWidget* widget, QWidget* window)
{
    QPoint origin;
    if (window->isAncestorOf(widget))
        origin = widget->mapTo(window, QPoint(0, 0));
    else if (widget != window)
        origin = widget->mapToGlobal(QPoint(0, 0)) - window->mapToGlobal(QPoint(0, 0));
    return QJsonObject{{QStringLiteral("x"), origin.x()},
                       {QStringLiteral("y"), origin.y()},
                       {QStringLiteral("width"), widget->width()},
                       {QStringLiteral("height"), widget->height()}};
}

// What the widget shows, by class; empty for plain containers.
QJsonObject stateOf(QWidget* widget)
{
    QJsonObject state;
    if (widget->isWindow())
        state.insert(QStringLiteral("windowTitle"), widget->windowTitle());
    if (auto* label = qobject_cast<QLabel*>(widget)) {
        state.insert(QStringLiteral("text"), label->text());
        state.insert(QStringLiteral("textColor"),
                     label->palette().color(label->foregroundRole()).name(QColor::HexArgb));
        state.insert(QStringLiteral("hasPixmap"), !label->pixmap(Qt::ReturnByValue).isNull());
    } else if (auto* button = qobject_cast<HvIconButton*>(widget)) {
        state.insert(QStringLiteral("displayText"), button->displayText());
        state.insert(QStringLiteral("isDown"), button->isDown());
        state.insert(QStringLiteral("isLock"), button->isLock());
        state.insert(QStringLiteral("disableState"), button->disableState());
        state.insert(QStringLiteral("buttonID"), button->buttonID());
    } else if (auto* onOff = qobject_cast<MOnOffButton*>(widget)) {
        state.insert(QStringLiteral("onoffStatus"), onOff->onoffStatus());
        state.insert(QStringLiteral("btnDisable"), onOff->btnDisable());
    } else if (auto* rolling = qobject_cast<HvRollingText*>(widget)) {
        state.insert(QStringLiteral("text"), rolling->text());
        state.insert(QStringLiteral("isRolling"), rolling->isRolling());
    } else if (auto* slider = qobject_cast<MRadioSlider*>(widget)) {
        state.insert(QStringLiteral("freqStart"), double(slider->freqStart()));
        state.insert(QStringLiteral("freqEnd"), double(slider->freqEnd()));
        state.insert(QStringLiteral("freqStep"), double(slider->freqStep()));
        state.insert(QStringLiteral("curFreq"), double(slider->curFreq()));
        state.insert(QStringLiteral("isFM"), slider->isFM());
    } else if (auto* qtButton = qobject_cast<QAbstractButton*>(widget)) {
        state.insert(QStringLiteral("text"), qtButton->text());
        if (qtButton->isCheckable())
            state.insert(QStringLiteral("checked"), qtButton->isChecked());
    } else if (auto* spin = qobject_cast<QAbstractSpinBox*>(widget)) {
        state.insert(QStringLiteral("text"), spin->text());
    }
    return state;
}

// Place among the parent's child widgets, in stacking order (lowest 0).
int stackIndex(QWidget* widget)
{
    QWidget* parent = widget->isWindow() ? nullptr : widget->parentWidget();
    if (!parent)
        return 0;
    int index = 0;
    for (QObject* sibling : parent->children()) {
        if (sibling == widget)
            return index;
        if (sibling->isWidgetType() && !static_cast<QWidget*>(sibling)->isWindow())
            ++index;
    }
    return index;
}

QJsonObject nodeOf(QWidget* widget, QWidget* window, int stack)
{
    QJsonObject node{{QStringLiteral("class"), QLatin1String(widget->metaObject()->className())},
                     {QStringLiteral("objectName"), widget->objectName()},
                     {QStringLiteral("geometry"), geometryOf(widget, window)},
                     {QStringLiteral("visible"), widget->isVisible()},
                     {QStringLiteral("enabled"), widget->isEnabled()},
                     {QStringLiteral("stack"), stack}};
    const QJsonObject state = stateOf(widget);
    if (!state.isEmpty())
        node.insert(QStringLiteral("state"), state);

    // children() is in stacking order, lowest first: raise() moves a widget
    // to the end of its parent's list. Separate windows are not part of
    // this window's picture.
    QJsonArray children;
    int childStack = 0;
    for (QObject* child : widget->children()) {
        if (!child->isWidgetType())
            continue;
        auto* childWidget = static_cast<QWidget*>(child);
        if (childWidget->isWindow())
            continue;
        children.append(nodeOf(childWidget, window, childStack++));
    }
    node.insert(QStringLiteral("children"), children);
    return node;
}

} // namespace

QJsonObject WidgetTreeDump::widgetTree(QWidget* widget, QWidget* window)
{
    if (!widget || !window)
        return QJsonObject();
    return nodeOf(widget, window, stackIndex(widget));
}

bool WidgetTreeDump::writeFile(const QString& path, const QJsonObject& document, QString* error)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly)) {
        *error = file.errorString();
        return false;
    }
    file.write(QJsonDocument(document).toJson(QJsonDocument::Indented));
    if (!file.commit()) {
        *error = file.errorString();
        return false;
    }
    return true;
}
