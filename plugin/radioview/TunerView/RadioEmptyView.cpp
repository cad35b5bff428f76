#include "RadioEmptyView.h"

#include "UIManager.h"

#include <QPainter>

RadioEmptyView::RadioEmptyView(QWidget* parent) : QWidget(parent)
{
    setGeometry(hvappframework::UIManager::getSystemViewRect());
}

void RadioEmptyView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(QRect(0, 0, width(), height()), QColor(255, 255, 255, 0));
    painter.end();
}
