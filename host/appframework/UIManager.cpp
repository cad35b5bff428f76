#include "UIManager.h"

#include <QMap>
#include <QPointer>
#include <QWidget>

namespace hvappframework {

namespace {
QMap<int, QPointer<QWidget>>& layers()
{
    static QMap<int, QPointer<QWidget>> map;
    return map;
}
} // namespace

QRect UIManager::getSystemViewRect()
{
    return QRect(0, 0, 1280, 720);
}

QRect UIManager::getSystemBarRect()
{
    return QRect(0, 0, 1280, 80);
}

QWidget* UIManager::getUIHerarchy(int layer)
{
    return layers().value(layer).data();
}

void UIManager::setUIHerarchy(int layer, QWidget* widget)
{
    layers().insert(layer, widget);
}

} // namespace hvappframework
