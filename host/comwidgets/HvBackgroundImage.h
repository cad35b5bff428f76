#ifndef HVBACKGROUNDIMAGE_H
#define HVBACKGROUNDIMAGE_H

#include <QPixmap>
#include <QString>
#include <QWidget>

// A panel that paints one image: scaled to the widget when fitPixmapSize
// is true, else at its own size from the top-left corner.
class HvBackgroundImage : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString pixmap READ pixmapPath WRITE setPixmap)
    Q_PROPERTY(bool fitPixmapSize READ fitPixmapSize WRITE setFitPixmapSize)

public:
    explicit HvBackgroundImage(QWidget* parent = nullptr);

    QString pixmapPath() const { return m_path; }
    void setPixmap(const QString& path);
    void setPixmap(const QPixmap& pixmap);
    QPixmap pixmap() const { return m_pixmap; }
    bool fitPixmapSize() const { return m_fit; }
    void setFitPixmapSize(bool fit);

protected:
    void paintEvent(QPaintEvent* e) override;

private:
    QString m_path;
    QPixmap m_pixmap;
    bool m_fit = true;
};

#endif
