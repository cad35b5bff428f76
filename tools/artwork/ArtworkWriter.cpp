#include "ArtworkWriter.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>

ArtworkWriter::ArtworkWriter(const QString& root)
    : m_root(root)
{
}

QImage ArtworkWriter::render(const ArtworkCatalog::Entry& entry)
{
    QImage image(entry.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform | QPainter::TextAntialiasing);
    entry.paint(p, entry.size);
    p.end();
    return image;
}

bool ArtworkWriter::write(const ArtworkCatalog::Entry& entry) const
{
    const QString path = QDir(m_root).filePath(entry.file);
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder)) {
        qCritical().noquote() << "cannot create folder" << folder;
        return false;
    }
    QImage image = render(entry);
    // JPEG has no alpha: flatten so that transparent pixels do not turn black by chance.
    if (qstrcmp(entry.format, "JPG") == 0)
        image = image.convertToFormat(QImage::Format_RGB32);
    QImageWriter writer(path, entry.format);
    writer.setQuality(entry.quality);
    if (!writer.write(image)) {
        qCritical().noquote() << "cannot write" << path << ":" << writer.errorString();
        return false;
    }
    return true;
}
