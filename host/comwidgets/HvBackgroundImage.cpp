#include "HvBackgroundImage.h"

#include <QLoggingCategory>
#include <QPainter>

Q_LOGGING_CATEGORY(lcBackgroundImage, "hu.widgets.backgroundimage")

HvBackgroundImage::HvBackgroundImage(QWidget* parent)
    : QWidget(parent)
{
}

void HvBackgroundImage::setPixmap(const QString& path)
{
    m_path = path;
    m_pixmap = path.isEmpty() ? QPixmap() : QPixmap(path);
    if (!path.isEmpty() && m_pixmap.isNull())
        qCWarning(lcBackgroundImage) << "image not found, painting none:" << path;
    update();
}

void HvBackgroundImage::setPixmap(const QPixmap& pixmap)
{
    m_path.clear();
    m_pixmap = pixmap;
    update();
}

void HvBackgroundImage::setFitPixmapSize(bool fit)
{
    m_fit = fit;
    update();
}

void HvBackgroundImage::paintEvent(QPaintEvent*)
{
    if (m_pixmap.isNull())
        return;
    QPainter p(this);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    if (m_fit)
        p.drawPixmap(rect(), m_pixmap);
    else
        p.drawPixmap(QRect(QPoint(), m_pixmap.size() / m_pixmap.devicePixelRatio()), m_pixmap);
}
