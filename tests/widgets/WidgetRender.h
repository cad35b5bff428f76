#ifndef WIDGETRENDER_H
#define WIDGETRENDER_H

#include <QColor>
#include <QDir>
#include <QImage>
#include <QWidget>

// Paints `widget` (with its children) over a dark backdrop like the head
// unit's screens.
inline QImage renderOnBackdrop(QWidget* widget, const QColor& backdrop = QColor(10, 14, 22))
{
    QImage image(widget->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(backdrop);
    widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// Saves the picture under $RADIO_TEST_OUTPUT for a person to look at; true
// when there is nowhere to save it.
inline bool saveRender(QWidget* widget, const QString& name, const QColor& backdrop = QColor(10, 14, 22))
{
    const QString dir = qEnvironmentVariable("RADIO_TEST_OUTPUT");
    if (dir.isEmpty())
        return true;
    QDir().mkpath(dir);
    return renderOnBackdrop(widget, backdrop).save(dir + QStringLiteral("/widgets_") + name + QStringLiteral(".png"));
}

#endif
