#include "HeadUnitWindow.h"

#include "UIManager.h"

#include <QPalette>

HeadUnitWindow::HeadUnitWindow(QWidget* parent) : QWidget(parent), m_systemView(new QWidget(this))
{
    setObjectName(QStringLiteral("HeadUnitWindow"));
    setWindowTitle(QStringLiteral("Radio head unit"));
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    setAutoFillBackground(true);

    const QRect view = hvappframework::UIManager::getSystemViewRect();
    m_systemView->setObjectName(QStringLiteral("SystemView"));
    m_systemView->setGeometry(view);
    m_systemView->setFixedSize(view.size());
    setFixedSize(view.size());
}

void HeadUnitWindow::releaseFixedSize()
{
    setMinimumSize(m_systemView->size());
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}
